#pragma once
// The unit in which the places of windows are kept and pop-ups are placed.

namespace platform {

/// Twips in a device-independent pixel, across and down; as many, so that a length alone can be converted.
inline constexpr float TwipsX = 15, TwipsY = 15;

}  // namespace platform
