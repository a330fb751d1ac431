#include "platform/qt/StatusBar.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QToolButton>

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
  template <typename Widget = QLabel>
  Widget& Find(const char* name) {
    return *m_bar.findChild<Widget*>(QLatin1String(name));
  }
  StatusBar m_bar;
};

TEST_F(StatusBarTest, PanelsShowTheirTextAndDoNotJump) {
  EXPECT_EQ(Find("CoOrds").text(), QStringLiteral("(Line 99, Col 99)"));
  EXPECT_EQ(Find("DocSize").text(), QStringLiteral("0 Lines"));
  EXPECT_EQ(Find<QToolButton>("Template").text(), QStringLiteral("Using '<none>' Template"));
  m_bar.SetPanelText("CoOrds", "(Line 123456, Col 1000)");
  m_bar.SetPanelText("Unknown", "x");
  QApplication::processEvents();
  const int place = Find("DocSize").x(), height = m_bar.sizeHint().height();
  m_bar.SetPanelText("CoOrds", "(Line 1, Col 1)");
  QApplication::processEvents();
  EXPECT_EQ(Find("CoOrds").text(), QStringLiteral("(Line 1, Col 1)"));
  EXPECT_EQ(Find("DocSize").x(), place);
  m_bar.SetSimpleText("Colouring <b>");
  m_bar.SetStyle(StatusStyle::Simple);
  QApplication::processEvents();
  EXPECT_TRUE(Find("SimpleText").isVisible());
  EXPECT_FALSE(Find("CoOrds").isVisible());
  EXPECT_FALSE(Find("INS").isVisible());
  EXPECT_EQ(m_bar.sizeHint().height(), height);
  m_bar.SetStyle(StatusStyle::Normal);
  EXPECT_TRUE(Find("CoOrds").isVisible());
  EXPECT_TRUE(Find("INS").isVisible());
  m_bar.SetOverwrite(true);
  EXPECT_EQ(Find("INS").text(), QStringLiteral("OVR"));
}

TEST_F(StatusBarTest, TheTemplatePanelIsAButton) {
  int clicks = 0;
  QObject::connect(&m_bar, &StatusBar::TemplateClicked, [&] { ++clicks; });
  m_bar.SetPanelText("Template", "Using 'A & B' Template");
  auto& button = Find<QToolButton>("Template");
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
