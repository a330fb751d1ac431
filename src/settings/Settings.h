#pragma once
// The user's settings and what goes with them from one run to the next, as values in memory. SettingsStore keeps them
// between two runs.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/FontRecord.h"
#include "templates/Model.h"

namespace settings {

enum class WindowState : std::int16_t { Normal = 0, Minimised = 1, Maximised = 2 };

/// The frame's place on the screen while it was last in the normal state, in twips (a fifteenth of a pixel at 96 dpi),
/// and the state that it is in.
struct FramePlace {
  float Left = 0, Top = 0;
  float Width = 0, Height = 0;  ///< 0 before the settings were loaded
  WindowState State = WindowState::Maximised;

  bool operator==(const FramePlace&) const = default;
};

/// The recent files as they are stored, the oldest first; "" where there is none.
using HistoryPaths = std::array<std::string, 3>;

struct Settings {
  bool AskUnknownTemplates = true;         ///< ask for a template when a file's extension has none
  bool AutoIndent = true;                  ///< a new line takes over the indentation
  bool NewLineForEnter = true;             ///< Enter in the completion list also starts a new line
  bool OverrideTemplateFonts = false;      ///< DefaultFontType holds even where a template suggests a font
  bool ReducedColours = false;             ///< a run that stays open ends with its line
  bool UseColours = true;                  ///< whole documents are coloured
  std::int16_t DefaultFontType = 1;        ///< 0 proportional, 1 fixed width, 2 DOS; stored as 0 to 255
  std::int32_t TabWidth = 4;               ///< characters; stored as 0 to 255
  std::string DefOpenTemplate = "*none*";  ///< for files of an unknown extension, when the user is not asked
  templates::Template DefNewTemplate;      ///< of new documents; its Name alone is stored
  platform::FontRecord ProportionalFont{.Name = "Arial"};
  platform::FontRecord FixedFont{.Name = "Courier New", .Fixed = true};
  platform::FontRecord DosFont{.Name = "Andale Mono", .Fixed = true};
  FramePlace Frame;
  FramePlace HelpWindow;                          ///< as for the frame; no width: it has never been opened
  std::vector<std::string> History;               ///< recent files to store, at most 3, the oldest first
  std::vector<templates::Template> Associations;  ///< the user's: Extension and FileName; Name is ""
  std::string Version;                            ///< of the stored settings; "" when they come from an older release

  /// The font of a document's `UseFont`: 1 proportional, 2 fixed width, 3 DOS; any other is the default type's.
  const platform::FontRecord& FontOf(std::int16_t useFont) const;
};

/// The version that this release stores.
inline constexpr const char* SettingsVersion = "3.0";

/// Arial, Courier New and Andale Mono, 10 points, plain.
void SetDefaultFonts(Settings& values);

}  // namespace settings
