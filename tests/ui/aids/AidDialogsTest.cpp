// The windows of the editing aids, reached by the frame's own commands and used with keys and mouse.

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>

#include "tests/ui/aids/PopupFixture.h"

namespace tests {
namespace {

class AidDialogs : public PopupFixture {
 protected:
  void Trigger(const char* tool) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return Tool(tool).isEnabled(); })) << tool;
    Tool(tool).trigger();
  }
  /// Triggers a command that shows a modal window, and uses that window.
  template <typename Using>
  void TriggerModal(const char* tool, const char* form, Using use) {
    bool used = false;
    InModalWindow<QDialog>([&used, form, use](QDialog& dialog) {
      used = true;
      EXPECT_EQ(dialog.objectName().toStdString(), form);
      use(dialog);
      if (dialog.isVisible()) dialog.reject();
    });
    Trigger(tool);
    EXPECT_TRUE(used) << tool;
    Activate(m_frame);
  }
  const templates::TemplateFields& Template() { return m_frame.ActiveDocument()->Core().State().Template; }
};

TEST_F(AidDialogs, FindAndReplaceByKeysForEachDocument) {
  Open("a.js", "foo bar\nFoo\nfoo\n");
  Trigger("miFind");
  QDialog& dialog = Child<QDialog>(m_frame, "FindReplace");
  Activate(dialog);
  EXPECT_FALSE(Child<QLineEdit>(dialog, "ReplaceWord").isVisible());
  Play("foo<Return>");
  EXPECT_EQ(Text().SelText(), "foo");
  QTest::keyClick(&dialog, Qt::Key_R, Qt::AltModifier);  // &Replace...
  // A button that is reached by its key shows for a moment that it is pressed.
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.windowTitle() == QStringLiteral("Replace"); }));
  QTest::keyClick(&dialog, Qt::Key_W, Qt::AltModifier);  // Replace &With:
  EXPECT_EQ(QApplication::focusWidget(), &Child<QLineEdit>(dialog, "ReplaceWord"));
  EXPECT_FALSE(Child<QPushButton>(dialog, "ReplaceB").isEnabled());
  Click(dialog, "Find");
  EXPECT_TRUE(Child<QPushButton>(dialog, "ReplaceB").isDefault());
  EXPECT_EQ(Text().SelText(), "Foo") << "the case does not count";
  Open("b.js", "other\n");
  Trigger("miFind");
  EXPECT_EQ(Child<QLineEdit>(dialog, "FindWord").text(), QString()) << "each document remembers its own search";
  m_frame.ActiveDocument()->parentWidget()->close();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); })) << "the dialog goes with its document";
}

TEST_F(AidDialogs, SynonymsAreAddedEditedAndTaken) {
  Open("a.js", "let sheet");
  TriggerModal("miAddSynonym", "frmSynonymSelect", [](QDialog& dialog) {
    auto& list = *dialog.findChild<QListWidget*>();
    ASSERT_GT(list.count(), 3);
    list.setCurrentItem(list.findItems(QStringLiteral("document"), Qt::MatchExactly).at(0));
    Click(dialog, "btnOK");
  });
  EXPECT_EQ(Template().Synonyms.Item("sheet")->Synonym, "document");
  Text().SetSelStart(Text().Length());
  Play(".");
  EXPECT_TRUE(List().isVisible()) << "the synonym opens the list of its word";
  Play("<Esc>");

  TriggerModal("miEditSynonyms", "frmSynonyms", [](QDialog& dialog) {
    auto& rows = Child<QTreeWidget>(dialog, "lstAss");
    const int before = rows.topLevelItemCount();
    QTest::keyClick(&dialog, Qt::Key_N, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return rows.topLevelItemCount() == before + 1; }));
    auto& word = Child<QLineEdit>(dialog, "txtExt");
    EXPECT_TRUE(QTest::qWaitFor([&] { return word.hasSelectedText(); }));
    QTest::keyClicks(&word, QStringLiteral("page"));
    auto& names = Child<QListWidget>(dialog, "SynList");
    names.setFocus();
    names.setCurrentItem(names.findItems(QStringLiteral("document"), Qt::MatchExactly).at(0));
    QTest::keyClick(&names, Qt::Key_Return);
    EXPECT_EQ(rows.currentItem()->text(0) + rows.currentItem()->text(1), QStringLiteral("pagedocument"));
    Click(dialog, "btnClose");
  });
  EXPECT_EQ(Template().Synonyms.Item("page")->Synonym, "document");

  const std::string file = m_folder.Path("kept.syn");
  m_prompts.ExpectSaveFile("Save Synonyms", file);
  Trigger("miSaveSynonyms");
  EXPECT_NE(m_folder.Read("kept.syn").find("\"page\",\"document\"\r\n"), std::string::npos);
  TriggerModal("miEditSynonyms", "frmSynonyms", [](QDialog& dialog) {
    Click(dialog, "btnDelete");
    Click(dialog, "btnCancel");
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
    Click(dialog, "OKbutton");
  });
  Text().SetSelStart(0);
  fields.HelpWords.Clear();
  m_prompts.Expect({.Text = "No help is available for \"word\".  Sorry."});
  Trigger("WordHelp");
}

}  // namespace
}  // namespace tests
