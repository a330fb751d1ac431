// Editing in the whole program, in process: the frame with real document windows, from a key's event to the end of the
// painting that it asked for.
//
// bench_editor SCRIPT writes one JSON object: for each measure, "what/bytes of text", its samples in milliseconds, in
// the order in which they came. The texts of all sizes are open at one time and measured in turns. Their middle is the
// same place of the script, so that what a key is typed into does not depend on the size.

#include <QApplication>
#include <QClipboard>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTemporaryDir>
#include <QTest>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>

#include "bench/Inputs.h"
#include "platform/qt/QtPrompts.h"
#include "shell/ui/BackWin.h"

namespace bench {
namespace {

constexpr std::size_t Sizes[] = {1000, Megabyte, 20 * Megabyte, 100 * Megabyte};
constexpr int Rounds = 6, KeysARound = 25, PasteRounds = 3;
constexpr std::size_t PastedBytes = 10 * Megabyte;

/// The script again and again, so cut into whole lines that the middle of the text is the middle of the script.
std::string TextAroundTheMiddle(std::size_t bytes) {
  const std::string& script = Script();
  const std::size_t lead = (bytes / 2 / script.size() + 1) * script.size();
  std::size_t at = script.find('\n', (script.size() / 2 + lead - bytes / 2) % script.size()) + 1;
  std::string text;
  text.reserve(bytes + script.size());
  for (; text.size() < bytes; at = 0) text.append(script, at, script.size());
  text.resize(text.rfind('\n', bytes) + 1);
  return text;
}

/// Tells when a widget has been painted.
class PaintWatch : public QObject {
 public:
  void Watch(QWidget* widget) {
    widget->installEventFilter(this);
    m_painted = false;
  }
  bool Painted() const { return m_painted; }
  void Forget() { m_painted = false; }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    m_painted = m_painted || event->type() == QEvent::Paint;
    return false;
  }

 private:
  bool m_painted = false;
};

class Editing {
 public:
  /// The journals of unsaved texts are written as they are for a user, beside the texts.
  explicit Editing(shell::ui::BackWin& frame) : m_frame(frame) {
    m_frame.ProtectUnsavedText(m_folder.filePath(QStringLiteral("recovery")).toStdString());
  }

  /// Takes the texts and their journals off the disk.
  void RemoveFiles() { m_folder.remove(); }

  void Open(std::size_t bytes) {
    const std::string path = m_folder.filePath(QString::number(bytes) + QStringLiteral(".js")).toStdString();
    std::ofstream(path, std::ios::binary) << TextAroundTheMiddle(bytes);
    m_frame.OpenFile(path);
    m_windows[bytes] = m_frame.ActiveDocument();
    m_watch.Watch(Area(bytes).viewport());
  }

  /// The text of this size comes to the front, with the caret in it at `offset`.
  void Show(std::size_t bytes, std::size_t offset) {
    auto* window = qobject_cast<QMdiSubWindow*>(m_windows.at(bytes)->parentWidget());
    window->mdiArea()->setActiveSubWindow(window);
    m_size = bytes;
    Area(bytes).setFocus();
    Area(bytes).Select(offset, offset);
    Settle();
  }

  platform::qt::RichTextBox& Area(std::size_t bytes) { return m_windows.at(bytes)->TextArea(); }

  /// Plays a key and waits for the painting; what it took is a sample of `what`, unless that is "".
  void Press(Qt::Key key, const char* what, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* target = Area(m_size).viewport();
    m_watch.Forget();
    const auto start = std::chrono::steady_clock::now();
    QTest::keyClick(target, key, modifiers);
    do {
      QCoreApplication::processEvents();
      if (std::chrono::steady_clock::now() - start > std::chrono::seconds(60)) {
        std::cerr << "Nothing was painted after the key " << key << " for " << what << ".\n";
        std::_Exit(EXIT_FAILURE);
      }
    } while (!m_watch.Painted());
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    if (*what != '\0') m_samples[std::string(what) + '/' + std::to_string(m_size)].push_back(taken.count());
  }

  /// Lets everything end that is due or will be due in a moment.
  static void Settle() { QTest::qWait(50); }
  /// Lets the pending undo record be filed.
  static void Pause() { QTest::qWait(700); }

  void Write() const {
    const char* separator = "{";
    for (const auto& [what, samples] : m_samples) {
      std::cout << separator << '"' << what << "\": [";
      for (std::size_t i = 0; i < samples.size(); ++i) std::cout << (i == 0 ? "" : ", ") << samples[i];
      std::cout << ']';
      separator = ",\n ";
    }
    std::cout << "}\n";
  }

 private:
  shell::ui::BackWin& m_frame;
  QTemporaryDir m_folder;
  std::map<std::size_t, editor::ui::Mainwin*> m_windows;
  std::map<std::string, std::vector<double>> m_samples;
  PaintWatch m_watch;
  std::size_t m_size = 0;
};

void Type(Editing& editing, const char* what) {
  editing.Press(Qt::Key_A, "");  // the first one uncolours the line
  for (int i = 0; i < KeysARound; ++i) {
    editing.Press(Qt::Key_X, what);
    editing.Press(Qt::Key_Backspace, "");
  }
  editing.Press(Qt::Key_Backspace, "");
}

void MoveAfterEdits(Editing& editing) {
  for (int i = 0; i < KeysARound; ++i) {
    editing.Press(Qt::Key_X, "");
    editing.Press(i % 2 == 0 ? Qt::Key_Down : Qt::Key_Up, "leave an edited line");
  }
  for (int i = 0; i < KeysARound; ++i) editing.Press(i % 2 == 0 ? Qt::Key_Right : Qt::Key_Left, "caret");
}

/// What Enter adds is deleted again with its indentation, which would grow from round to round.
void BreakLines(Editing& editing, platform::qt::RichTextBox& area) {
  const std::size_t start = area.SelStart();
  for (int i = 0; i < KeysARound; ++i) editing.Press(Qt::Key_Return, "Enter");
  area.Select(start, area.SelStart());
  editing.Press(Qt::Key_Delete, "");
}

void GrowSelection(Editing& editing, std::size_t bytes) {
  platform::qt::RichTextBox& area = editing.Area(bytes);
  const std::size_t middle = area.LineStart(area.LineOf(area.Length() / 2));
  area.Select(0, middle);
  editing.Settle();
  for (int i = 0; i < KeysARound; ++i)
    editing.Press(i % 2 == 0 ? Qt::Key_Down : Qt::Key_Up, "Shift+Down", Qt::ShiftModifier);
}

void PasteAndUndo(Editing& editing) {
  editing.Press(Qt::Key_V, "paste", Qt::ControlModifier);
  editing.Pause();
  editing.Press(Qt::Key_Z, "undo", Qt::ControlModifier);
  editing.Press(Qt::Key_Y, "redo", Qt::ControlModifier);
  editing.Press(Qt::Key_Z, "", Qt::ControlModifier);
  editing.Settle();
}

void Measure(Editing& editing) {
  for (const std::size_t bytes : Sizes) editing.Open(bytes);
  for (int round = 0; round < Rounds; ++round) {
    for (const std::size_t bytes : Sizes) {
      platform::qt::RichTextBox& area = editing.Area(bytes);
      editing.Show(bytes, area.LineStart(area.LineOf(area.Length() / 2)));
      Type(editing, "key in the middle");
      MoveAfterEdits(editing);
      BreakLines(editing, area);
      GrowSelection(editing, bytes);
      editing.Show(bytes, area.Length());
      Type(editing, "key at the end");
    }
  }
  QGuiApplication::clipboard()->setText(QString::fromStdString(TextAroundTheMiddle(PastedBytes)));
  for (int round = 0; round < PasteRounds; ++round) {
    for (const std::size_t bytes : {Sizes[0], Sizes[3]}) {
      editing.Show(bytes, editing.Area(bytes).Length() / 2);
      PasteAndUndo(editing);
    }
  }
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (!bench::ReadScript(argc, argv)) return EXIT_FAILURE;
  platform::qt::QtPrompts prompts;
  shell::ui::BackWin frame(prompts, QUILLMARK_SOURCE_DIR "/data/templates");
  frame.show();
  bench::Editing editing(frame);
  bench::Measure(editing);
  editing.Write();
  editing.RemoveFiles();
  std::cout.flush();
  std::_Exit(EXIT_SUCCESS);  // nobody is asked about the texts that were changed
}
