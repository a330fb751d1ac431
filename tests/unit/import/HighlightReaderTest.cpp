// Definitions of the program highlight: what is read of them, and that a hostile one costs no more than its size.

#include "import/HighlightReader.h"

#include <gtest/gtest.h>

#include "import/LuaTables.h"
#include "import/RegexWords.h"
#include "tests/unit/import/Describe.h"

namespace {

using namespace import;

const NeighbourFiles Nothing = [](std::string_view) { return std::nullopt; };

TEST(HighlightReader, SmallDefinitions) {
  tests::ExpectRead("highlight",
                    [](const auto& text, const auto& beside) { return ReadHighlight(text, "t.lang", beside); });
  const std::pair<const char*, const char*> cases[] = {
      {"Description='T'", "T .t numbers\n"},
      {"-- Author: Ann\n-- Licensed under X\nDescription=\"T\" IgnoreCase=true -- a\n--[[ b ]]",
       "T .t any case numbers [Ann] [Licensed under X]\n"},
      {"Keywords={}", "error 0: The file gives no \"Description\": it is no definition of highlight's.\n"},
      {"Description='T'\nKeywords={ {Id=1,\nList={'a', ", "error 3: The table that begins here never ends.\n"},
      {"Description='T'\nA='x\nB=1", "error 2: The text that begins here never ends.\n"},
      {"Description=[[T", "error 1: The text that begins here never ends.\n"},
      {"Description='T' --[[ x", "error 1: The comment that begins here never ends.\n"},
      {"Description='T'\nfunction f()\nif x then end", "error 2: The block that begins here never ends.\n"},
  };
  const NeighbourFiles types = [](std::string_view name) -> std::optional<std::string> {
    if (name != "filetypes.conf") return std::nullopt;
    return "FileMapping={ {Lang='c', Extensions={'x'}}, {Lang='t', Extensions={'ts','T2'}} }";
  };
  for (const auto& [text, read] : cases)
    EXPECT_EQ(tests::Describe(ReadHighlight(text, "t.lang", Nothing)), read) << text;
  EXPECT_EQ(ReadHighlight("Description='T'", "t.lang", types).Read.Extensions,
            (std::vector<std::string>{"t", "ts", "T2"}));
  EXPECT_EQ(ReadHighlight("Description='T' Identifiers=[[ [a-zA-Z_\\-][^+][\\w!]* ]]", "t.lang", types).Read.Delimeters,
            "\"#$%&'()*+,./:;<=>?@[\\]^`{|}~\t");
}

TEST(HighlightReader, WhatGrowsWithoutEndIsRefused) {
  std::string doubled = "Description='T'\na='" + std::string(1000, 'x') + "'\n", deep = "Description='T'\nt={}\n",
              shared = deep;
  for (int i = 0; i < 60; ++i) doubled += "a=a..a\n";
  for (int i = 0; i < 20000; ++i) deep += "t={t}\n";
  for (int i = 0; i < 20000; ++i) shared += "u={t} table.insert(t,u)\n";
  const NeighbourFiles itself = [](std::string_view) { return "dofile('me')\ndofile('me')"; };
  for (const std::string& text : {doubled, std::string("Description='T'\ndofile('me')")})
    EXPECT_EQ(ReadHighlight(text, "t.lang", itself).Error, "");
  const std::string open = "Description='T'\nt=" + std::string(100'000, '{');
  for (const std::string& text : {deep, shared, open})
    EXPECT_EQ(ReadHighlight(text, "t.lang", itself).Error, "Tables are nested more than 100 deep.");
}

TEST(RegexWords, ThoseThatCanBeCounted) {
  const struct {
    const char* Expression;
    std::vector<std::string> Words;
    bool Complete;
  } cases[] = {
      {" a|bc ", {"a", "bc"}, true},
      {"\\/\\*", {"/*"}, true},
      {"(?:end)?if", {"endif", "if"}, true},
      {"[a-c]x", {"ax", "bx", "cx"}, true},
      {"[]^-]", {"]", "^", "-"}, true},
      {"a{2}", {"aa"}, true},
      {"\\bfor\\b", {"for"}, true},
      {"(?!x)y(?<=z)", {"y"}, true},
      {"a\\s*b", {"ab"}, false},
      {"x|\\w+", {"x"}, false},
      {"[^a]", {}, false},
      {"[[:alpha:]]", {}, false},
      {"(a", {}, false},
      {"a)", {}, false},
      {"[ab", {}, false},
      {"\\", {}, false},
      {"a{99}", {}, false},
      {"\\bx.*$", {"x"}, true},
      {"", {}, true},
      {"((((a))))", {"a"}, true},
      {"{a}", {"{a}"}, true},
  };
  for (const auto& [expression, words, complete] : cases) {
    const RegexWords found = WordsOfRegex(expression);
    EXPECT_EQ(found.Words, words) << expression;
    EXPECT_EQ(found.Complete, complete) << expression;
  }
  EXPECT_TRUE(WordsOfRegex("^x.*").AtLineStart && WordsOfRegex("^x.*").ToLineEnd && WordsOfRegex("x(?!y)").Asserted);
  std::string wide = "a", deep(100'000, '(');
  for (int i = 0; i < 40; ++i) wide += "(?:b|c)";
  EXPECT_EQ(WordsOfRegex(wide).Words.size(), 0u);
  EXPECT_EQ(WordsOfRegex(deep).Words.size(), 0u);
}

}  // namespace
