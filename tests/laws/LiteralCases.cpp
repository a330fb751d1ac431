// The literal passes on cases worked out by hand, so that the yardstick itself is measured.

#include <gtest/gtest.h>

#include "Comparison.h"
#include "RandomCase.h"

namespace laws {
namespace {

using Words = std::vector<RandomCase::ColourWord>;

struct HandCase {
  const char* Name;
  Words ColourWords;
  const char32_t* Text;
  const char* Whole;            ///< the picture of the document
  const char* Lines = nullptr;  ///< that of its lines; null for the same one
  const char32_t* Delimeters = U" \r\n";
};

const std::vector<HandCase> HandCases = {
    {"the earlier of two at one place wins", {{U"<"}, {U"<!--", U"", 0, 2}}, U"a<!--", ".1...", nullptr, U" \r\n<!-"},
    {"the other order", {{U"<!--", U"", 0, 2}, {U"<"}}, U"a<!--", ".2222", nullptr, U" \r\n<!-"},
    // The first place of lines counts as delimited, that of a document stands behind the prefix's blank.
    {"the first place", {{U"ab"}}, U"ab", "..", "11", U"\r"},
    {"nothing is delimited without delimiters", {{U"ab"}}, U" ab ", "....", nullptr, U""},
    {"lines see the first occurrence alone", {{U"for"}}, U"format for", ".......111", ".........."},
    // Whatever the end point.
    {"a document skips the end word's length", {{U"a", U"xx"}}, U"a a a a", "1...1..", "1.1.1.1"},
    {"an included word is found as its own end", {{U"\"", U"\"", 2}}, U"\"a\"b\"", "1.1.1", nullptr, U" \r\n\""},
    {"between", {{U"\"", U"\"", 2, 1, false}}, U"\"a\"b\"c\"d", ".1...1..", nullptr, U" \r\n\""},
    {"to the end of all, or of the line", {{U"\"", U"\"", 2, 1, false}}, U"\"ab\nc", ".11|1", ".11|.", U" \r\n\""},
    {"to the end of the line", {{U"rem", U"", 1}}, U"rem x\r\nx rem\rx", "11111|..111|."},
    {"the rest of the line alone", {{U"rem", U"", 1, 1, false}}, U"rem x\nx", "...11|."},
    {"without the word, as many characters behind it", {{U"ab", U"", 0, 1, false}}, U"ab cde", "..11.."},
    {"a line end is seven units", {{U"abcdefgh", U"", 0, 1, false}}, U"abcdefgh\nxyz", "........|1.."},
    {"ends inside a line end", {{U"abcd", U"", 0, 1, false}, {U"x", U"", 1, 2}}, U"abcd\nx y", "....|222"},
    {"a broken line end ends no line", {{U"abc", U"", 0, 1, false}, {U"r", U"", 1, 2}}, U"abc \nr", "...1|2"},
    {"a number without a colour", {{U"ab", U"", 0, 4}, {U"b", U"", 0, 0}}, U"ab b", "...."},
    {"the Kelvin sign is a k", {{U"k"}}, U"\u212A K", "1.1"},
    {"the blank of a switch", {{U"/*", U"*/", 2}, {U"if", U"", 0, 2}}, U"/*a*/if", "11111..", "1111122", U" \r\n*"},
    {"ends that never come", {{U"a", U"", 2}, {U"b", U"b", 3, 2}}, U"a\nb", "1|1", "1|2"},
    {"codes are no words", {{U"par"}, {U"\\cf0 ", U"", 0, 2}}, U"par\n\\cf0 ", "111|22222", nullptr, U" \r\n\\"},
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
    EXPECT_EQ(Picture(text, LiteralLines(made.Fields(), text, true)), hand.Lines ? hand.Lines : hand.Whole);
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
