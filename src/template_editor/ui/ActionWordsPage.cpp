#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>
#include <QRadioButton>
#include <QStyleOption>
#include <QVBoxLayout>

#include "aids/ui/ListIcons.h"
#include "platform/qt/Text.h"
#include "template_editor/ui/EditorPages.h"

namespace template_editor::ui {
namespace {

using platform::qt::Text;
using templates::WrdAct;

const QString StackedClear = QStringLiteral("&C\nl\ne\na\nr");

/// A picture to choose; the chosen one has a line around it.
class IconChoice : public QToolButton {
 public:
  IconChoice(int number, QWidget* parent) : QToolButton(parent) {
    setObjectName(QStringLiteral("imgIcons%1").arg(number));
    setIcon(aids::ui::ListIcon(number));
    setIconSize({16, 16});
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setToolTip(aids::ui::ListIconName(number));
    setAccessibleName(QStringLiteral("Icon ") + aids::ui::ListIconName(number));
  }
  QSize sizeHint() const override { return {24, 24}; }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    icon().paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    if (isChecked()) {
      painter.setPen(palette().color(QPalette::WindowText));
      painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    if (!hasFocus()) return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(2, 2, -2, -2);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
  }
};

QGroupBox* Frame(const char* name, const QString& caption, QWidget* parent) {
  auto* frame = new QGroupBox(caption, parent);
  frame->setObjectName(QString::fromUtf8(name));
  DoNotGrow(*frame);
  return frame;
}

}  // namespace

ActionWordsPage::ActionWordsPage(EditorForm& form, QWidget* parent)
    : QWidget(parent), m_form(form), m_actions(new QButtonGroup(this)), m_icons(new QButtonGroup(this)) {
  setObjectName(QStringLiteral("ActionWordsPage"));
  auto* layout = new QGridLayout(this);
  layout->setSpacing(8);
  layout->addWidget(Words(), 0, 0, 2, 1);
  layout->addWidget(Delimeters(), 0, 1);
  layout->addWidget(Actions(), 1, 1);
  layout->addWidget(WordList(), 0, 2, 2, 1);
  QLineEdit* tip = form.MakeField(TextField::ToolTipBox, this);
  m_toolTipLabel = EditorForm::MakeLabel(QString(), tip, this, "ToolTipLabel");
  DoNotGrow(*m_toolTipLabel);
  for (QWidget* part : {static_cast<QWidget*>(m_toolTipLabel), static_cast<QWidget*>(tip)}) {
    QSizePolicy policy = part->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    part->setSizePolicy(policy);
  }
  layout->addWidget(m_toolTipLabel, 2, 0, 1, 3);
  layout->addWidget(tip, 3, 0, 1, 3);
  layout->addWidget(Information(), 4, 0, 1, 3);
  for (const auto& [column, characters] : {std::pair(0, 48), {1, 40}, {2, 40}}) {
    layout->setColumnMinimumWidth(column, characters * fontMetrics().averageCharWidth());
    layout->setColumnStretch(column, characters);
  }
  layout->setRowStretch(0, 1);
  connect(m_actions, &QButtonGroup::idClicked, this, [this](int action) {
    m_form.Editor().SetAction(static_cast<std::int16_t>(action));
    m_form.Show();
  });
  connect(m_icons, &QButtonGroup::idClicked, this, [this](int icon) {
    m_form.Editor().SetIcon(icon);
    m_form.Show();
  });
  connect(&form, &EditorForm::Shown, this, &ActionWordsPage::ShowRest);
}

QGroupBox* ActionWordsPage::Words() {
  QGroupBox* frame = Frame("ActionWordsFrame", QStringLiteral("Action Words"), this);
  auto* layout = new QGridLayout(frame);
  QLineEdit* name = m_form.MakeField(TextField::ActWordName, frame);
  layout->addWidget(EditorForm::MakeLabel(QStringLiteral("&Word:"), name, frame), 0, 0);
  layout->addWidget(name, 0, 1);
  layout->addLayout(MakeButtonRow(m_form, {Button::ActAdd, Button::ActRemove, Button::ActChange},
                                  QStringLiteral("action word"), frame),
                    1, 0, 1, 2);
  QPushButton* clear =
      m_form.MakeButton(Button::ClearButton, QStringLiteral("Clear"), QStringLiteral("Clear for a new word"), frame);
  clear->setFixedWidth(2 * clear->fontMetrics().averageCharWidth() + 16);
  clear->setMinimumHeight(5 * clear->fontMetrics().lineSpacing() + 10);
  clear->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  QAbstractItemView* list = m_form.MakeList(List::ActWordList,
                                            {.Text =
                                                 [this](std::size_t row, int) {
                                                   const auto& words = m_form.Editor().Actions().Words().All();
                                                   return row < words.size() ? Text(words[row]->Name) : QString();
                                                 }},
                                            frame);
  list->setAccessibleName(QStringLiteral("Action words"));
  layout->addWidget(list, 2, 0, 1, 2);
  layout->addWidget(clear, 0, 2, 3, 1, Qt::AlignTop);
  layout->setRowStretch(2, 1);
  return frame;
}

QGroupBox* ActionWordsPage::Delimeters() {
  m_delimetersFrame = Frame("DelimetersFrame", QString(), this);
  auto* layout = new QGridLayout(m_delimetersFrame);
  QLineEdit* delimeter = m_form.MakeField(TextField::DelimBox, m_delimetersFrame);
  layout->addWidget(EditorForm::MakeLabel(QStringLiteral("&Delimiter:"), delimeter, m_delimetersFrame), 0, 0);
  layout->addWidget(delimeter, 0, 1);
  layout->addLayout(MakeButtonRow(m_form, {Button::DelimAdd, Button::DelimRemove, Button::DelimChange},
                                  QStringLiteral("delimiter"), m_delimetersFrame),
                    1, 0, 1, 2);
  QAbstractItemView* list = m_form.MakeList(
      List::DelimetersList,
      {.Text =
           [this](std::size_t row, int) {
             const auto& actions = m_form.Editor().Actions().Delimeters().All();
             if (row >= actions.size()) return QString();
             return actions[row]->Delimeter == " " ? QStringLiteral("[space]") : Text(actions[row]->Delimeter);
           }},
      m_delimetersFrame);
  list->setAccessibleName(QStringLiteral("Delimiters of the word"));
  layout->addWidget(list, 2, 0, 1, 2);
  layout->setRowStretch(2, 1);
  return m_delimetersFrame;
}

QGroupBox* ActionWordsPage::Actions() {
  m_actionFrame = Frame("ActionFrame", QString(), this);
  auto* layout = new QVBoxLayout(m_actionFrame);
  AddOption(*m_actions, WrdAct::Tooltip, "ShowTip", QStringLiteral("Show &Tool Tip"), *layout);
  AddOption(*m_actions, WrdAct::List, "ShowList", QStringLiteral("Show Word &List"), *layout);
  AddOption(*m_actions, WrdAct::CaptureSynonym, "AddSynonym", QStringLiteral("Add &Synonym"), *layout);
  return m_actionFrame;
}

QGroupBox* ActionWordsPage::WordList() {
  m_wordListFrame = Frame("WordListFrame", QString(), this);
  auto* layout = new QGridLayout(m_wordListFrame);
  QLineEdit* name = m_form.MakeField(TextField::wlstName, m_wordListFrame);
  layout->addWidget(EditorForm::MakeLabel(QStringLiteral("&Word:"), name, m_wordListFrame), 0, 0);
  layout->addWidget(name, 0, 1);
  layout->addWidget(EditorForm::MakeLabel(QStringLiteral("Icon:"), nullptr, m_wordListFrame), 1, 0);
  layout->addWidget(Icons(), 1, 1, Qt::AlignLeft);
  layout->addLayout(MakeButtonRow(m_form, {Button::wlstAdd, Button::wlstRemove, Button::wlstChange},
                                  QStringLiteral("list entry"), m_wordListFrame),
                    2, 0, 1, 2);
  const auto entries = [this]() -> const std::vector<ListEntry>& { return m_form.Editor().Actions().Entries().All(); };
  QAbstractItemView* list = m_form.MakeList(
      List::WordList,
      {.Text = [entries](std::size_t row,
                         int) { return row < entries().size() ? Text(entries()[row].Text) : QString(); },
       .Icon =
           [entries](std::size_t row) {
             return row < entries().size() ? aids::ui::ListIcon(entries()[row].Icon) : QIcon();
           }},
      m_wordListFrame);
  list->setAccessibleName(QStringLiteral("Word list"));
  layout->addWidget(list, 3, 0, 1, 2);
  layout->setRowStretch(3, 1);
  return m_wordListFrame;
}

QWidget* ActionWordsPage::Icons() {
  auto* row = new QWidget(m_wordListFrame);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  for (int number = 1; number <= aids::ui::ListIcons; ++number) {
    auto* icon = new IconChoice(number, row);
    m_icons->addButton(icon, number);
    layout->addWidget(icon);
  }
  return row;
}

QGroupBox* ActionWordsPage::Information() {
  auto* frame = new QGroupBox(QStringLiteral("Information"), this);
  frame->setObjectName(QStringLiteral("InfoFrame"));
  auto* layout = new QGridLayout(frame);
  layout->setHorizontalSpacing(12);
  QLabel* note = EditorForm::MakeLabel(
      QStringLiteral("Note: Changing anything in the following heirachy will have no effect on anything above it until "
                     "the item above is added."),
      nullptr, frame);
  note->setWordWrap(true);
  layout->addWidget(note, 0, 0, 1, 6);
  int column = 0;
  const auto add = [&](const QString& caption, QLabel*& shown, const char* name, int stretch) {
    shown = EditorForm::MakeLabel(QString(), nullptr, frame, name);
    shown->setTextFormat(Qt::PlainText);
    DoNotGrow(*shown);
    layout->addWidget(EditorForm::MakeLabel(caption, nullptr, frame), 1, column++);
    layout->addWidget(shown, 1, column);
    layout->setColumnStretch(column++, stretch);
  };
  add(QStringLiteral("Word:"), m_word, "InfoWord", 2);
  add(QStringLiteral("Delimiter:"), m_delimeter, "InfoDelimeter", 1);
  add(QStringLiteral("Tool tip:"), m_toolTip, "InfoToolTip", 4);
  return frame;
}

void ActionWordsPage::StackClear() {
  m_form.ButtonOf(Button::ClearButton)->setText(StackedClear);
}

void ActionWordsPage::ShowRest() {
  const TemplateEditor& editor = m_form.Editor();
  m_delimetersFrame->setTitle(Text(editor.DelimetersCaption()));
  m_actionFrame->setTitle(Text(editor.ActionCaption()));
  m_wordListFrame->setTitle(Text(editor.WordListCaption()));
  m_toolTipLabel->setText(Text(editor.ToolTipCaption()));
  m_toolTipLabel->setVisible(editor.ToolTipShown());
  m_form.Field(TextField::ToolTipBox)->setVisible(editor.ToolTipShown());
  m_wordListFrame->setEnabled(editor.WordListUsable());
  EditorForm::Choose(*m_actions, editor.Action());
  EditorForm::Choose(*m_icons, editor.Icon());
  m_word->setText(Text(editor.TextOf(TextField::ActWordName)));
  m_delimeter->setText(Text(editor.TextOf(TextField::DelimBox)));
  m_toolTip->setText(Text(editor.TextOf(TextField::ToolTipBox)));
}

}  // namespace template_editor::ui
