// Menus, toolbars and the strip of tabs in a real window: what a click tells, one state for a tool wherever it stands,
// and an arrangement that the user makes and finds again.

#include "platform/qt/ActiveBar.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>

#include "platform/qt/TabStrip.h"

namespace {

using platform::BandKind;
using platform::qt::TabStrip;
using Names = std::vector<std::string>;

class TabStripTest : public testing::Test {
 protected:
  TabStripTest() {
    m_strip.resize(600, 30);
    Show(0);
    m_strip.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_strip));
    QObject::connect(&m_strip, &TabStrip::Chosen,
                     [this](const std::string& tool) { m_told += "chosen " + tool + ' '; });
    QObject::connect(&m_strip, &TabStrip::CloseAsked,
                     [this](const std::string& tool) { m_told += "close " + tool + ' '; });
  }
  void Show(std::size_t current) {
    std::vector<platform::qt::Tab> tabs;
    for (std::size_t i = 0; i < 3; ++i)
      tabs.push_back({"tab" + std::to_string(i), 100 + i, QStringLiteral("caption"), QString(), i == current});
    m_strip.SetTabs(tabs);
  }
  QPoint Centre(int tab) const { return m_strip.tabRect(tab).center(); }
  std::string Told() { return std::exchange(m_told, ""); }

  TabStrip m_strip;
  std::string m_told;
};

TEST_F(TabStripTest, ClicksTellAndWhatTheProgramShowsDoesNot) {
  QTest::mouseClick(&m_strip, Qt::LeftButton, {}, Centre(2));
  EXPECT_EQ(Told(), "chosen tab2 ");
  QTest::mouseClick(&m_strip, Qt::LeftButton, {}, Centre(2));
  EXPECT_EQ(Told(), "chosen tab2 ") << "its window may be minimised";
  Show(1);
  EXPECT_EQ(m_strip.currentIndex(), 1);
  EXPECT_EQ(Told(), "");
  QTest::mouseClick(&m_strip, Qt::MiddleButton, {}, Centre(0));
  EXPECT_EQ(Told(), "close tab0 ");
}

TEST_F(TabStripTest, ADraggedTabIsNoClick) {
  QTest::mousePress(&m_strip, Qt::LeftButton, {}, Centre(0));
  Told();
  for (int x = Centre(0).x(); x < Centre(2).x(); x += 10) QTest::mouseMove(&m_strip, QPoint(x, Centre(0).y()));
  QTest::mouseRelease(&m_strip, Qt::LeftButton, {}, Centre(2));
  EXPECT_EQ(m_strip.ToolAt(2), "tab0");
  EXPECT_EQ(Told(), "");
  Show(0);
  EXPECT_EQ(m_strip.ToolAt(2), "tab0") << "the user's order stays";
}

const platform::BarDesign& Design() {
  static const platform::BarDesign design = {
      .Tools = {{.Name = "file", .Caption = "&File", .SubBand = "mnuFile", .HasCommand = false},
                {.Name = "save", .Caption = "&Save", .Shortcut = "Ctrl+S", .Icon = "save"},
                {.Name = "wrap", .Caption = "&Wrap", .Checkable = true}},
      .Bands = {{.Name = "main", .Kind = BandKind::MenuBar, .Tools = {{"file"}}},
                {.Name = "mnuFile", .Caption = "File", .Tools = {{"save"}, {"wrap"}}},
                {.Name = "bar", .Caption = "Bar", .Kind = BandKind::Toolbar, .Tools = {{"save", "Keep"}, {"wrap"}}},
                {.Name = "other", .Caption = "Other", .Kind = BandKind::Toolbar, .Row = 1, .Tools = {{"wrap"}}}}};
  return design;
}

struct Window : QMainWindow {
  std::string Clicked;
  platform::qt::ActiveBar Bar{*this,
                              Design(),
                              {.ToolClick = [this](const std::string& tool) { Clicked += tool + ' '; },
                               .ToolClose = {},
                               .BandOpen = {},
                               .FileDropped = {},
                               .ResetBand = {},
                               .Released = {}}};
  Window() {
    show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(this));
  }
  QAction* Keep() {
    for (QAction* action : findChild<QToolBar*>(QStringLiteral("bar"))->actions())
      if (action->text().contains(QStringLiteral("Keep"))) return action;
    return nullptr;
  }
};

TEST(ActiveBar, AToolHasOneStateAndOneShortcutOnAllItsBands) {
  Window window;
  QAction* twin = window.Keep();
  ASSERT_NE(twin, nullptr) << "the toolbar captions the tool differently";
  twin->trigger();
  QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(window.Clicked, "save save ");
  window.Bar.Enable("save", false);
  EXPECT_FALSE(twin->isEnabled() || window.Bar.Tool("save").Enabled);
  QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(window.Clicked, "save save ");
  window.Bar.Check("wrap", true);
  for (const char* bar : {"bar", "other"})
    EXPECT_TRUE(window.findChild<QToolBar*>(QString::fromLatin1(bar))->actions().last()->isChecked()) << bar;
}

TEST(ActiveBar, TheIconOfTheSelectedEntryIsSeenOnTheSelectionsColour) {
  Window window;
  auto* menu = window.findChild<QMenu*>(QStringLiteral("mnuFile"));
  menu->popup(QPoint(0, 0));
  QAction* save = menu->actions().first();
  menu->setActiveAction(save);
  const QRect entry = menu->actionGeometry(save);
  const QImage icon = menu->grab(QRect(entry.topLeft(), QSize(entry.height(), entry.height()))).toImage();
  int light = 0, dark = 0;
  for (int y = 0; y < icon.height(); ++y)
    for (int x = 0; x < icon.width(); ++x) {
      light += icon.pixelColor(x, y).lightness() > 220;
      dark += icon.pixelColor(x, y).lightness() < 60;
    }
  EXPECT_GT(light, 10);
  EXPECT_EQ(dark, 0);
}

TEST(ActiveBar, ToolsAreArrangedWithTheButtonsOfTheDialog) {
  Window window;
  window.Bar.Customise();
  auto* dialog = window.findChild<QDialog*>();
  ASSERT_NE(dialog, nullptr);
  auto* bands = dialog->findChild<QTreeWidget*>();
  auto* tools = dialog->findChild<QListWidget*>();
  const auto press = [&](const char* button) {
    QTest::mouseClick(dialog->findChild<QPushButton*>(QString::fromLatin1(button)), Qt::LeftButton);
  };
  bands->setCurrentItem(bands->findItems(QStringLiteral("Other"), Qt::MatchExactly).at(0));
  tools->setCurrentItem(tools->findItems(QStringLiteral("Save"), Qt::MatchContains).at(0));
  press("Add");
  EXPECT_EQ(window.Bar.ToolsOf("other"), (Names{"wrap", "save"}));
  press("MoveUp");
  EXPECT_EQ(window.Bar.ToolsOf("other"), (Names{"save", "wrap"}));
  press("MoveDown");
  press("Remove");
  EXPECT_EQ(window.Bar.ToolsOf("other"), Names{"wrap"});
}

}  // namespace
