#pragma once
// How the user's arrangement of menus and toolbars lasts from one run to the next: the file CustomToolbar.ab2 in the
// program folder, applied at start-up, written at shut-down. A file that cannot be used is told, deleted, and the bars
// are as designed.

#include <functional>
#include <string>

#include "platform/ActiveBar.h"
#include "platform/Prompts.h"

namespace settings {

/// What the frame does after the bars have been replaced.
struct ToolbarSteps {
  std::function<void()> PopulateTemplates;
  std::function<void()> EnableButtons;  ///< of the active child window, if there is one
  std::function<void()> UpdateWindowTabs;
};

class ToolbarLayout {
 public:
  static constexpr const char* FileName = "CustomToolbar.ab2";

  /// Bar and prompts must outlive this. `path` is the full path of the layout file.
  ToolbarLayout(platform::ActiveBar& bar, platform::Prompts& prompts, std::string path, ToolbarSteps steps);

  /// Keeps the bars as they are now as the designed ones, and applies the file. `settingsVersion` is the release that
  /// wrote the settings.
  void LoadToolbarLayout(const std::string& settingsVersion);

  /// Writes the file.
  void SaveToolbarLayout();

  /// Brings all bars, or one, back as designed.
  void ResetToolbars();
  void ResetBand(const std::string& band);

  /// Removes the file if there is one.
  void DeleteToolbarLayout();

 private:
  bool LoadFile();
  void Discard(const platform::MessageBox& reason);

  platform::ActiveBar& m_bar;
  platform::Prompts& m_prompts;
  std::string m_path;
  ToolbarSteps m_steps;
  std::string m_designed;
};

}  // namespace settings
