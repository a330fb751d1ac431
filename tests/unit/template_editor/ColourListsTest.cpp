// The palette and the colour words: compared at random with a plain model in which each word keeps its colour itself
// instead of a number.

#include "template_editor/ColourLists.h"

#include <gtest/gtest.h>

#include "templates/Values.h"
#include "tests/support/Characters.h"
#include "tests/unit/template_editor/EditorFixture.h"

namespace {

using template_editor::ColourLists;
using templates::colWord, templates::PaletteColour;

/// A colour that knows itself, whatever its number, value and name.
using PlainColour = std::shared_ptr<PaletteColour>;

struct PlainWord {
  std::string Start, End;
  int EndPoint = 0;
  bool Include = false;
  PlainColour Colour;  ///< null for none
};

std::string Describe(const PlainWord& word) {
  return word.Start + '|' + word.End + '|' + std::to_string(word.EndPoint) + (word.Include ? "+" : "-") +
         (word.Colour ? word.Colour->Name + std::to_string(word.Colour->Value) : "no colour");
}

class PaletteLaw {
 public:
  explicit PaletteLaw(std::uint64_t seed) : m_dice(seed) {}

  void Step() {
    const std::size_t step = m_dice.Below(8);
    if (step == 0) SelectColour();
    if (step == 1) Type(), m_lists.AddColour(), m_palette.push_back(std::make_shared<PaletteColour>(Typed()));
    if (step == 2 && m_colour) Type(), m_lists.ChangeColour(), *m_palette[*m_colour] = Typed();
    if (step == 3 && m_colour) RemoveColour();
    if (step == 4) SelectWord();
    if (step == 5 && m_colour) TypeWord(), m_lists.AddWord(), m_words.push_back(TypedWord(nullptr));
    if (step == 6 && m_word) TypeWord(), m_lists.ChangeWord(), m_words[*m_word] = TypedWord(m_words[*m_word].Colour);
    if (step == 7 && m_word) RemoveWord();
  }

  void Compare() const {
    ASSERT_EQ(m_lists.Words().Count(), m_words.size());
    ASSERT_EQ(m_lists.Palette().Count(), m_palette.size());
    EXPECT_EQ(m_lists.Palette().Selected(), m_colour);
    EXPECT_EQ(m_lists.Words().Selected(), m_word);
    for (std::size_t i = 0; i < m_words.size(); ++i) {
      const colWord& word = *m_lists.Words().All()[i];
      const PaletteColour* colour = m_lists.ColourOf(word);
      const PlainWord as{word.StartWord, word.EndWord, word.EndPoint, word.IncludeWord,
                         colour ? std::make_shared<PaletteColour>(*colour) : nullptr};
      EXPECT_EQ(Describe(as), Describe(m_words[i])) << i;
    }
  }

 private:
  void Type() {
    m_lists.ColName = "c" + std::to_string(++m_names);
    m_lists.ColHex = templates::HexColour(static_cast<rich_text::ColourValue>(m_dice.Next() & 0xFFFFFF));
  }
  PaletteColour Typed() const { return {m_lists.HexValue(), m_lists.ColName}; }
  void TypeWord() {
    m_lists.colWordName = "w" + std::to_string(m_dice.Below(9));
    m_lists.colEndWord = m_dice.Chance(50) ? "" : "end";
    m_lists.EndPoint = static_cast<std::int16_t>(m_dice.Between(0, 2));
    m_lists.ColWordInclude = m_dice.Chance(50);
  }
  PlainWord TypedWord(const PlainColour& otherwise) const {
    return {m_lists.colWordName, m_lists.EndPoint == colWord::UntilWord ? m_lists.colEndWord : "", m_lists.EndPoint,
            m_lists.ColWordInclude, m_colour ? m_palette[*m_colour] : otherwise};
  }
  std::optional<std::size_t> Any(std::size_t count) {
    return count == 0 || m_dice.Chance(20) ? std::nullopt : std::optional(m_dice.Below(count));
  }
  void SelectColour() {
    m_colour = Any(m_palette.size());
    m_lists.SelectColour(m_colour);
    if (m_colour) {
      EXPECT_EQ(m_lists.ColName, m_palette[*m_colour]->Name);
    }
  }
  void RemoveColour() {
    m_lists.RemoveColour();
    for (PlainWord& word : m_words)
      if (word.Colour == m_palette[*m_colour]) word.Colour = nullptr;
    m_palette.erase(m_palette.begin() + static_cast<std::ptrdiff_t>(*m_colour));
    m_colour.reset();
  }
  void RemoveWord() {
    m_lists.RemoveWord();
    m_words.erase(m_words.begin() + static_cast<std::ptrdiff_t>(*m_word));
    m_word.reset();
  }
  void SelectWord() {
    m_word = Any(m_words.size());
    m_lists.SelectWord(m_word);
    if (!m_word) return;
    const auto found = std::find(m_palette.begin(), m_palette.end(), m_words[*m_word].Colour);
    m_colour =
        found == m_palette.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - m_palette.begin()));
    EXPECT_EQ(m_lists.colWordName, m_words[*m_word].Start);
  }

  laws::Dice m_dice;
  int m_names = 0;
  tests::ListUser m_user;
  ColourLists m_lists{m_user};
  std::vector<PlainColour> m_palette;
  std::vector<PlainWord> m_words;
  std::optional<std::size_t> m_colour, m_word;
};

TEST(ColourLists, WordsKeepTheirColoursThroughEveryChangeOfThePalette) {
  tests::PlayLaw<PaletteLaw>(200, 120);
}

TEST(ColourLists, ANumberOutsideThePaletteStaysOutside) {
  tests::ListUser user;
  ColourLists lists(user);
  auto word = std::make_shared<colWord>();
  word->Colour = 4;
  lists.Take({{1, "a"}, {2, "b"}, {3, "c"}}, {word});
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(lists.ColourOf(*word), nullptr);
    lists.SelectColour(0);
    lists.RemoveColour();
  }
  EXPECT_EQ(lists.ColourOf(*word), nullptr);
}

TEST(ColourLists, TheHexadecimalFieldReadsBlackForAnythingElse) {
  tests::ListUser user;
  ColourLists lists(user);
  const auto read = [&](const std::string& text) {
    lists.ColHex = text;
    return lists.HexValue();
  };
  EXPECT_EQ(read("#0000FF"), 0xFFU);
  EXPECT_EQ(read("#a"), 10U);
  EXPECT_EQ(read("#0000001"), 1U);
  for (const std::string& text : tests::Split("|#|0000FF|#12G|# 12|#1000000|#-1| #12|#12 ")) EXPECT_EQ(read(text), 0U);
}

TEST(ColourLists, WhatAFileCouldNotHoldIsRefused) {
  tests::ListUser user;
  ColourLists lists(user);
  lists.AddColour();
  lists.SelectColour(0);
  const auto add = [&](const char* word, const char* end, std::int16_t endPoint) {
    lists.colWordName = word;
    lists.colEndWord = end;
    lists.EndPoint = endPoint;
    const std::size_t before = lists.Words().Count();
    lists.AddWord();
    return lists.Words().Count() > before;
  };
  EXPECT_FALSE(add("two words", "", 0));
  EXPECT_FALSE(add("", "", 0));
  EXPECT_FALSE(add("a", "b c", 2));
  EXPECT_EQ(user.Refused.size(), 3U);
  EXPECT_TRUE(add("a", "b c", 1)) << "the end word does not count here";
  lists.SelectWord(0);
  lists.colWordName = "x y";
  lists.ChangeWord();
  EXPECT_EQ(lists.Words().All()[0]->StartWord, "a");
}

}  // namespace
