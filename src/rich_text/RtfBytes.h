#pragma once
// Which bytes stand in RTF for themselves, found eight at a time. Private to reader and writer.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace rich_text {

/// The place of the first of the eight bytes that may be no plain ASCII character; 8 when all are plain. Characters
/// behind "z" are told too, and what is told behind a true one may be false, so that the caller looks again.
inline std::size_t FirstDoubtfulByte(const char* bytes) {
  static_assert(std::endian::native == std::endian::little);
  constexpr std::uint64_t Each = 0x0101010101010101U, High = Each * 0x80;
  std::uint64_t block;
  std::memcpy(&block, bytes, sizeof block);
  const std::uint64_t control = block - Each * 0x20;
  const std::uint64_t behindZ = block + Each * (0x80 - 0x7B);
  const std::uint64_t backslash = (block ^ Each * '\\') - Each;
  const std::uint64_t doubtful = (block | control | behindZ | backslash) & High;
  return static_cast<std::size_t>(std::countr_zero(doubtful)) / 8;
}

/// The end of the stretch at `from` whose bytes are all in `set`, a table of 256 that holds every plain ASCII
/// character.
template <typename Set>
std::size_t SkipBytes(std::string_view text, std::size_t from, const Set& set) {
  std::size_t i = from;
  while (i + 8 <= text.size()) {
    const std::size_t plain = FirstDoubtfulByte(text.data() + i);
    i += plain;
    if (plain == 8) continue;
    if (!set[static_cast<unsigned char>(text[i])]) return i;
    ++i;
  }
  while (i < text.size() && set[static_cast<unsigned char>(text[i])]) ++i;
  return i;
}

}  // namespace rich_text
