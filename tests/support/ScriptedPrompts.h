#pragma once
// A user who follows a script: each question must be the next one expected, and gets its answer. A question that is not
// expected, one that differs, and one that is never asked fail the test.

#include <gtest/gtest.h>

#include <any>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/Prompts.h"

namespace tests {

class ScriptedPrompts : public platform::Prompts {
 public:
  ScriptedPrompts() = default;
  ScriptedPrompts(const ScriptedPrompts&) = delete;
  ScriptedPrompts& operator=(const ScriptedPrompts&) = delete;

  ~ScriptedPrompts() override {
    for (const Step& step : m_steps) ADD_FAILURE() << "never asked: " << step.Question;
  }

  /// Expects the box next, and answers it. An unexpected Default counts as a difference too.
  void Expect(const platform::MessageBox& box, platform::PromptAnswer answer = platform::PromptAnswer::Ok) {
    m_steps.push_back({Describe(box), {}, answer});
  }

  /// Expects a box next whose text has each of these parts.
  void ExpectBoxWith(std::vector<std::string> parts, platform::PromptAnswer answer = platform::PromptAnswer::Ok) {
    m_steps.push_back({"a box with " + parts.front(), std::move(parts), answer});
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
  void ExpectOpenFile(const std::string& title, std::string path) {
    m_steps.push_back({"open chooser " + title, {}, std::move(path)});
  }
  void ExpectSaveFile(const std::string& title, std::string path) {
    m_steps.push_back({"save chooser " + title, {}, std::move(path)});
  }

  /// Expects a font or colour chooser that starts with `initial` next; nothing is Cancel.
  void ExpectFont(const platform::FontRecord& initial, std::optional<platform::FontRecord> chosen) {
    m_steps.push_back({Describe(initial), {}, std::move(chosen)});
  }
  void ExpectColour(rich_text::ColourValue initial, std::optional<rich_text::ColourValue> chosen) {
    m_steps.push_back({Describe(initial), {}, chosen});
  }

  std::size_t Unasked() const { return m_steps.size(); }

  /// The file chooser last shown, for tests that look at its filters and folder.
  const platform::FileQuestion& LastFileQuestion() const { return m_lastFileQuestion; }

  platform::PromptAnswer Show(const platform::MessageBox& box) override {
    return Answer(Describe(box), box.Text, Closed(box.Buttons));
  }
  std::string AskOpenFile(const platform::FileQuestion& question) override { return AskFile("open", question); }
  std::string AskSaveFile(const platform::FileQuestion& question) override { return AskFile("save", question); }
  std::optional<platform::FontRecord> AskFont(const platform::FontRecord& initial) override {
    return Answer(Describe(initial), "", std::optional<platform::FontRecord>());
  }
  std::optional<rich_text::ColourValue> AskColour(rich_text::ColourValue initial) override {
    return Answer(Describe(initial), "", std::optional<rich_text::ColourValue>());
  }

 private:
  struct Step {
    std::string Question;            ///< as Describe puts it
    std::vector<std::string> Parts;  ///< where not empty, all that counts of the box
    std::any Answer;
  };

  static std::string Describe(const platform::MessageBox& box) {
    return "box \"" + box.Title + "\": " + box.Text + "\n(buttons " + std::to_string(static_cast<int>(box.Buttons)) +
           ", icon " + std::to_string(static_cast<int>(box.Icon)) + ", default " +
           std::to_string(static_cast<int>(box.Default)) + ')';
  }
  static std::string Describe(const platform::FontRecord& font) {
    return "font chooser " + font.Name + ' ' + std::to_string(font.Size);
  }
  static std::string Describe(rich_text::ColourValue colour) { return "colour chooser " + std::to_string(colour); }

  /// The answer of the next step, which must be this question; `otherwise` when a question of another kind is due.
  template <typename Kind>
  Kind Answer(const std::string& question, const std::string& text, const Kind& otherwise) {
    if (m_steps.empty()) ADD_FAILURE() << "unexpected: " << question;
    const Kind* answer = m_steps.empty() ? nullptr : std::any_cast<Kind>(&m_steps.front().Answer);
    if (!m_steps.empty() && m_steps.front().Parts.empty()) {
      EXPECT_EQ(question, m_steps.front().Question);
    }
    if (answer == nullptr) return otherwise;
    for (const std::string& part : m_steps.front().Parts)
      EXPECT_NE(text.find(part), std::string::npos) << '"' << part << "\" is missing in: " << text;
    const Kind given = *answer;
    m_steps.pop_front();
    return given;
  }
  std::string AskFile(const std::string& kind, const platform::FileQuestion& question) {
    m_lastFileQuestion = question;
    return Answer(kind + " chooser " + question.Title, "", std::string());
  }
  /// What closing a box without a button answers.
  static platform::PromptAnswer Closed(platform::PromptButtons buttons) {
    if (buttons == platform::PromptButtons::Ok) return platform::PromptAnswer::Ok;
    return buttons == platform::PromptButtons::YesNo ? platform::PromptAnswer::No : platform::PromptAnswer::Cancel;
  }

  std::deque<Step> m_steps;
  platform::FileQuestion m_lastFileQuestion;
};

}  // namespace tests
