#include <gtest/gtest.h>

#include <map>
#include <string>

#include "settings/RegistryFile.h"
#include "settings/RegistryText.h"
#include "tests/laws/Dice.h"
#include "tests/support/Characters.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/SourceFile.h"

namespace {

using namespace settings;
using platform::RegistryResult;
using platform::RegistryType;
using platform::RegistryValue;

const std::string FirstLine = "Windows Registry Editor Version 5.00\r\n\r\n";

const std::string Sample = tests::SourceFile("tests/unit/settings/cases/exported.reg");

RegistryValue Text(std::string text) {
  return {RegistryType::String, std::move(text)};
}

TEST(Registry, ExportedTextIsReadAndComesBackByteForByte) {
  RegistryText text;
  text.Read(Sample);
  EXPECT_TRUE(text.Damages().empty());
  EXPECT_EQ(text.Write(), Sample);
  RegistryTextKey* key = text.Find("hkey_current_user\\SOFTWARE\\a");
  ASSERT_NE(key, nullptr);
  EXPECT_EQ(key->Find("")->Content, Text("3.0"));
  EXPECT_EQ(key->Find("PATH")->Content, Text("C:\\a \"b\"\\"));
  EXPECT_EQ(key->Find("bytes")->Content, (RegistryValue{RegistryType::Binary, std::string("\0\xFF\x10", 3)}));
  EXPECT_EQ(key->Find("expand")->Content, Text("\xC3\xA4\xF0\x9F\x98\x80"));
  EXPECT_EQ(key->Find("number")->Content.Type, RegistryType::Other);

  // A change touches its own line alone.
  key->Set("Path", Text("x"));
  std::string expected = Sample;
  expected.replace(expected.find("\"C:"), 15, "\"x\"");
  EXPECT_EQ(text.Write(), expected);
  text.Remove("HKEY_CURRENT_USER\\software\\A");
  EXPECT_EQ(text.Write(), FirstLine + Sample.substr(Sample.find("[HKEY_LOCAL")));
}

TEST(Registry, NewBinariesAreBrokenAtEightyColumns) {
  RegistryText text;
  text.Create("K").Set("Bytes", {RegistryType::Binary, std::string(50, '\x5A')});
  const auto bytes = [](int count) {
    std::string all;
    while (count-- > 0) all += "5a,";
    return all;
  };
  EXPECT_EQ(text.Write(),
            FirstLine + "[K]\r\n\"Bytes\"=hex:" + bytes(22) + "\\\r\n  " + bytes(25) + "\\\r\n  5a,5a,5a\r\n\r\n");
}

TEST(Registry, ADamagedLineIsToldAndTheLinesAroundItCount) {
  const struct {
    const char *Line, *Damage;
  } cases[] = {{"nonsense", "line 4: this is neither a key nor a value"},
               {"\"a", "line 4: the name's closing quote is missing"},
               {"\"a\":1", "line 4: \"=\" is missing behind the name"},
               {"\"a\"=\"b\\\"", "line 4: the closing quote is missing"},
               {"\"a\"=\"b\" c", "line 4: something stands behind the closing quote"},
               {"\"a\"=hex:0g", "line 4: a byte is no pair of hexadecimal digits"},
               {"\"a\"=hex:01,\\", nullptr},
               {"\"a\"=-", "line 4: there is no value"},
               {"[-HKEY_CURRENT_USER\\K]", "line 4: this is no key; the values below it are left out"}};
  for (const auto& c : cases) {
    RegistryText text;
    text.Read(FirstLine + "[K]\r\n" + c.Line + "\r\n\"z\"=\"1\"\r\n[L]\n\"y\"=\"2\"");
    if (c.Damage) {
      EXPECT_EQ(text.Damages().at(0), c.Damage);
    }
    EXPECT_EQ(text.Find("K")->Find("z") != nullptr, c.Line[0] != '[') << c.Line;
    EXPECT_EQ(text.Find("L")->Find("y")->Content, Text("2")) << c.Line;
  }
}

TEST(Registry, AnyTextAndBytesComeBack) {
  laws::Dice dice(7);
  const std::vector<std::string> pieces = tests::Split("\\|\"|=|,|;|[| |a|ü|😀|hex:");
  std::vector<std::string> withLineEnds = pieces;
  withLineEnds.insert(withLineEnds.end(), {"\r\n", "\n", std::string(1, '\0')});
  for (int round = 0; round < 500; ++round) {
    RegistryText written, read;
    std::map<std::string, RegistryValue> expected;
    for (int i = 0; i < 5; ++i) {
      const std::string name = dice.Text(pieces, 11);
      std::string data = dice.Text(withLineEnds, 11);
      if (data.ends_with('\0')) data += 'x';
      expected[name] = {i % 2 ? RegistryType::Binary : RegistryType::String, data};
      written.Create("K").Set(name, expected[name]);
    }
    read.Read(written.Write());
    ASSERT_TRUE(read.Damages().empty()) << read.Damages()[0] << "\n" << written.Write();
    for (const auto& [name, value] : expected) ASSERT_EQ(read.Find("K")->Find(name)->Content, value) << written.Write();
    ASSERT_EQ(read.Write(), written.Write());
  }
}

TEST(RegistryFile, KeysAreMadeListedAndRemoved) {
  const tests::TemporaryFolder folder;
  RegistryFile file(folder.Path("new/folder/registry.reg"));
  EXPECT_EQ(file.OpenKey("A"), RegistryResult::FileNotFound);
  EXPECT_EQ(file.SetValue("A\\B", "x", Text("1")), RegistryResult::FileNotFound);
  EXPECT_TRUE(file.CreateKey("A\\B").NewlyCreated);
  EXPECT_FALSE(file.CreateKey("a").NewlyCreated);
  file.SetValue("A\\B", "long name", Text("1234"));
  file.SetValue("A\\B", "x", Text("2"));
  file.SetValue("a\\b", "X", Text("3"));
  const auto info = file.QueryValueInfo("A\\B");
  EXPECT_EQ(info.Count, 2U);
  EXPECT_EQ(info.LongestName, 10U);
  EXPECT_EQ(info.LongestData, 4U);
  std::string name;
  RegistryValue value;
  EXPECT_EQ(file.EnumValue("A\\B", 1, name, value), RegistryResult::Success);
  EXPECT_EQ(name + value.Data, "x3");
  EXPECT_EQ(file.EnumValue("A\\B", 2, name, value), RegistryResult::NoMoreItems);
  EXPECT_EQ(file.SetValue("A\\B", "a\nb", Text("")), RegistryResult::InvalidParameter);
  EXPECT_EQ(file.Flush(), "");
  EXPECT_EQ(RegistryFile(folder.Path("new/folder/registry.reg")).QueryValue("A\\B", "X", value),
            RegistryResult::Success);
  EXPECT_EQ(file.DeleteKey("A"), RegistryResult::Success);
  EXPECT_EQ(file.OpenKey("A\\B"), RegistryResult::FileNotFound);
}

TEST(RegistryFile, TheOldFileStaysWholeWhenWritingFailsAndIsKeptWhenItWasDamaged) {
  const tests::TemporaryFolder folder;
  const std::string path = folder.Write("sub/registry.reg", "rubbish\r\n" + Sample.substr(FirstLine.size()));
  RegistryFile file(path);
  ASSERT_EQ(file.Damages().size(), 1U);
  EXPECT_EQ(file.Damages()[0], path + ", line 1: the format's first line is missing");
  const std::string old = folder.Read("sub/registry.reg");
  EXPECT_EQ(file.CreateKey("New").Result, RegistryResult::Success);
  folder.SetMode("sub", 0555);
  {
    const tests::OrdinaryUser user;
    EXPECT_EQ(file.Flush(), path + ".damaged: Permission denied");
  }
  EXPECT_EQ(folder.Read("sub/registry.reg"), old);
  folder.SetMode("sub", 0755);
  EXPECT_EQ(file.Flush(), "");
  EXPECT_EQ(folder.Read("sub/registry.reg.damaged"), old);
  EXPECT_EQ(RegistryFile(path).OpenKey("New"), RegistryResult::Success);
  EXPECT_TRUE(RegistryFile(path).Damages().empty());
}

TEST(RegistryFile, WhatCannotBeReadIsNotWritten) {
  const tests::TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path("registry.reg"));
  RegistryFile file(folder.Path("registry.reg"));
  EXPECT_EQ(file.OpenKey("A"), RegistryResult::AccessDenied);
  EXPECT_EQ(file.CreateKey("A").Result, RegistryResult::AccessDenied);
  EXPECT_EQ(file.Flush(), folder.Path("registry.reg") + ": it is not a regular file");
}

TEST(RegistryFile, AnExportInSixteenBitCharactersIsTaken) {
  const tests::TemporaryFolder folder;
  const RegistryFile file(folder.Write("registry.reg", "\xFF\xFE" + ToUtf16(Sample)));
  RegistryValue value;
  EXPECT_EQ(file.QueryValue("Software\\A", "path", value), RegistryResult::Success);
  EXPECT_EQ(value, Text("C:\\a \"b\"\\"));
  EXPECT_TRUE(file.Damages().empty());
}

}  // namespace
