#pragma once
// A font as the settings keep it.

#include <string>

namespace platform {

struct FontRecord {
  std::string Name;
  double Size = 10;  ///< points
  bool Bold = false, Italic = false, Strikethrough = false, Underline = false;
  bool Fixed = false;  ///< a substitute for a missing face must be of fixed width too

  bool operator==(const FontRecord&) const = default;
};

}  // namespace platform
