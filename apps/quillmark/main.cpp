// quillmark: the editor.

#include <QApplication>
#include <QIcon>
#include <QTimer>
#include <filesystem>
#include <iostream>

#include "editor/RecoveryStore.h"
#include "platform/InstanceChannel.h"
#include "platform/ProgramFolder.h"
#include "platform/qt/QtPrompts.h"
#include "settings/RegistryFile.h"
#include "shell/ui/BackWin.h"

namespace {

constexpr auto Patience = std::chrono::seconds(5);  ///< with an instance that is starting, ending or busy

/// Prints what can be told without a display; false when there is nothing to print.
bool Print(const shell::CommandLine& commandLine) {
  if (commandLine.What == shell::CommandLine::Task::Edit) return false;
  std::cout << (commandLine.What == shell::CommandLine::Task::Help ? shell::HelpText() : shell::VersionText());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  std::error_code error;
  const std::string startFolder = std::filesystem::current_path(error).string();
  if (Print(shell::ParseCommandLine({argv + 1, argv + argc}, startFolder))) return 0;

  QApplication application(argc, argv);  // takes the toolkit's own options away
  QApplication::setApplicationName(QStringLiteral("quillmark"));
  QApplication::setApplicationVersion(QStringLiteral(QUILLMARK_VERSION));
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/quillmark.svg")));
  QApplication::setDesktopFileName(QStringLiteral("quillmark"));

  platform::qt::QtPrompts prompts(startFolder);
  const shell::CommandLine commandLine = shell::ParseCommandLine({argv + 1, argv + argc}, startFolder);
  platform::InstanceChannel channel(platform::FindInstanceFolder(platform::InstancePlaces::FromProcess()));
  if (channel.Claim(Patience) != platform::InstanceChannel::Role::First) {
    shell::HandOver(commandLine, prompts, [&](const std::string& command) { channel.Send(command, Patience); });
    return 0;
  }
  shell::ui::BackWin frame(prompts,
                           {.ProgramFolder = platform::FindProgramFolder(platform::ProgramPlaces::FromProcess(), true),
                            .StartFolder = startFolder,
                            .RegistryPath = settings::UserRegistryPath(),
                            .InstanceFolder = channel.Folder(),
                            .RecoveryFolder = editor::RecoveryStore::DefaultFolder()});
  QObject::connect(&frame, &shell::ui::BackWin::Unloaded, &application, &QApplication::quit, Qt::QueuedConnection);
  // In the loop of events: what is deleted later outside of it stays until the program ends.
  QTimer::singleShot(0, &frame, [&] { frame.Load(commandLine); });
  return QApplication::exec();
}
