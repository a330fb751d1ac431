#pragma once
// The frame's status bar as the rest of the program writes it: panels by key, or one simple text instead of them.

#include <string_view>

namespace platform {

enum class StatusStyle { Normal, Simple };

class StatusPanels {
 public:
  virtual ~StatusPanels() = default;

  /// Sets the text of the panel with the key "CoOrds", "DocSize" or "Template"; other keys are ignored.
  virtual void SetPanelText(std::string_view key, std::string_view text) = 0;

  /// Shows the panels (Normal) or the simple text over the whole bar (Simple).
  virtual void SetStyle(StatusStyle style) = 0;

  virtual void SetSimpleText(std::string_view text) = 0;

  /// What the INS panel shows: whether typing replaces the character after the caret.
  virtual void SetOverwrite(bool overwrite) = 0;
};

}  // namespace platform
