#include "platform/qt/QtShell.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include "platform/UserFolders.h"

namespace platform::qt {
namespace {

constexpr int NoSuchFile = 2, NotStarted = 5, NoHandler = 31;

int OpenWithHandler(const QUrl& url) {
  return QDesktopServices::openUrl(url) ? ShellSuccess : NoHandler;
}

/// A URL names its scheme, which is longer than a drive's letter.
bool IsUrl(const std::string& program) {
  const std::size_t colon = program.find(':');
  return colon != std::string::npos && colon > 1 && program.find_first_of("/\\ ") > colon &&
         QUrl(QString::fromStdString(program), QUrl::StrictMode).isValid();
}

}  // namespace

int QtShell::ShellExecute(const std::string& program, const std::string& arguments) {
  const QString name = QString::fromStdString(program);
  const std::string executable = FindExecutable(program, Environment("PATH"));
  if (!executable.empty()) {
    QStringList list;
    for (const std::string& argument : SplitArguments(arguments)) list += QString::fromStdString(argument);
    return QProcess::startDetached(QString::fromStdString(executable), list) ? ShellSuccess : NotStarted;
  }
  if (program.substr(0, 1) == "/" && QFileInfo::exists(name)) return OpenWithHandler(QUrl::fromLocalFile(name));
  return IsUrl(program) ? OpenWithHandler(QUrl(name)) : NoSuchFile;
}

}  // namespace platform::qt
