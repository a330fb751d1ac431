#pragma once
// What the frame's tools do: one table of commands in a fixed order, each with a name (or the beginning of one), the
// condition under which it runs, and the action that the frame binds to it.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/ChildWindow.h"

namespace shell {

/// Always; when any child window is active; when the active child window is a document.
enum class CommandCondition { Always, ChildActive, DocumentActive };

struct CommandRule {
  std::string_view Name;
  CommandCondition Condition = CommandCondition::Always;
  bool IsPrefix = false;  ///< the command of every tool whose name begins so
};

/// All commands, in the order in which a tool's name is compared with them.
const std::vector<CommandRule>& CommandRules();

class CommandTable {
 public:
  /// Called with the name of the clicked tool.
  using Action = std::function<void(const std::string& tool)>;

  /// `activeChild` gives the active child window, or null.
  explicit CommandTable(std::function<ChildWindow*()> activeChild);

  /// Binds the action of the command of exactly this name (or prefix), in the place of an earlier one. A name that is
  /// not in the table is a mistake of the program.
  void Bind(std::string_view command, Action action);

  /// Runs the command of a tool when its condition holds; a name without a command does nothing.
  void Run(const std::string& tool) const;

  /// To be called when all have been bound: a command without an action is a mistake of the program.
  void RequireAll() const;

 private:
  std::size_t IndexOf(std::string_view tool) const;
  bool Holds(CommandCondition condition) const;

  std::function<ChildWindow*()> m_activeChild;
  std::vector<Action> m_actions;  ///< beside CommandRules()
};

}  // namespace shell
