// The rules of the completion list, on a text in memory.

#include "aids/ListRules.h"

#include <gtest/gtest.h>

#include "aids/TextAround.h"
#include "editor/ColourPass.h"
#include "tests/laws/Dice.h"
#include "tests/support/LoadedTemplate.h"
#include "tests/support/MemoryTextControl.h"

namespace aids {
namespace {

using List = std::vector<std::string>;

const templates::TemplateFields Fields = tests::LoadedTemplate("D: .(),§\n");

TEST(ListRules, APrefixSelectsTheFirstRowThatBeginsWithIt) {
  const List words = {"alpha", "print", "printf", "private", "\xC3\x84rger"};
  const struct {
    List Words;
    std::string Prefix;
    bool CaseSensitive;
    int Row;
  } cases[] = {
      {words, "pri", false, 2},    {words, "Pri", false, 2},       {words, "Pri", true, 0},
      {words, "printf", false, 3}, {words, "priv", false, 4},      {words, "prx", false, 0},
      {words, "", false, 0},       {words, "\xC3\xA4r", false, 5}, {words, "\xC3\xA4r", true, 0},
      {{}, "a", false, 0},         {{"ab"}, "abc", false, 0},
  };
  for (const auto& c : cases)
    EXPECT_EQ(ListWords(c.Words, c.CaseSensitive).FindListMatch(c.Prefix), c.Row) << c.Prefix << c.CaseSensitive;
}

TEST(ListRules, TheWordUnderTheCaretIsReplacedAndNoMore) {
  const struct {
    std::string Text;
    std::size_t Start, Caret;
    bool Valid;
    std::string Prefix, Replaced;
  } cases[] = {
      {"a.", 2, 2, true, "", ""},
      {"a.pri", 2, 4, true, "pri", "pri"},
      {"a.prxyz(b", 2, 5, true, "prxyz", "prxyz"},
      {"a.pr\xC2\xA7z", 2, 4, true, "pr", "pr"},
      {"a.pr.x", 2, 6, false, "pr", "pr.x"},
      {"a.(x", 2, 2, true, "(x", ""},  // a delimiter right behind: the text as it stands is the prefix
      {"a.p", 2, 1, false, "p", "-"},
      {"a.\r\nb", 2, 2, true, "\r\nb", ""},
      {"a.p\xC3\xA9\xF0\x9F\x98\x80q z", 2, 3, true, "p\xC3\xA9\xF0\x9F\x98\x80q", "p\xC3\xA9\xF0\x9F\x98\x80q"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Text);
    tests::MemoryTextControl control;
    control.SetText(c.Text);
    EXPECT_EQ(ListStillValid(control, Fields, {c.Start, c.Caret}), c.Valid);
    EXPECT_EQ(ListPrefix(control, Fields, c.Start, 20), c.Prefix);
    const ReplacedRange range = RangeToReplace(control, Fields, {c.Start, c.Caret});
    EXPECT_EQ(range.End < range.Start ? "-" : control.TextRange(range.Start, range.End), c.Replaced);
  }
}

/// What is read piece by piece is what the whole text says, wherever a character lies across two pieces.
TEST(ListRules, LooksAroundTheCaretSayWhatTheWholeTextSays) {
  const List alphabet = {"x", "Y", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"};
  for (unsigned seed = 0; seed < 200; ++seed) {
    SCOPED_TRACE(seed);
    laws::Dice dice(seed);
    std::string text = ".";
    for (std::size_t length = 200 + dice.Below(900); length > 0; --length)
      text += dice.Pick(dice.Below(400) == 0 ? Fields.Delimeters : alphabet);
    tests::MemoryTextControl control;
    control.SetText(text);
    const std::string rest = text.substr(1);
    const std::size_t place = editor::DelimeterIn(Fields, rest);
    const std::string prefix = place < 2 ? rest : CharactersAt(control, 1, place - 1);
    EXPECT_EQ(ListPrefix(control, Fields, 1, 5000), prefix);
    EXPECT_EQ(FirstDelimeter(control, Fields, 1, text.size()), place == 1 ? 1 : 1 + prefix.size());
    EXPECT_EQ(CharactersAt(control, 0, 100000), text);
    const std::string cut = ListPrefix(control, Fields, 1, 3);
    EXPECT_TRUE(prefix.starts_with(cut) && (cut == prefix || cut.size() >= 4)) << "a cut prefix matches no word of 3";
  }
}

TEST(ListRules, PageKeysRoundHalvesToEven) {
  const struct {
    int Selected, Rows;
    float ListHeight, RowHeight;
    int Down, Up;
  } cases[] = {
      {1, 20, 147, 20, 7, 1},   // 7.35 rows a page
      {7, 20, 147, 20, 13, 1},  // 13.35, 0.65
      {1, 20, 50, 20, 2, 1},    // 2.5 goes to 2, -0.5 below 1
      {2, 20, 50, 20, 4, 1},    // 3.5 goes to 4, 0.5 to 0
      {4, 20, 50, 20, 6, 2},    // 5.5 goes to 6, 2.5 to 2
      {5, 20, 50, 20, 6, 4},    // 6.5 goes to 6, 3.5 to 4
      {19, 20, 147, 20, 20, 13}, {0, 20, 147, 20, 6, 1}, {0, 3, 60, 20, 2, 1},
      {0, 0, 60, 20, 0, 0},      {0, 9, 20, 20, 1, 1},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(PageDownRow(c.Selected, c.Rows, c.ListHeight, c.RowHeight), c.Down) << c.Selected << ' ' << c.ListHeight;
    EXPECT_EQ(PageUpRow(c.Selected, c.Rows, c.ListHeight, c.RowHeight), c.Up) << c.Selected << ' ' << c.ListHeight;
  }
}

TEST(ListRules, AListGrowsWithItsRowsUpToItsGreatestHeight) {
  const struct {
    int Rows, tmHeight;
    float Width, Height;
    int RowHeight;
    bool Scrolls;
  } cases[] = {
      {0, 12, 15 * 36 + 600, 45, 16, false},      {9, 12, 15 * 36 + 600, 15 * (9 * 16 + 3), 16, false},
      {15, 12, 15 * 53 + 600, 2250, 16, true},    {7, 17, 15 * 36 + 600, 15 * (7 * 21 + 3), 21, false},
      {8, 17, 15 * 53 + 600, 2250, 21, true},     {1, 11, 15 * 36 + 600, 15 * (16 + 3), 16, false},
      {32767, 30, 15 * 53 + 600, 2250, 34, true},
  };
  for (const auto& c : cases) {
    const ListSize size =
        SizeOfList(c.Rows, {.tmHeight = c.tmHeight, .DialogFrame = 3, .ScrollBarWidth = 17, .maxW = 600});
    SCOPED_TRACE(c.Rows);
    EXPECT_EQ(size.Width, c.Width);
    EXPECT_EQ(size.Height, c.Height);
    EXPECT_EQ(size.RowHeight, c.RowHeight);
    EXPECT_EQ(size.Scrolls, c.Scrolls);
  }
}

}  // namespace
}  // namespace aids
