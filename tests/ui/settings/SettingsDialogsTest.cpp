// The dialogs of the settings, by keys and mouse.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTextEdit>
#include <QTreeWidget>
#include <algorithm>
#include <tuple>

#include "settings/ui/frmAssociations.h"
#include "settings/ui/frmFontSet.h"
#include "settings/ui/frmOptions.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/ui/Widgets.h"

namespace tests {
namespace {

using namespace settings;

class SettingsDialogs : public testing::Test {
 protected:
  Settings Values;
  std::vector<templates::Template> List = {{"A", "a", "/a.def"}, {"B", "b", "/b.def"}}, Extra;
  ScriptedPrompts Prompts;
  bool Cancelled = false;
};

TEST_F(SettingsDialogs, OptionsAreReachedByTheirAccessKeysAndTakenOverByOk) {
  ui::frmOptions form({Values, List, Extra, Prompts}, "/program", Cancelled);
  Activate(form);
  EXPECT_EQ(form.windowTitle(), QStringLiteral("Quillmark Options"));
  // A button that is reached by its key shows for a moment that it is pressed.
  for (const auto& [key, name, checked] :
       {std::tuple(Qt::Key_U, "optUse", true), {Qt::Key_I, "AutoIndentBox", false}, {Qt::Key_E, "optEdit", true}}) {
    QTest::keyClick(&form, key, Qt::AltModifier);
    const auto& button = Child<QAbstractButton>(form, name);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !button.isDown() && button.isChecked() == checked; })) << name;
  }
  Play("<Alt+W><Ctrl+A>8");
  QTest::mouseClick(&Child<QLabel>(form, "Label4"), Qt::LeftButton);
  auto& combo = Child<QComboBox>(form, "cmbDefTemp");
  EXPECT_EQ(combo.currentText(), QStringLiteral("<none>"));
  combo.setFocus();
  Play("<Down><Down><Return>");
  EXPECT_FALSE(form.isVisible() || Cancelled);
  EXPECT_EQ(Values.DefOpenTemplate, "/b.def");
  EXPECT_EQ(Values.TabWidth, 8);
  EXPECT_FALSE(Values.AskUnknownTemplates || Values.AutoIndent || Values.NewLineForEnter);
  EXPECT_TRUE(Values.UseColours && Values.ReducedColours);
}

TEST_F(SettingsDialogs, AMissingTemplateKeepsTheOptionsOpenAndCancelChangesNothing) {
  ui::frmOptions form({Values, List, Extra, Prompts}, "/program", Cancelled);
  Activate(form);
  Prompts.ExpectOpenFile("Select Template", "/no such.def");
  Click(form, "cmdBrowse");
  EXPECT_EQ(Child<QComboBox>(form, "cmbDefTemp").currentText(), QStringLiteral("/no such.def"));
  Click(form, "optNone");
  Click(form, "AutoIndentBox");
  Prompts.Expect({.Text = "/no such.def does not exist", .Icon = platform::PromptIcon::Critical});
  Click(form, "OKButton");
  EXPECT_TRUE(form.isVisible());
  Click(form, "CancelButton");
  EXPECT_TRUE(!form.isVisible() && Cancelled);
  EXPECT_TRUE(Values.UseColours && Values.AutoIndent);
}

TEST_F(SettingsDialogs, FontsAreShownInTheirSamplesAndStoredByOk) {
  ui::frmFontSet form(FontSetModel(Values), Prompts, Cancelled);
  Activate(form);
  platform::FontRecord chosen = Values.FixedFont;
  chosen.Size = 12;
  chosen.Bold = true;
  Prompts.ExpectFont(Values.FixedFont, chosen);
  Click(form, "cmdFixed");
  EXPECT_TRUE(Child<QTextEdit>(form, "txtFixed").font().bold());
  EXPECT_FALSE(Child<QTextEdit>(form, "txtDOS").font().bold());
  EXPECT_EQ(Child<QTextEdit>(form, "txtDOS").toPlainText(), QStringLiteral("AaBbCcDd This is a sample"));
  EXPECT_TRUE(Child<QAbstractButton>(form, "optFixed").isChecked());
  Click(form, "optDOS");
  EXPECT_FALSE(Child<QAbstractButton>(form, "optFixed").isChecked());
  Click(form, "chkOverride");
  Click(form, "OKButton");
  EXPECT_EQ(Values.FixedFont, chosen);
  EXPECT_TRUE(Values.OverrideTemplateFonts && Values.DefaultFontType == 2 && !Cancelled);

  Values.DefaultFontType = 200;
  for (const bool isOk : {false, true}) {
    Cancelled = false;
    ui::frmFontSet again(FontSetModel(Values), Prompts, Cancelled);
    Activate(again);
    EXPECT_FALSE(Child<QAbstractButton>(again, "optDOS").isChecked()) << "no font is the default one";
    for (int choice = 0; choice < 2; ++choice) {
      Prompts.ExpectFont(Values.FixedFont, std::nullopt);
      Click(again, "cmdFixed");
    }
    EXPECT_TRUE(Child<QTextEdit>(again, "txtFixed").font().bold());
    Click(again, "cmdReset");
    EXPECT_FALSE(Child<QTextEdit>(again, "txtFixed").font().bold());
    QTest::keyClick(&again, isOk ? Qt::Key_Return : Qt::Key_Escape);
    EXPECT_EQ(Values.FixedFont, isOk ? Settings().FixedFont : chosen);
    EXPECT_EQ(Cancelled, !isOk);
  }
}

TEST_F(SettingsDialogs, AssociationsAreEditedCharacterByCharacter) {
  Values.Associations = {{"", "txt", "/t.def"}};
  ui::frmAssociations form{AssociationsModel(Values.Associations)};
  Activate(form);
  auto& list = Child<QTreeWidget>(form, "lstAss");
  auto& extension = Child<QLineEdit>(form, "txtExt");
  EXPECT_EQ(list.header()->sectionSize(0), std::max(58, list.header()->sectionSizeHint(0)));
  EXPECT_EQ(extension.text(), QStringLiteral("txt"));
  QTest::mouseClick(&extension, Qt::LeftButton, {}, QPoint(extension.width() / 2, 5));
  EXPECT_TRUE(QTest::qWaitFor([&] { return extension.selectedText() == QStringLiteral("txt"); }));
  QTest::keyClicks(&extension, QStringLiteral("lo"));
  EXPECT_EQ(list.topLevelItem(0)->text(0), QStringLiteral("lo"));
  QTest::keyClick(&extension, Qt::Key_N, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([&] { return list.topLevelItemCount() == 2; }));
  EXPECT_EQ(list.topLevelItem(1)->text(1), QStringLiteral("(click to select, then edit below)"));
  EXPECT_EQ(extension.text(), QStringLiteral("lo"));
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.topLevelItem(1)).center());
  EXPECT_EQ(extension.text(), QStringLiteral("new"));
  Click(form, "btnDelete");
  Click(form, "btnClose");
  ASSERT_EQ(Values.Associations.size(), 1U);
  EXPECT_EQ(Values.Associations[0].Extension, "lo");

  ui::frmAssociations again{AssociationsModel(Values.Associations)};
  Activate(again);
  Click(again, "btnDelete");
  for (const char* name : {"btnDelete", "txtExt", "txtTemp"}) EXPECT_FALSE(Child<QWidget>(again, name).isEnabled());
  Click(again, "btnCancel");
  EXPECT_EQ(Values.Associations.size(), 1U);
}

}  // namespace
}  // namespace tests
