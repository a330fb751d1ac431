// The real frame with real keys and no display, to be killed from outside while somebody types.
//
//   type STATE FILE SEED PAUSE LOG   opens FILE ("-" for a new document), says "ready" and types until killed, a key
//                                    every PAUSE milliseconds. LOG gets "MILLISECONDS pressed" and "MILLISECONDS done"
//                                    for each key, between them "MILLISECONDS LENGTH HASH" for each text that it makes
//   restore STATE                    starts again and restores everything; "asked TEXT" for each question, then
//                                    "restored PATH SAVED CARET LENGTH HASH" for each window, "-" for no path
//
// Times are those of the monotonic clock. The program ends without closing anything.

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QMdiSubWindow>
#include <QTest>
#include <chrono>
#include <iostream>

#include "platform/FileIdentity.h"
#include "shell/ui/BackWin.h"
#include "tests/laws/Dice.h"
#include "tests/support/ToldPrompts.h"

namespace {

using std::chrono::steady_clock;

std::string Fingerprint(const std::string& text) {
  return std::to_string(text.size()) + ' ' + std::to_string(platform::HashOf(text));
}

long long Milliseconds() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now().time_since_epoch()).count();
}

editor::ui::Mainwin& Open(shell::ui::BackWin& frame, const std::string& state, const std::string& file) {
  frame.show();
  frame.ProtectUnsavedText(state == "-" ? "" : state);
  file == "-" ? frame.NewDocument() : frame.OpenFile(file);
  editor::ui::Mainwin& window = *frame.ActiveDocument();
  window.TextArea().SetSelStart(window.TextArea().LineStart(window.TextArea().LineCount() / 2));
  QTest::qWait(100);
  return window;
}

void PressOne(QWidget* keyboard, laws::Dice& dice) {
  const std::size_t kind = dice.Below(40);
  if (kind < 30) return QTest::keyClick(keyboard, static_cast<char>('a' + kind % 26));
  if (kind < 33) return QTest::keyClick(keyboard, Qt::Key_Return);
  if (kind < 36) return QTest::keyClick(keyboard, Qt::Key_Backspace);
  if (kind == 36) return QTest::keyClick(keyboard, Qt::Key_Z, Qt::ControlModifier);
  const Qt::Key moves[] = {Qt::Key_Left, Qt::Key_Up, Qt::Key_Down};
  QTest::keyClick(keyboard, moves[kind - 37]);
}

int Type(shell::ui::BackWin& frame, char** arguments) {
  platform::qt::RichTextBox& box = Open(frame, arguments[0], arguments[1]).TextArea();
  laws::Dice dice(std::stoull(arguments[2]));
  const int pause = std::stoi(arguments[3]);
  const int log = ::open(arguments[4], O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  long long pressed = 0;
  const auto write = [&](const std::string& what) {
    const std::string line = std::to_string(pressed) + ' ' + what + '\n';
    if (::write(log, line.data(), line.size()) < 0) std::cout << "no log" << std::endl;
  };
  // A key may change the text more than once, and the program may be killed in between: this tells of the text before
  // each of its changes.
  QObject::connect(
      &box, qOverload<int, int, const char*, int, int, int, int, int, int, int>(&QsciScintillaBase::SCN_MODIFIED),
      [&] { write(Fingerprint(box.Text())); });
  std::cout << "ready" << std::endl;
  while (true) {
    pressed = Milliseconds();
    write("pressed");
    PressOne(box.viewport(), dice);
    write(Fingerprint(box.Text()));
    write("done");
    QTest::qWait(1 + static_cast<int>(dice.Below(2 * static_cast<std::size_t>(pause))));
  }
}

int Restore(shell::ui::BackWin& frame, char** arguments) {
  frame.show();
  frame.ProtectUnsavedText(arguments[0]);
  QApplication::processEvents();
  for (editor::ui::Mainwin* window : frame.findChildren<editor::ui::Mainwin*>()) {
    const std::string path = window->CurFileName();
    std::cout << "restored " << (path.empty() ? "-" : path) << ' ' << window->Saved() << ' '
              << window->TextArea().SelStart() << ' ' << Fingerprint(window->TextArea().Text()) << std::endl;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const std::string verb = argc > 2 ? argv[1] : "";
  tests::ToldPrompts prompts;
  prompts.Otherwise = 'Y';
  shell::ui::BackWin frame(prompts, QUILLMARK_SOURCE_DIR "/data/templates");
  int status = 2;
  if (verb == "type" && argc == 7) status = Type(frame, argv + 2);
  if (verb == "restore") status = Restore(frame, argv + 2);
  ::_exit(status);
}
