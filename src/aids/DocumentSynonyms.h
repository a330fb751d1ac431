#pragma once
// One document's synonyms: kept in files, added to, edited. Whoever holds it outlives neither control, state nor frame.

#include <functional>
#include <string>
#include <vector>

#include "editor/DocumentFrame.h"
#include "editor/DocumentState.h"
#include "platform/PairRows.h"
#include "platform/TextControl.h"

namespace aids {

/// Lets the user choose an action word of the list; "" when cancelled.
using ActionWordChooser = std::function<std::string(const std::vector<std::string>& names)>;

class DocumentSynonyms {
 public:
  DocumentSynonyms(platform::TextControl& control, editor::DocumentState& state, editor::DocumentFrame& frame)
      : m_control(control), m_state(state), m_frame(frame) {}

  /// Writes the synonyms; "" asks for a file. False when nothing was written: the user cancelled, or was told why not.
  bool SaveSynonyms(const std::string& path);

  /// Takes the synonyms of a file in place of the present ones, which may be saved before.
  void LoadSynonyms(const std::string& path);

  /// Makes the selected text, or the word at the caret, a synonym of the action word that the user chooses.
  void AddSynonym(const ActionWordChooser& choose);

  /// The names of the template's action words, in order.
  std::vector<std::string> ActionWords() const;

  /// The synonyms as rows to be edited: the word, and what it stands for.
  platform::PairRows Rows() const;

  /// Puts edited rows in place of all synonyms; of equal words the later row counts.
  void Replace(const platform::PairRows& rows);

 private:
  bool MayDropPresent();

  platform::TextControl& m_control;
  editor::DocumentState& m_state;
  editor::DocumentFrame& m_frame;
};

}  // namespace aids
