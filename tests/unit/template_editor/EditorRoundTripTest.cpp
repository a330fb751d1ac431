// Every template that ships, opened in the editor and saved untouched, is the same template.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "platform/Files.h"
#include "platform/ProgramFolder.h"
#include "templates/Writer.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/template_editor/EditorFixture.h"
#include "tests/unit/templates/SampleTemplates.h"

namespace {

/// The lines of a template file that are neither empty nor comments, sorted by what they begin with: the writer has an
/// order of its own for the records, but keeps that of those of one kind. Line ends are left out, and the help file:
/// the editor names one where the template has none.
std::vector<std::string> Records(const std::string& bytes) {
  std::vector<std::string> lines;
  std::istringstream text(bytes);
  for (std::string line; std::getline(text, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (line.size() > 1 && line.front() != ';' && !line.starts_with("H:")) lines.push_back(line);
  }
  std::stable_sort(lines.begin(), lines.end(), [](const auto& a, const auto& b) { return a[0] < b[0]; });
  return lines;
}

TEST(EditorRoundTrip, ShippedTemplatesStayThemselves) {
  const std::vector<std::string> files = platform::ListFiles(QUILLMARK_SOURCE_DIR "/data/templates", ".def");
  ASSERT_GE(files.size(), 6U);
  for (const std::string& file : files) {
    SCOPED_TRACE(file);
    tests::EditorUser user;
    const tests::TemporaryFolder folder;
    const std::string copy = folder.Path("copy.def");
    ASSERT_TRUE(user.Editor.OpenFile(file));
    EXPECT_TRUE(user.Editor.Saved());
    ASSERT_TRUE(user.Editor.SaveFile(copy));
    EXPECT_EQ(Records(folder.Read("copy.def")), Records(platform::ReadFile(file).Bytes));
    // Once it has the writer's form, saving changes no byte.
    const std::string written = folder.Read("copy.def");
    tests::EditorUser again;
    ASSERT_TRUE(again.Editor.OpenFile(copy) && again.Editor.SaveFile(folder.Path("again.def")));
    EXPECT_EQ(folder.Read("again.def"), written);
  }
}

TEST(EditorRoundTrip, AnyTemplateStaysItselfWhereverTheUserLooks) {
  using template_editor::List;
  for (std::uint64_t seed = 0; seed < 60 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    laws::Dice dice(seed);
    const tests::TemporaryFolder folder;
    templates::EditorTemplate source = tests::RandomTemplate(dice);
    const std::string file = folder.Write("t.def", templates::WriteTemplate(source, "1/2/2024"));
    tests::EditorUser user;
    ASSERT_TRUE(user.Editor.OpenFile(file));
    for (int click = 0; click < 40; ++click) {
      const List list = static_cast<List>(dice.Below(6));
      if (const std::size_t count = user.Editor.Count(list)) user.Editor.Select(list, dice.Below(count));
    }
    EXPECT_TRUE(user.Editor.Saved());
    ASSERT_TRUE(user.Editor.SaveFile(folder.Path("copy.def")));
    if (source.Extension.starts_with('.')) source.Extension.erase(0, 1);
    EXPECT_EQ(tests::Describe(user.Editor.Contents()), tests::Describe(source));
    EXPECT_EQ(folder.Read("copy.def"), folder.Read("t.def"));
  }
}

}  // namespace
