#pragma once
// What the control of the initial text does beside typing: it tells the editor of changes, undoes and redoes by its own
// keys, and has a menu of its own, as the frame's commands of editing belong to documents.

#include <functional>

#include "platform/TextControl.h"
#include "platform/qt/RichTextBox.h"

namespace template_editor::ui {

class InitialTextEvents : public platform::TextControlEvents {
 public:
  /// Both must outlive the object, which becomes the control's listener. `changed` is called after every change.
  InitialTextEvents(platform::qt::RichTextBox& control, std::function<void()> changed);
  ~InitialTextEvents() override;

  /// What has been done so far cannot be undone.
  void ForgetUndo();

  bool KeyDown(int keyCode, int shift) override;
  bool KeyPress(char32_t) override { return false; }
  void KeyUp(int, int) override {}
  void Change(const platform::TextChange&) override { m_changed(); }
  void SelChange() override {}
  bool MouseDown(int button, int shift, int x, int y) override;
  void MouseUp(int, int, int, int) override {}
  void FilesDropped(const std::vector<std::string>&) override {}

 private:
  void ShowMenu(const QPoint& place);

  platform::qt::RichTextBox& m_control;
  std::function<void()> m_changed;
};

}  // namespace template_editor::ui
