#include "template_editor/ui/AccessKeys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace template_editor::ui {
namespace {

/// The control that a widget's caption gives the key to; null when it has another key, or none.
QWidget* ReachedBy(QWidget* widget, const QKeySequence& key) {
  const auto* button = qobject_cast<QAbstractButton*>(widget);
  const auto* label = qobject_cast<QLabel*>(widget);
  if (!widget->isVisible() || !(button || (label && label->buddy()))) return nullptr;
  if (QKeySequence::mnemonic(button ? button->text() : label->text()) != key) return nullptr;
  QWidget* reached = button ? widget : label->buddy();
  return reached->isVisible() && reached->isEnabled() ? reached : nullptr;
}

/// The first of the targets in the innermost group around a widget that has one; null when no group has.
QWidget* NearestOf(const QList<QWidget*>& targets, const QWidget* widget) {
  for (const QWidget* around = widget; around; around = around->parentWidget()) {
    if (!qobject_cast<const QGroupBox*>(around)) continue;
    for (QWidget* target : targets)
      if (around->isAncestorOf(target)) return target;
  }
  return nullptr;
}

void Reach(QWidget& target) {
  auto* button = qobject_cast<QAbstractButton*>(&target);
  if (!button || button->isCheckable()) target.setFocus(Qt::ShortcutFocusReason);
  if (button) button->click();
  if (auto* edit = qobject_cast<QLineEdit*>(&target)) edit->selectAll();
}

}  // namespace

AccessKeys::AccessKeys(QWidget& window) : QObject(&window), m_window(window) {
  window.installEventFilter(this);
  for (QWidget* widget : window.findChildren<QWidget*>()) widget->installEventFilter(this);
}

QWidget* AccessKeys::TargetOf(const QKeySequence& key) const {
  QList<QWidget*> targets;
  for (QWidget* widget : m_window.findChildren<QWidget*>())
    if (QWidget* target = ReachedBy(widget, key); target && !targets.contains(target)) targets.append(target);
  if (targets.isEmpty()) return nullptr;
  QWidget* focused = QApplication::focusWidget();
  if (const auto place = targets.indexOf(focused); place >= 0) return targets[(place + 1) % targets.size()];
  QWidget* nearest = NearestOf(targets, focused);
  return nearest ? nearest : targets.first();
}

bool AccessKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress) return false;
  const auto* pressed = static_cast<QKeyEvent*>(event);
  if (pressed->modifiers() != Qt::AltModifier || watched != QApplication::focusWidget()) return false;
  QWidget* target = TargetOf(QKeySequence(Qt::ALT | static_cast<Qt::Key>(pressed->key())));
  if (!target) return false;
  event->accept();  // of the override: no menu gets the key
  if (event->type() == QEvent::KeyPress) Reach(*target);
  return true;
}

}  // namespace template_editor::ui
