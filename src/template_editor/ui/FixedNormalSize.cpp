#include "template_editor/ui/FixedNormalSize.h"

#include <QEvent>
#include <QMdiArea>

namespace template_editor::ui {

FixedNormalSize::FixedNormalSize(QMdiSubWindow& window) : QObject(&window), m_window(window) {
  window.installEventFilter(this);
  QMetaObject::invokeMethod(this, &FixedNormalSize::Apply, Qt::QueuedConnection);
}

/// A change of state must find the window free; afterwards the size is fixed again.
bool FixedNormalSize::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &m_window && event->type() == QEvent::WindowStateChange) {
    m_window.setMinimumSize(0, 0);
    m_window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    QMetaObject::invokeMethod(this, &FixedNormalSize::Apply, Qt::QueuedConnection);
  }
  return false;
}

void FixedNormalSize::Apply() {
  if (m_window.windowState() & (Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen)) return;
  QSize size = m_window.sizeHint();
  if (const QMdiArea* area = m_window.mdiArea()) size = size.boundedTo(area->viewport()->size());
  m_window.setFixedSize(size);
}

}  // namespace template_editor::ui
