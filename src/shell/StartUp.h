#pragma once
// In which order the program starts and ends. The frame does each step; what follows what stands here.

#include <functional>
#include <string>

#include "platform/Prompts.h"
#include "settings/Settings.h"
#include "shell/CommandLine.h"

namespace shell {

/// The steps of loading and unloading the frame.
class FrameSteps {
 public:
  virtual ~FrameSteps() = default;

  virtual platform::Prompts& Prompts() = 0;

  virtual void EnterProgramFolder() = 0;  ///< makes it the current folder
  virtual void SetHelpFile() = 0;
  virtual settings::HistoryPaths LoadSettings() = 0;  ///< gives the history's paths
  virtual void ReadFileInfo() = 0;
  virtual void LoadToolbarLayout() = 0;
  virtual void AddToHistory(const std::string& path) = 0;
  virtual void PopulateTemplates() = 0;
  virtual void SetDefaults(bool resetToolbars) = 0;
  virtual void DeleteToolbarLayout() = 0;  ///< removes the layout file if there is one
  virtual void ResetToolbars() = 0;
  virtual void Show() = 0;              ///< puts the frame on the screen
  virtual void OfferUnsavedText() = 0;  ///< what an earlier run did not come to save
  virtual void OpenFile(const FileArgument& file) = 0;
  virtual void AttachHook() = 0;  ///< pop-ups follow the application's activation
  virtual bool HasWindows() const = 0;
  virtual void NewDocument() = 0;

  virtual void DetachHook() = 0;
  virtual void SaveSettings() = 0;
  virtual void DeletePreviewPage() = 0;
};

/// Loads the frame of the first instance. `useSubclassing` is a value of the program that a switch changes.
void LoadFrame(FrameSteps& frame, const CommandLine& commandLine, bool& useSubclassing);

/// Unloads the frame once every document window has gone.
void UnloadFrame(FrameSteps& frame);

/// What a second start does: gives each existing file to the first instance and brings that to the front. `send`
/// carries one execute string over; its failures change nothing.
void HandOver(const CommandLine& commandLine, platform::Prompts& prompts,
              const std::function<void(const std::string& command)>& send);

}  // namespace shell
