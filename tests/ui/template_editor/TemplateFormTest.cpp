// The controls of the template editor's window, by mouse and keys, and how it looks.

#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QToolButton>

#include "tests/ui/template_editor/FormFixture.h"

namespace tests {
namespace {

using template_editor::ui::frmTemplate;

class TemplateForm : public FormTest {
 protected:
  /// Three colours, a word of the third, two action words.
  std::string WriteSample() const {
    return m_folder.Write("s.def",
                          "N: Sample\r\nD: .(\r\nC: #0000FF\r\n;Red\r\nC: #00FF00\r\n;Green\r\nC: #FF0000\r\n;Blue\r\n"
                          "L: rem 1  3 True\r\nL: /* 2 */ 2 False\r\n"
                          "W: \"a\" 2\r\n2 \".\" 1\r\n\"\"\r\nopen 5\r\n1 \"(\" 0\r\n\"(x)\"\r\nW: \"b\" 0\r\n"
                          "Y: \"x\" \"a\"\r\n");
  }
  QColor SwatchOf(const char* list, int row) const {
    const auto icon = Child<QAbstractItemView>(list).model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
    return icon.pixmap(16).toImage().pixelColor(8, 8);
  }
  std::string NoteOf(const char* list, int row) const {
    const QModelIndex index = Child<QAbstractItemView>(list).model()->index(row, 0);
    return index.data(Qt::AccessibleTextRole).toString().toStdString();
  }
};

TEST_F(TemplateForm, AScreenReaderHasANameForEveryControl) {
  OpenTemplate(WriteSample());
  for (QWidget* widget : Active().findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().isEmpty() ||
        widget->objectName().startsWith(QLatin1String("qt_")))
      continue;
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
    ASSERT_NE(spoken, nullptr);
    EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << widget->objectName().toStdString();
  }
  EXPECT_EQ(NoteOf("ColWordList", 0), "rem, Blue");
}

TEST_F(TemplateForm, SpacesTypedIntoTheDelimetersFallOut) {
  NewTemplate();
  Child<QLineEdit>("DelimetersBox").setFocus();
  Play("<Ctrl+A>a ");
  EXPECT_FALSE(Child<QLabel>("DelimLabel").styleSheet().isEmpty()) << "it warns";
  Play("b");
  EXPECT_TRUE(Child<QLabel>("DelimLabel").styleSheet().isEmpty());
  EXPECT_EQ(TextOf("DelimetersBox"), "ab");
  Play("<Left> c");
  EXPECT_EQ(TextOf("DelimetersBox"), "acb") << "the caret stays where it was";
}

TEST_F(TemplateForm, ARemovedColourLeavesItsWordsVisiblyWithout) {
  OpenTemplate(WriteSample());
  ShowPage(1);
  EXPECT_EQ(SwatchOf("ColWordList", 0), QColor(Qt::blue));
  EXPECT_EQ(SwatchOf("ColWordList", 1), QColor(Qt::green));
  ClickRow("ColourList", 1);
  EXPECT_EQ(TextOf("ColName") + TextOf("ColHex"), "Green#00FF00");
  Click("colRemove");
  EXPECT_EQ(SwatchOf("ColWordList", 0), QColor(Qt::blue)) << "its number has changed, its colour has not";
  EXPECT_NE(SwatchOf("ColWordList", 1), QColor(Qt::green));
  EXPECT_EQ(NoteOf("ColWordList", 1), "/*, no colour");
  ClickRow("ColWordList", 1);
  EXPECT_EQ(Child<QLabel>("ColWordColName").text(), QStringLiteral("[no colour]"));
  EXPECT_EQ(SelectedRow("ColourList"), -1);
  EXPECT_TRUE(Child<QAbstractButton>("oUntilWord").isChecked());
  ClickRow("ColourList", 0);
  Click("ChangeColWord");
  EXPECT_EQ(SwatchOf("ColWordList", 1), QColor(Qt::red));
}

TEST_F(TemplateForm, TheColourChooserIsTheFrames) {
  NewTemplate();
  ShowPage(1);
  m_prompts.ExpectColour(0, 0x123456);
  Click("ColBrowse");
  EXPECT_EQ(TextOf("ColHex"), "#123456");
  m_prompts.ExpectColour(0x123456, std::nullopt);
  Click("ColBrowse");
  EXPECT_EQ(TextOf("ColHex"), "#123456");
  EXPECT_TRUE(Child<QPushButton>("colAdd").isDefault());
}

TEST_F(TemplateForm, LeavingAChangedActionAsks) {
  OpenTemplate(WriteSample());
  ShowPage(2);
  ClickRow("ActWordList", 0);
  ClickRow("DelimetersList", 0);
  EXPECT_EQ(Child<QGroupBox>("WordListFrame").title(), QStringLiteral("Word List for [.]"));
  EXPECT_FALSE(Child<QLineEdit>("ToolTipBox").isVisible());
  ClickRow("WordList", 0);
  EXPECT_TRUE(Child<QToolButton>("imgIcons5").isChecked());
  Click("imgIcons2");
  Click("wlstChange");

  InModalWindow([](QWidget& question) {
    EXPECT_EQ(question.objectName(), QStringLiteral("frmTemplateMsg"));
    EXPECT_EQ(question.windowTitle(), QStringLiteral("Delimeter Action Changed"));
    QTest::keyClick(&question, Qt::Key_Escape);
  });
  ClickRow("DelimetersList", 1);
  EXPECT_EQ(SelectedRow("DelimetersList"), 0) << "the user stays";
  InModalWindow([](QWidget& question) { QTest::keyClick(&question, Qt::Key_C, Qt::AltModifier); });
  ClickRow("DelimetersList", 1);
  ASSERT_TRUE(QTest::qWaitFor([&] { return SelectedRow("DelimetersList") == 1; }));
  EXPECT_EQ(TextOf("ToolTipBox"), "(x)");

  InModalWindow([](QWidget& question) {
    EXPECT_EQ(question.windowTitle(), QStringLiteral("Action Word Changed"));
    EXPECT_TRUE(tests::Child<QPushButton>(question, "ChangeButton").isEnabled());
    QTest::mouseClick(&tests::Child<QPushButton>(question, "DiscardButton"), Qt::LeftButton);
  });
  ClickRow("ActWordList", 1);
  EXPECT_EQ(TextOf("ActWordName"), "b");
  ClickRow("ActWordList", 0);
  ClickRow("DelimetersList", 0);
  ClickRow("WordList", 0);
  EXPECT_TRUE(Child<QToolButton>("imgIcons5").isChecked()) << "what was discarded is as it was";
}

TEST_F(TemplateForm, SynonymsAreTakenFromTheListOfActionWords) {
  OpenTemplate(WriteSample());
  ShowPage(4);
  EXPECT_EQ(RowCount("SynList"), 2);
  Click("btnNew");
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("txtWord"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return Child<QLineEdit>("txtWord").selectedText() == QStringLiteral("new"); }));
  Play("y\"");
  EXPECT_EQ(TextOf("txtWord"), "y");
  auto& words = Child<QAbstractItemView>("SynList");
  ClickRow("SynList", 1);
  EXPECT_NE(TextOf("txtSynonym"), "b");
  QTest::mouseDClick(words.viewport(), Qt::LeftButton, {}, words.visualRect(words.model()->index(1, 0)).center());
  EXPECT_EQ(TextOf("txtSynonym"), "b");
  words.setFocus();
  Play("<Home><Return>");
  EXPECT_EQ(TextOf("txtSynonym"), "a");
  Child<QWidget>("lstAss").setFocus();
  Play("<Del>");
  EXPECT_EQ(RowCount("lstAss"), 1);
  EXPECT_EQ(TextOf("txtWord"), "x");
}

TEST_F(TemplateForm, TheWindowHasOneSizeAndItsPagesStandInTheMiddle) {
  frmTemplate& form = NewTemplate();
  auto& window = *qobject_cast<QMdiSubWindow*>(form.parentWidget());
  const auto& holder = Child<QWidget>("HolderBox");
  ASSERT_TRUE(window.isMaximized());
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return (holder.mapTo(&form, holder.rect().center()) - form.rect().center()).manhattanLength() <= 2; }));
  window.showNormal();
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.minimumSize() == window.maximumSize(); }));
  EXPECT_EQ(window.size(), window.sizeHint());
  EXPECT_TRUE(form.rect().contains(QRect(holder.mapTo(&form, QPoint()), holder.size())));
  window.showMaximized();
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.size() == window.mdiArea()->viewport()->size(); }));
  window.showMinimized();
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.height() < 100; }));
  window.showNormal();
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.size() == window.sizeHint(); }));
}

TEST_F(TemplateForm, LongWordsDoNotStretchThePages) {
  NewTemplate();
  ShowPage(2);
  const QSize before = Child<QWidget>("HolderBox").size();
  Child<QLineEdit>("ActWordName").setText(QString(300, QLatin1Char('w')));
  Child<QLineEdit>("DelimBox").setText(QString(300, QLatin1Char('d')));
  QCoreApplication::processEvents();
  EXPECT_EQ(Child<QWidget>("HolderBox").size(), before);
}

}  // namespace
}  // namespace tests
