#include "editor/rtfscan/Scanners.h"

#include <gtest/gtest.h>

#include "rich_text/Encoding.h"
#include "rich_text/Rtf.h"
#include "tests/laws/Dice.h"

namespace {

using namespace editor::rtfscan;

std::string Cleared(std::string piece) {
  piece.resize(ClearLn(piece));
  return piece;
}

TEST(Scanners, ClearLnTellsCodesFromText) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"\\cf1 ab\\cf0 c", "abc"},
      {"\\plain\\f0\\fs20\\cf12 a\\plain\\f0\\fs20  b", "a b"},
      {"a\\\\cf1 b\\\\plain c", "a\\\\cf1 b\\\\plain c"},
      {"\\\\\\cf1 x", "\\\\x"},
      {"\\{\\cf1 \\}\\cf0 \\'5c\\cf2 \\u937?", "\\{\\}\\'5c\\u937?"},
      {"\\cfoo \\plainer \\tab \\cf3 \r\n\\par ", "\\cfoo \\plainer \\tab \r\n\\par "},
      {"\\u92?cf1 ", "\\u92?cf1 "},
      {"a\\cf1", "a"},
      {"a\\plain\\f0", "a"},
      {"a\\", "a\\"},
      {"a\\'4", "a\\'4"},
  };
  for (const auto& [piece, cleared] : cases) EXPECT_EQ(Cleared(piece), cleared) << piece;
}

/// A coloured text with everything that looks like a code.
struct Sample {
  explicit Sample(std::uint64_t seed) {
    laws::Dice dice(seed);
    static const std::vector<std::string> parts = {"a",  "  ",   "\\", "\\par ", "\\cf1 ", "\\plain ",
                                                   "{",  "}",    "\t", "é",      "Ω",      "😀",
                                                   "\n", "\r\n", "\r", "\\'e9",  "\x01",   "word"};
    rich_text::StyledText styled;
    styled.Colours = {0xFF, 0x8000, 0xFF0000};
    for (std::size_t count = dice.Below(25); count > 0; --count) {
      const std::string part = dice.Pick(parts);
      if (part == "\n" && styled.Text.ends_with('\r')) continue;  // would join a line end that has its colour
      const std::size_t start = styled.Text.size();
      styled.Text += part;
      if (dice.Chance(50))
        styled.Runs.push_back({start, styled.Text.size(), static_cast<std::uint32_t>(dice.Between(1, 3))});
    }
    Rtf = rich_text::WriteRtf(styled, "Courier New");
    BodyAt = Rtf.find(' ', Rtf.find("\\deflang")) + 1;
    Body = Rtf.substr(BodyAt);
    Plain = rich_text::WriteRtf({styled.Text, {}, {}}, "Courier New");
    PlainBody = Plain.substr(Plain.find(' ', Plain.find("\\deflang")) + 1);
    Lines.emplace_back();
    for (const char c : rich_text::ReadRtfPiece(PlainBody.substr(0, PlainBody.size() - 8))) {
      Lines.back() += c;
      if (c == '\n') Lines.emplace_back();
    }
  }

  /// The text that stands in the body before a 1-based position of it.
  std::string TextBefore(std::size_t position) const { return rich_text::ReadRtfPiece(Body.substr(0, position - 1)); }

  std::string Rtf, Body, Plain, PlainBody;
  std::size_t BodyAt = 0;
  std::vector<std::string> Lines;  ///< with their LF
};

std::string Joined(const std::vector<std::string>& lines, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += lines[i];
  return text;
}

TEST(Scanners, LinesOfWrittenTexts) {
  for (std::uint64_t seed = 0; seed < 3000 && !testing::Test::HasFailure(); ++seed) {
    const Sample sample(seed);
    SCOPED_TRACE("seed " + std::to_string(seed) + ": " + sample.Rtf);
    EXPECT_EQ(Cleared(sample.Body), sample.PlainBody);
    EXPECT_EQ(NumberOfLinesIn(sample.Rtf), sample.Lines.size() + 1);
    for (std::size_t line = 0; line < sample.Lines.size(); ++line) {
      EXPECT_EQ(sample.TextBefore(GoToLine(sample.Body, line)), Joined(sample.Lines, line));
      const std::size_t spaces = std::min(sample.Lines[line].find_first_not_of(' '), sample.Lines[line].size());
      EXPECT_EQ(WhiteSpace(sample.Rtf, line + 1), spaces);
    }
    EXPECT_EQ(GoToLine(sample.Body, sample.Lines.size() + 1), sample.Body.size() + 1);
    EXPECT_EQ(WhiteSpace(sample.Rtf, 0) + WhiteSpace(sample.Rtf, sample.Lines.size() + 1), 0u);
  }
}

TEST(Scanners, PositionsOfWrittenTextsWithAndWithoutTheResumePoint) {
  for (std::uint64_t seed = 0; seed < 3000 && !testing::Test::HasFailure(); ++seed) {
    const Sample sample(seed);
    SCOPED_TRACE("seed " + std::to_string(seed) + ": " + sample.Rtf);
    std::size_t keptPos = 0, keptOffset = 0, offset = 0, lineStart = 0;
    std::string before;
    for (std::size_t line = 0; line < sample.Lines.size(); ++line, lineStart = offset)
      for (std::size_t i = 0; i < sample.Lines[line].size();) {
        const std::size_t units = sample.Lines[line][i] == '\n' ? 2 : 1;
        for (std::size_t unit = 0; unit < units; ++unit, ++offset) {
          std::size_t cachePos = 0, cacheOffset = 0;
          const std::size_t position = RTFPosition(sample.Rtf, offset, cachePos, cacheOffset);
          EXPECT_EQ(sample.TextBefore(position - sample.BodyAt), before) << offset;
          EXPECT_FALSE(sample.Rtf.substr(position - 1).starts_with("\\plain")) << "a switch is no character";
          EXPECT_EQ(cacheOffset, lineStart);
          EXPECT_EQ(sample.TextBefore(cachePos - sample.BodyAt), Joined(sample.Lines, line));
          EXPECT_EQ(RTFPosition(sample.Rtf, offset, keptPos, keptOffset), position) << offset;
          EXPECT_EQ(keptOffset, lineStart);
          EXPECT_EQ(NumberOfLinesIn(sample.Rtf.substr(0, position + 1)), line + 1) << "the caret's line";
        }
        const std::size_t bytes = rich_text::CodePointAt(sample.Lines[line], i).Bytes;
        before += sample.Lines[line].substr(i, bytes);
        i += bytes;
      }
    std::size_t cachePos = 0, cacheOffset = 0;
    const std::size_t behind = RTFPosition(sample.Rtf, offset + 1000, cachePos, cacheOffset);
    EXPECT_EQ(sample.TextBefore(behind - sample.BodyAt), Joined(sample.Lines, sample.Lines.size()) + '\n');
  }
}

}  // namespace
