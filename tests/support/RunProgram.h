#pragma once
// Runs a program as a process of its own and waits for it.

#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace tests {

struct ProgramRun {
  int Status = -1;  ///< the exit status; -1 for a program that did not end by itself
  std::string Output, Errors;
};

/// A word as a shell takes it for what it is.
inline std::string Quoted(std::string_view word) {
  std::string quoted = "'";
  for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + '\'';
}

/// Runs command[0] with the arguments that follow it. `environment` ("NAME=value") is added to the test's own.
inline ProgramRun RunProgram(const std::vector<std::string>& command, std::string_view input = "",
                             const std::vector<std::string>& environment = {}) {
  const TemporaryFolder folder;
  std::string line = "exec env";
  for (const auto& words : {environment, command})
    for (const std::string& word : words) line += ' ' + Quoted(word);
  line += " <" + folder.Write("in", input) + " >" + folder.Path("out") + " 2>" + folder.Path("err");
  const int status = std::system(line.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder.Read("out"), folder.Read("err")};
}

}  // namespace tests
