#include "editor/LineEditing.h"

#include <algorithm>
#include <string>
#include <utility>

#include "editor/rtfscan/Scanners.h"
#include "rich_text/Rtf.h"

namespace editor {
namespace {

/// The line `back` lines before `line`, 1 at least.
std::size_t LineBefore(std::size_t line, std::size_t back) {
  return line > back ? line - back : 1;
}

}  // namespace

bool LineEditing::ProcessChange() {
  const std::size_t line = CurrentLine(), count = m_control.LineCount();
  const std::size_t before = std::exchange(m_state.LineCount, count);
  const std::size_t selected = std::exchange(m_state.SelectedChars, m_control.SelLength());
  if (selected > 0 && count >= before) {
    if (ColoursLines()) m_colouring.ColourLines(LineBefore(line, count - before + m_state.SelectedLines - 1), line);
    return false;
  }
  if (count < before) m_state.EditedLine = 0;
  if (count > before) m_state.EditedLine = LineBefore(line, count - before);
  NoteEdit(line);
  return count != before;
}

void LineEditing::NoteEdit(std::size_t line) {
  if (m_state.EditedLine == line) return;
  if (m_state.EditedLine == 0) {
    m_state.EditedLine = line;
    UncolourLine(line);
  } else {
    ColourBetween(std::exchange(m_state.EditedLine, 0), line);
  }
}

void LineEditing::RecordSelection() {
  const std::size_t start = m_control.SelStart();
  m_state.SelectedChars = m_control.SelLength();
  m_state.SelectedLines = m_control.LineOf(start + m_state.SelectedChars) - m_control.LineOf(start) + 1;
}

void LineEditing::RecolourWhenLeft() {
  if (m_state.DontChange || m_state.KeyTyped || m_state.EditedLine == 0) return;
  if (const std::size_t line = CurrentLine(); line != m_state.EditedLine)
    ColourBetween(std::exchange(m_state.EditedLine, 0), line);
}

void LineEditing::ColourBetween(std::size_t line, std::size_t other) {
  if (ColoursLines()) m_colouring.ColourLines(std::min(line, other), std::max(line, other));
}

void LineEditing::UncolourLine(std::size_t line) {
  std::string rtf = m_control.LinesRTF(line, line);
  const std::size_t body = rich_text::RtfBodyStart(rtf);
  rtf.resize(body + rtfscan::ClearLn({rtf.data() + body, rtf.size() - body}));
  const ProgramChange change(m_state);
  m_control.SetLinesRTF(line, line, rtf);
}

}  // namespace editor
