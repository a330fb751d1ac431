// Every template that ships, opened in the editor and saved untouched, is the same template.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "platform/Files.h"
#include "templates/Loader.h"
#include "templates/Writer.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/template_editor/EditorFixture.h"
#include "tests/unit/templates/SampleTemplates.h"

namespace {

std::vector<std::string> ShippedTemplates() {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(QUILLMARK_SOURCE_DIR "/data/templates"))
    if (entry.path().extension() == ".def") files.push_back(entry.path().string());
  return files;
}

/// Everything that a document has of a template.
std::string Loaded(const std::string& file) {
  templates::TemplateFields fields;
  templates::CollectedMessages messages;
  const templates::LoadResult result = templates::LoadTemplate(file, fields, {}, messages);
  EXPECT_TRUE(messages.Problems.empty()) << messages.Problems[0].Line;
  std::ostringstream text;
  text << result.Error << '[' << result.InitialText << "]\n"
       << fields.CaseSensitive << fields.UseFont << '|' << fields.ExecuteCommand << '|' << fields.DefaultExtension
       << '|' << fields.TName << '|' << fields.TVer << '|' << fields.TAuthor << '|' << fields.TDate << '|'
       << fields.TComments;
  for (const auto& delimeter : fields.Delimeters) text << delimeter;
  for (const auto colour : fields.Colours) text << ' ' << colour;
  for (const auto& word : fields.ColWords) text << tests::Describe(*word);
  for (const auto& word : fields.Words) text << tests::Describe(*word);
  for (const auto& synonym : fields.Synonyms) text << synonym->Word << '=' << synonym->Synonym << '\n';
  text << fields.HelpWords.Count();
  return text.str();
}

/// The lines of a template file that are neither empty nor comments, sorted: the writer has an order of its own.
std::vector<std::string> Records(const std::string& bytes) {
  std::vector<std::string> lines;
  std::istringstream text(bytes);
  for (std::string line; std::getline(text, line);)
    if (line.size() > 1 && line.front() != ';') lines.push_back(line);
  std::sort(lines.begin(), lines.end());
  return lines;
}

TEST(EditorRoundTrip, ShippedTemplatesStayThemselves) {
  const std::vector<std::string> files = ShippedTemplates();
  ASSERT_GE(files.size(), 6U);
  for (const std::string& file : files) {
    SCOPED_TRACE(file);
    tests::EditorUser user;
    const tests::TemporaryFolder folder;
    const std::string copy = folder.Path("copy.def");
    ASSERT_TRUE(user.Editor.OpenFile(file));
    EXPECT_TRUE(user.Editor.Saved());
    ASSERT_TRUE(user.Editor.SaveFile(copy));
    EXPECT_EQ(Loaded(copy), Loaded(file));
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
  for (unsigned seed = 0; seed < 60 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const tests::TemporaryFolder folder;
    templates::EditorTemplate source = tests::RandomTemplate(random);
    const std::string file = folder.Write("t.def", templates::WriteTemplate(source, "1/2/2024"));
    tests::EditorUser user;
    ASSERT_TRUE(user.Editor.OpenFile(file));
    for (int click = 0; click < 40; ++click) {
      const List list = static_cast<List>(random() % 6);
      if (const std::size_t count = user.Editor.Count(list)) user.Editor.Select(list, random() % count);
    }
    EXPECT_TRUE(user.Editor.Saved());
    ASSERT_TRUE(user.Editor.SaveFile(folder.Path("copy.def")));
    if (source.Extension.starts_with('.')) source.Extension.erase(0, 1);
    EXPECT_EQ(tests::Describe(user.Editor.Contents()), tests::Describe(source));
    EXPECT_EQ(folder.Read("copy.def"), folder.Read("t.def"));
  }
}

}  // namespace
