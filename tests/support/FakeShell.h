#pragma once
// A desktop that starts nothing and writes down what it is asked for.

#include <string>
#include <vector>

#include "platform/Shell.h"

namespace tests {

struct FakeShell : platform::Shell {
  int Result = platform::ShellSuccess;
  std::vector<std::string> Runs;  ///< "program|arguments"

  int ShellExecute(const std::string& program, const std::string& arguments) override {
    Runs.push_back(program + '|' + arguments);
    return Result;
  }
};

}  // namespace tests
