#pragma once
// The code of the failure that something ends with.

#include "platform/Failure.h"

namespace tests {

/// 0 when the action ends without a failure.
template <typename Action>
int CodeOf(Action action) {
  try {
    action();
  } catch (const platform::Failure& failure) {
    return failure.Code();
  }
  return 0;
}

}  // namespace tests
