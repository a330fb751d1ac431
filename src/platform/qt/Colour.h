#pragma once
// Our colours are numbers, the toolkit's are not.

#include <QColor>

#include "rich_text/StyledText.h"

namespace platform::qt {

inline QColor ColourOf(rich_text::ColourValue value) {
  return {static_cast<int>(value & 0xFF), static_cast<int>(value >> 8 & 0xFF), static_cast<int>(value >> 16 & 0xFF)};
}

inline rich_text::ColourValue ValueOf(const QColor& colour) {
  return static_cast<rich_text::ColourValue>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

}  // namespace platform::qt
