// What the dialogs of the settings decide.

#include <gtest/gtest.h>

#include "settings/AssociationsModel.h"
#include "settings/OptionsModel.h"
#include "tests/support/Characters.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace settings;

class OptionsModelTest : public testing::Test {
 protected:
  Settings Values;
  std::vector<templates::Template> List = {{"A", "a", "/a.def"}, {"A", "b", "/b.def"}, {"C", "c", "/c.def"}};
  std::vector<templates::Template> Extra = {{"E", "e", "/e.def"}};
  tests::ScriptedPrompts Prompts;
  OptionsModel Model{Values, List, Extra, Prompts};
};

TEST_F(OptionsModelTest, ChangingNothingChangesNothing) {
  for (const bool useColours : {false, true})
    for (const bool reduced : {false, true}) {
      Values.UseColours = useColours;
      Values.ReducedColours = reduced;
      Values.AutoIndent = Values.AskUnknownTemplates = useColours;
      Values.NewLineForEnter = reduced;
      Values.TabWidth = -3;
      EXPECT_TRUE(Model.Accept(Model.Load()));
      EXPECT_EQ(Values.UseColours, useColours);
      EXPECT_EQ(Values.ReducedColours, reduced);
      EXPECT_EQ(Values.AutoIndent && Values.AskUnknownTemplates, useColours);
      EXPECT_EQ(Values.NewLineForEnter, reduced);
      EXPECT_EQ(Values.TabWidth, -3);
      EXPECT_EQ(Values.DefOpenTemplate, "*none*");
    }
}

TEST_F(OptionsModelTest, TheDefaultTemplateIsAFile) {
  const tests::TemporaryFolder folder;
  const std::string file = folder.Write("x.def", "");
  EXPECT_EQ(Model.TemplateEntries(), (std::vector<std::string>{"<none>", "A", "A", "C", "/e.def"}));
  const struct {
    std::optional<std::size_t> Entry;
    std::string Text, Stored;
  } cases[] = {{2, "A", "/b.def"}, {3, "C", "/c.def"}, {4, "/e.def", "/e.def"}, {{}, file, file},
               {{}, "", "*none*"}, {1, "A", "/a.def"}, {0, "<none>", "*none*"}};
  for (const auto& c : cases) {
    OptionsForm form = Model.Load();
    form.Entry = c.Entry;
    form.TemplateText = c.Text;
    EXPECT_TRUE(Model.Accept(form));
    EXPECT_EQ(Values.DefOpenTemplate, c.Stored);
  }
}

TEST_F(OptionsModelTest, WhatIsNoNumberAndNoChoiceIsToldAndTheRestApplies) {
  OptionsForm form = Model.Load();
  form.TabWidth = "eight";
  form.Highlight.reset();
  form.CompleteOnly = true;
  Values.UseColours = false;
  Prompts.Expect({.Text = "Tab Width was not changed (not a numeric value)"});
  Prompts.Expect({.Text = "Hmm... that's strange, one of those Syntax Highlighting options should be selected.  Using "
                          "Full Highlighting.",
                  .Title = "Quillmark Options",
                  .Icon = platform::PromptIcon::Exclamation});
  EXPECT_TRUE(Model.Accept(form));
  EXPECT_EQ(Values.TabWidth, 4);
  EXPECT_TRUE(Values.UseColours && !Values.ReducedColours && !Values.NewLineForEnter);
  const std::pair<const char*, int> numbers[] = {{"8", 8},   {" +8 ", 8}, {"-2", -2},
                                                 {"2.5", 2}, {"3.5", 4},  {"1e2", 100},
                                                 {".6", 1},  {"7.", 7},   {"2147483647", 2147483647}};
  for (const auto& [text, number] : numbers) EXPECT_EQ(ParseNumeric(text), number) << text;
  for (const std::string& text : tests::Split("|8x|0x8|inf|1e|+-1|3e9")) EXPECT_EQ(ParseNumeric(text), std::nullopt);
}

TEST(AssociationsModel, WithoutASelectedRowNothingIsEdited) {
  std::vector<templates::Template> associations = {{"", "txt", "/t.def"}};
  AssociationsModel model(associations);
  model.Rows().SetFirst("ignored");
  model.Rows().New();
  EXPECT_EQ(model.Rows().Edited(), nullptr);
  model.Rows().Select(1);
  for (int i = 0; i < 3; ++i) model.Rows().Delete();
  EXPECT_EQ(model.Rows().Edited(), nullptr);
  EXPECT_EQ(associations.size(), 1U);
  model.Accept();
  EXPECT_TRUE(associations.empty());
}

}  // namespace
