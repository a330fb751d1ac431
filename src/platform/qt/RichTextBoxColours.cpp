// How the text control keeps its colours: as style bytes of the editing component.

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "platform/qt/RichTextBox.h"

namespace platform::qt {
namespace {

using rich_text::ColourRun;
using rich_text::ColourValue;

constexpr std::size_t ReadChunk = 64 * 1024;

// Shorter stretches are painted sooner than a view is moved.
constexpr std::size_t LongStretch = 64 * 1024;

/// Shows the end of the text for as long as it lives, without a sign of it on the screen; the component tells nobody
/// that its scroll bar moved. For every run painted at or below the first line shown it searches the lines that the run
/// touches, to have them drawn again; above that line it has the whole view drawn again, which costs next to nothing.
/// That is a third of the time.
class ViewAtEnd {
 public:
  explicit ViewAtEnd(const QsciScintillaBase& view)
      : m_view(view), m_line(view.SendScintilla(view.SCI_GETFIRSTVISIBLELINE)) {
    if (m_updates) view.viewport()->setUpdatesEnabled(false);  // the toolkit notes each request to draw
    Show(view.SendScintilla(view.SCI_GETLINECOUNT));
  }
  ViewAtEnd(const ViewAtEnd&) = delete;
  ViewAtEnd& operator=(const ViewAtEnd&) = delete;
  ~ViewAtEnd() {
    Show(m_line);
    if (m_updates) m_view.viewport()->setUpdatesEnabled(true);
  }

 private:
  void Show(long line) const { m_view.SendScintilla(m_view.SCI_SETFIRSTVISIBLELINE, line); }

  const QsciScintillaBase& m_view;
  const bool m_updates = m_view.viewport()->updatesEnabled();
  const long m_line;
};

}  // namespace

rich_text::StyledText RichTextBox::Styled(std::size_t start, std::size_t end) const {
  rich_text::StyledText styled;
  AppendRange(styled.Text, start, end);
  if (!m_coloured) return styled;
  styled.Colours = m_styles.Colours();
  AppendRuns(styled.Runs, start, end);
  return styled;
}

/// Appends the coloured stretches of [start, end), their offsets counted from `start`.
void RichTextBox::AppendRuns(std::vector<ColourRun>& runs, std::size_t start, std::size_t end) const {
  std::string cells(2 * std::min(end - start, ReadChunk) + 2, '\0');
  std::uint8_t current = 0;
  std::size_t runStart = 0;
  const auto close = [&](std::size_t at) {
    if (current != 0) runs.push_back({runStart, at, ColourStyles::PlaceOf(current)});
  };
  for (std::size_t from = start; from < end; from += ReadChunk) {
    const std::size_t to = std::min(end, from + ReadChunk);
    SendScintilla(SCI_GETSTYLEDTEXT, static_cast<long>(from), static_cast<long>(to), cells.data());
    for (std::size_t i = 0; i < to - from; ++i) {
      const auto style = static_cast<std::uint8_t>(cells[2 * i + 1]);
      if (style == current) continue;
      close(from - start + i);
      current = style;
      runStart = from - start + i;
    }
  }
  close(end - start);
}

/// The style number of each colour that a run uses, 0 for the others; new ones get their colour on the screen.
std::vector<std::uint8_t> RichTextBox::StylesFor(const std::vector<ColourValue>& colours,
                                                 const std::vector<ColourRun>& runs, bool wholeText) {
  std::vector<bool> isUsed(colours.size(), false);
  for (const ColourRun& run : runs) isUsed[run.Colour - 1] = true;
  std::vector<ColourValue> used;
  for (std::size_t i = 0; i < colours.size(); ++i)
    if (isUsed[i]) used.push_back(colours[i]);
  if (wholeText && !m_styles.HasRoomFor(used)) {
    m_styles.Clear();
    m_knowsPainted = false;
  }
  const std::size_t known = m_styles.Colours().size();
  std::vector<std::uint8_t> styles(colours.size(), 0);
  for (std::size_t i = 0; i < colours.size(); ++i)
    if (isUsed[i]) styles[i] = m_styles.StyleOf(colours[i]);
  ShowStyleColours(known + 1);
  return styles;
}

void RichTextBox::SetColours(const std::vector<ColourValue>& colours, std::vector<ColourRun> runs) {
  if (!m_coloured && runs.empty()) return;
  const std::vector<std::uint8_t> styles = StylesFor(colours, runs, true);
  for (ColourRun& run : runs) run.Colour = ColourStyles::PlaceOf(styles[run.Colour - 1]);
  const auto [start, end] = DifferenceFromPainted(runs);
  if (start < end) PaintRuns(start, end, runs);
  m_coloured = !runs.empty();
  m_painted = std::move(runs);
  m_knowsPainted = true;
}

/// The stretch outside of which the runs are those on the screen.
RichTextBox::ByteRange RichTextBox::DifferenceFromPainted(const std::vector<ColourRun>& runs) const {
  if (!m_knowsPainted) return {0, Length()};
  const auto [first, firstOld] = std::mismatch(runs.begin(), runs.end(), m_painted.begin(), m_painted.end());
  if (first == runs.end() && firstOld == m_painted.end()) return {0, 0};
  const auto last = std::mismatch(runs.rbegin(), std::make_reverse_iterator(first), m_painted.rbegin(),
                                  std::make_reverse_iterator(firstOld))
                        .first;
  return {first == runs.begin() ? 0 : std::prev(first)->End, last == runs.rbegin() ? Length() : std::prev(last)->Start};
}

// One call a stretch: the call that takes a byte for each character costs several times as much.
void RichTextBox::PaintRuns(std::size_t start, std::size_t end, const std::vector<ColourRun>& runs) {
  m_knowsPainted = false;
  std::optional<ViewAtEnd> view;
  if (end - start >= LongStretch) view.emplace(*this);
  Send(SCI_STARTSTYLING, start);
  std::size_t done = start;
  const auto leavePlain = [&](std::size_t to) {
    if (to <= done) return;
    m_coloured ? Send(SCI_SETSTYLING, to - done, 0) : Send(SCI_STARTSTYLING, to);
    done = to;
  };
  for (const ColourRun& run : runs) {
    const std::size_t from = std::max(run.Start, done), to = std::min(run.End, end);
    if (from >= end) break;
    if (to <= from) continue;
    leavePlain(from);
    Send(SCI_SETSTYLING, to - from, ColourStyles::StyleAt(run.Colour));
    done = to;
  }
  leavePlain(end);
  Send(SCI_STARTSTYLING, Length());
  m_coloured = m_coloured || !runs.empty();
}

RichTextBox::ColouredStretch RichTextBox::StretchAt(std::size_t offset) const {
  const std::size_t at = Clamp(offset);
  const std::size_t lineStart = LineStart(LineOf(at)), lineEnd = LineStart(LineOf(at) + 1);
  ColouredStretch stretch{std::nullopt, lineStart, lineEnd};
  if (!m_coloured) return stretch;
  std::vector<ColourRun> runs;
  AppendRuns(runs, lineStart, lineEnd);
  for (const ColourRun& run : runs) {
    if (lineStart + run.End <= at) {
      stretch.Start = lineStart + run.End;
    } else if (lineStart + run.Start > at) {
      stretch.End = lineStart + run.Start;
      break;
    } else {
      return {m_styles.Colours()[run.Colour - 1], lineStart + run.Start, lineStart + run.End};
    }
  }
  return stretch;
}

}  // namespace platform::qt
