#pragma once
// Every question to the user and every message goes through here, so that the tests can play the user and no dialog
// hides in the depth of the program. Paths are UTF-8; "" means that the user cancelled.

#include <optional>
#include <string>
#include <vector>

#include "platform/FontRecord.h"
#include "rich_text/StyledText.h"

namespace platform {

enum class PromptButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class PromptIcon { None, Critical, Question, Exclamation, Information };
enum class PromptAnswer { Ok, Cancel, Yes, No };

/// A message box. `Default` must be one of the box's buttons.
struct MessageBox {
  std::string Text;
  std::string Title = "Quillmark";
  PromptButtons Buttons = PromptButtons::Ok;
  PromptIcon Icon = PromptIcon::None;
  PromptAnswer Default = PromptAnswer::Ok;
};

/// One line of a file chooser's type list. Patterns are shell patterns ("*.js"); "*.*" means every file.
struct FileFilter {
  std::string Description;
  std::vector<std::string> Patterns;
};

/// A file chooser.
struct FileQuestion {
  std::string Title;
  std::vector<FileFilter> Filters;
  std::string Folder;         ///< where it opens; "" for the folder last used
  std::string SuggestedName;  ///< for saving
  std::size_t Selected = 0;   ///< the filter that counts at first, 0-based
};

class Prompts {
 public:
  virtual ~Prompts() = default;

  /// Shows the box and waits for the answer. Closing it by other means answers Cancel (No where there is no Cancel, Ok
  /// where there is neither).
  virtual PromptAnswer Show(const MessageBox& box) = 0;

  /// An existing file, or "" when cancelled.
  virtual std::string AskOpenFile(const FileQuestion& question) = 0;

  /// A file to write, the user having agreed to replace it if it exists; or "" when cancelled.
  virtual std::string AskSaveFile(const FileQuestion& question) = 0;

  /// One of the fonts that exist, the chooser starting with `initial`; nothing when cancelled. `Fixed` is the
  /// initial's.
  virtual std::optional<FontRecord> AskFont(const FontRecord& initial) = 0;

  /// A colour, the chooser starting with `initial`; nothing when cancelled.
  virtual std::optional<rich_text::ColourValue> AskColour(rich_text::ColourValue initial) = 0;
};

}  // namespace platform
