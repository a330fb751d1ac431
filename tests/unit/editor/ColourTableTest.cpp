#include "editor/ColourTable.h"

#include <gtest/gtest.h>

#include "templates/Model.h"
#include "tests/support/FailureCode.h"

namespace {

using editor::BuildColourTable;
using editor::DocColours;

TEST(ColourTable, IsBuiltOfTheTemplatesColours) {
  EXPECT_EQ(BuildColourTable({}), "}");
  EXPECT_EQ(BuildColourTable({0x0000FF, 0x008000, 0xFFFFFF, 0x030201, 0}),
            "\\red255\\green0\\blue0;\\red0\\green128\\blue0;\\red255\\green255\\blue255;\\red1\\green2\\blue3;"
            "\\red0\\green0\\blue0;}");
  EXPECT_EQ(BuildColourTable({templates::NoColour, 7}), ";\\red7\\green0\\blue0;}") << "a bad entry keeps its place";
}

TEST(ColourTable, MapsIntoTheDocumentsTableFirst) {
  const std::vector<rich_text::ColourValue> palette = {0x0000FF, 0x00FF00, 0, 0xFF0000, templates::NoColour, 0x00FF00};
  DocColours colours;
  const std::string red =
      "{\\rtf1{\\fonttbl{\\f0 A;}}\r\n{\\colortbl\\red0\\green0\\blue0;\\red255\\green0\\blue0;}\r\n";
  colours.ReadDocColours(red + "\\deflang1033 \\{\\red9;}");
  EXPECT_EQ(colours.DocColourCount(), 2u);
  EXPECT_EQ(colours.MapColour(1, palette), 1) << "an equal entry";
  EXPECT_EQ(colours.MapColour(3, palette), 0) << "the control's own colour is an entry too";
  EXPECT_EQ(colours.MapColour(4, palette), 2) << "behind the last entry";
  EXPECT_EQ(colours.MapColour(2, palette), 3);
  EXPECT_EQ(colours.MapColour(4, palette), 2) << "added once";
  EXPECT_EQ(colours.MapColour(6, palette), 3) << "equal colours are one";
  for (const int k : {-1, 0, 5, 7, 32767})
    EXPECT_EQ(tests::CodeOf([&] { colours.MapColour(k, palette); }), platform::Failure::OutOfRange) << k;
  EXPECT_EQ(tests::CodeOf([&] { colours.MapColour(1, {}); }), platform::Failure::OutOfRange);

  const std::string added = "\\red0\\green0\\blue255;\\red0\\green255\\blue0;}";
  EXPECT_EQ(colours.MergeColourTable(red + "\\deflang1033 "),
            red.substr(0, red.size() - 3) + added + "\r\n\\deflang1033 ");
  EXPECT_EQ(colours.MergeColourTable("no table"), "no table");

  // Added colours stay for good, and count behind whatever the document has now.
  colours.ReadDocColours("{\\colortbl\\red0\\green0\\blue0;\\red1\\green1\\blue1;\\red0\\green255\\blue0;}");
  EXPECT_EQ(colours.MapColour(4, palette), 3);
  EXPECT_EQ(colours.MapColour(2, palette), 2) << "the document's entry now";
  EXPECT_EQ(colours.MergeColourTable("{\\colortbl\\red0\\green0\\blue0;}"),
            "{\\colortbl\\red0\\green0\\blue0;\\red1\\green1\\blue1;\\red0\\green255\\blue0;" + added);
  colours.ReadDocColours("no table");
  EXPECT_EQ(colours.DocColourCount(), 0u);
}

}  // namespace
