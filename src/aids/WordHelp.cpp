#include "aids/WordHelp.h"

#include "aids/CommandLines.h"
#include "aids/WordAtCaret.h"
#include "rich_text/Encoding.h"

namespace aids {

std::string HelpedWord(const platform::TextControl& control, const templates::TemplateFields& fields) {
  if (control.SelLength() > 0) return control.SelText();
  const WordRange word = WordAtCaret(control, fields);
  return word.Empty() ? "" : control.TextRange(word.Start, word.End);
}

HelpChoices FindHelp(const templates::TemplateFields& fields, const std::string& word) {
  HelpChoices choices;
  const std::string folded = rich_text::LowerCase(word);
  for (const auto& entry : fields.HelpWords)
    if (rich_text::LowerCase(entry->Word) == folded) choices.push_back(entry);
  return choices;
}

void ShowHelp(const templates::HelpWord& entry, platform::Shell& shell, platform::Prompts& prompts) {
  const platform::CommandParts parts = SplitHelpCommand(entry.CommandLine);
  if (shell.ShellExecute(parts.Program, parts.Arguments) >= platform::ShellSuccess) return;
  prompts.Show(
      {.Text = '"' + entry.CommandLine + "\" could not be executed.", .Icon = platform::PromptIcon::Exclamation});
}

void ShowWordHelp(const platform::TextControl& control, const templates::TemplateFields& fields, platform::Shell& shell,
                  platform::Prompts& prompts, const HelpChooser& choose) {
  const std::string word = HelpedWord(control, fields);
  if (word.empty()) return;
  const HelpChoices choices = FindHelp(fields, word);
  if (choices.empty()) {
    prompts.Show({.Text = "No help is available for \"" + word + "\".  Sorry."});
  } else if (choices.size() == 1) {
    ShowHelp(*choices[0], shell, prompts);
  } else if (const auto chosen = choose(choices)) {
    ShowHelp(*chosen, shell, prompts);
  }
}

}  // namespace aids
