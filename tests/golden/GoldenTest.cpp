// Scripts and what the batch colourer must make of them, one folder a case: "script", or "example" with the path of a
// file under examples/; "template.def", or "template" with the name of one that ships; and "expected.rtf",
// "expected.html" or "expected.ansi". What differs is written under the build folder; QUILLMARK_PROMOTE=<case> makes
// the actual output of that one case the expected one.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/Files.h"
#include "rich_text/Encoding.h"
#include "rich_text/Rtf.h"
#include "tests/support/RunProgram.h"

namespace {

namespace fs = std::filesystem;

const fs::path Cases = QUILLMARK_SOURCE_DIR "/tests/golden";

std::vector<std::string> CaseNames() {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(Cases))
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string ReadWhole(const fs::path& path) {
  platform::FileContent content = platform::ReadFile(path.string());
  EXPECT_EQ(content.Error, "") << path;
  return std::move(content.Bytes);
}

void WriteWhole(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  EXPECT_EQ(platform::WriteFile(path.string(), bytes), "") << path;
}

/// The one line of a file.
std::string ReadName(const fs::path& path) {
  std::string name = ReadWhole(path);
  name.erase(name.find_last_not_of("\r\n") + 1);
  return name;
}

std::string TemplateOf(const fs::path& folder) {
  if (fs::exists(folder / "template.def")) return (folder / "template.def").string();
  return QUILLMARK_SOURCE_DIR "/data/templates/" + ReadName(folder / "template") + ".def";
}

std::string ScriptOf(const fs::path& folder) {
  if (!fs::exists(folder / "example")) return (folder / "script").string();
  return QUILLMARK_SOURCE_DIR "/examples/" + ReadName(folder / "example");
}

/// "line 3:" and both of its forms; "" for equal texts.
std::string FirstDifference(const std::string& expected, const std::string& actual) {
  if (expected == actual) return "";
  const auto at = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end()).first;
  const auto offset = static_cast<std::size_t>(at - expected.begin());
  const std::size_t start = offset == 0 ? 0 : expected.rfind('\n', offset - 1) + 1;
  const auto line = [&](const std::string& text) {
    return testing::PrintToString(text.substr(start, text.find('\n', start) - start));
  };
  return "line " + std::to_string(std::count(expected.begin(), at, '\n') + 1) + ":\nexpected " + line(expected) +
         "\nactual   " + line(actual);
}

class Golden : public testing::TestWithParam<std::string> {};

TEST_P(Golden, IsWhatTheColourerGives) {
  const fs::path folder = Cases / GetParam();
  const char* promoted = std::getenv("QUILLMARK_PROMOTE");
  int outputs = 0;
  for (const std::string format : {"rtf", "html", "ansi"}) {
    const std::string name = "expected." + format;
    if (!fs::exists(folder / name)) continue;
    ++outputs;
    const tests::ProgramRun run = tests::RunProgram({QUILLMARK_COLOUR, "--strict", "--template", TemplateOf(folder),
                                                     "--to", format, "--fragment", ScriptOf(folder)});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Errors, "");
    if (promoted != nullptr && GetParam() == promoted) WriteWhole(folder / name, run.Output);
    const std::string difference = FirstDifference(ReadWhole(folder / name), run.Output);
    const fs::path actual = fs::path(QUILLMARK_GOLDEN_OUTPUT) / GetParam() / name;
    if (!difference.empty()) WriteWhole(actual, run.Output);
    EXPECT_EQ(difference, "") << "all of it: " << actual << "\nQUILLMARK_PROMOTE=" << GetParam() << " accepts it";
    if (format != "rtf") continue;
    const rich_text::StyledText read = rich_text::ReadRtf(run.Output);
    const std::string text = rich_text::DecodeText(ReadWhole(ScriptOf(folder))).Text;
    EXPECT_TRUE(rich_text::EqualButForLineEnds(read.Text, text)) << "colours taken away give the text back";
  }
  EXPECT_GT(outputs, 0) << "no expected output in " << folder;
}

INSTANTIATE_TEST_SUITE_P(Cases, Golden, testing::ValuesIn(CaseNames()), [](const auto& test) { return test.param; });

}  // namespace
