#include "platform/Shell.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace platform {
namespace {

bool IsExecutableFile(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

}  // namespace

std::vector<std::string> SplitArguments(std::string_view arguments) {
  std::vector<std::string> split;
  std::string argument;
  bool inside = false, quoted = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::size_t end = std::min(arguments.find_first_not_of('\\', i), arguments.size());
    const std::size_t backslashes = end - i;
    if (backslashes > 0) {
      const bool beforeQuote = end < arguments.size() && arguments[end] == '"';
      argument.append(beforeQuote ? backslashes / 2 : backslashes, '\\');
      inside = true;
      i = end - 1;
      if (!beforeQuote || backslashes % 2 == 0) continue;
      argument += '"';
      i = end;
    } else if (arguments[i] == '"') {
      quoted = !quoted;
      inside = true;
    } else if (!quoted && (arguments[i] == ' ' || arguments[i] == '\t')) {
      if (inside) split.push_back(argument);
      argument.clear();
      inside = false;
    } else {
      argument += arguments[i];
      inside = true;
    }
  }
  if (inside) split.push_back(argument);
  return split;
}

std::string FindExecutable(const std::string& program, std::string_view searchPath) {
  if (program.empty()) return "";
  if (program[0] == '/') return IsExecutableFile(program) ? program : "";
  if (program.find('/') != std::string::npos) return "";
  while (!searchPath.empty()) {
    const std::size_t end = std::min(searchPath.find(':'), searchPath.size());
    const std::string_view folder = searchPath.substr(0, end);
    searchPath.remove_prefix(std::min(end + 1, searchPath.size()));
    if (folder.empty() || folder[0] != '/') continue;
    const std::string path = std::string(folder) + '/' + program;
    if (IsExecutableFile(path)) return path;
  }
  return "";
}

}  // namespace platform
