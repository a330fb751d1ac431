#pragma once
// The icons of tools: line drawings of our own with two colours, one for the lines and one accent. The lines take the
// colour of the text around them, so that they read on light and on dark desktops, and follow when the desktop changes.
// A drawing is data/icons/NAME.svg in a square of 16 units.

#include <QIcon>
#include <string_view>

namespace platform::qt {

/// The icon of that name, sharp at any size; a null icon when there is no such drawing.
QIcon ToolIcon(std::string_view name);

/// The drawing with its two colours replaced, as bytes of an SVG picture.
QByteArray Recoloured(QByteArray drawing, const QColor& lines, const QColor& accent);

}  // namespace platform::qt
