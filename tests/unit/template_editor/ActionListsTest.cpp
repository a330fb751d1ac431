// Action words and their working copies: compared at random with a plain model that copies values, and the questions
// about changes that have not been committed.

#include "template_editor/ActionLists.h"

#include <gtest/gtest.h>

#include "tests/unit/template_editor/EditorFixture.h"

namespace {

using template_editor::ActionLists;
using template_editor::LeaveAnswer;
using templates::WrdAct;
using tests::ListUser;
using Row = std::optional<std::size_t>;

struct PlainAction {
  std::string Delimeter;
  int Action = WrdAct::Tooltip;
  std::string Tip;
  std::vector<std::string> Entries;
  bool operator==(const PlainAction&) const = default;
};

struct PlainWord {
  std::string Name;
  std::vector<PlainAction> Actions;
  bool operator==(const PlainWord&) const = default;
};

PlainAction Plain(const WrdAct& action) {
  PlainAction plain{action.Delimeter, action.Action, action.tipText, {}};
  for (int place = 1; place <= action.NumberOfWords(); ++place)
    plain.Entries.push_back(action.WordList(place) + std::to_string(action.IconList(place)));
  return plain;
}

PlainWord Plain(const templates::Word& word) {
  PlainWord plain{word.Name, {}};
  for (const auto& action : word.Actions) plain.Actions.push_back(Plain(*action));
  return plain;
}

template <typename Item>
void Erase(std::vector<Item>& items, std::size_t row) {
  items.erase(items.begin() + static_cast<std::ptrdiff_t>(row));
}

/// The rules on plain values. Answers are taken from the front of the script, as the lists' user does.
class PlainLists {
 public:
  std::deque<LeaveAnswer> Answers;
  std::vector<std::string> Asked;
  std::vector<PlainWord> Words;
  PlainWord Working;
  PlainAction Action;
  Row Word, Delimeter, Entry;
  bool WordCommitted = true, ActionCommitted = true;

  bool LeaveAction() {
    if (ActionCommitted) return true;
    const LeaveAnswer answer = Ask("delimeter", Delimeter);
    if (answer == LeaveAnswer::Discard) LoadAction();
    if (answer == LeaveAnswer::Change || answer == LeaveAnswer::Add)
      return PutAction(answer == LeaveAnswer::Change ? Delimeter : std::nullopt);
    return answer != LeaveAnswer::Stay;
  }
  bool LeaveWord() {
    if (!LeaveAction()) return false;
    if (WordCommitted) return true;
    const LeaveAnswer answer = Ask("word", Word);
    if (answer == LeaveAnswer::Discard) LoadWord();
    if (answer == LeaveAnswer::Change || answer == LeaveAnswer::Add)
      return PutWord(answer == LeaveAnswer::Change ? Word : std::nullopt);
    return answer != LeaveAnswer::Stay;
  }
  void SelectWord(std::size_t row) {
    if (Word == row || !LeaveWord()) return;
    Word = row;
    LoadWord();
  }
  void SelectDelimeter(std::size_t row) {
    if (Delimeter == row || !LeaveAction()) return;
    Delimeter = row;
    LoadAction();
  }
  /// Puts the working action in place of a row, or at the end.
  bool PutAction(Row row) {
    if (Action.Delimeter.empty()) return false;
    for (std::size_t i = 0; i < Working.Actions.size(); ++i)
      if (i != row && rich_text::LowerCase(Working.Actions[i].Delimeter) == rich_text::LowerCase(Action.Delimeter))
        return false;
    Delimeter = Put(Working.Actions, row, Action);
    ActionCommitted = true;
    WordCommitted = false;
    return true;
  }
  bool PutWord(Row row) {
    if (!LeaveAction() || Working.Name.empty()) return false;
    Word = Put(Words, row, Working);
    return WordCommitted = true;
  }
  void Clear() {
    if (!LeaveWord()) return;
    Word.reset();
    LoadWord();
  }
  void RemoveWord() {
    Erase(Words, *Word);
    Word.reset();
    WordCommitted = true;
  }
  void RemoveAction() {
    Erase(Working.Actions, *Delimeter);
    Delimeter.reset();
    ActionCommitted = true;
    WordCommitted = false;
  }
  void LoadWord() {
    Working = Word ? Words[*Word] : PlainWord();
    Delimeter.reset();
    WordCommitted = true;
    LoadAction();
  }
  void LoadAction() {
    Action = Delimeter ? Working.Actions[*Delimeter] : PlainAction();
    Entry.reset();
    ActionCommitted = true;
  }

 private:
  LeaveAnswer Ask(const std::string& level, Row row) {
    Asked.push_back(level + (row ? "" : " without Change"));
    const LeaveAnswer answer = Answers.front();
    Answers.pop_front();
    return answer;
  }
  template <typename Item>
  static std::size_t Put(std::vector<Item>& items, Row row, const Item& item) {
    if (!row) items.push_back(item);
    const std::size_t place = row.value_or(items.size() - 1);
    items[place] = item;
    return place;
  }
};

class ActionLaw {
 public:
  explicit ActionLaw(std::uint64_t seed) : m_dice(seed) {}

  void Step() {
    GiveAnswers();
    const std::size_t step = m_dice.Below(14), words = m_plain.Words.size(), actions = m_plain.Working.Actions.size();
    const std::size_t row = m_dice.Below(100);
    if (step < 2) TypeName();
    if (step == 2) m_lists.AddWord(), m_plain.PutWord(std::nullopt);
    if (step == 3 && m_plain.Word) m_lists.ChangeWord(), m_plain.PutWord(m_plain.Word);
    if (step == 4 && m_plain.Word) m_lists.RemoveWord(), m_plain.RemoveWord();
    if (step == 5 && words > 0) m_lists.SelectWord(row % words), m_plain.SelectWord(row % words);
    if (step == 6) m_lists.Clear(), m_plain.Clear();
    if (step == 7) TypeAction();
    if (step == 8) m_lists.AddDelimeter(), m_plain.PutAction(std::nullopt);
    if (step == 9 && m_plain.Delimeter) m_lists.ChangeDelimeter(), m_plain.PutAction(m_plain.Delimeter);
    if (step == 10 && m_plain.Delimeter) m_lists.RemoveDelimeter(), m_plain.RemoveAction();
    if (step == 11) m_lists.Leave(), m_plain.LeaveWord();
    if (step == 12 && actions > 0) m_lists.SelectDelimeter(row % actions), m_plain.SelectDelimeter(row % actions);
    if (step == 13) EditEntries();
  }

  void Compare() const {
    std::vector<PlainWord> words;
    for (const auto& word : m_lists.Words().All()) words.push_back(Plain(*word));
    EXPECT_TRUE(words == m_plain.Words);
    std::vector<PlainAction> actions;
    for (const auto& action : m_lists.Delimeters().All()) actions.push_back(Plain(*action));
    EXPECT_TRUE(actions == m_plain.Working.Actions);
    PlainAction action{m_lists.Delimeter(), m_lists.Action(), m_lists.Tip(), {}};
    for (const auto& entry : m_lists.Entries().All()) action.Entries.push_back(entry.Text + std::to_string(entry.Icon));
    EXPECT_TRUE(action == m_plain.Action);
    EXPECT_EQ(m_lists.Name(), m_plain.Working.Name);
    EXPECT_EQ(m_lists.WordCommitted(), m_plain.WordCommitted);
    EXPECT_EQ(m_lists.ActionCommitted(), m_plain.ActionCommitted);
    EXPECT_EQ(m_lists.Words().Selected(), m_plain.Word);
    EXPECT_EQ(m_lists.Delimeters().Selected(), m_plain.Delimeter);
    EXPECT_EQ(m_user.Asked, m_plain.Asked) << "each level asks for itself";
  }

 private:
  /// Change is among the answers only where it exists: the word or delimeter in question has a selected row.
  void GiveAnswers() {
    std::vector<LeaveAnswer> possible = {LeaveAnswer::Add, LeaveAnswer::Discard, LeaveAnswer::Stay};
    if (m_plain.Word && m_plain.Delimeter) possible.push_back(LeaveAnswer::Change);
    m_user.Answers.clear();
    for (int i = 0; i < 8; ++i) m_user.Answers.push_back(m_dice.Pick(possible));
    m_plain.Answers = m_user.Answers;
  }
  std::string Numbered(const char* text, std::size_t limit) { return text + std::to_string(m_dice.Below(limit)); }
  void TypeName() {
    m_plain.Working.Name = Numbered("w", 5);
    m_plain.WordCommitted = false;
    m_lists.SetName(m_plain.Working.Name);
  }
  void TypeAction() {
    m_plain.Action = {
        {m_dice.Pick(std::string(".xX(["))}, m_dice.Between(1, 3), Numbered("t", 3), m_plain.Action.Entries};
    m_plain.ActionCommitted = false;
    m_lists.SetDelimeter(m_plain.Action.Delimeter);
    m_lists.SetAction(static_cast<std::int16_t>(m_plain.Action.Action));
    m_lists.SetTip(m_plain.Action.Tip);
  }
  void EditEntries() {
    std::vector<std::string>& entries = m_plain.Action.Entries;
    m_lists.EntryText = Numbered("e", 9);
    m_lists.Icon = m_dice.Between(1, 7);
    m_plain.ActionCommitted = false;
    if (entries.empty() || m_dice.Chance(50)) {
      entries.push_back(m_lists.EntryText + std::to_string(m_lists.Icon));
      return m_lists.AddEntry();
    }
    const std::size_t row = m_dice.Below(entries.size());
    m_lists.SelectEntry(row);
    EXPECT_EQ(m_lists.EntryText + std::to_string(m_lists.Icon), entries[row]);
    m_lists.EntryText = "changed";
    entries[row] = "changed" + std::to_string(m_lists.Icon);
    if (m_dice.Chance(50)) return m_lists.ChangeEntry();
    m_lists.RemoveEntry();
    Erase(entries, row);
  }

  laws::Dice m_dice;
  ListUser m_user;
  ActionLists m_lists{m_user};
  PlainLists m_plain;
};

TEST(ActionLists, WorkingCopiesFollowThePlainModel) {
  tests::PlayLaw<ActionLaw>(300, 150);
}

TEST(ActionLists, WhatAFileCouldNotHoldIsRefused) {
  ListUser user;
  ActionLists lists{user};
  lists.SetName("a");
  lists.AddWord();
  for (const char* name : {"", "say \"x\""}) {
    lists.SetName(name);
    EXPECT_FALSE(lists.AddWord()) << name;
    EXPECT_FALSE(lists.ChangeWord()) << name;
  }
  for (const char* delimeter : {"", "\"", "\n"}) {
    lists.SetDelimeter(delimeter);
    EXPECT_FALSE(lists.AddDelimeter()) << delimeter;
  }
  for (const char* entry : {"", ";x"}) {
    lists.EntryText = entry;
    lists.AddEntry();
    EXPECT_EQ(lists.Entries().Count(), 0U) << entry;
  }
  EXPECT_EQ(user.Refused.size(), 9U);
}

TEST(ActionLists, AListEndsBeforeItsNumbersDo) {
  ListUser user;
  ActionLists lists{user};
  lists.EntryText = "e";
  for (int i = 0; i < 32768; ++i) lists.AddEntry();
  EXPECT_EQ(lists.Entries().Count(), 32767U);
  EXPECT_EQ(user.Refused.size(), 1U);
  lists.SetDelimeter("(");
  lists.AddDelimeter();
  EXPECT_EQ(lists.Delimeters().All().back()->WordList(32767), "e");
}

}  // namespace
