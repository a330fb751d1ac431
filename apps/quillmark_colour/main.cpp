// quillmark-colour: the colouring without a window.

#include <unistd.h>

#include <csignal>
#include <iostream>

#include "shell/BatchColourer.h"

int main(int argc, char** argv) {
  // A closed pipe shows as a failed write, which ends the program quietly.
  std::signal(SIGPIPE, SIG_IGN);
  const shell::BatchOptions options = shell::ParseBatchOptions({argv + 1, argv + argc});
  return shell::RunBatchColourer(options, platform::ProgramPlaces::FromProcess(), STDOUT_FILENO, std::cerr);
}
