#include "platform/qt/SubWindow.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>

namespace platform::qt {

QMdiSubWindow* SubWindowOf(const QWidget& widget) {
  return qobject_cast<QMdiSubWindow*>(widget.parentWidget());
}

bool IsInFront(const QWidget& widget) {
  const QMdiSubWindow* window = SubWindowOf(widget);
  return window && window->mdiArea() && window->mdiArea()->currentSubWindow() == window;
}

void CloseSoon(const QWidget& widget) {
  if (QMdiSubWindow* window = SubWindowOf(widget)) QTimer::singleShot(0, window, &QMdiSubWindow::close);
}

}  // namespace platform::qt
