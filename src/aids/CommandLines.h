#pragma once
// Command lines: of word help, of a template's "run" line, of the preview. Taken apart here and handed to the desktop.

#include <string>
#include <string_view>

#include "platform/Prompts.h"
#include "platform/Shell.h"

namespace aids {

/// A help command's program and arguments. The program may stand in double quotes; what follows it, its blank included,
/// is the arguments.
platform::CommandParts SplitHelpCommand(std::string_view line);

/// A run command's program and arguments. The character behind a quoted program, or the blank behind another, belongs
/// to neither. A quote that is not closed makes the rest the program.
platform::CommandParts SplitRunCommand(std::string_view line);

/// Every "%s" of a template's run command replaced by the file's path. Where "%s" stands between double quotes, quotes
/// of the path are marked so that it stays one argument; otherwise the path is put in unchanged.
std::string CommandFor(std::string_view executeCommand, std::string_view path);

/// Starts a run command; tells the user when it could not be started.
void RunCommand(const std::string& line, platform::Shell& shell, platform::Prompts& prompts);

}  // namespace aids
