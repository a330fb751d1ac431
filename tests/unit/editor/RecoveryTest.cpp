// Unsaved text comes back: what documents write into the folder of journals, when it goes, and what the user is asked.

#include "editor/Recovery.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <memory>

#include "editor/Document.h"
#include "editor/RecoveryOffer.h"
#include "tests/laws/Dice.h"
#include "tests/support/FakeFrame.h"
#include "tests/support/MemoryTextControl.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace std::chrono_literals;
using editor::JournalContent;
using editor::RecoveryStore;
using platform::PromptAnswer;

/// A document of its own in a frame of its own, as in a program that may end at any moment.
class Session {
 public:
  explicit Session(const std::string& folder) : Store(folder, 0ms) {
    Frame.Store = &Store;
    Document = std::make_unique<editor::Document>(Control, Frame, Window);
  }

  void Type(const std::string& text, std::size_t at = std::string::npos, std::size_t replaced = 0) {
    Control.SetSelStart(std::min(at, Control.Length()));
    Control.SetSelLength(replaced);
    Control.SetSelText(text);
  }
  void FireTimers() {
    for (tests::FakeTimer* timer : Frame.Timers) timer->Fire();
  }
  /// What has been handed over is written, and time passes.
  void Round() {
    Store.Writer().Flush();
    FireTimers();
  }
  /// Lets the journal become what it is when the user pauses.
  void Settle() {
    for (int round = 0; round < 2000 && Busy(); ++round) Round();
    EXPECT_FALSE(Busy());
  }
  bool Busy() const {
    for (const tests::FakeTimer* timer : Frame.Timers)
      if (timer->Interval() > 0 && timer->Interval() < 5000) return true;
    return false;
  }

  RecoveryStore Store;
  tests::FakeFrame Frame;
  tests::FakeWindow Window;
  tests::MemoryTextControl Control;
  std::unique_ptr<editor::Document> Document;  ///< goes first, without asking, and what it has handed over is written
};

class RecoveryTest : public testing::Test {
 protected:
  std::string State() const { return m_folder.Path("state/quillmark"); }
  std::vector<std::string> Journals() const {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(State(), error))
      names.push_back(entry.path().string());
    return names;
  }
  /// What a start after a crash finds.
  std::vector<JournalContent> Dead() const {
    std::vector<std::string> problems;
    std::vector<JournalContent> contents;
    for (const editor::DeadJournal& journal : RecoveryStore(State()).TakeDead(problems))
      contents.push_back(journal.Read());
    EXPECT_TRUE(problems.empty());
    return contents;
  }
  std::string OnlyText() const {
    const std::vector<JournalContent> dead = Dead();
    EXPECT_EQ(dead.size(), 1u);
    if (dead.size() != 1) return "";
    EXPECT_TRUE(dead[0].Complete && !dead[0].Damaged);
    return dead[0].Text;
  }

  tests::TemporaryFolder m_folder;
};

TEST_F(RecoveryTest, UnsavedTextOutlivesItsProgramAndLivingOnesAreLeftAlone) {
  const std::string path = m_folder.Write("latin1.txt", "caf\xE9\r\n");
  {
    Session session(State());
    session.Document->OpenFile(path);
    session.Settle();
    EXPECT_TRUE(Journals().empty()) << "nothing is written about a document without changes";
    session.Type("É");
    session.Type("x", 0);
    session.Store.Writer().Flush();
    EXPECT_EQ(m_folder.Mode("state/quillmark"), 0700u);
    ASSERT_EQ(Journals().size(), 1u);
    EXPECT_EQ(std::filesystem::status(Journals()[0]).permissions(), std::filesystem::perms(0600));
    EXPECT_TRUE(Dead().empty()) << "it lives";
  }
  const std::vector<JournalContent> dead = Dead();
  ASSERT_EQ(dead.size(), 1u);
  EXPECT_EQ(dead[0].Text, "xcafé\r\nÉ");
  EXPECT_EQ(dead[0].Caret, 1u);
  EXPECT_EQ(dead[0].Head.Path, path);
  EXPECT_EQ(dead[0].Head.Encoding, rich_text::TextEncoding::Windows1252);
  EXPECT_EQ(platform::LookAt(path, dead[0].Head.Base).Difference, platform::FileDifference::None);
  EXPECT_EQ(m_folder.Read("latin1.txt"), "caf\xE9\r\n");
}

TEST_F(RecoveryTest, TheJournalGoesOnlyWhenTheTextIsSafeOrNotWanted) {
  const std::string path = m_folder.Write("file.txt", "old");
  Session session(State());
  const auto journals = [&] {
    session.Store.Writer().Flush();
    return Journals().size();
  };
  session.Document->OpenFile(path);
  session.Type("!");
  EXPECT_EQ(journals(), 1u);
  EXPECT_TRUE(session.Document->SaveFile(path));
  EXPECT_EQ(journals(), 0u) << "saved";

  session.Type("?");
  const std::string missing = m_folder.Path("no/such/folder/file");
  session.Frame.Questions.ExpectAnyBox();
  EXPECT_FALSE(session.Document->SaveFile(missing));
  EXPECT_EQ(journals(), 1u) << "the save failed";
  session.Frame.Questions.ExpectClosing("file.txt", PromptAnswer::Cancel);
  EXPECT_FALSE(session.Document->MayClose());
  EXPECT_EQ(journals(), 1u) << "it stays open";
  session.Frame.Questions.ExpectClosing("file.txt", PromptAnswer::No);
  EXPECT_TRUE(session.Document->MayClose());
  EXPECT_EQ(journals(), 0u) << "the user wants none of it";
  EXPECT_EQ(m_folder.Read("file.txt"), "old!");
}

TEST_F(RecoveryTest, ATextWhoseFileHasGoneIsKeptWithoutAChange) {
  const std::string text(600'000, 'x'), path = m_folder.Write("file.txt", text);
  {
    Session session(State());
    session.Document->OpenFile(path);
    std::filesystem::remove(path);
    session.Frame.Questions.ExpectBoxWith({path, "has been deleted"}, PromptAnswer::No);
    session.Document->CheckFile();
    EXPECT_FALSE(session.Document->State().Saved);
    session.Settle();
  }
  EXPECT_TRUE(OnlyText() == text);
}

TEST_F(RecoveryTest, ALongTextIsCopiedWhileItChanges) {
  laws::Dice dice(31);
  for (int round = 0; round < 2; ++round) {
    std::string expected;
    {
      Session session(State());
      std::string text;
      while (text.size() < 600'000) text += std::string(2000, static_cast<char>('a' + dice.Below(26))) + "\r\n";
      session.Window.Active = false;
      session.Document->OpenFile(m_folder.Write("long.txt", text));
      for (int change = 0; change < 8; ++change) {
        const std::size_t replaced = dice.Chance(10) ? 100'000 : dice.Below(30);
        const std::string put(dice.Chance(12) ? 90'000 : dice.Below(30), 'x');
        session.Type(put, dice.Below(session.Control.Length() + 1), replaced);
        if (dice.Below(3) > 0) session.FireTimers();
      }
      expected = session.Control.Text();
      if (round % 2 == 0) session.Settle();
    }
    EXPECT_TRUE(OnlyText() == expected) << "round " << round;
    std::filesystem::remove(Journals().at(0));
  }
}

TEST_F(RecoveryTest, AJournalMuchLongerThanItsTextIsWrittenAnew) {
  std::string expected;
  {
    Session session(State());
    const std::string block(1'000'000, 'a');
    session.Window.Active = false;
    for (int round = 0; round < 6; ++round) {
      session.Type(block);
      session.Settle();
      session.Type("b", 1, block.size());
      session.Settle();
    }
    session.Type("the end");
    expected = session.Control.Text();
    session.Settle();
    ASSERT_EQ(Journals().size(), 1u);
    EXPECT_LT(std::filesystem::file_size(Journals()[0]), 5'500'000u) << "6 million bytes were typed";
    EXPECT_TRUE(Dead().empty()) << "the new one is locked too";
  }
  EXPECT_EQ(OnlyText(), expected);
}

TEST_F(RecoveryTest, AFullDiskIsToldOnceAndEditingGoesOn) {
  struct rlimit before {};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const auto wasHandled = std::signal(SIGXFSZ, SIG_IGN);
  Session session(State());
  session.Type("kept");
  session.Store.Writer().Flush();
  const struct rlimit small = {4096, before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  session.Frame.Questions.ExpectAnyBox();
  session.Type(std::string(20'000, 'x'));
  for (int round = 0; round < 6; ++round) {  // attempts, each after a longer rest
    session.Round();
    session.Type("y");
  }
  session.Store.Writer().Flush();  // an attempt may be under way, with a file of its own
  EXPECT_EQ(session.Frame.Questions.Unasked(), 0u);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
  std::signal(SIGXFSZ, wasHandled);
  ASSERT_EQ(Journals().size(), 1u);
  for (int round = 0; round < 4; ++round) session.Round();
  session.Settle();
  const std::string expected = session.Control.Text();
  session.Document.reset();
  session.Store.Writer().Flush();
  EXPECT_EQ(OnlyText(), expected) << "there is room again";
}

TEST_F(RecoveryTest, AFolderThatCannotBeWrittenIsToldOnce) {
  m_folder.Write("state", "a file stands where the folder should be");
  Session session(State());
  session.Frame.Questions.ExpectAnyBox();
  for (int round = 0; round < 5; ++round) {
    session.Type("text");
    session.Round();
  }
  EXPECT_EQ(session.Control.Length(), 20u);
  EXPECT_TRUE(session.Document->SaveFile(m_folder.Path("file")));
}

/// The questions of a start, and what becomes of each answer.
class RecoveryOfferTest : public RecoveryTest {
 protected:
  void Leave(const std::string& path, const std::string& text) {
    Session session(State());
    if (!path.empty()) session.Document->OpenFile(path);
    session.Type(text);
  }
  void Expect(const std::string& document, const std::string& sentence, PromptAnswer answer) {
    m_prompts.ExpectBoxWith({document, sentence, "Last changed: 2", "Yes opens it"}, answer);
  }
  void Offer(bool safe = true) {
    RecoveryStore store(State());
    editor::OfferRecovery(store, m_prompts, [&](const JournalContent& content) {
      m_restored.push_back(content.Text);
      return safe;
    });
  }

  tests::ScriptedPrompts m_prompts;
  std::vector<std::string> m_restored;
};

TEST_F(RecoveryOfferTest, EachDocumentIsAskedAbout) {
  const std::string same = m_folder.Write("same.txt", "1"), changed = m_folder.Write("changed.txt", "2"),
                    gone = m_folder.Write("gone.txt", "3"), saved = m_folder.Write("saved.txt", "4");
  for (const std::string& path : {same, changed, gone, saved}) Leave(path, "+");
  Leave("", "untitled");
  m_folder.Write("changed.txt", "other");
  m_folder.Write("saved.txt", "4+");
  std::filesystem::remove(gone);
  const auto expect = [&](PromptAnswer a, PromptAnswer b, PromptAnswer c, PromptAnswer d) {
    Expect('"' + same + '"', "The file on disk has not been changed since.", a);
    Expect('"' + changed + '"', "The file on disk has been changed since.", b);
    Expect('"' + gone + '"', "The file on disk is no longer there.", c);
    Expect("\"Untitled\"", "It was never saved in a file.", d);
  };
  constexpr PromptAnswer later = PromptAnswer::Cancel;
  expect(later, later, later, later);
  Offer();
  EXPECT_EQ(Journals().size(), 4u) << "the text that the file has already is not asked about";
  expect(PromptAnswer::Yes, PromptAnswer::No, later, PromptAnswer::Yes);
  Offer();
  EXPECT_EQ(m_restored, (std::vector<std::string>{"1+", "untitled"}));
  EXPECT_EQ(Journals().size(), 1u);
  Expect('"' + gone + '"', "", PromptAnswer::Yes);
  Offer(false);
  EXPECT_EQ(Journals().size(), 1u) << "a text that could not be made safe keeps its old journal";
}

TEST_F(RecoveryOfferTest, WhatIsMissingAndWhatCannotBeReadIsTold) {
  Leave("", "untitled");
  const std::string journal = Journals().at(0);
  std::filesystem::resize_file(journal, std::filesystem::file_size(journal) - 1);
  m_folder.Write("state/quillmark/garbage.journal", "not a journal");
  m_folder.Write("state/quillmark/readme", "not ours");
  std::filesystem::create_symlink(journal, State() + "/link.journal");
  m_prompts.ExpectBoxWith({"Only the beginning of the text could be kept."}, PromptAnswer::Yes);
  m_prompts.ExpectBoxWith({"garbage.journal: it is damaged or no journal", "link.journal: "}, PromptAnswer::Ok);
  Offer();
  EXPECT_EQ(m_restored, (std::vector<std::string>{"untitled"}));
  EXPECT_EQ(Journals().size(), 3u) << "they are left as they are";
}

TEST_F(RecoveryOfferTest, ARestoredDocumentIsUnsavedAndSafeBeforeTheOldJournalGoes) {
  const std::string path = m_folder.Write("file.smp", "\xEF\xBB\xBFold");
  const std::string definition = m_folder.Write("S.def", "N: Sample\nX: smp\n");
  {
    Session session(State());
    session.Document->SetTemplate(definition, true);
    session.Document->OpenFile(path);
    session.Type("new ", 0);
  }
  {
    Session session(State());
    Expect('"' + path + '"', "has not been changed", PromptAnswer::Yes);
    editor::OfferRecovery(session.Store, m_prompts, [&](const JournalContent& content) {
      EXPECT_TRUE(session.Document->Restore(content));
      EXPECT_EQ(Journals().size(), 2u);
      return true;
    });
    EXPECT_EQ(Journals().size(), 1u);
    EXPECT_EQ(session.Control.Text(), "new old");
    EXPECT_EQ(session.Control.SelStart(), 4u);
    const editor::DocumentState& state = session.Document->State();
    EXPECT_FALSE(state.Saved);
    EXPECT_EQ(state.CurFileName, path);
    EXPECT_EQ(state.Template.TName, "Sample");
    EXPECT_EQ(session.Window.Title, "file.smp");
    session.Type("er", 3);
  }
  EXPECT_EQ(OnlyText(), "newer old") << "killed again";
  Session session(State());
  ASSERT_TRUE(session.Document->Restore(Dead().at(0)));
  EXPECT_TRUE(session.Document->SaveFile(path));
  EXPECT_EQ(m_folder.Read("file.smp"), "\xEF\xBB\xBFnewer old");
}

}  // namespace
