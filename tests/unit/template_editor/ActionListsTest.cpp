// Action words and their working copies: compared at random with a plain model that copies values, and the questions
// about changes that have not been committed.

#include "template_editor/ActionLists.h"

#include <gtest/gtest.h>

#include <random>

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
  explicit ActionLaw(unsigned seed) : m_random(seed) {}

  void Step() {
    // An answer Change is given only where it exists: the word or delimeter in question has a selected row.
    m_user.Answers.clear();
    for (int i = 0; i < 8; ++i) m_user.Answers.push_back(Answer());
    m_plain.Answers = m_user.Answers;
    std::size_t row = 0;
    switch (Draw(14)) {
      case 0:
      case 1:
        return TypeName();
      case 2:
        return Both([&] { m_lists.AddWord(); }, [&] { m_plain.PutWord(std::nullopt); });
      case 3:
        if (!m_plain.Word) return;
        return Both([&] { m_lists.ChangeWord(); }, [&] { m_plain.PutWord(m_plain.Word); });
      case 4:
        return RemoveWord();
      case 5:
        if (m_plain.Words.empty()) return;
        row = Draw(m_plain.Words.size());
        return Both([&] { m_lists.SelectWord(row); }, [&] { m_plain.SelectWord(row); });
      case 6:
        return Both([&] { m_lists.Clear(); }, [&] { m_plain.Clear(); });
      case 7:
        return TypeAction();
      case 8:
        return Both([&] { m_lists.AddDelimeter(); }, [&] { m_plain.PutAction(std::nullopt); });
      case 9:
        if (!m_plain.Delimeter) return;
        return Both([&] { m_lists.ChangeDelimeter(); }, [&] { m_plain.PutAction(m_plain.Delimeter); });
      case 10:
        return RemoveDelimeter();
      case 11:
        return Both([&] { m_lists.Leave(); }, [&] { m_plain.LeaveWord(); });
      case 12:
        if (m_plain.Working.Actions.empty()) return;
        row = Draw(m_plain.Working.Actions.size());
        return Both([&] { m_lists.SelectDelimeter(row); }, [&] { m_plain.SelectDelimeter(row); });
      default:
        return EditEntries();
    }
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
  std::size_t Draw(std::size_t limit) { return m_random() % limit; }
  LeaveAnswer Answer() {
    const bool mayChange = m_plain.Word && m_plain.Delimeter;
    constexpr LeaveAnswer Answers[] = {LeaveAnswer::Add, LeaveAnswer::Discard, LeaveAnswer::Stay, LeaveAnswer::Change};
    return Answers[Draw(mayChange ? 4 : 3)];
  }
  template <typename Real, typename Simple>
  void Both(Real real, Simple simple) {
    real();
    simple();
  }
  void TypeName() {
    m_plain.Working.Name = "w" + std::to_string(Draw(5));
    m_plain.WordCommitted = false;
    m_lists.SetName(m_plain.Working.Name);
  }
  void TypeAction() {
    m_plain.Action.Delimeter = ".xX(["[Draw(5)];
    m_plain.Action.Action = static_cast<int>(1 + Draw(3));
    m_plain.Action.Tip = "t" + std::to_string(Draw(3));
    m_plain.ActionCommitted = false;
    m_lists.SetDelimeter(m_plain.Action.Delimeter);
    m_lists.SetAction(static_cast<std::int16_t>(m_plain.Action.Action));
    m_lists.SetTip(m_plain.Action.Tip);
  }
  void EditEntries() {
    m_lists.EntryText = "e" + std::to_string(Draw(9));
    m_lists.Icon = static_cast<std::int32_t>(1 + Draw(7));
    const std::string entry = m_lists.EntryText + std::to_string(m_lists.Icon);
    m_plain.ActionCommitted = false;
    if (m_plain.Action.Entries.empty() || Draw(2) == 0) {
      m_lists.AddEntry();
      m_plain.Action.Entries.push_back(entry);
      return;
    }
    const std::size_t row = Draw(m_plain.Action.Entries.size());
    m_lists.SelectEntry(row);
    EXPECT_EQ(m_lists.EntryText + std::to_string(m_lists.Icon), m_plain.Action.Entries[row]);
    m_lists.EntryText = "changed";
    if (Draw(2) == 0) {
      m_lists.ChangeEntry();
      m_plain.Action.Entries[row] = "changed" + std::to_string(m_lists.Icon);
    } else {
      m_lists.RemoveEntry();
      m_plain.Action.Entries.erase(m_plain.Action.Entries.begin() + static_cast<std::ptrdiff_t>(row));
    }
  }
  void RemoveWord() {
    if (!m_plain.Word) return;
    m_lists.RemoveWord();
    m_plain.Words.erase(m_plain.Words.begin() + static_cast<std::ptrdiff_t>(*m_plain.Word));
    m_plain.Word.reset();
    m_plain.WordCommitted = true;
  }
  void RemoveDelimeter() {
    if (!m_plain.Delimeter) return;
    m_lists.RemoveDelimeter();
    auto& actions = m_plain.Working.Actions;
    actions.erase(actions.begin() + static_cast<std::ptrdiff_t>(*m_plain.Delimeter));
    m_plain.Delimeter.reset();
    m_plain.ActionCommitted = true;
    m_plain.WordCommitted = false;
  }

  std::mt19937 m_random;
  ListUser m_user;
  ActionLists m_lists{m_user};
  PlainLists m_plain;
};

TEST(ActionLists, WorkingCopiesFollowThePlainModel) {
  for (unsigned seed = 0; seed < 300 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    ActionLaw law(seed);
    for (int step = 0; step < 150 && !testing::Test::HasFailure(); ++step) {
      law.Step();
      law.Compare();
    }
  }
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
