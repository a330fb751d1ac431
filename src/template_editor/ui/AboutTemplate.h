#pragma once
// What a template says about itself.

#include <QDialog>
#include <string>

namespace template_editor::ui {

struct TemplateRecord {
  std::string Name, Version, Date, Author, Comments;
};

class AboutTemplate : public QDialog {
  Q_OBJECT

 public:
  AboutTemplate(const TemplateRecord& record, QWidget* parent);
};

}  // namespace template_editor::ui
