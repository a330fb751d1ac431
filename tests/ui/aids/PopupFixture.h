#pragma once
// A frame with one document whose completion list and tooltip the tests play with real key events.

#include <QEvent>
#include <QListView>
#include <QString>

#include "aids/ui/ContextList.h"
#include "aids/ui/frmToolTip.h"
#include "tests/ui/FrameFixture.h"

namespace tests {

class PopupFixture : public FrameFixture {
 protected:
  /// Opens a file with this text and puts the caret at its end.
  void Open(const std::string& name, const std::string& text);

  /// Types: every character is a key that goes down and up, and these names in angle brackets are keys: Tab, Enter,
  /// Esc, Up, Down, Left, PageUp, PageDown, BS.
  void Type(const QString& keys);
  /// A key as Type takes it goes down, or up.
  void Press(const QString& key, bool repeated = false) { Send(QEvent::KeyPress, key, repeated); }
  void Release(const QString& key) { Send(QEvent::KeyRelease, key, false); }

  platform::qt::RichTextBox& Text() { return m_frame.ActiveDocument()->TextArea(); }
  aids::ui::ContextList& List() { return *m_frame.findChild<aids::ui::ContextList*>(); }
  aids::ui::frmToolTip& Tip() { return *m_frame.findChild<aids::ui::frmToolTip*>(); }
  QListView& CList() { return *List().findChild<QListView*>(QStringLiteral("CList")); }
  /// The text of the selected row; "" for none.
  std::string Selected();

 private:
  void Send(QEvent::Type type, const QString& key, bool repeated);
};

}  // namespace tests
