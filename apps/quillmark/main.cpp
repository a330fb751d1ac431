// quillmark: the editor.

#include <QApplication>
#include <QIcon>
#include <filesystem>
#include <iostream>

#include "platform/ProgramFolder.h"
#include "platform/qt/QtPrompts.h"
#include "shell/ui/BackWin.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("quillmark"));
  QApplication::setApplicationVersion(QStringLiteral(QUILLMARK_VERSION));
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/quillmark.svg")));
  QApplication::setDesktopFileName(QStringLiteral("quillmark"));

  platform::qt::QtPrompts prompts;
  shell::ui::BackWin frame(prompts, platform::FindProgramFolder(platform::ProgramPlaces::FromProcess(), true));
  frame.show();
  frame.ProtectUnsavedText(editor::RecoveryStore::DefaultFolder());
  const QStringList arguments = QApplication::arguments();
  for (const QString& path : arguments.mid(1))
    frame.OpenFile(std::filesystem::absolute(path.toStdString()).lexically_normal().string());
  if (frame.WindowCount() == 0) frame.NewDocument();
  return QApplication::exec();
}
