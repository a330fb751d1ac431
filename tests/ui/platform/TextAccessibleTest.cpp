// What a screen reader gets from the text control.

#include <QAccessible>
#include <QApplication>

#include "platform/qt/RichTextBox.h"
#include "tests/laws/Dice.h"
#include "tests/support/TextControlContract.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

using platform::qt::RichTextBox;

TEST(TextAccessible, CountsAsTheTextDoesWhateverIsDoneToIt) {
  RichTextBox box;
  laws::Dice dice(7);
  const std::vector<std::string> parts = {"a", "\xC3\xA9", "\xF0\x9F\x98\x80", "\r\n", "\n", "word "};
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&box);
  ASSERT_NE(accessible, nullptr);
  EXPECT_EQ(accessible->role(), QAccessible::EditableText);
  EXPECT_TRUE(accessible->state().multiLine);
  QAccessibleTextInterface* text = accessible->textInterface();
  ASSERT_NE(text, nullptr);
  for (int step = 0; step < 200; ++step) {
    const std::vector<std::size_t> cuts = CuttingOffsets(box.Text());
    box.SetSelStart(dice.Pick(cuts));
    if (dice.Chance(20)) box.SetSelLength(dice.Below(2) * (box.Length() - box.SelStart()));
    box.SetSelText(dice.Pick(parts));
    const QString whole = QString::fromStdString(box.Text());
    ASSERT_EQ(text->characterCount(), whole.size());
    ASSERT_EQ(text->text(0, -1), whole);
    const auto caret = QString::fromStdString(box.TextRange(0, box.Caret())).size();
    ASSERT_EQ(text->cursorPosition(), caret);
    const int start =
        static_cast<int>(QString::fromStdString(box.TextRange(0, dice.Pick(CuttingOffsets(box.Text())))).size());
    ASSERT_EQ(text->text(start, static_cast<int>(whole.size())), whole.mid(start));
  }
}

TEST(TextAccessible, TellsWordsLinesColoursAndPlaces) {
  RichTextBox box;
  box.resize(400, 200);
  box.show();
  QApplication::processEvents();
  box.SetText("first\n\xC3\xA9t\xC3\xA9 two\nlast");  // UTF-16: first 0-4, été 6-8, two 10-12, last 14-17
  box.SetColours({0x0000FF}, {{6, 11, 1}});
  QAccessibleTextInterface* text = QAccessible::queryAccessibleInterface(&box)->textInterface();
  int start = 0, end = 0;
  EXPECT_EQ(text->textAtOffset(11, QAccessible::WordBoundary, &start, &end), QStringLiteral("two"));
  EXPECT_EQ(start, 10);
  EXPECT_EQ(end, 13);
  EXPECT_EQ(text->textAtOffset(7, QAccessible::LineBoundary, &start, &end).trimmed(),
            QString::fromUtf8("\xC3\xA9t\xC3\xA9 two"));
  EXPECT_EQ(start, 6);
  EXPECT_EQ(text->textAfterOffset(7, QAccessible::LineBoundary, &start, &end), QStringLiteral("last"));
  EXPECT_EQ(text->attributes(7, &start, &end), QStringLiteral("color:rgb(255,0,0);"));
  EXPECT_EQ(start, 6);
  EXPECT_EQ(end, 9);
  EXPECT_EQ(text->attributes(11, &start, &end), QString());
  const QRect rectangle = text->characterRect(11);
  EXPECT_GT(rectangle.width(), 1);
  EXPECT_EQ(text->offsetAtPoint(rectangle.center() - QPoint(1, 0)), 11);
  EXPECT_EQ(text->offsetAtPoint(QPoint(-5000, 0)), -1);
  text->setSelection(0, 6, 9);
  EXPECT_EQ(box.SelText(), "\xC3\xA9t\xC3\xA9");
  text->selection(0, &start, &end);
  EXPECT_EQ(start, 6);
  EXPECT_EQ(end, 9);
  QAccessible::queryAccessibleInterface(&box)->editableTextInterface()->replaceText(0, 5, QStringLiteral("1st"));
  EXPECT_EQ(box.LineStart(2), 4u);
}

}  // namespace
}  // namespace tests
