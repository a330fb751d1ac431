#include "shell/CommandTable.h"

#include <algorithm>
#include <stdexcept>

namespace shell {

const std::vector<CommandRule>& CommandRules() {
  using enum CommandCondition;
  static const std::vector<CommandRule> rules = {
      {"new"},
      {"Template", Always, true},
      {"newTemplate"},
      {"open"},
      {"OpenTemplate"},
      {"save", ChildActive},
      {"saveas", ChildActive},
      {"SaveExec", DocumentActive},
      {"GenPrev", DocumentActive},
      {"History1"},
      {"History2"},
      {"History3"},
      {"exit"},
      {"miUndo", DocumentActive},
      {"miRedo", DocumentActive},
      {"miCut", DocumentActive},
      {"miCopy", DocumentActive},
      {"miPaste", DocumentActive},
      {"miSelectAll", DocumentActive},
      {"miFind", DocumentActive},
      {"miReplace", DocumentActive},
      {"miFindNext", DocumentActive},
      {"miWordWrap", DocumentActive},
      {"miRefresh", DocumentActive},
      {"fntProportional", DocumentActive},
      {"fntFixedWidth", DocumentActive},
      {"fntDOS", DocumentActive},
      {"fntSet"},
      {"Options"},
      {"Associations"},
      {"miAddSynonym", DocumentActive},
      {"miEditSynonyms", DocumentActive},
      {"miLoadSynonyms", DocumentActive},
      {"miSaveSynonyms", DocumentActive},
      {"WordHelp"},
      {"miHContents"},
      {"miHSearch"},
      {"miHAbout"},
      {"miHAboutTemplate"},
      {"miWTileH"},
      {"miWTileV"},
      {"miWCascade"},
      {"miWTileA"},
      {"miWList", Always, true},
      {"tbWList", Always, true},
      {"Reset"},
      {"ResetToolbars"},
  };
  return rules;
}

CommandTable::CommandTable(std::function<ChildWindow*()> activeChild)
    : m_activeChild(std::move(activeChild)), m_actions(CommandRules().size()) {}

std::size_t CommandTable::IndexOf(std::string_view tool) const {
  const std::vector<CommandRule>& rules = CommandRules();
  const auto found = std::find_if(rules.begin(), rules.end(), [&](const CommandRule& rule) {
    return rule.IsPrefix ? tool.starts_with(rule.Name) : tool == rule.Name;
  });
  return static_cast<std::size_t>(found - rules.begin());
}

void CommandTable::Bind(std::string_view command, Action action) {
  const std::size_t index = IndexOf(command);
  if (index == m_actions.size() || CommandRules()[index].Name != command)
    throw std::logic_error("there is no command " + std::string(command));
  m_actions[index] = std::move(action);
}

void CommandTable::Run(const std::string& tool) const {
  const std::size_t index = IndexOf(tool);
  if (index == m_actions.size() || !m_actions[index] || !Holds(CommandRules()[index].Condition)) return;
  m_actions[index](tool);
}

bool CommandTable::Holds(CommandCondition condition) const {
  if (condition == CommandCondition::Always) return true;
  const ChildWindow* child = m_activeChild();
  return child && (condition == CommandCondition::ChildActive || child->FormName() == "Mainwin");
}

void CommandTable::RequireAll() const {
  for (std::size_t i = 0; i < m_actions.size(); ++i)
    if (!m_actions[i]) throw std::logic_error("nothing is bound to the command " + std::string(CommandRules()[i].Name));
}

}  // namespace shell
