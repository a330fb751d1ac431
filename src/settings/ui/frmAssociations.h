#pragma once
// The dialog of extension associations. To show it:
//
//   frmAssociations(AssociationsModel(settings.Associations), this).exec();

#include <QDialog>

#include "settings/AssociationsModel.h"

namespace settings::ui {

class frmAssociations : public QDialog {
  Q_OBJECT

 public:
  explicit frmAssociations(AssociationsModel model, QWidget* parent = nullptr);

  void accept() override;

 private:
  AssociationsModel m_model;
};

}  // namespace settings::ui
