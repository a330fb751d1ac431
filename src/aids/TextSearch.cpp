#include "aids/TextSearch.h"

#include <algorithm>

namespace aids {
namespace {

constexpr std::size_t Nowhere = static_cast<std::size_t>(-1);

}  // namespace

TextSearch::TextSearch(Word word, IsDelimeter isDelimeter)
    : m_word(std::move(word)), m_isDelimeter(std::move(isDelimeter)) {
  if (!m_word.CaseSense) m_word.Text = rich_text::LowerCase(m_word.Text);
  m_characters = rich_text::CharacterCount(m_word.Text);
  if (m_word.Text.empty()) return;
  const char32_t first = rich_text::CodePointAt(m_word.Text, 0).Value;
  for (unsigned byte = 0; byte < 0x80; ++byte) m_mayStart[byte] = Fold(char32_t{byte}) == first;
  // A character beyond ASCII may have any lower case.
  std::fill(m_mayStart.begin() + 0xC2, m_mayStart.end(), !m_word.CaseSense || first >= 0x80);
}

char32_t TextSearch::Fold(char32_t value) const {
  return m_word.CaseSense ? value : rich_text::LowerCase(value);
}

std::size_t TextSearch::MatchEnd(std::string_view text, std::size_t offset) const {
  const std::string& word = m_word.Text;
  if (m_word.CaseSense) return text.substr(offset, word.size()) == word ? offset + word.size() : Nowhere;
  for (std::size_t i = 0; i < word.size();) {
    if (offset >= text.size()) return Nowhere;
    const rich_text::CodePoint wanted = rich_text::CodePointAt(word, i), found = rich_text::CodePointAt(text, offset);
    if (Fold(found.Value) != wanted.Value) return Nowhere;
    i += wanted.Bytes, offset += found.Bytes;
  }
  return offset;
}

bool TextSearch::StandsAlone(std::string_view before, std::string_view after) const {
  const auto delimits = [&](std::string_view character) {
    if (character.empty()) return m_isDelimeter(" ");
    return m_isDelimeter(m_word.CaseSense ? std::string(character) : rich_text::LowerCase(character));
  };
  return delimits(before) && delimits(after);
}

bool TextSearch::Counts(const Piece& piece, const Match& match) const {
  if (!m_word.WholeWord) return true;
  const std::string_view before = rich_text::LastCharacter(piece.Text.substr(0, match.Start));
  const std::string_view after = rich_text::FirstCharacter(piece.Text.substr(match.End));
  return StandsAlone(before.empty() ? piece.Before : before, after.empty() ? piece.After : after);
}

/// The first place in [from, until) with a byte that may start a match, or `until`.
std::size_t TextSearch::NextStart(std::string_view text, std::size_t from, std::size_t until) const {
  if (m_word.CaseSense) return std::min(text.substr(0, until + m_word.Text.size() - 1).find(m_word.Text, from), until);
  while (from < until && !m_mayStart[static_cast<unsigned char>(text[from])]) ++from;
  return from;
}

std::optional<TextSearch::Match> TextSearch::First(const Piece& piece, std::size_t from, std::size_t until) const {
  if (m_word.Text.empty()) return std::nullopt;
  until = std::min(until, piece.Text.size());
  for (std::size_t i = NextStart(piece.Text, from, until); i < until; i = NextStart(piece.Text, i + 1, until)) {
    const std::size_t end = MatchEnd(piece.Text, i);
    if (end != Nowhere && Counts(piece, {i, end})) return Match{i, end};
  }
  return std::nullopt;
}

std::optional<TextSearch::Match> TextSearch::Last(const Piece& piece, std::size_t from, std::size_t until) const {
  if (m_word.Text.empty()) return std::nullopt;
  for (std::size_t i = std::min(until, piece.Text.size()); i-- > from;) {
    if (!m_mayStart[static_cast<unsigned char>(piece.Text[i])]) continue;
    const std::size_t end = MatchEnd(piece.Text, i);
    if (end != Nowhere && Counts(piece, {i, end})) return Match{i, end};
  }
  return std::nullopt;
}

TextSearch::Replacement TextSearch::ReplaceAll(std::string_view text, std::string_view replacement) const {
  Replacement result;
  std::string_view before;  // the character that stands before `done` by then
  std::size_t done = 0;
  while (const auto match = First({text.substr(done), before, {}}, 0, text.size())) {
    if (result.Count == 0)
      result.Start = match->Start;
    else
      result.Text += text.substr(done, match->Start);
    result.Text += replacement;
    ++result.Count;
    if (!replacement.empty())
      before = rich_text::LastCharacter(replacement);
    else if (match->Start > 0)
      before = rich_text::LastCharacter(text.substr(done, match->Start));
    result.End = done += match->End;
  }
  return result;
}

}  // namespace aids
