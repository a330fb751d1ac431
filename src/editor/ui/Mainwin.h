#pragma once
// The document window: the text control of one document, and nothing that can be decided without it.

#include <QWidget>

#include "editor/Document.h"
#include "platform/qt/RichTextBox.h"
#include "shell/ChildWindow.h"

class QMdiSubWindow;

namespace editor::ui {

class Mainwin : public QWidget, public shell::ChildWindow, public DocumentWindow {
  Q_OBJECT

 public:
  /// The frame must outlive the window.
  explicit Mainwin(DocumentFrame& frame);
  ~Mainwin() override;

  void UpdateFont() { m_document->UpdateFont(); }
  void ColourScan() { m_document->ColourScan(); }
  void WordWrap(bool on) { m_document->WordWrap(on); }
  void OpenFile(const std::string& path) { m_document->OpenFile(path); }
  bool SaveFile(const std::string& path) override { return m_document->SaveFile(path); }
  void SetTemplate(const std::string& fileName, bool noInitialText = false) {
    m_document->SetTemplate(fileName, noInitialText);
  }
  void SetTemplateChosen(bool chosen) { m_document->SetTemplateChosen(chosen); }
  void Undo() { m_document->Undo(); }
  void Redo() { m_document->Redo(); }
  void EnableButtons() { m_document->EnableButtons(); }
  void Activated();
  /// Looks whether another program changed the file, unless a dialog is up. For a frame that becomes active.
  void CheckFile();

  std::string FormName() const override { return "Mainwin"; }
  std::string Caption() const override;
  bool Saved() const override { return m_document->State().Saved; }
  std::string CurFileName() const override { return m_document->State().CurFileName; }

  /// The text control.
  platform::qt::RichTextBox& TextArea() { return *m_textArea; }
  /// Whether the window is closing or closed and only waits to be deleted.
  bool Closed() const { return m_closed; }
  /// Whether a colouring run is under way.
  bool Busy() const { return m_document->Busy(); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QMdiSubWindow* SubWindow() const;

  bool IsActive() const override;
  void SetCaption(std::string_view caption) override;
  void BringToFront() override;
  void CloseWindow() override;
  bool SaveSynonyms(const std::string&) override { return false; }  // no synonym is ever changed yet

  platform::qt::RichTextBox* m_textArea;
  std::unique_ptr<Document> m_document;
  bool m_closed = false;
};

}  // namespace editor::ui
