#pragma once
// A template's colour words, arranged for searching. Private to the colouring passes.
//
// A word without a delimiter counts only between delimiters, so it is a whole token of the text: tokens are looked up
// in a hash table. All other words (those that hold a delimiter, and those whose letters in another case are
// delimiters) may start at any character: they are followed through a trie.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "editor/ColourPass.h"
#include "editor/SkimFilter.h"
#include "templates/Model.h"

namespace editor {

inline constexpr std::size_t Nowhere = static_cast<std::size_t>(-1);

/// The units of a line end: CR, LF and "\par ". The switch that ends a line's run stands before "\par ".
inline constexpr std::size_t LineEndUnits = 7;
inline constexpr std::size_t ParagraphUnit = 2;

/// A place in the text, counted in units: at Offset, and Unit units further inside the line end that starts there.
struct UnitPosition {
  std::size_t Offset = 0;
  std::size_t Unit = 0;      ///< 0 to 6; above 0 only at a line end
  bool BehindSpace = false;  ///< the space of a switch stands before it
};

/// The place `units` further; the end of the text at the most.
UnitPosition Advance(std::string_view text, UnitPosition from, std::size_t units);

/// The place of the "\par " of the line in which `offset` lies; one follows the last line too.
UnitPosition NextParagraph(std::string_view text, std::size_t offset);

/// A template's letter case: folded texts compare equal when the template says so.
class Folding {
 public:
  explicit Folding(bool caseSensitive) : m_caseSensitive(caseSensitive) {}

  bool CaseSensitive() const { return m_caseSensitive; }
  std::string Fold(std::string_view text) const;
  char32_t Fold(char32_t value) const;

  /// The end of the match of `folded` (already folded) at `offset` of `text`, or Nowhere. Matches no line end.
  std::size_t MatchEnd(std::string_view text, std::size_t offset, std::string_view folded) const;

 private:
  bool m_caseSensitive;
};

/// A text that is searched for, folded.
class Needle {
 public:
  Needle() = default;
  Needle(const Folding& folding, std::string_view text);

  struct Match {
    std::size_t Start = Nowhere;
    std::size_t End = Nowhere;
    explicit operator bool() const { return Start != Nowhere; }
  };
  /// The first match at or after `from`; none for an empty needle.
  Match Find(const Folding& folding, std::string_view text, std::size_t from) const;

  std::size_t Characters() const { return m_characters; }
  const std::string& Folded() const { return m_folded; }

 private:
  std::string m_folded;
  std::size_t m_characters = 0;
  bool m_literal = false;  ///< no character has another letter case: bytes are compared as they are
};

/// The template's delimiters, letter case counting.
class DelimeterSet {
 public:
  explicit DelimeterSet(const std::vector<std::string>& delimeters);

  bool Has(char32_t value) const;
  const std::vector<char32_t>& Wide() const { return m_wide; }
  /// Whether the last unit before `offset` of the text is a delimiter, a line end and the prefix ending with a space.
  bool HasBefore(std::string_view text, std::size_t offset) const;
  /// Whether the unit at `offset` is a delimiter; a line end, also the one behind the text, begins with CR.
  bool HasAt(std::string_view text, std::size_t offset) const;
  /// Whether a delimiter stands in the text.
  bool In(std::string_view text) const;

 private:
  std::array<bool, 128> m_ascii{};
  std::vector<char32_t> m_wide;  ///< ascending
};

/// What one colour word does.
struct PassWord {
  Needle Start;
  Needle End;
  std::int16_t EndPoint = 0;
  std::int16_t Colour = 0;
  bool IncludeWord = false;
  bool NeedsDelimeters = false;  ///< counts only between delimiters
};

/// Where the run of a word that was found ends.
struct RunBounds {
  std::size_t Start = 0;
  bool Found = false;  ///< whether it ends at all
  UnitPosition End;    ///< where, if it does

  PassRun ToRun(std::string_view text, std::int16_t colour) const;
};

/// Measures the run of `word`, whose match is [start, end).
RunBounds MeasureRun(const Folding& folding, const PassWord& word, std::string_view text, std::size_t start,
                     std::size_t end);

/// A trie over folded words.
class Trie {
 public:
  Trie();
  /// Adds a word; of equal words the one added first stays.
  void Add(std::string_view folded, std::uint32_t word);
  bool Empty() const { return m_words.size() == 1; }
  /// Whether a word may begin with these two bytes of folded text; a word of the first alone counts.
  bool StartsWith(unsigned char first, unsigned char second) const {
    const std::uint32_t child = m_root[first];
    return child != 0 && (m_words[child] != NoWord || m_secondLevel[m_rowOf[child] - 1][second] != 0);
  }
  /// Whether a word begins with this byte of folded text.
  bool StartsWith(unsigned char byte) const { return m_root[byte] != 0; }

  /// Whether this byte of folded text is a word by itself.
  bool HasWord(unsigned char byte) const { return m_root[byte] != 0 && m_words[m_root[byte]] != NoWord; }

  /// Calls `found(word, end)` for every word that matches at `offset`, the shorter ones first.
  template <typename Found>
  void Walk(const Folding& folding, std::string_view text, std::size_t offset, Found found) const;

 private:
  std::uint32_t Child(std::uint32_t node, unsigned char byte) const;
  void AddChild(std::uint32_t node, unsigned char byte, std::uint32_t child);
  void Grow();

  static constexpr std::uint32_t NoWord = 0xFFFFFFFF;
  struct Edge {
    std::uint64_t Key = 0;  ///< node × 256 + byte + 1; 0 is a free slot
    std::uint32_t Child = 0;
  };
  using Row = std::array<std::uint32_t, 256>;  ///< child by byte, 0 for none

  Row m_root{};
  std::vector<Row> m_secondLevel;      ///< by the root's child: most places where a word might begin are given up here
  std::vector<std::uint32_t> m_words;  ///< by node; node 0 is the root
  std::vector<std::uint32_t> m_rowOf;  ///< by node: its row in m_secondLevel plus 1, 0 for nodes further down
  std::vector<Edge> m_edges;           ///< open addressing, a power of two
  std::size_t m_edgeCount = 0;
};

/// A hash table from token to word.
class TokenTable {
 public:
  explicit TokenTable(bool caseSensitive) : m_caseSensitive(caseSensitive) {}
  void Build(const std::vector<PassWord>& words, const std::vector<std::uint32_t>& tokens);

  /// Whether a word of `length` bytes may begin with `first`; false tells surely, for tokens of ASCII alone.
  bool MayHave(unsigned char first, std::size_t length) const {
    return (m_lengths[first] >> std::min<std::size_t>(length, 63) & 1) != 0;
  }

  /// The word of the token [start, end), or NoWord.
  std::uint32_t Find(const Folding& folding, const std::vector<PassWord>& words, std::string_view text,
                     std::size_t start, std::size_t end, bool ascii) const;
  static constexpr std::uint32_t NoWord = 0xFFFFFFFF;

 private:
  std::uint64_t Hash(std::string_view text, std::size_t start, std::size_t length) const;
  std::uint32_t Probe(std::uint64_t hash, std::string_view folded, const std::vector<PassWord>& words) const;

  bool m_caseSensitive;
  std::vector<std::uint32_t> m_slots;          ///< word, or NoWord; open addressing, a power of two
  std::array<std::uint64_t, 256> m_lengths{};  ///< by first byte: bit n is set when a word of n bytes exists
};

/// What the scan of the whole document does with a byte.
enum class ByteKind : std::uint8_t { Token, Delimeter, LineEnd, TrieToken, TrieDelimeter, Wide };

struct PassTables {
  explicit PassTables(const templates::TemplateFields& fields);

  Folding Fold;
  DelimeterSet Delimeters;
  std::vector<PassWord> Words;  ///< in template order
  TokenTable Tokens;
  Trie Anywhere;

  // For skimming over what cannot begin a word.
  std::array<bool, 256> TokenBytes{};  ///< ASCII that is no delimiter and no line end
  std::array<bool, 256> BlankBytes{};  ///< delimiters and line ends that begin no word
  /// Whether a word of the trie may begin with the delimiter `first` before `second`.
  bool MayStart(unsigned char first, unsigned char second) const {
    return second >= 0x80 || (m_pairs[first][second / 64] >> (second % 64) & 1) != 0;
  }
  SkimFilter Filter;
  bool AnywhereInTokens = false;  ///< a word of the trie may start inside a token, other than as its last character
  /// Whether a word of the trie may begin with the last character of a token and the delimiter behind it.
  bool MayEnd(unsigned char last, unsigned char delimeter) const {
    return last < 0x80 && delimeter < 0x80 && (m_ends[delimeter][last / 64] >> (last % 64) & 1) != 0;
  }
  std::array<ByteKind, 256> Kinds{};

  // For the line pass.
  std::vector<Needle> CapturingWords;    ///< action words that capture synonyms, in template order
  std::vector<std::string> ActionNames;  ///< folded names of all action words, ascending

 private:
  void AddWord(const templates::colWord& word, std::vector<std::uint32_t>& tokens);
  bool IsWholeToken(const std::string& folded) const;
  bool IsEndOfToken(const std::string& folded) const;
  void SetEnds();
  /// Whether words of this character and a delimiter are looked for at the delimiter.
  bool HasEnd(unsigned char first) const;
  void SetKinds();
  void SetPairs();
  void SetFilter(const std::vector<std::uint32_t>& tokens);

  std::array<std::array<std::uint64_t, 2>, 128> m_pairs{};  ///< bits by first and second byte
  std::array<std::array<std::uint64_t, 2>, 128> m_ends{};   ///< bits by delimiter and the byte before it
};

template <typename Found>
void Trie::Walk(const Folding& folding, std::string_view text, std::size_t offset, Found found) const {
  std::uint32_t node = 0;
  std::string wide;
  while (offset < text.size() && text[offset] != '\r' && text[offset] != '\n') {
    const auto byte = static_cast<unsigned char>(text[offset]);
    if (byte < 0x80) {
      node = Child(node, static_cast<unsigned char>(folding.Fold(char32_t{byte})));
      ++offset;
    } else {
      const rich_text::CodePoint point = rich_text::CodePointAt(text, offset);
      wide.clear();
      rich_text::AppendUtf8(wide, folding.Fold(point.Value));
      for (std::size_t i = 0; i < wide.size() && (i == 0 || node != 0); ++i)
        node = Child(node, static_cast<unsigned char>(wide[i]));
      offset += point.Bytes;
    }
    if (node == 0) return;
    if (m_words[node] != NoWord) found(m_words[node], offset);
  }
}

}  // namespace editor
