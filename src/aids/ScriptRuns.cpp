#include "aids/ScriptRuns.h"

#include "aids/CommandLines.h"
#include "aids/PreviewPage.h"
#include "platform/Files.h"

namespace aids {

void GenerateJavaScriptPreview(const platform::TextControl& control, const std::string& programFolder,
                               const RunTools& tools) {
  const std::string path = PreviewFile(programFolder);
  const std::string error = platform::WriteFile(path, PreviewPage(control.Text()));
  if (error.empty()) return RunCommand('"' + path + '"', tools.Shell, tools.Prompts);
  tools.Prompts.Show({.Text = "Could not save " + path + "\n\n" + error, .Icon = platform::PromptIcon::Critical});
}

void SaveExec(const editor::DocumentState& state, const std::function<bool()>& save, const RunTools& tools) {
  const std::string& command = state.Template.ExecuteCommand;
  if (command.empty()) {
    tools.Prompts.Show({.Text = "No execution command has been defined for this template."});
    return;
  }
  if (!state.Saved && !save()) return;
  if (state.CurFileName.empty()) return;
  RunCommand(CommandFor(command, state.CurFileName), tools.Shell, tools.Prompts);
}

}  // namespace aids
