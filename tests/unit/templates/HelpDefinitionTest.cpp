#include "templates/HelpDefinition.h"

#include <gtest/gtest.h>

namespace {

using namespace templates;

std::string Entries(const std::string& text) {
  KeyedCollection<HelpWord> words;
  ReadHelpDefinitionText(text, words);
  std::string entries;
  for (const auto& word : words) entries += '[' + word->Word + '|' + word->CommandLine + '|' + word->Name + ']';
  return entries;
}

TEST(HelpDefinition, Entries) {
  const std::string head = "Quillmark Help Definition File\r\nfree\r\n\r\nPre : <\r\nSuf : >\r\n";
  const struct {
    const char *Table, *Entries;
  } cases[] = {
      {"", ""},
      {"a,b,c\r\n", "[a|<b>|c]"},
      {"a,b,c\nd,e,f", "[a|<b>|c][d|<e>|f]"},
      {"a,1,x\ra,2,y\r", "[a|<1>|x][a|<2>|y]"},
      {"  a b ,  c, d \n", "[a b |<c>|d ]"},
      {"\"a,b\", \"c \" ,\"\"\n", "[a,b|<c >|]"},
      {"\ta,b,c\n", "[\ta|<b>|c]"},
      {"a\n\nb\nc\n", "[a|<b>|c]"},
      {"a,,\nb,,\n", "[a|<>|][b|<>|]"},
      {"\n\na,b,c\n   \nd,e,f\n\n", "[a|<b>|c][d|<e>|f]"},
      {"a,b,c\nd,e\n", "[a|<b>|c]"},
      {"\"open, b\nc\nd\n", "[open, b|<c>|d]"},
      {"a,b,c\n==END==,==END==,==END==\nd,e,f\n", "[a|<b>|c]"},
      {"==END==,==END==,x\n==end==,==END==,==END==\n", "[==END==|<==END==>|x][==end==|<==END==>|==END==]"},
      {";a,b,c\n", "[;a|<b>|c]"},
  };
  for (const auto& c : cases) EXPECT_EQ(Entries(head + c.Table), c.Entries) << c.Table;
}

TEST(HelpDefinition, HeaderLinesByCharacters) {
  EXPECT_EQ(Entries("quillmark help definition file\n\n\n      <\n      >\na,b,c\n"), "");
  EXPECT_EQ(Entries("Quillmark Help Definition File \n\n\n      <\n      >\na,b,c\n"), "");
  EXPECT_EQ(
      Entries("Quillmark Help Definition File\n\n\n\xC3\xBC\xC3\xBC\xC3\xBC\xC3\xBC\xC3\xBC\xC3\xBC<\nshort\na,b,c\n"),
      "[a|<b|c]");
  EXPECT_EQ(Entries("Quillmark Help Definition File\n\n\nsix456"), "");
}

TEST(HelpDefinition, DerivedName) {
  EXPECT_EQ(DerivedHelpFile("/a.b/c.d.def"), "c.d.hdf");
  EXPECT_EQ(DerivedHelpFile("C:\\x\\c.def"), "c.hdf");
  EXPECT_EQ(DerivedHelpFile("/a.b/c"), "c.hdf");
}

}  // namespace
