#include "aids/ui/FindReplace.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

namespace aids::ui {
namespace {

template <typename Widget, typename... Arguments>
Widget* Named(const char* name, QWidget* parent, Arguments&&... arguments) {
  auto* widget = new Widget(std::forward<Arguments>(arguments)..., parent);
  widget->setObjectName(QString::fromLatin1(name));
  return widget;
}

QLabel* LabelOf(QWidget* field, const char* name, const QString& text) {
  auto* label = Named<QLabel>(name, field->parentWidget(), text);
  label->setBuddy(field);
  return label;
}

}  // namespace

FindReplace::FindReplace(QWidget* frame, platform::Prompts& prompts) : QDialog(frame), m_dialog(prompts) {
  setObjectName(QStringLiteral("FindReplace"));
  auto* layout = new QHBoxLayout(this);
  layout->addLayout(Fields(), 1);
  layout->addLayout(Buttons());
  layout->setSizeConstraint(QLayout::SetFixedSize);
  Connect();
  ShowMode();
}

QLayout* FindReplace::Fields() {
  m_findWord = Named<QLineEdit>("FindWord", this);
  m_findWord->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
  m_replaceWord = Named<QLineEdit>("ReplaceWord", this);
  m_direction = Named<QComboBox>("Direction", this);
  m_direction->addItems({QStringLiteral("All"), QStringLiteral("Up"), QStringLiteral("Down")});
  m_matchCase = Named<QCheckBox>("MatchCase", this, QStringLiteral("Match &Case"));
  m_wholeWord = Named<QCheckBox>("WholeWord", this, QStringLiteral("Find Whole Word &Only"));
  m_repLabel = LabelOf(m_replaceWord, "RepLabel", QStringLiteral("Replace &With:"));

  auto* grid = new QGridLayout;
  grid->addWidget(LabelOf(m_findWord, "Label1", QStringLiteral("&Find What:")), 0, 0);
  grid->addWidget(m_findWord, 0, 1, 1, 2);
  grid->addWidget(m_repLabel, 1, 0);
  grid->addWidget(m_replaceWord, 1, 1, 1, 2);
  grid->addWidget(LabelOf(m_direction, "DirLabel", QStringLiteral("&Direction:")), 2, 0);
  grid->addWidget(m_direction, 2, 1, Qt::AlignLeft);
  grid->addWidget(m_matchCase, 3, 1, 1, 2);
  grid->addWidget(m_wholeWord, 4, 1, 1, 2);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(5, 1);
  return grid;
}

QLayout* FindReplace::Buttons() {
  m_find = Named<QPushButton>("Find", this, QStringLiteral("Find &Next"));
  m_replaceB = Named<QPushButton>("ReplaceB", this);
  m_replaceAll = Named<QPushButton>("ReplaceAll", this, QStringLiteral("Replace &All"));
  m_cancelButton = Named<QPushButton>("CancelButton", this, QStringLiteral("Cancel"));
  auto* column = new QVBoxLayout;
  for (QPushButton* button : {m_find, m_replaceB, m_replaceAll, m_cancelButton}) column->addWidget(button);
  m_cancelButton->setAutoDefault(false);
  column->addStretch(1);
  return column;
}

void FindReplace::Connect() {
  connect(m_findWord, &QLineEdit::textEdited, this, [this] {
    m_dialog.FindWordEdited();
    ShowState();
  });
  for (QCheckBox* box : {m_matchCase, m_wholeWord})
    connect(box, &QCheckBox::clicked, this, [this] { m_dialog.OptionClicked(); });
  connect(m_find, &QPushButton::clicked, this, [this] { Done(m_dialog.Find(Values())); });
  connect(m_replaceB, &QPushButton::clicked, this, [this] { Done(m_dialog.Replace(Values())); });
  connect(m_replaceAll, &QPushButton::clicked, this, [this] { m_dialog.ReplaceAll(Values()); });
  connect(m_cancelButton, &QPushButton::clicked, this, &QWidget::close);
}

FindFields FindReplace::Values() const {
  return {m_findWord->text().toStdString(), m_replaceWord->text().toStdString(), m_direction->currentIndex(),
          m_matchCase->isChecked(), m_wholeWord->isChecked()};
}

void FindReplace::FillIn() {
  const FindFields fields = m_dialog.Remembered(Values());
  m_findWord->setText(QString::fromStdString(fields.FindWord));
  m_findWord->selectAll();
  m_matchCase->setChecked(fields.MatchCase);
  m_wholeWord->setChecked(fields.WholeWord);
  m_direction->setCurrentIndex(fields.DirectionIndex);
  m_findWord->setFocus();
}

void FindReplace::ShowFind() {
  m_dialog.ShowFind();
  ShowMode();
}

void FindReplace::ShowReplace() {
  m_dialog.ShowReplace();
  ShowMode();
}

void FindReplace::ShowMode() {
  setWindowTitle(QString::fromStdString(m_dialog.Caption()));
  for (QWidget* widget :
       {static_cast<QWidget*>(m_repLabel), static_cast<QWidget*>(m_replaceWord), static_cast<QWidget*>(m_replaceAll)})
    widget->setVisible(m_dialog.ReplaceMode());
  ShowState();
}

void FindReplace::ShowState() {
  m_replaceB->setText(QString::fromStdString(m_dialog.ReplaceCaption()));
  m_replaceB->setEnabled(m_dialog.ReplaceEnabled());
  (m_dialog.ReplaceIsDefault() ? m_replaceB : m_find)->setDefault(true);
}

void FindReplace::Done(FindDialog::Outcome outcome) {
  if (outcome == FindDialog::Outcome::SwitchedMode) return ShowMode();
  if (outcome == FindDialog::Outcome::NoWord) m_findWord->setFocus();
  ShowState();
  if (outcome == FindDialog::Outcome::Found) KeepOffCaret();
}

void FindReplace::Open(SearchedDocument& document, std::function<QRect()> caretOnScreen) {
  SetParentForm(&document, std::move(caretOnScreen));
  if (isVisible()) FillIn();
  show();
  raise();
  activateWindow();
}

void FindReplace::SetParentForm(SearchedDocument* document, std::function<QRect()> caretOnScreen) {
  m_dialog.SetParentForm(document);
  m_caretOnScreen = std::move(caretOnScreen);
  if (!document) close();
}

void FindReplace::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  FillIn();
  KeepOffCaret();
}

void FindReplace::mousePressEvent(QMouseEvent* event) {
  QDialog::mousePressEvent(event);
  KeepOffCaret();
}

void FindReplace::KeepOffCaret() {
  if (!m_caretOnScreen) return;
  m_dialog.ParentForm()->BringToFront();
  const QRect caret = m_caretOnScreen(), dialog = frameGeometry(), room = screen()->availableGeometry();
  const DialogPlace place{dialog.left(), dialog.top() - room.top(), dialog.right(), dialog.bottom() - room.top()};
  const int top = TopOffCaret(place, caret.left(), caret.top() - room.top(), caret.height(), room.height());
  if (top != place.Top) move(dialog.left(), top + room.top());
}

}  // namespace aids::ui
