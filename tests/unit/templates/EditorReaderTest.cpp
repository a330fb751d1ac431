#include "templates/EditorReader.h"

#include <gtest/gtest.h>

#include "templates/HeaderScan.h"
#include "tests/unit/templates/SampleTemplates.h"

namespace {

using namespace templates;

EditorTemplate Read(std::string_view text, std::vector<std::size_t> badLines = {}) {
  CollectedMessages messages;
  EditorReadResult result = ReadEditorTemplateText(text, "C:\\dir\\my.t.def", messages);
  EXPECT_FALSE(result.Closed);
  std::vector<std::size_t> numbers;
  for (const LoadProblem& problem : messages.Problems) {
    EXPECT_TRUE(problem.MayCancel) << problem.Line;
    numbers.push_back(problem.LineNumber);
  }
  EXPECT_EQ(numbers, badLines) << text;
  return result.Template;
}

TEST(EditorReader, AnEmptyFileGivesEmptyPagesWithTheFixedFont) {
  EditorTemplate expected;
  expected.Name = expected.Delimeters = "";
  expected.HelpFile = "my.t.hdf";
  EXPECT_EQ(tests::Describe(Read("")), tests::Describe(expected));
  EXPECT_EQ(Read("H: \n").HelpFile, "my.t.hdf");
  EXPECT_EQ(Read("D: ;,\nD: .\n").Delimeters, ".") << "the last line wins";
}

TEST(EditorReader, TheLineAfterAColourNamesItOrIsTheNextRecord) {
  const EditorTemplate read = Read("C: #0000ff\n;Red; or so\nC: #A\nN: n\nC: #B\n\n;no name\nC: #x\n;bad\nC: #C", {8});
  std::string palette;
  for (const auto& colour : read.Palette) palette += std::to_string(colour.Value) + "=" + colour.Name + " ";
  EXPECT_EQ(palette, "255=Red; or so 10=#00000A 11=#00000B 0=bad 12=#00000C ");
  EXPECT_EQ(read.Name, "n");
}

TEST(EditorReader, TheFontIsOneOfThreeDigits) {
  EXPECT_EQ(Read("F: 0").Font, 0);
  EXPECT_EQ(Read("F: 2").Font, 2);
  for (const char* bad : {"F: -1", "F: 3", "F: 1 ", "F: ", "F: 01"}) EXPECT_EQ(Read(bad, {1}).Font, 1) << bad;
}

TEST(HeaderScan, EveryLineCountsAndTheLastWins) {
  Template record;
  record.FileName = "path";
  ScanTemplateHeader("N: first\r\nX: a;b\rT: 9\nN: in text\n\n;N: no\nn: no\n N: no\nX:\n", record);
  EXPECT_EQ(record.Name, "in text");
  EXPECT_EQ(record.Extension, "");
  ScanTemplateHeader("X:\tjs;mjs\nN:", record);
  EXPECT_EQ(record.Name, "");
  EXPECT_EQ(record.Extension, "js;mjs");
  EXPECT_EQ(ReadTemplateHeader("/no/such.def").FileName, "/no/such.def");
}

}  // namespace
