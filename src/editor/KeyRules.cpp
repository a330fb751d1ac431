#include "editor/KeyRules.h"

#include <algorithm>
#include <string>

#include "editor/ViewKeeper.h"
#include "rich_text/Encoding.h"
#include "rich_text/StyledText.h"

namespace editor {
namespace {

constexpr std::size_t TabStop = 8;  // columns between the tab stops that the control shows

}  // namespace

bool KeyRules::KeyDown(int keyCode, int shift) {
  struct Rule {
    int Shift, Key;
    bool (KeyRules::*Action)();
  };
  using namespace platform;
  static constexpr Rule rules[] = {
      {Shift::None, 9, &KeyRules::TabDown},
      {Shift::None, 45, &KeyRules::InsertDown},
      {Shift::None, 37, &KeyRules::LeftDown},
      {Shift::None, 8, &KeyRules::BackspaceDown},
      {Shift::Ctrl, 45, &KeyRules::CopyDown},
      {Shift::ShiftKey, 45, &KeyRules::PasteDown},
      {Shift::ShiftKey, 46, &KeyRules::CutDown},
      {Shift::ShiftKey, 9, &KeyRules::UnindentDown},
      {Shift::ShiftKey, 37, &KeyRules::ShiftLeftDown},
      {Shift::ShiftKey, 39, &KeyRules::ShiftRightDown},
      {Shift::None, 33, &KeyRules::VerticalDown},
      {Shift::None, 34, &KeyRules::VerticalDown},
      {Shift::None, 38, &KeyRules::VerticalDown},
      {Shift::None, 40, &KeyRules::VerticalDown},
  };
  for (const Rule& rule : rules)
    if (rule.Shift == shift && rule.Key == keyCode) return (this->*rule.Action)();
  return false;
}

bool KeyRules::Run(const char* tool) {
  m_frame.ActiveBar_ToolClick(tool);
  return true;
}

bool KeyRules::CompleteList() {
  const bool shown = m_popups->PopupListShown();
  if (shown) m_popups->WriteIt();
  return shown;
}

// Indentation.

std::size_t KeyRules::TabWidth() const {
  return static_cast<std::size_t>(std::max(m_frame.Settings().TabWidth, 0));
}

bool KeyRules::TabDown() {
  if (!CompleteList()) m_control.SetSelText(std::string(TabWidth(), ' '));
  return true;
}

bool KeyRules::UnindentDown() {
  const std::size_t start = m_control.LineStart(m_control.LineOf(m_control.SelStart())), width = TabWidth();
  if (width == 0 || m_control.TextRange(start, start + width) != std::string(width, ' ')) return true;
  ViewKeeper view(m_control);
  const SelectionHold hold(m_state);
  const std::size_t selectedChars = m_state.SelectedChars;
  view.SaveView();
  m_control.Select(start, start + width);
  m_state.SelectedChars = selectedChars;  // the user has not selected these spaces
  m_control.SetSelText("");
  view.RestoreView();
  // The caret keeps its offset, which may lie inside of a character now.
  if (const std::size_t caret = m_control.SelStart(); IsInside(caret)) m_control.SetSelStart(Before(caret));
  return true;
}

/// The columns of white space that a line begins with.
std::size_t KeyRules::Indentation(std::size_t line) const {
  constexpr std::size_t chunk = 256;
  std::size_t columns = 0;
  for (std::size_t at = m_control.LineStart(line);; at += chunk) {
    const std::string text = m_control.TextRange(at, at + chunk);
    for (const char c : text) {
      if (c != ' ' && c != '\t') return columns;
      columns += c == ' ' ? 1 : TabStop - columns % TabStop;
    }
    if (text.size() < chunk) return columns;
  }
}

void KeyRules::InsertNewLine() {
  const std::size_t columns = Indentation(m_control.LineOf(m_control.SelStart()));
  m_control.SetSelText(std::string(m_control.LineEnd()) + std::string(columns, ' '));
}

// Characters.

bool KeyRules::KeyPress(char32_t character) {
  m_state.KeyTyped = true;
  SelectForOverwrite();  // an undo, for one, leaves nothing selected
  if (character == '\r' && m_frame.Settings().AutoIndent) return EnterPressed();
  if (character == '\t') return true;
  std::string typed;
  rich_text::AppendUtf8(typed, character);
  if (m_state.Template.IsDelimeter(typed)) DelimeterPressed(typed, character);
  return false;
}

bool KeyRules::EnterPressed() {
  if (!CompleteList() || m_frame.Settings().NewLineForEnter) InsertNewLine();
  return true;
}

void KeyRules::DelimeterPressed(std::string_view delimeter, char32_t character) {
  CompleteList();
  const std::size_t caret = m_control.SelStart(), reach = std::min(caret, m_actionWords.Reach());
  const std::string before = m_control.TextRange(caret - reach, caret);
  const auto word = m_actionWords.FindActionWord(rich_text::FromWholeCharacter(before));
  const auto action = word ? word->Actions.Find(delimeter) : nullptr;
  if (!action) return;
  m_state.ActionWord = word;
  m_state.ActionDelimeter = character;
  if (action->Action == templates::WrdAct::Tooltip) m_state.TipPending = true;
  if (action->Action == templates::WrdAct::List) m_state.ListPending = true;
}

// Overwrite mode.

std::size_t KeyRules::Before(std::size_t offset) const {
  const std::size_t from = offset - std::min(offset, rich_text::LongestCharacter);
  const std::string text = m_control.TextRange(from, offset);
  if (text.ends_with("\r\n")) return offset - 2;
  return from + text.size() - rich_text::LastCharacter(text).size();
}

std::size_t KeyRules::After(std::size_t offset) const {
  const std::string text = m_control.TextRange(offset, offset + rich_text::LongestCharacter);
  if (text.empty()) return offset;
  const std::size_t lineEnd = rich_text::LineEndLength(text, 0);
  return offset + (lineEnd != 0 ? lineEnd : rich_text::CharacterBytes(text[0]));
}

bool KeyRules::IsInside(std::size_t offset) const {
  if (offset == 0) return false;
  return rich_text::SplitsCharacter(m_control.TextRange(offset - 1, offset + 1), 1);
}

bool KeyRules::IsLineEndAt(std::size_t offset) const {
  const std::string text = m_control.TextRange(offset, offset + 1);
  return text == "\r" || text == "\n";
}

bool KeyRules::OneSelected() const {
  const std::size_t start = m_control.SelStart(), length = m_control.SelLength();
  return length > 0 && length <= rich_text::LongestCharacter && After(start) == start + length && !IsLineEndAt(start);
}

bool KeyRules::ReallySelected() const {
  return m_control.SelLength() > 0 && !(m_state.Overwrite && OneSelected());
}

bool KeyRules::SelectForOverwrite() {
  if (!m_state.Overwrite || m_state.HoldSelection || m_state.DontChange || m_control.SelLength() > 0) return false;
  const std::size_t start = m_control.SelStart(), end = After(start);
  if (start == end || IsLineEndAt(start)) return false;
  m_control.Select(start, end);
  return true;
}

bool KeyRules::InsertDown() {
  m_state.Overwrite = !m_state.Overwrite;
  m_frame.Status().SetOverwrite(m_state.Overwrite);
  m_control.SetSelLength(0);
  SelectForOverwrite();
  return false;
}

bool KeyRules::LeftDown() {
  if (!m_state.Overwrite) return false;
  if (const std::size_t start = m_control.SelStart(); start > 0) m_control.SetSelStart(Before(start));
  return true;
}

bool KeyRules::BackspaceDown() {
  if (!m_state.Overwrite) return false;
  {
    const SelectionHold hold(m_state);
    if (OneSelected()) m_control.SetSelStart(Before(m_control.SelStart()));
    m_control.SetSelText("");
  }
  SelectForOverwrite();
  return true;
}

/// The selection has whole characters at both ends, the one under the caret included, as if the caret were a block.
bool KeyRules::ExtendOverwrite(bool right) {
  if (!m_state.Overwrite) return false;
  const SelectionHold hold(m_state);
  const std::size_t start = m_control.SelStart(), end = start + m_control.SelLength();
  const bool turns = start == end || After(start) == end;  // one block: the caret may go either way
  const bool atStart = turns ? !right : m_control.Caret() == start;
  if (atStart)
    m_control.Select(end, right ? After(start) : Before(start));
  else
    m_control.Select(start, right ? After(end) : Before(end));
  return true;
}

/// The control moves up and down from where it shows the caret, behind the selected character: from there the column
/// would drift.
bool KeyRules::VerticalDown() {
  if (!m_state.Overwrite || !OneSelected()) return false;
  const SelectionHold hold(m_state);
  m_control.Select(m_control.SelStart(), m_control.SelStart());
  return false;
}

}  // namespace editor
