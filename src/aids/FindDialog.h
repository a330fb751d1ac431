#pragma once
// What the find dialog decides: its two modes, which of its buttons can be used, which one Enter presses, and what a
// search, a replacement and their messages do. The window shows it and forwards clicks and edits.

#include <cstdint>
#include <string>

#include "aids/DocumentSearch.h"

namespace aids {

/// The document that a find dialog works on.
class SearchedDocument {
 public:
  virtual ~SearchedDocument() = default;
  virtual DocumentSearch& Search() = 0;
  /// False while the text is being coloured, which knows the text as it was.
  virtual bool MayEdit() const = 0;
  /// Brings the document's window to the front of the frame.
  virtual void BringToFront() = 0;
  /// Puts text in place of the selection, as an edit of the user's.
  virtual void ReplaceSelection(const std::string& text) = 0;
  /// DocumentSearch::ReplaceAll, the document being coloured and marked as changed afterwards.
  virtual std::size_t ReplaceAll(const std::string& word, const std::string& replacement, bool caseSense,
                                 bool wholeWord) = 0;
};

/// What the dialog's fields hold.
struct FindFields {
  std::string FindWord{}, ReplaceWord{};
  int DirectionIndex = 0;  ///< the drop-down list's entry: "All", "Up", "Down"
  bool MatchCase = false, WholeWord = false;
};

class FindDialog {
 public:
  explicit FindDialog(platform::Prompts& prompts) : m_prompts(prompts) {}

  /// The document searched; null for none, when nothing happens. Not owned.
  SearchedDocument* ParentForm() const { return m_parentForm; }
  /// Another document begins a search of its own.
  void SetParentForm(SearchedDocument* document);

  /// The command that opened the window, or brought it to the front.
  void ShowFind();
  void ShowReplace();

  bool ReplaceMode() const { return m_replaceMode; }
  std::string Caption() const { return m_replaceMode ? "Replace" : "Find"; }
  /// ReplaceB's caption, access key included.
  std::string ReplaceCaption() const { return m_replaceMode ? "&Replace" : "&Replace..."; }
  bool ReplaceEnabled() const { return !m_replaceMode || m_canReplace; }
  /// Whether Enter presses ReplaceB instead of Find.
  bool ReplaceIsDefault() const { return m_replaceMode && m_canReplace; }

  /// The fields as the document's last search has them; the replacement stays as it is.
  FindFields Remembered(FindFields fields) const;

  /// The user has changed what is searched for: the next search starts anew. After another word, what was found before
  /// is not replaced.
  void FindWordEdited();
  void OptionClicked();

  enum class Outcome { Nothing, NoWord, NotFound, Found, SwitchedMode };
  /// The Find button.
  Outcome Find(const FindFields& fields);
  /// The ReplaceB button. Nothing while the document may not be edited.
  Outcome Replace(const FindFields& fields);
  /// The ReplaceAll button; the same.
  void ReplaceAll(const FindFields& fields);

 private:
  std::int32_t DirectionCode(int index);

  platform::Prompts& m_prompts;
  SearchedDocument* m_parentForm = nullptr;
  bool m_replaceMode = false;
  bool m_canReplace = false;  ///< in Replace mode: an occurrence is selected
  bool m_lastFoundAll = false;
  bool m_startedAgain = false;
};

/// A rectangle on the screen, in pixels, y downwards.
struct DialogPlace {
  int Left = 0, Top = 0, Right = 0, Bottom = 0;
};

/// The top edge that keeps the dialog off the caret's line: its own where it does not cover the line; otherwise one
/// line above the caret, when it stands in the upper half of the screen and there is room, or one line below.
int TopOffCaret(const DialogPlace& dialog, int caretX, int caretY, int lineHeight, int screenHeight);

}  // namespace aids
