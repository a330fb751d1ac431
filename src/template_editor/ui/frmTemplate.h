#pragma once
// The template editor's window inside the frame: six pages under a strip of tabs, and nothing that can be decided
// without them.

#include <QPointer>
#include <QTabWidget>
#include <memory>

#include "platform/qt/SubWindow.h"
#include "shell/ChildWindow.h"
#include "template_editor/TemplateEditor.h"
#include "template_editor/ui/AboutTemplate.h"
#include "template_editor/ui/InitialTextEvents.h"

namespace template_editor::ui {

class ActionWordsPage;
class EditorForm;
class SynonymsPage;

class frmTemplate : public QWidget, public shell::ChildWindow, public EditorWindow {
  Q_OBJECT

 public:
  /// The frame must outlive the window.
  explicit frmTemplate(EditorFrame& frame);
  ~frmTemplate() override;

  std::string FormName() const override { return "frmTemplate"; }
  std::string Caption() const override { return m_editor->Caption(); }
  bool Saved() const override { return m_editor->Saved(); }
  std::string CurFileName() const override { return m_editor->CurFileName(); }
  bool SaveFile(const std::string& path) override;

  /// For a window that shows a new template and has just been opened.
  void OpenedEmpty() { m_editor->OpenedEmpty(); }
  /// Shows a template file, "" asks for one; false when nothing was opened.
  bool OpenFile(const std::string& path);
  /// The window has become the active one.
  void Activated();
  void CloseWindow() override;
  /// What the template says about itself, as typed so far.
  TemplateRecord About() const;
  /// Whether the window is closing or closed and only waits to be deleted.
  bool Closed() const { return m_closed; }

 Q_SIGNALS:
  /// The user has answered every question and the window closes.
  void Closing();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void MakePages();
  void AddPage(QWidget* page, const char* caption, const char* tip);
  void TurnPage(int pages);
  void PageTurned();
  void FitPages();

  bool IsActive() const override { return platform::qt::IsInFront(*this); }
  void SetCaption(std::string_view caption) override;
  void BringToFront() override;
  LeaveAnswer AskToLeave(Level level, bool mayChange) override;

  QWidget* m_holderBox;
  QPointer<QTabWidget> m_tabStrip;
  platform::qt::RichTextBox* m_initialText;
  std::unique_ptr<TemplateEditor> m_editor;
  std::unique_ptr<EditorForm> m_form;
  std::unique_ptr<InitialTextEvents> m_initialTextEvents;
  ActionWordsPage* m_actionWordsPage = nullptr;
  SynonymsPage* m_synonymsPage = nullptr;
  QPointer<QWidget> m_lastFocus;  ///< the control that had the focus last
  bool m_closed = false;
};

}  // namespace template_editor::ui
