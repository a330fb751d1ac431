#include "settings/ui/frmOptions.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "settings/ui/CaptionLabel.h"
#include "settings/ui/OkAndCancel.h"

namespace settings::ui {
namespace {

QRadioButton* Option(const char* name, const char* caption, QWidget* parent) {
  auto* option = new QRadioButton(QString::fromUtf8(caption), parent);
  option->setObjectName(QString::fromUtf8(name));
  return option;
}

QGroupBox* Frame(const char* name, const char* caption, QWidget* parent) {
  auto* frame = new QGroupBox(QString::fromUtf8(caption), parent);
  frame->setObjectName(QString::fromUtf8(name));
  return frame;
}

}  // namespace

frmOptions::frmOptions(OptionsModel model, std::string programFolder, bool& dialogCancelled, QWidget* parent)
    : QDialog(parent),
      m_model(model),
      m_programFolder(std::move(programFolder)),
      m_dialogCancelled(dialogCancelled),
      m_highlight(new QButtonGroup(this)) {
  setObjectName(QStringLiteral("frmOptions"));
  setWindowTitle(QStringLiteral("Quillmark Options"));
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  for (QWidget* part : {static_cast<QWidget*>(UnknownFrame()), static_cast<QWidget*>(TabsFrame()),
                        static_cast<QWidget*>(HighlightFrame())})
    layout->addWidget(part);
  layout->addStretch();
  layout->addWidget(OkAndCancel(*this));
  Show(m_model.Load());
}

QGroupBox* frmOptions::UnknownFrame() {
  QGroupBox* frame = Frame("fraUnknown", "Unknown File Types", this);
  auto* label = new QLabel(QStringLiteral("When opening a file with no template associated:"), frame);
  label->setObjectName(QStringLiteral("Label1"));
  m_optAsk = Option("optAsk", "&Ask which template to use", frame);
  m_optUse = Option("optUse", "&Use this template:", frame);
  m_cmbDefTemp = new QComboBox(frame);
  m_cmbDefTemp->setObjectName(QStringLiteral("cmbDefTemp"));
  m_cmbDefTemp->setAccessibleName(QStringLiteral("Template for files with no template associated"));
  m_cmbDefTemp->setEditable(true);
  m_cmbDefTemp->setInsertPolicy(QComboBox::NoInsert);
  m_cmbDefTemp->setCompleter(nullptr);  // what is typed is a path, not the beginning of an entry
  m_cmbDefTemp->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  m_cmbDefTemp->setMinimumContentsLength(24);
  auto* browse = new QPushButton(QStringLiteral("..."), frame);
  browse->setObjectName(QStringLiteral("cmdBrowse"));
  browse->setAccessibleName(QStringLiteral("Browse for a template"));
  browse->setToolTip(browse->accessibleName());
  browse->setAutoDefault(false);
  browse->setFixedWidth(browse->fontMetrics().horizontalAdvance(QStringLiteral("...")) + 28);
  auto* row = new QHBoxLayout;
  row->addWidget(m_optUse);
  row->addWidget(m_cmbDefTemp, 1);
  row->addWidget(browse);
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(label);
  layout->addWidget(m_optAsk);
  layout->addLayout(row);
  connect(m_cmbDefTemp, &QComboBox::activated, this, [this] { m_entrySelected = true; });
  connect(m_cmbDefTemp->lineEdit(), &QLineEdit::textEdited, this, [this] { m_entrySelected = false; });
  connect(browse, &QPushButton::clicked, this, &frmOptions::Browse);
  return frame;
}

QGroupBox* frmOptions::TabsFrame() {
  QGroupBox* frame = Frame("TabFrame", "Tabs", this);
  m_tabWidth = new QLineEdit(frame);
  m_tabWidth->setObjectName(QStringLiteral("TabWidth"));
  m_tabWidth->setFixedWidth(m_tabWidth->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 16);
  auto* before = new QLabel(QStringLiteral("Tab &Width:"), frame);
  before->setObjectName(QStringLiteral("Label2"));
  before->setBuddy(m_tabWidth);
  auto* behind = new QLabel(QStringLiteral("characters"), frame);
  behind->setObjectName(QStringLiteral("Label3"));
  auto* width = new QHBoxLayout;
  for (QWidget* part :
       {static_cast<QWidget*>(before), static_cast<QWidget*>(m_tabWidth), static_cast<QWidget*>(behind)})
    width->addWidget(part);
  width->addStretch();
  m_autoIndentBox = new QCheckBox(QStringLiteral("Auto &Indent on new line"), frame);
  m_autoIndentBox->setObjectName(QStringLiteral("AutoIndentBox"));
  m_optNewLineForEnter = new QCheckBox(frame);
  m_optNewLineForEnter->setObjectName(QStringLiteral("optNewLineForEnter"));
  auto* caption = new CaptionLabel(
      QStringLiteral("When displaying a popup list, and Enter is typed, do not make a new line, just complete the "
                     "selected item"),
      *m_optNewLineForEnter, frame);
  caption->setObjectName(QStringLiteral("Label4"));
  caption->setWordWrap(true);
  auto* enter = new QHBoxLayout;
  enter->addWidget(m_optNewLineForEnter, 0, Qt::AlignTop);
  enter->addWidget(caption, 1);
  auto* layout = new QVBoxLayout(frame);
  layout->addLayout(width);
  layout->addWidget(m_autoIndentBox);
  layout->addLayout(enter);
  return frame;
}

QGroupBox* frmOptions::HighlightFrame() {
  QGroupBox* frame = Frame("SynHighlight", "Syntax Highlighting", this);
  auto* layout = new QVBoxLayout(frame);
  const auto add = [&](Highlighting value, const char* name, const char* caption) {
    QRadioButton* option = Option(name, caption, frame);
    m_highlight->addButton(option, static_cast<int>(value));
    layout->addWidget(option);
  };
  add(Highlighting::None, "optNone", "&None");
  add(Highlighting::Reduced, "optReduced",
      "&Single line (always) - note this will not highlight new or opened files until each line is edited");
  add(Highlighting::Edit, "optEdit",
      "Single line whilst &editing - will highlight on load, then only update single lines as edited");
  add(Highlighting::Full, "optFull", "&Full (can be slow on older computers)");
  return frame;
}

void frmOptions::Show(const OptionsForm& form) {
  (form.Ask ? m_optAsk : m_optUse)->setChecked(true);
  for (const std::string& entry : m_model.TemplateEntries()) m_cmbDefTemp->addItem(QString::fromStdString(entry));
  m_entrySelected = form.Entry.has_value();
  m_cmbDefTemp->setCurrentIndex(form.Entry ? static_cast<int>(*form.Entry) : -1);
  m_cmbDefTemp->setEditText(QString::fromStdString(form.TemplateText));
  m_autoIndentBox->setChecked(form.AutoIndent);
  m_optNewLineForEnter->setChecked(form.CompleteOnly);
  m_tabWidth->setText(QString::fromStdString(form.TabWidth));
  if (form.Highlight) m_highlight->button(static_cast<int>(*form.Highlight))->setChecked(true);
  (form.Ask ? m_optAsk : m_optUse)->setFocus();
}

OptionsForm frmOptions::Chosen() const {
  OptionsForm form;
  form.Ask = m_optAsk->isChecked();
  if (m_entrySelected) form.Entry = static_cast<std::size_t>(m_cmbDefTemp->currentIndex());
  form.TemplateText = m_cmbDefTemp->currentText().toStdString();
  form.AutoIndent = m_autoIndentBox->isChecked();
  form.CompleteOnly = m_optNewLineForEnter->isChecked();
  form.TabWidth = m_tabWidth->text().toStdString();
  if (m_highlight->checkedId() >= 0) form.Highlight = static_cast<Highlighting>(m_highlight->checkedId());
  return form;
}

void frmOptions::Browse() {
  const std::string path = m_model.Browse(m_programFolder);
  if (path.empty()) return;
  m_entrySelected = false;
  m_cmbDefTemp->setEditText(QString::fromStdString(path));
}

void frmOptions::accept() {
  if (m_model.Accept(Chosen())) QDialog::accept();
}

void frmOptions::reject() {
  m_dialogCancelled = true;
  QDialog::reject();
}

}  // namespace settings::ui
