#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include "platform/qt/Text.h"
#include "template_editor/ui/EditorPages.h"

namespace template_editor::ui {
namespace {

using platform::qt::Text;

constexpr int ColumnSpace = 12;  ///< pixels beside the widest text

}  // namespace

SynonymsPage::SynonymsPage(EditorForm& form, QWidget* parent) : QWidget(parent), m_form(form) {
  setObjectName(QStringLiteral("SynonymsPage"));
  QAbstractItemView* rows = form.MakeList(List::lstAss,
                                          {.Text =
                                               [this](std::size_t row, int column) {
                                                 const auto& all = m_form.Editor().Synonyms();
                                                 if (row >= all.size()) return QString();
                                                 return Text(column == 0 ? all[row].Word : all[row].Synonym);
                                               },
                                           .Headers = {QStringLiteral("Word"), QStringLiteral("Synonym")}},
                                          this);
  m_rows = static_cast<QTreeView*>(rows);
  m_rows->setAccessibleName(QStringLiteral("Synonyms"));
  QPushButton* add = form.MakeButton(Button::btnNew, QStringLiteral("&New"), QStringLiteral("New synonym"), this);
  QPushButton* remove =
      form.MakeButton(Button::btnDelete, QStringLiteral("&Delete"), QStringLiteral("Delete synonym"), this);
  QLineEdit* word = form.MakeField(TextField::txtWord, this);
  QLineEdit* synonym = form.MakeField(TextField::txtSynonym, this);
  m_actionWords = new QListWidget(this);
  m_actionWords->setObjectName(QStringLiteral("SynList"));
  m_actionWords->setUniformItemSizes(true);
  for (QWidget* watched : {static_cast<QWidget*>(m_rows), static_cast<QWidget*>(word), static_cast<QWidget*>(synonym),
                           static_cast<QWidget*>(m_actionWords)})
    watched->installEventFilter(this);
  connect(m_actionWords, &QListWidget::doubleClicked, this, [this](const QModelIndex& index) { Take(index.row()); });

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(add);
  buttons->addWidget(remove);
  buttons->addStretch();
  auto* fields = new QFormLayout;
  fields->addRow(EditorForm::MakeLabel(QStringLiteral("&Word:"), word, this), word);
  fields->addRow(EditorForm::MakeLabel(QStringLiteral("&Synonym:"), synonym, this), synonym);
  auto* left = new QVBoxLayout;
  left->addWidget(m_rows, 1);
  left->addLayout(buttons);
  left->addLayout(fields);
  auto* right = new QVBoxLayout;
  right->addWidget(EditorForm::MakeLabel(QStringLiteral("&Action words:"), m_actionWords, this));
  right->addWidget(m_actionWords, 1);
  auto* layout = new QHBoxLayout(this);
  layout->setSpacing(12);
  layout->addLayout(left, 3);
  layout->addLayout(right, 2);
}

void SynonymsPage::Opened() {
  m_actionWords->clear();
  for (const auto& word : m_form.Editor().Actions().Words().All()) m_actionWords->addItem(Text(word->Name));
  FitColumns();
}

void SynonymsPage::FitColumns() {
  const QFontMetrics metrics = m_rows->fontMetrics();
  int word = metrics.horizontalAdvance(QStringLiteral("Word")), synonym = 0;
  for (const templates::Synonym& row : m_form.Editor().Synonyms()) {
    word = std::max(word, metrics.horizontalAdvance(Text(row.Word)));
    synonym = std::max(synonym, metrics.horizontalAdvance(Text(row.Synonym)));
  }
  m_rows->header()->resizeSection(0, word + ColumnSpace);
  m_rows->header()->resizeSection(1, synonym + ColumnSpace);
}

void SynonymsPage::Take(int actionWord) {
  if (actionWord < 0) return;
  m_form.Editor().TakeSynonym(static_cast<std::size_t>(actionWord));
  m_form.Show();
}

/// Enter in the list of action words takes the word, Delete in the list of synonyms deletes the row. A field that gets
/// the focus has its whole text selected, which the mouse click that gave the focus would undo at once.
bool SynonymsPage::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (watched == m_actionWords && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
      Take(m_actionWords->currentRow());
      return true;
    }
    if (watched == m_rows && key == Qt::Key_Delete) {
      m_form.Done(m_form.Editor().Click(Button::btnDelete));
      return true;
    }
  } else if (event->type() == QEvent::FocusIn) {
    if (auto* edit = qobject_cast<QLineEdit*>(watched)) QTimer::singleShot(0, edit, &QLineEdit::selectAll);
  }
  return false;
}

}  // namespace template_editor::ui
