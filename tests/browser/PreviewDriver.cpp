// Makes the preview page of a script as the editor's command does, and stands for the desktop that shows it:
//
//   preview_driver SCRIPT FOLDER   writes the page into FOLDER and prints the address that the desktop is to open, or
//                                  "asked" and what the user is told instead

#include <QDesktopServices>
#include <QGuiApplication>
#include <QUrl>
#include <iostream>

#include "aids/ScriptRuns.h"
#include "platform/Files.h"
#include "platform/qt/QtShell.h"
#include "tests/support/MemoryTextControl.h"
#include "tests/support/ToldPrompts.h"

namespace {

class Desktop : public QObject {
  Q_OBJECT
 public Q_SLOTS:
  void Open(const QUrl& url) { std::cout << url.toEncoded().toStdString() << std::endl; }
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  if (argc != 3) return 2;
  Desktop desktop;
  QDesktopServices::setUrlHandler(QStringLiteral("file"), &desktop, "Open");
  tests::MemoryTextControl control;
  control.SetText(platform::ReadFile(argv[1]).Bytes);
  platform::qt::QtShell shell;
  tests::ToldPrompts prompts;
  aids::GenerateJavaScriptPreview(control, argv[2], {shell, prompts});
  QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
  return 0;
}

#include "PreviewDriver.moc"
