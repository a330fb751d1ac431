#include "platform/qt/QtEventLoop.h"

#include <QCoreApplication>

namespace platform::qt {

void QtEventLoop::DoEvents() {
  QCoreApplication::processEvents();
}

}  // namespace platform::qt
