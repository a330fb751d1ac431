#include "editor/LinePass.h"

#include <algorithm>

#include "rich_text/Encoding.h"

namespace editor {

bool LinePass::IsDelimited(std::size_t start, std::size_t end, UnitPosition from) const {
  const bool behindSwitch = from.BehindSpace && start == from.Offset;
  const bool before =
      start == 0 || (behindSwitch ? m_tables.Delimeters.Has(' ') : m_tables.Delimeters.HasBefore(m_text, start));
  return before && m_tables.Delimeters.HasAt(m_text, end);
}

bool LinePass::Counts(const PassWord& word, std::size_t start, std::size_t end, UnitPosition from) const {
  return !word.NeedsDelimeters || IsDelimited(start, end, from);
}

LinePass::Found LinePass::NextColour() {
  ++m_roundNumber;
  m_round.resize(m_tables.Words.size(), 0);
  std::size_t i = m_colourFrom.Offset;
  if (m_colourFrom.Unit > 0) i += rich_text::LineEndLength(m_text, i);
  while (i < m_text.size()) {
    Found best{m_tables.Words.size()};
    m_words.Walk(m_tables.Fold, m_text, i, [&](std::uint32_t word, std::size_t end) {
      if (m_round[word] == m_roundNumber) return;
      if (!Counts(m_tables.Words[word], i, end, m_colourFrom))
        m_round[word] = m_roundNumber;
      else if (word < best.Word)
        best = {word, i, end};
    });
    if (best.Start != Nowhere) return best;
    i += rich_text::CharacterBytes(m_text[i]);
  }
  return {};
}

LinePass::Found LinePass::NextAction() {
  Found best;
  std::size_t from = m_actionFrom.Offset;
  if (m_actionFrom.Unit > 0) from += rich_text::LineEndLength(m_text, from);
  m_actions.resize(m_tables.CapturingWords.size());
  for (std::size_t i = 0; i < m_actions.size(); ++i) {
    KnownMatch& known = m_actions[i];
    if (from < known.From || known.Match.Start < from)
      known = {from, m_tables.CapturingWords[i].Find(m_tables.Fold, m_text, from)};
    const Needle::Match& match = known.Match;
    // Of two at one place the later one wins.
    if (match && match.Start <= best.Start && IsDelimited(match.Start, match.End, m_actionFrom))
      best = {i, match.Start, match.End};
  }
  return best;
}

bool LinePass::Colour(const Found& found, std::vector<PassRun>& runs) {
  const PassWord& word = m_tables.Words[found.Word];
  RunBounds bounds;
  bounds.Start = word.IncludeWord ? found.Start : found.End;
  if (!m_noEnd[found.Word]) bounds = MeasureRun(m_tables.Fold, word, m_text, found.Start, found.End);
  if (!bounds.Found) {
    m_noEnd[found.Word] = true;
    if (!m_closeAtLineEnd) return false;
    bounds.Found = true;
    bounds.End = NextParagraph(m_text, bounds.Start);
  }
  runs.push_back(bounds.ToRun(m_text, word.Colour));
  const bool skipsEndWord = word.EndPoint == templates::colWord::UntilWord && !word.IncludeWord;
  const std::size_t skipped = skipsEndWord ? word.End.Characters() : 0;
  m_colourFrom = skipped > 0 ? Advance(m_text, bounds.End, skipped) : bounds.End;
  m_colourFrom.BehindSpace = skipped == 0;
  m_actionFrom = m_colourFrom;
  return true;
}

std::optional<templates::Synonym> LinePass::SynonymAround(const Found& found, std::size_t& tokenEnd) const {
  const auto isBlankAt = [&](std::size_t at) {  // delimiters are looked for in the folded text
    const char32_t folded = m_tables.Fold.Fold(rich_text::CodePointAt(m_text, at).Value);
    return folded == ' ' || m_tables.Delimeters.Has(folded);
  };
  const auto next = [&](std::size_t at) { return at + rich_text::CharacterBytes(m_text[at]); };
  const std::size_t lineEnd = rich_text::FindLineEnd(m_text, found.End);
  std::size_t start = found.End;
  while (start < lineEnd && isBlankAt(start)) start = next(start);
  tokenEnd = start;
  while (tokenEnd < lineEnd && !isBlankAt(tokenEnd)) tokenEnd = next(tokenEnd);
  if (start == tokenEnd) return std::nullopt;

  std::size_t lineStart = found.Start;
  while (lineStart > 0 && m_text[lineStart - 1] != '\n' && m_text[lineStart - 1] != '\r') --lineStart;
  std::size_t wordStart = 0, wordEnd = 0;
  for (std::size_t at = lineStart; at < found.Start;) {
    const std::size_t from = at;
    while (at < found.Start && !isBlankAt(at)) at = next(at);
    if (at > from) wordStart = from, wordEnd = at;
    while (at < found.Start && isBlankAt(at)) at = next(at);
  }
  if (wordStart == wordEnd) return std::nullopt;
  return templates::Synonym{m_tables.Fold.Fold(m_text.substr(wordStart, wordEnd - wordStart)),
                            m_tables.Fold.Fold(m_text.substr(start, tokenEnd - start))};
}

void LinePass::Capture(const Found& found, std::vector<templates::Synonym>& captured) {
  std::size_t tokenEnd = found.End;
  const auto synonym = SynonymAround(found, tokenEnd);
  const bool isAction =
      synonym && std::binary_search(m_tables.ActionNames.begin(), m_tables.ActionNames.end(), synonym->Synonym);
  if (isAction) captured.push_back(*synonym);
  m_actionFrom = {std::max(tokenEnd, found.End), 0, false};
  if (tokenEnd <= found.End) m_actionFrom = Advance(m_text, m_actionFrom, 1);
}

ColourPass::LineResult LinePass::Run(std::vector<templates::Synonym>* captured, const ColourPass::Progress& progress) {
  ColourPass::LineResult result;
  m_noEnd.assign(m_tables.Words.size(), false);
  Found colour = NextColour();
  Found action = captured ? NextAction() : Found{};
  while (colour.Start != Nowhere || action.Start != Nowhere) {
    if (captured && action.Start <= colour.Start) {
      Capture(action, *captured);
      action = NextAction();
    } else {
      if (!Colour(colour, result.Runs)) return {{}, true};
      colour = NextColour();
      if (captured) action = NextAction();
    }
    if (progress && !progress(std::max(m_colourFrom.Offset, m_actionFrom.Offset))) break;
  }
  return result;
}

}  // namespace editor
