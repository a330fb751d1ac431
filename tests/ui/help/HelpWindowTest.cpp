// The help window on the help that was built with the program.

#include "platform/qt/HelpWindow.h"

#include <gtest/gtest.h>

#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>

#include "platform/Files.h"
#include "platform/ProgramFolder.h"
#include "platform/qt/QtHelp.h"
#include "tests/support/FakeShell.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/ui/Widgets.h"

namespace {

using platform::qt::HelpCollection;
using platform::qt::HelpWindow;

std::string HelpFile() {
  return platform::FindHelpFile("/nowhere", platform::ProgramPlaces::FromProcess());
}

class HelpWindowTest : public testing::Test {
 protected:
  HelpWindowTest() {
    auto collection = std::make_unique<HelpCollection>();
    EXPECT_EQ(collection->Open(HelpFile()), "");
    m_window = std::make_unique<HelpWindow>(std::move(collection), m_shell);
  }

  std::string Shown() { return HelpCollection::PageOf(m_window->Page().source()); }

  tests::FakeShell m_shell;
  std::unique_ptr<HelpWindow> m_window;
};

TEST_F(HelpWindowTest, AFileThatIsMissingOrDamagedIsToldAndIsTriedAgain) {
  const tests::TemporaryFolder folder;
  const std::string file = folder.Path("Quillmark.hlp");
  tests::ScriptedPrompts prompts;
  platform::qt::QtHelp help(file, prompts, m_shell);
  const auto expect = [&](const char* fault) {
    prompts.Expect({.Text = "The help file \"" + file + "\" " + fault + "  The help cannot be shown.",
                    .Icon = platform::PromptIcon::Exclamation});
    help.ShowContents();
  };
  expect("does not exist.");
  EXPECT_FALSE(platform::FileExists(file)) << "looking for it must not make it";
  const std::string whole = platform::ReadFile(HelpFile()).Bytes;
  const std::string pages = platform::ReadFile(HelpFile().substr(0, HelpFile().size() - 3) + "qch").Bytes;
  std::string garbage;
  for (int i = 0; i < 20000; ++i) garbage += static_cast<char>(i * 7919 % 251);
  for (const std::string& bytes : {std::string(), garbage, whole.substr(0, 3000), whole}) {
    folder.Write("Quillmark.hlp", bytes);
    expect("is damaged.");
    EXPECT_EQ(folder.Read("Quillmark.hlp"), bytes);
  }
  for (const std::string& bytes : {std::string(), garbage, pages.substr(0, 2000)}) {
    folder.Write("Quillmark.qch", bytes);
    expect("is damaged.");
  }
  folder.Write("Quillmark.qch", pages);
  help.ShowPage("options.html");
  EXPECT_EQ(prompts.Unasked(), 0U);
}

TEST_F(HelpWindowTest, SearchingFindsAPageAndMarksTheWords) {
  auto& words = tests::Child<QLineEdit>(*m_window, "HelpWords");
  auto& hits = tests::Child<QListWidget>(*m_window, "HelpHits");
  QTest::keyClicks(&words, QStringLiteral("override fonts"));
  ASSERT_GT(hits.count(), 0);
  EXPECT_EQ(hits.item(0)->text(), QStringLiteral("Set Fonts"));
  QTest::keyClick(&words, Qt::Key_Return);
  EXPECT_EQ(Shown(), "fonts.html");
  const auto marks = m_window->Page().extraSelections();
  ASSERT_GE(marks.size(), 2);
  EXPECT_EQ(marks.first().cursor.selectedText().toLower(), QStringLiteral("override"));

  QTest::keyClick(&words, Qt::Key_Down);
  QTest::keyClick(&words, Qt::Key_Return);
  EXPECT_NE(Shown(), "fonts.html") << "Down in the field chooses the next page";
  words.setText(QStringLiteral("zzzz"));
  EXPECT_EQ(hits.count(), 0);
  EXPECT_EQ(tests::Child<QLabel>(*m_window, "HelpHitCount").text(), QStringLiteral("No page has all of these words."));
}

TEST_F(HelpWindowTest, AKeywordIsFoundByAPartOfItAndOpensItsPlace) {
  auto& index = tests::Child<QHelpIndexWidget>(*m_window, "HelpKeywords");
  ASSERT_TRUE(QTest::qWaitFor([&] { return index.model()->rowCount() > 100; }));
  m_window->ShowKeywords();
  auto& field = tests::Child<QLineEdit>(*m_window, "HelpKeyword");
  QTest::keyClicks(&field, QStringLiteral("wrap co"));
  EXPECT_EQ(index.model()->rowCount(), 1);
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_EQ(Shown(), "commands-edit.html#miWordWrap");
  m_window->ShowKeywords();
  EXPECT_EQ(field.text(), QString());
}

TEST_F(HelpWindowTest, BackGoesToThePlaceAndTheWindowKeepsItsPage) {
  m_window->resize(700, 400);
  m_window->ShowPage("format-def.html");
  EXPECT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
  QScrollBar& bar = *m_window->Page().verticalScrollBar();
  bar.setValue(250);
  m_window->ShowPage("fonts.html");
  EXPECT_EQ(m_window->windowTitle(), QStringLiteral("Set Fonts – Quillmark Help"));
  QTest::keyClick(m_window.get(), Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Shown(), "format-def.html");
  EXPECT_EQ(bar.value(), 250);
  QTest::keyClick(m_window.get(), Qt::Key_Escape);
  EXPECT_FALSE(m_window->isVisible());
  m_window->ShowContents();
  EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
  EXPECT_EQ(Shown(), "format-def.html");
  EXPECT_EQ(bar.value(), 250);
  QTest::keyClick(m_window.get(), Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Shown(), "fonts.html");
}

TEST_F(HelpWindowTest, ContentsFollowThePageAndLinksThatLeadOutGoToTheDesktop) {
  auto& contents = tests::Child<QHelpContentWidget>(*m_window, "HelpContents");
  m_window->ShowPage("format-syn.html");
  ASSERT_TRUE(QTest::qWaitFor([&] { return contents.currentIndex().isValid(); }));
  EXPECT_EQ(contents.currentIndex().data().toString(), QStringLiteral("Synonyms (*.syn)"));
  Q_EMIT m_window->Page().anchorClicked(QUrl(QStringLiteral("https://example.org/a?b#c")));
  EXPECT_EQ(m_shell.Runs, std::vector<std::string>{"https://example.org/a?b#c|"});
  EXPECT_EQ(Shown(), "format-syn.html");
  Q_EMIT m_window->Page().anchorClicked(QUrl(QStringLiteral("synonyms.html")));
  EXPECT_EQ(Shown(), "synonyms.html");
  m_window->ShowPage("no-such-page.html");
  EXPECT_TRUE(m_window->Page().toPlainText().startsWith(QStringLiteral("This page cannot be read")));
}

}  // namespace
