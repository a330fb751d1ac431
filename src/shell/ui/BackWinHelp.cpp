// The frame's commands of the Help menu.

#include "shell/ui/AboutBox.h"
#include "shell/ui/BackWin.h"

namespace shell::ui {

void BackWin::BindHelpCommands() {
  m_commands.Bind("miHContents", [this](const std::string&) { m_help.ShowContents(); });
  m_commands.Bind("miHSearch", [this](const std::string&) { m_help.ShowSearch(); });
  m_commands.Bind("miHAbout", [this](const std::string&) { AboutBox(m_help, this).exec(); });
}

}  // namespace shell::ui
