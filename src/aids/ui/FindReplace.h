#pragma once
// The find dialog's window: one for the whole program, modeless, above the frame. What it does is FindDialog's.

#include <QDialog>
#include <QRect>
#include <functional>

#include "aids/FindDialog.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace aids::ui {

class FindReplace final : public QDialog {
  Q_OBJECT

 public:
  /// The prompts must outlive the dialog.
  FindReplace(QWidget* frame, platform::Prompts& prompts);

  /// Switches the mode; the dialog is shown with Open.
  void ShowFind();
  void ShowReplace();

  /// Works on a document from now on and comes to the front. `caretOnScreen` gives the caret's rectangle.
  void Open(SearchedDocument& document, std::function<QRect()> caretOnScreen);
  /// Works on the document, if the dialog is shown; null takes the dialog away, as its document closes.
  void SetParentForm(SearchedDocument* document, std::function<QRect()> caretOnScreen = {});
  SearchedDocument* ParentForm() const { return m_dialog.ParentForm(); }

 protected:
  void showEvent(QShowEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QLayout* Fields();
  QLayout* Buttons();
  void Connect();
  FindFields Values() const;
  void FillIn();
  void ShowMode();
  void ShowState();
  void Done(FindDialog::Outcome outcome);
  void KeepOffCaret();

  FindDialog m_dialog;
  std::function<QRect()> m_caretOnScreen;
  QLineEdit* m_findWord;
  QLabel* m_repLabel;
  QLineEdit* m_replaceWord;
  QComboBox* m_direction;
  QCheckBox* m_matchCase;
  QCheckBox* m_wholeWord;
  QPushButton* m_find;
  QPushButton* m_replaceB;
  QPushButton* m_replaceAll;
  QPushButton* m_cancelButton;
};

}  // namespace aids::ui
