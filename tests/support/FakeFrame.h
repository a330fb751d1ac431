#pragma once
// The frame, the window, the status bar and the event loop of a document in the tests: they write down what they are
// told, and the clock runs only as the test says.

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "editor/DocumentFrame.h"
#include "tests/support/ScriptedPrompts.h"

namespace tests {

class FakeStatus : public platform::StatusPanels {
 public:
  std::map<std::string, std::string, std::less<>> Panels;
  std::vector<std::string> Log;  ///< styles ("normal", "simple") and simple texts, in order

  void SetPanelText(std::string_view key, std::string_view text) override { Panels[std::string(key)] = text; }
  void SetStyle(platform::StatusStyle style) override {
    Log.emplace_back(style == platform::StatusStyle::Normal ? "normal" : "simple");
  }
  void SetSimpleText(std::string_view text) override { Log.emplace_back(text); }
  void SetOverwrite(bool overwrite) override { Overwrite = overwrite; }
  bool Overwrite = false;
  std::vector<std::string> Take() { return std::exchange(Log, {}); }
};

/// Each look at the clock takes MillisecondsALook.
class FakeLoop : public platform::EventLoop {
 public:
  std::int64_t MillisecondsALook = 0;
  std::function<void()> OnEvents;
  std::vector<std::int64_t> Yields;  ///< when DoEvents was called

  void DoEvents() override {
    Yields.push_back(m_now);
    if (OnEvents) OnEvents();
  }
  std::int64_t Milliseconds() const override { return m_now += MillisecondsALook; }

 private:
  mutable std::int64_t m_now = 0;
};

/// A timer that fires when the test says.
class FakeTimer : public platform::Timer {
 public:
  int Interval() const override { return m_interval; }
  void SetInterval(int milliseconds) override { m_interval = milliseconds, ++Starts; }
  /// The interval has passed.
  void Fire() {
    if (m_interval > 0) ThatTime();
  }
  int Starts = 0;  ///< how often the interval was set

 private:
  int m_interval = 0;
};

class FakeFrame : public editor::DocumentFrame {
 public:
  FakeStatus Bar;
  FakeLoop Events;
  ScriptedPrompts Questions;
  settings::Settings Values;
  std::map<std::string, std::string, std::less<>> Known;  ///< extension to template file
  std::vector<std::string> Associations;                  ///< "extension name file"
  std::vector<std::string> Opened;
  std::map<std::string, bool, std::less<>> Enabled, Checked;
  std::string Suggested;            ///< by the last chooser of a file to write
  std::string AskedType;            ///< type name and extension of the last file chooser
  std::vector<std::string> Clicks;  ///< tools run, and "TextPopup x,y"
  int TabUpdates = 0;
  std::vector<FakeTimer*> Timers;  ///< those handed out, in order; each belongs to who asked for it

  editor::RecoveryStore* Store = nullptr;

  platform::StatusPanels& Status() override { return Bar; }
  editor::RecoveryStore* UnsavedTexts() override { return Store; }
  platform::Prompts& Prompts() override { return Questions; }
  platform::EventLoop& Loop() override { return Events; }
  const settings::Settings& Settings() const override { return Values; }
  std::unique_ptr<platform::Timer> MakeTimer() override {
    auto timer = std::make_unique<FakeTimer>();
    Timers.push_back(timer.get());
    return timer;
  }
  std::string GetSaveFile(std::string_view title, std::string_view extName, std::string_view ext,
                          const std::string& suggested) override {
    Suggested = suggested;
    return Questions.AskSaveFile(Question(title, extName, ext));
  }
  std::string AskTemplate() override {
    return Questions.AskOpenFile(Question("Select Template", "Template Definition File", "def"));
  }
  std::string GetTemplateOf(std::string_view extension) const override {
    const auto found = Known.find(extension);
    return found == Known.end() ? "" : found->second;
  }
  void AddAssociation(const templates::Template& record) override {
    Associations.push_back(record.Extension + ' ' + record.Name + ' ' + record.FileName);
  }
  void OpenFile(const std::string& path) override { Opened.push_back(path); }
  void EnableTool(std::string_view name, bool enabled) override { Enabled[std::string(name)] = enabled; }
  void CheckTool(std::string_view name, bool checked) override { Checked[std::string(name)] = checked; }
  void UpdateWindowTabs() override { ++TabUpdates; }
  void ActiveBar_ToolClick(const std::string& name) override { Clicks.push_back(name); }
  void ShowTextPopup(int x, int y) override {
    Clicks.push_back("TextPopup " + std::to_string(x) + ',' + std::to_string(y));
  }

 private:
  platform::FileQuestion Question(std::string_view title, std::string_view extName, std::string_view ext) {
    AskedType = std::string(extName) + '|' + std::string(ext);
    platform::FileQuestion question;
    question.Title = title;
    return question;
  }
};

class FakeWindow : public editor::DocumentWindow {
 public:
  bool Active = true;
  std::string Title = "Untitled";
  int Closed = 0, Fronted = 0;

  bool IsActive() const override { return Active; }
  std::string Caption() const override { return Title; }
  void SetCaption(std::string_view caption) override { Title = caption; }
  void BringToFront() override { ++Fronted; }
  void CloseWindow() override { ++Closed; }
  bool SaveSynonyms(const std::string& path) override {
    SynonymFiles.push_back(path);
    return SavesSynonyms;
  }
  std::vector<std::string> SynonymFiles;
  bool SavesSynonyms = true;
};

}  // namespace tests
