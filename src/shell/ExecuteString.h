#pragma once
// The commands that another start of the program sends to the running one, and how they are read there.

#include <functional>
#include <string>
#include <string_view>

namespace shell {

/// What the running program does for another start.
struct ExecuteActions {
  std::function<void(const std::string& path)> OpenFile;
  std::function<void()> BringToFront;
};

/// The command that opens a file, of one line and in UTF-8 whatever bytes the full path holds, with perhaps a place
/// behind it: a path that is not like that itself goes as a file URL.
std::string FileOpenCommand(std::string_view path);

/// Runs "FileOpen:" with a path or a file URL, or "BringToFront:" with anything behind it. False for all else, which
/// has no effect; so is a URL of another machine, with a NUL, or with a "%" that is not followed by two digits.
bool ExecuteCommand(std::string_view command, const ExecuteActions& actions);

inline constexpr std::string_view BringToFrontVerb = "BringToFront";

}  // namespace shell
