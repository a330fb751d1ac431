// The literal passes on cases worked out by hand, so that the yardstick itself is measured.

#include <gtest/gtest.h>

#include "Comparison.h"
#include "RandomCase.h"

namespace laws {
namespace {

using Words = std::vector<RandomCase::ColourWord>;

struct HandCase {
  const char* Name;
  const char32_t* Delimeters;
  Words ColourWords;
  const char32_t* Text;
  const char* Whole;  ///< pictures
  const char* Lines;
};

const std::vector<HandCase> HandCases = {
    {"of two words at one place the earlier one wins",
     U" \r\n<!-",
     {{U"<", U"", 0, 1, true}, {U"<!--", U"", 0, 2, true}},
     U"a<!--",
     ".1...",
     ".1..."},
    {"the other order", U" \r\n<!-", {{U"<!--", U"", 0, 2, true}, {U"<", U"", 0, 1, true}}, U"a<!--", ".2222", ".2222"},
    {"the first place of lines counts as delimited, that of a document stands behind the prefix's blank",
     U"\r",
     {{U"ab", U"", 0, 1, true}},
     U"ab",
     "..",
     "11"},
    {"nothing is delimited without delimiters", U"", {{U"ab", U"", 0, 1, true}}, U" ab ", "....", "...."},
    {"lines see the first occurrence alone",
     U" \r\n",
     {{U"for", U"", 0, 1, true}},
     U"format for",
     ".......111",
     ".........."},
    {"a document skips the end word's length whatever the end point",
     U" \r\n",
     {{U"a", U"xx", 0, 1, true}},
     U"a a a a",
     "1...1..",
     "1.1.1.1"},
    {"an included word is found as its own end",
     U" \r\n\"",
     {{U"\"", U"\"", 2, 1, true}},
     U"\"a\"b\"",
     "1.1.1",
     "1.1.1"},
    {"between start and end", U" \r\n\"", {{U"\"", U"\"", 2, 1, false}}, U"\"a\"b\"c\"d", ".1...1..", ".1...1.."},
    {"to the end of the document or of the line",
     U" \r\n\"",
     {{U"\"", U"\"", 2, 1, false}},
     U"\"ab\nc",
     ".11|1",
     ".11|."},
    {"to the end of the line",
     U" \r\n",
     {{U"rem", U"", 1, 1, true}},
     U"rem x\r\nx rem\rx",
     "11111|..111|.",
     "11111|..111|."},
    {"the rest of the line alone", U" \r\n", {{U"rem", U"", 1, 1, false}}, U"rem x\nx", "...11|.", "...11|."},
    {"without the word, as many characters behind it",
     U" \r\n",
     {{U"ab", U"", 0, 1, false}},
     U"ab cde",
     "..11..",
     "..11.."},
    {"a line end is seven units",
     U" \r\n",
     {{U"abcdefgh", U"", 0, 1, false}},
     U"abcdefgh\nxyz",
     "........|1..",
     "........|1.."},
    {"a run that ends inside a line end",
     U" \r\n",
     {{U"abcd", U"", 0, 1, false}, {U"x", U"", 1, 2, true}},
     U"abcd\nx y",
     "....|222",
     "....|222"},
    {"a line end broken by a switch ends no line",
     U" \r\n",
     {{U"abc", U"", 0, 1, false}, {U"r", U"", 1, 2, true}},
     U"abc \nr",
     "...1|2",
     "...1|2"},
    {"a number without a colour",
     U" \r\n",
     {{U"ab", U"", 0, 4, true}, {U"b", U"", 0, 0, true}},
     U"ab b",
     "....",
     "...."},
    {"the Kelvin sign is a k", U" \r\n", {{U"k", U"", 0, 1, true}}, U"\u212A K", "1.1", "1.1"},
    {"behind a run stands its switch's blank",
     U" \r\n*",
     {{U"/*", U"*/", 2, 1, true}, {U"if", U"", 0, 2, true}},
     U"/*a*/if",
     "11111..",
     "1111122"},
    {"end points and end words that never come",
     U" \r\n",
     {{U"a", U"", 2, 1, true}, {U"b", U"b", 3, 2, true}},
     U"a\nb",
     "1|1",
     "1|2"},
    {"codes are no words",
     U" \r\n\\",
     {{U"par", U"", 0, 1, true}, {U"\\cf0 ", U"", 0, 2, true}},
     U"par\n\\cf0 ",
     "111|22222",
     "111|22222"},
};

RandomCase CaseOf(const HandCase& hand) {
  RandomCase made;
  made.Delimeters = hand.Delimeters;
  made.ColourWords = hand.ColourWords;
  made.Text = hand.Text;
  return made;
}

TEST(LiteralColouring, GivesWhatWasWorkedOutByHand) {
  for (const HandCase& hand : HandCases) {
    SCOPED_TRACE(hand.Name);
    const RandomCase made = CaseOf(hand);
    const std::string text = made.TextUtf8();
    EXPECT_EQ(Picture(text, LiteralWhole(made.Fields(), text)), hand.Whole);
    EXPECT_EQ(Picture(text, LiteralLines(made.Fields(), text, true)), hand.Lines);
  }
}

TEST(LiteralColouring, LinesGiveUpOnAnOpenRun) {
  RandomCase made;
  made.Delimeters = U" \r\n";
  made.ColourWords = {{U"/*", U"*/", 2, 1, true}};
  EXPECT_TRUE(LiteralLines(made.Fields(), "a /* b", false).StaysOpen);
  EXPECT_FALSE(LiteralLines(made.Fields(), "a /* b", true).StaysOpen);
}

struct CaptureCase {
  const char* Text;
  bool CaseSensitive;
  const char* Picture;
};

TEST(LiteralColouring, CapturesSynonyms) {
  RandomCase made;
  made.Delimeters = U"=(). \r\n";
  made.ColourWords = {{U"today", U"", 0, 1, true}};
  made.ActionWords = {{U"new", true}, {U"Date", false}};
  const std::vector<CaptureCase> cases = {
      {"var today = new Date()", false, "....11111............. [today for date]"},
      {"Today == New  DATE", false, "11111............. [today for date]"},
      {"Today = new Date", true, "................ [Today for Date]"},
      {"Today = new date", true, "................"},
      {"new Date", false, "........"},
      {"today = new\nDate", false, "11111......|...."},
      {"a=new b new Date", false, "................ [b for date]"},
      {"a new new Date", false, ".............. [a for new]"},
  };
  for (const CaptureCase& hand : cases) {
    made.CaseSensitive = hand.CaseSensitive;
    EXPECT_EQ(Picture(hand.Text, LiteralLines(made.Fields(), hand.Text, true)), hand.Picture) << hand.Text;
  }
}

}  // namespace
}  // namespace laws
