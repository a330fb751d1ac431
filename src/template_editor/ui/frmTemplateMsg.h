#pragma once
// The question about changes of a word or an action that have not been committed. Closing it by other means than its
// three buttons stays with the changes.

#include <QDialog>

#include "template_editor/ListOwner.h"

namespace template_editor::ui {

class frmTemplateMsg : public QDialog {
  Q_OBJECT

 public:
  frmTemplateMsg(Level level, bool mayChange, QWidget* parent);

  /// Shows the question and waits for the answer.
  LeaveAnswer Ask();

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void AddButton(const char* name, const QString& caption, LeaveAnswer answer, bool enabled);

  LeaveAnswer m_answer = LeaveAnswer::Stay;
};

}  // namespace template_editor::ui
