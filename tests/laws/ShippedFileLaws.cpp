// The program's colouring against the literal rules, on real files with the templates that ship; and what must hold for
// whole files, where the literal rules are too slow.

#include <gtest/gtest.h>

#include <algorithm>

#include "Comparison.h"
#include "RandomCase.h"
#include "ShippedFiles.h"
#include "StyledLaws.h"
#include "rich_text/Rtf.h"

namespace laws {
namespace {

/// How much of a file goes through the literal rules: of one that belongs to the template, and of any other.
constexpr std::size_t OwnBytes = 4000, ForeignBytes = 600;
/// How many texts of others each template gets.
constexpr std::size_t ForeignTexts = 8;

/// The first line that two results colour differently, with the file's name; "" if there is none.
std::string FirstDifference(const std::string& text, const LiteralResult& expected, const LiteralResult& actual) {
  if (expected == actual) return "";
  const std::string rules = Picture(text, expected), pass = Picture(text, actual);
  std::size_t at = 0;
  while (at < rules.size() && at < pass.size() && rules[at] == pass[at]) ++at;
  std::size_t begin = std::min(rules.rfind('|', at) + 1, at), line = 0;
  for (std::size_t i = 0; i < begin; ++i) line += rules[i] == '|';
  const std::size_t width = std::min({rules.find('|', at), pass.find('|', at), at + 60}) - begin;
  return "line " + std::to_string(line + 1) + "\n  the text  " + Visible(ToUtf8(FromUtf8(text).substr(begin, width))) +
         "\n  the rules " + rules.substr(begin, width) + "\n  the pass  " + pass.substr(begin, width);
}

enum class Pairs { All, Own };

/// Every shipped template with the beginning of every shipped text that belongs to it, and perhaps of some others,
/// which differ from template to template.
template <typename Body>
void ForEachPair(Pairs pairs, const Body& body) {
  const std::vector<ShippedText> texts = ShippedTexts();
  ASSERT_GT(texts.size(), ShippedTemplates().size()) << "there are examples beside the templates";
  const std::size_t step = std::max<std::size_t>(1, texts.size() / ForeignTexts);
  std::size_t turn = 0;
  for (const ShippedTemplate& shipped : ShippedTemplates()) {
    ++turn;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const bool own = texts[i].BelongsTo(shipped);
      if (!own && (pairs == Pairs::Own || (turn + i) % step != 0)) continue;
      SCOPED_TRACE(texts[i].Name + " with " + shipped.Name);
      body(shipped.Fields, Beginning(texts[i].Text, own ? OwnBytes : ForeignBytes));
    }
  }
}

TEST(ShippedFileLaws, WholeDocumentFollowsTheRules) {
  ForEachPair(Pairs::All, [](const templates::TemplateFields& fields, const std::string& text) {
    EXPECT_EQ(FirstDifference(text, LiteralWhole(fields, text), FastWhole(fields, text)), "");
  });
}

TEST(ShippedFileLaws, PiecesFollowTheRules) {
  ForEachPair(Pairs::All, [](const templates::TemplateFields& fields, const std::string& text) {
    for (const bool close : {true, false})
      EXPECT_EQ(FirstDifference(text, LiteralLines(fields, text, close), FastLines(fields, text, close)), "");
  });
}

/// A long text made of a shipped one, with line ends of all kinds and characters of all lengths.
std::string LongText(const std::string& text, std::size_t bytes) {
  std::string grown;
  while (grown.size() < bytes) grown += text + "\r\n/* é€Ω\U0001F600 \"\r" + text + "\n";
  return grown;
}

/// A text in the colours that the whole-document pass gives it.
rich_text::StyledText Coloured(const templates::TemplateFields& fields, const std::string& text) {
  return {text, fields.Colours, editor::ColouredRuns(editor::ColourPass(fields).Whole(text), fields.Colours)};
}

TEST(ShippedFileLaws, LongTextsKeepTheirTextAndColourTwiceTheSame) {
  ForEachPair(Pairs::Own, [](const templates::TemplateFields& fields, const std::string& beginning) {
    const std::string text = LongText(beginning, 200'000);
    const editor::ColourPass pass(fields);
    EXPECT_EQ(FaultOfRuns(text, pass.Whole(text)), "");
    EXPECT_EQ(pass.Whole(text, {}, 7), pass.Whole(text, {}, 1));
    EXPECT_EQ(FaultOfRuns(text, pass.Lines(text, true).Runs), "");
    const rich_text::StyledText styled = Coloured(fields, text);
    EXPECT_EQ(FaultOf(styled), "");
    const std::vector<StyledCharacter> characters = Characters(styled);
    const rich_text::StyledText back = rich_text::ReadRtf(rich_text::WriteRtf(styled, "Some Font"));
    EXPECT_EQ(Difference(characters, Characters(back)), "");
    EXPECT_EQ(Difference(characters, Characters(Coloured(fields, back.Text))), "");
  });
}

bool IsBeginningOf(const std::vector<editor::PassRun>& part, const std::vector<editor::PassRun>& whole) {
  return part.size() <= whole.size() && std::equal(part.begin(), part.end(), whole.begin());
}

TEST(ShippedFileLaws, StoppedPassesGiveTheBeginning) {
  for (const ShippedTemplate& shipped : ShippedTemplates()) {
    SCOPED_TRACE(shipped.Name);
    const editor::ColourPass pass(shipped.Fields);
    const std::string text = LongText(ShippedTexts().front().Text, 1'000'000);
    const std::vector<editor::PassRun> whole = pass.Whole(text), lines = pass.Lines(text, true).Runs;
    for (const int calls : {0, 1, 3}) {
      int left = calls;
      const auto stop = [&left](std::size_t) { return left-- > 0; };
      for (const std::size_t parts : {1, 3}) {
        left = calls;
        const std::vector<editor::PassRun> part = pass.Whole(text, stop, parts);
        EXPECT_TRUE(IsBeginningOf(part, whole));
        EXPECT_TRUE(whole.empty() || part.size() < whole.size()) << "nobody was asked whether to go on";
      }
      left = calls;
      EXPECT_TRUE(IsBeginningOf(pass.Lines(text, true, nullptr, stop).Runs, lines));
    }
  }
}

}  // namespace
}  // namespace laws
