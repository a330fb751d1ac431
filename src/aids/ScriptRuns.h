#pragma once
// Trying a script out: the preview page of a JavaScript text, and the template's run command on the saved file.

#include <functional>
#include <string>

#include "editor/DocumentState.h"
#include "platform/Prompts.h"
#include "platform/Shell.h"
#include "platform/TextControl.h"

namespace aids {

/// What both need.
struct RunTools {
  platform::Shell& Shell;
  platform::Prompts& Prompts;
};

/// Writes the preview page of the text into the program folder and opens it; a page that cannot be written is told.
void GenerateJavaScriptPreview(const platform::TextControl& control, const std::string& programFolder,
                               const RunTools& tools);

/// Runs the template's command on the document's file, which `save` saves before when it has changes; nothing when that
/// gives false, or when the document has no file.
void SaveExec(const editor::DocumentState& state, const std::function<bool()>& save, const RunTools& tools);

}  // namespace aids
