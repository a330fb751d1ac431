#pragma once
// The dialog of extension associations: a list, and two fields that edit the selected row as the user types. To show
// it:
//
//   frmAssociations(AssociationsModel(settings.Associations), this).exec();

#include <QDialog>

#include "settings/AssociationsModel.h"

class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace settings::ui {

class frmAssociations : public QDialog {
  Q_OBJECT

 public:
  explicit frmAssociations(AssociationsModel model, QWidget* parent = nullptr);

  void accept() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeList();
  void MakeFields();
  void MakeButtons();
  void LayOut();
  void AddRow(const AssociationsModel::Row& row);
  void SizeColumns();
  void ShowEditState();
  void New();
  void Delete();

  AssociationsModel m_model;
  QTreeWidget* m_lstAss;
  QLineEdit *m_txtExt, *m_txtTemp;
  QPushButton *m_btnNew, *m_btnDelete, *m_btnClose, *m_btnCancel;
};

}  // namespace settings::ui
