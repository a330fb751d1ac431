// Written templates read back equal: by the editor's reader whole, by the loader as far as a document has it.

#include <gtest/gtest.h>

#include <map>

#include "templates/EditorReader.h"
#include "templates/HeaderScan.h"
#include "templates/Loader.h"
#include "templates/Values.h"
#include "templates/Writer.h"
#include "tests/unit/templates/SampleTemplates.h"

namespace {

using namespace templates;

/// The entries of a list whose key, without regard to case, no earlier one has.
template <typename Entry, typename Key>
std::string FirstOnes(const std::vector<std::shared_ptr<Entry>>& list, Key key) {
  std::map<std::string, int> seen;
  std::string text;
  for (const auto& entry : list)
    if (seen[rich_text::LowerCase(key(*entry))]++ == 0) text += tests::Describe(*entry);
  return text;
}

/// The synonyms whose word, without regard to case, no later one has.
std::string LastOnes(const std::vector<Synonym>& list) {
  std::map<std::string, const Synonym*> last;
  for (const Synonym& synonym : list) last[rich_text::LowerCase(synonym.Word)] = &synonym;
  std::string text;
  for (const Synonym& synonym : list)
    if (last[rich_text::LowerCase(synonym.Word)] == &synonym) text += synonym.Word + '=' + synonym.Synonym + '\n';
  return text;
}

void EndTipsWithDelimeters(EditorTemplate& source) {
  for (const auto& word : source.Words)
    for (const auto& action : word->Actions) {
      const std::string& tip = action->tipText;
      bool ends = tip.ends_with(' ');
      for (std::size_t i = 0; i < source.Delimeters.size(); i += rich_text::CodePointAt(source.Delimeters, i).Bytes)
        ends |= tip.ends_with(source.Delimeters.substr(i, rich_text::CodePointAt(source.Delimeters, i).Bytes));
      if (!ends) action->tipText += ' ';
    }
}

void ExpectLoads(const std::string& text, EditorTemplate source) {
  TemplateFields fields;
  CollectedMessages messages;
  std::string helpFile;
  const LoadResult result = LoadTemplateText(text, "x.def", fields, {}, messages, helpFile);
  EXPECT_TRUE(messages.Problems.empty()) << messages.Problems[0].Line;
  EXPECT_EQ(result.InitialText, source.InitialText);
  EXPECT_EQ(helpFile, source.HelpFile);
  EXPECT_EQ(fields.UseFont, source.Font + 1);
  EXPECT_EQ(fields.CaseSensitive, source.CaseSensitive);
  EXPECT_EQ(fields.TName + fields.TVer + fields.TAuthor + fields.TDate + fields.TComments + fields.ExecuteCommand,
            source.Name + source.Version + source.Author + source.Date + source.Comments + source.ExecuteCommand);

  std::string delimeters, words, colourWords, synonyms;
  for (const std::string& delimeter : fields.Delimeters) delimeters += delimeter;
  EXPECT_EQ(delimeters, source.Delimeters + " \r\n");
  ASSERT_EQ(fields.Colours.size(), source.Palette.size());
  for (std::size_t i = 0; i < fields.Colours.size(); ++i) EXPECT_EQ(fields.Colours[i], source.Palette[i].Value);

  EndTipsWithDelimeters(source);
  for (const auto& word : fields.Words) words += tests::Describe(*word);
  for (const auto& word : fields.ColWords) colourWords += tests::Describe(*word);
  for (const auto& synonym : fields.Synonyms) synonyms += synonym->Word + '=' + synonym->Synonym + '\n';
  EXPECT_EQ(words, FirstOnes(source.Words, [](const Word& word) { return word.Name; }));
  EXPECT_EQ(colourWords, FirstOnes(source.ColourWords, [](const colWord& word) { return word.StartWord; }));
  EXPECT_EQ(synonyms, LastOnes(source.Synonyms));
}

TEST(RoundTrip, BothReadersGiveWhatWasWritten) {
  for (std::uint64_t seed = 0; seed < 500 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    laws::Dice dice(seed);
    const EditorTemplate source = tests::RandomTemplate(dice);
    const std::string text = WriteTemplate(source, "1/2/2024");
    CollectedMessages messages;
    const EditorReadResult read = ReadEditorTemplateText(text, "x.def", messages);
    EXPECT_TRUE(messages.Problems.empty()) << messages.Problems[0].Line;
    EXPECT_EQ(tests::Describe(read.Template), tests::Describe(source));
    EXPECT_EQ(WriteTemplate(read.Template, "1/2/2024"), text);
    ExpectLoads(text, source);
  }
}

}  // namespace
