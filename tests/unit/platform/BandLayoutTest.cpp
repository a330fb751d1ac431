// The arrangement of bands and tools: it stays sound whatever is asked of it, and damage to its text is noticed.

#include "platform/BandLayout.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/laws/Dice.h"
#include "tests/support/SealedLayout.h"

namespace {

using namespace platform;

// Two menus that open from tools, one inside the other; a toolbar; a band that the program fills.
const BarDesign& Design() {
  static const BarDesign design = {.Tools = {{.Name = "outer", .SubBand = "outer", .HasCommand = false},
                                             {.Name = "inner", .SubBand = "inner", .HasCommand = false},
                                             {.Name = "a"},
                                             {.Name = "b"},
                                             {.Name = "c"}},
                                   .Bands = {{"menus", "", BandKind::MenuBar, 0, false, {{"outer"}}},
                                             {"outer", "", BandKind::Menu, 0, false, {{"inner"}, {"a"}}},
                                             {"inner", "", BandKind::Menu, 0, false, {{"b"}}},
                                             {"bar", "", BandKind::Toolbar, 0, false, {{"a"}, {Separator}, {"b"}}},
                                             {"tabs", "", BandKind::Tabs, 1, true, {}}}};
  return design;
}

std::string Tools(const BandLayout& layout, std::string_view band) {
  std::string text;
  for (const std::string& tool : layout.Find(band)->Tools) text += tool == Separator ? "- " : tool + ' ';
  return text;
}

bool Leads(const BandLayout& layout, const std::string& from, const std::string& to, int depth) {
  if (depth > 8) return true;  // only a circle is that deep
  for (const std::string& tool : layout.Find(from)->Tools) {
    const ToolDesign* design = Design().Tool(tool);
    if (design && !design->SubBand.empty() &&
        (design->SubBand == to || Leads(layout, std::string(design->SubBand), to, depth + 1)))
      return true;
  }
  return false;
}

TEST(BandLayout, MovesToolsWithinABandAndBetweenBands) {
  BandLayout layout(Design());
  EXPECT_TRUE(layout.Move("bar", 0, "bar", 3));
  EXPECT_EQ(Tools(layout, "bar"), "- b a ");
  EXPECT_TRUE(layout.Move("bar", 2, "bar", 0));
  EXPECT_EQ(Tools(layout, "bar"), "a - b ");
  EXPECT_TRUE(layout.Move("inner", 0, "outer", 1));
  EXPECT_EQ(Tools(layout, "outer"), "inner b a ");
  EXPECT_EQ(Tools(layout, "inner"), "");
  EXPECT_FALSE(layout.Move("outer", 1, "bar", 0)) << "b stands there already";
  EXPECT_FALSE(layout.Move("menus", 0, "inner", 0)) << "a menu would open from itself";
  EXPECT_FALSE(layout.Insert("tabs", 0, "a"));
  EXPECT_FALSE(layout.Insert("bar", 0, "unknown"));
  EXPECT_EQ(Tools(layout, "outer"), "inner b a ");
  EXPECT_EQ(Tools(layout, "menus"), "outer ");
  BandLayout back = layout;
  back.CopyBand(BandLayout(Design()), "outer");
  EXPECT_EQ(Tools(back, "outer"), "inner a ");
  EXPECT_EQ(Tools(back, "inner"), "");
}

TEST(BandLayout, AnyArrangementStaysSoundAndComesBackFromItsText) {
  laws::Dice dice(7);
  const std::vector<const char*> bands = {"menus", "outer", "inner", "bar", "tabs", "none"},
                                 tools = {"outer", "inner", "a", "b", "c", "miSeparator", "none"};
  BandLayout layout(Design());
  for (int i = 0; i < 3000; ++i) {
    const char* band = dice.Pick(bands);
    const std::size_t action = dice.Below(4);
    if (action == 0) layout.Move(band, dice.Below(4), dice.Pick(bands), dice.Below(5));
    if (action == 1) layout.Insert(band, dice.Below(5), dice.Pick(tools));
    if (action == 2) layout.Remove(band, dice.Below(3));
    if (action == 3)
      layout.Place(band, {static_cast<DockSide>(dice.Below(5)), dice.Between(0, 2), dice.Between(0, 8),
                          dice.Between(-450, 449), dice.Between(-899, 0), dice.Chance(50)});
    for (const BandState& state : layout.Bands()) {
      EXPECT_FALSE(Leads(layout, state.Name, state.Name, 0)) << state.Name;
      std::set<std::string> seen;
      for (const std::string& tool : state.Tools) EXPECT_TRUE(tool == Separator || seen.insert(tool).second);
    }
    const std::optional<BandLayout> read = BandLayout::Decode(Design(), layout.Encode());
    ASSERT_TRUE(read.has_value()) << layout.Encode();
    ASSERT_EQ(*read, layout);
  }
}

TEST(BandLayout, DamagedTextsAreRefused) {
  const std::string text = BandLayout(Design()).Encode();
  for (std::size_t i = 0; i < text.size(); ++i) {
    EXPECT_FALSE(BandLayout::Decode(Design(), text.substr(0, i)).has_value()) << i;
    for (const char flip : {1, 32, -128}) {
      std::string damaged = text;
      damaged[i] = static_cast<char>(damaged[i] ^ flip);
      EXPECT_FALSE(BandLayout::Decode(Design(), damaged).has_value()) << i;
    }
  }
  EXPECT_FALSE(BandLayout::Decode(Design(), text + "x").has_value());
  EXPECT_FALSE(BandLayout::Decode(Design(), std::string(100000, 'x')).has_value());
}

// A file as another program would write it, with length and checksum as they should be.
TEST(BandLayout, AWellSealedTextMayStillBeHostile) {
  const auto decode = [](const std::string& body) { return BandLayout::Decode(Design(), tests::Sealed(body)); };
  for (const char* body : {"tool a\n", "band bar\n", "band bar shown top 0 0 0\n", "band bar shown top 0 0 0 0 0\n",
                           "x\n", "\n", "band bar shown top -1 0 0 0\n", "band bar shown top 0 99999999999 0 0\n",
                           "band bar shown up 0 0 0 0\n", "band bar yes top 0 0 0 0\n", "band bar shown top 0 0 0 0",
                           "band bar shown top 1x 0 0 0\n", "band bar shown top 0 0 0 0\nband bar shown top 0 0 0 0\n"})
    EXPECT_FALSE(decode(body).has_value()) << body;
  EXPECT_EQ(decode(""), BandLayout(Design()));

  const std::optional<BandLayout> layout = decode(
      "band outer shown top 0 0 0 0\ntool c\ntool outer\ntool c\ntool later\ntool inner\n"
      "band inner shown top 0 0 0 0\ntool outer\ntool inner\ntool miSeparator\n"
      "band later shown top 0 0 0 0\ntool a\nband tabs hidden left 3 4 -5 6\ntool a\n");
  ASSERT_TRUE(layout.has_value());
  EXPECT_EQ(Tools(*layout, "outer"), "c inner ");
  EXPECT_EQ(Tools(*layout, "inner"), "- ");
  EXPECT_EQ(Tools(*layout, "bar"), "a - b ");
  EXPECT_EQ(Tools(*layout, "tabs"), "");
  EXPECT_EQ(layout->Find("tabs")->Place, (BandPlace{DockSide::Left, 3, 4, -5, 6, false}));
}

}  // namespace
