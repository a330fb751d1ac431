#pragma once
// The rules of the tooltip that need no window: when it must close.
//
// Offsets are bytes, 0-based, and as wide as the text is long. Characters are whole code points. Nothing here fails.

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/TextControl.h"
#include "templates/Model.h"

namespace aids {

/// How many characters of the text are delimiters of the template.
std::size_t CountDelimeters(const templates::TemplateFields& fields, std::string_view text);

/// A tooltip that is shown.
struct ShownTip {
  std::string Caption;
  std::string TipTextWord;         ///< the action word as it must stand in the text
  std::size_t InTipTextStart = 0;  ///< where that word begins
  std::size_t TipDelimeters = 0;   ///< delimiters in the caption
};

/// False when the caret is before the word, as many delimiters as the caption holds are typed, the caption's closing
/// delimiter is typed, or the word is no longer there.
bool TipStillValid(const platform::TextControl& control, const templates::TemplateFields& fields, const ShownTip& tip,
                   std::size_t caret);

}  // namespace aids
