// A document is opened, edited, saved and closed.

#include <gtest/gtest.h>

#include "editor/rtfscan/Scanners.h"
#include "tests/support/Characters.h"
#include "tests/support/DocumentFixture.h"
#include "tests/support/UntouchedFiles.h"

namespace {

using platform::PromptAnswer;
using platform::PromptButtons;
using platform::PromptIcon;

platform::MessageBox Critical(const std::string& text) {
  return {text, "Quillmark", PromptButtons::Ok, PromptIcon::Critical, PromptAnswer::Ok};
}

using DocumentFileTest = tests::DocumentFixture;

TEST_F(DocumentFileTest, AnyFileSavedUntouchedIsTheSameFile) {
  tests::ExpectUntouchedFilesStay(m_document, m_folder, 4000);
}

TEST_F(DocumentFileTest, OpeningShowsTheFile) {
  const std::string path = Open("one\ntwo\n");
  EXPECT_EQ(State().CurFileName, path);
  EXPECT_EQ(m_window.Title, "file.txt");
  EXPECT_EQ(State().LineCount, 3u);
  EXPECT_FALSE(State().DontChange);
  EXPECT_GE(m_frame.TabUpdates, 1);
  EXPECT_EQ(m_frame.Bar.Panels,
            (decltype(m_frame.Bar.Panels){
                {"CoOrds", "(Line 1, Col 1)"}, {"DocSize", "3 Lines"}, {"Template", "Using '<none>' Template"}}));
}

TEST_F(DocumentFileTest, ALargeFileIsReadWhileTheControlMakesRoom) {
  Open("small");
  EXPECT_EQ(m_control.Reserved(), 0u);
  std::string large = "\xEF\xBB\xBF";  // the mark is no text
  while (large.size() < 5'000'000) large += "a line\n";
  const std::string path = Open(large);
  EXPECT_EQ(m_control.Reserved(), large.size());
  EXPECT_TRUE(m_control.Text() == large.substr(3));
  Append("x");
  EXPECT_TRUE(m_document.SaveFile(path)) << "the file is known as it was read";
  EXPECT_TRUE(m_folder.Read("file.txt") == large + "x");
}

TEST_F(DocumentFileTest, AFileThatCannotBeReadGivesAnEmptyDocument) {
  Open("before");
  const std::string missing = m_folder.Path("missing.txt");
  tests::FakeWindow window;
  tests::MemoryTextControl control;
  editor::Document fresh(control, m_frame, window);
  m_frame.Questions.Expect(Critical("Could not read " + missing));
  fresh.OpenFile(missing);
  EXPECT_EQ(control.Text(), "");
  EXPECT_EQ(fresh.State().CurFileName, "") << "nothing may be saved over a file that could not be read";
  EXPECT_TRUE(fresh.State().Saved);
  EXPECT_EQ(m_frame.Bar.Panels["DocSize"], "1 Line");
}

TEST_F(DocumentFileTest, SavingUnderANewName) {
  m_document.SetTemplate(m_folder.Write("S.def", "N: Sample\nX: smp;sam\n"));
  Append("text");
  EXPECT_FALSE(State().Saved);
  EXPECT_TRUE(m_frame.Enabled.at("save"));
  m_frame.Questions.ExpectSaveFile("Save Script", "");
  EXPECT_FALSE(m_document.SaveFile(""));
  EXPECT_EQ(m_frame.AskedType, "Sample File|smp");
  EXPECT_FALSE(State().Saved);
  EXPECT_EQ(m_window.Title, "Untitled");

  m_frame.Questions.ExpectSaveFile("Save Script", m_folder.Path("new.smp"));
  const int updates = m_frame.TabUpdates;
  EXPECT_TRUE(m_document.SaveFile(""));
  EXPECT_EQ(m_folder.Read("new.smp"), "text") << "no line end is added";
  EXPECT_EQ(State().CurFileName, m_folder.Path("new.smp"));
  EXPECT_EQ(m_window.Title, "new.smp");
  EXPECT_TRUE(State().Saved);
  EXPECT_FALSE(m_frame.Enabled.at("save"));
  EXPECT_GT(m_frame.TabUpdates, updates);
}

TEST_F(DocumentFileTest, ACharacterThatTheEncodingCannotHoldIsAskedAbout) {
  const std::string path = Open("caf\xE9\n");
  Append("Ω");
  const auto expect = [&](PromptAnswer answer) {
    m_frame.Questions.ExpectQuestion(
        '"' + path +
            "\" is encoded in Windows-1252, which cannot hold every character that the text has now.  Save it in UTF-8 "
            "instead?",
        PromptButtons::YesNo, PromptAnswer::No, answer);
  };
  expect(PromptAnswer::No);
  EXPECT_FALSE(m_document.SaveFile(path));
  EXPECT_EQ(m_folder.Read("file.txt"), "caf\xE9\n");
  EXPECT_FALSE(State().Saved);
  expect(PromptAnswer::Yes);
  EXPECT_TRUE(m_document.SaveFile(path));
  EXPECT_EQ(m_folder.Read("file.txt"), "café\nΩ");
  Append("!");
  EXPECT_TRUE(m_document.SaveFile(path)) << "asked once";
  EXPECT_EQ(m_folder.Read("file.txt"), "café\nΩ!");
}

TEST_F(DocumentFileTest, AFailedSaveIsToldAndLosesNothing) {
  m_folder.Write("locked/file", "old");
  m_document.OpenFile(m_folder.Path("locked/file"));
  Append("!");
  m_folder.SetMode("locked", 0555);
  m_folder.SetMode("locked/file", 0444);
  const std::string gone = m_folder.Path("gone/file");
  const tests::OrdinaryUser user;
  m_frame.Questions.Expect(Critical("Could not save " + State().CurFileName + "\n\nPermission denied"));
  EXPECT_FALSE(m_document.SaveFile(State().CurFileName));
  m_frame.Questions.Expect(Critical("Could not save " + gone + "\n\nNo such file or directory"));
  EXPECT_FALSE(m_document.SaveFile(gone));
  EXPECT_FALSE(State().Saved);
  EXPECT_EQ(State().CurFileName, m_folder.Path("locked/file"));
  EXPECT_EQ(m_folder.Read("locked/file"), "old");
  EXPECT_EQ(m_control.Text(), "old!");
  EXPECT_TRUE(m_frame.Enabled.at("save"));
}

TEST_F(DocumentFileTest, ClosingAsksForChangedSynonymsAfterTheText) {
  const std::string path = Open("x");
  m_document.State().SSaved = false;
  m_document.State().CurSFileName = "/words.syn";
  const auto expectSynonyms = [&](PromptAnswer answer) {
    m_frame.Questions.ExpectQuestion("Save changes to Synonyms for file.txt?", PromptButtons::YesNoCancel,
                                     PromptAnswer::Cancel, answer);
  };
  expectSynonyms(PromptAnswer::Cancel);
  EXPECT_FALSE(m_document.MayClose());
  expectSynonyms(PromptAnswer::No);
  EXPECT_TRUE(m_document.MayClose());
  EXPECT_TRUE(m_window.SynonymFiles.empty());
  m_window.SavesSynonyms = false;
  expectSynonyms(PromptAnswer::Yes);
  EXPECT_FALSE(m_document.MayClose()) << "nothing was written";
  Append("y");
  m_frame.Questions.ExpectClosing("file.txt", PromptAnswer::No);
  m_window.SavesSynonyms = true;
  expectSynonyms(PromptAnswer::Yes);
  EXPECT_TRUE(m_document.MayClose());
  EXPECT_TRUE(m_document.SaveFile(path)) << "and saving the text saves them too";
  EXPECT_EQ(m_window.SynonymFiles, (std::vector<std::string>{"/words.syn", "/words.syn", "/words.syn"}));
}

TEST_F(DocumentFileTest, Closing) {
  const std::string path = Open("x");
  EXPECT_TRUE(m_document.MayClose()) << "an unchanged document asks nothing";
  Append("y");
  m_frame.Questions.ExpectClosing("file.txt", PromptAnswer::Cancel);
  EXPECT_FALSE(m_document.MayClose());
  EXPECT_EQ(m_window.Fronted, 1);
  m_frame.Questions.ExpectClosing("file.txt", PromptAnswer::No);
  EXPECT_TRUE(m_document.MayClose());
  EXPECT_EQ(m_folder.Read("file.txt"), "x");
  m_frame.Questions.ExpectClosing("file.txt", PromptAnswer::Yes);
  EXPECT_TRUE(m_document.MayClose());
  EXPECT_EQ(m_folder.Read("file.txt"), "xy");
  EXPECT_TRUE(m_document.MayClose());

  tests::MemoryTextControl control;
  tests::FakeWindow window;
  editor::Document untitled(control, m_frame, window);
  control.SetSelText("new");
  m_frame.Questions.ExpectClosing("Untitled", PromptAnswer::Yes);
  m_frame.Questions.ExpectSaveFile("Save Script", "");
  EXPECT_FALSE(untitled.MayClose()) << "a cancelled chooser must not lose the text";
}

TEST_F(DocumentFileTest, StatusTextsFollowCaretAndSelection) {
  Open("one\r\nd\xC3\xA9j\xC3\xA0 vu\nx");
  auto& panels = m_frame.Bar.Panels;
  m_control.SetSelStart(8);
  EXPECT_EQ(panels["CoOrds"], "(Line 2, Col 3)") << "characters, not bytes";
  for (std::size_t start = 0; start <= m_control.Length(); ++start)
    for (std::size_t end = start + 1; end <= m_control.Length(); ++end) {
      if (tests::IsInside(m_control.Text(), start) || tests::IsInside(m_control.Text(), end)) continue;
      Select(start, end - start);
      const std::size_t lines = editor::rtfscan::NumberOfLinesIn(m_control.SelRTF());
      EXPECT_EQ(panels["CoOrds"], "Selected: " + std::to_string(lines) + (lines == 1 ? " line" : " lines"));
    }
  m_control.SetSelStart(m_control.Length());
  m_control.Press(13);
  m_control.Type("ab");
  EXPECT_EQ(panels["CoOrds"], "(Line 4, Col 3)");
  EXPECT_EQ(panels["DocSize"], "4 Lines");
  EXPECT_FALSE(State().Saved);
  Select(0, m_control.Length());
  m_control.Press(46);
  EXPECT_EQ(panels["DocSize"], "1 Line");
}

TEST_F(DocumentFileTest, DroppedFilesAreOpened) {
  const std::string file = m_folder.Write("a.txt", "");
  m_document.FilesDropped({m_folder.Path("missing"), file, m_folder.Path()});
  EXPECT_EQ(m_frame.Opened, std::vector<std::string>{file});
}

}  // namespace
