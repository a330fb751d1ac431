#pragma once
// Puts a document's caret where the command line says.

#include "platform/TextControl.h"

namespace shell {

/// The offset of a line and column (1-based; column in characters, 0 for the line's start); the nearest place that
/// exists.
std::size_t OffsetOf(const platform::TextControl& control, std::size_t line, std::size_t column);

}  // namespace shell
