#include <gtest/gtest.h>

#include <sstream>

#include "shell/BatchColourer.h"

namespace {

using shell::BatchOptions;
using List = std::vector<std::string>;

std::string Describe(const BatchOptions& options) {
  static constexpr const char* Tasks[] = {"colour", "import", "list", "help", "version"};
  static constexpr const char* Formats[] = {"rtf", "html", "ansi"};
  return std::string(Tasks[static_cast<int>(options.What)]) + ' ' + Formats[static_cast<int>(options.To)] + " [" +
         options.Template + "] [" + options.File + ']' + (options.Fragment ? " fragment" : "") +
         (options.Strict ? " strict" : "") + (options.Language.empty() ? "" : " of " + options.Language);
}

TEST(BatchOptions, RightUsage) {
  const std::pair<List, const char*> cases[] = {
      {{}, "colour rtf [] [-]"},
      {{"a.js"}, "colour rtf [] [a.js]"},
      {{"-"}, "colour rtf [] [-]"},
      {{"--to", "html", "--fragment", "--strict", "a b"}, "colour html [] [a b] fragment strict"},
      {{"--to=ansi", "--template=x=y.def"}, "colour ansi [x=y.def] [-]"},
      {{"f", "--template", "--to", "--to", "rtf"}, "colour rtf [--to] [f]"},
      {{"--", "--list"}, "colour rtf [] [--list]"},
      {{"--list"}, "list rtf [] [-]"},
      {{"--import", "a.lang"}, "import rtf [] [a.lang]"},
      {{"--language", "b", "--import=a.lang"}, "import rtf [] [a.lang] of b"},
      {{"--version"}, "version rtf [] [-]"},
      {{"--help"}, "help rtf [] [-]"},
      {{"-h"}, "help rtf [] [-]"},
  };
  for (const auto& [arguments, expected] : cases) {
    const BatchOptions options = shell::ParseBatchOptions(arguments);
    EXPECT_EQ(options.Error, "") << testing::PrintToString(arguments);
    EXPECT_EQ(Describe(options), expected) << testing::PrintToString(arguments);
  }
}

TEST(BatchOptions, WrongUsageIsStatus2WithTheReason) {
  const std::pair<List, const char*> cases[] = {
      {{"a", "b"}, "more than one file: b"},
      {{"-", "-"}, "more than one file: -"},
      {{"--import", "a", "b"}, "more than one file: b"},
      {{"a", "--import", "b"}, "more than one file: b"},
      {{"--import="}, "--import needs a file"},
      {{"--import"}, "unknown option, or one without its value: --import"},
      {{"--language", "b", "a"}, "--language belongs to --import"},
      {{"--to", "pdf"}, "--to takes rtf, html or ansi, not pdf"},
      {{"--to="}, "--to takes rtf, html or ansi, not "},
      {{"--to"}, "unknown option, or one without its value: --to"},
      {{"--template"}, "unknown option, or one without its value: --template"},
      {{"--template="}, "--template needs a file"},
      {{"--colour"}, "unknown option, or one without its value: --colour"},
      {{"--listing"}, "unknown option, or one without its value: --listing"},
      {{"-x", "a"}, "unknown option, or one without its value: -x"},
  };
  for (const auto& [arguments, reason] : cases) {
    const BatchOptions options = shell::ParseBatchOptions(arguments);
    std::ostringstream errors;
    EXPECT_EQ(shell::RunBatchColourer(options, {}, -1, errors), 2) << testing::PrintToString(arguments);
    EXPECT_EQ(errors.str(), "quillmark-colour: " + std::string(reason) + "\nTry \"quillmark-colour --help\".\n");
  }
}

}  // namespace
