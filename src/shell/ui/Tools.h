#pragma once
// The frame's tools as the toolkit's actions, made from the table of bands. A name is one action wherever it stands.

#include <QAction>
#include <functional>
#include <string_view>
#include <unordered_map>

#include "shell/ToolTable.h"

class QMainWindow;
class QMenu;

namespace shell::ui {

class Tools {
 public:
  /// Called with a tool's name when the user chooses it.
  using Clicked = std::function<void(const std::string& name)>;

  /// Fills the window's menu bar.
  Tools(QMainWindow& window, Clicked clicked);

  /// Enables, checks or tells the state of a tool; a name that stands on no band yet is passed over.
  void Enable(std::string_view name, bool enabled);
  void Check(std::string_view name, bool checked);
  bool IsChecked(std::string_view name) const;

  /// The document's right-click menu.
  QMenu* TextPopup() const { return m_textPopup; }

 private:
  void Fill(QMenu& menu, const Band& band);
  QAction* ActionOf(const Tool& tool);
  QAction* Find(std::string_view name) const;

  QMainWindow& m_window;
  Clicked m_clicked;
  std::unordered_map<std::string, QAction*> m_actions;
  QMenu* m_textPopup;
};

}  // namespace shell::ui
