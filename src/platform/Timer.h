#pragma once
// A timer that calls back from the event loop, again and again until it is stopped.
//
// Intervals are milliseconds. Belongs to whoever asked for it; nothing is called any more once it is gone.

#include <functional>

namespace platform {

class Timer {
 public:
  virtual ~Timer() = default;

  /// Called on the window thread each time an interval has passed. It may set the interval.
  std::function<void()> ThatTime;

  /// 0 while the timer stands still, as it does at first.
  virtual int Interval() const = 0;
  /// Starts the timer, or its count anew; 0 stops it.
  virtual void SetInterval(int milliseconds) = 0;
};

}  // namespace platform
