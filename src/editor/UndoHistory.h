#pragma once
// The undo and redo history of one document, without limit.
//
// A record is what comparing the text at the last recorded point with the text now, from both ends, finds between the
// equal leading and the equal trailing characters. What is compared are whole characters: a code point is one, a CR LF
// pair is one, and a lone CR or LF is another. The leading ones count first ("a" put anywhere into "aaa" came at its
// end), the trailing ones never reach over them. A record keeps no more than the changed middle part, and no whole text
// is kept or compared: changes are gathered as the stretch that they touched, a key costs the same in any text, and the
// comparison runs on that stretch alone, when its record is filed. As it is over at once there is nothing to give up
// for a newer change.
//
// Offsets and lengths are bytes. The control and the state outlive the history; the timer is its own.

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editor/DocumentState.h"
#include "editor/ViewKeeper.h"
#include "platform/TextControl.h"
#include "platform/Timer.h"

namespace editor {

/// One step back: put sText in place of the lLength bytes from iStart (0-based) on.
struct cUndoElement {
  std::size_t iStart = 0;
  std::size_t lLength = 0;
  std::string sText;

  bool operator==(const cUndoElement&) const = default;
};

class UndoHistory {
 public:
  /// `stacksChanged` is called when one of the stacks may have become empty or has stopped being so.
  UndoHistory(platform::TextControl& control, std::unique_ptr<platform::Timer> timer, DocumentState& state,
              std::function<void()> stacksChanged);

  /// Takes note of a change that the control has told. What changes within half a second of the change before becomes
  /// one record with it. What the program changes is no record of its own.
  void RecordChange(const platform::TextChange& change);

  /// Files what is pending, takes the last record back and moves its inverse to the other stack; selection and scroll
  /// position stay. Nothing happens when there is none, or while another record is being applied.
  void Undo();
  void Redo();

  /// Undo by its keys (Ctrl+Z) while the tool is still disabled, because all there is to undo is pending. True when
  /// the key was one of them.
  bool TakesKey(int keyCode, int shift);

  /// The text is as it was saved or read. Files what is pending, so that undo and redo can lead back here.
  void MarkSaved();
  /// No text that undo and redo lead to is a saved one.
  void ForgetSaved() { m_savedAt.reset(); }
  /// Whether undo and redo have led to the saved text.
  bool AtSaved() const { return !m_pending && m_savedAt == m_undoStack.size(); }

  /// The timer's event: files the pending record.
  void tmrWait_ThatTime();

  /// Newest last.
  const std::vector<cUndoElement>& UndoStack() const { return m_undoStack; }
  const std::vector<cUndoElement>& RedoStack() const { return m_redoStack; }

 private:
  void CommitPending();
  void PushRecord(cUndoElement record);
  void Apply(std::vector<cUndoElement>& stack);

  platform::TextControl& m_control;
  std::unique_ptr<platform::Timer> m_tmrWait;
  DocumentState& m_state;
  std::function<void()> m_stacksChanged;
  ViewKeeper m_view;
  std::vector<cUndoElement> m_undoStack, m_redoStack;
  std::optional<std::size_t> m_savedAt = 0;  ///< how many records the undo stack has where the text is the saved one
  std::optional<platform::TextChange> m_pending;  ///< all that changed since the last recorded point, as one change
  bool m_recordNow = false;                       ///< a record is being applied: its inverse is filed at once
  bool m_redoing = false;
};

/// The record of a change: `change` told what happened to a stretch that holds every difference between the text as it
/// was and the control's text now. Nothing when both texts are equal.
std::optional<cUndoElement> FindChange(const platform::TextControl& control, platform::TextChange change);

}  // namespace editor
