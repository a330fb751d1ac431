#include "template_editor/ui/AboutTemplate.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace template_editor::ui {
namespace {

/// A text of the template, with its caption as its name for screen readers.
void AddRow(QFormLayout& rows, const char* name, const QString& caption, const std::string& text, QWidget* parent) {
  auto* label = new QLabel(QString::fromStdString(text), parent);
  label->setObjectName(QString::fromUtf8(name));
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label->setFocusPolicy(text.empty() ? Qt::NoFocus : Qt::TabFocus);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setMinimumWidth(label->fontMetrics().averageCharWidth() * 44);
  auto* captionLabel = new QLabel(caption, parent);
  captionLabel->setBuddy(label);
  rows.addRow(captionLabel, label);
}

}  // namespace

AboutTemplate::AboutTemplate(const TemplateRecord& record, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("AboutTemplate"));
  setWindowTitle(QStringLiteral("Quillmark - About ") + QString::fromStdString(record.Name));
  auto* rows = new QFormLayout;
  rows->setVerticalSpacing(10);
  rows->setHorizontalSpacing(16);
  AddRow(*rows, "lblVersion", QStringLiteral("Version:"), record.Version, this);
  AddRow(*rows, "lblDate", QStringLiteral("Date:"), record.Date, this);
  AddRow(*rows, "lblAuthor", QStringLiteral("Author:"), record.Author, this);
  AddRow(*rows, "lblComments", QStringLiteral("Comments:"), record.Comments, this);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
  ok->setObjectName(QStringLiteral("OKButton"));
  ok->setDefault(true);
  ok->setFocus();
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(16);
  layout->addLayout(rows, 1);
  layout->addWidget(buttons);
}

}  // namespace template_editor::ui
