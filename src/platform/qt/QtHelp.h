#pragma once
// The program's help on Qt Help. The help file is opened when help is wanted first, and again after a failure.

#include <functional>
#include <memory>
#include <string>

#include "platform/HelpViewer.h"
#include "platform/Prompts.h"
#include "platform/Shell.h"

class QWidget;

namespace platform::qt {

class HelpWindow;

class QtHelp final : public HelpViewer {
 public:
  /// All three must outlive it; `file` is the path of the collection and may change until the help is opened. `place`
  /// is called once, to put the window where it shall be before it is shown.
  QtHelp(const std::string& file, Prompts& prompts, Shell& shell, std::function<void(QWidget& window)> place = {});
  ~QtHelp() override;

  void ShowContents() override;
  void ShowKeywords() override;
  void ShowPage(std::string_view page) override;

  /// The window, shown or not; null while there is none.
  const QWidget* Widget() const;

  /// Closes the window, if there is one.
  void Hide();

 private:
  /// The window; null when the help file cannot be shown, which has been told then.
  HelpWindow* Window();

  const std::string& m_file;
  Prompts& m_prompts;
  Shell& m_shell;
  std::function<void(QWidget&)> m_place;
  std::unique_ptr<HelpWindow> m_window;
};

}  // namespace platform::qt
