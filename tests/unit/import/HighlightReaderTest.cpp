// Definitions of the program highlight: what is read of them, and that a hostile one costs no more than its size.

#include "import/HighlightReader.h"

#include <gtest/gtest.h>

#include <map>

#include "import/LuaTables.h"
#include "import/RegexWords.h"
#include "tests/unit/import/Describe.h"

namespace {

using namespace import;

NeighbourFiles Beside(std::map<std::string, std::string> files) {
  return [files = std::move(files)](std::string_view name) -> std::optional<std::string> {
    const auto place = files.find(std::string(name));
    return place == files.end() ? std::nullopt : std::optional(place->second);
  };
}

TEST(HighlightReader, SmallDefinitions) {
  const struct {
    const char* Text;
    const char* Read;
  } cases[] = {
      {"Description='T'", "T .t numbers\n"},
      {"-- Author: Ann\n-- Licensed under X\nDescription=\"T\" IgnoreCase=true -- a\n--[[ b ]]",
       "T .t any case numbers [Ann] [Licensed under X]\n"},
      {"Description=[==[T]==]\nKeywords={ {Id=1, List={'if', \"e\\108se\", 'true', 'int'}},\n {Id=2; List={[1]='a'}, "
       "},\n"
       "{Id=4, Regex=[[(\\w+)\\(]]}, {Id=2, List={'int','char','float'}}, {Id=5, Regex=[[ \\#(?:x|yz?) ]]} }",
       "T .t numbers\n3: if else true int\n4: a\n4: int char float\n6: #x #yz #y\n"
       "!4 A template has no patterns: (\\w+)\\(\n"},
      {"Description='T'\nComments={ {Block=true, Nested=true, Delimiter={[[\\/\\*]],[[\\*\\/]]}},\n"
       "{Block=false, Delimiter={ [[ \\-\\-(?!\\[)|\\# ]] }}, {Block=false, Delimiter={[[^;]]}}, {Block=false,\n"
       "Delimiter={[[^rem.*]]}}, {Block=true, Delimiter={'###'}} }",
       "T .t numbers\n1 /* */\n1 --\n1 #\n1 rem\n1 ### ###\n!2 Comments in this comment: the first end mark ends "
       "both.\n"
       "!3 The start of this comment is a pattern: ^;\n"
       "!3 This comment begins anywhere, not at the start of a line alone.\n"},
      {"Description='T'\nStrings={ Delimiter=[[ \"\"\"|\"|<<\\w+ ]], Escape=[[\"\"]],\n"
       "DelimiterPairs={ {Open=[[ \\[=*\\[ ]], Close=[[ \\]=*\\] ]]}, {Open=[[q[(<] ]], Close=[[ [)>] ]]} } }",
       "T .t no escapes numbers\n2 \"\"\" \"\"\"\n2 \" \"\n2 [[ ]]\n2 q( )\n2 q< >\n"
       "!2 Only the strings between fixed marks are carried over: \"\"\"|\"|<<\\w+\n"},
      {"Description='T'\nComments={{Block=true,Delimiter={'/\\\\*','\\\\*/'}}}\nPreProcessor={Prefix='#'}",
       "T .t numbers\n1 /* */\n6: #define #elif #elifdef #elifndef #else #endif #error #if #ifdef #ifndef #import "
       "#include "
       "#line #pragma #undef\n!3 Of a preprocessor line the directive alone is coloured.\n"},
      {"dofile(HL_LANG_DIR..\"base.lang\")\nDescription='T'\ntable.insert(Keywords, {Id=1, List={'b'}})\n"
       "dofile('../x')\nfunction f(a)\n if a then for i=1,2 do x() end end\nend\nlocal a = 1 + 2\nb = f(1)\n"
       "NestedSections={{Lang='php'}}",
       "T .t numbers\n3: a\n3: b\n!4 The file \"../x\" that is to be taken in cannot be read.\n"
       "!5 The function that begins here is not run.\n!8 This statement is not understood and left out.\n"
       "!9 This statement is not understood and left out.\n"
       "!10 Sections in another language (php) are not coloured as such.\n"},
      {"Keywords={}", "error 0: The file gives no \"Description\": it is no definition of highlight's.\n"},
      {"Description='T'\nKeywords={ {Id=1,\nList={'a', ", "error 3: The table that begins here never ends.\n"},
      {"Description='T'\nA='x\nB=1", "error 2: The text that begins here never ends.\n"},
      {"Description=[[T", "error 1: The text that begins here never ends.\n"},
      {"Description='T' --[[ x", "error 1: The comment that begins here never ends.\n"},
      {"Description='T'\nfunction f()\nif x then end", "error 2: The block that begins here never ends.\n"},
  };
  const NeighbourFiles files = Beside({{"base.lang", "Description='B'\nKeywords={{Id=1, List={'a'}}}"}});
  for (const auto& [text, read] : cases) EXPECT_EQ(tests::Describe(ReadHighlight(text, "t.lang", files)), read) << text;

  const NeighbourFiles types =
      Beside({{"filetypes.conf", "FileMapping={ {Lang='c', Extensions={'x'}}, {Lang='t', Extensions={'ts','T2'}} }"}});
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
