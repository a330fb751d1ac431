#pragma once
// A frame with one document whose completion list and tooltip the tests play with real key events.

#include <QListView>

#include "aids/ui/ContextList.h"
#include "aids/ui/frmToolTip.h"
#include "tests/ui/FrameFixture.h"

namespace tests {

class PopupFixture : public FrameFixture {
 protected:
  /// Opens a file with this text and puts the caret at its end.
  void Open(const std::string& name, const std::string& text) {
    FrameFixture::Open(name, text);
    Text().SetSelStart(Text().Length());
    QApplication::processEvents();
  }

  /// The key of a character goes down, or up, alone; Play presses whole keys.
  static void Press(QChar key) { Send(true, key.toUpper().unicode(), key); }
  static void Release(QChar key) { Send(false, key.toUpper().unicode(), key); }
  /// The same for a key without a character.
  static void Send(bool down, int key, const QString& text = {}, bool repeated = false) {
    QTest::simulateEvent(QApplication::focusWidget(), down, key, Qt::NoModifier, text, repeated);
  }

  platform::qt::RichTextBox& Text() { return m_frame.ActiveDocument()->TextArea(); }
  aids::ui::ContextList& List() { return *m_frame.findChild<aids::ui::ContextList*>(); }
  aids::ui::frmToolTip& Tip() { return *m_frame.findChild<aids::ui::frmToolTip*>(); }
  QListView& CList() { return Child<QListView>(List(), "CList"); }
  /// The text of the selected row; "" for none.
  std::string Selected() {
    const QModelIndexList rows = CList().selectionModel()->selectedIndexes();
    return rows.isEmpty() ? std::string() : rows.first().data().toString().toStdString();
  }
  /// Where a character stands on the screen.
  QRect OnScreen(std::size_t offset) {
    const QRect place = Text().RectangleAt(offset);
    return {Text().viewport()->mapToGlobal(place.topLeft()), place.size()};
  }
};

}  // namespace tests
