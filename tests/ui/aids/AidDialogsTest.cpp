// The windows of the editing aids, reached by the frame's own commands and used with keys and mouse.

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "tests/ui/aids/PopupFixture.h"

namespace {

using platform::PromptAnswer;

class AidDialogs : public tests::PopupFixture {
 protected:
  void Trigger(const char* tool) {
    QAction* action = m_frame.findChild<QAction*>(QString::fromLatin1(tool));
    ASSERT_NE(action, nullptr) << tool;
    ASSERT_TRUE(QTest::qWaitFor([&] { return action->isEnabled(); })) << tool;
    action->trigger();
  }
  /// Triggers a command that shows a modal window, and uses that window.
  template <typename Using>
  void TriggerModal(const char* tool, const char* form, Using use) {
    bool used = false;
    QTimer waiting;
    QObject::connect(&waiting, &QTimer::timeout, [&] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      waiting.stop();
      used = true;
      EXPECT_EQ(dialog->objectName().toStdString(), form);
      Activate(*dialog);
      use(*dialog);
      if (dialog->isVisible()) dialog->reject();
    });
    waiting.start(5);
    Trigger(tool);
    EXPECT_TRUE(used) << tool;
    Activate(m_frame);
  }
  /// There is no window manager to do so.
  static void Activate(QWidget& window) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
  }
  template <typename Widget>
  static Widget& In(QWidget& window, const char* name) {
    auto* widget = window.findChild<Widget*>(QString::fromLatin1(name));
    EXPECT_NE(widget, nullptr) << name;
    return *widget;
  }
  std::string SelectedText() { return Text().TextRange(Text().SelStart(), Text().SelStart() + Text().SelLength()); }
  const templates::TemplateFields& Template() { return m_frame.ActiveDocument()->Core().State().Template; }
};

TEST_F(AidDialogs, FindAndReplaceByKeys) {
  Open("a.js", "foo bar\nFoo\nfoo\n");
  Trigger("miFind");
  QDialog& dialog = In<QDialog>(m_frame, "FindReplace");
  Activate(dialog);
  EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Find"));
  EXPECT_FALSE(In<QLineEdit>(dialog, "ReplaceWord").isVisible());
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("foo"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(SelectedText(), "foo");
  EXPECT_EQ(Text().SelStart(), 0U);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(SelectedText(), "Foo") << "the case does not count";

  QTest::keyClick(&dialog, Qt::Key_R, Qt::AltModifier);  // &Replace...
  // A button that is reached by its key shows for a moment that it is pressed.
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.windowTitle() == QStringLiteral("Replace"); }));
  QPushButton& replace = In<QPushButton>(dialog, "ReplaceB");
  EXPECT_FALSE(replace.isEnabled());
  QTest::keyClick(&dialog, Qt::Key_W, Qt::AltModifier);  // Replace &With:
  EXPECT_EQ(QApplication::focusWidget(), &In<QLineEdit>(dialog, "ReplaceWord"));
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("foofoo"));
  QTest::mouseClick(&In<QPushButton>(dialog, "Find"), Qt::LeftButton);
  EXPECT_TRUE(replace.isEnabled() && replace.isDefault());
  EXPECT_EQ(Text().SelStart(), 12U);
  m_prompts.Expect({.Text = "Replace Complete.  3 replacements were made.",
                    .Title = "Replace",
                    .Icon = platform::PromptIcon::Information});
  QTest::mouseClick(&In<QPushButton>(dialog, "ReplaceAll"), Qt::LeftButton);
  EXPECT_EQ(Text().Text(), "foofoo bar\nfoofoo\nfoofoo\n");
  Trigger("miUndo");
  EXPECT_EQ(Text().Text(), "foo bar\nFoo\nfoo\n") << "in one step";

  Open("b.js", "other\n");
  Trigger("miFind");
  EXPECT_EQ(In<QLineEdit>(dialog, "FindWord").text(), QString()) << "each document remembers its own search";
  m_frame.ActiveDocument()->parentWidget()->close();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); })) << "the dialog goes with its document";
}

TEST_F(AidDialogs, SynonymsAreAddedEditedAndTaken) {
  Open("a.js", "let sheet");
  TriggerModal("miAddSynonym", "frmSynonymSelect", [](QDialog& dialog) {
    auto& list = *dialog.findChild<QListWidget*>();
    ASSERT_GT(list.count(), 3);
    list.setCurrentItem(list.findItems(QStringLiteral("document"), Qt::MatchExactly).at(0));
    QTest::mouseClick(&In<QPushButton>(dialog, "btnOK"), Qt::LeftButton);
  });
  EXPECT_EQ(Template().Synonyms.Item("sheet")->Synonym, "document");
  Text().SetSelStart(Text().Length());
  Type(QStringLiteral("."));
  EXPECT_TRUE(List().isVisible()) << "the synonym opens the list of its word";
  Type(QStringLiteral("<Esc>"));

  TriggerModal("miEditSynonyms", "frmSynonyms", [](QDialog& dialog) {
    auto& rows = In<QTreeWidget>(dialog, "lstAss");
    const int before = rows.topLevelItemCount();
    QTest::keyClick(&dialog, Qt::Key_N, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return rows.topLevelItemCount() == before + 1; }));
    EXPECT_EQ(rows.currentItem()->text(0), QStringLiteral("new"));
    EXPECT_EQ(rows.currentItem()->text(1), QStringLiteral("(click to select, then edit below)"));
    auto& word = In<QLineEdit>(dialog, "txtExt");
    EXPECT_TRUE(QTest::qWaitFor([&] { return word.hasSelectedText(); }));
    QTest::keyClicks(&word, QStringLiteral("page"));
    auto& names = In<QListWidget>(dialog, "SynList");
    names.setFocus();
    names.setCurrentItem(names.findItems(QStringLiteral("document"), Qt::MatchExactly).at(0));
    QTest::keyClick(&names, Qt::Key_Return);
    EXPECT_EQ(rows.currentItem()->text(0) + rows.currentItem()->text(1), QStringLiteral("pagedocument"));
    QTest::mouseClick(&In<QPushButton>(dialog, "btnClose"), Qt::LeftButton);
  });
  EXPECT_EQ(Template().Synonyms.Item("page")->Synonym, "document");

  const std::string file = m_folder.Path("kept.syn");
  m_prompts.ExpectSaveFile("Save Synonyms", file);
  Trigger("miSaveSynonyms");
  EXPECT_NE(m_folder.Read("kept.syn").find("\"page\",\"document\"\r\n"), std::string::npos);
  TriggerModal("miEditSynonyms", "frmSynonyms", [](QDialog& dialog) {
    QTest::mouseClick(&In<QPushButton>(dialog, "btnDelete"), Qt::LeftButton);
    QTest::mouseClick(&In<QPushButton>(dialog, "btnCancel"), Qt::LeftButton);
  });
  m_prompts.ExpectOpenFile("Load Synonyms", file);
  Trigger("miLoadSynonyms");
  EXPECT_EQ(Template().Synonyms.Item("PAGE")->Synonym, "document");
}

TEST_F(AidDialogs, SeveralHelpEntriesOfAWordAreChosenFrom) {
  Open("a.js", "word");
  templates::TemplateFields& fields = m_frame.ActiveDocument()->Core().State().Template;
  for (const char* name : {"First", "Second"})
    fields.HelpWords.Add(std::make_shared<templates::HelpWord>(templates::HelpWord{"Word", "there/is/no/such", name}));
  TriggerModal("WordHelp", "frmHelpChoose", [this](QDialog& dialog) {
    auto& list = *dialog.findChild<QListWidget*>();
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.item(1)->text(), QStringLiteral("Second"));
    m_prompts.ExpectBoxWith({"\"there/is/no/such\" could not be executed."});
    QTest::mouseClick(&In<QPushButton>(dialog, "OKbutton"), Qt::LeftButton);
  });
  Text().SetSelStart(0);
  fields.HelpWords.Clear();
  m_prompts.Expect({.Text = "No help is available for \"word\".  Sorry."});
  Trigger("WordHelp");
}

}  // namespace
