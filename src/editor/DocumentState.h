#pragma once
// What the parts of one document share: the template in use and the flags that tell what is going on.

#include <cstddef>
#include <memory>
#include <string>

#include "templates/Model.h"

namespace editor {

/// Who is changing the text.
enum class UndoMode {
  Normal = 0,   ///< the user
  Undoing = 1,  ///< an undo is being applied
  Program = 2,  ///< the program itself: nothing is recorded
};

struct DocumentState {
  templates::TemplateFields Template;
  std::string CurFileName;   ///< full path; "" for a new document
  std::string CurSFileName;  ///< path of the synonym file; "" for none
  bool Saved = true;         ///< the text has no unsaved changes
  bool SSaved = true;        ///< the synonyms have no unsaved changes
  bool DontChange = false;   ///< the program rewrites the text: change handling ignores it
  UndoMode Mode = UndoMode::Normal;
  bool Colouring = false;  ///< a colouring run may be cancelled; false stops it
  bool WordWrapOn = false;
  std::size_t LineCount = 1;  ///< lines of the text when they were last counted

  // Keys.
  bool Overwrite = false;      ///< typing replaces the character after the caret, which is kept selected
  bool KeyTyped = false;       ///< the key that is down gave a character: lines are not recoloured for its caret move
  bool HoldSelection = false;  ///< overwrite mode leaves the selection alone: the program is moving it about

  // The line being edited.
  std::size_t EditedLine = 0;     ///< the line (1-based) that was edited and not recoloured yet; 0 for none
  std::size_t SelectedChars = 0;  ///< the selection's length in bytes as last recorded
  std::size_t SelectedLines = 1;  ///< lines that the selection touches

  // What a delimiter after an action word asks for; the pop-ups take it up when the key is released.
  bool ListPending = false, TipPending = false;
  std::shared_ptr<const templates::Word> ActionWord;  ///< the action word recognised last
  char32_t ActionDelimeter = 0;                       ///< the delimiter typed after it
};

/// Keeps overwrite mode from selecting anything while it lives.
class SelectionHold {
 public:
  explicit SelectionHold(DocumentState& state) : m_state(state), m_before(state.HoldSelection) {
    m_state.HoldSelection = true;
  }
  ~SelectionHold() { m_state.HoldSelection = m_before; }
  SelectionHold(const SelectionHold&) = delete;
  SelectionHold& operator=(const SelectionHold&) = delete;

 private:
  DocumentState& m_state;
  bool m_before;
};

/// Marks a change of the text as the program's own while it lives. It may come up within another one, or while an undo
/// is being applied.
class ProgramChange {
 public:
  explicit ProgramChange(DocumentState& state) : m_state(state), m_dontChange(state.DontChange), m_mode(state.Mode) {
    m_state.DontChange = true;
    m_state.Mode = UndoMode::Program;
  }
  ~ProgramChange() {
    m_state.Mode = m_mode;
    m_state.DontChange = m_dontChange;
  }
  ProgramChange(const ProgramChange&) = delete;
  ProgramChange& operator=(const ProgramChange&) = delete;

 private:
  DocumentState& m_state;
  bool m_dontChange;
  UndoMode m_mode;
};

}  // namespace editor
