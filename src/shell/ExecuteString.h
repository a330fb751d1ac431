#pragma once
// The commands that another start of the program sends to the running one.

#include <functional>
#include <string>
#include <string_view>

namespace shell {

/// What the running program does for another start.
struct ExecuteActions {
  std::function<void(const std::string& path)> OpenFile;
  std::function<void()> BringToFront;
};

/// Runs "FileOpen:" with a path, or "BringToFront:" with anything behind it. False for all else, which has no effect.
bool ExecuteCommand(std::string_view command, const ExecuteActions& actions);

inline constexpr std::string_view FileOpenVerb = "FileOpen";
inline constexpr std::string_view BringToFrontVerb = "BringToFront";

}  // namespace shell
