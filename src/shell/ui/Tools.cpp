#include "shell/ui/Tools.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace shell::ui {
namespace {

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

Tools::Tools(QMainWindow& window, Clicked clicked)
    : m_window(window), m_clicked(std::move(clicked)), m_textPopup(new QMenu(&window)) {
  for (const Band& band : MenuBands()) {
    QMenu* menu = window.menuBar()->addMenu(Text(band.Caption));
    menu->setObjectName(Text(band.Name));
    Fill(*menu, band);
  }
  m_textPopup->setObjectName(Text(shell::TextPopup().Name));
  Fill(*m_textPopup, shell::TextPopup());
}

void Tools::Fill(QMenu& menu, const Band& band) {
  for (const Tool& tool : band.Tools) {
    if (tool.Name == Separator)
      menu.addSeparator();
    else
      menu.addAction(ActionOf(tool));
  }
}

QAction* Tools::ActionOf(const Tool& tool) {
  QAction*& action = m_actions[std::string(tool.Name)];
  if (action) return action;
  action = new QAction(Text(tool.Caption), &m_window);
  action->setObjectName(Text(tool.Name));
  action->setStatusTip(Text(tool.Description));
  if (!tool.Shortcut.empty())
    action->setShortcuts(
        QKeySequence::listFromString(Text(tool.Shortcut).replace(QStringLiteral(", "), QStringLiteral("; "))));
  action->setCheckable(tool.Checkable);
  QObject::connect(action, &QAction::triggered, &m_window, [this, name = std::string(tool.Name)] { m_clicked(name); });
  return action;
}

QAction* Tools::Find(std::string_view name) const {
  const auto found = m_actions.find(std::string(name));
  return found == m_actions.end() ? nullptr : found->second;
}

void Tools::Enable(std::string_view name, bool enabled) {
  if (QAction* action = Find(name)) action->setEnabled(enabled);
}

void Tools::Check(std::string_view name, bool checked) {
  if (QAction* action = Find(name)) action->setChecked(checked);
}

bool Tools::IsChecked(std::string_view name) const {
  const QAction* action = Find(name);
  return action && action->isChecked();
}

}  // namespace shell::ui
