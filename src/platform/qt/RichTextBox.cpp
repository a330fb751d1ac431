#include "platform/qt/RichTextBox.h"

#include <algorithm>
#include <utility>

#include "platform/qt/TextAccessible.h"
#include "rich_text/Encoding.h"
#include "rich_text/Rtf.h"
#include "rich_text/TextDifference.h"

namespace platform::qt {
namespace {

// Room for typing. With none left over the component would move to a larger place at once.
constexpr std::size_t SpareBytes = 64 * 1024;

std::string_view FirstLineEnd(std::string_view text) {
  const std::size_t at = rich_text::FindLineEnd(text, 0);
  return text.substr(at, rich_text::LineEndLength(text, at));
}

/// Moves the runs from offsets of `from` to offsets of `to`, which differ in their line ends only.
void TranslateRuns(std::vector<rich_text::ColourRun>& runs, std::string_view from, std::string_view to) {
  if (from.size() == to.size()) return;
  std::size_t i = 0, j = 0;
  std::size_t lineEnd = rich_text::FindLineEnd(from, 0);
  const auto translate = [&](std::size_t offset) {
    while (offset > lineEnd) {
      j += lineEnd - i;
      i = lineEnd + rich_text::LineEndLength(from, lineEnd);
      j += rich_text::LineEndLength(to, j);
      lineEnd = rich_text::FindLineEnd(from, i);
    }
    return j + (offset - i);
  };
  for (rich_text::ColourRun& run : runs) {
    run.Start = translate(run.Start);
    run.End = translate(run.End);
  }
}

}  // namespace

RichTextBox::RichTextBox(QWidget* parent) : QsciScintillaBase(parent) {
  InstallTextAccessible();
  SetUpScintilla();
  SetFont({});
  connect(this, &QsciScintillaBase::SCN_MODIFIED, this, &RichTextBox::OnModified);
  connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, &RichTextBox::OnUpdate);
}

long RichTextBox::Send(unsigned message, std::size_t wParam, std::size_t lParam) const {
  return SendScintilla(message, static_cast<unsigned long>(wParam), static_cast<long>(lParam));
}

// What the listener is told.

// Only what is about to happen is listened to: for what has happened the component counts the characters before it.
void RichTextBox::OnModified(int position, int type, const char*, int length) {
  const auto start = static_cast<std::size_t>(position), bytes = static_cast<std::size_t>(length);
  if ((type & SC_MOD_BEFOREINSERT) != 0) NoteReplacement(start, start, bytes);
  if ((type & SC_MOD_BEFOREDELETE) != 0) NoteReplacement(start, start + bytes, 0);
  if (m_operations == 0) TellLater();
}

// Dragging beyond the edge selects by a timer of the component's own; this is the only news of it. It comes while
// painting, when the listener must not be called.
void RichTextBox::OnUpdate() {
  if (m_operations == 0 && !(Selection{SelStart(), SelLength()} == m_told)) TellLater();
}

void RichTextBox::TellLater() {
  if (std::exchange(m_tellsLater, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        m_tellsLater = false;
        if (m_operations == 0) TellEvents();
      },
      Qt::QueuedConnection);
}

/// The bytes [start, end) are about to give way to `inserted` others. Changes of one action become one, from the first
/// byte touched to the last.
void RichTextBox::NoteReplacement(std::size_t start, std::size_t end, std::size_t inserted) {
  m_modified = true;
  m_knowsPainted = false;
  if (m_change == std::nullopt) {
    m_change = TextChange{start, m_events != nullptr ? TextRange(start, end) : std::string(), inserted};
    return;
  }
  TextChange& change = *m_change;
  const std::size_t changedEnd = change.Start + change.Inserted;
  const std::size_t from = std::min(change.Start, start), to = std::max(changedEnd, end);
  if (m_events != nullptr) {
    if (from < change.Start) change.Removed.insert(0, TextRange(from, change.Start));
    if (to > changedEnd) change.Removed += TextRange(changedEnd, to);
  }
  change.Inserted = to - from - (end - start) + inserted;
  change.Start = from;
}

void RichTextBox::TellEvents() {
  if (std::exchange(m_modified, false)) {
    const TextChange change = std::move(*std::exchange(m_change, std::nullopt));
    Send(SCI_STARTSTYLING, Length());  // there is never anything left to style
    if (m_font.Strikethrough) StrikeThrough(change.Start, change.Inserted);
    if (change.Inserted != 0 || !change.Removed.empty()) {
      TellTextChanged(*this, change);
      if (m_events != nullptr) m_events->Change(change);
    }
  }
  const Selection selection{SelStart(), SelLength()};
  if (selection == m_told) return;
  m_told = selection;
  TellCaretMoved(*this);
  if (m_events != nullptr) m_events->SelChange();
}

// The text.

std::size_t RichTextBox::Clamp(std::size_t offset) const {
  return std::min(offset, Length());
}

std::size_t RichTextBox::Length() const {
  return static_cast<std::size_t>(Send(SCI_GETLENGTH));
}

std::string RichTextBox::Text() const {
  return TextRange(0, Length());
}

std::string RichTextBox::TextRange(std::size_t start, std::size_t end) const {
  std::string text;
  AppendRange(text, Clamp(start), Clamp(end));
  return text;
}

// The component keeps its text in two pieces; asking for a range across the gap would move the gap there.
void RichTextBox::AppendRange(std::string& text, std::size_t start, std::size_t end) const {
  if (start >= end) return;
  text.reserve(text.size() + (end - start));
  const auto append = [&](std::size_t from, std::size_t to) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the component hands its pointers over as numbers
    if (from < to) text.append(reinterpret_cast<const char*>(Send(SCI_GETRANGEPOINTER, from, to - from)), to - from);
  };
  const std::size_t gap = std::clamp(static_cast<std::size_t>(Send(SCI_GETGAPPOSITION)), start, end);
  append(start, gap);
  append(gap, end);
}

/// The whole text: where it lies, if it lies in one piece, as it does until it is edited; otherwise a copy in `copy`.
std::string_view RichTextBox::WholeText(std::string& copy) const {
  const std::size_t length = Length(), gap = static_cast<std::size_t>(Send(SCI_GETGAPPOSITION));
  if (length == 0) return {};
  if (gap > 0 && gap < length) return copy = Text();
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the component hands its pointers over as numbers
  return {reinterpret_cast<const char*>(Send(SCI_GETRANGEPOINTER, 0, length)), length};
}

void RichTextBox::SetText(std::string_view text) {
  Operate([&] {
    const std::string_view lineEnd = FirstLineEnd(text);
    m_lineEnd = lineEnd.empty() ? "\r\n" : lineEnd;
    Send(SCI_SETEOLMODE, m_lineEnd == "\r\n" ? SC_EOL_CRLF : m_lineEnd == "\n" ? SC_EOL_LF : SC_EOL_CR);
    if (Length() > 0) Send(SCI_CLEARALL);
    if (!text.empty()) {
      Reserve(text.size());
      SendScintilla(SCI_APPENDTEXT, text.size(), text.data());
    }
    m_coloured = m_knowsPainted = false;
    m_styles.Clear();
    Send(SCI_SETSCROLLWIDTH, 1);
    Send(SCI_GOTOPOS, 0);
    Send(SCI_SETXOFFSET, 0);
  });
}

void RichTextBox::Reserve(std::size_t bytes) {
  Send(SCI_ALLOCATE, bytes + bytes / 64 + SpareBytes);
}

void RichTextBox::Replace(std::size_t start, std::size_t end, std::string_view text) {
  Send(SCI_SETTARGETRANGE, start, end);
  SendScintilla(SCI_REPLACETARGET, text.size(), text.empty() ? "" : text.data());
}

void RichTextBox::ReplaceDifference(std::string_view text) {
  std::string copy;
  const rich_text::TextDifference difference = rich_text::DifferenceOf(WholeText(copy), text);
  Operate([&] {
    Replace(difference.Start, difference.OldEnd, text.substr(difference.Start, difference.NewEnd - difference.Start));
    Send(SCI_GOTOPOS, 0);
  });
}

std::string RichTextBox::InDocumentLineEnds(std::string_view text) const {
  std::string converted;
  converted.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t end = rich_text::FindLineEnd(text, i);
    converted.append(text, i, end - i);
    const std::size_t lineEnd = rich_text::LineEndLength(text, end);
    if (lineEnd != 0) converted += m_lineEnd;
    i = end + lineEnd;
  }
  return converted;
}

std::string RichTextBox::TextRTF() const {
  std::string copy;
  std::vector<rich_text::ColourRun> runs;
  if (m_coloured && !m_knowsPainted) AppendRuns(runs, 0, Length());
  return rich_text::WriteRtf(WholeText(copy), m_styles.Colours(), m_knowsPainted ? m_painted : runs, m_rtfFont);
}

void RichTextBox::SetTextRTF(std::string_view rtf) {
  rich_text::StyledText styled = rich_text::ReadRtf(rtf);
  std::string converted;
  std::string_view text = WholeText(converted);
  const bool replaces = !rich_text::EqualButForLineEnds(text, styled.Text);
  if (replaces) text = converted = InDocumentLineEnds(styled.Text);
  TranslateRuns(styled.Runs, styled.Text, text);
  Operate([&] {
    if (replaces) ReplaceDifference(text);
    SetColours(styled.Colours, std::move(styled.Runs));
  });
}

// The selection.

std::size_t RichTextBox::SelStart() const {
  return static_cast<std::size_t>(Send(SCI_GETSELECTIONSTART));
}

std::size_t RichTextBox::SelLength() const {
  return static_cast<std::size_t>(Send(SCI_GETSELECTIONEND)) - SelStart();
}

std::size_t RichTextBox::Caret() const {
  return static_cast<std::size_t>(Send(SCI_GETCURRENTPOS));
}

void RichTextBox::Select(std::size_t anchor, std::size_t caret) {
  Operate([&] { Send(SCI_SETSEL, WholeAt(anchor), WholeAt(caret)); });
}

/// The offset, or the start of the character or CR LF pair that it would split.
std::size_t RichTextBox::WholeAt(std::size_t offset) const {
  const auto byteAt = [this](std::size_t at) { return static_cast<char>(Send(SCI_GETCHARAT, at)); };
  std::size_t at = Clamp(offset);
  while (at > 0 && rich_text::ContinuesCharacter(byteAt(at))) --at;
  return at > 0 && byteAt(at) == '\n' && byteAt(at - 1) == '\r' ? at - 1 : at;
}

// From here on Up and Down go for the column of this place.
void RichTextBox::SetSelStart(std::size_t start) {
  Operate([&] {
    Select(start, start);
    Send(SCI_CHOOSECARETX);
  });
}

void RichTextBox::SetSelLength(std::size_t length) {
  const std::size_t start = SelStart();
  Select(start, start + std::min(length, Length() - start));
}

std::string RichTextBox::SelText() const {
  return TextRange(SelStart(), SelStart() + SelLength());
}

void RichTextBox::SetSelText(std::string_view text) {
  Operate([&] {
    const std::size_t start = SelStart();
    if (!text.empty() || SelLength() > 0) Replace(start, start + SelLength(), text);
    Send(SCI_SETEMPTYSELECTION, start + text.size());
    Send(SCI_SCROLLCARET);
    Send(SCI_CHOOSECARETX);
  });
}

std::string RichTextBox::SelRTF() const {
  return rich_text::WriteRtf(Styled(SelStart(), SelStart() + SelLength()), m_rtfFont, false);
}

void RichTextBox::SelectAll() {
  Select(0, Length());
}

// Lines.

std::size_t RichTextBox::LineCount() const {
  return static_cast<std::size_t>(Send(SCI_GETLINECOUNT));
}

std::size_t RichTextBox::LineOf(std::size_t offset) const {
  return static_cast<std::size_t>(Send(SCI_LINEFROMPOSITION, Clamp(offset))) + 1;
}

std::size_t RichTextBox::LineStart(std::size_t line) const {
  if (line <= 1) return 0;
  return line > LineCount() ? Length() : static_cast<std::size_t>(Send(SCI_POSITIONFROMLINE, line - 1));
}

std::size_t RichTextBox::ColumnOf(std::size_t offset) const {
  return rich_text::CharacterCount(TextRange(LineStart(LineOf(offset)), offset)) + 1;
}

RichTextBox::ByteRange RichTextBox::RangeOfLines(std::size_t first, std::size_t last) const {
  const std::size_t start = LineStart(first);
  const std::size_t lastLine = std::clamp<std::size_t>(last, 1, LineCount());
  return {start, std::max(start, static_cast<std::size_t>(Send(SCI_GETLINEENDPOSITION, lastLine - 1)))};
}

std::string RichTextBox::LinesRTF(std::size_t first, std::size_t last) const {
  const auto [start, end] = RangeOfLines(first, last);
  return rich_text::WriteRtf(Styled(start, end), m_rtfFont);
}

void RichTextBox::SetLinesRTF(std::size_t first, std::size_t last, std::string_view rtf) {
  const auto [start, end] = RangeOfLines(first, last);
  rich_text::StyledText styled = rich_text::ReadRtf(rtf);
  const std::string text = TextRange(start, end);
  if (!rich_text::EqualButForLineEnds(text, styled.Text)) return;
  TranslateRuns(styled.Runs, styled.Text, text);
  const std::vector<std::uint8_t> styles = StylesFor(styled.Colours, styled.Runs, false);
  for (rich_text::ColourRun& run : styled.Runs) {
    run.Start += start, run.End += start;
    run.Colour = ColourStyles::PlaceOf(styles[run.Colour - 1]);
  }
  PaintRuns(start, LineStart(LineOf(end) + 1), styled.Runs);
}

void RichTextBox::Cut() {
  if (!m_enabled) return;
  Operate([&] { Send(SCI_CUT); });
}

void RichTextBox::Copy() {
  Send(SCI_COPY);
}

}  // namespace platform::qt
