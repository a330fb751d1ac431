#include "settings/TemplateQuestions.h"

namespace settings {

std::string SelectTemplate(platform::Prompts& prompts, const std::string& folder) {
  return prompts.AskOpenFile({.Title = "Select Template",
                              .Filters = {{"Template Definition File", {"*.def"}}, {"All Files", {"*.*"}}},
                              .Folder = folder,
                              .SuggestedName = ""});
}

bool WantsForAllFiles(platform::Prompts& prompts, const std::string& extension) {
  return prompts.Show({.Text = "Would you like to use this template for all ." + extension + " files?",
                       .Buttons = platform::PromptButtons::YesNo,
                       .Icon = platform::PromptIcon::Question,
                       .Default = platform::PromptAnswer::Yes}) == platform::PromptAnswer::Yes;
}

}  // namespace settings
