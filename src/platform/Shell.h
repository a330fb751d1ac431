#pragma once
// Starting programs, and opening documents with the desktop's own handlers. Nothing goes through a command interpreter.

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The least result that means success.
inline constexpr int ShellSuccess = 33;

class Shell {
 public:
  virtual ~Shell() = default;

  /// Starts an executable with its arguments, which are split by SplitArguments; a document that is no executable, or a
  /// URL, is opened with the desktop's handler. A program is found as FindExecutable says, a document by its absolute
  /// path alone: the current folder may be that of a stranger's script, and nothing in it is meant by a bare name. The
  /// result is below ShellSuccess on failure: 2 when there is no such file, 5 when it could not be started, 31 when
  /// nothing is there to open it.
  virtual int ShellExecute(const std::string& program, const std::string& arguments) = 0;
};

/// A command line's program and the rest behind it.
struct CommandParts {
  std::string Program, Arguments;
};

/// Splits an argument text at blanks. Double quotes hold blanks together; a backslash before a double quote makes it an
/// ordinary character, two before it are one; all other backslashes stand for themselves.
std::vector<std::string> SplitArguments(std::string_view arguments);

/// The executable of a program name: an absolute path as it stands, a name without a folder in the absolute folders of
/// `searchPath` (separated by ":"), its empty and relative entries left out; "" when no executable file is there, and
/// for a relative path.
std::string FindExecutable(const std::string& program, std::string_view searchPath);

}  // namespace platform
