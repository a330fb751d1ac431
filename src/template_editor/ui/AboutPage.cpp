#include <QFormLayout>

#include "template_editor/ui/EditorPages.h"

namespace template_editor::ui {

AboutPage::AboutPage(EditorForm& form, QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("AboutPage"));
  auto* rows = new QFormLayout(this);
  const auto add = [&](const QString& caption, TextField field) {
    QLineEdit* edit = form.MakeField(field, this);
    rows->addRow(EditorForm::MakeLabel(caption, edit, this), edit);
  };
  add(QStringLiteral("Template &Version:"), TextField::VersionText);
  add(QStringLiteral("&Author:"), TextField::AuthorBox);
  add(QStringLiteral("&Date:"), TextField::DateBox);
  add(QStringLiteral("&Comments:"), TextField::Comments);
}

}  // namespace template_editor::ui
