#include "templates/LineReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "templates/Values.h"

namespace {

using namespace templates;

TEST(LineReader, LinesEndAtAnyKindOfLineEnd) {
  LineReader lines("a\r\nb\rc\n\n;d\r\n\re\xC3\xBC");
  const std::vector<std::string> expected = {"a", "b", "c", "", ";d", "", "e\xC3\xBC"};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(lines.RawLine(), expected[i]);
    EXPECT_EQ(lines.LineNumber(), i + 1);
  }
  EXPECT_TRUE(lines.AtEnd());
  EXPECT_EQ(lines.RawLine(), std::nullopt);
  EXPECT_EQ(LineReader("").RawLine(), std::nullopt);
}

TEST(LineReader, EmptyLinesAndCommentsAreSkippedAndCounted) {
  LineReader lines("\r\n;x\n\n a\n;y\r\nb\n;z");
  EXPECT_EQ(lines.NextLine(), " a");
  EXPECT_EQ(lines.LineNumber(), 4U);
  EXPECT_EQ(lines.NextLine(), "b");
  EXPECT_EQ(lines.LineNumber(), 6U);
  EXPECT_EQ(lines.NextLine(), std::nullopt);
}

TEST(LineReader, CharactersAreCodePointsAndLinesAreCountedInsideThem) {
  // The line behind the stretch, and its number, when the stretch ends in a line, between CR and LF, or behind both.
  const struct {
    std::size_t Count;
    const char *Taken, *NextLine;
    std::size_t Number;
  } cases[] = {{0, "", "\xC3\xBC", 2},       {1, "\xC3\xBC", "", 2},       {2, "\xC3\xBC\r", "", 3},
               {3, "\xC3\xBC\r\n", "xy", 3}, {4, "\xC3\xBC\r\nx", "y", 3}, {6, "\xC3\xBC\r\nxy\n", "z", 4}};
  for (const auto& c : cases) {
    LineReader lines("T\n\xC3\xBC\r\nxy\nz\nend");
    lines.RawLine();
    const auto stretch = lines.TakeCharacters(c.Count);
    EXPECT_EQ(stretch.Text, c.Taken);
    EXPECT_EQ(stretch.Characters, c.Count);
    EXPECT_EQ(lines.RawLine(), c.NextLine) << c.Count;
    EXPECT_EQ(lines.LineNumber(), c.Number) << c.Count;
    while (lines.RawLine()) {
    }
    EXPECT_EQ(lines.LineNumber(), 5U) << c.Count;
  }
  LineReader lines("ab");
  EXPECT_EQ(lines.TakeCharacters(static_cast<std::size_t>(-1)).Characters, 2U);
}

TEST(Values, FieldsAreCutAtSpacesAndQuotes) {
  const struct {
    const char* Text;
    std::size_t Fields;
    bool Quoted;
    std::vector<std::string> Expected;  ///< empty: too few
  } cases[] = {
      {"rem 1  2 True", 5, false, {"rem", "1", "", "2", "True"}},
      {"rem 1  2", 5, false, {}},
      {"\" 0  1 False", 5, false, {"\"", "0", "", "1", "False"}},
      {"a b", 5, false, {}},
      {"  0  ", 3, false, {"", "", "0  "}},
      {"\"for each\" 2", 2, true, {"\"for each\"", "2"}},
      {"\"for each", 2, true, {}},
      {"\"for\"", 2, true, {}},
      {"\"for\" ", 2, true, {"\"for\"", ""}},
      {"2 \"\"\" 5", 3, true, {"2", "\"\"", " 5"}},
      {"\"a\" \"b\" rest", 2, true, {"\"a\"", "\"b\""}},
      {"", 1, true, {""}},
      {"", 2, true, {}},
  };
  for (const auto& c : cases) {
    std::vector<std::string_view> fields(c.Fields);
    ASSERT_EQ(SplitFields(c.Text, fields, c.Quoted), !c.Expected.empty()) << c.Text;
    if (!c.Expected.empty()) {
      EXPECT_EQ(std::vector<std::string>(fields.begin(), fields.end()), c.Expected) << c.Text;
    }
  }
}

TEST(Values, ConversionsAreLenientButNeverGuess) {
  for (const char* yes : {"True", " true ", "TRUE", "1", "-1", "0.5", "+2"}) EXPECT_EQ(ParseBoolean(yes), true) << yes;
  for (const char* no : {"False", "fAlSe", "0", "-0.0", " 0 "}) EXPECT_EQ(ParseBoolean(no), false) << no;
  for (const char* bad : {"", "yes", "nan", "inf", "1x", "- 1", "Truee", "1e999"})
    EXPECT_EQ(ParseBoolean(bad), std::nullopt) << bad;

  EXPECT_EQ(ParseInteger<std::int16_t>(" -32768 "), -32768);
  EXPECT_EQ(ParseInteger<std::int16_t>("+007"), 7);
  for (const char* bad : {"", "32768", "1.5", "0x1", "1 2", "+-1", "--1", "99999999999999999999"})
    EXPECT_EQ(ParseInteger<std::int16_t>(bad), std::nullopt) << bad;

  EXPECT_EQ(ParseHexColour("0000ff"), 0xFFU);
  EXPECT_EQ(ParseHexColour("A"), 10U);
  for (const char* bad : {"", "#FF", "1000000", "-1", "0xFF", "FFGG", "F F"})
    EXPECT_EQ(ParseHexColour(bad), std::nullopt) << bad;
  EXPECT_EQ(HexColour(0xA0B), "#000A0B");

  EXPECT_EQ(DropEnds("\xC3\xBCx\xE2\x82\xAC"), "x");
  EXPECT_EQ(DropEnds("\""), "");
  EXPECT_EQ(DropEnds("\"\""), "");
  EXPECT_EQ(FromCharacter("N\xC3\xBC\xE2\x82\xAC"
                          "4",
                          4),
            "4");
  EXPECT_EQ(FromCharacter("N:", 4), "");
}

}  // namespace
