// What a start of the program is asked for, and what it hands over.

#include "shell/CommandLine.h"

#include <gtest/gtest.h>

#include "rich_text/Encoding.h"
#include "shell/CaretPlace.h"
#include "shell/ExecuteString.h"
#include "tests/support/Characters.h"
#include "tests/support/MemoryTextControl.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace shell;

std::string Tokens(std::string commandLine) {
  std::string all;
  for (int i = 0; i < 20 && !commandLine.empty(); ++i) all += '<' + TakeToken(commandLine) + '>';
  return all;
}

TEST(CommandLine, SwitchesComeOffAStringBeforeItsPath) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"/ResetToolbars C:\\a b\\c.txt", "</ResetToolbars><C:\\a b\\c.txt>"},
      {"  C:\\a.txt /X", "</X><C:\\a.txt>"},
      {"C:\\a /X b.txt", "</X><C:\\a b.txt>"},
      {"/A/B /C", "</A/B></C>"},
      {"/A  ", "</A><>"},
      {"\"a b.txt\"", "<\"a b.txt\">"},
      {"   ", "<>"},
  };
  for (const auto& [commandLine, tokens] : cases) EXPECT_EQ(Tokens(commandLine), tokens) << commandLine;
}

TEST(CommandLine, ArgumentsAreSwitchesFilesAndPlaces) {
  const tests::TemporaryFolder folder;
  for (const char* name : {"a.js", "b c.js", "d:3.js", "e.js:7", "sub/f.js", "+9"}) folder.Write(name, "");
  const std::string full = folder.Path("a.js");
  const struct {
    std::vector<std::string> Arguments;
    std::string Read;  ///< switches, then the files with their places; "?" before one that does not exist
  } cases[] = {
      {{}, ""},
      {{"a.js", "/ResetToolbars", "b c.js"}, "/ResetToolbars a.js b c.js"},
      {{"/resetsettings", "/X"}, "/resetsettings /X"},
      {{full, full + ":12", full + ":12:5", full + ":12:5:"}, "a.js a.js:12 a.js:12:5 a.js:12:5"},
      {{"e.js:7", "e.js:7:4", "d:3.js:2"}, "e.js:7 e.js:7:4 d:3.js:2"},  // names that look like places
      {{"a.js:0", "a.js:x", "a.js:1:2:3", ":4"}, "?a.js:0 ?a.js:x ?a.js:1:2:3 ?:4"},
      {{"+12", "a.js", "sub/f.js"}, "a.js:12 sub/f.js"},
      {{"a.js", "+12:3"}, "a.js:12:3"},
      {{"+0", "+x", "+9"}, "?+0 ?+x +9"},
      {{"none.js", "--unknown", "-h2"}, "?none.js ?--unknown ?-h2"},
      {{"--", "/X", "--help"}, "?/X ?--help"},
      {{"sub", ""}, "sub ?"},
      {{"a.js:99999999999999999999999"}, "?a.js:99999999999999999999999"},
  };
  for (const auto& c : cases) {
    const CommandLine read = ParseCommandLine(c.Arguments, folder.Path());
    std::string text;
    for (const std::string& token : read.Switches) text += ' ' + token;
    for (const FileArgument& file : read.Files)
      text += file.FullPath.empty() ? " ?" + file.Given : ' ' + WithPlace(file).substr(folder.Path().size() + 1);
    EXPECT_EQ(text.substr(text.empty() ? 0 : 1), c.Read);
    EXPECT_EQ(read.What, CommandLine::Task::Edit);
  }
  EXPECT_EQ(ParseCommandLine({"a.js", "--help"}, "/").What, CommandLine::Task::Help);
  EXPECT_EQ(ParseCommandLine({"--version"}, "/").What, CommandLine::Task::Version);
}

TEST(CommandLine, OnlyTheTwoVerbsAreAccepted) {
  const auto done = [](const std::string& command) {
    std::string what;
    const bool accepted =
        ExecuteCommand(command, {[&](const std::string& path) { what = "open " + path; }, [&] { what = "front"; }});
    return accepted ? what : what + "refused";
  };
  const std::pair<const char*, const char*> accepted[] = {
      {"FileOpen:/a:b.js", "open /a:b.js"},
      {"FileOpen:/a%20b", "open /a%20b"},
      {"FileOpen:file:///a%20b%0a%fF.js:1:2", "open /a b\n\xFF.js:1:2"},
      {"BringToFront:", "front"},
      {"BringToFront:x", "front"},
  };
  for (const auto& [command, expected] : accepted) EXPECT_EQ(done(command), expected) << command;
  for (const std::string& command : tests::Split(
           "FileOpen:|FileOpen|:FileOpen:/a|fileopen:/a||Execute:/bin/sh|FileOpen:file://host/a|FileOpen:file://|"
           "FileOpen:file:///a%|FileOpen:file:///a%2|FileOpen:file:///a%g0|FileOpen:file:///a%00b"))
    EXPECT_EQ(done(command), "refused") << command;
}

TEST(CommandLine, EveryPathHasACommandOfOneLine) {
  std::string all = "/";
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  for (const std::string& path :
       {all, std::string("/a b%20\xC3\xA4.js:2"), std::string("/a\n"), std::string("/\xE4:3:4")}) {
    const std::string command = FileOpenCommand(path);
    EXPECT_TRUE(rich_text::IsValidUtf8(command)) << command;
    EXPECT_EQ(command.find('\n'), std::string::npos) << command;
    std::string opened;
    EXPECT_TRUE(ExecuteCommand(command, {[&](const std::string& argument) { opened = argument; }, [] {}})) << command;
    EXPECT_EQ(opened, path);
  }
}

TEST(CommandLine, PlacesAreCharactersInExistingLines) {
  tests::MemoryTextControl control;
  control.SetText("ab\r\n\xC3\xA4\xC3\xB6\xF0\x9F\x98\x80x\n\nend");
  const struct {
    std::size_t Line, Column, Offset;
  } cases[] = {{1, 0, 0},  {1, 2, 1},   {1, 3, 2},  {1, 99, 2}, {2, 1, 4},   {2, 3, 8},
               {2, 4, 12}, {2, 99, 13}, {3, 5, 14}, {4, 4, 18}, {99, 2, 16}, {99, 1000000000000, 18}};
  for (const auto& [line, column, offset] : cases)
    EXPECT_EQ(OffsetOf(control, line, column), offset) << line << ':' << column;
}

}  // namespace
