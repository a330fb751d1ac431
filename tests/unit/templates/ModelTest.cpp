#include "templates/Model.h"

#include <gtest/gtest.h>

#include "tests/support/FailureCode.h"

namespace {

using namespace templates;
using tests::CodeOf;

TEST(WrdAct, TheListsKeepTheirOldPlacesWhenTheCountDropsToZero) {
  WrdAct action;
  EXPECT_EQ(CodeOf([&] { action.WordList(1); }), 9);
  action.SetNumberOfWords(3);
  action.SetWordList(3, "third");
  action.SetIconList(3, 7);
  for (int outside : {-1, 0, 4}) {
    EXPECT_EQ(CodeOf([&] { action.WordList(outside); }), 9);
    EXPECT_EQ(CodeOf([&] { action.SetWordList(outside, "x"); }), 9);
    EXPECT_EQ(CodeOf([&] { action.SetIconList(outside, 1); }), 9);
  }
  std::vector<std::string> words = {"old"};
  std::vector<std::int32_t> icons = {9};
  action.FillWordList(words);
  action.FillIconList(icons);
  EXPECT_EQ(words, (std::vector<std::string>{"", "", "third"}));
  EXPECT_EQ(icons, (std::vector<std::int32_t>{0, 0, 7}));

  for (std::int16_t none : {std::int16_t{0}, std::int16_t{-5}}) {
    action.SetNumberOfWords(none);
    EXPECT_EQ(action.NumberOfWords(), none);
    EXPECT_EQ(action.WordList(3), "third");
    EXPECT_EQ(action.IconList(3), 7);
    words = {"old"}, icons = {9};
    action.FillWordList(words);
    action.FillIconList(icons);
    EXPECT_TRUE(words.empty());
    EXPECT_TRUE(icons.empty());
  }

  action.SetNumberOfWords(2);
  EXPECT_EQ(action.WordList(2), "");
  EXPECT_EQ(CodeOf([&] { action.IconList(3); }), 9);
}

TEST(Model, DelimetersAreWholeCharactersWithTheirCase) {
  TemplateFields fields;
  EXPECT_FALSE(fields.IsDelimeter(" "));
  fields.Delimeters = {"x", "é", "\r"};
  for (const char* yes : {"x", "xyz", "é", "éa", "\r\n"}) EXPECT_TRUE(fields.IsDelimeter(yes)) << yes;
  for (const char* no : {"", "X", "É", "ê", "ax", "\n"}) EXPECT_FALSE(fields.IsDelimeter(no)) << no;
}

TEST(Model, ExtensionsOfAList) {
  const struct {
    const char *List, *Extension;
    bool Named;
  } cases[] = {
      {"js", "JS", true},           {"js", "j", false}, {"htm;html", "html", true}, {"htm;html", "htm;html", false},
      {"htm; Html ", "hTML", true}, {"", "", true},     {"htm;", "", false},        {"", "js", false},
      {" js", "js", false}};
  for (const auto& c : cases) EXPECT_EQ(NamesExtension(c.List, c.Extension), c.Named) << c.List << " / " << c.Extension;
  EXPECT_EQ(ExtensionsOf("; htm ;;html"), (std::vector<std::string>{"htm", "html"}));
}

}  // namespace
