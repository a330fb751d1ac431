// The order of loading and unloading the frame.

#include "shell/StartUp.h"

#include <gtest/gtest.h>

#include "tests/support/ScriptedPrompts.h"

namespace {

using namespace shell;

/// A frame that only writes down what it is told.
class RecordingFrame : public FrameSteps {
 public:
  platform::Prompts& Prompts() override { return Questions; }
  void EnterProgramFolder() override { Done += " folder"; }
  void SetHelpFile() override { Done += " help"; }
  std::array<std::string, 3> LoadSettings() override {
    Done += " settings";
    return {"one", "two", ""};
  }
  void ReadFileInfo() override { Done += " fileinfo"; }
  void LoadToolbarLayout() override { Done += " layout"; }
  void AddToHistory(const std::string& path) override { Done += " history(" + path + ")"; }
  void PopulateTemplates() override { Done += " templates"; }
  void SetDefaults(bool resetToolbars) override { Done += resetToolbars ? " defaults+bars" : " defaults"; }
  void DeleteToolbarLayout() override { Done += " delete"; }
  void ResetToolbars() override { Done += " reset"; }
  void Show() override { Done += " show"; }
  void OfferUnsavedText() override { Done += " unsaved"; }
  void OpenFile(const FileArgument& file) override {
    Done += " open(" + WithPlace(file) + ")";
    Windows += file.FullPath != "/refused" ? 1 : 0;
  }
  void AttachHook() override { Done += " hook"; }
  bool HasWindows() const override { return Windows > 0; }
  void NewDocument() override { Done += " new"; }
  void DetachHook() override { Done += " unhook"; }
  void SaveSettings() override { Done += " save"; }
  void DeletePreviewPage() override { Done += " page"; }

  tests::ScriptedPrompts Questions;
  std::string Done;
  int Windows = 0;
};

constexpr const char* Loaded = " folder help settings fileinfo layout history(one) history(two) history() templates";

TEST(StartUp, StepsComeInTheirOrder) {
  const struct {
    std::vector<std::string> Switches;
    std::vector<FileArgument> Files;
    std::string Done;
    bool UseSubclassing = true;
  } cases[] = {
      {{}, {}, " show unsaved hook new"},
      {{}, {{"a", "/a", 0, 0}, {"b", "/b", 3, 4}}, " show unsaved open(/a) open(/b:3:4) hook"},
      {{}, {{"r", "/refused", 0, 0}}, " show unsaved open(/refused) hook new"},
      {{"/ResetSettings", "/NoSubclassing", "/ResetToolbars"},
       {{"a", "/a", 0, 0}},
       " defaults+bars delete reset show unsaved open(/a)",
       false},
  };
  for (const auto& c : cases) {
    RecordingFrame frame;
    bool useSubclassing = false;
    LoadFrame(frame, {CommandLine::Task::Edit, c.Switches, c.Files}, useSubclassing);
    EXPECT_EQ(frame.Done, Loaded + c.Done);
    EXPECT_EQ(useSubclassing, c.UseSubclassing);
  }
  RecordingFrame frame;
  UnloadFrame(frame);
  EXPECT_EQ(frame.Done, " unhook save page");
}

const platform::MessageBox Missing{.Text = "\"no.js\" does not exist.", .Icon = platform::PromptIcon::Exclamation};

TEST(StartUp, WhatIsWrongIsToldAndTheRestGoesOn) {
  RecordingFrame frame;
  frame.Questions.Expect({.Text = "'/resetsettings' is not a valid command line parameter.  Valid parameters are "
                                  "'/ResetSettings', '/ResetToolbars' and '/NoSubclassing'."});
  frame.Questions.Expect(Missing);
  bool useSubclassing = false;
  LoadFrame(frame, {CommandLine::Task::Edit, {"/resetsettings"}, {{"no.js", "", 0, 0}}}, useSubclassing);
  EXPECT_EQ(frame.Done, std::string(Loaded) + " show unsaved hook new");
}

TEST(StartUp, ASecondStartHandsItsFilesOverAndDropsSwitches) {
  tests::ScriptedPrompts prompts;
  prompts.Expect(Missing);
  std::string sent;
  HandOver(
      {CommandLine::Task::Edit, {"/ResetSettings", "/X"}, {{"a", "/a", 7, 0}, {"no.js", "", 0, 0}, {"b", "/b", 0, 0}}},
      prompts, [&](const std::string& command) { sent += command + '\n'; });
  EXPECT_EQ(sent, "FileOpen:/a:7\nFileOpen:/b\nBringToFront:\n");
}

}  // namespace
