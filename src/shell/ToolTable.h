#pragma once
// The frame's menus as data: which bands there are, and which tools stand on them in which order. What a tool does is
// the frame's command table.

#include <string_view>
#include <vector>

namespace shell {

/// One entry of a band. The same name on several bands is one tool.
struct Tool {
  std::string_view Name;         ///< "miSeparator" for a separator
  std::string_view Caption;      ///< with its access key behind "&"
  std::string_view Description;  ///< for the status bar and tips
  std::string_view Shortcut;     ///< "Ctrl+S", or several separated by ", "; "" for none
  bool Checkable = false;
};

struct Band {
  std::string_view Name;
  std::string_view Caption;
  std::vector<Tool> Tools;
};

inline constexpr std::string_view Separator = "miSeparator";

/// The bands of the menu bar, in order.
const std::vector<Band>& MenuBands();

/// The document's right-click menu.
const Band& TextPopup();

}  // namespace shell
