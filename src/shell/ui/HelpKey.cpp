#include "shell/ui/HelpKey.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <optional>

#include "shell/HelpTopics.h"

namespace shell::ui {
namespace {

/// The page for a widget that has the keyboard: the topic of the nearest widget round it that has one, or that of the
/// window under it; "" for the start page. Nothing where F1 belongs to a command.
std::optional<std::string_view> PageFor(const QWidget& widget) {
  for (const QWidget* around = &widget; around; around = around->parentWidget()) {
    const HelpTopic* topic = FindHelpTopic(around->objectName().toStdString());
    if (!topic) continue;
    if (topic->KeepsF1 && around->window() == widget.window()) return std::nullopt;
    return topic->Page;
  }
  return "";
}

}  // namespace

HelpKey::HelpKey(platform::HelpViewer& help) : m_help(help) {
  qApp->installEventFilter(this);
}

// The key is asked for twice: whether somebody wants it before the shortcuts do, and then itself.
bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (!widget || key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier) return false;
  const auto page = PageFor(*widget);
  if (!page) return false;
  event->accept();
  if (event->type() == QEvent::KeyPress && !key->isAutoRepeat()) m_help.ShowPage(*page);
  return true;
}

}  // namespace shell::ui
