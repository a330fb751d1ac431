#pragma once
// The bookkeeping of edited lines. The line being edited shows plain; it is coloured again when the caret leaves it, or
// at once where a change brings whole lines or replaces a selection.
//
// "Line" is a line of the text, 1-based, however it is wrapped on the screen. Nothing here costs more in a longer text,
// but for colouring the lines themselves. Control, state, colouring and settings outlive it.

#include <cstddef>

#include "editor/Colouring.h"
#include "editor/DocumentState.h"
#include "platform/TextControl.h"
#include "settings/Settings.h"

namespace editor {

class LineEditing {
 public:
  LineEditing(platform::TextControl& control, DocumentState& state, Colouring& colouring,
              const settings::Settings& settings)
      : m_control(control), m_state(state), m_colouring(colouring), m_settings(settings) {}

  /// The user changed the text. True when lines came or went without a selection being replaced: a tooltip is then
  /// out of place.
  bool ProcessChange();

  /// Records the selection, as each of its changes asks for.
  void RecordSelection();

  /// Colours the edited line again, and all up to the caret's, if the caret has left it without a character typed.
  void RecolourWhenLeft();

  /// Takes the colours away from a line.
  void UncolourLine(std::size_t line);

 private:
  std::size_t CurrentLine() const { return m_control.LineOf(m_control.SelStart()); }
  bool ColoursLines() const { return m_settings.UseColours || m_settings.ReducedColours; }
  void ColourBetween(std::size_t line, std::size_t other);
  void NoteEdit(std::size_t line);

  platform::TextControl& m_control;
  DocumentState& m_state;
  Colouring& m_colouring;
  const settings::Settings& m_settings;
};

}  // namespace editor
