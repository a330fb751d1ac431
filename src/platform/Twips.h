#pragma once
// The unit in which the places of windows are kept and pop-ups are placed.

namespace platform {

/// Pixels are device-independent.
inline constexpr float TwipsPerPixel = 15;

}  // namespace platform
