#include "settings/ui/frmAssociations.h"

#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace settings::ui {

frmAssociations::frmAssociations(AssociationsModel model, QWidget* parent)
    : QDialog(parent),
      m_model(std::move(model)),
      m_lstAss(new QTreeWidget(this)),
      m_txtExt(new QLineEdit(this)),
      m_txtTemp(new QLineEdit(this)),
      m_btnNew(new QPushButton(QStringLiteral("&New"), this)),
      m_btnDelete(new QPushButton(QStringLiteral("&Delete"), this)),
      m_btnClose(new QPushButton(QStringLiteral("OK"), this)),
      m_btnCancel(new QPushButton(QStringLiteral("Cancel"), this)) {
  setObjectName(QStringLiteral("frmAssociations"));
  setWindowTitle(QStringLiteral("Setup Template Associations"));
  MakeList();
  MakeFields();
  MakeButtons();
  LayOut();
  ShowEditState();
}

void frmAssociations::MakeList() {
  m_lstAss->setObjectName(QStringLiteral("lstAss"));
  m_lstAss->setAccessibleName(QStringLiteral("Template associations"));
  m_lstAss->setHeaderLabels({QStringLiteral("Extension"), QStringLiteral("Template")});
  m_lstAss->setRootIsDecorated(false);
  m_lstAss->setAllColumnsShowFocus(true);
  m_lstAss->setUniformRowHeights(true);
  m_lstAss->header()->setStretchLastSection(false);
  m_lstAss->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  for (const AssociationsModel::Row& row : m_model.Rows()) AddRow(row);
  SizeColumns();
  if (m_lstAss->topLevelItemCount() > 0) m_lstAss->setCurrentItem(m_lstAss->topLevelItem(0));
  connect(m_lstAss, &QTreeWidget::itemSelectionChanged, this, &frmAssociations::ShowEditState);
}

void frmAssociations::MakeFields() {
  m_txtExt->setObjectName(QStringLiteral("txtExt"));
  m_txtTemp->setObjectName(QStringLiteral("txtTemp"));
  m_txtExt->installEventFilter(this);
  m_txtTemp->installEventFilter(this);
  connect(m_txtExt, &QLineEdit::textEdited, this, [this](const QString& text) {
    m_model.SetExtension(text.toStdString());
    if (m_model.Selected()) m_lstAss->topLevelItem(static_cast<int>(*m_model.Selected()))->setText(0, text);
  });
  connect(m_txtTemp, &QLineEdit::textEdited, this, [this](const QString& text) {
    m_model.SetTemplate(text.toStdString());
    if (m_model.Selected()) m_lstAss->topLevelItem(static_cast<int>(*m_model.Selected()))->setText(1, text);
  });
}

void frmAssociations::MakeButtons() {
  m_btnNew->setObjectName(QStringLiteral("btnNew"));
  m_btnDelete->setObjectName(QStringLiteral("btnDelete"));
  m_btnClose->setObjectName(QStringLiteral("btnClose"));
  m_btnCancel->setObjectName(QStringLiteral("btnCancel"));
  for (QPushButton* button : {m_btnNew, m_btnDelete, m_btnCancel}) button->setAutoDefault(false);
  m_btnClose->setDefault(true);
  connect(m_btnNew, &QPushButton::clicked, this, &frmAssociations::New);
  connect(m_btnDelete, &QPushButton::clicked, this, &frmAssociations::Delete);
  connect(m_btnClose, &QPushButton::clicked, this, &QDialog::accept);
  connect(m_btnCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmAssociations::LayOut() {
  auto* extension = new QLabel(QStringLiteral("&Extension:"), this);
  extension->setBuddy(m_txtExt);
  auto* file = new QLabel(QStringLiteral("&Template:"), this);
  file->setBuddy(m_txtTemp);
  auto* fields = new QFormLayout;
  fields->addRow(extension, m_txtExt);
  fields->addRow(file, m_txtTemp);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(m_btnNew);
  buttons->addWidget(m_btnDelete);
  buttons->addStretch();
  buttons->addWidget(m_btnClose);
  buttons->addWidget(m_btnCancel);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  layout->addWidget(m_lstAss, 1);
  layout->addLayout(fields);
  layout->addLayout(buttons);
  resize(520, 380);
}

void frmAssociations::AddRow(const AssociationsModel::Row& row) {
  auto* item = new QTreeWidgetItem({QString::fromStdString(row.Extension), QString::fromStdString(row.Template)});
  m_lstAss->addTopLevelItem(item);
}

void frmAssociations::SizeColumns() {
  int extension = 0, file = 0;
  for (const AssociationsModel::Row& row : m_model.Rows()) {
    extension = std::max(extension, fontMetrics().horizontalAdvance(QString::fromStdString(row.Extension)));
    file = std::max(file, fontMetrics().horizontalAdvance(QString::fromStdString(row.Template)));
  }
  m_lstAss->setColumnWidth(0, AssociationsModel::ExtensionColumnWidth(extension));
  m_lstAss->setColumnWidth(1, AssociationsModel::TemplateColumnWidth(file));
}

void frmAssociations::ShowEditState() {
  const QList<QTreeWidgetItem*> selected = m_lstAss->selectedItems();
  m_model.Select(selected.isEmpty()
                     ? std::nullopt
                     : std::optional(static_cast<std::size_t>(m_lstAss->indexOfTopLevelItem(selected.first()))));
  const AssociationsModel::Row* row = m_model.Edited();
  for (QWidget* part :
       {static_cast<QWidget*>(m_btnDelete), static_cast<QWidget*>(m_txtExt), static_cast<QWidget*>(m_txtTemp)})
    part->setEnabled(row != nullptr);
  m_txtExt->setText(row ? QString::fromStdString(row->Extension) : QString());
  m_txtTemp->setText(row ? QString::fromStdString(row->Template) : QString());
}

void frmAssociations::New() {
  m_model.New();
  AddRow(m_model.Rows().back());
  m_lstAss->scrollToBottom();
  ShowEditState();
}

void frmAssociations::Delete() {
  if (!m_model.Selected()) return;
  const auto row = static_cast<int>(*m_model.Selected());
  m_model.Delete();
  const std::optional<std::size_t> next = m_model.Selected();
  {
    const QSignalBlocker blocker(m_lstAss);  // the list must not tell of a selection while it has a row too few
    delete m_lstAss->takeTopLevelItem(row);
    if (next) m_lstAss->setCurrentItem(m_lstAss->topLevelItem(static_cast<int>(*next)));
  }
  ShowEditState();
  if (!next) m_btnNew->setFocus();
}

void frmAssociations::accept() {
  m_model.Accept();
  QDialog::accept();
}

/// A field that gets the focus has its whole text selected; a mouse click that gives the focus would undo that at once.
bool frmAssociations::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) QTimer::singleShot(0, static_cast<QLineEdit*>(watched), &QLineEdit::selectAll);
  return QDialog::eventFilter(watched, event);
}

}  // namespace settings::ui
