#pragma once
// A template editor in a frame that notes what it is asked, with a user who follows a script.

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "template_editor/TemplateEditor.h"
#include "tests/laws/Dice.h"
#include "tests/support/MemoryTextControl.h"
#include "tests/support/ScriptedPrompts.h"

namespace tests {

/// The owner of lists alone: keeps refusals, and answers questions from a queue.
class ListUser : public template_editor::ListOwner {
 public:
  std::deque<template_editor::LeaveAnswer> Answers;
  std::vector<std::string> Asked, Refused;

  void MarkChanged() override {}
  bool Accepts(const std::string& reason) override {
    if (!reason.empty()) Refused.push_back(reason);
    return reason.empty();
  }
  template_editor::LeaveAnswer AskToLeave(template_editor::Level level, bool mayChange) override {
    Asked.push_back(std::string(level == template_editor::Level::Word ? "word" : "delimeter") +
                    (mayChange ? "" : " without Change"));
    if (Answers.empty()) {
      ADD_FAILURE() << "nobody expects a question about the " << Asked.back();
      return template_editor::LeaveAnswer::Stay;
    }
    const auto answer = Answers.front();
    Answers.pop_front();
    return answer;
  }
  void RequireDelimeter(const std::string&) override {}
};

/// Plays so many steps of a law with each seed, up to the first that fails.
template <typename Law>
void PlayLaw(std::uint64_t seeds, int steps) {
  for (std::uint64_t seed = laws::FirstSeed(); seed < laws::FirstSeed() + laws::Runs(seeds); ++seed) {
    SCOPED_TRACE("QUILLMARK_LAW_SEED=" + std::to_string(seed));
    Law law(seed);
    for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
      law.Step();
      law.Compare();
    }
  }
}

class EditorUser : public template_editor::EditorFrame, public template_editor::EditorWindow {
 public:
  ScriptedPrompts User;
  MemoryTextControl InitialText;
  std::map<std::string, bool, std::less<>> Tools;
  std::string WindowCaption, Folder = "/templates";
  std::string Suggested;
  ListUser Leaving;
  int Tabs = 0, Populated = 0;
  bool Active = true, Closed = false;

  platform::Prompts& Prompts() override { return User; }
  std::string GetOpenFile(std::string_view title, std::string_view extName, std::string_view ext,
                          const std::string& folder) override {
    return User.AskOpenFile({std::string(title), {{std::string(extName), {std::string(ext)}}}, folder, ""});
  }
  std::string GetSaveFile(std::string_view title, std::string_view extName, std::string_view ext,
                          const std::string& suggested) override {
    Suggested = suggested;
    return User.AskSaveFile({std::string(title), {{std::string(extName), {std::string(ext)}}}, "", suggested});
  }
  rich_text::ColourValue GetColour(rich_text::ColourValue initial) override { return initial; }
  std::string TemplateFolder() const override { return Folder; }
  std::string Today() const override { return "1/2/2024"; }
  void PopulateTemplates() override { ++Populated; }
  void UpdateWindowTabs() override { ++Tabs; }
  void EnableTool(std::string_view name, bool enabled) override { Tools[std::string(name)] = enabled; }

  bool IsActive() const override { return Active; }
  void SetCaption(std::string_view caption) override { WindowCaption = caption; }
  void BringToFront() override {}
  void CloseWindow() override { Closed = true; }
  template_editor::LeaveAnswer AskToLeave(template_editor::Level level, bool mayChange) override {
    return Leaving.AskToLeave(level, mayChange);
  }

  template_editor::TemplateEditor Editor{InitialText, *this, *this};
};

}  // namespace tests
