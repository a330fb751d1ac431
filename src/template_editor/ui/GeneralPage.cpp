#include <QFormLayout>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

#include "template_editor/ui/EditorPages.h"

namespace template_editor::ui {
namespace {

/// The label turns from a remark into a warning.
void ShowWarning(QLabel& label, bool warns) {
  if (!warns) return label.setStyleSheet(QString());
  label.setStyleSheet(QStringLiteral("background: #8A1C1C; color: #FFFFFF;"));
}

QLabel* Wrapped(const QString& text, const char* name, QWidget* parent) {
  QLabel* label = EditorForm::MakeLabel(text, nullptr, parent, name);
  label->setWordWrap(true);
  return label;
}

}  // namespace

// What several pages share.

QBoxLayout* MakeButtonRow(EditorForm& form, const ButtonRow& buttons, const QString& what, QWidget* parent) {
  auto* row = new QHBoxLayout;
  row->addWidget(form.MakeButton(buttons.Add, QStringLiteral("&Add"), QStringLiteral("Add ") + what, parent));
  row->addWidget(form.MakeButton(buttons.Remove, QStringLiteral("&Remove"), QStringLiteral("Remove ") + what, parent));
  row->addWidget(form.MakeButton(buttons.Change, QStringLiteral("C&hange"), QStringLiteral("Change ") + what, parent));
  return row;
}

void AddOption(QButtonGroup& group, int id, const char* name, const QString& caption, QBoxLayout& layout) {
  auto* option = new QRadioButton(caption, layout.parentWidget());
  option->setObjectName(QString::fromUtf8(name));
  group.addButton(option, id);
  layout.addWidget(option);
}

void DoNotGrow(QWidget& widget) {
  widget.setSizePolicy(QSizePolicy::Ignored, widget.sizePolicy().verticalPolicy());
}

// The page.

GeneralPage::GeneralPage(EditorForm& form, QWidget* parent)
    : QWidget(parent), m_form(form), m_fonts(new QButtonGroup(this)) {
  setObjectName(QStringLiteral("GeneralPage"));
  auto* rows = new QFormLayout;
  rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  const auto add = [&](const QString& caption, QLineEdit* field, QWidget* shown) {
    rows->addRow(EditorForm::MakeLabel(caption, field, this), shown);
  };
  QLineEdit* name = form.MakeField(TextField::TemplateName, this);
  add(QStringLiteral("&Template Name:"), name, name);
  QLineEdit* extension = form.MakeField(TextField::DefaultExt, this);
  add(QStringLiteral("Default E&xtension:"), extension, extension);
  QWidget* delimeters = Delimeters();
  add(QStringLiteral("&Delimeters:"), form.Field(TextField::DelimetersBox), delimeters);
  m_caseSense = new QCheckBox(QStringLiteral("Case Sensiti&ve"), this);
  m_caseSense->setObjectName(QStringLiteral("CaseSense"));
  rows->addRow(QString(), m_caseSense);
  QLineEdit* help = form.MakeField(TextField::hdfFile, this);
  add(QStringLiteral("hdf Help De&finition File:"), help, help);
  QWidget* command = RunCommand();
  add(QStringLiteral("Save and &Execute command:"), form.Field(TextField::SaveExecute), command);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  layout->addLayout(rows);
  layout->addWidget(Fonts());
  layout->addStretch();
  connect(m_caseSense, &QCheckBox::clicked, this, [this](bool on) {
    m_form.Editor().SetCaseSense(on);
    m_form.Show();
  });
  connect(&form, &EditorForm::Shown, this, &GeneralPage::ShowRest);
}

QWidget* GeneralPage::Delimeters() {
  auto* part = new QWidget(this);
  QLineEdit* field = m_form.MakeField(TextField::DelimetersBox, part);
  m_delimLabel =
      EditorForm::MakeLabel(QStringLiteral("not including [space] and [end of line]"), nullptr, part, "DelimLabel");
  m_delimLabel->setMargin(2);
  field->setAccessibleDescription(m_delimLabel->text());
  auto* layout = new QVBoxLayout(part);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  layout->addWidget(field);
  layout->addWidget(m_delimLabel, 0, Qt::AlignLeft);
  return part;
}

QWidget* GeneralPage::RunCommand() {
  auto* part = new QWidget(this);
  auto* layout = new QVBoxLayout(part);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(4);
  layout->addWidget(m_form.MakeField(TextField::SaveExecute, part));
  layout->addWidget(
      Wrapped(QStringLiteral("(enter %s where the script file name should go)"), "SaveExecuteHint", part));
  layout->addWidget(
      Wrapped(QStringLiteral("If the command to run contains spaces then it should be enclosed in \" marks.  For "
                             "example, a program called Viewer in the Accessories folder might have a command such "
                             "as:"),
              "Label30", part));
  layout->addWidget(
      Wrapped(QStringLiteral("\"c:\\program files\\accessories\\viewer.exe\" /view %s"), "Label31", part));
  return part;
}

QGroupBox* GeneralPage::Fonts() {
  auto* frame = new QGroupBox(QStringLiteral("Default Font Type"), this);
  frame->setObjectName(QStringLiteral("frmFont"));
  auto* layout = new QHBoxLayout(frame);
  using templates::EditorTemplate;
  AddOption(*m_fonts, EditorTemplate::MsDosFont, "optDOS", QStringLiteral("MS-DOS Font"), *layout);
  AddOption(*m_fonts, EditorTemplate::FixedWidthFont, "optFixed", QStringLiteral("Fixed Width Font"), *layout);
  AddOption(*m_fonts, EditorTemplate::ProportionalFont, "optProp", QStringLiteral("Proportional Font"), *layout);
  connect(m_fonts, &QButtonGroup::idClicked, this, [this](int font) {
    m_form.Editor().SetFont(static_cast<std::int16_t>(font));
    m_form.Show();
  });
  return frame;
}

void GeneralPage::ShowRest() {
  m_caseSense->setChecked(m_form.Editor().CaseSense());
  EditorForm::Choose(*m_fonts, m_form.Editor().Font());
  ShowWarning(*m_delimLabel, m_form.Editor().WarnsOfDelimeters());
}

}  // namespace template_editor::ui
