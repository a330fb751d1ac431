#pragma once
// Tells, for a block of text at a time, where a colour word may begin. Private to the colouring passes.
//
// It errs on the side of "may": what it turns down begins no word, what it lets through must be looked at. Asking costs
// no branch that the text decides.

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace editor {

class SkimFilter {
 public:
  static constexpr std::size_t BlockBytes = 64;
  /// How far MayBegin may read behind a block.
  static constexpr std::size_t ReadsBehind = sizeof(std::uint64_t);

  /// A block's bytes as bits, the first byte lowest.
  struct Block {
    std::uint64_t Tokens = 0;      ///< bytes of tokens
    std::uint64_t Candidates = 0;  ///< other bytes that may begin a word
    bool Wide = false;             ///< some byte is beyond ASCII; the bits say nothing about those

    /// The places at which a token or another word may begin.
    std::uint64_t Starts() const { return (Tokens & ~(Tokens << 1)) | Candidates; }
    bool IsToken(unsigned place) const { return (Tokens >> place & 1) != 0; }
    /// The bytes of the token from `place` to its end, or to the block's.
    unsigned TokenLength(unsigned place) const { return static_cast<unsigned>(std::countr_one(Tokens >> place)); }
    /// The bytes of the token that reaches the block's end; 0 for none.
    unsigned Open() const { return static_cast<unsigned>(std::countl_one(Tokens)); }

    bool operator==(const Block&) const = default;
  };

  /// Says which ASCII bytes belong to tokens and which begin nothing; all others are candidates.
  void SetClasses(const std::array<bool, 256>& tokenBytes, const std::array<bool, 256>& blankBytes, bool caseSensitive);
  /// Lets a whole token of ASCII through, in any letter case when that does not count.
  void AddToken(std::string_view folded);
  /// Lets two bytes through, of which the first is a candidate.
  void AddPair(unsigned char first, unsigned char second);

  /// Sorts the BlockBytes at `text`.
  Block Sort(const char* text) const;
  /// The same without vector instructions.
  Block SortBytes(const char* text) const;

  /// Whether a word may begin at one of the block's Starts(), the block standing at `text`.
  bool MayBegin(const char* text, const Block& block, unsigned place) const {
    const bool token = block.IsToken(place);
    std::uint64_t bytes;
    std::memcpy(&bytes, text + place, sizeof bytes);
    const std::size_t bit = BitOf(bytes, token ? block.TokenLength(place) : 2, token);
    return (m_bits[bit / 64] >> (bit % 64) & 1) != 0;
  }

 private:
  static constexpr unsigned IndexBits = 16;  // 8 KB, and with a thousand words one bit in sixty-five is set

  /// The bit of what begins with `bytes`: a token of `length` bytes, of which eight count, or a pair.
  std::size_t BitOf(std::uint64_t bytes, unsigned length, bool token) const {
    const std::uint64_t key = (bytes | (token ? m_caseBits : 0)) & m_masks[std::min(length, 8U)];
    return static_cast<std::size_t>(((key + length) * 0x9E3779B97F4A7C15U) >> (64 - IndexBits));
  }
  void Set(std::size_t bit) { m_bits[bit / 64] |= std::uint64_t{1} << (bit % 64); }
  Block SortVectors(const char* text) const;

  std::array<std::uint8_t, 256> m_classes{};
  std::array<std::uint8_t, 16> m_tokenRows{}, m_candidateRows{};  ///< by low half byte: a bit for each high half byte
  std::array<std::uint64_t, 9> m_masks{};
  std::uint64_t m_caseBits = 0;
  std::array<std::uint64_t, (1U << IndexBits) / 64> m_bits{};
};

}  // namespace editor
