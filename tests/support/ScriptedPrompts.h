#pragma once
// A user who follows a script: each question must be the next one expected, and gets its answer. A question that is not
// expected, one that differs, and one that is never asked fail the test.

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/Prompts.h"

namespace tests {

class ScriptedPrompts : public platform::Prompts {
 public:
  ScriptedPrompts() = default;
  ScriptedPrompts(const ScriptedPrompts&) = delete;
  ScriptedPrompts& operator=(const ScriptedPrompts&) = delete;

  ~ScriptedPrompts() override {
    for (const Step& step : m_steps) ADD_FAILURE() << "never asked: " << Describe(step);
  }

  /// Expects the box next, and answers it. An unexpected Default counts as a difference too.
  void Expect(platform::MessageBox box, platform::PromptAnswer answer = platform::PromptAnswer::Ok) {
    m_steps.push_back(BoxStep{std::move(box), answer, {}});
  }

  /// Expects a box next whose text has each of these parts.
  void ExpectBoxWith(std::vector<std::string> parts, platform::PromptAnswer answer = platform::PromptAnswer::Ok) {
    m_steps.push_back(BoxStep{{}, answer, std::move(parts)});
  }
  /// Expects a question next, with the title and the icon of one.
  void ExpectQuestion(std::string text, platform::PromptButtons buttons, platform::PromptAnswer byDefault,
                      platform::PromptAnswer answer) {
    Expect({std::move(text), "Quillmark", buttons, platform::PromptIcon::Question, byDefault}, answer);
  }
  /// Expects the question of a window that is to close with changes.
  void ExpectClosing(const std::string& name, platform::PromptAnswer answer) {
    ExpectQuestion("Save changes to " + name + " before closing?", platform::PromptButtons::YesNoCancel,
                   platform::PromptAnswer::Cancel, answer);
  }
  /// Expects the offer to make a chosen template the one of an extension.
  void ExpectAssociating(const std::string& extension, platform::PromptAnswer answer) {
    ExpectQuestion("Would you like to use this template for all ." + extension + " files?",
                   platform::PromptButtons::YesNo, platform::PromptAnswer::Yes, answer);
  }
  void ExpectAnyBox() { ExpectBoxWith({""}); }

  /// Expects a file chooser with this title next, and answers with a path, "" for Cancel.
  void ExpectOpenFile(std::string title, std::string path) {
    m_steps.push_back(FileStep{"open", std::move(title), std::move(path)});
  }
  void ExpectSaveFile(std::string title, std::string path) {
    m_steps.push_back(FileStep{"save", std::move(title), std::move(path)});
  }

  /// Expects a font or colour chooser that starts with `initial` next; nothing is Cancel.
  void ExpectFont(const platform::FontRecord& initial, std::optional<platform::FontRecord> chosen) {
    m_steps.push_back(FontStep{initial, std::move(chosen)});
  }
  void ExpectColour(rich_text::ColourValue initial, std::optional<rich_text::ColourValue> chosen) {
    m_steps.push_back(ColourStep{initial, chosen});
  }

  std::size_t Unasked() const { return m_steps.size(); }

  /// The file chooser last shown, for tests that look at its filters and folder.
  const platform::FileQuestion& LastFileQuestion() const { return m_lastFileQuestion; }

  platform::PromptAnswer Show(const platform::MessageBox& box) override {
    const Step asked = BoxStep{box, {}, {}};
    const BoxStep* expected = Next<BoxStep>(asked);
    if (expected == nullptr) return Closed(box.Buttons);
    if (expected->Parts.empty()) {
      EXPECT_EQ(Describe(asked), Describe(*expected));
    }
    for (const std::string& part : expected->Parts)
      EXPECT_NE(box.Text.find(part), std::string::npos) << '"' << part << "\" is missing in: " << box.Text;
    const platform::PromptAnswer answer = expected->Answer;
    m_steps.pop_front();
    return answer;
  }

  std::string AskOpenFile(const platform::FileQuestion& question) override { return AskFile("open", question); }
  std::string AskSaveFile(const platform::FileQuestion& question) override { return AskFile("save", question); }
  std::optional<platform::FontRecord> AskFont(const platform::FontRecord& initial) override {
    return AskValue(FontStep{initial, {}});
  }
  std::optional<rich_text::ColourValue> AskColour(rich_text::ColourValue initial) override {
    return AskValue(ColourStep{initial, {}});
  }

 private:
  struct BoxStep {
    platform::MessageBox Box;
    platform::PromptAnswer Answer;
    std::vector<std::string> Parts;  ///< where not empty, all that counts of the box
  };
  struct FileStep {
    std::string Kind, Title, Path;
  };
  struct FontStep {
    platform::FontRecord Initial;
    std::optional<platform::FontRecord> Chosen;
  };
  struct ColourStep {
    rich_text::ColourValue Initial;
    std::optional<rich_text::ColourValue> Chosen;
  };
  using Step = std::variant<BoxStep, FileStep, FontStep, ColourStep>;

  static std::string Describe(const Step& step) {
    if (const auto* file = std::get_if<FileStep>(&step)) return file->Kind + " chooser \"" + file->Title + '"';
    if (const auto* font = std::get_if<FontStep>(&step))
      return "font chooser " + font->Initial.Name + ' ' + std::to_string(font->Initial.Size);
    if (const auto* colour = std::get_if<ColourStep>(&step)) return "colour chooser " + std::to_string(colour->Initial);
    const platform::MessageBox& box = std::get<BoxStep>(step).Box;
    return "box \"" + box.Title + "\": " + box.Text + "\n(buttons " + std::to_string(static_cast<int>(box.Buttons)) +
           ", icon " + std::to_string(static_cast<int>(box.Icon)) + ", default " +
           std::to_string(static_cast<int>(box.Default)) + ')';
  }

  /// The step at the front if it is of the kind asked for; else null and the test has failed.
  template <typename Kind>
  const Kind* Next(const Step& asked) {
    const Kind* expected = m_steps.empty() ? nullptr : std::get_if<Kind>(&m_steps.front());
    if (expected == nullptr)
      ADD_FAILURE() << "unexpected: " << Describe(asked)
                    << "\nexpected: " << (m_steps.empty() ? std::string("nothing") : Describe(m_steps.front()));
    return expected;
  }

  std::string AskFile(const std::string& kind, const platform::FileQuestion& question) {
    m_lastFileQuestion = question;
    const Step asked = FileStep{kind, question.Title, {}};
    const FileStep* expected = Next<FileStep>(asked);
    if (expected == nullptr) return {};
    EXPECT_EQ(Describe(asked), Describe(*expected));
    const std::string path = expected->Path;
    m_steps.pop_front();
    return path;
  }

  template <typename Kind>
  auto AskValue(const Kind& question) -> decltype(question.Chosen) {
    const Step asked = question;
    const Kind* expected = Next<Kind>(asked);
    if (expected == nullptr) return std::nullopt;
    EXPECT_EQ(Describe(asked), Describe(*expected));
    const auto chosen = expected->Chosen;
    m_steps.pop_front();
    return chosen;
  }

  /// What closing a box without a button answers.
  static platform::PromptAnswer Closed(platform::PromptButtons buttons) {
    switch (buttons) {
      case platform::PromptButtons::Ok:
        return platform::PromptAnswer::Ok;
      case platform::PromptButtons::YesNo:
        return platform::PromptAnswer::No;
      default:
        return platform::PromptAnswer::Cancel;
    }
  }

  std::deque<Step> m_steps;
  platform::FileQuestion m_lastFileQuestion;
};

}  // namespace tests
