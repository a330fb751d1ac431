// The two windows themselves: where they stand, what the mouse does, when they hide.

#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <random>

#include "aids/ui/WidestText.h"
#include "tests/ui/aids/PopupFixture.h"

namespace tests {
namespace {

class PopupWindows : public PopupFixture {
 protected:
  void OpenList(const std::string& before = "") {
    Open("a.js", before);
    Play("document.");
  }
  QRect CaretOnScreen() { return OnScreen(Text().SelStart()); }
  QPoint RowCentre(int row) { return CList().visualRect(CList().model()->index(row - 1, 0)).center(); }
};

TEST_F(PopupWindows, TheListsWordsStandUnderTheCaret) {
  OpenList();
  ASSERT_TRUE(List().isVisible());
  const QRect caret = CaretOnScreen();
  EXPECT_EQ(List().y(), caret.bottom() + 1);
  EXPECT_EQ(List().x(), caret.x() - 17 - 4);
  EXPECT_EQ(List().height(), 150);
  EXPECT_EQ(CList().visualRect(CList().model()->index(0, 0)).height(), CList().fontMetrics().height() + 4);
  EXPECT_EQ(List().font().pointSizeF(), Text().ShownFont().pointSizeF());
  EXPECT_EQ(List().font().family(), Text().ShownFont().family());
  EXPECT_EQ(CList().model()->rowCount(), 79);
  EXPECT_EQ(QApplication::focusWidget(), &Text()) << "the text keeps the keyboard";
  EXPECT_TRUE(m_frame.isActiveWindow());
  Play("cre");
  EXPECT_EQ(CList().indexAt(QPoint(5, 5)).data().toString(), QStringLiteral("createAttribute")) << "the top row";
  Play("<Backspace><Backspace><Backspace>wr");
  EXPECT_EQ(Selected(), "write") << "as near to the top as the list allows";
  EXPECT_TRUE(CList().viewport()->rect().contains(CList().visualRect(CList().currentIndex())));
}

TEST_F(PopupWindows, AListOpenedAgainShowsItsFirstWords) {
  OpenList();
  const QString first = CList().indexAt(QPoint(5, 5)).data().toString();
  Play("write(document.");
  ASSERT_TRUE(List().isVisible());
  EXPECT_EQ(CList().indexAt(QPoint(5, 5)).data().toString(), first);
}

TEST_F(PopupWindows, TheTipBeginsUnderItsWord) {
  Open("a.js", "var longer = ");
  const int word = CaretOnScreen().x();
  Play("setTimeout(");
  ASSERT_TRUE(Tip().isVisible());
  EXPECT_EQ(Tip().x(), word - 1);
  EXPECT_EQ(Tip().y(), CaretOnScreen().bottom() + 1);
  const auto* label = Tip().findChild<QLabel*>(QStringLiteral("tipText"));
  EXPECT_TRUE(label->text().startsWith(QStringLiteral("setTimeout("))) << label->text().toStdString();
  EXPECT_EQ(Tip().size(), label->size() + QSize(10, 5));
  const QRect line4 = Tip().findChild<QWidget*>(QStringLiteral("Line4"))->geometry();
  EXPECT_EQ(line4, QRect(0, Tip().height() - 1, Tip().width(), 1));
}

TEST_F(PopupWindows, TheTipMakesRoomForTheList) {
  Open("a.js", "\n\n\n\nvar longer = ");
  Play("setTimeout(");
  const int under = Tip().y();
  Play("document.");
  ASSERT_TRUE(Tip().isVisible() && List().isVisible());
  EXPECT_FALSE(Tip().geometry().intersects(List().geometry()));
  EXPECT_EQ(Tip().geometry().bottom() + 1, CaretOnScreen().top());
  Play("<Esc>");
  EXPECT_EQ(Tip().y(), under);
}

TEST_F(PopupWindows, AtTheEdgesOfTheScreenTheyStayVisible) {
  const QRect screen = m_frame.screen()->availableGeometry();
  m_frame.resize(500, 450);
  m_frame.move(screen.right() - 300, screen.bottom() - 350);
  Open("a.js", std::string(8, '\n') + std::string(30, ' '));
  for (const char* keys : {"setTimeout(", "document."}) {
    Play(keys);
    const QWidget& popup = *keys == 's' ? static_cast<QWidget&>(Tip()) : List();
    ASSERT_TRUE(popup.isVisible());
    EXPECT_TRUE(screen.contains(popup.geometry())) << keys;
    EXPECT_FALSE(popup.geometry().intersects(CaretOnScreen())) << keys;
  }
  const QPoint before = List().pos() - CaretOnScreen().topLeft();
  m_frame.move(screen.left() + 50, screen.bottom() - 350);
  EXPECT_EQ((List().pos() - CaretOnScreen().topLeft()).y(), before.y()) << "it follows the frame";
}

TEST_F(PopupWindows, FarDownInAWrappedTextTheyStandAsAnywhere) {
  std::string text;
  for (int i = 0; i < 3000; ++i) text += "a line of some words that is long enough to be wrapped in a narrow window\n";
  Open("a.js", text + "wrapped by the many words before it so that it lies in the second or third line of the window ");
  m_frame.resize(400, 500);
  m_frame.ActiveDocument()->WordWrap(true);
  EXPECT_TRUE(QTest::qWaitFor([&] {  // lines are wrapped by and by
    Text().SetSelStart(Text().Length());
    return Text().VerticalScroll() > 5000 && Text().viewport()->rect().contains(Text().CaretRectangle());
  }));
  Play("setTimeout(");
  ASSERT_TRUE(Tip().isVisible());
  EXPECT_EQ(Tip().y(), CaretOnScreen().bottom() + 1);
  Play("document.");
  ASSERT_TRUE(List().isVisible());
  EXPECT_EQ(List().y(), CaretOnScreen().bottom() + 1);
  Play("bo;");
  EXPECT_TRUE(Text().TextRange(text.size(), Text().Length()).ends_with(" setTimeout(document.body;"));
}

TEST_F(PopupWindows, TheMouseChooses) {
  OpenList();
  QTest::mouseClick(CList().viewport(), Qt::LeftButton, {}, RowCentre(3));
  EXPECT_EQ(Selected(), "adoptNode");
  EXPECT_EQ(QApplication::focusWidget(), &Text());
  QTest::mouseClick(CList().viewport(), Qt::LeftButton, {}, RowCentre(2));
  QTest::mouseDClick(CList().viewport(), Qt::LeftButton, {}, RowCentre(2));
  EXPECT_EQ(Text().Text(), "document.addEventListener");
  EXPECT_FALSE(List().isVisible());
  Play(" document.");
  EXPECT_TRUE(List().isVisible());
  QTest::mouseClick(Text().viewport(), Qt::LeftButton, {}, QPoint(6, 6));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !List().isVisible(); })) << "the click took the caret away from it";
}

TEST_F(PopupWindows, TheyHideWhileAnotherWindowIsActive) {
  OpenList("setTimeout(");
  QWidget other;
  Activate(other);
  EXPECT_FALSE(List().isVisible());
  EXPECT_NE(List().OwnerWin(), nullptr) << "it is still there";
  Activate(m_frame);
  EXPECT_TRUE(List().isVisible());
  Play("bo<Tab>");
  EXPECT_EQ(Text().Text(), "setTimeout(document.body");
}

TEST_F(PopupWindows, OneListForAllDocuments) {
  OpenList();
  Open("b.js", "");
  EXPECT_FALSE(List().isVisible()) << "another document has the keyboard";
  Play("document.");
  EXPECT_TRUE(List().isVisible());
  EXPECT_EQ(m_frame.findChildren<aids::ui::ContextList*>().size(), 1);
  m_prompts.ExpectClosing("b.js", platform::PromptAnswer::Cancel);
  m_frame.ActiveDocument()->parentWidget()->close();
  EXPECT_FALSE(List().isVisible());
  Play("<Backspace>.");
  EXPECT_TRUE(List().isVisible());
  delete m_frame.ActiveDocument()->parentWidget();
  EXPECT_EQ(List().OwnerWin(), nullptr) << "a document that goes leaves no list behind";
}

class LongList : public PopupWindows {
 protected:
  static constexpr int Rows = 32767;
};

TEST_F(LongList, OpensNarrowsAndScrolls) {
  std::string block = "D: .\r\nW: \"big\" 1\r\n2 \".\" " + std::to_string(Rows) + "\r\n\"\"\r\n";
  for (int i = 0; i < Rows; ++i) block += "entry" + std::to_string(100000 + i) + ' ' + std::to_string(i % 8) + "\r\n";
  Open("a.js", "");
  m_frame.ActiveDocument()->SetTemplate(m_folder.Write("Big.def", "N: Big\r\n" + block));
  Play("big.");
  ASSERT_TRUE(List().isVisible());
  EXPECT_EQ(CList().model()->rowCount(), Rows);
  Play("entry132766");
  EXPECT_EQ(Selected(), "entry132766");
  EXPECT_TRUE(CList().viewport()->rect().contains(CList().visualRect(CList().currentIndex())));
  Play("<Down>");
  EXPECT_EQ(Selected(), "entry132766");
  Play("<PgUp>");
  EXPECT_LT(Selected(), "entry132766");
  CList().verticalScrollBar()->setValue(16000);
  EXPECT_EQ(CList().indexAt(QPoint(5, 5)).row(), 16000);
}

/// The widest text is found without measuring all of them.
TEST_F(LongList, TheWidestTextIsFound) {
  std::mt19937 dice(7);
  for (const char* family : {"DejaVu Sans", "Liberation Mono", "Liberation Serif"}) {
    const QFontMetricsF metrics(QFont(QString::fromLatin1(family), 11));
    std::vector<std::string> texts;
    for (int i = 0; i < 500; ++i) {
      std::string text;
      for (unsigned length = dice() % 24; length > 0; --length) text += static_cast<char>(33 + dice() % 94);
      texts.push_back(dice() % 9 == 0 ? text + "\xE4\xBD\xA0\xC3\xA9" : text);
    }
    qreal widest = 0;
    for (const std::string& text : texts)
      widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdString(text)));
    EXPECT_NEAR(aids::ui::WidestText(metrics, texts), widest, 1.0) << family;
  }
}

}  // namespace
}  // namespace tests
