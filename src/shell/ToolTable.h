#pragma once
// The frame's menus and toolbars as data: which tools there are, with their texts, shortcuts and icons, and which stand
// on which band in which order. What a tool does is in the command table.

#include "platform/ActiveBar.h"

namespace shell {

/// All tools and bands as designed.
const platform::BarDesign& DesignedBar();

}  // namespace shell
