#include "editor/PassTables.h"

#include <algorithm>
#include <cstring>

#include "rich_text/Encoding.h"
#include "rich_text/StyledText.h"

namespace editor {

using rich_text::CodePoint;
using rich_text::CodePointAt;

// Units.

UnitPosition Advance(std::string_view text, UnitPosition from, std::size_t units) {
  std::size_t offset = from.Offset, unit = from.Unit;
  while (units > 0 && offset < text.size()) {
    if (const std::size_t lineEnd = rich_text::LineEndLength(text, offset)) {
      const std::size_t step = std::min(units, LineEndUnits - unit);
      units -= step, unit += step;
      if (unit == LineEndUnits) offset += lineEnd, unit = 0;
    } else {
      offset += rich_text::CharacterBytes(text[offset]);
      --units;
    }
  }
  return {std::min(offset, text.size()), unit, false};
}

UnitPosition NextParagraph(std::string_view text, std::size_t offset) {
  return {rich_text::FindLineEnd(text, offset), ParagraphUnit, false};  // the text's own end is a paragraph's too
}

// Letter case.

char32_t Folding::Fold(char32_t value) const {
  return m_caseSensitive ? value : rich_text::LowerCase(value);
}

std::string Folding::Fold(std::string_view text) const {
  return m_caseSensitive ? std::string(text) : rich_text::LowerCase(text);
}

std::size_t Folding::MatchEnd(std::string_view text, std::size_t offset, std::string_view folded) const {
  if (m_caseSensitive) return text.substr(offset, folded.size()) == folded ? offset + folded.size() : Nowhere;
  std::size_t at = offset;
  for (std::size_t i = 0; i < folded.size();) {
    if (at >= text.size()) return Nowhere;
    const CodePoint wanted = CodePointAt(folded, i), found = CodePointAt(text, at);
    if (Fold(found.Value) != wanted.Value) return Nowhere;
    i += wanted.Bytes, at += found.Bytes;
  }
  return at;
}

Needle::Needle(const Folding& folding, std::string_view text)
    : m_folded(folding.Fold(text)), m_characters(rich_text::CharacterCount(text)) {
  // A line end is no character of the text, so nothing that holds one is ever found.
  if (m_folded.find_first_of("\r\n") != std::string::npos) m_folded.clear();
  m_literal = folding.CaseSensitive() || std::none_of(m_folded.begin(), m_folded.end(), [](char c) {
                return static_cast<unsigned char>(c) >= 0x80 || (c >= 'a' && c <= 'z');
              });
}

Needle::Match Needle::Find(const Folding& folding, std::string_view text, std::size_t from) const {
  if (m_folded.empty() || from > text.size()) return {};
  if (m_literal) {
    const std::size_t at = text.find(m_folded, from);
    if (at == std::string_view::npos) return {};
    return {at, at + m_folded.size()};
  }
  const char32_t first = CodePointAt(m_folded, 0).Value;
  for (std::size_t i = from; i < text.size();) {
    const CodePoint point = CodePointAt(text, i);
    if (folding.Fold(point.Value) == first) {
      const std::size_t end = folding.MatchEnd(text, i, m_folded);
      if (end != Nowhere) return {i, end};
    }
    i += point.Bytes;
  }
  return {};
}

// Delimiters.

DelimeterSet::DelimeterSet(const std::vector<std::string>& delimeters) {
  for (const std::string& delimeter : delimeters) {
    if (delimeter.empty()) continue;
    const char32_t value = CodePointAt(delimeter, 0).Value;
    if (value < m_ascii.size())
      m_ascii[value] = true;
    else
      m_wide.push_back(value);
  }
  std::sort(m_wide.begin(), m_wide.end());
}

bool DelimeterSet::Has(char32_t value) const {
  return value < m_ascii.size() ? m_ascii[value] : std::binary_search(m_wide.begin(), m_wide.end(), value);
}

bool DelimeterSet::HasBefore(std::string_view text, std::size_t offset) const {
  if (offset == 0 || text[offset - 1] == '\n' || text[offset - 1] == '\r') return Has(' ');
  std::size_t start = offset - 1;
  while (start > 0 && rich_text::ContinuesCharacter(text[start])) --start;
  return Has(CodePointAt(text, start).Value);
}

bool DelimeterSet::HasAt(std::string_view text, std::size_t offset) const {
  if (offset >= text.size() || text[offset] == '\n') return Has('\r');
  return Has(CodePointAt(text, offset).Value);
}

bool DelimeterSet::In(std::string_view text) const {
  for (std::size_t i = 0; i < text.size();) {
    const CodePoint point = CodePointAt(text, i);
    if (Has(point.Value)) return true;
    i += point.Bytes;
  }
  return false;
}

// Runs.

RunBounds MeasureRun(const Folding& folding, const PassWord& word, std::string_view text, std::size_t start,
                     std::size_t end) {
  RunBounds bounds;
  bounds.Start = word.IncludeWord ? start : end;
  if (word.EndPoint == templates::colWord::EndOfWord) {
    bounds.Found = true;
    bounds.End = word.IncludeWord ? UnitPosition{end} : Advance(text, {end}, word.Start.Characters());
  } else if (word.EndPoint == templates::colWord::EndOfLine) {
    bounds.Found = true;
    bounds.End = NextParagraph(text, bounds.Start);
  } else if (word.EndPoint == templates::colWord::UntilWord) {
    if (const Needle::Match match = word.End.Find(folding, text, bounds.Start)) {
      bounds.Found = true;
      bounds.End.Offset = word.IncludeWord ? match.End : match.Start;
    }
  }
  return bounds;
}

PassRun RunBounds::ToRun(std::string_view text, std::int16_t colour) const {
  if (!Found) return {Start, text.size(), colour, RunClose::Open};
  if (End.Unit > ParagraphUnit)
    return {Start, End.Offset + rich_text::LineEndLength(text, End.Offset), colour, RunClose::InText};
  return {Start, End.Offset, colour, End.Unit > 0 ? RunClose::BeforeParagraph : RunClose::InText};
}

// The trie.

namespace {

std::size_t Mix(std::uint64_t key) {
  key *= 0x9E3779B97F4A7C15U;
  return static_cast<std::size_t>(key ^ key >> 29);
}

}  // namespace

Trie::Trie() : m_words{NoWord}, m_rowOf{0}, m_edges(16) {}

std::uint32_t Trie::Child(std::uint32_t node, unsigned char byte) const {
  if (node == 0) return m_root[byte];
  if (m_rowOf[node] != 0) return m_secondLevel[m_rowOf[node] - 1][byte];
  const std::uint64_t key = (std::uint64_t{node} << 8 | byte) + 1;
  for (std::size_t slot = Mix(key);; ++slot) {
    const Edge& edge = m_edges[slot & (m_edges.size() - 1)];
    if (edge.Key == key) return edge.Child;
    if (edge.Key == 0) return 0;
  }
}

void Trie::AddChild(std::uint32_t node, unsigned char byte, std::uint32_t child) {
  m_words.push_back(NoWord);
  m_rowOf.push_back(0);
  if (node == 0) {
    m_root[byte] = child;
    m_secondLevel.emplace_back();
    m_rowOf[child] = static_cast<std::uint32_t>(m_secondLevel.size());
    return;
  }
  if (m_rowOf[node] != 0) {
    m_secondLevel[m_rowOf[node] - 1][byte] = child;
    return;
  }
  if ((m_edgeCount + 1) * 2 > m_edges.size()) Grow();
  const std::uint64_t key = (std::uint64_t{node} << 8 | byte) + 1;
  std::size_t slot = Mix(key);
  while (m_edges[slot & (m_edges.size() - 1)].Key != 0) ++slot;
  m_edges[slot & (m_edges.size() - 1)] = {key, child};
  ++m_edgeCount;
}

void Trie::Grow() {
  std::vector<Edge> old(m_edges.size() * 2);
  old.swap(m_edges);
  for (const Edge& edge : old) {
    if (edge.Key == 0) continue;
    std::size_t slot = Mix(edge.Key);
    while (m_edges[slot & (m_edges.size() - 1)].Key != 0) ++slot;
    m_edges[slot & (m_edges.size() - 1)] = edge;
  }
}

void Trie::Add(std::string_view folded, std::uint32_t word) {
  std::uint32_t node = 0;
  for (const char c : folded) {
    const auto byte = static_cast<unsigned char>(c);
    std::uint32_t child = Child(node, byte);
    if (child == 0) {
      child = static_cast<std::uint32_t>(m_words.size());
      AddChild(node, byte, child);
    }
    node = child;
  }
  if (node != 0 && m_words[node] == NoWord) m_words[node] = word;
}

// The token table.

std::uint64_t TokenTable::Hash(std::string_view text, std::size_t start, std::size_t length) const {
  // Setting bit 5 makes the letter cases alike; what else it makes alike only costs a comparison.
  const std::uint64_t caseBits = m_caseSensitive ? 0 : 0x2020202020202020U;
  std::uint64_t hash = length;
  const char* bytes = text.data() + start;
  std::size_t left = length;
  for (; left > 8; left -= 8, bytes += 8) {
    std::uint64_t block;
    std::memcpy(&block, bytes, sizeof block);
    hash = (hash ^ (block | caseBits)) * 0x9E3779B97F4A7C15U;
    hash ^= hash >> 32;
  }
  std::uint64_t rest = 0;
  if (start + (length - left) + 8 <= text.size())
    std::memcpy(&rest, bytes, sizeof rest);
  else
    std::memcpy(&rest, bytes, left);
  rest = (rest | caseBits) & (~std::uint64_t{0} >> (64 - 8 * left));
  hash = (hash ^ rest) * 0x9E3779B97F4A7C15U;
  return hash ^ hash >> 32;
}

void TokenTable::Build(const std::vector<PassWord>& words, const std::vector<std::uint32_t>& tokens) {
  if (tokens.empty()) return;
  std::size_t size = 16;
  while (size < tokens.size() * 3) size *= 2;
  m_slots.assign(size, NoWord);
  for (const std::uint32_t word : tokens) {
    const std::string& folded = words[word].Start.Folded();
    const std::uint64_t hash = Hash(folded, 0, folded.size());
    if (Probe(hash, folded, words) != NoWord) continue;
    std::size_t slot = hash;
    while (m_slots[slot & (size - 1)] != NoWord) ++slot;
    m_slots[slot & (size - 1)] = word;
    const std::uint64_t bit = std::uint64_t{1} << std::min<std::size_t>(folded.size(), 63);
    const auto first = static_cast<unsigned char>(folded[0]);
    m_lengths[first] |= bit;
    if (!m_caseSensitive && first >= 'a' && first <= 'z') m_lengths[first - ('a' - 'A')] |= bit;
  }
}

std::uint32_t TokenTable::Probe(std::uint64_t hash, std::string_view folded, const std::vector<PassWord>& words) const {
  for (std::size_t slot = hash;; ++slot) {
    const std::uint32_t word = m_slots[slot & (m_slots.size() - 1)];
    if (word == NoWord || words[word].Start.Folded() == folded) return word;
  }
}

std::uint32_t TokenTable::Find(const Folding& folding, const std::vector<PassWord>& words, std::string_view text,
                               std::size_t start, std::size_t end, bool ascii) const {
  if (m_slots.empty()) return NoWord;
  if (!ascii && !m_caseSensitive) {
    const std::string folded = folding.Fold(text.substr(start, end - start));
    return Probe(Hash(folded, 0, folded.size()), folded, words);
  }
  const std::size_t length = end - start;
  if (!MayHave(static_cast<unsigned char>(text[start]), length)) return NoWord;
  for (std::size_t slot = Hash(text, start, length);; ++slot) {
    const std::uint32_t word = m_slots[slot & (m_slots.size() - 1)];
    if (word == NoWord) return NoWord;
    const std::string& folded = words[word].Start.Folded();
    if (folded.size() == length && folding.MatchEnd(text, start, folded) == end) return word;
  }
}

// A whole template.

PassTables::PassTables(const templates::TemplateFields& fields)
    : Fold(fields.CaseSensitive), Delimeters(fields.Delimeters), Tokens(fields.CaseSensitive) {
  Words.reserve(fields.ColWords.Count());
  std::vector<std::uint32_t> tokens;
  for (const auto& word : fields.ColWords) AddWord(*word, tokens);
  Tokens.Build(Words, tokens);
  SetEnds();
  SetKinds();
  SetFilter(tokens);
  for (const auto& word : fields.Words) {
    ActionNames.push_back(Fold.Fold(word->Name));
    for (const auto& action : word->Actions)
      if (action->Action == templates::WrdAct::CaptureSynonym) {
        CapturingWords.emplace_back(Fold, word->Name);
        break;
      }
  }
  std::sort(ActionNames.begin(), ActionNames.end());
}

void PassTables::AddWord(const templates::colWord& word, std::vector<std::uint32_t>& tokens) {
  const auto index = static_cast<std::uint32_t>(Words.size());
  PassWord& added = Words.emplace_back();
  added.Start = Needle(Fold, word.StartWord);
  added.End = Needle(Fold, word.EndWord);
  added.EndPoint = word.EndPoint;
  added.Colour = word.Colour;
  added.IncludeWord = word.IncludeWord;
  added.NeedsDelimeters = !Delimeters.In(word.StartWord);
  if (added.Start.Folded().empty()) return;
  if (added.NeedsDelimeters && IsWholeToken(added.Start.Folded()))
    tokens.push_back(index);
  else
    Anywhere.Add(added.Start.Folded(), index);
}

/// Whether no spelling of the word holds a delimiter, so that each of its counting occurrences is a whole token.
bool PassTables::IsWholeToken(const std::string& folded) const {
  if (Delimeters.In(folded)) return false;
  if (Fold.CaseSensitive()) return true;
  for (std::size_t i = 0; i < folded.size();) {
    const CodePoint point = CodePointAt(folded, i);
    if (point.Value >= 'a' && point.Value <= 'z' && Delimeters.Has(point.Value - ('a' - 'A'))) return false;
    for (const char32_t wide : Delimeters.Wide())
      if (Fold.Fold(wide) == point.Value) return false;
    i += point.Bytes;
  }
  return true;
}

/// Whether the word is a character and a delimiter at which the pass stops anyhow, because it is a word by itself.
bool PassTables::IsEndOfToken(const std::string& folded) const {
  return folded.size() == 2 && Delimeters.Has(static_cast<unsigned char>(folded[1])) &&
         Anywhere.HasWord(static_cast<unsigned char>(folded[1]));
}

// A word that starts inside a token keeps the pass from skimming. Templates have many of one sort, though: a letter and
// a quote. Those are looked for at the quote, when no other word starts inside a token.
void PassTables::SetEnds() {
  if (!Fold.CaseSensitive()) return;
  std::array<std::array<std::uint64_t, 2>, 128> ends{};
  for (const PassWord& word : Words) {
    const std::string& start = word.Start.Folded();
    if (start.empty() || IsWholeToken(start)) continue;
    const auto first = static_cast<unsigned char>(start[0]);
    if (first >= 0x80 || Delimeters.Has(first)) continue;
    if (!IsEndOfToken(start)) return;
    ends[static_cast<unsigned char>(start[1])][first / 64] |= std::uint64_t{1} << (first % 64);
  }
  m_ends = ends;
}

bool PassTables::HasEnd(unsigned char first) const {
  return std::any_of(m_ends.begin(), m_ends.end(),
                     [first](const auto& ends) { return (ends[first / 64] >> (first % 64) & 1) != 0; });
}

void PassTables::SetKinds() {
  for (unsigned byte = 0; byte < 0x80; ++byte) {
    const bool delimeter = Delimeters.Has(byte);
    const bool starts = Anywhere.StartsWith(static_cast<unsigned char>(Fold.Fold(char32_t{byte})));
    const bool inToken = starts && !delimeter && !HasEnd(static_cast<unsigned char>(byte));
    Kinds[byte] = delimeter ? (starts ? ByteKind::TrieDelimeter : ByteKind::Delimeter)
                            : (inToken ? ByteKind::TrieToken : ByteKind::Token);
    if (inToken) AnywhereInTokens = true;
  }
  Kinds['\r'] = Kinds['\n'] = ByteKind::LineEnd;
  for (unsigned byte = 0; byte < 0x80; ++byte) {
    TokenBytes[byte] = Kinds[byte] == ByteKind::Token || Kinds[byte] == ByteKind::TrieToken;
    BlankBytes[byte] = Kinds[byte] == ByteKind::Delimeter || Kinds[byte] == ByteKind::LineEnd;
  }
  SetPairs();
  for (unsigned byte = 0x80; byte < 0x100; ++byte) {
    Kinds[byte] = ByteKind::Wide;
    if (Anywhere.StartsWith(static_cast<unsigned char>(byte))) AnywhereInTokens = true;
  }
  // Two characters outside ASCII have these letters as their lower case.
  if (!Fold.CaseSensitive() && (Anywhere.StartsWith('i') || Anywhere.StartsWith('k'))) AnywhereInTokens = true;
}

void PassTables::SetPairs() {
  const auto folded = [&](unsigned byte) { return static_cast<unsigned char>(Fold.Fold(char32_t{byte})); };
  for (unsigned first = 0; first < 0x80; ++first)
    for (unsigned second = 0; second < 0x80; ++second)
      if (Anywhere.StartsWith(folded(first), folded(second)))
        m_pairs[first][second / 64] |= std::uint64_t{1} << (second % 64);
}

void PassTables::SetFilter(const std::vector<std::uint32_t>& tokens) {
  Filter.SetClasses(TokenBytes, BlankBytes, Fold.CaseSensitive());
  for (const std::uint32_t token : tokens) Filter.AddToken(Words[token].Start.Folded());
  for (unsigned char first = 0; first < 0x80; ++first)
    for (unsigned char second = 0; second < 0x80; ++second)
      if (MayStart(first, second)) Filter.AddPair(first, second);
}

}  // namespace editor
