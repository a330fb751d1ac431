#pragma once
// What a key does to the text, the selection and the document's flags: indentation, overwrite mode, the classic
// clipboard keys, and the requests for completion list and tooltip.
//
// In overwrite mode the character after the caret is kept selected, so that what is typed takes its place; a line end
// never is. A character is one whole code point. Nothing here costs more in a longer text. What it is made of outlives
// it.

#include <cstddef>

#include "editor/ActionWords.h"
#include "editor/DocumentFrame.h"
#include "editor/DocumentState.h"
#include "editor/PopupHost.h"
#include "platform/TextControl.h"

namespace editor {

class KeyRules {
 public:
  KeyRules(platform::TextControl& control, DocumentFrame& frame, DocumentState& state)
      : m_control(control), m_frame(frame), m_state(state), m_actionWords(state.Template) {}

  void SetPopups(PopupHost& popups) { m_popups = &popups; }

  /// Key codes and Shift as in TextControlEvents; true when the key is consumed.
  bool KeyDown(int keyCode, int shift);
  bool KeyPress(char32_t character);

  /// In overwrite mode, selects the character after a caret without a selection; true when it did.
  bool SelectForOverwrite();

  /// Whether something is selected beside the one character of overwrite mode.
  bool ReallySelected() const;

 private:
  bool TabDown();
  bool InsertDown();
  bool LeftDown();
  bool BackspaceDown();
  bool UnindentDown();
  bool ShiftLeftDown() { return ExtendOverwrite(false); }
  bool ShiftRightDown() { return ExtendOverwrite(true); }
  bool CopyDown() { return Run("miCopy"); }
  bool PasteDown() { return Run("miPaste"); }
  bool CutDown() { return Run("miCut"); }
  bool VerticalDown();

  bool Run(const char* tool);
  bool ExtendOverwrite(bool right);
  bool EnterPressed();
  void InsertNewLine();
  void DelimeterPressed(std::string_view delimeter, char32_t character);
  bool CompleteList();
  std::size_t Indentation(std::size_t line) const;
  std::size_t TabWidth() const;

  /// The offset of the neighbouring character; CR LF is one here.
  std::size_t Before(std::size_t offset) const;
  std::size_t After(std::size_t offset) const;
  /// Whether the offset splits a character or a CR LF.
  bool IsInside(std::size_t offset) const;
  bool IsLineEndAt(std::size_t offset) const;
  /// Whether just one character is selected, and no line end.
  bool OneSelected() const;

  platform::TextControl& m_control;
  DocumentFrame& m_frame;
  DocumentState& m_state;
  NoPopups m_noPopups;
  PopupHost* m_popups = &m_noPopups;
  ActionWords m_actionWords;
};

}  // namespace editor
