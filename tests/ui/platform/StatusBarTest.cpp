#include "platform/qt/StatusBar.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QToolButton>

#include "tests/ui/Widgets.h"

namespace tests {
namespace {

using platform::StatusStyle;
using platform::qt::StatusBar;

class StatusBarTest : public testing::Test {
 protected:
  StatusBarTest() {
    m_bar.resize(800, 30);
    m_bar.show();
    QApplication::processEvents();
  }
  StatusBar m_bar;
};

TEST_F(StatusBarTest, PanelsShowTheirTextAndDoNotJump) {
  EXPECT_EQ(Child<QLabel>(m_bar, "CoOrds").text(), QStringLiteral("(Line 99, Col 99)"));
  EXPECT_EQ(Child<QLabel>(m_bar, "DocSize").text(), QStringLiteral("0 Lines"));
  EXPECT_EQ(Child<QToolButton>(m_bar, "Template").text(), QStringLiteral("Using '<none>' Template"));
  m_bar.SetPanelText("CoOrds", "(Line 123456, Col 1000)");
  m_bar.SetPanelText("Unknown", "x");
  QApplication::processEvents();
  const int place = Child<QLabel>(m_bar, "DocSize").x(), height = m_bar.sizeHint().height();
  m_bar.SetPanelText("CoOrds", "(Line 1, Col 1)");
  QApplication::processEvents();
  EXPECT_EQ(Child<QLabel>(m_bar, "CoOrds").text(), QStringLiteral("(Line 1, Col 1)"));
  EXPECT_EQ(Child<QLabel>(m_bar, "DocSize").x(), place);
  m_bar.SetSimpleText("Colouring <b>");
  m_bar.SetStyle(StatusStyle::Simple);
  QApplication::processEvents();
  EXPECT_TRUE(Child<QLabel>(m_bar, "SimpleText").isVisible());
  EXPECT_FALSE(Child<QLabel>(m_bar, "CoOrds").isVisible());
  EXPECT_FALSE(Child<QLabel>(m_bar, "INS").isVisible());
  EXPECT_EQ(m_bar.sizeHint().height(), height);
  m_bar.SetStyle(StatusStyle::Normal);
  EXPECT_TRUE(Child<QLabel>(m_bar, "CoOrds").isVisible());
  EXPECT_TRUE(Child<QLabel>(m_bar, "INS").isVisible());
  m_bar.SetOverwrite(true);
  EXPECT_EQ(Child<QLabel>(m_bar, "INS").text(), QStringLiteral("OVR"));
}

TEST_F(StatusBarTest, TheTemplatePanelIsAButton) {
  int clicks = 0;
  QObject::connect(&m_bar, &StatusBar::TemplateClicked, [&] { ++clicks; });
  m_bar.SetPanelText("Template", "Using 'A & B' Template");
  auto& button = Child<QToolButton>(m_bar, "Template");
  EXPECT_EQ(button.accessibleName(), QStringLiteral("Using 'A & B' Template"));
  QTest::mouseClick(&button, Qt::LeftButton);
  button.setFocus();
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_EQ(clicks, 2);
  QTest::mousePress(&button, Qt::LeftButton);
  EXPECT_TRUE(button.isDown());
  QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(-50, -50));
  EXPECT_EQ(clicks, 2);
}

}  // namespace
}  // namespace tests
