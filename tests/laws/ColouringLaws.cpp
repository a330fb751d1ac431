// The program's colouring against the literal rules, on random templates and texts.

#include <gtest/gtest.h>

#include <functional>

#include "Comparison.h"
#include "RandomCase.h"
#include "rich_text/Encoding.h"

namespace laws {
namespace {

using Pass = std::function<LiteralResult(const RandomCase&)>;

/// How often the cases came to something: a comparison of passes that never colour proves nothing.
struct Tally {
  std::uint64_t Coloured = 0, StayedOpen = 0, Captured = 0;

  void Count(const LiteralResult& result) {
    StayedOpen += result.StaysOpen;
    Captured += !result.Captured.empty();
    for (const int colour : result.Colours)
      if (colour != 0) {
        ++Coloured;
        return;
      }
  }
};

std::string Report(std::uint64_t seed, const RandomCase& small, const Pass& fast, const Pass& literal) {
  const std::string text = small.TextUtf8();
  return "QUILLMARK_LAW_SEED=" + std::to_string(seed) + " QUILLMARK_LAW_RUNS=1 replays it; made small:\n" +
         small.Describe() + (small.CloseAtLineEnd ? "  (a line pass closes at the line's end)\n" : "") +
         "  the rules " + Picture(text, literal(small)) + "\n  the pass  " + Picture(text, fast(small));
}

/// Leaves delimiters out that folding changes, where synonyms are captured in folded text: they separate words in the
/// text but not in what is captured from it, and what the token beside such a word is, nobody says.
RandomCase WithoutGluedTokens(RandomCase made) {
  if (!made.CaseSensitive && !made.ActionWords.empty())
    std::erase_if(made.Delimeters, [](char32_t c) { return rich_text::LowerCase(c) != c; });
  return made;
}

/// Compares the two passes on `runs` cases, up to the first difference.
Tally Compare(std::uint64_t runs, const Pass& fast, const Pass& literal,
              const std::function<RandomCase(RandomCase)>& narrow = std::identity()) {
  Tally tally;
  const auto differs = [&](const RandomCase& made) { return fast(made) != literal(made); };
  for (std::uint64_t seed = FirstSeed(); seed < FirstSeed() + runs; ++seed) {
    Dice dice(seed);
    const RandomCase made = narrow(MakeRandomCase(dice));
    const LiteralResult expected = literal(made);
    tally.Count(expected);
    if (fast(made) == expected) continue;
    ADD_FAILURE() << Report(seed, Shrink(made, differs), fast, literal);
    break;
  }
  return tally;
}

constexpr std::uint64_t EnoughForShares = 1000;

TEST(ColouringLaws, WholeDocument) {
  const std::uint64_t runs = Runs(120'000);
  const Tally tally = Compare(
      runs, [](const RandomCase& made) { return FastWhole(made.Fields(), made.TextUtf8()); },
      [](const RandomCase& made) { return LiteralWhole(made.Fields(), made.TextUtf8()); });
  if (HasFailure() || runs < EnoughForShares) return;
  EXPECT_GT(tally.Coloured, runs / 3);
}

TEST(ColouringLaws, PartsOfADocument) {
  constexpr std::uint64_t Parts = 6;
  for (std::uint64_t seed = FirstSeed(); seed < FirstSeed() + Runs(20'000); ++seed) {
    Dice dice(seed);
    const RandomCase made = MakeRandomCase(dice);
    const editor::ColourPass pass(made.Fields());
    std::string text;
    for (std::uint64_t i = 0; i < Parts; ++i) text += made.TextUtf8() + (dice.Below(2) == 0 ? "\n" : "\r\n");
    const std::size_t parts = 2 + dice.Below(Parts);
    ASSERT_EQ(pass.Whole(text, {}, parts), pass.Whole(text, {}, 1)) << "seed " << seed << ", parts " << parts;
  }
}

TEST(ColouringLaws, Lines) {
  const std::uint64_t runs = Runs(120'000);
  const Tally tally = Compare(
      runs, [](const RandomCase& made) { return FastLines(made.Fields(), made.TextUtf8(), made.CloseAtLineEnd); },
      [](const RandomCase& made) { return LiteralLines(made.Fields(), made.TextUtf8(), made.CloseAtLineEnd); },
      WithoutGluedTokens);
  if (HasFailure() || runs < EnoughForShares) return;
  EXPECT_GT(tally.Coloured, runs / 4);
  EXPECT_GT(tally.StayedOpen, runs / 50);
  EXPECT_GT(tally.Captured, runs / 100);
}

}  // namespace
}  // namespace laws
