// Starting real programs and opening documents, on a desktop that writes down what it is handed.

#include "platform/qt/QtShell.h"

#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include "aids/ScriptRuns.h"
#include "tests/support/ScriptedPrompts.h"

namespace tests {
namespace {

class Desktop : public QObject {
  Q_OBJECT
 public:
  QList<QUrl> Opened;

  Desktop() {
    for (const QString& scheme : Schemes) QDesktopServices::setUrlHandler(scheme, this, "Open");
  }
  ~Desktop() override {
    for (const QString& scheme : Schemes) QDesktopServices::unsetUrlHandler(scheme);
  }
 public Q_SLOTS:
  void Open(const QUrl& url) { Opened.push_back(url); }

 private:
  const QStringList Schemes{QStringLiteral("file"), QStringLiteral("https")};
};

/// A folder that is the current one, with a program "recorder" in it and in its folder "sub". The program writes its
/// arguments, a line each, to a file beside itself.
class QtShellTest : public testing::Test {
 protected:
  QTemporaryDir m_folder{QDir::tempPath() + QStringLiteral("/quill mark \u00E4\u65E5 %41 XXXXXX")};
  Desktop m_desktop;
  platform::qt::QtShell m_shell;

  void SetUp() override {
    QDir::setCurrent(m_folder.path());
    QDir().mkdir(QStringLiteral("sub"));
    qputenv("PATH", QFile::encodeName(m_folder.path()) + ":/bin");
    for (const char* name : {"recorder", "sub/recorder"})
      WriteProgram(name, "#!/bin/sh\nprintf '%s\\n' \"$@\" >\"$0.new\"\nmv \"$0.new\" \"$0.arguments\"\n");
  }
  void TearDown() override {
    QDir::setCurrent(m_before);
    qputenv("PATH", m_searchPath);
  }

  std::string Path(const std::string& name) const { return m_folder.path().toStdString() + '/' + name; }
  void WriteProgram(const std::string& name, const char* text) const {
    QFile file(QString::fromStdString(Path(name)));
    EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(text) > 0 &&
                file.setPermissions(file.permissions() | QFile::ExeOwner));
  }
  /// What the program was started with, waited for.
  std::string TakeArguments() const {
    QFile written(m_folder.filePath(QStringLiteral("recorder.arguments")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return written.exists(); }, 10000)) << "the program was not started";
    EXPECT_TRUE(written.open(QFile::ReadOnly) || !written.exists());
    const std::string arguments = written.readAll().toStdString();
    written.remove();
    return arguments;
  }

 private:
  QString m_before = QDir::currentPath();
  QByteArray m_searchPath = qgetenv("PATH");
};

TEST_F(QtShellTest, ARunCommandHandsThePathOverAsItIs) {
  ScriptedPrompts prompts;
  editor::DocumentState state;
  state.Saved = true;
  for (const std::string& program : {std::string("recorder"), '"' + Path("recorder") + '"'})
    for (const char* path :
         {"/a b/c.js", "/a\"b\\", "/'\\\"", "/100%s %d%%", "/\xC3\xA4 \xE2\x82\xAC \xE6\x97\xA5", "/$(x);`y`|&*~"}) {
      state.Template.ExecuteCommand = program + " -x \"%s\" \"\" end";
      state.CurFileName = path;
      aids::SaveExec(state, [] { return false; }, {m_shell, prompts});
      EXPECT_EQ(TakeArguments(), "-x\n" + std::string(path) + "\n\nend\n");
    }
  EXPECT_TRUE(m_desktop.Opened.isEmpty());
}

TEST_F(QtShellTest, NothingOfTheCurrentFolderIsStartedOrOpenedByItsName) {
  EXPECT_TRUE(QFile::copy(QStringLiteral("recorder"), QStringLiteral("note.desktop")));
  for (const char* searchPath : {"", ".", ":.:sub"}) {
    qputenv("PATH", searchPath);
    for (const char* name : {"recorder", "./recorder", "sub/recorder", "note.desktop", "./note.desktop", "sub", ""})
      EXPECT_LT(m_shell.ShellExecute(name, ""), platform::ShellSuccess) << name << " in " << searchPath;
  }
  EXPECT_TRUE(m_desktop.Opened.isEmpty());
}

TEST_F(QtShellTest, DocumentsAndAddressesGoToTheDesktop) {
  const QString page = m_folder.filePath(QStringLiteral("50% #1 ?\u00E4.html"));
  QFile file(page);
  EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write("#!/bin/sh\n") > 0);
  const QString address = QStringLiteral("https://example.org/a?b=%20c#d");
  for (const QString& document : {page, m_folder.path(), address})
    EXPECT_GE(m_shell.ShellExecute(document.toStdString(), ""), platform::ShellSuccess);
  EXPECT_EQ(m_desktop.Opened,
            (QList<QUrl>{QUrl::fromLocalFile(page), QUrl::fromLocalFile(m_folder.path()), QUrl(address)}));
}

TEST_F(QtShellTest, AFailureTellsWhatFailed) {
  WriteProgram("broken", "#!/no/such/interpreter\n");
  EXPECT_EQ(m_shell.ShellExecute(Path("broken"), ""), 5);
  EXPECT_EQ(m_shell.ShellExecute(Path("missing"), ""), 2);
  EXPECT_EQ(m_shell.ShellExecute("nohandler://x", ""), 31);
}

}  // namespace
}  // namespace tests

#include "QtShellTest.moc"
