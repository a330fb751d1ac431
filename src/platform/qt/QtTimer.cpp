#include "platform/qt/QtTimer.h"

namespace platform::qt {

QtTimer::QtTimer() {
  QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
    if (ThatTime) ThatTime();
  });
}

void QtTimer::SetInterval(int milliseconds) {
  milliseconds > 0 ? m_timer.start(milliseconds) : m_timer.stop();
}

}  // namespace platform::qt
