#pragma once
// What a document asks of the frame around it and of the window that holds it.

#include <memory>
#include <string>
#include <string_view>

#include "platform/EventLoop.h"
#include "platform/Prompts.h"
#include "platform/StatusPanels.h"
#include "platform/Timer.h"
#include "settings/Settings.h"
#include "templates/Model.h"

namespace editor {

class RecoveryStore;

/// The frame around all documents.
class DocumentFrame {
 public:
  virtual ~DocumentFrame() = default;

  virtual platform::StatusPanels& Status() = 0;
  virtual platform::Prompts& Prompts() = 0;
  virtual platform::EventLoop& Loop() = 0;
  virtual const settings::Settings& Settings() const = 0;
  /// Where unsaved text is kept safe from a crash; null for nowhere.
  virtual RecoveryStore* UnsavedTexts() { return nullptr; }
  /// A timer that stands still.
  virtual std::unique_ptr<platform::Timer> MakeTimer() = 0;

  /// The frame's chooser of a file to write: a title, a type's name and extension ("js", or several as in "htm;html"),
  /// and the path that it suggests, "" for none. "" when cancelled.
  virtual std::string GetSaveFile(std::string_view title, std::string_view extName, std::string_view ext,
                                  const std::string& suggested) = 0;
  /// The template file chosen by the user, looked for in the program folder; "" when cancelled.
  virtual std::string AskTemplate() = 0;
  /// The template file for an extension, "" for none.
  virtual std::string GetTemplateOf(std::string_view extension) const = 0;
  /// Makes the template the one of all files with the record's extension.
  virtual void AddAssociation(const templates::Template& association) = 0;
  /// Opens an existing file in a window of its own.
  virtual void OpenFile(const std::string& path) = 0;

  virtual void EnableTool(std::string_view name, bool enabled) = 0;
  virtual void CheckTool(std::string_view name, bool checked) = 0;
  virtual void UpdateWindowTabs() = 0;

  /// Runs a tool's command as if the user had chosen it.
  virtual void ActiveBar_ToolClick(const std::string& name) = 0;
  /// Shows the pop-up menu of the text at a point of the active document's control, in pixels.
  virtual void ShowTextPopup(int x, int y) = 0;
};

/// The window that shows one document.
class DocumentWindow {
 public:
  virtual ~DocumentWindow() = default;

  /// Whether this window is the active one, so that the status bar and the tools are its document's.
  virtual bool IsActive() const = 0;
  virtual std::string Caption() const = 0;
  virtual void SetCaption(std::string_view caption) = 0;
  virtual void BringToFront() = 0;
  /// Writes the document's synonyms to a file, "" asks for a name; false when nothing was written.
  virtual bool SaveSynonyms(const std::string& path) = 0;
  /// Closes the window without questions, as soon as nothing of the document runs any more.
  virtual void CloseWindow() = 0;
};

}  // namespace editor
