#include "tests/support/MemoryTextControl.h"

#include <algorithm>
#include <map>

#include "rich_text/Encoding.h"
#include "tests/support/Characters.h"

namespace tests {
namespace {

using rich_text::StyledText;

std::string FontName(const platform::FontRecord& font) {
  return font.Name.empty() ? "Courier New" : font.Name;
}

/// Of a line end, or else of a byte.
std::size_t LengthAt(std::string_view text, std::size_t at) {
  return std::max<std::size_t>(rich_text::LineEndLength(text, at), 1);
}

std::string WithLineEnds(std::string_view text, std::string_view lineEnd) {
  std::string converted;
  for (std::size_t i = 0; i < text.size(); i += LengthAt(text, i))
    converted += rich_text::LineEndLength(text, i) == 0 ? text.substr(i, 1) : lineEnd;
  return converted;
}

/// The colour of every byte of the styled text.
std::vector<std::int64_t> ColourOfBytes(const StyledText& styled) {
  std::vector<std::int64_t> colours(styled.Text.size(), -1);
  for (const rich_text::ColourRun& run : styled.Runs)
    for (std::size_t i = run.Start; i < run.End; ++i) colours[i] = styled.Colours[run.Colour - 1];
  return colours;
}

/// Appends a stretch, as part of the last run where it continues that one.
void AppendRun(std::vector<rich_text::ColourRun>& runs, const rich_text::ColourRun& run) {
  if (!runs.empty() && runs.back().End == run.Start && runs.back().Colour == run.Colour)
    runs.back().End = run.End;
  else
    runs.push_back(run);
}

}  // namespace

std::vector<std::size_t> MemoryTextControl::Starts() const {
  std::vector<std::size_t> starts = {0};
  for (std::size_t i = 0; i < m_text.size(); i += LengthAt(m_text, i))
    if (const std::size_t length = rich_text::LineEndLength(m_text, i); length != 0) starts.push_back(i + length);
  return starts;
}

void MemoryTextControl::Replace(std::size_t start, std::size_t end, std::string_view text, std::size_t caret) {
  m_selStart = caret;
  m_selLength = 0;
  m_caretFirst = false;
  if (start == end && text.empty()) return;
  const platform::TextChange change{start, m_text.substr(start, end - start), text.size()};
  m_text.replace(start, end - start, text);
  const auto at = m_colours.begin() + static_cast<std::ptrdiff_t>(start);
  m_colours.erase(at, at + static_cast<std::ptrdiff_t>(end - start));
  m_colours.insert(m_colours.begin() + static_cast<std::ptrdiff_t>(start), text.size(), -1);
  if (m_events != nullptr) m_events->Change(change);
}

void MemoryTextControl::TellSelection() {
  if (m_selStart == m_toldStart && m_selLength == m_toldLength) return;
  m_toldStart = m_selStart, m_toldLength = m_selLength;
  if (m_events != nullptr) m_events->SelChange();
}

void MemoryTextControl::Select(std::size_t anchor, std::size_t caret) {
  const auto whole = [this](std::size_t offset) {
    std::size_t at = std::min(offset, m_text.size());
    while (IsInside(m_text, at)) --at;
    return at;
  };
  const std::size_t from = whole(anchor), to = whole(caret);
  m_selStart = std::min(from, to);
  m_selLength = std::max(from, to) - m_selStart;
  m_caretFirst = to < from;
  TellSelection();
}

void MemoryTextControl::SetText(std::string_view text) {
  const std::size_t at = rich_text::FindLineEnd(text, 0);
  const std::size_t length = rich_text::LineEndLength(text, at);
  m_lineEnd = length == 0 ? "\r\n" : text.substr(at, length);
  m_vertical = m_horizontal = 0;
  Replace(0, m_text.size(), std::string(text), 0);
  TellSelection();
}

std::string MemoryTextControl::TextRange(std::size_t start, std::size_t end) const {
  const std::size_t from = std::min(start, m_text.size());
  return m_text.substr(from, std::max(from, end) - from);
}

StyledText MemoryTextControl::Styled(std::size_t start, std::size_t end) const {
  StyledText styled{m_text.substr(start, end - start), {}, {}};
  std::map<std::int64_t, std::uint32_t> places;
  for (std::size_t i = start; i < end; ++i) {
    if (m_colours[i] < 0) continue;
    const auto [place, isNew] = places.emplace(m_colours[i], static_cast<std::uint32_t>(places.size() + 1));
    if (isNew) styled.Colours.push_back(static_cast<rich_text::ColourValue>(m_colours[i]));
    AppendRun(styled.Runs, {i - start, i - start + 1, place->second});
  }
  return styled;
}

std::string MemoryTextControl::TextRTF() const {
  return rich_text::WriteRtf(Styled(0, m_text.size()), FontName(m_font));
}

void MemoryTextControl::Paint(std::size_t start, const StyledText& styled) {
  const std::vector<std::int64_t> colours = ColourOfBytes(styled);
  for (std::size_t from = 0, to = start; from < styled.Text.size();) {
    const std::size_t length = LengthAt(m_text, to);
    std::fill_n(m_colours.begin() + static_cast<std::ptrdiff_t>(to), length, colours[from]);
    from += LengthAt(styled.Text, from), to += length;
  }
}

void MemoryTextControl::SetTextRTF(std::string_view rtf) {
  const StyledText styled = rich_text::ReadRtf(rtf);
  const bool replaces = !rich_text::EqualButForLineEnds(styled.Text, m_text);
  if (replaces) Replace(0, m_text.size(), WithLineEnds(styled.Text, m_lineEnd), 0);
  Paint(0, styled);
  TellSelection();
}

void MemoryTextControl::SetSelText(std::string_view text) {
  const std::size_t start = m_selStart, end = m_selStart + m_selLength;
  const std::string copy(text);
  Replace(start, end, copy, start + copy.size());
  TellSelection();
}

std::string MemoryTextControl::SelRTF() const {
  return rich_text::WriteRtf(Styled(m_selStart, m_selStart + m_selLength), FontName(m_font), false);
}

std::size_t MemoryTextControl::LineOf(std::size_t offset) const {
  const std::vector<std::size_t> starts = Starts();
  return static_cast<std::size_t>(std::upper_bound(starts.begin(), starts.end(), offset) - starts.begin());
}

std::size_t MemoryTextControl::LineStart(std::size_t line) const {
  const std::vector<std::size_t> starts = Starts();
  return line <= 1 ? 0 : line > starts.size() ? m_text.size() : starts[line - 1];
}

std::size_t MemoryTextControl::ColumnOf(std::size_t offset) const {
  return rich_text::CharacterCount(TextRange(LineStart(LineOf(offset)), offset)) + 1;
}

std::size_t MemoryTextControl::EndOfLine(std::size_t line) const {
  return rich_text::FindLineEnd(m_text, LineStart(line));
}

std::size_t MemoryTextControl::OffsetAt(int x, int y) const {
  const std::size_t line = std::min(static_cast<std::size_t>(std::max(y, 0) / LineHeight) + 1, LineCount());
  std::size_t offset = LineStart(line);
  for (int column = (x + CharacterWidth / 2) / CharacterWidth; column > 0 && offset < EndOfLine(line); --column)
    offset = Step(offset, false);
  return offset;
}

std::string MemoryTextControl::LinesRTF(std::size_t first, std::size_t last) const {
  return rich_text::WriteRtf(Styled(LineStart(first), EndOfLine(last)), FontName(m_font));
}

void MemoryTextControl::SetLinesRTF(std::size_t first, std::size_t last, std::string_view rtf) {
  const std::size_t start = LineStart(first), end = EndOfLine(last);
  const StyledText styled = rich_text::ReadRtf(rtf);
  if (!rich_text::EqualButForLineEnds(styled.Text, m_text.substr(start, end - start))) return;
  Paint(start, styled);
  Paint(end, {m_text.substr(end, LineStart(last + 1) - end), {}, {}});
}

void MemoryTextControl::SetColours(const std::vector<rich_text::ColourValue>& colours,
                                   std::vector<rich_text::ColourRun> runs) {
  Paint(0, {m_text, colours, std::move(runs)});
}

// The keyboard.

bool MemoryTextControl::TakesCharacter(char32_t character) {
  return m_events != nullptr && m_events->KeyPress(character);
}

bool MemoryTextControl::Press(int keyCode, int shift) {
  if (!m_enabled) return false;
  if (m_events != nullptr && m_events->KeyDown(keyCode, shift)) return true;
  const bool isCharacter = keyCode == 8 || keyCode == 9 || keyCode == 13 || keyCode == 27;
  if (isCharacter && TakesCharacter(static_cast<char32_t>(keyCode))) return true;
  if (keyCode == 8) Erase(true);
  if (keyCode == 9) SetSelText("\t");
  if (keyCode == 13) SetSelText(m_lineEnd);
  if (keyCode == 46) Erase(false);
  if (keyCode == 37 || keyCode == 39) {
    const bool left = keyCode == 37;
    const std::size_t edge = left ? m_selStart : m_selStart + m_selLength;
    SetSelStart(m_selLength > 0 ? edge : Step(edge, left));
  }
  return false;
}

void MemoryTextControl::Release(int keyCode, int shift) {
  if (m_enabled && m_events != nullptr) m_events->KeyUp(keyCode, shift);
}

void MemoryTextControl::Type(std::string_view characters) {
  for (std::size_t i = 0; i < characters.size();) {
    const rich_text::CodePoint point = rich_text::CodePointAt(characters, i);
    const std::string character(characters.substr(i, point.Bytes));
    i += point.Bytes;
    const char first = character[0];
    const bool isLetter = (first >= 'a' && first <= 'z') || (first >= 'A' && first <= 'Z');
    const int key = isLetter ? first & ~0x20 : first == ' ' || (first >= '0' && first <= '9') ? first : 0;
    if (!m_enabled || (m_events != nullptr && m_events->KeyDown(key, platform::Shift::None))) continue;
    if (!TakesCharacter(point.Value)) SetSelText(character);
    Release(key);
  }
}

/// The offset of the neighbouring character; a CR LF pair is one.
std::size_t MemoryTextControl::Step(std::size_t offset, bool backwards) const {
  std::size_t at = offset;
  do {
    if (at == (backwards ? 0 : m_text.size())) return at;
    at = backwards ? at - 1 : at + 1;
  } while (IsInside(m_text, at));
  return at;
}

void MemoryTextControl::Erase(bool backwards) {
  if (m_selLength == 0) {
    const std::size_t other = Step(m_selStart, backwards);
    m_selLength = backwards ? m_selStart - other : other - m_selStart;
    m_selStart = std::min(m_selStart, other);
  }
  SetSelText("");
}

}  // namespace tests
