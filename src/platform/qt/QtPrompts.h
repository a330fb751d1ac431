#pragma once
// The real message boxes and choosers. They belong to the window that is active when they are shown. The folder of
// the file chosen last is where the next chooser without a folder of its own opens.

#include <QString>

#include "platform/Prompts.h"

namespace platform::qt {

class QtPrompts : public Prompts {
 public:
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
