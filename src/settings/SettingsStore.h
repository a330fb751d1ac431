#pragma once
// Loading the settings at the start, storing them at the end, and setting them back. The stored form is the registry
// key "Software\Quillmark"; an older release's settings are read once from "Software\Quillmark Legacy\Quillmark" and
// removed after the first successful save.
//
// The store changes the values that it was given and applies nothing. Failures are told with a message that names the
// step reached; what was read before stays, the rest keeps its value. A save takes a registry that has just been read,
// so that what others wrote meanwhile stays.

#include <functional>
#include <string>

#include "platform/Prompts.h"
#include "platform/Registry.h"
#include "settings/Settings.h"

namespace settings {

struct ScreenSize {
  float Width = 0, Height = 0;  ///< twips
};

/// What the store asks of the frame around it. An empty step is left out.
struct StoreSteps {
  std::function<ScreenSize()> Screen;
  std::function<void()> WriteFileInfo;
  std::function<void()> SaveToolbarLayout;
  std::function<void()> ResetToolbars;
};

class SettingsStore {
 public:
  /// Values and prompts must outlive the store.
  SettingsStore(Settings& values, platform::Prompts& prompts, StoreSteps steps);

  /// Fills every value; the defaults when nothing is stored. Gives the recent files, which go through the history's own
  /// AddToHistory; Settings::History is not touched.
  HistoryPaths LoadSettings(const platform::Registry& registry);

  /// WriteFileInfo, the registry (Settings::History being the recent files), SaveToolbarLayout, and the removal of the
  /// legacy store. False when the registry could not be written, which was told.
  bool SaveSettings(platform::Registry& registry);

  /// The defaults of everything but the recent files and the associations.
  void SetDefaults(bool resetToolbars);

 private:
  /// Reads the legacy store; what it lacks gets its default. Appends to the associations.
  HistoryPaths ImportLegacySettings(const platform::Registry& registry);
  FramePlace DefaultPlace() const;
  void TellDamages(const platform::Registry& registry);

  Settings& m_values;
  platform::Prompts& m_prompts;
  StoreSteps m_steps;
  bool m_loadFailed = false;  ///< the values are not all of the stored ones
};

/// Whether an older release's settings are there.
bool HasLegacySettings(const platform::Registry& registry);

}  // namespace settings
