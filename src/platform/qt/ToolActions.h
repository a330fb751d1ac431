#pragma once
// The tools of an ActiveBar as the toolkit's actions. A name is one action wherever it stands, so that it has one state
// and its shortcut works once; a band that captions the tool differently gets a twin that follows the tool and does
// not answer to its shortcut.

#include <QAction>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/ActiveBar.h"

class QWidget;

namespace platform::qt {

class ToolActions {
 public:
  using Clicked = std::function<void(const std::string& tool)>;

  /// The actions belong to the window, where their shortcuts work.
  ToolActions(QWidget& window, const BarDesign& design, Clicked clicked);

  /// The action of a tool, null for an unknown one.
  QAction* Find(std::string_view tool) const;
  /// The action that stands on a band where the tool has this caption ("" for its own).
  QAction* OnBand(std::string_view tool, std::string_view caption);
  /// The same for a menu beside the one where the tool itself stands. Screen readers hear of an action as the entry of
  /// one menu only, so each further menu has its own.
  QAction* OnFurtherMenu(std::string_view tool, std::string_view caption, std::string_view menu);

  /// A tool that was made by SetDynamic; null for any other.
  const DynamicTool* Dynamic(std::string_view tool) const;
  /// Makes the tool, or gives the one of that name a new state.
  void SetDynamic(const DynamicTool& tool);
  /// Takes it away; nothing for a designed tool.
  void RemoveDynamic(std::string_view tool);

  ToolState State(std::string_view tool) const;
  void SetCaption(std::string_view tool, std::string_view caption);
  void SetDescription(std::string_view tool, std::string_view description);

 private:
  struct Entry {
    QAction* Action = nullptr;
    int Id = 0;
    std::string Caption, Description;
    std::unique_ptr<DynamicTool> Dynamic;
  };

  Entry& Add(const std::string& name);
  const Entry* EntryOf(std::string_view tool) const;
  Entry* EntryOf(std::string_view tool);
  QAction* Twin(QAction& action, const std::string& key, std::string_view caption);
  void ShowTexts(Entry& entry);
  void Triggered(const std::string& name, QAction& action);

  QWidget& m_window;
  Clicked m_clicked;
  std::map<std::string, Entry, std::less<>> m_entries;
  std::map<std::string, QAction*> m_twins;  ///< by name, caption and menu
};

}  // namespace platform::qt
