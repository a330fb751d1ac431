// Another program changes, replaces or removes the file of an open document.

#include <gtest/gtest.h>

#include "rich_text/TextDifference.h"
#include "tests/laws/Dice.h"
#include "tests/support/Characters.h"
#include "tests/support/DocumentFixture.h"

namespace {

using platform::PromptAnswer;
using tests::IsInside;

class FileOnDiskTest : public tests::DocumentFixture {
 protected:
  FileOnDiskTest() { m_document.OpenFile(m_path); }

  void Expect(const std::string& text, PromptAnswer byDefault, PromptAnswer answer) {
    m_frame.Questions.ExpectQuestion('"' + m_path + '"' + text, platform::PromptButtons::YesNo, byDefault, answer);
  }
  bool Save() { return m_document.SaveFile(m_path); }

  static constexpr const char* Changed = " has been changed by another program.";
  static constexpr const char* Gone = " has been deleted or moved by another program.  Save it again?";

  std::string m_path = m_folder.Write("file", "first\nline\n");
};

TEST_F(FileOnDiskTest, ReloadingIsAnEditOfWhatDiffers) {
  m_control.SetSelStart(2);
  m_document.CheckFile();
  m_folder.Write("file", "first\nother\nline\n");
  Expect(Changed + std::string("  Reload it?"), PromptAnswer::Yes, PromptAnswer::Yes);
  m_document.CheckFile();
  EXPECT_EQ(m_control.Text(), "first\nother\nline\n");
  EXPECT_EQ(m_control.SelStart(), 2u);
  EXPECT_TRUE(m_document.State().Saved);
  m_document.CheckFile();
  Append("mine");
  EXPECT_TRUE(Save()) << "nothing to ask after a reload";

  m_folder.Write("file", "caf\xE9\n");
  Append("!");
  Expect(Changed + std::string("  Reload it?  Your own changes, not saved yet, then come back with Undo."),
         PromptAnswer::No, PromptAnswer::Yes);
  m_document.CheckFile();
  EXPECT_EQ(m_control.Text(), "café\n");
  EXPECT_TRUE(Save());
  EXPECT_EQ(m_folder.Read("file"), "caf\xE9\n") << "the encoding is reloaded too";
  m_document.Undo();
  EXPECT_EQ(m_control.Text(), "first\nother\nline\nmine!");
  EXPECT_FALSE(m_document.State().Saved);
}

TEST_F(FileOnDiskTest, AnAnswerHoldsForOneStateOfTheFile) {
  m_folder.Write("file", "theirs");
  Expect(Changed + std::string("  Reload it?"), PromptAnswer::Yes, PromptAnswer::No);
  m_document.CheckFile();
  Append("!");
  m_document.Undo();
  EXPECT_FALSE(m_document.State().Saved) << "the text is in no file now";
  m_document.CheckFile();
  const std::string overwrite = Changed + std::string("  Overwrite it with the text of this window?");
  Expect(overwrite, PromptAnswer::No, PromptAnswer::No);
  EXPECT_FALSE(Save());
  m_document.Redo();
  m_document.Undo();
  EXPECT_FALSE(m_document.State().Saved);
  EXPECT_EQ(m_folder.Read("file"), "theirs");
  m_folder.Write("file", "theirs too");
  Expect(overwrite, PromptAnswer::No, PromptAnswer::No);
  EXPECT_FALSE(Save());
  m_document.CheckFile();  // the window becomes active when the question goes
  Expect(overwrite, PromptAnswer::No, PromptAnswer::Yes);
  EXPECT_TRUE(Save());
  EXPECT_EQ(m_folder.Read("file"), "first\nline\n");
  m_document.CheckFile();
  EXPECT_TRUE(Save());
}

TEST_F(FileOnDiskTest, OtherBytesOfTheSameNumberAndTimeAreAChange) {
  const auto time = std::filesystem::last_write_time(m_path);
  m_folder.Write("file", "other\nline\n");
  std::filesystem::last_write_time(m_path, time);
  Expect(Changed + std::string("  Reload it?"), PromptAnswer::Yes, PromptAnswer::Yes);
  m_document.CheckFile();
  EXPECT_EQ(m_control.Text(), "other\nline\n");
}

TEST_F(FileOnDiskTest, AnotherTimeOrInodeAloneIsNoChange) {
  m_folder.Write("copy", "first\nline\n");
  std::filesystem::rename(m_folder.Path("copy"), m_path);
  m_document.CheckFile();
  Append("!");
  m_folder.Write("file", "first\nline\n");
  EXPECT_TRUE(Save());
  EXPECT_EQ(m_folder.Read("file"), "first\nline\n!");
}

TEST_F(FileOnDiskTest, AFileThatIsGoneIsSavedAgainOrKeptInTheWindow) {
  std::filesystem::remove(m_path);
  Expect(Gone, PromptAnswer::Yes, PromptAnswer::No);
  m_document.CheckFile();
  EXPECT_FALSE(m_document.State().Saved);
  m_document.CheckFile();
  EXPECT_TRUE(Save()) << "the user knows already";
  std::filesystem::remove(m_path);
  Expect(Gone, PromptAnswer::Yes, PromptAnswer::No);
  EXPECT_FALSE(Save());
  EXPECT_FALSE(std::filesystem::exists(m_path));
  m_document.CheckFile();
  EXPECT_TRUE(Save());
  std::filesystem::remove(m_path);
  Expect(Gone, PromptAnswer::Yes, PromptAnswer::Yes);
  m_document.CheckFile();
  EXPECT_EQ(m_folder.Read("file"), "first\nline\n");
  EXPECT_TRUE(m_document.State().Saved);
}

TEST_F(FileOnDiskTest, SavingUnderAnotherNameAsksOnlyTheChooser) {
  const std::string other = m_folder.Write("other", "old");
  EXPECT_TRUE(m_document.SaveFile(other));
  EXPECT_EQ(m_folder.Read("other"), "first\nline\n");
  m_folder.Write("file", "theirs");
  m_document.CheckFile();  // is no longer this document's
}

TEST_F(FileOnDiskTest, ACopyThatABrokenSaveLeftIsTold) {
  const std::string copy = m_folder.Write("file.quillmark-backup", "whole");
  m_frame.Questions.Expect(
      {"A save of \"" + m_path + "\" was broken off.  What the file held before it is in \"" + copy + "\".",
       "Quillmark", platform::PromptButtons::Ok, platform::PromptIcon::Critical});
  m_document.OpenFile(m_path);
  EXPECT_EQ(m_frame.Questions.Unasked(), 0u);
}

TEST(TextDifference, RandomTextsDifferWhereTheRangeSays) {
  laws::Dice dice(11);
  for (int count = 0; count < 20'000; ++count) {
    const std::vector<std::string> pieces = tests::Split(count % 2 ? "a|b|\r|\n|\r\n" : "a|\r|\n|\r\n|é|è|€|😀|😁");
    const std::string a = dice.Text(pieces, 6), b = dice.Text(pieces, 6);
    const rich_text::TextDifference d = rich_text::DifferenceOf(a, b);
    std::string changed = a;
    changed.replace(d.Start, d.OldEnd - d.Start, b.substr(d.Start, d.NewEnd - d.Start));
    ASSERT_EQ(changed, b);
    ASSERT_EQ(d.IsEmpty(), a == b);
    ASSERT_FALSE(IsInside(a, d.Start) || IsInside(b, d.Start) || IsInside(a, d.OldEnd) || IsInside(b, d.NewEnd))
        << a << '|' << b;
  }
}

}  // namespace
