#pragma once
// The frame window: the document windows, the menus and the status bar, and every program-wide value.
//
// Load and the closing do the program's start and end. A frame that is not loaded keeps nothing from run to run.

#include <QMainWindow>
#include <QPointer>
#include <memory>

#include "aids/ui/FrameAids.h"
#include "aids/ui/SharedPopups.h"
#include "editor/DocumentFrame.h"
#include "editor/RecoveryStore.h"
#include "editor/ui/Mainwin.h"
#include "platform/qt/ActiveBar.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtHelp.h"
#include "platform/qt/QtShell.h"
#include "platform/qt/QtTimer.h"
#include "platform/qt/StatusBar.h"
#include "settings/ToolbarLayout.h"
#include "shell/CommandTable.h"
#include "shell/FrameMenus.h"
#include "shell/ListedTools.h"
#include "shell/ProgramValues.h"
#include "shell/StartUp.h"
#include "shell/ui/HelpKey.h"
#include "template_editor/EditorFrame.h"

class QMdiSubWindow;

namespace template_editor::ui {
class frmTemplate;
}

namespace shell::ui {

class FrameLifetime;
class FrameWindows;
class HandOverListener;

/// Where the frame finds what it keeps.
struct FramePlaces {
  std::string ProgramFolder;
  std::string StartFolder;       ///< relative paths begin here
  std::string RegistryPath;      ///< the file with the settings
  std::string InstanceFolder;    ///< where other starts reach this one, whose lock is held; "" for nowhere
  std::string RecoveryFolder{};  ///< where unsaved text is kept safe from a crash; "" for nowhere
};

class BackWin : public QMainWindow, private editor::DocumentFrame, private template_editor::EditorFrame {
  Q_OBJECT

 public:
  /// A frame that Load will bring to life. The prompts must outlive it.
  BackWin(platform::Prompts& prompts, const FramePlaces& places);
  /// A frame with the templates of a folder, ready at once, that keeps nothing.
  BackWin(platform::Prompts& prompts, const std::string& programFolder);
  ~BackWin() override;

  /// Everything from the settings to the first document.
  void Load(const CommandLine& commandLine);

  /// Opens an existing file in a new document window, with its record's template, or its extension's, or one that the
  /// user chooses.
  void OpenFile(const std::string& path) override { Open(path); }
  /// The same, with the caret where the argument says.
  void OpenFile(const FileArgument& file);

  /// Keeps unsaved text safe from a crash in this folder ("" for not at all), and offers what an earlier run left
  /// there. Must come before the first document.
  void ProtectUnsavedText(const std::string& folder);

  /// A blank document with the new-document template.
  void NewDocument();

  /// The user's choice of a file to open; "" when cancelled. The type "*Templates*" stands for the files of every
  /// template. "" as the folder means that of the file in front, or else the one used last.
  std::string GetOpenFile(std::string_view title, std::string_view extName, std::string_view ext,
                          const std::string& folder = "") override;
  std::string GetSaveFile(std::string_view title, std::string_view extName, std::string_view ext,
                          const std::string& suggested) override;

  /// Runs the command of a tool.
  void ActiveBar_ToolClick(const std::string& name) override;

  /// The document window in front, or null.
  editor::ui::Mainwin* ActiveDocument() const;
  std::size_t WindowCount() const;
  ProgramValues& Values() { return m_values; }

 Q_SIGNALS:
  /// Every window has gone and everything is stored.
  void Unloaded();

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  platform::StatusPanels& Status() override { return *m_status; }
  platform::Prompts& Prompts() override { return m_prompts; }
  platform::EventLoop& Loop() override { return m_loop; }
  const settings::Settings& Settings() const override { return m_values.Settings; }
  std::unique_ptr<platform::Timer> MakeTimer() override { return std::make_unique<platform::qt::QtTimer>(); }
  editor::RecoveryStore* UnsavedTexts() override { return m_unsavedTexts.get(); }
  std::string AskTemplate() override;
  std::string GetTemplateOf(std::string_view extension) const override;
  void AddAssociation(const templates::Template& association) override;
  void EnableTool(std::string_view name, bool enabled) override { m_bar.Enable(name, enabled); }
  void CheckTool(std::string_view name, bool checked) override { m_bar.Check(name, checked); }
  void UpdateWindowTabs() override { UpdateWindowTabs(nullptr); }
  void ShowTextPopup(int x, int y) override;
  rich_text::ColourValue GetColour(rich_text::ColourValue initial) override;
  std::string TemplateFolder() const override { return m_values.ProgramFolder; }
  std::string Today() const override;
  void PopulateTemplates() override { m_menus.PopulateTemplates(); }

  // Windows.
  /// The new window; null when the file may not be opened or the window has closed while the user was asked.
  QPointer<editor::ui::Mainwin> Open(const std::string& path);
  editor::ui::Mainwin* AddDocument();
  static template_editor::ui::frmTemplate* TemplateEditorIn(const QMdiSubWindow* window);
  template_editor::ui::frmTemplate* AddTemplateEditor();
  void OpenTemplate();
  void TemplateEditorActivated(template_editor::ui::frmTemplate& activated);
  void ShowAboutTemplate();
  void WindowActivated(QMdiSubWindow* window);
  void WindowCloses(editor::ui::Mainwin& document);
  void UpdateWindowTabs(const ChildWindow* excluded);
  ChildWindow* ActiveChild() const;
  std::string FolderInFront() const;
  void FocusChild();
  void EnableButtons();
  void DisableDocumentTools();

  // Start, end and what other starts want.
  std::unique_ptr<FrameLifetime> MakeLifetime(const FramePlaces& places);
  void OpenDropped(const std::string& path);
  void OpenHandedOver(const std::string& argument);
  void BringToFront();

  // Commands.
  platform::ActiveBarEvents BarEvents();
  void BandOpens(const std::string& band);
  /// The key of the window that a tab or an entry of the Window menu stands for.
  std::uint64_t WindowOf(const std::string& tool) const { return m_bar.Tool(tool).Key; }
  void BindCommands();
  void BindFileCommands();
  void BindEditCommands();
  void BindWindowCommands();
  void BindHelpCommands();
  void PlaceHelp(QWidget& window);
  void RememberHelp();
  void BindAidCommands();
  void BindSettingsCommands();
  void BindTemplateCommands();
  /// Does something with every open document and gives the active one the focus.
  void EveryDocument(const std::function<void(editor::ui::Mainwin&)>& action);
  /// Binds the command of a tool that concerns the active document.
  void BindDocument(std::string_view tool, std::function<void(editor::ui::Mainwin&)> action);
  bool Confirmed(const std::string& question);
  void WordWrap(editor::ui::Mainwin& document);
  void RefreshColouring(editor::ui::Mainwin& document);
  void OpenByDialog();
  void NewFromTemplate(const std::string& tool);

  platform::Prompts& m_prompts;
  ProgramValues m_values;
  std::unique_ptr<editor::RecoveryStore> m_unsavedTexts;
  platform::qt::QtEventLoop m_loop;
  FrameWindows* m_windows;
  platform::qt::StatusBar* m_status;
  CommandTable m_commands;
  platform::qt::ActiveBar m_bar;
  FrameMenus m_menus;
  settings::ToolbarLayout m_layout;
  aids::ui::SharedPopups m_popups{*this};
  aids::ui::FrameAids m_aids;
  platform::qt::QtShell m_shell;
  platform::qt::QtHelp m_help{m_values.HelpFile, m_prompts, m_shell, [this](QWidget& window) { PlaceHelp(window); }};
  HelpKey m_helpKey{m_help};
  std::unique_ptr<FrameLifetime> m_lifetime;
  std::unique_ptr<HandOverListener> m_listener;
  bool m_loaded = false;
};

}  // namespace shell::ui
