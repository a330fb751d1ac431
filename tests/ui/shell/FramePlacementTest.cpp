// The frame's place: kept in twips, and always on a screen.

#include "shell/ui/FramePlacement.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QTest>
#include <cmath>
#include <limits>

namespace {

using settings::FramePlace;
using settings::WindowState;

TEST(FramePlacement, OnlyTheNormalStatesPlaceIsRemembered) {
  QWidget window;
  FramePlace place{.Left = 300, .Top = 450, .Width = 6000, .Height = 4500, .State = WindowState::Normal};
  shell::ui::ApplyPlace(window, place);
  EXPECT_EQ(window.size(), QSize(400, 300));
  EXPECT_EQ(window.pos(), QPoint(20, 30));
  shell::ui::ShowInState(window, WindowState::Normal);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  window.move(50, 60);
  window.resize(420, 310);
  shell::ui::RememberPlace(window, place);
  const FramePlace expected{.Left = 750, .Top = 900, .Width = 6300, .Height = 4650, .State = WindowState::Normal};
  EXPECT_EQ(place, expected);
  window.showMaximized();
  shell::ui::RememberPlace(window, place);
  EXPECT_EQ(place.State, WindowState::Maximised);
  EXPECT_EQ(place.Width, expected.Width);
}

TEST(FramePlacement, NoStoredNumberPutsTheWindowOffTheScreens) {
  const float odd[] = {std::nanf(""), std::numeric_limits<float>::infinity(), -1e30F, 1e30F, 0, -90000, 1e6F};
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  for (const float a : odd)
    for (const float b : odd) {
      QWidget window;
      shell::ui::ApplyPlace(window, {.Left = a, .Top = b, .Width = b, .Height = a, .State = WindowState::Normal});
      EXPECT_TRUE(screen.contains(QRect(window.pos(), window.size()))) << a << ' ' << b;
    }
}

}  // namespace
