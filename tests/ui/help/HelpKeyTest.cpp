// Help from where the user is: F1 in windows and dialogs, the commands of the Help menu, the about box.

#include <QDialog>
#include <QLabel>

#include "platform/qt/HelpWindow.h"
#include "platform/qt/QtPrompts.h"
#include "tests/ui/FrameFixture.h"

namespace {

using platform::qt::HelpCollection;
using platform::qt::HelpWindow;

class HelpKeyTest : public tests::FrameFixture {
 protected:
  static HelpWindow* Help() {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (auto* help = qobject_cast<HelpWindow*>(window)) return help;
    return nullptr;
  }
  /// The page shown, "" when the help is not on the screen.
  static std::string Page() {
    HelpWindow* help = Help();
    return help && help->isVisible() ? HelpCollection::PageOf(help->Page().source()) : "";
  }

  /// Presses F1 in the modal window that `show` brings up, and closes both windows. Gives the window's name and the
  /// page.
  template <typename Showing>
  static std::string PageOfDialog(Showing show) {
    std::string seen;
    tests::InModalWindow([&seen](QWidget& dialog) {
      QTest::keyClick(dialog.focusWidget() ? dialog.focusWidget() : &dialog, Qt::Key_F1);
      seen = dialog.objectName().toStdString() + ": " + Page();
      if (HelpWindow* help = Help(); help && help->isVisible()) {
        tests::Activate(*help);
        QTest::keyClick(help, Qt::Key_Home, Qt::AltModifier);
        seen += HelpCollection::PageOf(help->Page().source()) == "index.html" ? "" : ", which is blocked";
        help->close();
      }
      dialog.close();
    });
    show();
    return seen;
  }
};

TEST_F(HelpKeyTest, F1OpensThePageOfTheDialogWhichStaysUsable) {
  m_frame.OpenFile(m_folder.Write("a.js", "var date;\n"));
  const std::pair<const char*, const char*> cases[] = {
      {"Options", "frmOptions: options.html"},
      {"fntSet", "frmFontSet: fonts.html"},
      {"Associations", "frmAssociations: associations.html"},
      {"miEditSynonyms", "frmSynonyms: edit-synonyms.html"},
      {"miAddSynonym", "frmSynonymSelect: select-synonym.html"},
      {"miHAbout", "AboutBox: about.html"},
  };
  for (const auto& [tool, seen] : cases) EXPECT_EQ(PageOfDialog([&] { Tool(tool).trigger(); }), seen);
  Tool("miFind").trigger();
  auto& find = tests::Child<QDialog>(m_frame, "FindReplace");
  QTest::keyClick(find.focusWidget() ? find.focusWidget() : &find, Qt::Key_F1);
  EXPECT_EQ(Page(), "find-replace.html");
  QTest::keyClick(Help(), Qt::Key_F1);
  EXPECT_EQ(Page(), "help-window.html");
}

TEST_F(HelpKeyTest, F1InTheFrameIsTheCommandAndInAMessageThePageOfItsWindow) {
  QTest::keyClick(&m_frame, Qt::Key_F1);
  EXPECT_EQ(Page(), "index.html") << "without a document it opens the contents";
  Help()->close();
  editor::ui::Mainwin& document = Open("a.js", "zzz\n");
  m_prompts.Expect({.Text = "No help is available for \"zzz\".  Sorry."});
  QTest::keyClick(document.TextArea().viewport(), Qt::Key_F1);
  EXPECT_EQ(Page(), "");

  platform::qt::QtPrompts prompts;
  tests::Activate(m_frame);
  EXPECT_EQ(PageOfDialog([&] { prompts.Show({.Text = "A message"}); }), ": frame.html");
}

TEST_F(HelpKeyTest, TheAboutBoxTellsVersionsAndShowsTheLicence) {
  std::string texts;
  tests::InModalWindow([&texts](QWidget& box) {
    for (const QLabel* label : box.findChildren<QLabel*>()) texts += label->text().toStdString() + '\n';
    Q_EMIT tests::Child<QLabel>(box, "lblLicence").linkActivated(QStringLiteral("licence.html"));
    box.close();
  });
  Tool("miHAbout").trigger();
  for (const std::string& part : {std::string("Quillmark 3."), std::string("GPL-3.0-or-later"), std::string(qVersion()),
                                  std::string("qscintilla2")})
    EXPECT_NE(texts.find(part), std::string::npos) << part << " is missing in: " << texts;
  EXPECT_EQ(Page(), "licence.html");
  EXPECT_TRUE(Help()->Page().toPlainText().contains(QStringLiteral("TERMS AND CONDITIONS")));
  m_frame.close();
  EXPECT_EQ(Page(), "") << "the help goes with the frame";
}

}  // namespace
