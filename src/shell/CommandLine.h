#pragma once
// What the user asked for when starting the program: switches, files with perhaps a place in them, or a text to print.
//
// On this platform the arguments come apart already, so a blank in a path needs no rule. A switch is one of the three
// known ones, or begins with "/" and names nothing that exists; everything else is a path. Lines and columns are
// 1-based, 0 for none; columns are characters.

#include <string>
#include <string_view>
#include <vector>

#include "platform/Prompts.h"

namespace shell {

/// One file of the command line, or of a hand-over from another start.
struct FileArgument {
  std::string Given;     ///< as it was given, without the place
  std::string FullPath;  ///< "" when nothing of that name exists
  std::size_t Line = 0;
  std::size_t Column = 0;
};

struct CommandLine {
  enum class Task { Edit, Help, Version };

  Task What = Task::Edit;
  std::vector<std::string> Switches;  ///< in the order given, the unknown ones too
  std::vector<FileArgument> Files;    ///< in the order given
};

/// Takes the next token off a command line that is one string: every switch from its "/" to the next blank, left to
/// right, and then the rest, trimmed, as one path.
std::string TakeToken(std::string& commandLine);

/// Reads the arguments, the program's name not among them; relative paths start at the absolute folder `startFolder`.
/// "+LINE[:COL]" belongs to the file that follows, or else to the one before; behind "--" nothing is special.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments, const std::string& startFolder);

/// Reads "FILE", "FILE:LINE" or "FILE:LINE:COL". A file that exists under the whole name has no place.
FileArgument ParseFileArgument(std::string_view argument, const std::string& startFolder);

/// The file as ParseFileArgument reads it.
std::string WithPlace(const FileArgument& file);

/// The messages about a switch that does not exist and about a path that leads nowhere.
platform::MessageBox InvalidParameter(const std::string& token);
platform::MessageBox DoesNotExist(const std::string& token);

/// What --help and --version print.
std::string HelpText();
std::string VersionText();

inline constexpr std::string_view NoSubclassing = "/NoSubclassing";
inline constexpr std::string_view ResetSettings = "/ResetSettings";
inline constexpr std::string_view ResetToolbars = "/ResetToolbars";

}  // namespace shell
