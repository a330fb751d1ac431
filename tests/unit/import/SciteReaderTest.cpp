// Property files of SciTE: what is read of them, and that a hostile one costs no more than its size.

#include "import/SciteReader.h"

#include <gtest/gtest.h>

#include "import/Properties.h"
#include "tests/unit/import/Describe.h"

namespace {

using namespace import;

std::optional<std::string> Beside(std::string_view name) {
  if (name == "SciTEGlobal.properties") return "chars.alpha=abc\nimport *\n";
  if (name == "loop.properties") return "import loop\nimport loop";
  return std::nullopt;
}

TEST(SciteReader, SmallDefinitions) {
  tests::ExpectRead("scite",
                    [](const auto& text, const auto& beside) { return ReadScite(text, "t.properties", "", beside); });
  const struct {
    const char* Language;
    const char* Text;
    const char* Read;
  } cases[] = {
      {"", "lexer.*.t=conf\r\nkeywords.*.t=if \\\r\n  else$(none)\r\nkeywords2.*.t=on\r\n",
       "t .t any case numbers\n1 #\n2 \" \"\n3: if else\n5: on\n"},
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
