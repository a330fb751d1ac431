#include "shell/ExecuteString.h"

namespace shell {

bool ExecuteCommand(std::string_view command, const ExecuteActions& actions) {
  const std::size_t colon = command.find(':');
  if (colon == std::string_view::npos) return false;
  const std::string_view verb = command.substr(0, colon), argument = command.substr(colon + 1);
  if (verb == FileOpenVerb && !argument.empty())
    actions.OpenFile(std::string(argument));
  else if (verb == BringToFrontVerb)
    actions.BringToFront();
  else
    return false;
  return true;
}

}  // namespace shell
