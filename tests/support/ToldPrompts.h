#pragma once
// A user who is played from outside: every message is a line of standard output, and the answers come from a list.

#include <algorithm>
#include <iostream>
#include <optional>
#include <string>

#include "platform/Prompts.h"

namespace tests {

class ToldPrompts : public platform::Prompts {
 public:
  /// "Y" or "N" for each of the next questions; those behind the last get `Otherwise`.
  std::string Answers;
  char Otherwise = 'N';

  /// Prints "asked TEXT", with the text's line ends as blanks.
  platform::PromptAnswer Show(const platform::MessageBox& box) override {
    std::string text = box.Text;
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::cout << "asked " << text << std::endl;
    if (box.Buttons == platform::PromptButtons::Ok) return platform::PromptAnswer::Ok;
    const char answer = Answers.empty() ? Otherwise : Answers.front();
    if (!Answers.empty()) Answers.erase(0, 1);
    return answer == 'Y' ? platform::PromptAnswer::Yes : platform::PromptAnswer::No;
  }
  std::string AskOpenFile(const platform::FileQuestion&) override { return ""; }
  std::string AskSaveFile(const platform::FileQuestion&) override { return ""; }
  std::optional<platform::FontRecord> AskFont(const platform::FontRecord&) override { return {}; }
  std::optional<rich_text::ColourValue> AskColour(rich_text::ColourValue) override { return {}; }
};

}  // namespace tests
