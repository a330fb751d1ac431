// The program's own opening, editing and saving without a window, played by lines on standard input, so that it can be
// killed, starved and interfered with from outside. One line of output for each line of input, and one for each
// question:
//
//   open PATH          "opened LENGTH", the length of the text in bytes
//   text PATH          replaces the whole text, as an edit, by the text in PATH
//   look               the window becomes active: looks for changes by others
//   undo               "undone"
//   keep PATH          writes the text as it is in the window, "kept"
//   save PATH          "saved" or "failed"
//   answers YN…        what the next questions are answered; without more of them a box is closed
//   loop PATH A B      saves the texts of A and B by turns until killed; "begin" and "end" around each save
//   roundtrip N SEED PATH   opens and saves N random files, "roundtrip N DIFFERENT"
//
// A question gives "asked TEXT" with its line ends as blanks. The calls of a save stand between two looks at files that
// do not exist, which a trace of the system calls shows.

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <random>
#include <sstream>

#include "editor/Document.h"
#include "platform/Files.h"
#include "tests/support/FakeFrame.h"
#ifdef QUILLMARK_WITH_QT
#include <QApplication>

#include "platform/qt/RichTextBox.h"
#else
#include "tests/support/MemoryTextControl.h"
#endif

namespace {

constexpr const char* SaveBegins = "/quillmark-save-begins";
constexpr const char* SaveEnds = "/quillmark-save-ends";

/// Writes the questions down and answers from a list.
class ToldPrompts : public tests::ScriptedPrompts {
 public:
  std::string Answers;

  platform::PromptAnswer Show(const platform::MessageBox& box) override {
    std::string text = box.Text;
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::cout << "asked " << text << std::endl;
    if (box.Buttons == platform::PromptButtons::Ok) return platform::PromptAnswer::Ok;
    const char answer = Answers.empty() ? 'N' : Answers.front();
    if (!Answers.empty()) Answers.erase(0, 1);
    return answer == 'Y' ? platform::PromptAnswer::Yes : platform::PromptAnswer::No;
  }
};

class DriverFrame : public tests::FakeFrame {
 public:
  ToldPrompts Told;
  platform::Prompts& Prompts() override { return Told; }
};

/// Random bytes with what is hard about them: marks, NULs, broken characters, every kind of line end.
std::string RandomFile(std::mt19937_64& random) {
  static const std::vector<std::string> lively = {"\r\n",
                                                  "\n",
                                                  "\r",
                                                  std::string(1, '\0'),
                                                  "\xEF\xBB\xBF",
                                                  "\xC3\xA9",
                                                  "\xE2\x82\xAC",
                                                  "\xF0\x9F\x98\x80",
                                                  "\xC3",
                                                  "\xE2\x82",
                                                  "\x80",
                                                  "\xFF",
                                                  "\xED\xA0\x80",
                                                  "\xC0\x80",
                                                  "\x1A",
                                                  "\\par ",
                                                  "{",
                                                  "}",
                                                  "text",
                                                  "\t"};
  std::string bytes = random() % 8 == 0 ? "\xEF\xBB\xBF" : "";
  const bool isAnyByte = random() % 3 == 0;
  for (std::size_t count = random() % 48; count > 0; --count)
    bytes += isAnyByte ? std::string(1, static_cast<char>(random())) : lively[random() % lively.size()];
  return bytes;
}

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
    if (verb == "look") return m_document.CheckFile(), Say("looked");
    if (verb == "undo") return m_document.Undo(), Say("undone");
    if (verb == "keep") return Say(platform::WriteFile(path, m_control.Text()).empty() ? "kept" : "failed");
    if (verb == "save") return Save(path);
    if (verb == "answers") return m_frame.Told.Answers = path, Say("answers");
    std::string first, second;
    words >> first >> second;
    if (verb == "loop") return Loop(path, first, second);
    if (verb == "roundtrip") return RoundTrip(std::stoul(path), std::stoul(first), second);
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

  bool RoundTrip(std::size_t count, std::uint64_t seed, const std::string& path) {
    std::mt19937_64 random(seed);
    std::size_t different = 0;
    for (std::size_t i = 0; i < count; ++i) {
      const std::string bytes = RandomFile(random);
      platform::WriteFile(path, bytes);
      m_document.OpenFile(path);
      if (m_document.SaveFile(path) && platform::ReadFile(path).Bytes == bytes) continue;
      if (++different <= 5) std::cout << "different: file " << i << " of seed " << seed << std::endl;
    }
    return Say("roundtrip " + std::to_string(count) + ' ' + std::to_string(different));
  }

  DriverFrame m_frame;
  tests::FakeWindow m_window;
  platform::TextControl& m_control;
  editor::Document m_document;
};

int PlayInput(platform::TextControl& control) {
  Driver driver(control);
  for (std::string line; std::getline(std::cin, line);)
    if (!driver.Play(line)) {
      std::cerr << "not understood: " << line << '\n';
      return 2;
    }
  return 0;
}

}  // namespace

#ifdef QUILLMARK_WITH_QT
int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  platform::qt::RichTextBox control;
  return PlayInput(control);
}
#else
int main() {
  tests::MemoryTextControl control;
  return PlayInput(control);
}
#endif
