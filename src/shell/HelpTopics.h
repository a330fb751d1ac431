#pragma once
// Which page of the help belongs to which window, so that F1 opens it there.

#include <string_view>
#include <vector>

namespace shell {

struct HelpTopic {
  std::string_view Window;   ///< the object name of a window, or of a page in one
  std::string_view Page;     ///< the file name of its help page
  std::string_view Keyword;  ///< under which the index of the help lists that page; several windows may share one
  bool KeepsF1 = false;      ///< F1 is a command of its own there; the page is for the message boxes over the window
};

/// All of them. A window that is not listed has none of its own and goes by the one that it belongs to.
const std::vector<HelpTopic>& HelpTopics();

/// The topic of an object name, null when it has none.
const HelpTopic* FindHelpTopic(std::string_view window);

}  // namespace shell
