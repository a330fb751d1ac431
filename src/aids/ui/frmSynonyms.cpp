#include "aids/ui/frmSynonyms.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace aids::ui {
namespace {

QTreeWidgetItem* ItemOf(const templates::Synonym& row) {
  return new QTreeWidgetItem({QString::fromStdString(row.Word), QString::fromStdString(row.Synonym)});
}

}  // namespace

frmSynonyms::frmSynonyms(SynonymRows rows, DocumentSynonyms& target, QWidget* parent)
    : QDialog(parent),
      m_rows(std::move(rows)),
      m_target(target),
      m_lstAss(new QTreeWidget(this)),
      m_txtExt(new QLineEdit(this)),
      m_txtTemp(new QLineEdit(this)),
      m_synList(new QListWidget(this)),
      m_btnNew(new QPushButton(QStringLiteral("&New"), this)),
      m_btnDelete(new QPushButton(QStringLiteral("&Delete"), this)),
      m_btnClose(new QPushButton(QStringLiteral("Close"), this)),
      m_btnCancel(new QPushButton(QStringLiteral("Cancel"), this)) {
  setObjectName(QStringLiteral("frmSynonyms"));
  setWindowTitle(QStringLiteral("Edit Synonyms"));
  MakeList();
  MakeFields();
  MakeButtons();
  LayOut();
  ShowRow();
}

void frmSynonyms::MakeList() {
  m_lstAss->setObjectName(QStringLiteral("lstAss"));
  m_lstAss->setAccessibleName(QStringLiteral("Synonyms"));
  m_lstAss->setHeaderLabels({QStringLiteral("Word"), QStringLiteral("Synonym")});
  m_lstAss->setRootIsDecorated(false);
  m_lstAss->setAllColumnsShowFocus(true);
  m_lstAss->setUniformRowHeights(true);
  for (const templates::Synonym& row : m_rows.Rows()) m_lstAss->addTopLevelItem(ItemOf(row));
  for (const int column : {0, 1}) m_lstAss->resizeColumnToContents(column);
  if (m_rows.Selected()) m_lstAss->setCurrentItem(m_lstAss->topLevelItem(static_cast<int>(*m_rows.Selected())));
  connect(m_lstAss, &QTreeWidget::itemSelectionChanged, this, [this] {
    const QList<QTreeWidgetItem*> selected = m_lstAss->selectedItems();
    m_rows.Select(selected.isEmpty()
                      ? std::nullopt
                      : std::optional(static_cast<std::size_t>(m_lstAss->indexOfTopLevelItem(selected.first()))));
    ShowRow();
  });
}

void frmSynonyms::MakeFields() {
  m_txtExt->setObjectName(QStringLiteral("txtExt"));
  m_txtTemp->setObjectName(QStringLiteral("txtTemp"));
  m_synList->setObjectName(QStringLiteral("SynList"));
  m_synList->setUniformItemSizes(true);
  for (const std::string& name : m_target.ActionWords()) m_synList->addItem(QString::fromStdString(name));
  for (QWidget* watched :
       {static_cast<QWidget*>(m_txtExt), static_cast<QWidget*>(m_txtTemp), static_cast<QWidget*>(m_synList)})
    watched->installEventFilter(this);
  connect(m_txtExt, &QLineEdit::textChanged, this, [this](const QString& text) {
    m_rows.SetWord(text.toStdString());
    if (m_rows.Selected()) m_lstAss->topLevelItem(static_cast<int>(*m_rows.Selected()))->setText(0, text);
  });
  connect(m_txtTemp, &QLineEdit::textChanged, this, [this](const QString& text) {
    m_rows.SetSynonym(text.toStdString());
    if (m_rows.Selected()) m_lstAss->topLevelItem(static_cast<int>(*m_rows.Selected()))->setText(1, text);
  });
  connect(m_synList, &QListWidget::itemDoubleClicked, this, &frmSynonyms::Take);
}

void frmSynonyms::MakeButtons() {
  m_btnNew->setObjectName(QStringLiteral("btnNew"));
  m_btnDelete->setObjectName(QStringLiteral("btnDelete"));
  m_btnClose->setObjectName(QStringLiteral("btnClose"));
  m_btnCancel->setObjectName(QStringLiteral("btnCancel"));
  for (QPushButton* button : {m_btnNew, m_btnDelete, m_btnCancel}) button->setAutoDefault(false);
  m_btnClose->setDefault(true);
  connect(m_btnNew, &QPushButton::clicked, this, &frmSynonyms::New);
  connect(m_btnDelete, &QPushButton::clicked, this, &frmSynonyms::Delete);
  connect(m_btnClose, &QPushButton::clicked, this, &QDialog::accept);
  connect(m_btnCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmSynonyms::LayOut() {
  const auto labelOf = [this](const QString& text, QWidget* buddy) {
    auto* label = new QLabel(text, this);
    label->setBuddy(buddy);
    return label;
  };
  auto* fields = new QFormLayout;
  fields->addRow(labelOf(QStringLiteral("&Word:"), m_txtExt), m_txtExt);
  fields->addRow(labelOf(QStringLiteral("&Synonym:"), m_txtTemp), m_txtTemp);
  auto* left = new QVBoxLayout;
  left->addWidget(m_lstAss, 1);
  left->addLayout(fields);
  auto* right = new QVBoxLayout;
  right->addWidget(labelOf(QStringLiteral("&Action words:"), m_synList));
  right->addWidget(m_synList, 1);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  columns->addLayout(left, 3);
  columns->addLayout(right, 2);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(m_btnNew);
  buttons->addWidget(m_btnDelete);
  buttons->addStretch(1);
  buttons->addWidget(m_btnClose);
  buttons->addWidget(m_btnCancel);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  layout->addLayout(columns, 1);
  layout->addLayout(buttons);
  resize(620, 400);
}

void frmSynonyms::ShowRow() {
  const auto selected = m_rows.Selected();
  for (QWidget* part :
       {static_cast<QWidget*>(m_btnDelete), static_cast<QWidget*>(m_txtExt), static_cast<QWidget*>(m_txtTemp)})
    part->setEnabled(selected.has_value());
  const templates::Synonym row = selected ? m_rows.Rows()[*selected] : templates::Synonym{};
  m_txtExt->setText(QString::fromStdString(row.Word));
  m_txtTemp->setText(QString::fromStdString(row.Synonym));
}

void frmSynonyms::Take(const QListWidgetItem* actionWord) {
  if (actionWord && m_rows.Selected()) m_txtTemp->setText(actionWord->text());
}

void frmSynonyms::New() {
  m_rows.New();
  m_lstAss->addTopLevelItem(ItemOf(m_rows.Rows().back()));
  m_lstAss->setCurrentItem(m_lstAss->topLevelItem(static_cast<int>(*m_rows.Selected())));
  m_txtExt->setFocus();
}

void frmSynonyms::Delete() {
  if (!m_rows.Selected()) return;
  const auto row = static_cast<int>(*m_rows.Selected());
  m_rows.Delete();
  {
    const QSignalBlocker blocker(m_lstAss);  // the list must not tell of a selection while it has a row too few
    delete m_lstAss->takeTopLevelItem(row);
    if (m_rows.Selected()) m_lstAss->setCurrentItem(m_lstAss->topLevelItem(static_cast<int>(*m_rows.Selected())));
  }
  ShowRow();
}

void frmSynonyms::accept() {
  m_target.Replace(m_rows.Rows());
  QDialog::accept();
}

/// Enter in the list of action words takes the word; a field that gets the focus has its whole text selected, which the
/// mouse click that gave the focus would undo at once.
bool frmSynonyms::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_synList && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      Take(m_synList->currentItem());
      return true;
    }
  } else if (watched != m_synList && event->type() == QEvent::FocusIn) {
    QTimer::singleShot(0, static_cast<QLineEdit*>(watched), &QLineEdit::selectAll);
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace aids::ui
