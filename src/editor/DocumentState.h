#pragma once
// What the parts of one document share: the template in use and the flags that tell what is going on.

#include <cstddef>
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
};

/// Marks a change of the text as the program's own while it lives.
class ProgramChange {
 public:
  explicit ProgramChange(DocumentState& state) : m_state(state) {
    m_state.DontChange = true;
    m_state.Mode = UndoMode::Program;
  }
  ~ProgramChange() {
    m_state.Mode = UndoMode::Normal;
    m_state.DontChange = false;
  }
  ProgramChange(const ProgramChange&) = delete;
  ProgramChange& operator=(const ProgramChange&) = delete;

 private:
  DocumentState& m_state;
};

}  // namespace editor
