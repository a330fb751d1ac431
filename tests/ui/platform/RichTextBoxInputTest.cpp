// Keys, input methods, the mouse, the clipboard and things dropped, as the toolkit delivers them.

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>

#include "platform/qt/RichTextBox.h"
#include "tests/support/TextControlContract.h"

namespace tests {
namespace {

using platform::qt::RichTextBox;
using List = std::vector<std::string>;

class RichTextBoxInput : public testing::Test {
 protected:
  RichTextBoxInput() {
    m_box.resize(400, 200);
    m_box.show();
    m_box.activateWindow();
    m_box.setFocus();
    QApplication::processEvents();
  }

  void Put(const std::string& text, std::size_t caret, std::size_t length = 0) {
    m_box.SetText(text);
    m_box.SetSelStart(caret);
    m_box.SetSelLength(length);
  }

  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text), release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(&m_box, &press);
    QApplication::sendEvent(&m_box, &release);
  }

  QPoint PointOf(std::size_t offset) const { return m_box.RectangleAt(offset).center() + QPoint(1, 0); }

  RichTextBox m_box;
};

TEST_F(RichTextBoxInput, KeysDoWhatTheySay) {
  struct Case {
    const char* Name;
    std::string Before;
    std::size_t Caret, Length;
    int Key;
    Qt::KeyboardModifiers Modifiers;
    QString Text;
    std::string After;
    std::size_t CaretAfter, LengthAfter;
  };
  const auto text = [](const char* utf8) { return QString::fromUtf8(utf8); };
  const Case cases[] = {
      {"letter", "ab", 1, 0, Qt::Key_X, {}, text("x"), "axb", 2, 0},
      {"letter over selection", "abc", 0, 2, Qt::Key_X, {}, text("x"), "xc", 1, 0},
      {"character outside the 16-bit plane", "ab", 1, 0, 0, {}, text("😀"), "a😀b", 5, 0},
      {"third level", "", 0, 0, Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, text("@"), "@", 1, 0},
      {"Enter, LF document", "a\nb", 1, 0, Qt::Key_Return, {}, text("\r"), "a\n\nb", 2, 0},
      {"Enter, CR LF document", "a", 1, 0, Qt::Key_Enter, Qt::KeypadModifier, text("\r"), "a\r\n", 3, 0},
      {"Tab", "a", 0, 0, Qt::Key_Tab, {}, text("\t"), "\ta", 1, 0},
      {"Backspace takes a whole character", "\xC3\xA9x", 2, 0, Qt::Key_Backspace, {}, {}, "x", 0, 0},
      {"Backspace takes CR LF", "a\r\nb", 3, 0, Qt::Key_Backspace, {}, {}, "ab", 1, 0},
      {"Ctrl+Backspace takes a word", "one two", 7, 0, Qt::Key_Backspace, Qt::ControlModifier, {}, "one ", 4, 0},
      {"Delete", "a\r\nb", 1, 0, Qt::Key_Delete, {}, {}, "ab", 1, 0},
      {"Left over a wide character", "\xF0\x9F\x98\x80", 4, 0, Qt::Key_Left, {}, {}, "\xF0\x9F\x98\x80", 0, 0},
      {"Shift+Right", "abc", 1, 0, Qt::Key_Right, Qt::ShiftModifier, {}, "abc", 1, 1},
      {"Ctrl+Right", "one two", 0, 0, Qt::Key_Right, Qt::ControlModifier, {}, "one two", 4, 0},
      {"Ctrl+End", "a\nb", 0, 0, Qt::Key_End, Qt::ControlModifier, {}, "a\nb", 3, 0},
      {"Ctrl+A", "a\nb", 0, 0, Qt::Key_A, Qt::ControlModifier, text("\x01"), "a\nb", 0, 3},
      {"Ctrl+D is not the control's", "abc", 1, 0, Qt::Key_D, Qt::ControlModifier, text("\x04"), "abc", 1, 0},
      {"Ctrl+Z is not the control's", "abc", 1, 0, Qt::Key_Z, Qt::ControlModifier, text("\x1A"), "abc", 1, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    Put(c.Before, c.Caret, c.Length);
    RecordedEvents events(m_box);
    Key(c.Key, c.Modifiers, c.Text);
    EXPECT_EQ(m_box.Text(), c.After);
    EXPECT_EQ(m_box.SelStart(), c.CaretAfter);
    EXPECT_EQ(m_box.SelLength(), c.LengthAfter);
    const List log = events.Take();
    EXPECT_EQ(std::count(log.begin(), log.end(), "Change"), c.Before == c.After ? 0 : 1) << "one change a key";
  }
}

TEST_F(RichTextBoxInput, TellsKeysByTheirVirtualCodes) {
  Put("ab", 1);
  RecordedEvents events(m_box);
  Key(Qt::Key_X, Qt::ShiftModifier, QStringLiteral("X"));
  EXPECT_EQ(events.Take(), (List{"KeyDown 88 1", "KeyPress 88", "Change", "SelChange", "KeyUp 88 1"}));
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(events.Take(), (List{"KeyDown 9 1", "KeyPress 9", "KeyUp 9 1"}));
  Key(Qt::Key_Escape);
  EXPECT_EQ(events.Take(), (List{"KeyDown 27 0", "KeyPress 27", "KeyUp 27 0"}));
  Key(Qt::Key_F1, Qt::ControlModifier);
  Key(Qt::Key_Period, {}, QStringLiteral("."));
  EXPECT_EQ(events.Take(), (List{"KeyDown 112 2", "KeyUp 112 2", "KeyDown 190 0", "KeyPress 46", "Change", "SelChange",
                                 "KeyUp 190 0"}));
  events.ConsumedKey = 46;
  Key(Qt::Key_Delete);
  events.ConsumedCharacter = U'y';
  Key(Qt::Key_Y, {}, QStringLiteral("y"));
  EXPECT_EQ(events.Take(), (List{"KeyDown 46 0", "KeyUp 46 0", "KeyDown 89 0", "KeyPress 121", "KeyUp 89 0"}));
  EXPECT_EQ(m_box.Text(), "aX.b");
  m_box.SetEnabled(false);
  Key(Qt::Key_Z, {}, QStringLiteral("z"));
  EXPECT_EQ(events.Take(), List{});
  EXPECT_EQ(m_box.Text(), "aX.b");
  EXPECT_TRUE(m_box.hasFocus());
}

TEST_F(RichTextBoxInput, InputMethodsTypeCharacterByCharacter) {
  Put("ab", 1);
  RecordedEvents events(m_box);
  QInputMethodEvent composing(QStringLiteral("ni"), {});
  QApplication::sendEvent(&m_box, &composing);
  EXPECT_EQ(events.Take(), List{}) << "what is being composed is no part of the text";
  QInputMethodEvent commit;
  commit.setCommitString(QString::fromUtf8("\xE4\xBD\xA0\xF0\x9F\x98\x80"));
  QApplication::sendEvent(&m_box, &commit);
  EXPECT_EQ(m_box.Text(), "a你😀b");
  EXPECT_EQ(events.Take(),
            (List{"KeyPress 20320", "Change", "SelChange", "KeyPress 128512", "Change", "SelChange", "KeyUp 0 0"}));
  QInputMethodEvent correction;
  correction.setCommitString(QStringLiteral("x"), -3, 3);
  QApplication::sendEvent(&m_box, &correction);
  EXPECT_EQ(m_box.Text(), "axb");
  QInputMethodQueryEvent query(Qt::ImCursorPosition | Qt::ImSurroundingText);
  QApplication::sendEvent(&m_box, &query);
  EXPECT_EQ(query.value(Qt::ImCursorPosition).toInt(), 2);
  EXPECT_EQ(query.value(Qt::ImSurroundingText).toString(), QStringLiteral("axb"));
}

TEST_F(RichTextBoxInput, TheMouseSelects) {
  Put("first line\nsecond line", 0);
  RecordedEvents events(m_box);
  QTest::mousePress(m_box.viewport(), Qt::LeftButton, {}, PointOf(2));
  QTest::mouseMove(m_box.viewport(), PointOf(13));
  QTest::mouseMove(m_box.viewport(), PointOf(14));
  QTest::mouseRelease(m_box.viewport(), Qt::LeftButton, {}, PointOf(14));
  EXPECT_EQ(m_box.SelText(), "rst line\nsec");
  const List log = events.Take();
  EXPECT_EQ(log.front(), "MouseDown 1 0");
  EXPECT_EQ(log.back(), "MouseUp 1");
  EXPECT_GE(std::count(log.begin(), log.end(), "SelChange"), 2);
  QTest::mouseClick(m_box.viewport(), Qt::RightButton, Qt::ControlModifier, PointOf(1));
  EXPECT_EQ(events.Take(), (List{"MouseDown 2 2", "MouseUp 2"}));
  EXPECT_EQ(m_box.SelText(), "rst line\nsec");
  EXPECT_EQ(m_box.OffsetAt(PointOf(3).x(), PointOf(3).y()), 3u);
  events.ConsumedButton = 1;
  QTest::mouseClick(m_box.viewport(), Qt::LeftButton, {}, PointOf(1));
  EXPECT_EQ(m_box.SelText(), "rst line\nsec");
}

TEST_F(RichTextBoxInput, PastingTakesTheDocumentsLineEnds) {
  Put("a\nb", 1);
  RecordedEvents events(m_box);
  QApplication::clipboard()->setText(QString::fromUtf8("1\r\n2\r\xF0\x9F\x98\x80"));
  m_box.Paste();
  EXPECT_EQ(m_box.Text(), "a1\n2\n\xF0\x9F\x98\x80\nb");
  EXPECT_EQ(events.Take(), (List{"Change", "SelChange"}));
  Put("x\r\ny", 0, 4);
  m_box.Cut();
  EXPECT_EQ(m_box.Text(), "");
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("x\ny"));
}

TEST_F(RichTextBoxInput, DroppedFilesGoToTheListener) {
  Put("text", 0);
  RecordedEvents events(m_box);
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/a b.js")), QUrl(QStringLiteral("http://localhost/x")),
                 QUrl::fromLocalFile(QStringLiteral("/tmp/c"))});
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(m_box.viewport(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(m_box.viewport(), &drop);
  EXPECT_EQ(events.Take(), (List{"Dropped /tmp/a b.js", "Dropped /tmp/c"}));
  EXPECT_EQ(m_box.Text(), "text");
}

}  // namespace
}  // namespace tests
