#pragma once
// The program's help, as the rest of the program sees it: a window with contents, keywords and a search, in which a
// page can be opened. A help file that is missing or damaged is told to the user and ends there.

#include <string_view>

namespace platform {

class HelpViewer {
 public:
  virtual ~HelpViewer() = default;

  /// Shows the contents, and the page read last (at first the start page).
  virtual void ShowContents() = 0;

  /// Shows the keywords, with nothing typed in their field.
  virtual void ShowKeywords() = 0;

  /// Shows a page by its file name, perhaps with "#" and a place in it; "" for the start page.
  virtual void ShowPage(std::string_view page) = 0;
};

}  // namespace platform
