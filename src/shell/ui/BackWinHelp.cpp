// The frame's commands of the Help menu.

#include "shell/ui/AboutBox.h"
#include "shell/ui/BackWin.h"
#include "shell/ui/FramePlacement.h"

namespace shell::ui {

void BackWin::BindHelpCommands() {
  m_commands.Bind("miHContents", [this](const std::string&) { m_help.ShowContents(); });
  m_commands.Bind("miHSearch", [this](const std::string&) { m_help.ShowKeywords(); });
  m_commands.Bind("miHAbout", [this](const std::string&) { AboutBox(m_help, this).exec(); });
}

void BackWin::PlaceHelp(QWidget& window) {
  const settings::FramePlace& place = m_values.Settings.HelpWindow;
  if (place.Width <= 0) return;
  ApplyPlace(window, place);
  if (place.State == settings::WindowState::Maximised) window.setWindowState(Qt::WindowMaximized);
}

void BackWin::RememberHelp() {
  if (m_help.Widget()) RememberPlace(*m_help.Widget(), m_values.Settings.HelpWindow);
}

}  // namespace shell::ui
