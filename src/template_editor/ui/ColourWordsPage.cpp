#include <QGridLayout>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

#include "platform/qt/Text.h"
#include "template_editor/ui/EditorPages.h"

namespace template_editor::ui {

using platform::qt::Text;
using templates::colWord, templates::PaletteColour;

ColourWordsPage::ColourWordsPage(EditorForm& form, QWidget* parent)
    : QWidget(parent), m_form(form), m_until(new QButtonGroup(this)) {
  setObjectName(QStringLiteral("ColourWordsPage"));
  auto* layout = new QHBoxLayout(this);
  layout->setSpacing(12);
  layout->addWidget(Palette(), 2);
  layout->addWidget(Words(), 3);
  // A key that chooses an option gives it the focus only then; what the choice leads to comes behind.
  connect(
      m_until, &QButtonGroup::idClicked, this,
      [this](int endPoint) { m_form.Done(m_form.Editor().SetEndPoint(static_cast<std::int16_t>(endPoint))); },
      Qt::QueuedConnection);
  connect(m_include, &QCheckBox::clicked, this, [this](bool on) {
    m_form.Editor().SetColWordInclude(on);
    m_form.Show();
  });
  connect(&form, &EditorForm::Shown, this, &ColourWordsPage::ShowRest);
}

// The palette.

RowSource ColourWordsPage::PaletteRows() {
  const auto rows = [this]() -> const std::vector<PaletteColour>& { return m_form.Editor().Colours().Palette().All(); };
  return {.Text = [rows](std::size_t row, int) { return row < rows().size() ? Text(rows()[row].Name) : QString(); },
          .Icon = [rows](std::size_t row) { return row < rows().size() ? SwatchIcon(rows()[row].Value) : QIcon(); }};
}

QGroupBox* ColourWordsPage::Palette() {
  auto* frame = new QGroupBox(QStringLiteral("Colour Palette"), this);
  frame->setObjectName(QStringLiteral("ColourFrame"));
  auto* layout = new QGridLayout(frame);
  QLineEdit* name = m_form.MakeField(TextField::ColName, frame);
  layout->addWidget(EditorForm::MakeLabel(QStringLiteral("&Name:"), name, frame), 0, 0);
  layout->addWidget(name, 0, 1, 1, 2);
  QLineEdit* hex = m_form.MakeField(TextField::ColHex, frame);
  hex->setToolTip(QStringLiteral("Blue, green and red, two hexadecimal digits each: #0000FF is red"));
  layout->addWidget(EditorForm::MakeLabel(QStringLiteral("Colour:"), hex, frame), 1, 0);
  layout->addWidget(hex, 1, 1);
  QPushButton* browse =
      m_form.MakeButton(Button::ColBrowse, QStringLiteral("..."), QStringLiteral("Choose the colour"), frame);
  browse->setFixedWidth(3 * browse->fontMetrics().averageCharWidth() + 20);
  layout->addWidget(browse, 1, 2);
  layout->addLayout(
      MakeButtonRow(m_form, {Button::colAdd, Button::colRemove, Button::colChange}, QStringLiteral("colour"), frame), 2,
      0, 1, 3);
  QAbstractItemView* list = m_form.MakeList(List::ColourList, PaletteRows(), frame);
  layout->addWidget(EditorForm::MakeLabel(QStringLiteral("&Colours:"), list, frame), 3, 0, 1, 3);
  layout->addWidget(list, 4, 0, 1, 3);
  layout->setRowStretch(4, 1);
  return frame;
}

// Colour words.

const PaletteColour* ColourWordsPage::ColourOfRow(std::size_t row) const {
  const ColourLists& colours = m_form.Editor().Colours();
  return row < colours.Words().Count() ? colours.ColourOf(*colours.Words().All()[row]) : nullptr;
}

RowSource ColourWordsPage::WordRows() {
  return {.Text =
              [this](std::size_t row, int) {
                const auto& words = m_form.Editor().Colours().Words().All();
                return row < words.size() ? Text(words[row]->StartWord) : QString();
              },
          .Icon =
              [this](std::size_t row) {
                const PaletteColour* colour = ColourOfRow(row);
                return SwatchIcon(colour ? MaybeColour(colour->Value) : std::nullopt);
              },
          .Note =
              [this](std::size_t row) {
                const PaletteColour* colour = ColourOfRow(row);
                return colour ? Text(colour->Name) : QStringLiteral("no colour");
              }};
}

QGroupBox* ColourWordsPage::Words() {
  auto* frame = new QGroupBox(QStringLiteral("Colour Words"), this);
  frame->setObjectName(QStringLiteral("ColWords"));
  auto* layout = new QGridLayout(frame);
  QLineEdit* name = m_form.MakeField(TextField::colWordName, frame);
  layout->addWidget(EditorForm::MakeLabel(QStringLiteral("&Word"), name, frame), 0, 0);
  layout->addWidget(name, 0, 1, 1, 2);
  m_colourShown = new SwatchBox(frame);
  m_colourShown->setObjectName(QStringLiteral("ColWordColDisp"));
  m_colourName = EditorForm::MakeLabel(QString(), nullptr, frame, "ColWordColName");
  m_colourName->setTextFormat(Qt::PlainText);
  DoNotGrow(*m_colourName);
  layout->addWidget(m_colourShown, 1, 1);
  layout->addWidget(m_colourName, 1, 2);
  m_include = new QCheckBox(QStringLiteral("&Includes itself"), frame);
  m_include->setObjectName(QStringLiteral("ColWordInclude"));
  layout->addWidget(m_include, 2, 1, 1, 2);
  layout->addWidget(Until(), 3, 0, 1, 3);
  layout->addLayout(MakeButtonRow(m_form, {Button::AddColWord, Button::RemoveColWord, Button::ChangeColWord},
                                  QStringLiteral("colour word"), frame),
                    4, 0, 1, 3);
  QAbstractItemView* list = m_form.MakeList(List::ColWordList, WordRows(), frame);
  layout->addWidget(EditorForm::MakeLabel(QStringLiteral("C&olour Words:"), list, frame), 5, 0, 1, 3);
  layout->addWidget(list, 6, 0, 1, 3);
  layout->setRowStretch(6, 1);
  layout->setColumnStretch(2, 1);
  return frame;
}

QGroupBox* ColourWordsPage::Until() {
  auto* frame = new QGroupBox(QStringLiteral("Colour Until"), this);
  frame->setObjectName(QStringLiteral("ColWordUntil"));
  auto* layout = new QHBoxLayout(frame);
  AddOption(*m_until, colWord::EndOfWord, "oEndOfWord", QStringLiteral("&End of Word"), *layout);
  AddOption(*m_until, colWord::EndOfLine, "oEndOfLine", QStringLiteral("End of &Line"), *layout);
  AddOption(*m_until, colWord::UntilWord, "oUntilWord", QString(), *layout);
  m_until->button(colWord::UntilWord)->setAccessibleName(QStringLiteral("Until this word"));
  QLineEdit* end = m_form.MakeField(TextField::colEndWord, frame);
  end->setAccessibleName(QStringLiteral("Word that ends the colour"));
  layout->setSpacing(8);
  layout->addWidget(end, 1);
  return frame;
}

void ColourWordsPage::ShowRest() {
  const TemplateEditor& editor = m_form.Editor();
  const PaletteColour* colour = editor.Colours().Palette().Current();
  m_colourShown->SetColour(colour ? MaybeColour(colour->Value) : std::nullopt);
  m_colourName->setText(Text(editor.ColourNameShown()));
  m_colourShown->setAccessibleName(QStringLiteral("Colour: ") + m_colourName->text());
  m_include->setChecked(editor.ColWordInclude());
  EditorForm::Choose(*m_until, editor.EndPoint());
}

}  // namespace template_editor::ui
