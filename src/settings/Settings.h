#pragma once
// The user's settings, as values in memory. Keeping them between two runs is the registry's matter.

#include <cstdint>
#include <string>
#include <vector>

#include "platform/TextControl.h"

namespace settings {

struct Settings {
  bool AskUnknownTemplates = true;         ///< ask for a template when a file's extension has none
  bool AutoIndent = true;                  ///< a new line takes over the indentation
  bool NewLineForEnter = true;             ///< Enter in the completion list also starts a new line
  bool OverrideTemplateFonts = false;      ///< DefaultFontType holds even where a template suggests a font
  bool ReducedColours = false;             ///< a run that stays open ends with its line
  bool UseColours = true;                  ///< whole documents are coloured
  std::int16_t DefaultFontType = 1;        ///< 0 proportional, 1 fixed width, 2 DOS
  std::int32_t TabWidth = 4;               ///< characters, 0 to 255
  std::string DefOpenTemplate = "*none*";  ///< for files of an unknown extension, when the user is not asked
  platform::FontRecord ProportionalFont{.Name = "Arial"};
  platform::FontRecord FixedFont{.Name = "Courier New", .Fixed = true};
  platform::FontRecord DosFont{.Name = "Andale Mono", .Fixed = true};

  /// The font of a document's `UseFont`: 1 proportional, 2 fixed width, 3 DOS; any other is the default type's.
  const platform::FontRecord& FontOf(std::int16_t useFont) const;
};

}  // namespace settings
