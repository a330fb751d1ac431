// The menus as the user finds them: every tool does something, no shortcut is given twice.

#include "shell/ui/Tools.h"

#include <gtest/gtest.h>

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <cctype>
#include <map>

namespace {

TEST(Tools, EveryToolTellsItsNameOnceAndShortcutsAreNotGivenTwice) {
  QMainWindow window;
  std::vector<std::string> clicked;
  const shell::ui::Tools tools(window, [&](const std::string& name) { clicked.push_back(name); });
  std::map<QString, QString> ownerOfShortcut;
  std::vector<std::string> expected;
  for (QAction* action : window.findChildren<QAction*>()) {
    if (action->objectName().isEmpty() || action->menu() || action->isSeparator()) continue;
    EXPECT_FALSE(action->statusTip().isEmpty()) << action->objectName().toStdString();
    for (const QKeySequence& shortcut : action->shortcuts())
      EXPECT_TRUE(ownerOfShortcut.emplace(shortcut.toString(), action->objectName()).second)
          << shortcut.toString().toStdString();
    expected.push_back(action->objectName().toStdString());
    action->trigger();
  }
  EXPECT_GT(expected.size(), 10U);
  EXPECT_EQ(clicked, expected);
}

TEST(Tools, AccessKeysOfAMenuDiffer) {
  for (const shell::Band& band : shell::MenuBands()) {
    std::map<char, std::string_view> owners;
    for (const shell::Tool& tool : band.Tools) {
      const std::size_t mark = tool.Caption.find('&');
      if (mark == std::string_view::npos) continue;
      const char key = static_cast<char>(std::tolower(tool.Caption[mark + 1]));
      EXPECT_TRUE(owners.emplace(key, tool.Name).second) << band.Name << ": " << tool.Caption;
    }
  }
}

}  // namespace
