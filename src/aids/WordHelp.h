#pragma once
// Help on the word at the caret, by the template's help entries.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Prompts.h"
#include "platform/Shell.h"
#include "platform/TextControl.h"
#include "templates/Model.h"

namespace aids {

using HelpChoices = std::vector<std::shared_ptr<const templates::HelpWord>>;

/// Lets the user choose among several entries; null when nothing is chosen.
using HelpChooser = std::function<std::shared_ptr<const templates::HelpWord>(const HelpChoices& choices)>;

/// The selected text, unchanged, or the word at the caret; "" when the caret stands between two delimiters.
std::string HelpedWord(const platform::TextControl& control, const templates::TemplateFields& fields);

/// The entries for a word in their order, without regard to letter case.
HelpChoices FindHelp(const templates::TemplateFields& fields, const std::string& word);

/// Runs an entry's command; tells the user when it could not be started.
void ShowHelp(const templates::HelpWord& entry, platform::Shell& shell, platform::Prompts& prompts);

/// All of it: nothing without a word, a message without an entry, `choose` when there are several.
void ShowWordHelp(const platform::TextControl& control, const templates::TemplateFields& fields, platform::Shell& shell,
                  platform::Prompts& prompts, const HelpChooser& choose);

}  // namespace aids
