#pragma once
// The running time and the event loop, as long computations see them.

#include <cstdint>

namespace platform {

class EventLoop {
 public:
  virtual ~EventLoop() = default;

  /// Lets pending window events run once and returns.
  virtual void DoEvents() = 0;

  /// Milliseconds of a clock that never goes back; its zero point means nothing.
  virtual std::int64_t Milliseconds() const = 0;
};

}  // namespace platform
