#pragma once
// Does the steps of the program's start and end on the real frame: settings, file information, toolbars, the window.

#include <functional>

#include "settings/FileInfos.h"
#include "settings/SettingsStore.h"
#include "settings/ToolbarLayout.h"
#include "shell/FrameMenus.h"
#include "shell/ProgramValues.h"
#include "shell/StartUp.h"

class QWidget;

namespace shell::ui {

class FrameLifetime final : public FrameSteps {
 public:
  /// What the frame has besides; all of it outlives the object.
  struct Parts {
    QWidget& Window;
    ProgramValues& Values;
    platform::Prompts& Prompts;
    FrameMenus& Menus;
    settings::ToolbarLayout& Layout;
  };
  struct Actions {
    std::function<void()> OfferUnsavedText;
    std::function<void(const FileArgument& file)> OpenFile;
    std::function<void()> NewDocument;
    std::function<bool()> HasWindows;
    std::function<void(bool watch)> WatchActivation;
  };

  FrameLifetime(const Parts& parts, std::string registryPath, Actions actions);

  platform::Prompts& Prompts() override { return m_parts.Prompts; }
  void EnterProgramFolder() override;
  void SetHelpFile() override;
  settings::HistoryPaths LoadSettings() override;
  void ReadFileInfo() override { m_fileInfo.ReadFileInfo(); }
  void LoadToolbarLayout() override;
  void AddToHistory(const std::string& path) override { m_parts.Menus.AddToHistory(path); }
  void PopulateTemplates() override { m_parts.Menus.PopulateTemplates(); }
  void SetDefaults(bool resetToolbars) override;
  void DeleteToolbarLayout() override { m_parts.Layout.DeleteToolbarLayout(); }
  void ResetToolbars() override { m_parts.Layout.ResetToolbars(); }
  void Show() override;
  void OfferUnsavedText() override { m_actions.OfferUnsavedText(); }
  void OpenFile(const FileArgument& file) override { m_actions.OpenFile(file); }
  void AttachHook() override { m_actions.WatchActivation(true); }
  bool HasWindows() const override { return m_actions.HasWindows(); }
  void NewDocument() override { m_actions.NewDocument(); }
  void DetachHook() override { m_actions.WatchActivation(false); }
  void SaveSettings() override;
  void DeletePreviewPage() override;

 private:
  settings::StoreSteps StoreSteps();

  Parts m_parts;
  std::string m_registryPath;
  Actions m_actions;
  settings::FileInfoFile m_fileInfo;
  settings::SettingsStore m_store;
};

}  // namespace shell::ui
