#pragma once
// The synonym editor of one document: a list, two fields that edit the selected row as the user types, and the list of
// action words. The document changes when the editor is left by its Close button.

#include <QDialog>

#include "aids/DocumentSynonyms.h"
#include "aids/SynonymRows.h"

class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QTreeWidget;

namespace aids::ui {

class frmSynonyms final : public QDialog {
  Q_OBJECT

 public:
  /// `target` must outlive the dialog.
  frmSynonyms(SynonymRows rows, DocumentSynonyms& target, QWidget* parent);

  void accept() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeList();
  void MakeFields();
  void MakeButtons();
  void LayOut();
  void ShowRow();
  void Take(const QListWidgetItem* actionWord);
  void New();
  void Delete();

  SynonymRows m_rows;
  DocumentSynonyms& m_target;
  QTreeWidget* m_lstAss;
  QLineEdit *m_txtExt, *m_txtTemp;
  QListWidget* m_synList;
  QPushButton *m_btnNew, *m_btnDelete, *m_btnClose, *m_btnCancel;
};

}  // namespace aids::ui
