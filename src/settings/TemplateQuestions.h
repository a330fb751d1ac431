#pragma once
// The two questions about a template that several windows ask. Paths are UTF-8.

#include <string>

#include "platform/Prompts.h"

namespace settings {

/// The template file that the user picks, beginning in a folder; "" when cancelled.
std::string SelectTemplate(platform::Prompts& prompts, const std::string& folder);

/// Whether the template just picked is to be that of all files with the extension (without ".").
bool WantsForAllFiles(platform::Prompts& prompts, const std::string& extension);

}  // namespace settings
