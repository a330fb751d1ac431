// The undo history against a literal comparison of whole texts, and as a document uses it.

#include "editor/UndoHistory.h"

#include <gtest/gtest.h>

#include "tests/laws/Dice.h"
#include "tests/support/Characters.h"
#include "tests/support/DocumentFixture.h"
#include "tests/support/TextControlContract.h"

namespace {

using editor::cUndoElement;
using Records = std::vector<cUndoElement>;

/// Compares whole texts from both ends; what differs is cut between characters.
std::optional<cUndoElement> LiteralChange(const std::string& before, const std::string& after) {
  if (before == after) return std::nullopt;
  const std::size_t shorter = std::min(before.size(), after.size());
  std::size_t start = 0, tail = 0;
  while (start < shorter && before[start] == after[start]) ++start;
  while (tests::IsInside(before, start) || tests::IsInside(after, start)) --start;
  while (tail < shorter - start && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) ++tail;
  while (tests::IsInside(before, before.size() - tail) || tests::IsInside(after, after.size() - tail)) --tail;
  return cUndoElement{start, after.size() - tail - start, before.substr(start, before.size() - tail - start)};
}

/// Random texts that repeat themselves, with line ends of every kind and characters of one to four bytes. Places are
/// between characters, but a CR and an LF may come together or be parted from what stood between them.
class Author {
 public:
  explicit Author(std::uint64_t seed) : m_dice(seed) {}

  std::string Text(std::size_t longest) {
    static const std::vector<std::string> alphabets = {
        "a", "a|b", "\r\n|\n|\r", "\r\n|\n|a|\r", "é|è|€|\u20AD", "😀|😁|x|\r\n", "v|a|r| |=|1|;|\r\n|ä"};
    return m_dice.Text(tests::Split(m_dice.Pick(alphabets)), longest);
  }

  /// Selects something in the control and replaces it.
  void Edit(platform::TextControl& control) {
    const std::string text = control.Text();
    const std::vector<std::size_t> places = tests::CuttingOffsets(text);
    const std::size_t first = m_dice.Pick(places), second = m_dice.Chance(50) ? first : m_dice.Pick(places);
    std::size_t end = std::max(first, second);
    if (m_dice.Chance(80)) end = std::min(first, second) + (end - std::min(first, second)) % 4;
    while (tests::IsInside(text, end)) ++end;
    control.SetSelStart(std::min(first, second));
    control.SetSelLength(end - std::min(first, second));
    control.SetSelText(m_dice.Chance(30) ? "" : m_dice.Chance(20) ? control.SelText() : Text(4));
  }

  laws::Dice& Dice() { return m_dice; }

 private:
  laws::Dice m_dice;
};

/// A control with a history of its own.
class Listener : public tests::SilentEvents {
 public:
  Listener() { m_control.SetEvents(this); }
  void Change(const platform::TextChange& change) override { m_history.RecordChange(change); }

  tests::MemoryTextControl m_control;
  editor::DocumentState m_state;
  tests::FakeTimer* m_timer = new tests::FakeTimer;
  editor::UndoHistory m_history{m_control, std::unique_ptr<platform::Timer>(m_timer), m_state, [] {}};
};

// Ten thousand edits, in groups that merge.
TEST(UndoHistoryLaws, RecordsAreThoseOfComparingWholeTextsAndBothEndsComeBack) {
  std::size_t edits = 0, records = 0;
  for (std::uint64_t seed = laws::FirstSeed(); edits < laws::Runs(10'000); ++seed) {
    Author author(seed);
    Listener of;
    of.m_state.Mode = editor::UndoMode::Program;
    of.m_control.SetText(author.Text(40));
    of.m_state.Mode = editor::UndoMode::Normal;
    const std::string first = of.m_control.Text();
    Records expected;
    for (std::size_t step = 0; step < 12; ++step) {
      const std::string before = of.m_control.Text();
      for (std::size_t count = 1 + author.Dice().Below(4); count > 0; --count, ++edits) author.Edit(of.m_control);
      of.m_timer->Fire();
      if (auto record = LiteralChange(before, of.m_control.Text())) expected.push_back(*record);
      ASSERT_EQ(of.m_history.UndoStack().size(), expected.size()) << "seed " << seed << ", step " << step;
      if (expected.empty()) continue;
      const cUndoElement &shown = of.m_history.UndoStack().back(), &wanted = expected.back();
      ASSERT_TRUE(shown == wanted) << "seed " << seed << ", step " << step << ": " << shown.iStart << ' '
                                   << shown.lLength << " \"" << shown.sText << "\", not " << wanted.iStart << ' '
                                   << wanted.lLength << " \"" << wanted.sText << '"';
    }
    records += expected.size();
    const std::string last = of.m_control.Text();
    while (!of.m_history.UndoStack().empty()) of.m_history.Undo();
    ASSERT_EQ(of.m_control.Text(), first) << "seed " << seed;
    while (!of.m_history.RedoStack().empty()) of.m_history.Redo();
    ASSERT_EQ(of.m_control.Text(), last) << "seed " << seed;
    ASSERT_EQ(of.m_history.UndoStack(), expected) << "seed " << seed;
  }
  EXPECT_GT(records, edits / 8);
}

// A text that counts as saved and is not would be closed without a question.
TEST(UndoHistoryLaws, AtSavedIsTheSavedTextAndUndoLeadsBackToIt) {
  std::size_t returns = 0;
  for (std::uint64_t seed = laws::FirstSeed(); seed < laws::FirstSeed() + laws::Runs(500); ++seed) {
    Author author(seed);
    Listener of;
    std::optional<std::string> saved = "";
    for (int step = 0; step < 40; ++step) {
      const std::size_t action = author.Dice().Below(20);
      if (action < 7) author.Edit(of.m_control);
      if (action < 3 || action == 8) of.m_timer->Fire();
      if (action >= 9 && action < 14) of.m_history.Undo();
      if (action >= 14 && action < 18) of.m_history.Redo();
      if (action == 18) of.m_history.MarkSaved(), saved = of.m_control.Text();
      if (action == 19 && author.Dice().Chance(20)) of.m_history.ForgetSaved(), saved.reset();
      if (!of.m_history.AtSaved()) continue;
      ASSERT_TRUE(saved && of.m_control.Text() == *saved) << "seed " << seed << ", step " << step;
      returns += action >= 9 && action < 18;
    }
    of.m_history.MarkSaved();
    of.m_control.SetSelText("edit");
    of.m_history.Undo();
    ASSERT_TRUE(of.m_history.AtSaved()) << "seed " << seed;
  }
  EXPECT_GT(returns, laws::Runs(500));
}

class UndoTest : public tests::DocumentFixture {
 protected:
  void Pause() { m_frame.Timers.front()->Fire(); }
  std::string Tools() const {
    const auto state = [&](const char* tool) { return m_frame.Enabled.at(tool) ? "on" : "off"; };
    return std::string("undo ") + state("miUndo") + ", redo " + state("miRedo");
  }
};

TEST_F(UndoTest, ABurstOfTypingIsOneStepAndTheToolsFollowTheStacks) {
  m_document.Activated();
  EXPECT_EQ(Tools(), "undo off, redo off");
  m_control.Type("word");
  EXPECT_EQ(m_frame.Timers.front()->Interval(), 500);
  EXPECT_EQ(Tools(), "undo off, redo off");
  Pause();
  EXPECT_EQ(Tools(), "undo on, redo off");
  m_control.Type(" and");
  m_document.Undo();
  EXPECT_EQ(m_control.Text(), "word") << "what was pending is undone first";
  EXPECT_EQ(Tools(), "undo on, redo on");
  m_document.Undo();
  EXPECT_EQ(m_control.Text(), "");
  EXPECT_EQ(Tools(), "undo off, redo on");
  EXPECT_TRUE(m_document.State().Saved);
  m_document.Undo();
  m_document.Redo();
  m_document.Redo();
  EXPECT_EQ(m_control.Text(), "word and");
  EXPECT_EQ(Tools(), "undo on, redo off");
  EXPECT_FALSE(m_document.State().Saved);
}

TEST_F(UndoTest, ANewEditEmptiesTheRedoHistory) {
  m_control.Type("one");
  m_document.Undo();
  m_control.Type("two");
  EXPECT_EQ(Tools(), "undo off, redo on");
  m_document.Redo();
  EXPECT_EQ(m_control.Text(), "two") << "the edit was there before the redo";
  EXPECT_EQ(Tools(), "undo on, redo off");
}

TEST_F(UndoTest, UndoAndRedoLeadBackToTheSavedText) {
  const std::string path = Open("text");
  m_control.Type("a");
  ASSERT_TRUE(m_document.SaveFile(path));
  m_control.Type("b");
  EXPECT_FALSE(State().Saved);
  EXPECT_TRUE(m_control.Press('Z', platform::Shift::Ctrl));
  EXPECT_TRUE(State().Saved);
  EXPECT_FALSE(m_frame.Enabled.at("save"));
  m_document.Undo();
  EXPECT_FALSE(State().Saved) << "this is what was read, and no longer what is in the file";
  m_document.Redo();
  EXPECT_TRUE(State().Saved);
}

TEST_F(UndoTest, TheProgramsOwnChangesAreNotRecordedAndTheViewStays) {
  m_document.SetTemplate(m_folder.Write("S.def", "N: S\nC: #0000FF\nL: \"word\" 0  1 True\nD: \" \"\n"));
  Open("word one\nword two\n");
  m_document.ColourScan();
  Pause();
  EXPECT_EQ(Tools(), "undo off, redo off");
  Select(5, 3);
  m_control.Type("x");
  Select(2, 4);
  m_control.SetVerticalScroll(1);
  const int focused = m_control.FocusCalls();
  m_document.Undo();
  EXPECT_EQ(m_control.Text(), "word one\nword two\n");
  EXPECT_EQ(m_control.SelStart(), 2u);
  EXPECT_EQ(m_control.SelLength(), 4u);
  EXPECT_EQ(m_control.VerticalScroll(), 1u);
  EXPECT_TRUE(m_control.Enabled());
  EXPECT_GT(m_control.FocusCalls(), focused);
}

}  // namespace
