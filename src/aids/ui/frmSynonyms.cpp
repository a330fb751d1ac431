#include "aids/ui/frmSynonyms.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include "platform/qt/PairList.h"

namespace aids::ui {
frmSynonyms::frmSynonyms(DocumentSynonyms& target, QWidget* parent)
    : QDialog(parent),
      m_target(target),
      m_rows(target.Rows()),
      m_list(new platform::qt::PairList(m_rows,
                                        {.Name = QStringLiteral("Synonyms"),
                                         .FirstHeading = QStringLiteral("Word"),
                                         .SecondHeading = QStringLiteral("Synonym"),
                                         .FirstCaption = QStringLiteral("&Word:"),
                                         .SecondCaption = QStringLiteral("&Synonym:")},
                                        this)),
      m_synList(new QListWidget(this)) {
  setObjectName(QStringLiteral("frmSynonyms"));
  setWindowTitle(QStringLiteral("Edit Synonyms"));
  m_list->SelectNew(true);
  m_list->FitColumns();
  MakeActionWords();
  LayOut();
}

void frmSynonyms::MakeActionWords() {
  m_synList->setObjectName(QStringLiteral("SynList"));
  m_synList->setUniformItemSizes(true);
  for (const std::string& name : m_target.ActionWords()) m_synList->addItem(QString::fromStdString(name));
  m_synList->installEventFilter(this);
  connect(m_synList, &QListWidget::itemDoubleClicked, this, &frmSynonyms::Take);
}

void frmSynonyms::LayOut() {
  auto* caption = new QLabel(QStringLiteral("&Action words:"), this);
  caption->setBuddy(m_synList);
  auto* right = new QVBoxLayout;
  right->addWidget(caption);
  right->addWidget(m_synList, 1);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  columns->addWidget(m_list, 3);
  columns->addLayout(right, 2);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  layout->addLayout(columns, 1);
  layout->addLayout(platform::qt::PairListButtons(*m_list, QStringLiteral("Close"), *this));
  resize(620, 400);
}

void frmSynonyms::Take(const QListWidgetItem* actionWord) {
  if (actionWord) m_list->SetSecond(actionWord->text());
}

void frmSynonyms::accept() {
  m_target.Replace(m_rows);
  QDialog::accept();
}

bool frmSynonyms::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return QDialog::eventFilter(watched, event);
  Take(m_synList->currentItem());
  return true;
}

}  // namespace aids::ui
