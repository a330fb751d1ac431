#include "shell/WindowList.h"

#include "shell/ListedTools.h"

namespace shell {
namespace {

bool IsListed(const ChildWindow& window) {
  const std::string name = window.FormName();
  return name == "Mainwin" || name == "frmTemplate";
}

/// How a list words its entry for a window.
using Captioned = std::string (*)(const ChildWindow& window, int number);

std::string TabCaption(const ChildWindow& window, int) {
  return CaptionText(window.Caption()) + (window.Saved() ? "" : " *");
}

std::string MenuCaption(const ChildWindow& window, int number) {
  return "&" + std::to_string(number) + " " + CaptionText(window.Caption());
}

std::vector<platform::DynamicTool> List(const std::vector<const ChildWindow*>& windows, const ChildWindow* active,
                                        const ChildWindow* excluded, std::string_view prefix, Captioned captioned,
                                        platform::Prompts& prompts) {
  std::vector<platform::DynamicTool> tools;
  for (const ChildWindow* listed : windows) {
    const ChildWindow& window = *listed;
    if (&window == excluded || !IsListed(window)) continue;
    if (tools.size() == MostListed) {
      prompts.Show({.Text = "A maximum of 1999 windows can be displayed",
                    .Title = "Too Many Windows",
                    .Icon = platform::PromptIcon::Critical});
      break;
    }
    const int number = static_cast<int>(tools.size()) + 1;
    tools.push_back({.Name = std::string(prefix) + std::to_string(number),
                     .Id = WindowToolBase + number,
                     .Caption = captioned(window, number),
                     .Description = "Show this Window",
                     .Tip = window.CurFileName().empty() ? window.Caption() : window.CurFileName(),
                     .Key = WindowKey(window),
                     .Checked = &window == active});
  }
  return tools;
}

}  // namespace

std::uint64_t WindowKey(const ChildWindow& window) {
  return reinterpret_cast<std::uintptr_t>(&window);
}

std::vector<platform::DynamicTool> WindowTabs(const std::vector<const ChildWindow*>& windows, const ChildWindow* active,
                                              const ChildWindow* excluded, platform::Prompts& prompts) {
  return List(windows, active, excluded, WindowTabTool, TabCaption, prompts);
}

std::vector<platform::DynamicTool> WindowMenu(const std::vector<const ChildWindow*>& windows, const ChildWindow* active,
                                              platform::Prompts& prompts) {
  return List(windows, active, nullptr, WindowMenuTool, MenuCaption, prompts);
}

}  // namespace shell
