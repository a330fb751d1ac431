// A document's pop-ups: opened by what the keys ask for, moved by keys, closed by the text; the windows only take
// notes.

#include "aids/Popups.h"

#include <gtest/gtest.h>

#include "tests/support/LoadedTemplate.h"
#include "tests/support/MemoryTextControl.h"

namespace aids {
namespace {

class NotedList : public ListWindow {
 public:
  PopupOwner* Owner = nullptr;
  std::vector<std::string> Words;
  int Row = 0;
  std::size_t Offset = 0;

  PopupOwner* OwnerWin() const override { return Owner; }
  void SetOwnerWin(PopupOwner* owner) override { Owner = owner; }
  void Unload() override { Owner = nullptr; }
  void Populate(std::vector<std::string>& words, const std::vector<std::int32_t>&, std::int16_t) override {
    Words = words;
    Row = 0;
  }
  void ShowAt(std::size_t offset) override { Offset = offset; }
  int RowCount() const override { return static_cast<int>(Words.size()); }
  int SelectedRow() const override { return Row; }
  void SelectRow(int row) override { Row = row; }
  void SelectTopRow(int row) override { Row = row; }
  float ListHeight() const override { return 50; }
  float RowHeight() const override { return 20; }
};

class NotedTip : public TipWindow {
 public:
  PopupOwner* Owner = nullptr;
  std::string Shown;

  PopupOwner* OwnerWin() const override { return Owner; }
  void SetOwnerWin(PopupOwner* owner) override { Owner = owner; }
  void Unload() override { Owner = nullptr; }
  void ShowAt(std::size_t start, std::size_t end, const std::string& text) override {
    Shown = std::to_string(start) + ' ' + std::to_string(end) + ' ' + text;
  }
};

constexpr int KeyA = 65, KeyEsc = 27, KeyPageUp = 33, KeyPageDown = 34, KeyUp = 38, KeyDown = 40;

/// One document with the action word "doc": "." lists three words, "(" gives a hint.
struct Page {
  Page(NotedList& list, NotedTip& tip) : Aids(Control, State, list, tip, [this] { ++Edits; }) {
    State.Template = tests::LoadedTemplate(
        "D: .(),\nW: \"doc\" 2\n2 \".\" 3\n\"\"\nalpha 1\nprint 1\nprintf 1\n1 \"(\" 0\n\"doc(a, b)\"\n"
        "Y: \"d\" \"DOC\"\n");
    State.ActionWord = State.Template.Words.Item("doc");
  }

  /// The text with the caret at "|", after which `delimeter` was typed behind the word and a key goes up.
  void Ask(std::string text, char32_t delimeter) {
    const std::size_t caret = text.find('|');
    Control.SetText(text.erase(caret, 1));
    Control.SetSelStart(caret);
    State.ActionDelimeter = delimeter;
    (delimeter == U'.' ? State.ListPending : State.TipPending) = true;
    Aids.KeyUp(KeyA, 0);
  }
  /// Types without Document: the text changes and the key goes up.
  void Type(const std::string& text) {
    Control.SetSelText(text);
    Aids.KeyUp(KeyA, 0);
  }

  tests::MemoryTextControl Control;
  editor::DocumentState State;
  int Edits = 0;
  Popups Aids;
};

class PopupsTest : public testing::Test {
 protected:
  NotedList m_list;
  NotedTip m_tip;
  Page m_page{m_list, m_tip};
};

TEST_F(PopupsTest, ARequestIsTakenUpWhereItsWordStands) {
  struct Case {
    std::string Text;
    char32_t Delimeter;
    std::string Shown;  ///< where the list, or the tooltip, stands; "" for nowhere
  };
  const Case cases[] = {
      {"x doc.|", U'.', "6"},
      {"doc.pr|", U'.', "4"},  // two more keys went down before the first went up
      {"doc.pr.|", U'.', ""},  // already past it
      {"doc x|", U'.', ""},    // the delimiter is gone again
      {"d.|", U'.', "2"},      // a synonym
      {"doc(|", U'(', "0 4 doc(a, b)"},
      {"x DOC(a, |", U'(', "2 6 doc(a, b)"},
      {"d(|", U'(', "0 2 doc(a, b)"},
      {"\xC3\xA9 doc(\xF0\x9F\x98\x80|", U'(', "3 7 doc(a, b)"},
      {"dox(|", U'(', ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Text);
    m_page.Aids.CloseAll();
    m_page.Ask(c.Text, c.Delimeter);
    EXPECT_FALSE(m_page.State.ListPending || m_page.State.TipPending);
    EXPECT_EQ(m_page.Aids.PopupListShown(), c.Delimeter == U'.' && !c.Shown.empty());
    EXPECT_EQ(m_page.Aids.ToolTipShown(), c.Delimeter == U'(' && !c.Shown.empty());
    const std::string shown = m_page.Aids.PopupListShown() ? std::to_string(m_list.Offset) : m_tip.Shown;
    if (!c.Shown.empty()) {
      EXPECT_EQ(shown, c.Shown);
    }
  }
}

TEST_F(PopupsTest, AKeyThatSelectsNothingIsTheTexts) {
  m_page.Ask("doc.|prxyz(", U'.');
  EXPECT_EQ(m_list.Row, 0) << "opens with no row selected, whatever stands behind the caret";
  struct Step {
    int Key;
    bool Consumed;
    int Row;
  };
  const Step steps[] = {{KeyDown, true, 1},     {KeyUp, false, 1},     {KeyDown, true, 2},   {KeyDown, true, 3},
                        {KeyDown, false, 3},    {KeyUp, true, 2},      {KeyPageUp, true, 1}, {KeyPageDown, true, 2},
                        {KeyPageDown, true, 3}, {KeyPageDown, true, 3}};
  for (const Step& step : steps) {
    EXPECT_EQ(m_page.Aids.KeyDown(step.Key, 0), step.Consumed) << step.Key;
    EXPECT_TRUE(m_page.Aids.KeyUp(step.Key, 0)) << "the release is swallowed";
    EXPECT_EQ(m_list.Row, step.Row);
  }
  m_page.Aids.WriteIt();
  EXPECT_EQ(m_page.Edits, 1);
  EXPECT_FALSE(m_page.Aids.KeyDown(KeyDown, 0) || m_page.Aids.KeyUp(KeyDown, 0)) << "the arrow is the text's again";
}

TEST_F(PopupsTest, WhatClosesTheListWritesNothingWithoutASelectedRow) {
  const std::pair<const char*, std::function<void()>> ways[] = {
      {"WriteIt", [&] { m_page.Aids.WriteIt(); }},
      {"Esc", [&] { EXPECT_FALSE(m_page.Aids.KeyDown(KeyEsc, 0)); }},
      {"a delimiter", [&] { m_page.Type(","); }},
      {"the caret before its start",
       [&] {
         m_page.Control.SetSelStart(2);
         m_page.Aids.KeyUp(37, 0);
       }},
      {"a click elsewhere",
       [&] {
         m_page.Control.SetSelStart(0);
         m_page.Aids.CloseOutdated();
       }},
      {"WriteIt with the caret before its start",
       [&] {
         m_list.Row = 1;
         m_page.Control.SetSelStart(1);
         m_page.Aids.WriteIt();
       }},
      {"the document's closing", [&] { m_page.Aids.CloseAll(); }},
  };
  for (const auto& [name, close] : ways) {
    SCOPED_TRACE(name);
    m_page.Ask("doc.|x y", U'.');
    ASSERT_TRUE(m_page.Aids.PopupListShown());
    close();
    EXPECT_FALSE(m_page.Aids.PopupListShown());
    EXPECT_EQ(m_page.Control.Text(), std::string(name) == "a delimiter" ? "doc.,x y" : "doc.x y");
  }
  EXPECT_EQ(m_page.Edits, 0);
  m_page.Ask("doc.|", U'.');
  EXPECT_FALSE(m_page.Aids.KeyDown(KeyEsc, platform::Shift::ShiftKey));
  EXPECT_TRUE(m_page.Aids.PopupListShown()) << "only the bare key closes";
}

TEST_F(PopupsTest, TheTipStaysWhileTheListIsShownAndGoesWithItsHint) {
  m_page.Ask("doc(|", U'(');
  m_page.Control.SetSelText("doc.");
  m_page.State.ListPending = true;
  m_page.State.ActionDelimeter = U'.';
  m_page.Aids.KeyUp(KeyA, 0);
  EXPECT_TRUE(m_page.Aids.PopupListShown() && m_page.Aids.ToolTipShown());
  m_page.Type("al)");
  EXPECT_FALSE(m_page.Aids.PopupListShown());
  EXPECT_TRUE(m_page.Aids.ToolTipShown()) << "not looked at while the list was shown";
  m_page.Aids.KeyUp(KeyA, 0);
  EXPECT_FALSE(m_page.Aids.ToolTipShown());
}

TEST_F(PopupsTest, OneListServesTheDocumentThatOpenedItLast) {
  {
    Page other(m_list, m_tip);
    m_page.Ask("doc.|", U'.');
    other.Ask("doc.|", U'.');
    EXPECT_TRUE(other.Aids.PopupListShown());
    EXPECT_FALSE(m_page.Aids.PopupListShown());
    m_page.Aids.CloseAll();
    EXPECT_TRUE(other.Aids.PopupListShown()) << "a document closes only what is its own";
    m_list.Row = 1;
    m_list.OwnerWin()->RowDoubleClicked();
    EXPECT_EQ(other.Control.Text(), "doc.alpha");
    other.Ask("doc.|", U'.');
  }
  EXPECT_EQ(m_list.OwnerWin(), nullptr) << "a document that goes leaves no list behind";
}

}  // namespace
}  // namespace aids
