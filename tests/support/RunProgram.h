#pragma once
// Runs a program as a process of its own and waits for it.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace tests {

struct ProgramRun {
  int Status = -1;  ///< the exit status; -1 for a program that did not end by itself
  std::string Output, Errors;
};

/// Runs command[0] with the arguments that follow it. `environment` ("NAME=value") is added to the test's own. With
/// `readOnly` above 0 the output is a pipe that is closed after so many bytes.
inline ProgramRun RunProgram(const std::vector<std::string>& command, std::string_view input = "",
                             const std::vector<std::string>& environment = {}, std::size_t readOnly = 0) {
  const TemporaryFolder folder;
  folder.Write("in", input);
  std::vector<char*> arguments, variables;
  for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  for (const std::string& variable : environment) variables.push_back(const_cast<char*>(variable.c_str()));
  for (char** variable = environ; *variable != nullptr; ++variable) variables.push_back(*variable);
  arguments.push_back(nullptr), variables.push_back(nullptr);

  int pipeEnds[2] = {-1, -1};
  if (readOnly > 0 && ::pipe2(pipeEnds, O_CLOEXEC) != 0) ADD_FAILURE() << "no pipe";
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, 0, folder.Path("in").c_str(), O_RDONLY, 0);
  if (readOnly > 0)
    ::posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], 1);
  else
    ::posix_spawn_file_actions_addopen(&actions, 1, folder.Path("out").c_str(), O_WRONLY | O_CREAT, 0600);
  ::posix_spawn_file_actions_addopen(&actions, 2, folder.Path("err").c_str(), O_WRONLY | O_CREAT, 0600);
  pid_t process = -1;
  const int error = ::posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), variables.data());
  ::posix_spawn_file_actions_destroy(&actions);
  EXPECT_EQ(error, 0) << command[0];
  ProgramRun run;
  if (readOnly > 0) {
    ::close(pipeEnds[1]);
    run.Output.resize(readOnly);
    const ssize_t got = ::read(pipeEnds[0], run.Output.data(), readOnly);
    run.Output.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    ::close(pipeEnds[0]);
  }
  int status = 0;
  if (error == 0 && ::waitpid(process, &status, 0) == process && WIFEXITED(status)) run.Status = WEXITSTATUS(status);
  if (readOnly == 0) run.Output = folder.Read("out");
  run.Errors = folder.Read("err");
  return run;
}

}  // namespace tests
