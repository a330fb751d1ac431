#pragma once
// The frame window: the document windows, the menus and the status bar, and every program-wide value.

#include <QMainWindow>
#include <memory>
#include <vector>

#include "editor/DocumentFrame.h"
#include "editor/ui/Mainwin.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtTimer.h"
#include "platform/qt/StatusBar.h"
#include "settings/Settings.h"
#include "shell/ui/Tools.h"

class QMdiArea;
class QMdiSubWindow;

namespace shell::ui {

class BackWin : public QMainWindow, private editor::DocumentFrame {
  Q_OBJECT

 public:
  /// The prompts must outlive the frame. `programFolder` holds the templates.
  BackWin(platform::Prompts& prompts, std::string programFolder);
  ~BackWin() override;

  /// Opens an existing file in a new document window, with the template for its extension.
  void OpenFile(const std::string& path) override;

  /// A blank document with the new-document template.
  void NewDocument();

  /// Runs the command of a tool.
  void ActiveBar_ToolClick(const std::string& name) override;

  /// The document window in front, or null.
  editor::ui::Mainwin* ActiveDocument() const;
  std::size_t WindowCount() const;

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  platform::StatusPanels& Status() override { return *m_status; }
  platform::Prompts& Prompts() override { return m_prompts; }
  platform::EventLoop& Loop() override { return m_loop; }
  const settings::Settings& Settings() const override { return m_settings; }
  std::unique_ptr<platform::Timer> MakeTimer() override { return std::make_unique<platform::qt::QtTimer>(); }
  std::string GetSaveFile(std::string_view title, std::string_view extName, std::string_view ext,
                          const std::string& suggested) override;
  std::string AskTemplate() override;
  std::string GetTemplateOf(std::string_view extension) const override;
  void AddAssociation(const templates::Template& association) override { m_associations.push_back(association); }
  void EnableTool(std::string_view name, bool enabled) override { m_tools.Enable(name, enabled); }
  void CheckTool(std::string_view name, bool checked) override { m_tools.Check(name, checked); }
  void UpdateWindowTabs() override;
  void ShowTextPopup(int x, int y) override;

  editor::ui::Mainwin* AddDocument();
  std::string TemplateFor(const std::string& path) const;
  void WindowActivated(QMdiSubWindow* window);
  void DisableDocumentTools();
  void OpenByDialog();
  void DocumentCommand(const std::string& name, editor::ui::Mainwin& document);
  void ShowAbout();

  platform::Prompts& m_prompts;
  std::string m_programFolder;
  settings::Settings m_settings;
  std::vector<templates::Template> m_templateList;
  std::vector<templates::Template> m_associations;
  templates::Template m_defNewTemplate;
  platform::qt::QtEventLoop m_loop;
  QMdiArea* m_windows;
  platform::qt::StatusBar* m_status;
  Tools m_tools;
};

}  // namespace shell::ui
