#include "shell/StartUp.h"

#include "shell/ExecuteString.h"

namespace shell {
namespace {

void InitialiseFrame(FrameSteps& frame) {
  const settings::HistoryPaths history = frame.LoadSettings();
  frame.ReadFileInfo();
  frame.LoadToolbarLayout();
  for (const std::string& path : history) frame.AddToHistory(path);
}

void ApplySwitch(FrameSteps& frame, const std::string& token, bool& useSubclassing) {
  if (token == NoSubclassing) {
    useSubclassing = false;
  } else if (token == ResetSettings) {
    frame.SetDefaults(true);
  } else if (token == ResetToolbars) {
    frame.DeleteToolbarLayout();
    frame.ResetToolbars();
  } else {
    frame.Prompts().Show(InvalidParameter(token));
  }
}

}  // namespace

void LoadFrame(FrameSteps& frame, const CommandLine& commandLine, bool& useSubclassing) {
  frame.EnterProgramFolder();
  frame.SetHelpFile();
  InitialiseFrame(frame);
  useSubclassing = true;
  frame.PopulateTemplates();
  for (const std::string& token : commandLine.Switches) ApplySwitch(frame, token, useSubclassing);
  frame.Show();
  frame.OfferUnsavedText();
  for (const FileArgument& file : commandLine.Files) {
    if (file.FullPath.empty())
      frame.Prompts().Show(DoesNotExist(file.Given));
    else
      frame.OpenFile(file);
  }
  if (useSubclassing) frame.AttachHook();
  if (!frame.HasWindows()) frame.NewDocument();
}

void UnloadFrame(FrameSteps& frame) {
  frame.DetachHook();
  frame.SaveSettings();
  frame.DeletePreviewPage();
}

void HandOver(const CommandLine& commandLine, platform::Prompts& prompts,
              const std::function<void(const std::string& command)>& send) {
  for (const FileArgument& file : commandLine.Files) {
    if (file.FullPath.empty())
      prompts.Show(DoesNotExist(file.Given));
    else
      send(FileOpenCommand(WithPlace(file)));
  }
  send(std::string(BringToFrontVerb) + ':');
}

}  // namespace shell
