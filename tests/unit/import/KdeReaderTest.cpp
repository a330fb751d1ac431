// KDE's definitions: what is read of them, and that a hostile one costs no more than its size.

#include "import/KdeReader.h"

#include <gtest/gtest.h>

#include "import/Xml.h"
#include "platform/Files.h"
#include "tests/unit/import/Describe.h"

namespace {

using namespace import;

constexpr const char* Items =
    "<itemDatas><itemData name='K' defStyleNum='dsKeyword'/><itemData name='S' defStyleNum='dsString'/><itemData "
    "name='C' "
    "defStyleNum='dsComment'/><itemData name='P' defStyleNum='dsPreprocessor'/><itemData name='D' "
    "defStyleNum='dsDecVal'/><itemData name='T' defStyleNum='DataType'/><itemData name='N' "
    "defStyleNum='dsNormal'/></itemDatas>";

/// A definition around the contexts and lists of a case.
std::string Whole(const std::string& head, const std::string& highlighting, const std::string& general = "") {
  return "<!DOCTYPE language [<!ENTITY ab 'a&b;'><!ENTITY b 'b'>]><language name='T' " + head + "><highlighting>" +
         highlighting + Items + "</highlighting>" + general + "</language>";
}

std::optional<std::string> Beside(std::string_view name) {
  if (name == "cpp.xml")
    return "<language name='C++'><highlighting><list name='l'><item>x1</item></list><contexts><context name='a' "
           "attribute='N'><keyword String='l' attribute='K'/></context></contexts>" +
           std::string(Items) + "</highlighting></language>";
  return std::nullopt;
}

TEST(KdeReader, SmallDefinitions) {
  const struct {
    std::string Text;
    const char* Read;
  } cases[] = {
      {Whole("version='2' author='A' license='MIT' extensions='*.t; *.u;Tfile;*.t.in'", ""),
       "T .t .u .Tfile [2] [A] [MIT]\n!1 A template is not found by these patterns: *.t.in.\n"},
      {Whole("",
             "<list name='l'><item>&ab;</item><item> c\n</item><include>m</include><include>l##C++</include></list>"
             "<list name='m'><item><![CDATA[<d>]]></item></list><contexts><context name='a' attribute='N'>"
             "<keyword String='l' attribute='K' context='b'/><Int attribute='D' context='n'/>"
             "<IncludeRules context='##C++'/><IncludeRules context='##None'/></context>"
             "<context name='b' attribute='N'><WordDetect String='e' attribute='T'/><RegExpr attribute='K' "
             "String='\\b(?:f|gh)\\b'/><RegExpr attribute='K' String='\\w+'/><keyword String='l' attribute='T'/>"
             "<IncludeRules context='##C++'/></context>"
             "<context name='n' attribute='N'><keyword String='m' attribute='K'/></context>"
             "<context name='never' attribute='N'><keyword String='m' attribute='K'/></context></contexts>",
             "<general><keywords casesensitive='0'/></general>"),
       "T any case numbers\n3: ab c <d> x1\n4: e\n3: f gh\n3: x1\n"
       "!2 The rules of the definition \"None\" are not beside the file.\n"
       "!2 Words that only patterns tell are not coloured, this one among them.\n"
       "!2 Sections in another language (C++) are not coloured as such.\n"},
      {Whole(
           "",
           "<contexts><context name='a' attribute='N'><DetectChar char='&quot;' attribute='S' context='s'/>"
           "<StringDetect String='u8&quot;' attribute='S' context='s'/><RangeDetect char=\"'\" char1=\"'\" "
           "attribute='S'/>"
           "<Detect2Chars char='/' char1='*' attribute='C' context='c'/><RegExpr String='--\\[(=*)\\[' context='d'/>"
           "<DetectChar char='/' attribute='S' context='r'/><DetectChar char='*' column='0' context='e' attribute='C'/>"
           "<Detect2Chars char='#' char1='!' context='e'/></context>"
           "<context name='s' attribute='S' lineEndContext='#pop'><IncludeRules context='i'/></context>"
           "<context name='i' attribute='S'><DetectChar char='&quot;' context='#pop!x' attribute='S'/></context>"
           "<context name='c' attribute='C'><Detect2Chars char='*' char1='/' context='#pop'/></context>"
           "<context name='d' attribute='C'><StringDetect String=']%1]' dynamic='true' context='#pop#pop'/></context>"
           "<context name='r' attribute='S'><DetectChar char='/' context='#pop'/></context>"
           "<context name='e' attribute='C' lineEndContext='#pop'><keyword String='l' "
           "attribute='K'/></context></contexts>",
           "<general><comments><comment name='singleLine' start='//'/><comment name='multiLine' start='/*' end='*/'/>"
           "</comments></general>"),
       "T\n1 //\n1 /* */\n2 \" \"\n2 ' '\n1 --[[ ]]\n1 #!\n"
       "!1 The mark \"/\" begins a comment or a string in some places alone; it is left out.\n"
       "!1 The mark \"*\" begins a comment or a string in some places alone; it is left out.\n"},
      {Whole("",
             "<contexts><context name='a' attribute='N'><DetectChar char='#' attribute='P' context='p'/></context>"
             "<context name='p' attribute='P'><RegExpr attribute='P' String='\\s*(?:define|un?def)(?=\\s)'/>"
             "<WordDetect String='if' attribute='K'/></context></contexts>"),
       "T\n6: #define #undef #udef\n"},
      {"<language name='T'/>",
       "error 1: The file is no syntax definition: there is no <language> with <highlighting>.\n"},
      {"\n<a>\n<b></a>", "error 3: The element \"b\" is not the one that is closed here.\n"},
      {"<a>\n<b x='", "error 2: The value that begins here never ends.\n"},
      {"<a>\n<b x", "error 2: The element \"b\" has an attribute without a value.\n"},
      {"<a>\n", "error 2: The element \"a\" is never closed.\n"},
      {"<a>\n&x;</a>", "error 1: The entity \"x\" is not declared in the file; none is fetched.\n"},
      {"<!DOCTYPE a [<!ENTITY x SYSTEM 'file:///etc/passwd'>]><a>&x;</a>",
       "error 1: The entity \"x\" is not declared in the file; none is fetched.\n"},
      {"<!DOCTYPE a [<!ENTITY x '&x;'>]><a>&x;</a>", "error 1: The entities stand for too much text.\n"},
      {"<a>&#xD800;</a>", "error 1: A number stands for no character.\n"},
      {"<!-- \n", "error 1: The comment that begins here never ends.\n"},
      {"text", "error 1: The file is no XML: an element was expected here.\n"},
      {"", "error 1: The file is no XML: an element was expected here.\n"},
  };
  for (const auto& [text, read] : cases) EXPECT_EQ(tests::Describe(ReadKde(text, "t.xml", Beside)), read) << text;
  const std::string weak =
      Whole("", "", "<general><keywords weakDeliminator='-.' additionalDeliminator='$#'/></general>");
  EXPECT_EQ(ReadKde(weak, "t.xml", Beside).Read.Delimeters, "():!+,<=>%&*/;?[]^{|}~\\\t\"'`$#");
}

TEST(KdeReader, WhatGrowsWithoutEndIsRefused) {
  std::string entities = "<!DOCTYPE a [<!ENTITY e0 'xxxxxxxxxx'>", empty = "<!DOCTYPE a [<!ENTITY e0 ''>", deep;
  for (int i = 1; i < 40; ++i) {
    const std::string before = "&e" + std::to_string(i - 1) + ';';
    const std::string entity = "<!ENTITY e" + std::to_string(i) + " '" + before + before + "'>";
    entities += entity, empty += entity;
  }
  for (int i = 0; i < 100'000; ++i) deep += "<a>";
  for (const std::string& text : {entities + "]><a>&e39;</a>", empty + "]><a>&e39;</a>"})
    EXPECT_EQ(ReadXml(text).Error, "The entities stand for too much text.");
  EXPECT_EQ(ReadXml(deep).Error, "Elements are nested more than 100 deep.");

  // Definitions and lists that include themselves.
  const std::string itself = Whole(
      "",
      "<list name='l'><include>l</include><include>l##T</include><item>w</item></list><contexts><context name='a' "
      "attribute='N'><keyword String='l' attribute='K'/><IncludeRules context='a'/><IncludeRules context='##T'/>"
      "<DetectChar char='&quot;' attribute='S' context='s'/></context><context name='s' attribute='S' "
      "fallthroughContext='s'><IncludeRules context='s'/></context></contexts>");
  EXPECT_EQ(ReadKde(itself, "t.xml", [&](std::string_view) { return itself; }).Error, "");
}

}  // namespace
