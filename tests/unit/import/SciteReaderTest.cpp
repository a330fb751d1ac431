// Property files of SciTE: what is read of them, and that a hostile one costs no more than its size.

#include "import/SciteReader.h"

#include <gtest/gtest.h>

#include "import/Properties.h"
#include "tests/unit/import/Describe.h"

namespace {

using namespace import;

std::optional<std::string> Beside(std::string_view name) {
  if (name == "more.properties") return "keywordclass.more=while";
  if (name == "SciTEGlobal.properties") return "chars.alpha=abc\nimport *\n";
  if (name == "loop.properties") return "import loop\nimport loop";
  return std::nullopt;
}

TEST(SciteReader, SmallDefinitions) {
  const struct {
    const char* Language;
    const char* Text;
    const char* Read;
  } cases[] = {
      {"",
       "file.patterns.t=*.t;Tfile;*.u;.trc;T*;*.a.b\nfilter.t=The T (t "
       "u)|$(file.patterns.t)|\nlexer.$(file.patterns.t)=rust\n",
       "The T .t .u .Tfile .trc numbers\n1 //\n1 /* */\n2 \" \"\n"
       "!3 A template is not found by these patterns: T*, *.a.b.\n"},
      {"", "lexer.*.t=conf\r\nkeywords.*.t=if \\\r\n  else$(none)\r\nkeywords2.*.t=on\r\n",
       "t .t any case numbers\n1 #\n2 \" \"\n3: if else\n5: on\n"},
      {"",
       "file.patterns.t=*.t\nfile.patterns.all=*.u;$(file.patterns.t)\nlexer.$(file.patterns.t)=cpp\nimport more\n"
       "keywordclass.t=if $(keywordclass.$(which))\nwhich=more\nif PLAT_WIN\n\tkeywordclass.t=no\nif PLAT_GTK\n"
       "\tkeywords2.$(file.patterns.all)=T\nkeywords.$(file.patterns.t)=$(keywordclass.t)\n"
       "keywords3.$(file.patterns.all)=param",
       "t .t numbers\n1 //\n1 /* */\n2 \" \"\n2 ' '\n2 ` `\n6: #define #elif #elifdef #elifndef #else #endif #error "
       "#if #ifdef "
       "#ifndef #import #include #line #pragma #undef\n3: if while\n4: T\n"
       "!12 These words have a colour inside comments, or scripts, alone: param, …\n"},
      {"",
       "lexer.*.t=mine\ncomment.block.mine=$(mark)~\nmark=@@\ncomment.stream.start.mine=(*\ncomment.stream.end.mine=*)"
       "\n"
       "keywords2.*.t=int char long\nimport nowhere\nmatch *.x\n\tlexer.*.y=mine",
       "t .t numbers\n1 @@\n1 (* *)\n2 \" \"\n4: int char long\n"
       "!7 The file \"nowhere.properties\" that is to be taken in cannot be read.\n"
       "!8 Settings for files of some names alone are left out.\n"
       "!1 The lexer \"mine\" is not known: strings between double quotes and exact letter case are a guess.\n"},
      {"", "lexer.*.a=conf\nlexer.*.t=props\nlexer.*.c=tex\nlexer.json.allow=1",
       "t .t numbers\n1 #\n!0 The file has other languages, for --language: a, c.\n"},
      {"c", "lexer.*.a=conf\nlexer.*.c=tex\nkeywords.*.c=above", "c .c numbers\n1 %\n3: \\above\n"},
      {"h", "file.patterns.x=*.htm;*.h\nlexer.$(file.patterns.x)=hypertext\nkeywords.$(file.patterns.x)=a br",
       "x .htm .h any case no escapes numbers\n1 <!-- -->\n2 \" \"\n2 ' '\n3: </a <a </br <br\n"
       "!2 Elements are coloured as such, names of attributes are not.\n"},
      {"none", "lexer.*.a=conf", "error 0: The file has no language \"none\".\n"},
      {"", "a=b", "error 0: The file names no lexer for any files: it defines no language.\n"},
  };
  for (const auto& [language, text, read] : cases)
    EXPECT_EQ(tests::Describe(ReadScite(text, "t.properties", language, Beside)), read) << text;
  EXPECT_EQ(
      ReadScite("lexer.*.t=conf\nword.characters.*.t=$(chars.alpha)-", "t.properties", "", Beside).Read.Delimeters,
      DelimetersBut("-"));
}

TEST(SciteReader, WhatGrowsWithoutEndIsCutOff) {
  std::string doubled = "a0=" + std::string(100, 'x') + '\n', empty = "a0=\n";
  for (int i = 1; i < 60; ++i) {
    const std::string line =
        'a' + std::to_string(i) + "=$(a" + std::to_string(i - 1) + ")$(a" + std::to_string(i - 1) + ")\n";
    doubled += line, empty += line;
  }
  Properties properties;
  for (const std::string& text : {doubled, empty, std::string("b=$(b)$(b)\nimport loop\n")})
    properties.Read(text, "x", Beside);
  EXPECT_LE(properties.Expand("$(a59)").size(), MostBytes);
  EXPECT_LE(properties.Expand("$(b)" + std::string(100'000, '$')).size(), MostBytes);
  EXPECT_EQ(Properties().Expand(std::string(200'000, 'x') + "$(y"), std::string(200'000, 'x'));
  std::string nested;
  for (int i = 0; i < 100'000; ++i) nested += "$(";
  EXPECT_EQ(properties.Expand(nested), "");
}

}  // namespace
