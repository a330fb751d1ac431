#include "platform/qt/MenuKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>

namespace platform::qt {
namespace {

bool HasAccessKey(const QAction& action, QChar key) {
  const QKeySequence sequence = QKeySequence::mnemonic(action.text());
  return !sequence.isEmpty() && sequence[0].key() == key.toUpper().unicode();
}

}  // namespace

MenuKeys::MenuKeys(QMenu& menu) : QObject(&menu), m_menu(menu) {
  menu.installEventFilter(this);
}

bool MenuKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && Press(*static_cast<QKeyEvent*>(event))) return true;
  return QObject::eventFilter(watched, event);
}

// False leaves the key to the menu.
bool MenuKeys::Press(const QKeyEvent& key) {
  if (key.text().size() != 1 || (key.modifiers() & ~(Qt::AltModifier | Qt::ShiftModifier))) return false;
  QList<QAction*> usable;
  bool isBlocked = false;
  for (QAction* action : m_menu.actions()) {
    if (!action->isVisible() || !HasAccessKey(*action, key.text()[0])) continue;
    if (action->isEnabled())
      usable.append(action);
    else
      isBlocked = true;
  }
  if (!isBlocked || usable.isEmpty()) return false;
  m_menu.setActiveAction(usable[(usable.indexOf(m_menu.activeAction()) + 1) % usable.size()]);
  if (usable.size() > 1) return true;
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(&m_menu, &enter);
  return true;
}

}  // namespace platform::qt
