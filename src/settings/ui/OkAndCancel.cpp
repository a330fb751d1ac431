#include "settings/ui/OkAndCancel.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

namespace settings::ui {

QDialogButtonBox* OkAndCancel(QDialog& dialog) {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
  QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
  ok->setObjectName(QStringLiteral("OKButton"));
  ok->setText(QStringLiteral("OK"));
  ok->setDefault(true);
  QPushButton* cancel = buttons->button(QDialogButtonBox::Cancel);
  cancel->setObjectName(QStringLiteral("CancelButton"));
  cancel->setText(QStringLiteral("Cancel"));
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  return buttons;
}

}  // namespace settings::ui
