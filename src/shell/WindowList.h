#pragma once
// The open windows as the tab strip and the Window menu list them.

#include <cstdint>
#include <vector>

#include "platform/ActiveBar.h"
#include "platform/Prompts.h"
#include "shell/ChildWindow.h"

namespace shell {

/// What the entries of a window carry, and no other window has while it is open; never 0.
std::uint64_t WindowKey(const ChildWindow& window);

/// The tabs of the document and template editor windows among `windows` (in the order in which they were opened) but
/// for `excluded`. More than MostListed are told to the user and left out.
std::vector<platform::DynamicTool> WindowTabs(const std::vector<const ChildWindow*>& windows, const ChildWindow* active,
                                              const ChildWindow* excluded, platform::Prompts& prompts);

/// The same windows as entries of the Window menu, numbered and without the mark of unsaved changes.
std::vector<platform::DynamicTool> WindowMenu(const std::vector<const ChildWindow*>& windows, const ChildWindow* active,
                                              platform::Prompts& prompts);

}  // namespace shell
