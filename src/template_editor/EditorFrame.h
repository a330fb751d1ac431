#pragma once
// What a template editor asks of the frame around it and of the window that holds it. Paths and texts are UTF-8.

#include <string>
#include <string_view>

#include "platform/Prompts.h"
#include "template_editor/ListOwner.h"

namespace template_editor {

/// The frame around all child windows.
class EditorFrame {
 public:
  virtual ~EditorFrame() = default;

  virtual platform::Prompts& Prompts() = 0;
  /// The frame's choosers of a file: a title, a type's name and extension, and where the chooser opens (a folder) or
  /// what it suggests (a path). "" when cancelled.
  virtual std::string GetOpenFile(std::string_view title, std::string_view extName, std::string_view ext,
                                  const std::string& folder) = 0;
  virtual std::string GetSaveFile(std::string_view title, std::string_view extName, std::string_view ext,
                                  const std::string& suggested) = 0;
  /// The colour that the user chooses; `initial` when cancelled.
  virtual rich_text::ColourValue GetColour(rich_text::ColourValue initial) = 0;
  /// The folder that the templates of the menus lie in, without a final separator.
  virtual std::string TemplateFolder() const = 0;
  /// Today's date in the system's short form.
  virtual std::string Today() const = 0;
  /// Reads the templates of the menus anew.
  virtual void PopulateTemplates() = 0;
  virtual void UpdateWindowTabs() = 0;
  virtual void EnableTool(std::string_view name, bool enabled) = 0;
};

/// The window that shows one editor.
class EditorWindow {
 public:
  virtual ~EditorWindow() = default;

  /// Whether this window is the active one, so that the tools are its editor's.
  virtual bool IsActive() const = 0;
  virtual void SetCaption(std::string_view caption) = 0;
  virtual void BringToFront() = 0;
  /// Closes the window without questions.
  virtual void CloseWindow() = 0;
  /// Asks what is to become of changes that have not been committed (see ListOwner).
  virtual LeaveAnswer AskToLeave(Level level, bool mayChange) = 0;
};

/// The texts of that question.
std::string_view LeaveCaption(Level level);
inline constexpr std::string_view LeaveText =
    "You have made changes that have not yet been commited.  Discard Changes?";

}  // namespace template_editor
