#pragma once
// What the lists of the template editor tell and ask the editor that they belong to.

#include <string>

namespace template_editor {

/// The two levels of an action word that are edited as working copies.
enum class Level { Word, Delimeter };

/// What becomes of a working copy with changes that is about to be left.
enum class LeaveAnswer {
  Change,   ///< commit it into the selected entry
  Add,      ///< commit it as a new entry
  Discard,  ///< drop the changes
  Stay,     ///< do not leave it
};

class ListOwner {
 public:
  virtual ~ListOwner() = default;

  /// The template has been edited.
  virtual void MarkChanged() = 0;
  /// Whether an entry is taken, which it is when `reason` is ""; otherwise the user is told the reason, a sentence.
  virtual bool Accepts(const std::string& reason) = 0;
  /// Asks what is to become of the changes; `mayChange` is whether an entry is selected, without which there is no
  /// answer Change.
  virtual LeaveAnswer AskToLeave(Level level, bool mayChange) = 0;
  /// Makes sure that a delimeter of an action is one of the template's.
  virtual void RequireDelimeter(const std::string& delimeter) = 0;
};

}  // namespace template_editor
