// What a second start does.

#include "shell/StartUp.h"

#include <gtest/gtest.h>

#include "tests/support/ScriptedPrompts.h"

namespace {

using namespace shell;

TEST(StartUp, ASecondStartHandsItsFilesOverAndDropsSwitches) {
  tests::ScriptedPrompts prompts;
  prompts.Expect({.Text = "\"no.js\" does not exist.", .Icon = platform::PromptIcon::Exclamation});
  std::string sent;
  HandOver(
      {CommandLine::Task::Edit, {"/ResetSettings", "/X"}, {{"a", "/a", 7, 0}, {"no.js", "", 0, 0}, {"b", "/b", 0, 0}}},
      prompts, [&](const std::string& command) { sent += command + '\n'; });
  EXPECT_EQ(sent, "FileOpen:/a:7\nFileOpen:/b\nBringToFront:\n");
}

}  // namespace
