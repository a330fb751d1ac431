#include "settings/FileInfos.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/laws/Dice.h"
#include "tests/support/Characters.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/SourceFile.h"

namespace {

using namespace settings;

std::string RecordsOf(const std::string& text) {
  FileInfos records;
  ReadFileInfoText(text, records);
  std::string all;
  for (const auto& record : records.All())
    all += record->FileName + '<' + record->UsesSynonyms + '<' + record->UsesTemplate + ' ';
  return all;
}

TEST(FileInfos, TheFileIsWrittenToTheByteAndComesBack) {
  const tests::TemporaryFolder folder;
  tests::ScriptedPrompts prompts;
  FileInfos records, again;
  records.Put({"/a]b=;.js", "*none*", ""});
  records.Put({"C:\\x.js", "C:\\old.def", "s"});
  records.Put({"/line\nend", "t", ""});
  records.Put({"/\xC3\xBC", "/t.def", "/s.syn"});
  records.Put({"c:\\X.JS", "C:\\t.def", "s"});
  FileInfoFile(folder.Path(), records, prompts).WriteFileInfo();
  EXPECT_EQ(folder.Read("FileInfo.ini"), tests::SourceFile("tests/unit/settings/cases/FileInfo.ini"));
  FileInfoFile(folder.Path(), again, prompts).ReadFileInfo();
  EXPECT_EQ(WriteFileInfoText(again), folder.Read("FileInfo.ini"));
  EXPECT_EQ(again.Find("C:\\x.JS")->UsesTemplate, "C:\\t.def");
  EXPECT_EQ(again.Find("/\xFF"), nullptr);
}

TEST(FileInfos, HandWrittenSectionsNeverCostAnotherItsRecord) {
  const struct {
    const char *Text, *Records;
  } cases[] = {
      {"", ""},
      {"Synonyms=s\nTemplate=t\n", ""},
      {"[a]\n\n;x\nSynonyms=s\n synonyms=\nsynonyms=y\n;y\nTemplate=t", "a<s<t "},
      {"[a]\rTemplate=x\rSynonyms=s\r[b]\rSynonyms=u\rTemplate=y\r", "a<s<y b<u<y "},
      {"[b]\nSynonyms=u\nTemplate=y\n[a]\nTemplate=x\nSynonyms=s\n", "b<u<y a<s<x "},
      {"[b]\nSynonyms=u\nTemplate=y\n[a]\nSynonyms=s", "b<u<y a<s< "},
      {"[b]\nSynonyms=u\nTemplate=y\n[a]\n[c]\nTemplate=t\n", "b<u<y c<<t "},
      {"[a]\nSynonyms=s\nTemplate=x\n[b]\nSynonyms=\nTemplate=\n[A]\nSynonyms=u\nTemplate=y\n", "b<< A<u<y "},
      {"[]\nSynonyms=s\nTemplate=x\n[\nSynonyms=s\nTemplate=x\n", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(RecordsOf(c.Text), c.Records) << c.Text;
}

// The plain reader: from each header on, the first "Synonyms=" and the first "Template=" behind it.
TEST(FileInfos, AnyOrderOfLinesIsReadAsThePlainReaderDoes) {
  laws::Dice dice(3);
  for (int round = 0; round < 2000; ++round) {
    std::vector<std::string> lines;
    for (std::size_t n = dice.Below(14); n > 0; --n) {
      const std::string number = std::to_string(lines.size());
      lines.push_back(
          dice.Pick(tests::Split("[f" + number + "]|Synonyms=s" + number + "|Template=t" + number + "|;|")));
    }
    lines.insert(lines.end(), {"[end]", "Synonyms=s", "Template=t"});  // so that no section is cut off
    std::string text, expected;
    for (const std::string& line : lines) text += line + "\r\n";
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (lines[i][0] != '[') continue;
      std::size_t s = i, t = 0;
      while (lines[s].find("Syn") != 0) ++s;
      for (t = s; lines[t].find("Tem") != 0;) ++t;
      expected += lines[i].substr(1, lines[i].size() - 2) + '<' + lines[s].substr(9) + '<' + lines[t].substr(9) + ' ';
    }
    ASSERT_EQ(RecordsOf(text), expected) << text;
  }
}

TEST(FileInfos, AClosingDocumentIsRecordedWhenThereIsAnythingToRemember) {
  FileInfos records;
  RecordClosing(records, {"", "/s.syn", "/t.def", true});
  RecordClosing(records, {"/a", "", "/t.def", false});
  EXPECT_TRUE(records.All().Empty());
  RecordClosing(records, {"/a", "", "", true});
  RecordClosing(records, {"/b", "/s.syn", "/t.def", false});
  RecordClosing(records, {"/A", "/z.syn", "*none*", false});
  EXPECT_EQ(RecordsOf(WriteFileInfoText(records)), "/b</s.syn</t.def /A</z.syn<*none* ");
}

TEST(FileInfos, AFileThatCannotBeReadOrWrittenIsToldAndStays) {
  const tests::TemporaryFolder folder;
  tests::ScriptedPrompts prompts;
  FileInfos records;
  const std::string path = folder.Path("FileInfo.ini");
  FileInfoFile missing(folder.Path(), records, prompts);
  missing.ReadFileInfo();
  folder.SetMode("", 0555);
  {
    const tests::OrdinaryUser user;
    prompts.Expect(
        {.Text = "Could not save " + path + "\n\nPermission denied", .Icon = platform::PromptIcon::Critical});
    missing.WriteFileInfo();
  }
  folder.SetMode("", 0755);
  std::filesystem::create_directory(path);
  prompts.Expect({.Text = "Could not read " + path + "\n\nit is a folder", .Icon = platform::PromptIcon::Critical});
  FileInfoFile folderInstead(folder.Path(), records, prompts);
  folderInstead.ReadFileInfo();
  folderInstead.WriteFileInfo();  // silently: it was told
}

}  // namespace
