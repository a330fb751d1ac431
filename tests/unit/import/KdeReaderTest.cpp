// KDE's definitions: what is read of them, and that a hostile one costs no more than its size.

#include "import/KdeReader.h"

#include <gtest/gtest.h>

#include "import/Xml.h"
#include "platform/Files.h"
#include "tests/unit/import/Describe.h"

namespace {

using namespace import;

/// A definition around its lists and contexts.
std::string Whole(const std::string& highlighting, const std::string& general = "") {
  return "<language name='T'><highlighting>" + highlighting +
         "<itemDatas><itemData name='K' defStyleNum='dsKeyword'/><itemData name='S' defStyleNum='dsString'/><itemData "
         "name='N' defStyleNum='dsNormal'/></itemDatas></highlighting>" +
         general + "</language>";
}

const NeighbourFiles Nothing = [](std::string_view) { return std::nullopt; };

TEST(KdeReader, SmallDefinitions) {
  tests::ExpectRead("kde", [](const auto& text, const auto& beside) { return ReadKde(text, "t.xml", beside); });
  const std::pair<const char*, const char*> cases[] = {
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
  for (const auto& [text, read] : cases) EXPECT_EQ(tests::Describe(ReadKde(text, "t.xml", Nothing)), read) << text;
  const std::string weak = Whole("", "<general><keywords weakDeliminator='-.' additionalDeliminator='$#'/></general>");
  EXPECT_EQ(ReadKde(weak, "t.xml", Nothing).Read.Delimeters, "():!+,<=>%&*/;?[]^{|}~\\\t\"'`$#");
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
      "<list name='l'><include>l</include><include>l##T</include><item>w</item></list><contexts><context name='a' "
      "attribute='N'><keyword String='l' attribute='K'/><IncludeRules context='a'/><IncludeRules context='##T'/>"
      "<DetectChar char='&quot;' attribute='S' context='s'/></context><context name='s' attribute='S' "
      "fallthroughContext='s'><IncludeRules context='s'/></context></contexts>");
  EXPECT_EQ(ReadKde(itself, "t.xml", [&](std::string_view) { return itself; }).Error, "");
}

}  // namespace
