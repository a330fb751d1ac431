#include "settings/ui/frmAssociations.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt/PairList.h"

namespace settings::ui {

frmAssociations::frmAssociations(AssociationsModel model, QWidget* parent)
    : QDialog(parent), m_model(std::move(model)) {
  setObjectName(QStringLiteral("frmAssociations"));
  setWindowTitle(QStringLiteral("Setup Template Associations"));
  auto* list = new platform::qt::PairList(m_model.Rows(),
                                          {.Name = QStringLiteral("Template associations"),
                                           .FirstHeading = QStringLiteral("Extension"),
                                           .SecondHeading = QStringLiteral("Template"),
                                           .FirstCaption = QStringLiteral("&Extension:"),
                                           .SecondCaption = QStringLiteral("&Template:")},
                                          this);
  list->SetColumnWidths(AssociationsModel::ExtensionColumnWidth(list->WidestText(0)),
                        AssociationsModel::TemplateColumnWidth(list->WidestText(1)));
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  layout->addWidget(list, 1);
  layout->addLayout(platform::qt::PairListButtons(*list, QStringLiteral("OK"), *this));
  resize(520, 380);
}

void frmAssociations::accept() {
  m_model.Accept();
  QDialog::accept();
}

}  // namespace settings::ui
