#pragma once
// A frame with one document whose completion list and tooltip the tests play with real key events.

#include <gtest/gtest.h>

#include <QEvent>
#include <QListView>
#include <QString>

#include "aids/ui/ContextList.h"
#include "aids/ui/frmToolTip.h"
#include "shell/ui/BackWin.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporaryFolder.h"

namespace tests {

class PopupFixture : public testing::Test {
 protected:
  /// The templates of the folder are the frame's.
  explicit PopupFixture(const std::string& templates = QUILLMARK_SOURCE_DIR "/data/templates");
  ~PopupFixture() override;

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

  TemporaryFolder m_folder;
  ScriptedPrompts m_prompts;
  shell::ui::BackWin m_frame;

 private:
  void Send(QEvent::Type type, const QString& key, bool repeated);
};

}  // namespace tests
