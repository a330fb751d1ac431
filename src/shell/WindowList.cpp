#include "shell/WindowList.h"

namespace shell {
namespace {

bool IsListed(const ChildWindow& window) {
  const std::string name = window.FormName();
  return name == "Mainwin" || name == "frmTemplate";
}

std::vector<ListedTool> List(const std::vector<const ChildWindow*>& windows, const ChildWindow* active,
                             const ChildWindow* excluded, std::string_view prefix, platform::Prompts& prompts) {
  std::vector<ListedTool> tools;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    const ChildWindow& window = *windows[i];
    if (&window == excluded || !IsListed(window)) continue;
    if (tools.size() == MostListed) {
      prompts.Show({.Text = "A maximum of 1999 windows can be displayed",
                    .Title = "Too Many Windows",
                    .Icon = platform::PromptIcon::Critical});
      break;
    }
    const int number = static_cast<int>(tools.size()) + 1;
    tools.push_back({.Identifier = WindowToolBase + number,
                     .Name = std::string(prefix) + std::to_string(number),
                     .Caption = CaptionText(window.Caption()),
                     .Description = window.CurFileName().empty() ? "Show this Window" : window.CurFileName(),
                     .Index = i,
                     .Checked = &window == active});
  }
  return tools;
}

}  // namespace

std::vector<ListedTool> WindowTabs(const std::vector<const ChildWindow*>& windows, const ChildWindow* active,
                                   const ChildWindow* excluded, platform::Prompts& prompts) {
  std::vector<ListedTool> tools = List(windows, active, excluded, WindowTabTool, prompts);
  for (ListedTool& tool : tools)
    if (!windows[tool.Index]->Saved()) tool.Caption += " *";
  return tools;
}

std::vector<ListedTool> WindowMenu(const std::vector<const ChildWindow*>& windows, const ChildWindow* active,
                                   platform::Prompts& prompts) {
  std::vector<ListedTool> tools = List(windows, active, nullptr, WindowMenuTool, prompts);
  for (std::size_t i = 0; i < tools.size(); ++i) tools[i].Caption.insert(0, "&" + std::to_string(i + 1) + " ");
  return tools;
}

}  // namespace shell
