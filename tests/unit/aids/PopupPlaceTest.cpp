// Where the pop-ups go, on one screen and on the second of two.

#include "aids/PopupPlace.h"

#include <gtest/gtest.h>

#include <ostream>

namespace aids {

static bool operator==(const Box& a, const Box& b) {
  return a.Left == b.Left && a.Top == b.Top && a.Width == b.Width && a.Height == b.Height;
}
static void PrintTo(const Box& box, std::ostream* out) {
  *out << box.Left << ' ' << box.Top << ' ' << box.Width << ' ' << box.Height;
}

namespace {

TEST(PopupPlace, UnderTheCaretAndWhollyOnItsScreen) {
  const CaretPoint caret{.X = 100, .Y = 50, .tmHeight = 18};
  EXPECT_EQ(ListBox(caret, 3, 900, 2250), (Box{15 * 80, 15 * 68, 900, 2250}));
  EXPECT_EQ(TipBox(caret, 450, 900, 300), (Box{15 * 99 - 450, 15 * 68, 900, 300}));

  const Box screen{0, 0, 15 * 1000, 15 * 800}, second{15 * 1000, 15 * 100, 15 * 1000, 15 * 800};
  const struct {
    const char* Where;
    CaretPoint Caret;
    Box Screen, Expected;
  } cases[] = {
      {"in the middle", {.X = 100, .Y = 50, .tmHeight = 18}, screen, {15 * 80, 15 * 68, 1500, 1500}},
      {"just fits below", {.X = 100, .Y = 682, .tmHeight = 18}, screen, {15 * 80, 15 * 700, 1500, 1500}},
      {"bottom edge: above the line", {.X = 100, .Y = 683, .tmHeight = 18}, screen, {15 * 80, 15 * 583, 1500, 1500}},
      {"right edge: to the left", {.X = 990, .Y = 50, .tmHeight = 18}, screen, {15 * 900, 15 * 68, 1500, 1500}},
      {"left edge", {.X = 5, .Y = 50, .tmHeight = 18}, screen, {0, 15 * 68, 1500, 1500}},
      {"second screen, corner", {.X = 1990, .Y = 890, .tmHeight = 18}, second, {15 * 1900, 15 * 790, 1500, 1500}},
      {"second screen, left edge", {.X = 1004, .Y = 120, .tmHeight = 18}, second, {15 * 1000, 15 * 138, 1500, 1500}},
      {"a screen lower than the pop-up",
       {.X = 100, .Y = 50, .tmHeight = 18},
       {0, 0, 15000, 1050},
       {1200, 0, 1500, 1500}},
  };
  for (const auto& c : cases)
    EXPECT_EQ(KeptOnScreen(ListBox(c.Caret, 3, 1500, 1500), c.Caret, c.Screen), c.Expected) << c.Where;
}

TEST(PopupPlace, OneMakesRoomForTheOther) {
  const Box screen{0, 0, 15 * 1000, 15 * 800}, list{15 * 80, 15 * 68, 1500, 1500};
  const CaretPoint caret{.X = 100, .Y = 50, .tmHeight = 18}, top{.X = 100, .Y = 10, .tmHeight = 18};
  EXPECT_EQ(KeptClearOf(list, {15 * 500, 15 * 68, 900, 300}, caret, screen), (Box{15 * 500, 15 * 68, 900, 300}));
  EXPECT_EQ(KeptClearOf(list, {15 * 99, 15 * 68, 900, 300}, caret, screen), (Box{15 * 99, 15 * 30, 900, 300}));
  EXPECT_EQ(KeptClearOf(list, {15 * 99, 15 * 68, 900, 300}, top, screen), (Box{15 * 99, 15 * 168, 900, 300}));
  const Box low{0, 0, 15 * 1000, 15 * 180};
  EXPECT_EQ(KeptClearOf(list, {15 * 99, 15 * 68, 900, 300}, top, low), (Box{15 * 99, 15 * 68, 900, 300}));
}

}  // namespace
}  // namespace aids
