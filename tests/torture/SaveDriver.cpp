// The program's own opening, editing and saving without a window, played by lines on standard input, so that it can be
// killed, starved and interfered with from outside. One line of output for each line of input, and one for each
// question:
//
//   open PATH          "opened LENGTH", the length of the text in bytes
//   text PATH          replaces the whole text, as an edit, by the text in PATH
//   save PATH          "saved" or "failed"
//   answers YN…        what the next questions are answered; without more of them a box is closed
//   loop PATH A B      saves the texts of A and B by turns until killed; "begin" and "end" around each save
//
// A question gives "asked TEXT" with its line ends as blanks. The calls of a save stand between two looks at files that
// do not exist, which a trace of the system calls shows.

#include <unistd.h>

#include <iostream>
#include <sstream>

#include "editor/Document.h"
#include "platform/Files.h"
#include "tests/support/FakeFrame.h"
#include "tests/support/MemoryTextControl.h"
#include "tests/support/ToldPrompts.h"

namespace {

constexpr const char* SaveBegins = "/quillmark-save-begins";
constexpr const char* SaveEnds = "/quillmark-save-ends";

class DriverFrame : public tests::FakeFrame {
 public:
  tests::ToldPrompts Told;
  platform::Prompts& Prompts() override { return Told; }
};

class Driver {
 public:
  explicit Driver(platform::TextControl& control) : m_control(control), m_document(control, m_frame, m_window) {}

  /// Plays one line; false when it is not understood.
  bool Play(const std::string& line) {
    std::istringstream words(line);
    std::string verb, path;
    words >> verb >> path;
    if (verb == "open") return m_document.OpenFile(path), Say("opened " + std::to_string(m_control.Length()));
    if (verb == "text") return SetText(path), Say("edited");
    if (verb == "save") return Save(path);
    if (verb == "answers") return m_frame.Told.Answers = path, Say("answers");
    std::string first, second;
    words >> first >> second;
    if (verb == "loop") return Loop(path, first, second);
    return false;
  }

 private:
  static bool Say(const std::string& text) {
    std::cout << text << std::endl;
    return true;
  }

  void SetText(const std::string& path) {
    const std::string text = platform::ReadFile(path).Bytes;
    m_control.SetSelStart(0);
    m_control.SetSelLength(m_control.Length());
    m_control.SetSelText(text);
  }

  bool Save(const std::string& path) {
    ::access(SaveBegins, F_OK);
    const bool isSaved = m_document.SaveFile(path);
    ::access(SaveEnds, F_OK);
    if (isSaved != m_document.State().Saved) return Say("saved and Saved differ");
    return Say(isSaved ? "saved" : "failed");
  }

  bool Loop(const std::string& path, const std::string& first, const std::string& second) {
    m_document.OpenFile(path);
    while (true)
      for (const std::string& text : {first, second}) {
        SetText(text);
        Say("begin");
        if (!m_document.SaveFile(path)) return Say("failed");
        Say("end");
      }
  }

  DriverFrame m_frame;
  tests::FakeWindow m_window;
  platform::TextControl& m_control;
  editor::Document m_document;
};

}  // namespace

int main() {
  tests::MemoryTextControl control;
  Driver driver(control);
  for (std::string line; std::getline(std::cin, line);)
    if (!driver.Play(line)) {
      std::cerr << "not understood: " << line << '\n';
      return 2;
    }
  return 0;
}
