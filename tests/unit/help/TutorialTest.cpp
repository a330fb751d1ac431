// The tutorial's template does what the tutorial says, step by step.

#include <gtest/gtest.h>

#include <algorithm>

#include "editor/ColourPass.h"
#include "templates/HelpDefinition.h"
#include "tests/support/LoadedTemplate.h"
#include "tests/unit/SourceFile.h"

namespace {

std::string Read(const std::string& name) {
  return tests::SourceFile("data/help/tutorial/" + name);
}

/// The template as it is after a step of the tutorial, and the first text that it gives.
templates::TemplateFields AfterStep(int step, std::string* firstText = nullptr) {
  std::string definition;
  for (int i = 1; i <= step; ++i) definition += Read(std::to_string(i) + ".def");
  return tests::LoadedTemplate(definition, firstText);
}

/// "colour:text" of each run of the plan.
std::vector<std::string> Runs(int step) {
  const std::string plan = Read("plan.garden");
  std::vector<std::string> runs;
  for (const editor::PassRun& run : editor::ColourPass(AfterStep(step)).Whole(plan))
    runs.push_back(std::to_string(run.Colour) + ':' + plan.substr(run.Start, run.End - run.Start));
  return runs;
}

bool Has(const std::vector<std::string>& runs, const std::string& run) {
  return std::find(runs.begin(), runs.end(), run) != runs.end();
}

TEST(Tutorial, TheSecondStepHasTheTwoFaultsThatTheThirdMends) {
  EXPECT_TRUE(Runs(1).empty());
  const std::vector<std::string> second = Runs(2), third = Runs(3);
  EXPECT_TRUE(Has(second, "1:# What grows where, and when it gets water"));
  EXPECT_TRUE(Has(second, "2:bed"));
  EXPECT_TRUE(Has(second, "1:#2\"")) << "the text has become a comment half-way";
  EXPECT_EQ(std::count(second.begin(), second.end(), "2:when"), 2) << "one of them in the comment";
  EXPECT_TRUE(Has(third, "3:South side, row #2"));
  EXPECT_EQ(std::count(third.begin(), third.end(), "2:when"), 1);
  EXPECT_TRUE(Has(third, "1:{* The tomatoes stand under the roof:\n   when it rains, they stay dry. *}"));
}

TEST(Tutorial, ListTipsAndTheSynonymOfALine) {
  const templates::TemplateFields fields = AfterStep(5);
  std::vector<std::string> words;
  fields.Words.Find("Bed")->Actions.Find(".")->FillWordList(words);
  EXPECT_EQ(words, (std::vector<std::string>{"plant", "water", "weed", "size"}));
  const auto tip = fields.Words.Find("water")->Actions.Find("(");
  EXPECT_EQ(tip->Action, templates::WrdAct::Tooltip);
  EXPECT_EQ(tip->tipText, "how often, litres)");
  EXPECT_EQ(fields.Synonyms.Find("soil")->Synonym, "Bed");
  std::vector<templates::Synonym> captured;
  editor::ColourPass(fields).Lines("bed roses = new Bed\n", false, &captured);
  ASSERT_EQ(captured.size(), 1U);
  EXPECT_EQ(captured[0].Word, "roses");
  EXPECT_EQ(captured[0].Synonym, "bed");
}

TEST(Tutorial, HelpRunCommandAndFirstText) {
  std::string firstText;
  const templates::TemplateFields fields = AfterStep(6, &firstText);
  EXPECT_EQ(firstText, "# What grows where.\nplan \"South\"\n");
  EXPECT_EQ(fields.ExecuteCommand, "xterm -hold -e grep -in water \"%s\"");
  EXPECT_EQ(fields.TComments, "The words of the first season.");
  templates::KeyedCollection<templates::HelpWord> help;
  templates::ReadHelpDefinitionText(Read("Garden.hdf"), help);
  std::vector<std::string> entries;
  for (const auto& entry : help) entries.push_back(entry->Word + " " + entry->CommandLine + " " + entry->Name);
  ASSERT_EQ(entries.size(), 4U);
  EXPECT_EQ(entries[0], "bed https://en.wikipedia.org/wiki/Raised-bed_gardening Beds");
  EXPECT_EQ(entries[3], "water https://en.wikipedia.org/wiki/Drip_irrigation Watering drop by drop");
}

}  // namespace
