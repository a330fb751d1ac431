// What is plain and what is coloured while a user types, moves, pastes and takes back, in the real control.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <algorithm>
#include <functional>

#include "editor/ui/Mainwin.h"
#include "tests/support/FakeFrame.h"
#include "tests/support/UntouchedFiles.h"

namespace {

constexpr const char* Definition =
    "N: Test\nD: ()*/\"\nC: #0000FF\nC: #00FF00\n"
    "L: if 0  1 True\nL: /* 2 */ 2 True\nL: // 1  2 True\n";

enum class Mode { None, Reduced, Edit, Full };

class ColouringOrder : public testing::Test {
 protected:
  ColouringOrder() {
    m_window.resize(400, 200);
    m_window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    m_window.SetTemplate(m_folder.Write("T.def", Definition));
  }

  void Open(const std::string& text, Mode mode = Mode::Full) {
    m_frame.Values.UseColours = mode == Mode::Edit || mode == Mode::Full;
    m_frame.Values.ReducedColours = mode == Mode::Reduced || mode == Mode::Edit;
    m_window.OpenFile(m_folder.Write("t.txt", text));
  }

  std::string Picture(std::size_t from = 0, std::size_t length = std::string::npos) const {
    return tests::ColourPicture(m_box).substr(from, length);
  }
  void Type(const char* text) { QTest::keyClicks(m_box.viewport(), QString::fromLatin1(text)); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(m_box.viewport(), key, modifiers);
  }
  QPoint PointOf(std::size_t offset) const { return m_box.RectangleAt(offset).center() + QPoint(1, 0); }
  void Click(std::size_t offset) { QTest::mouseClick(m_box.viewport(), Qt::LeftButton, {}, PointOf(offset)); }
  std::size_t Line() const { return m_box.LineOf(m_box.SelStart()); }

  tests::TemporaryFolder m_folder;
  tests::FakeFrame m_frame;
  editor::ui::Mainwin m_window{m_frame};
  platform::qt::RichTextBox& m_box = m_window.TextArea();
};

TEST_F(ColouringOrder, ALineIsPlainWhileItIsEditedAndColouredHoweverItIsLeft) {
  std::string text;
  for (int line = 0; line < 100; ++line) text += "if x\n";
  const std::vector<std::pair<std::string, std::function<void()>>> ways = {
      {"Down", [&] { Key(Qt::Key_Down); }},
      {"Up", [&] { Key(Qt::Key_Up); }},
      {"Left at its start", [&] { Key(Qt::Key_Home), Key(Qt::Key_Left); }},
      {"Page Down", [&] { Key(Qt::Key_PageDown); }},
      {"Ctrl+End", [&] { Key(Qt::Key_End, Qt::ControlModifier); }},
      {"a click", [&] { Click(27); }},
      {"a shown match", [&] { m_box.SetSelStart(40), m_box.SetSelLength(2); }},
      {"Enter", [&] { Key(Qt::Key_End), Key(Qt::Key_Return); }},
  };
  for (const Mode mode : {Mode::None, Mode::Reduced, Mode::Edit, Mode::Full}) {
    for (const auto& [name, leave] : ways) {
      SCOPED_TRACE(name + " in mode " + std::to_string(static_cast<int>(mode)));
      const std::string opened = mode == Mode::Edit || mode == Mode::Full ? "cc.." : "....";
      Open(text, mode);
      Click(14);
      EXPECT_EQ(Picture(0, 15), opened + "|" + opened + "|" + opened + "|") << "looking is no edit";
      Type("y");
      EXPECT_EQ(Picture(0, 16), opened + "|" + opened + "|.....|");
      Key(Qt::Key_Left);
      EXPECT_EQ(Picture(10, 5), ".....") << "the caret is still in it";
      leave();
      EXPECT_NE(Line(), 3u);
      EXPECT_EQ(m_box.TextRange(10, 15), "if xy");
      EXPECT_EQ(Picture(10, 5), mode == Mode::None ? "....." : "cc...");
    }
  }
}

TEST_F(ColouringOrder, LinesThatComeOrGoAtOnce) {
  std::string twenty;
  for (int line = 0; line < 20; ++line) twenty += "if z\n";
  Open("if a\nif b\nif c\n");
  Click(5);
  QApplication::clipboard()->setText(QString::fromStdString(twenty));
  m_box.Paste();
  const std::string pasted = Picture(5, 100);
  EXPECT_EQ(std::count(pasted.begin(), pasted.end(), 'c'), 40) << pasted;
  EXPECT_EQ(m_box.LineCount(), 24u);
  m_window.Undo();
  EXPECT_EQ(Picture(), "cc..|cc..|cc..|");

  Click(7);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  Key(Qt::Key_Delete);
  EXPECT_EQ(m_box.Text(), "if a\nif c\n");
  EXPECT_EQ(Picture(), "cc..|....|") << "the joined line is being edited";
  Key(Qt::Key_Up);
  EXPECT_EQ(Picture(), "cc..|cc..|");
  m_window.Undo();
  EXPECT_EQ(m_box.Text(), "if a\nif b\nif c\n");
  EXPECT_EQ(Picture(), "cc..|cc..|cc..|");
}

TEST_F(ColouringOrder, AWrappedLineIsOneLine) {
  std::string text = "if";
  for (int word = 0; word < 60; ++word) text += " long";
  Open(text + "\nif b\n");
  m_window.WordWrap(true);
  m_box.Refresh();
  QApplication::processEvents();
  Click(1);
  Type("f");
  Key(Qt::Key_Down);
  EXPECT_GT(m_box.SelStart(), 10u);
  EXPECT_EQ(Line(), 1u);
  EXPECT_EQ(Picture(0, 3), "...") << "still on the same line of the text";
  Key(Qt::Key_Backspace);
  while (Line() == 1) Key(Qt::Key_Down);
  m_box.SetSelStart(1);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Picture(0, 3), "...");
  Key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(Picture(0, 3), "cc.");
}

TEST_F(ColouringOrder, OverwriteModeKeepsColumnAndDragsFromTheClick) {
  Open("abcdef\nab\nabcdef\n");
  Key(Qt::Key_Insert);
  Click(3);
  EXPECT_EQ(m_box.SelText(), "d");
  Key(Qt::Key_Left), Key(Qt::Key_Right);
  Key(Qt::Key_Down);
  EXPECT_EQ(m_box.SelStart(), 9u);
  EXPECT_EQ(m_box.SelLength(), 0u) << "no line end is selected";
  Key(Qt::Key_Down);
  EXPECT_EQ(m_box.SelStart(), 13u);
  EXPECT_EQ(m_box.SelText(), "d");
  Key(Qt::Key_Left), Key(Qt::Key_Up), Key(Qt::Key_Up);
  EXPECT_EQ(m_box.SelStart(), 2u);
  QTest::mousePress(m_box.viewport(), Qt::LeftButton, {}, PointOf(1));
  QTest::mouseMove(m_box.viewport(), PointOf(4));
  QTest::mouseRelease(m_box.viewport(), Qt::LeftButton, {}, PointOf(4));
  EXPECT_EQ(m_box.SelText(), "bcd");
  Type("X");
  EXPECT_EQ(m_box.Text(), "aXef\nab\nabcdef\n");
  Type("YZ!");
  EXPECT_EQ(m_box.Text(), "aXYZ!\nab\nabcdef\n");
  m_window.Undo();
  EXPECT_EQ(m_box.Text(), "abcdef\nab\nabcdef\n");
}

TEST_F(ColouringOrder, AnyFileSavedUntouchedIsTheSameFile) {
  tests::ExpectUntouchedFilesStay(m_window.Core(), m_folder, 1000);
}

}  // namespace
