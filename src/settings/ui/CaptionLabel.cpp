#include "settings/ui/CaptionLabel.h"

#include <QMouseEvent>

namespace settings::ui {

CaptionLabel::CaptionLabel(const QString& text, QAbstractButton& button, QWidget* parent)
    : QLabel(text, parent), m_button(button) {
  setBuddy(&button);
  button.setAccessibleName(text);
}

void CaptionLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !rect().contains(event->position().toPoint())) return;
  m_button.setFocus(Qt::MouseFocusReason);
  m_button.click();
}

}  // namespace settings::ui
