#pragma once
// The binary values of the registry, byte by byte, least byte first. Reading takes nothing for granted: bytes of
// another length, or that mean nothing, give false and leave the values as they are. Writing puts what does not fit to
// the nearest value that does.

#include <string>
#include <string_view>

#include "settings/Settings.h"

namespace settings {

/// 18 bytes: left, top, width and height as 32-bit floats of whole twips, the window state in 16 bits.
std::string PackFramePlace(const FramePlace& place);
bool UnpackFramePlace(std::string_view bytes, FramePlace& place);

/// 8 bytes: the six switches, DefaultFontType and TabWidth. A switch is 0xFF or 0; any byte but 0 is read as true.
std::string PackFlags(const Settings& values);
bool UnpackFlags(std::string_view bytes, Settings& values);

/// 4 bytes: bold, italic, strikethrough, underline.
std::string PackFontFlags(const platform::FontRecord& font);
bool UnpackFontFlags(std::string_view bytes, platform::FontRecord& font);

/// 8 bytes: the size in ten-thousandths of a point as a 64-bit integer.
std::string PackFontSize(double size);
bool UnpackFontSize(std::string_view bytes, double& size);

/// Whether a font can have this size in points.
bool IsFontSize(double size);

}  // namespace settings
