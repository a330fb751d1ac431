// Rich text written and read back is the same; the fuzzer of the readers (tests/fuzz) has what else may come.

#include <gtest/gtest.h>

#include <array>

#include "RandomCase.h"
#include "StyledLaws.h"
#include "rich_text/Encoding.h"
#include "rich_text/Rtf.h"

namespace laws {
namespace {

using rich_text::StyledText;

const std::array<const char*, 22> Pieces = {
    "{",      "}",       "\\",           "\t",   "\\par ",   "\\cf1 ",     "\\plain",
    "\\'e9",  "\\u937?", "a b",          "word", "0",        " ",          "\n",
    "\r\n",   "\r",      "\x01\x0b\x7f", "é€Ž",  "Ωж\u2028", "\U0001F600", "\u0081\u00A0\uFFFD",
    "\uFFFF;"};

std::string RandomText(Dice& dice, std::size_t pieces) {
  std::string text;
  for (; pieces > 0; --pieces) {
    if (dice.Chance(4))
      text += '\0';
    else if (dice.Chance(10))
      text += static_cast<char>(dice.Below(0x80));
    else
      text += dice.Pick(Pieces);
  }
  return text;
}

/// Random runs between the characters of the text.
StyledText RandomStyled(Dice& dice) {
  StyledText styled;
  styled.Text = RandomText(dice, dice.Below(30));
  for (std::size_t count = dice.Below(6); count > 0; --count)
    styled.Colours.push_back(dice.Chance(30) ? 0x0000FF : static_cast<rich_text::ColourValue>(dice.Next() & 0xFFFFFF));
  if (styled.Colours.empty()) return styled;
  std::vector<std::size_t> cuts;
  for (std::size_t i = 0; i <= styled.Text.size(); ++i) {
    StyledText probe{styled.Text, {0}, {{i, styled.Text.size(), 1}}};
    if (i < styled.Text.size() && FaultOf(probe).empty() && dice.Chance(30)) cuts.push_back(i);
  }
  cuts.push_back(styled.Text.size());
  for (std::size_t i = 0; i + 1 < cuts.size(); ++i)
    if (dice.Chance(60))
      styled.Runs.push_back({cuts[i], cuts[i + 1], static_cast<std::uint32_t>(1 + dice.Below(styled.Colours.size()))});
  return styled;
}

std::string Replay(std::uint64_t seed) {
  return "QUILLMARK_LAW_SEED=" + std::to_string(seed) + " QUILLMARK_LAW_RUNS=1 replays it\n";
}

/// The text alone, line ends as LF.
std::string WithLineFeeds(const std::string& text) {
  std::u32string characters;
  for (const StyledCharacter& character : Characters({text, {}, {}})) characters += character.first;
  return ToUtf8(characters);
}

TEST(RtfLaws, WrittenAndReadBackIsTheSame) {
  const std::uint64_t runs = Runs(5000);
  for (std::uint64_t seed = FirstSeed(); seed < FirstSeed() + runs && !HasFailure(); ++seed) {
    Dice dice(seed);
    const StyledText styled = RandomStyled(dice);
    const std::string rtf = rich_text::WriteRtf(styled, "Some Font");
    const StyledText back = rich_text::ReadRtf(rtf);
    EXPECT_EQ(Difference(Characters(styled), Characters(back)), "") << Replay(seed) << Visible(rtf);
    const std::string text = WithLineFeeds(styled.Text);
    EXPECT_EQ(back.Text, text) << Replay(seed) << Visible(rtf);
    EXPECT_EQ(FaultOf(back), "") << Replay(seed) << Visible(rtf);

    std::string piece;
    rich_text::AppendRtfText(piece, styled.Text);
    EXPECT_EQ(rich_text::ReadRtfPiece(piece), text) << Replay(seed) << Visible(piece);
    if (text.ends_with('\n')) continue;  // without a last paragraph's end, a last line end would be taken for it
    const StyledText cut = rich_text::ReadRtf(rich_text::WriteRtf(styled, "Some Font", false));
    EXPECT_EQ(Difference(Characters(styled), Characters(cut)), "") << Replay(seed) << Visible(rtf);
  }
}

}  // namespace
}  // namespace laws
