#include "template_editor/ui/InitialTextEvents.h"

#include <QMenu>

namespace template_editor::ui {

using platform::qt::RichTextBox;
namespace Shift = platform::Shift;

InitialTextEvents::InitialTextEvents(RichTextBox& control, std::function<void()> changed)
    : m_control(control), m_changed(std::move(changed)) {
  m_control.SetEvents(this);
  m_control.SendScintilla(RichTextBox::SCI_SETUNDOCOLLECTION, 1UL);
}

InitialTextEvents::~InitialTextEvents() {
  m_control.SetEvents(nullptr);
}

void InitialTextEvents::ForgetUndo() {
  m_control.SendScintilla(RichTextBox::SCI_EMPTYUNDOBUFFER);
}

bool InitialTextEvents::KeyDown(int keyCode, int shift) {
  if (keyCode == 'Z' && shift == Shift::Ctrl) return m_control.SendScintilla(RichTextBox::SCI_UNDO), true;
  if ((keyCode == 'Y' && shift == Shift::Ctrl) || (keyCode == 'Z' && shift == (Shift::Ctrl | Shift::ShiftKey)))
    return m_control.SendScintilla(RichTextBox::SCI_REDO), true;
  return false;
}

bool InitialTextEvents::MouseDown(int button, int, int x, int y) {
  constexpr int Right = 2;
  if (button != Right) return false;
  ShowMenu(m_control.mapToGlobal(QPoint(x, y)));
  return true;
}

void InitialTextEvents::ShowMenu(const QPoint& place) {
  auto* menu = new QMenu(&m_control);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [&](const QString& caption, bool enabled, const std::function<void()>& action) {
    menu->addAction(caption, &m_control, action)->setEnabled(enabled);
  };
  RichTextBox& control = m_control;
  add(QStringLiteral("&Undo"), control.SendScintilla(RichTextBox::SCI_CANUNDO) != 0,
      [&control] { control.SendScintilla(RichTextBox::SCI_UNDO); });
  add(QStringLiteral("&Redo"), control.SendScintilla(RichTextBox::SCI_CANREDO) != 0,
      [&control] { control.SendScintilla(RichTextBox::SCI_REDO); });
  menu->addSeparator();
  const bool selected = control.SelLength() > 0;
  add(QStringLiteral("Cu&t"), selected, [&control] { control.Cut(); });
  add(QStringLiteral("&Copy"), selected, [&control] { control.Copy(); });
  add(QStringLiteral("&Paste"), true, [&control] { control.Paste(); });
  menu->addSeparator();
  add(QStringLiteral("Select &All"), control.Length() > 0, [&control] { control.SelectAll(); });
  menu->popup(place);
}

}  // namespace template_editor::ui
