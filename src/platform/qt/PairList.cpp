#include "platform/qt/PairList.h"

#include <QDialog>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace platform::qt {

PairList::PairList(PairRows& rows, const PairListTexts& texts, QWidget* parent)
    : QWidget(parent),
      m_rows(rows),
      m_lstAss(new QTreeWidget(this)),
      m_txtExt(new QLineEdit(this)),
      m_txtTemp(new QLineEdit(this)),
      m_btnNew(new QPushButton(QStringLiteral("&New"), this)),
      m_btnDelete(new QPushButton(QStringLiteral("&Delete"), this)) {
  m_btnNew->setObjectName(QStringLiteral("btnNew"));
  m_btnDelete->setObjectName(QStringLiteral("btnDelete"));
  for (QPushButton* button : {m_btnNew, m_btnDelete}) button->setAutoDefault(false);
  connect(m_btnNew, &QPushButton::clicked, this, &PairList::New);
  connect(m_btnDelete, &QPushButton::clicked, this, &PairList::Delete);
  MakeList(texts);
  MakeFields();
  LayOut(texts);
  SelectionChanged();
}

void PairList::MakeList(const PairListTexts& texts) {
  m_lstAss->setObjectName(QStringLiteral("lstAss"));
  m_lstAss->setAccessibleName(texts.Name);
  m_lstAss->setHeaderLabels({texts.FirstHeading, texts.SecondHeading});
  m_lstAss->setRootIsDecorated(false);
  m_lstAss->setAllColumnsShowFocus(true);
  m_lstAss->setUniformRowHeights(true);
  m_lstAss->header()->setStretchLastSection(false);
  m_lstAss->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  for (const PairRow& row : m_rows.All()) AddItem(row);
  if (m_lstAss->topLevelItemCount() > 0) m_lstAss->setCurrentItem(m_lstAss->topLevelItem(0));
  connect(m_lstAss, &QTreeWidget::itemSelectionChanged, this, &PairList::SelectionChanged);
}

void PairList::MakeFields() {
  m_txtExt->setObjectName(QStringLiteral("txtExt"));
  m_txtTemp->setObjectName(QStringLiteral("txtTemp"));
  for (QLineEdit* field : {m_txtExt, m_txtTemp}) field->installEventFilter(this);
  connect(m_txtExt, &QLineEdit::textEdited, this, [this](const QString& text) {
    m_rows.SetFirst(text.toStdString());
    ShowInList(0, text);
  });
  connect(m_txtTemp, &QLineEdit::textEdited, this, &PairList::SetSecond);
}

void PairList::LayOut(const PairListTexts& texts) {
  auto* fields = new QFormLayout;
  for (const auto& [caption, field] : {std::pair(texts.FirstCaption, m_txtExt), {texts.SecondCaption, m_txtTemp}}) {
    auto* label = new QLabel(caption, this);
    label->setBuddy(field);
    fields->addRow(label, field);
  }
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(12);
  layout->addWidget(m_lstAss, 1);
  layout->addLayout(fields);
}

int PairList::WidestText(int column) const {
  int widest = 0;
  for (const PairRow& row : m_rows.All()) {
    const std::string& text = column == 0 ? row.First : row.Second;
    widest = std::max(widest, fontMetrics().horizontalAdvance(QString::fromStdString(text)));
  }
  return widest;
}

void PairList::SetColumnWidths(int first, int second) {
  const QHeaderView& header = *m_lstAss->header();  // which stays readable above a short list
  m_lstAss->setColumnWidth(0, std::max(first, header.sectionSizeHint(0)));
  m_lstAss->setColumnWidth(1, std::max(second, header.sectionSizeHint(1)));
}

void PairList::FitColumns() {
  for (const int column : {0, 1}) m_lstAss->resizeColumnToContents(column);
}

void PairList::AddItem(const PairRow& row) {
  m_lstAss->addTopLevelItem(
      new QTreeWidgetItem({QString::fromStdString(row.First), QString::fromStdString(row.Second)}));
}

void PairList::ShowInList(int column, const QString& text) {
  if (const auto row = m_rows.Selected()) m_lstAss->topLevelItem(static_cast<int>(*row))->setText(column, text);
}

void PairList::SetSecond(const QString& text) {
  if (!m_rows.Selected()) return;
  m_rows.SetSecond(text.toStdString());
  ShowInList(1, text);
  if (m_txtTemp->text() != text) m_txtTemp->setText(text);
}

void PairList::SelectionChanged() {
  const QList<QTreeWidgetItem*> selected = m_lstAss->selectedItems();
  m_rows.Select(selected.isEmpty()
                    ? std::nullopt
                    : std::optional(static_cast<std::size_t>(m_lstAss->indexOfTopLevelItem(selected.first()))));
  ShowFields();
}

void PairList::ShowFields() {
  const PairRow* row = m_rows.Edited();
  for (QWidget* part :
       {static_cast<QWidget*>(m_btnDelete), static_cast<QWidget*>(m_txtExt), static_cast<QWidget*>(m_txtTemp)})
    part->setEnabled(row != nullptr);
  m_txtExt->setText(row ? QString::fromStdString(row->First) : QString());
  m_txtTemp->setText(row ? QString::fromStdString(row->Second) : QString());
}

void PairList::New() {
  m_rows.New();
  AddItem(m_rows.All().back());
  m_lstAss->scrollToBottom();
  if (!m_selectsNew) return;
  m_lstAss->setCurrentItem(m_lstAss->topLevelItem(m_lstAss->topLevelItemCount() - 1));
  m_txtExt->setFocus();
}

void PairList::Delete() {
  if (!m_rows.Selected()) return;
  const auto row = static_cast<int>(*m_rows.Selected());
  m_rows.Delete();
  const std::optional<std::size_t> next = m_rows.Selected();
  {
    const QSignalBlocker blocker(m_lstAss);  // the list must not tell of a selection while it has a row too few
    delete m_lstAss->takeTopLevelItem(row);
    if (next) m_lstAss->setCurrentItem(m_lstAss->topLevelItem(static_cast<int>(*next)));
  }
  ShowFields();
  if (!next) m_btnNew->setFocus();
}

/// A field that gets the focus has its whole text selected; a mouse click that gives the focus would undo that at once.
bool PairList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) QTimer::singleShot(0, static_cast<QLineEdit*>(watched), &QLineEdit::selectAll);
  return QWidget::eventFilter(watched, event);
}

QLayout* PairListButtons(PairList& list, const QString& closeCaption, QDialog& dialog) {
  auto* close = new QPushButton(closeCaption, &dialog);
  close->setObjectName(QStringLiteral("btnClose"));
  close->setDefault(true);
  auto* cancel = new QPushButton(QStringLiteral("Cancel"), &dialog);
  cancel->setObjectName(QStringLiteral("btnCancel"));
  cancel->setAutoDefault(false);
  QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::accept);
  QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  auto* row = new QHBoxLayout;
  row->addWidget(&list.NewButton());
  row->addWidget(&list.DeleteButton());
  row->addStretch(1);
  row->addWidget(close);
  row->addWidget(cancel);
  return row;
}

}  // namespace platform::qt
