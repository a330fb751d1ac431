// What keys do to a text and its selection. Texts show the caret as "|", a selection between "[" and "]".

#include "editor/KeyRules.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "editor/ColourPass.h"
#include "tests/laws/Dice.h"
#include "tests/support/DocumentFixture.h"
#include "tests/support/FakePopups.h"

namespace {

using platform::Shift::Ctrl;
using platform::Shift::None;
using platform::Shift::ShiftKey;
using List = std::vector<std::string>;

constexpr int Backspace = 8, Tab = 9, Enter = 13, Left = 37, Right = 39, Insert = 45, Delete = 46;

class KeyRulesTest : public tests::DocumentFixture {
 protected:
  KeyRulesTest() { m_document.SetPopups(m_popups); }

  void Show(std::string text) {
    const std::size_t start = text.find_first_of("|["), end = text.find(']');
    text.erase(std::remove_if(text.begin(), text.end(), [](char c) { return c == '|' || c == '[' || c == ']'; }),
               text.end());
    m_control.SetText(text);
    m_control.SetSelStart(start);
    if (end != std::string::npos) m_control.SetSelLength(end - start - 1);
  }
  std::string Shown() const {
    std::string text = m_control.Text();
    const std::size_t start = m_control.SelStart(), length = m_control.SelLength();
    if (length == 0) return text.insert(start, "|");
    return text.insert(start + length, "]").insert(start, "[");
  }
  /// A key pressed and released, the key's own work done by the control unless it was consumed.
  bool Key(int code, int shift = None) {
    const bool consumed = m_control.Press(code, shift);
    m_control.Release(code, shift);
    return consumed;
  }
  void Overwrite(bool on) {
    if (m_document.State().Overwrite != on) Key(Insert);
  }

  tests::FakePopups m_popups;
};

TEST_F(KeyRulesTest, KeysByTheirTable) {
  const struct {
    bool Overwrite;
    std::string Before;
    int Key, Shift;
    std::string After;
    bool Consumed;
  } cases[] = {
      // Indentation.
      {false, "a|b", Tab, None, "a    |b", true},
      {false, "a[bc]d", Tab, None, "a    |d", true},
      {false, "x\r\n      a|b", Tab, ShiftKey, "x\r\n  ab|", true},  // the caret keeps its offset
      {false, "    |\r\nb", Tab, ShiftKey, "\r\nb|", true},
      {false, "   |ab", Tab, ShiftKey, "   |ab", true},
      {false, "\ta|b", Tab, ShiftKey, "\ta|b", true},
      {false, "  |  \xC3\xA9\xC3\xA9", Tab, ShiftKey, "\xC3\xA9|\xC3\xA9", true},
      {false, "    ab|\r\nc", Tab, ShiftKey, "ab\r\nc|", true},
      {false, " |   a\r\n", Tab, ShiftKey, "a|\r\n", true},
      {false, "  |  \r\n", Tab, ShiftKey, "\r\n|", true},
      // Without overwrite mode the control's own keys are left to it.
      {false, "a|b", Left, None, "|ab", false},
      {false, "a|b", Backspace, None, "|b", false},
      {false, "a|b", Right, ShiftKey, "ab|", false},
      // Overwrite mode.
      {true, "ab|c", Left, None, "a[b]c", true},
      {true, "|ab", Left, None, "[a]b", true},
      {true, "\xC3\xA9\xF0\x9F\x98\x80|x", Left, None, "\xC3\xA9[\xF0\x9F\x98\x80]x", true},
      {true, "a\r\n|b", Left, None, "a|\r\nb", true},
      {true, "a|b", Right, None, "ab|", false},
      {true, "ab|c", Backspace, None, "a[b]c", true},
      {true, "|ab", Backspace, None, "[a]b", true},
      {true, "ab|\r\nc", Backspace, None, "ab|\r\nc", true},
      {true, "\xE2\x82\xAC|c", Backspace, None, "[\xE2\x82\xAC]c", true},
      {true, "a[bcd]e", Backspace, None, "a[e]", true},
      {true, "a|b", Delete, None, "a|", false},
      {true, "a|b", Tab, None, "a    |", true},
      {true, "a|bcd", Right, ShiftKey, "a[bc]d", true},
      {true, "ab|cd", Left, ShiftKey, "a[bc]d", true},
      {true, "ab|\r\nc", Left, ShiftKey, "a[b]\r\nc", true},
      {true, "ab|", Right, ShiftKey, "ab|", true},
      {true, "a[bcd]e", Left, ShiftKey, "a[bc]de", true},
      {true, "a|bc", Insert, None, "a|bc", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Before + " key " + std::to_string(c.Key) + " shift " + std::to_string(c.Shift));
    Overwrite(false);
    m_control.SetText("");
    Overwrite(c.Overwrite);
    Show(c.Before);
    EXPECT_EQ(Key(c.Key, c.Shift), c.Consumed);
    EXPECT_EQ(Shown(), c.After);
  }
  EXPECT_EQ(m_frame.Clicks, List{});
  Key(Insert, Ctrl), Key(Insert, ShiftKey), Key(Delete, ShiftKey);
  EXPECT_EQ(m_frame.Clicks, (List{"miCopy", "miPaste", "miCut"}));
}

TEST_F(KeyRulesTest, TypingOverwritesWholeCharactersAndNoLineEnd) {
  Show("|\xC3\xA9\xF0\x9F\x98\x80\r\nx");
  Key(Insert);
  EXPECT_TRUE(m_frame.Bar.Overwrite);
  EXPECT_EQ(Shown(), "[\xC3\xA9]\xF0\x9F\x98\x80\r\nx");
  EXPECT_FALSE(m_frame.Enabled.at("miCopy") || m_frame.Enabled.at("miCut"));
  m_control.Type("a€b");
  EXPECT_EQ(Shown(), "a€b|\r\nx");
  m_control.SetSelStart(0);
  Key(Right, ShiftKey), Key(Right, ShiftKey);
  EXPECT_EQ(Shown(), "[a€b]\r\nx");
  EXPECT_TRUE(m_frame.Enabled.at("miCopy") && m_frame.Enabled.at("miCut"));
  Key(Left, ShiftKey), Key(Left, ShiftKey), Key(Left, ShiftKey);
  EXPECT_EQ(Shown(), "[a]€b\r\nx");
  Key(Insert);
  EXPECT_FALSE(m_frame.Bar.Overwrite);
  EXPECT_EQ(Shown(), "|a€b\r\nx");
  m_control.Type("c");
  EXPECT_EQ(Shown(), "c|a€b\r\nx");
}

TEST_F(KeyRulesTest, Enter) {
  const struct {
    bool AutoIndent, NewLineForEnter, ListShown;
    std::string Before, After;
  } cases[] = {
      {true, false, false, "x\n   ab|c", "x\n   ab\n   |c"},
      {true, true, false, "  a|", "  a\r\n  |"},
      {true, true, false, "   [a]b", "   \r\n   |b"},
      {true, true, false, "     \r|     a", "     \r\r     |     a"},
      {true, true, false, "\t  a|", "\t  a\r\n          |"},  // as far in as the line above, which a tab brought there
      {true, true, true, "  a|", "  a.\r\n  |"},
      {true, false, true, "  a|", "  a.|"},
      {false, true, false, "  a|", "  a\r\n|"},
      {false, true, true, "  a|", "  a.\r\n|"},
  };
  // Without indentation Enter is a character like others, and one that ends words.
  m_document.SetTemplate(m_folder.Write("E.def", "N: E\nD: (\n"));
  m_popups.OnWriteIt = [this] { m_control.SetSelText("."); };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Before);
    m_frame.Values.AutoIndent = c.AutoIndent;
    m_frame.Values.NewLineForEnter = c.NewLineForEnter;
    Show(c.Before);
    m_popups.ListShown = c.ListShown;
    EXPECT_EQ(Key(Enter), c.AutoIndent);
    EXPECT_EQ(Shown(), c.After);
    EXPECT_FALSE(m_popups.ListShown);
  }
}

TEST_F(KeyRulesTest, ADelimeterAfterAnActionWordAsksForItsPopup) {
  m_document.SetTemplate(
      m_folder.Write("A.def",
                     "N: A\nD: (.;\nW: \"Print\" 1\n1 \"(\" 0\n\"\"\nW: \"doc.open\" 1\n2 \".\" 0\n\"\"\n"
                     "W: \"alias\" 1\n3 \" \" 0\n\"\"\nY: \"out\" \"print\"\n"));
  const struct {
    std::string Text, Typed, Word;
    bool Tip, List;
  } cases[] = {{"x print|", "(", "Print", true, false},    {"doc.open|", ".", "doc.open", false, true},
               {"(out|) tail", "(", "Print", true, false}, {"alias|", " ", "alias", false, false},
               {"print|", ";", "", false, false},          {"xprint|", "(", "", false, false},
               {"print|", "x", "", false, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Text + c.Typed);
    editor::DocumentState& state = m_document.State();
    state.ActionWord = nullptr;
    state.ActionDelimeter = 0;
    state.TipPending = state.ListPending = false;
    Show(c.Text);
    m_control.Type(c.Typed);
    EXPECT_EQ(state.ActionWord ? state.ActionWord->Name : "", c.Word);
    EXPECT_EQ(state.TipPending, c.Tip);
    EXPECT_EQ(state.ListPending, c.List);
    EXPECT_EQ(state.ActionDelimeter, state.ActionWord ? static_cast<char32_t>(c.Typed[0]) : 0);
  }
  m_popups.ListShown = true;
  Show("|");
  m_popups.OnWriteIt = [this] { m_control.SetSelText("print"); };
  m_control.Type("(");
  EXPECT_EQ(Shown(), "print(|") << "the word is completed first";
  EXPECT_TRUE(m_document.State().TipPending);
  m_popups.ListShown = true;
  Key(Tab);
  EXPECT_EQ(Shown(), "print(print|");
}

TEST_F(KeyRulesTest, TheMenuOpensAtTheClick) {
  Show("ab\r\nc|d");
  m_document.MouseDown(2, None, 9, 3);
  EXPECT_EQ(Shown(), "a|b\r\ncd");
  m_control.SetSelLength(1);
  m_document.MouseDown(2, None, 0, 20);
  EXPECT_EQ(Shown(), "a[b]\r\ncd");
  EXPECT_EQ(m_frame.Clicks, (List{"TextPopup 9,3", "TextPopup 0,20"}));
}

/// The rule as it is told: every word compared with the whole text.
std::shared_ptr<const templates::Word> LiteralFind(const templates::TemplateFields& fields, std::string_view all) {
  const std::string text = editor::CaseFold(fields, all);
  const auto ends = [&](const std::string& name) {
    const std::string folded = editor::CaseFold(fields, name);
    if (!text.ends_with(folded)) return false;
    std::size_t at = text.size() - folded.size();
    if (at == 0) return true;
    while ((static_cast<unsigned char>(text[--at]) & 0xC0) == 0x80) {
    }
    return fields.IsDelimeter(std::string_view(text).substr(at));
  };
  for (const auto& word : fields.Words)
    if (ends(word->Name)) return word;
  for (const auto& synonym : fields.Synonyms) {
    if (!ends(synonym->Word)) continue;
    for (const auto& word : fields.Words)
      if (editor::CaseFold(fields, word->Name) == editor::CaseFold(fields, synonym->Synonym)) return word;
    return nullptr;
  }
  return nullptr;
}

TEST(ActionWords, AreFoundAsTheRuleSaysWhateverIsAddedAndRemoved) {
  const std::vector<std::string> parts = {"a", "A", "b", "\xC3\x89", "\xC3\xA9", ".", "(", "\xE2\x82\xAC"};
  int found = 0, bySynonym = 0;
  for (std::uint64_t seed = laws::FirstSeed(); seed < laws::FirstSeed() + laws::Runs(300); ++seed) {
    laws::Dice dice(seed);
    templates::TemplateFields fields;
    fields.Delimeters = {".", "(", "\xE2\x82\xAC"};
    fields.CaseSensitive = dice.Chance(50);
    editor::ActionWords words(fields);
    for (int step = 0; step < 60; ++step) {
      if (dice.Chance(20)) {
        auto word = std::make_shared<templates::Word>();
        word->Name = dice.Text(parts, 4);
        word->AddTo(fields.Words);
      }
      if (dice.Chance(20)) {
        const std::string word = dice.Text(parts, 4);
        fields.Synonyms.AddReplacing(
            std::make_shared<templates::Synonym>(templates::Synonym{word, dice.Text(parts, 3)}), word);
      }
      if (dice.Chance(3)) fields.Words.Clear();
      const std::string text = dice.Text(parts, 12);
      const auto expected = LiteralFind(fields, text);
      ASSERT_EQ(words.FindActionWord(text), expected) << "QUILLMARK_LAW_SEED=" << seed << " text " << text;
      std::string tail = text.substr(text.size() - std::min(text.size(), words.Reach()));
      while (!tail.empty() && (static_cast<unsigned char>(tail[0]) & 0xC0) == 0x80) tail.erase(0, 1);
      ASSERT_EQ(words.FindActionWord(tail), expected) << "QUILLMARK_LAW_SEED=" << seed << " text " << text;
      found += expected != nullptr;
    }
    for (std::size_t place = 1; place <= fields.Synonyms.Count(); ++place)
      bySynonym += words.FindActionWord(fields.Synonyms.Item(place)->Word) != nullptr;
  }
  EXPECT_GT(found, 300);
  EXPECT_GT(bySynonym, 20);
}

}  // namespace
