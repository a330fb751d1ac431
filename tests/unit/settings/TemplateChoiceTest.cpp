#include "settings/TemplateChoice.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/ScriptedPrompts.h"

namespace {

using namespace settings;

class TemplateChoiceTest : public testing::Test {
 protected:
  /// "file", with "!" behind it when the user chose it, and the synonym file.
  std::string Choose(const std::string& path) {
    const ChosenTemplate chosen = ChooseTemplate(path, {List, Records, Values, "/program"}, Prompts);
    return chosen.File + (chosen.TemplateChosen ? "!" : "") + chosen.Synonyms;
  }

  std::vector<templates::Template> List = {{"JavaScript", "js", "/js.def"},
                                           {"HTML", "htm; html", "/html.def"},
                                           {"Other", "JS", "/other.def"},
                                           {"Makes", "mk;makefile;CMakeLists.txt", "/makes.def"}};
  FileInfos Records;
  Settings Values;
  tests::ScriptedPrompts Prompts;
};

TEST_F(TemplateChoiceTest, RecordThenTemplatesThenAssociations) {
  Values.Associations = {{"", "js", "/mine.def"}, {"", "TXT", "/txt.def"}, {"", "txt", "/later.def"}};
  Records.Put({"/none.txt", "*none*", "/n.syn"});
  Records.Put({"/empty.txt", "", "/e.syn"});
  Records.Put({"/own.js", "/own.def", ""});
  EXPECT_EQ(Choose("/a.JS"), "/js.def");
  EXPECT_EQ(Choose("/a.html"), "/html.def");
  EXPECT_EQ(Choose("/a.b.Txt"), "/txt.def");
  EXPECT_EQ(Choose("/NONE.txt"), "*none*/n.syn");
  EXPECT_EQ(Choose("/empty.txt"), "/txt.def/e.syn");
  EXPECT_EQ(Choose("/own.js"), "/own.def");
  EXPECT_EQ(Choose("/my.dir/Makefile"), "/makes.def") << "the whole name is known";
  EXPECT_EQ(Choose("/CMakeLists.txt"), "/txt.def") << "the extension comes first";
  Values.Associations.clear();
  EXPECT_EQ(Choose("/CMakeLists.txt"), "/makes.def");
}

TEST_F(TemplateChoiceTest, TheUserIsAskedWhenNothingIsKnown) {
  Prompts.ExpectOpenFile("Select Template", "/chosen.def");
  Prompts.ExpectAssociating("c", platform::PromptAnswer::No);
  EXPECT_EQ(Choose("/a.c"), "/chosen.def!");
  EXPECT_EQ(Prompts.LastFileQuestion().Folder, "/program");
  EXPECT_EQ(Prompts.LastFileQuestion().Filters.at(0).Patterns, std::vector<std::string>{"*.def"});
  EXPECT_TRUE(Values.Associations.empty());

  Prompts.ExpectOpenFile("Select Template", "/chosen.def");
  Prompts.ExpectAssociating("C", platform::PromptAnswer::Yes);
  EXPECT_EQ(Choose("/a.C"), "/chosen.def!");
  EXPECT_EQ(Choose("/b.c"), "/chosen.def");

  Prompts.ExpectOpenFile("Select Template", "");
  EXPECT_EQ(Choose("/readme"), "*none*!");
  Values.AskUnknownTemplates = false;
  EXPECT_EQ(Choose("/readme"), "*none*");
  Values.DefOpenTemplate = "/def.def";
  EXPECT_EQ(Choose("/readme"), "/def.def");
  EXPECT_EQ(Values.Associations.size(), 1U);
}

}  // namespace
