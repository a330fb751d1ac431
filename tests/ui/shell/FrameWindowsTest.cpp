// Child windows inside the frame: their order, their state and where they are tiled.

#include "shell/ui/FrameWindows.h"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QTest>

#include "shell/WindowList.h"
#include "tests/support/FakeChild.h"

namespace {

using shell::ui::FrameWindows;

class Child : public QWidget, public tests::FakeChild {
 public:
  explicit Child(const std::string& name) : FakeChild("Mainwin", name) { setAttribute(Qt::WA_DeleteOnClose); }
  bool Stays = false;

 protected:
  void closeEvent(QCloseEvent* event) override { event->setAccepted(!Stays); }
};

class FrameWindowsTest : public testing::Test {
 protected:
  FrameWindowsTest() {
    m_windows.resize(900, 700);
    m_windows.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_windows));
  }
  Child* Add(const std::string& name) {
    auto* child = new Child(name);
    m_windows.Add(child);
    return child;
  }
  QMdiSubWindow* Window(const Child* child) const { return qobject_cast<QMdiSubWindow*>(child->parentWidget()); }
  std::string Names() const {
    std::string names;
    for (const shell::ChildWindow* window : m_windows.Windows()) names += window->Caption();
    return names;
  }

  FrameWindows m_windows{nullptr};
};

TEST_F(FrameWindowsTest, NewWindowsTakeTheActiveOnesState) {
  EXPECT_TRUE(Window(Add("a"))->isMaximized());
  Child* second = Add("b");
  EXPECT_TRUE(Window(second)->isMaximized());
  Window(second)->showNormal();
  Child* third = Add("c");
  EXPECT_FALSE(Window(third)->isMaximized());
  m_windows.Activate(shell::WindowKey(*m_windows.Windows()[0]));
  EXPECT_EQ(m_windows.Active()->Caption(), "a");
  EXPECT_EQ(Names(), "abc");  // as opened, whatever lies in front
  m_windows.Close(shell::WindowKey(*m_windows.Windows()[1]));
  m_windows.Close(0);
  EXPECT_EQ(Names(), "ac");
}

TEST_F(FrameWindowsTest, ClosingAllStopsAtTheFirstThatStays) {
  Add("a");
  Child* stays = Add("b");
  stays->Stays = true;
  Add("c");
  EXPECT_FALSE(m_windows.CloseAll());
  EXPECT_EQ(Names(), "bc");
  stays->Stays = false;
  EXPECT_TRUE(m_windows.CloseAll());
  EXPECT_EQ(m_windows.Active(), nullptr);
}

TEST_F(FrameWindowsTest, TilesLieAboveOrBesideEachOther) {
  const Child *behind = Add("a"), *front = Add("b");
  for (const bool vertically : {false, true}) {
    vertically ? m_windows.TileVertically() : m_windows.TileHorizontally();
    const QRect first = Window(front)->geometry(), second = Window(behind)->geometry();
    EXPECT_EQ(first.topLeft(), QPoint(0, 0));
    EXPECT_EQ(second.topLeft(), vertically ? QPoint(first.width(), 0) : QPoint(0, first.height()));
    EXPECT_EQ(first | second, m_windows.viewport()->rect());
  }
}

TEST_F(FrameWindowsTest, IconsStandInARowAndOutOfTheTilesWay) {
  Child* first = Add("a");
  Child* second = Add("b");
  Child* third = Add("c");
  m_windows.Cascade();  // what is maximised hides icons
  Window(first)->showMinimized();
  Window(second)->showMinimized();
  Window(first)->move(300, 100);
  m_windows.ArrangeMinimised();
  const QRect one = Window(first)->geometry(), two = Window(second)->geometry();
  EXPECT_EQ(std::min(one.left(), two.left()), 0);
  EXPECT_EQ(std::max(one.left(), two.left()), one.width());
  EXPECT_EQ(one.bottom(), m_windows.viewport()->rect().bottom());
  EXPECT_EQ(two.top(), one.top());
  m_windows.TileVertically();
  EXPECT_FALSE(Window(third)->isMaximized());
  EXPECT_FALSE(Window(third)->geometry().intersects(Window(first)->geometry()));
  EXPECT_TRUE(Window(first)->isMinimized());
  m_windows.Activate(shell::WindowKey(*m_windows.Windows()[0]));
  EXPECT_FALSE(Window(first)->isMinimized());
}

}  // namespace
