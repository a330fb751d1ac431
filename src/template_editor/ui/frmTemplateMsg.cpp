#include "template_editor/ui/frmTemplateMsg.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "platform/qt/Text.h"
#include "template_editor/EditorFrame.h"

namespace template_editor::ui {

using platform::qt::Text;

frmTemplateMsg::frmTemplateMsg(Level level, bool mayChange, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmTemplateMsg"));
  setWindowTitle(Text(LeaveCaption(level)));
  auto* icon = new QLabel(this);
  icon->setObjectName(QStringLiteral("IconPos"));
  const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxQuestion, nullptr, this).pixmap(size));
  auto* text = new QLabel(Text(LeaveText), this);
  text->setWordWrap(true);
  text->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
  auto* question = new QHBoxLayout;
  question->setSpacing(12);
  question->addWidget(icon, 0, Qt::AlignTop);
  question->addWidget(text, 1);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(16);
  layout->addLayout(question);
  auto* buttons = new QHBoxLayout;
  buttons->setObjectName(QStringLiteral("Buttons"));
  buttons->addStretch();
  layout->addLayout(buttons);
  AddButton("ChangeButton", QStringLiteral("&Change"), LeaveAnswer::Change, mayChange);
  AddButton("AddButton", QStringLiteral("&Add"), LeaveAnswer::Add, true);
  AddButton("DiscardButton", QStringLiteral("&Discard"), LeaveAnswer::Discard, true);
  findChild<QPushButton*>(QString::fromUtf8(mayChange ? "ChangeButton" : "AddButton"))->setDefault(true);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

void frmTemplateMsg::AddButton(const char* name, const QString& caption, LeaveAnswer answer, bool enabled) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(QString::fromUtf8(name));
  button->setEnabled(enabled);
  findChild<QHBoxLayout*>(QStringLiteral("Buttons"))->addWidget(button);
  connect(button, &QPushButton::clicked, this, [this, answer] {
    m_answer = answer;
    accept();
  });
}

LeaveAnswer frmTemplateMsg::Ask() {
  exec();
  return m_answer;
}

void frmTemplateMsg::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  QApplication::beep();
}

/// The editor behind it cannot go on before it is answered, so it must not be lost behind other windows.
void frmTemplateMsg::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && !isActiveWindow() && isVisible()) raise();
}

}  // namespace template_editor::ui
