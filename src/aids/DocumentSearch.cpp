#include "aids/DocumentSearch.h"

#include <algorithm>
#include <utility>

namespace aids {
namespace {

using Match = TextSearch::Match;

Match Moved(const Match& match, std::size_t by) {
  return {match.Start + by, match.End + by};
}

}  // namespace

TextSearch DocumentSearch::SearchFor(const std::string& word, bool caseSense, bool wholeWord) const {
  return {{word, caseSense, wholeWord}, [this](std::string_view character) { return m_fields.IsDelimeter(character); }};
}

/// The start of the character in which `offset` lies.
std::size_t DocumentSearch::CharacterStart(std::size_t offset) const {
  const std::size_t from = offset > rich_text::LongestCharacter ? offset - rich_text::LongestCharacter : 0;
  const std::string bytes = m_control.TextRange(from, offset + 1);
  if (bytes.size() <= offset - from) return offset;
  std::size_t at = offset - from;
  while (at > 0 && rich_text::ContinuesCharacter(bytes[at])) --at;
  return from + at;
}

std::size_t DocumentSearch::AfterCharacter(std::size_t offset) const {
  return offset + rich_text::FirstCharacter(m_control.TextRange(offset, offset + rich_text::LongestCharacter)).size();
}

// Each piece overlaps the next by what a match and the character behind it can take, and begins with a character that
// stands before the first place where a match may start.

std::optional<Match> DocumentSearch::FindDown(const TextSearch& search, std::size_t from) const {
  const std::size_t length = m_control.Length();
  const std::size_t overlap = search.LongestMatch() + rich_text::LongestCharacter;
  while (from < length) {
    const std::size_t pieceStart = from == 0 ? 0 : CharacterStart(from - 1);
    const std::size_t until = CharacterStart(std::min(length, from + m_pieceBytes));
    const std::size_t pieceEnd = CharacterStart(std::min(length, until + overlap));
    const std::string text = m_control.TextRange(pieceStart, pieceEnd);
    if (const auto match = search.First({text, {}, {}}, from - pieceStart, until - pieceStart))
      return Moved(*match, pieceStart);
    from = until;
  }
  return std::nullopt;
}

std::optional<Match> DocumentSearch::FindUp(const TextSearch& search, std::size_t caret) const {
  // The last character of a match is at most the one behind the caret; the one after it decides about whole words.
  const std::size_t lastEnd = AfterCharacter(caret);
  std::size_t until = caret;
  while (until > 0) {
    const std::size_t from = CharacterStart(until > m_pieceBytes ? until - m_pieceBytes : 0);
    const std::size_t pieceStart = from == 0 ? 0 : CharacterStart(from - 1);
    const std::size_t pieceEnd = std::min(lastEnd, CharacterStart(std::min(lastEnd, until + search.LongestMatch())));
    const std::string text = m_control.TextRange(pieceStart, pieceEnd);
    const std::string after = m_control.TextRange(pieceEnd, AfterCharacter(pieceEnd));
    if (const auto match = search.Last({text, {}, after}, from - pieceStart, until - pieceStart))
      return Moved(*match, pieceStart);
    until = from;
  }
  return std::nullopt;
}

std::int32_t DocumentSearch::Find(const std::string& word, std::int32_t direction, bool caseSense, bool wholeWord) {
  PreviousFindWord = word;
  PreviousDirection = direction;
  PreviousCaseSense = caseSense;
  PreviousWholeWord = wholeWord;
  const bool countsFirst = std::exchange(m_countsFirst, false);
  const TextSearch search = SearchFor(word, caseSense, wholeWord);
  const std::size_t caret = m_control.SelStart();
  const bool fromTop = direction == Direction::FromTop || (countsFirst && caret == 0);
  const auto match =
      direction == Direction::Up ? FindUp(search, caret) : FindDown(search, fromTop ? 0 : AfterCharacter(caret));
  if (!match) return NotFound;
  m_control.SetSelStart(match->Start);
  m_control.SetSelLength(match->End - match->Start);
  return 0;
}

bool DocumentSearch::OffersToWrap(platform::Prompts& prompts, const std::string& word, std::int32_t direction,
                                  bool& wrapped) {
  const std::string quoted = '"' + word + '"';
  if (std::exchange(wrapped, false)) {
    prompts.Show({.Text = "No more instances of " + quoted + " found in document", .Title = "Find"});
    return false;
  }
  if (direction == Direction::FromTop) {
    prompts.Show({.Text = quoted + " not found in document", .Title = "Find"});
    return false;
  }
  const bool down = direction == Direction::Down;
  const auto answer = prompts.Show(
      {.Text = quoted + " not found, continue search from " + (down ? "beginning" : "end") + " of document?",
       .Title = "Find",
       .Buttons = platform::PromptButtons::YesNo,
       .Icon = platform::PromptIcon::Question,
       .Default = platform::PromptAnswer::Yes});
  if (answer != platform::PromptAnswer::Yes) return false;
  m_control.SetSelStart(down ? 0 : m_control.Length());
  m_countsFirst = down;
  return wrapped = true;
}

void DocumentSearch::FindNext(platform::Prompts& prompts) {
  if (PreviousFindWord.empty()) return;
  const std::string word = PreviousFindWord;
  const std::int32_t direction = PreviousDirection == Direction::FromTop ? Direction::Down : PreviousDirection;
  while (Find(word, direction, PreviousCaseSense, PreviousWholeWord) == NotFound &&
         OffersToWrap(prompts, word, direction, SearchWrapped)) {
  }
}

std::size_t DocumentSearch::ReplaceAll(const std::string& word, const std::string& replacement, bool caseSense,
                                       bool wholeWord,
                                       const std::function<void(const std::function<void()>& edit)>& changing) {
  const std::string text = m_control.Text();
  const TextSearch::Replacement replaced = SearchFor(word, caseSense, wholeWord).ReplaceAll(text, replacement);
  if (replaced.Count == 0) return 0;
  changing([&] {
    m_control.SetSelStart(replaced.Start);
    m_control.SetSelLength(replaced.End - replaced.Start);
    m_control.SetSelText(replaced.Text);
  });
  return replaced.Count;
}

}  // namespace aids
