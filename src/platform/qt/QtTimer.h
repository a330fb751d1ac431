#pragma once
// The toolkit's timer.

#include <QTimer>

#include "platform/Timer.h"

namespace platform::qt {

class QtTimer : public Timer {
 public:
  QtTimer();

  int Interval() const override { return m_timer.isActive() ? m_timer.interval() : 0; }
  void SetInterval(int milliseconds) override;

 private:
  QTimer m_timer;
};

}  // namespace platform::qt
