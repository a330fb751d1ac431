#pragma once
// The document window: the text control of one document, and nothing that can be decided without it.

#include <QWidget>

#include "editor/Document.h"
#include "platform/qt/RichTextBox.h"
#include "platform/qt/SubWindow.h"
#include "shell/ChildWindow.h"

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
  bool Restore(const JournalContent& content) { return m_document->Restore(content); }
  bool SaveFile(const std::string& path) override { return m_document->SaveFile(path); }
  void SetTemplate(const std::string& fileName, bool noInitialText = false) {
    m_document->SetTemplate(fileName, noInitialText);
  }
  void SetTemplateChosen(bool chosen) { m_document->SetTemplateChosen(chosen); }
  void Undo() { m_document->Undo(); }
  void Redo() { m_document->Redo(); }
  void SetUseFont(std::int16_t useFont) { m_document->SetUseFont(useFont); }
  void EnableButtons() { m_document->EnableButtons(); }
  void Activated();
  /// Looks whether another program changed the file, unless a dialog is up. For a frame that becomes active.
  void CheckFile();

  std::string FormName() const override { return "Mainwin"; }
  std::string Caption() const override;
  bool Saved() const override { return m_document->State().Saved; }
  std::string CurFileName() const override { return m_document->State().CurFileName; }
  const std::string& CurSFileName() const { return m_document->State().CurSFileName; }
  const std::string& TemplateFile() const { return m_document->State().Template.TemplateFile; }
  bool TemplateChosen() const { return m_document->State().Template.TemplateChosen; }

  /// For what belongs to the document and stands beside it, such as its pop-ups.
  editor::Document& Core() { return *m_document; }
  /// The text control.
  platform::qt::RichTextBox& TextArea() { return *m_textArea; }
  /// Who writes the document's synonyms to a file; false means that nothing was written.
  void SetSynonymSaver(std::function<bool(const std::string& path)> save) { m_saveSynonyms = std::move(save); }
  /// Whether the window is closing or closed and only waits to be deleted.
  bool Closed() const { return m_closed; }
  /// Whether a colouring run is under way.
  bool Busy() const { return m_document->Busy(); }
  /// Makes this the frame's window in front; the frame itself stays where it is.
  void BringToFront() override;

 Q_SIGNALS:
  /// The user has answered every question and the window closes.
  void Closing();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool IsActive() const override { return platform::qt::IsInFront(*this); }
  void SetCaption(std::string_view caption) override;
  void CloseWindow() override;
  bool SaveSynonyms(const std::string& path) override { return m_saveSynonyms && m_saveSynonyms(path); }

  platform::qt::RichTextBox* m_textArea;
  std::unique_ptr<Document> m_document;
  std::function<bool(const std::string&)> m_saveSynonyms;
  bool m_closed = false;
};

}  // namespace editor::ui
