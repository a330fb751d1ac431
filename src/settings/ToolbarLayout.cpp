#include "settings/ToolbarLayout.h"

#include <filesystem>

#include "platform/Files.h"
#include "settings/Settings.h"

namespace settings {
namespace {

constexpr std::string_view MenuBar = "MenuBar";

platform::MessageBox Failed(const std::string& what) {
  return {.Text = "An Error occured when trying to " + what + " the layout changes.  Default layout will be used",
          .Icon = platform::PromptIcon::Critical};
}

void Do(const std::function<void()>& step) {
  if (step) step();
}

// Whatever has the name: a file, a link to nothing, even a folder.
bool Exists(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(std::filesystem::symlink_status(path, ignored));
}

}  // namespace

ToolbarLayout::ToolbarLayout(platform::ActiveBar& bar, platform::Prompts& prompts, std::string path, ToolbarSteps steps)
    : m_bar(bar),
      m_prompts(prompts),
      m_path(std::move(path)),
      m_steps(std::move(steps)),
      m_designed(bar.SaveLayout()) {}

bool ToolbarLayout::LoadFile() {
  const platform::FileContent file = platform::ReadFile(m_path);
  return file.Ok() && m_bar.LoadLayout(file.Bytes);
}

void ToolbarLayout::LoadToolbarLayout(const std::string& settingsVersion) {
  m_designed = m_bar.SaveLayout();
  if (!Exists(m_path)) return;
  if (!LoadFile()) Discard(Failed("load"));
  if (settingsVersion != SettingsVersion)
    Discard({.Text = "Toolbars must be reset for this upgrade of Quillmark.  Press OK to reset toolbars.",
             .Title = "Quillmark Upgrade",
             .Icon = platform::PromptIcon::Information});
  if (!m_bar.BandShown(MenuBar)) m_bar.ShowBand(MenuBar, true);
}

void ToolbarLayout::Discard(const platform::MessageBox& reason) {
  m_prompts.Show(reason);
  DeleteToolbarLayout();
  ResetToolbars();
}

void ToolbarLayout::SaveToolbarLayout() {
  if (platform::WriteFile(m_path, m_bar.SaveLayout()).empty()) return;
  m_prompts.Show(Failed("save"));
  DeleteToolbarLayout();
}

void ToolbarLayout::ResetToolbars() {
  m_bar.LoadLayout(m_designed);
  Do(m_steps.PopulateTemplates);
  m_bar.RecalcLayout();
  Do(m_steps.EnableButtons);
  Do(m_steps.UpdateWindowTabs);
}

void ToolbarLayout::ResetBand(const std::string& band) {
  m_bar.LoadBand(m_designed, band);
}

void ToolbarLayout::DeleteToolbarLayout() {
  std::error_code ignored;
  std::filesystem::remove(m_path, ignored);
}

}  // namespace settings
