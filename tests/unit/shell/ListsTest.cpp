// Lists of templates and file types.

#include <gtest/gtest.h>

#include "shell/FileFilters.h"
#include "shell/TemplateList.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace shell;

TEST(TemplateList, OneRecordAFileAndTheFirstThatNamesAnExtension) {
  const tests::TemporaryFolder folder;
  folder.Write("b.def", "N: Second\nX: htm; HTML\n");
  folder.Write("A.DEF", "X: html;js\nN: First\n");
  folder.Write("c.def", "N: Third\nX: js\n");
  folder.Write("no.txt", "N: None\nX: txt\n");
  const std::vector<templates::Template> list = ReadTemplateList(folder.Path());
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(list[0].Name, "First");
  EXPECT_EQ(list[1].Name, "Second");
  EXPECT_EQ(list[1].FileName, folder.Path("b.def"));
  const std::pair<const char*, const char*> cases[] = {
      {"js", "A.DEF"}, {"JS", "A.DEF"}, {"html", "A.DEF"}, {"htm", "b.def"}, {"txt", ""}, {"", ""}, {"html;js", ""}};
  for (const auto& [extension, file] : cases)
    EXPECT_EQ(templates::FileOfExtension(list, extension), *file ? folder.Path(file) : "") << extension;
}

std::string Describe(const std::vector<platform::FileFilter>& filters) {
  std::string all;
  for (const platform::FileFilter& filter : filters) {
    all += filter.Description + ':';
    for (const std::string& pattern : filter.Patterns) all += ' ' + pattern;
    all += '\n';
  }
  return all;
}

TEST(FileFilters, ListTypesThenAllFiles) {
  EXPECT_EQ(Describe(FiltersFor("Script", "htm;; html;")), "Script: *.htm *.html\nAll Files: *.*\n");
  EXPECT_EQ(Describe(FiltersFor("Script", "")), "All Files: *.*\n");
  EXPECT_EQ(Describe(TemplateFilters({{"JS", "js;mjs", ""}, {"C", "c", ""}}, {{"", "x", ""}, {"", "y", ""}})),
            "JS File: *.js *.mjs\nC File: *.c\nOthers: *.x *.y\nAll Files: *.*\n");
  EXPECT_EQ(Describe(TemplateFilters({}, {})), "All Files: *.*\n");
}

}  // namespace
