#pragma once
// The real message boxes and choosers. They belong to the window that is active when they are shown. The folder of
// the file chosen last in one without a folder of its own is where the next such chooser opens.

#include <QString>

#include "platform/Prompts.h"

namespace platform::qt {

class QtPrompts : public Prompts {
 public:
  /// The first chooser without a folder of its own opens in `folder`; "" for the current one.
  explicit QtPrompts(const std::string& folder = "") : m_lastFolder(QString::fromStdString(folder)) {}

  PromptAnswer Show(const MessageBox& box) override;
  std::string AskOpenFile(const FileQuestion& question) override;
  std::string AskSaveFile(const FileQuestion& question) override;
  std::optional<FontRecord> AskFont(const FontRecord& initial) override;
  std::optional<rich_text::ColourValue> AskColour(rich_text::ColourValue initial) override;

 private:
  std::string Ask(const FileQuestion& question, bool forSaving);

  QString m_lastFolder;
};

}  // namespace platform::qt
