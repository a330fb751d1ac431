#pragma once
// The parts of the menus that change while the program runs: templates, recent files, open windows and the bar's own
// menu of customising.

#include <string>
#include <vector>

#include "platform/ActiveBar.h"
#include "platform/Prompts.h"
#include "shell/ChildWindow.h"
#include "shell/ProgramValues.h"

namespace shell {

class FrameMenus {
 public:
  /// All three must outlive it.
  FrameMenus(platform::ActiveBar& bar, ProgramValues& values, platform::Prompts& prompts);

  /// Reads the templates of the program folder anew.
  void PopulateTemplates();
  /// Makes the template of a tool "Template" + number the one of new documents; false for a number without template.
  bool ChooseTemplate(const std::string& tool);

  void AddToHistory(const std::string& path);
  /// The path of a tool "History" + number; "" for none.
  std::string HistoryPath(const std::string& tool) const;

  /// Fills the strip of tabs; `windows` in the order in which they were opened. The tools' Key is the WindowKey.
  void UpdateWindowTabs(const std::vector<const ChildWindow*>& windows, const ChildWindow* active,
                        const ChildWindow* excluded);
  /// Fills the Window menu, which is about to open, in the same manner.
  void FillWindowMenu(const std::vector<const ChildWindow*>& windows, const ChildWindow* active);
  /// Fills the bar's own menu, which is about to open.
  void FillCustomiseMenu();

 private:
  void DescribeNew();

  platform::ActiveBar& m_bar;
  ProgramValues& m_values;
  platform::Prompts& m_prompts;
};

}  // namespace shell
