#include "shell/FrameMenus.h"

#include "shell/ListedTools.h"
#include "shell/TemplatesMenu.h"
#include "shell/WindowList.h"

namespace shell {

FrameMenus::FrameMenus(platform::ActiveBar& bar, ProgramValues& values, platform::Prompts& prompts)
    : m_bar(bar), m_values(values), m_prompts(prompts) {}

// Templates.

void FrameMenus::PopulateTemplates() {
  m_bar.ClearBand("Templates");
  TemplatesMenu menu = shell::PopulateTemplates(m_values.ProgramFolder, m_values.Settings.DefNewTemplate, m_prompts);
  m_values.TemplateList = std::move(menu.List);
  for (const platform::DynamicTool& tool : menu.Tools) m_bar.AddTool("Templates", tool);
  if (menu.Complete) {
    m_bar.AddTool("Templates", platform::Separator);
    m_bar.AddTool("Templates", "newTemplate");
  }
  DescribeNew();
  m_bar.RecalcLayout();
}

bool FrameMenus::ChooseTemplate(const std::string& tool) {
  const std::size_t number = NumberOf(tool, TemplateTool);
  if (number == 0 || number > m_values.TemplateList.size()) return false;
  m_values.Settings.DefNewTemplate = m_values.TemplateList[number - 1];
  DescribeNew();
  return true;
}

void FrameMenus::DescribeNew() {
  if (!m_values.Settings.DefNewTemplate.FileName.empty())
    m_bar.SetDescription("new", NewDescription(m_values.Settings.DefNewTemplate));
}

// Recent files.

void FrameMenus::AddToHistory(const std::string& path) {
  m_values.History.AddToHistory(path);
  std::size_t place = 0;
  for (const History::Entry& entry : m_values.History.Entries()) {
    const std::string tool = std::string(HistoryTool) + std::to_string(++place);
    m_bar.SetCaption(tool, entry.Caption);
    m_bar.SetDescription(tool, entry.Description);
  }
}

std::string FrameMenus::HistoryPath(const std::string& tool) const {
  const std::size_t place = NumberOf(tool, HistoryTool);
  const std::vector<History::Entry>& entries = m_values.History.Entries();
  return place == 0 || place > entries.size() ? "" : entries[place - 1].Path;
}

// Windows.

void FrameMenus::UpdateWindowTabs(const std::vector<const ChildWindow*>& windows, const ChildWindow* active,
                                  const ChildWindow* excluded) {
  m_bar.ClearBand("WindowTabs");
  for (const platform::DynamicTool& tool : WindowTabs(windows, active, excluded, m_prompts))
    m_bar.AddTool("WindowTabs", tool);
  m_bar.RecalcLayout();
}

void FrameMenus::FillWindowMenu(const std::vector<const ChildWindow*>& windows, const ChildWindow* active) {
  m_bar.ClearBand("mnuWindow");
  for (const char* tool : {"miWTileA", "miWCascade", "miWTileV", "miWTileH"}) m_bar.AddTool("mnuWindow", tool);
  m_bar.AddTool("mnuWindow", platform::Separator);
  for (const platform::DynamicTool& tool : WindowMenu(windows, active, m_prompts)) m_bar.AddTool("mnuWindow", tool);
}

void FrameMenus::FillCustomiseMenu() {
  m_bar.AddTool(platform::CustomiseBand, "ResetToolbars");
}

}  // namespace shell
