#pragma once
// The toolkit's event loop and a clock that never goes back, for long computations.

#include <QElapsedTimer>

#include "platform/EventLoop.h"

namespace platform::qt {

class QtEventLoop : public EventLoop {
 public:
  QtEventLoop() { m_clock.start(); }

  void DoEvents() override;
  std::int64_t Milliseconds() const override { return m_clock.elapsed(); }

 private:
  QElapsedTimer m_clock;
};

}  // namespace platform::qt
