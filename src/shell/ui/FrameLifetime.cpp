#include "shell/ui/FrameLifetime.h"

#include <QWidget>
#include <filesystem>

#include "aids/PreviewPage.h"
#include "platform/ProgramFolder.h"
#include "settings/RegistryFile.h"
#include "shell/ui/FramePlacement.h"

namespace shell::ui {

FrameLifetime::FrameLifetime(const Parts& parts, std::string registryPath, Actions actions)
    : m_parts(parts),
      m_registryPath(std::move(registryPath)),
      m_actions(std::move(actions)),
      m_fileInfo(parts.Values.ProgramFolder, parts.Values.FileInfos, parts.Prompts),
      m_store(parts.Values.Settings, parts.Prompts, StoreSteps()) {}

settings::StoreSteps FrameLifetime::StoreSteps() {
  return {.Screen = MainScreen,
          .WriteFileInfo = [this] { m_fileInfo.WriteFileInfo(); },
          .SaveToolbarLayout = [this] { m_parts.Layout.SaveToolbarLayout(); },
          .ResetToolbars = [this] { m_parts.Layout.ResetToolbars(); }};
}

void FrameLifetime::EnterProgramFolder() {
  std::error_code ignored;  // every path is absolute: a folder that cannot be entered keeps nobody from working
  std::filesystem::current_path(m_parts.Values.ProgramFolder, ignored);
}

void FrameLifetime::SetHelpFile() {
  m_parts.Values.HelpFile =
      platform::FindHelpFile(m_parts.Values.ProgramFolder, platform::ProgramPlaces::FromProcess());
}

settings::HistoryPaths FrameLifetime::LoadSettings() {
  const settings::HistoryPaths history = m_store.LoadSettings(settings::RegistryFile(m_registryPath));
  ApplyPlace(m_parts.Window, m_parts.Values.Settings.Frame);
  return history;
}

void FrameLifetime::LoadToolbarLayout() {
  m_parts.Layout.LoadToolbarLayout(m_parts.Values.Settings.Version);
}

void FrameLifetime::SetDefaults(bool resetToolbars) {
  m_store.SetDefaults(resetToolbars);
  if (!m_parts.Window.isVisible()) return ApplyPlace(m_parts.Window, m_parts.Values.Settings.Frame);
  Show();
}

void FrameLifetime::Show() {
  ShowInState(m_parts.Window, m_parts.Values.Settings.Frame.State);
}

void FrameLifetime::SaveSettings() {
  m_parts.Values.Settings.History = m_parts.Values.History.Paths();
  RememberPlace(m_parts.Window, m_parts.Values.Settings.Frame);
  settings::RegistryFile registry(m_registryPath);
  m_store.SaveSettings(registry);
}

void FrameLifetime::DeletePreviewPage() {
  std::error_code ignored;
  std::filesystem::remove(aids::PreviewFile(m_parts.Values.ProgramFolder), ignored);
}

}  // namespace shell::ui
