#pragma once
// quillmark-colour: colours a file with a template and writes RTF, HTML or terminal text to standard output, or makes a
// template of another editor's syntax definition.
//
// Exit status: 0, 1 when a file or a template cannot be read (or, with --strict, has bad lines), 2 for wrong usage. A
// reader that closes the output early is no failure.

#include <iosfwd>
#include <string>
#include <vector>

#include "platform/ProgramFolder.h"

namespace shell {

/// What the command line asks for.
struct BatchOptions {
  enum class Format { Rtf, Html, Ansi };
  enum class Task { Colour, Import, List, Help, Version };

  Task What = Task::Colour;
  Format To = Format::Rtf;
  std::string Template;    ///< "" to choose by the file's extension
  std::string File = "-";  ///< what to colour, or the definition to make a template of
  std::string Language;    ///< of several in a definition; "" for its first
  bool Fragment = false;
  bool Strict = false;
  std::string Error;  ///< what is wrong with the command line; "" when nothing is
};

/// Reads the arguments, the program's name not among them.
BatchOptions ParseBatchOptions(const std::vector<std::string>& arguments);

/// What --help prints.
std::string BatchHelpText();

/// Does it all: `outputDescriptor` gets what was asked for, `errors` the messages. Returns the exit status.
int RunBatchColourer(const BatchOptions& options, const platform::ProgramPlaces& places, int outputDescriptor,
                     std::ostream& errors);

}  // namespace shell
