#include "template_editor/ActionLists.h"

#include "rich_text/Encoding.h"
#include "template_editor/FormatLimits.h"

namespace template_editor {

using templates::Word, templates::WrdAct;

void ActionLists::Take(std::vector<WordPointer> words) {
  m_words.Assign(std::move(words));
  LoadWord();
  EntryText.clear();
  Icon = FirstIcon;
}

// Leaving.

bool ActionLists::LeaveAction() {
  if (m_actionCommitted) return true;
  switch (m_owner.AskToLeave(Level::Delimeter, m_delimeters.Selected().has_value())) {
    case LeaveAnswer::Change:
      return ChangeDelimeter();
    case LeaveAnswer::Add:
      return AddDelimeter();
    case LeaveAnswer::Discard:
      LoadAction();
      return true;
    default:
      return false;
  }
}

bool ActionLists::LeaveWord() {
  if (!LeaveAction()) return false;
  if (m_wordCommitted) return true;
  switch (m_owner.AskToLeave(Level::Word, m_words.Selected().has_value())) {
    case LeaveAnswer::Change:
      return ChangeWord();
    case LeaveAnswer::Add:
      return AddWord();
    case LeaveAnswer::Discard:
      LoadWord();
      return true;
    default:
      return false;
  }
}

// The working copies.

/// Makes the working word a copy of the selected one, or an empty one.
void ActionLists::LoadWord() {
  m_name.clear();
  std::vector<ActionPointer> actions;
  if (m_words.Current()) {
    const Word& word = **m_words.Current();
    m_name = word.Name;
    for (const ActionPointer& action : word.Actions) actions.push_back(action);
  }
  m_delimeters.Assign(std::move(actions));
  m_wordCommitted = true;
  LoadAction();
}

/// Makes the working action a copy of the selected one, or an empty one.
void ActionLists::LoadAction() {
  const WrdAct none;
  const bool selected = m_delimeters.Current() != nullptr;
  const WrdAct& action = selected ? **m_delimeters.Current() : none;
  m_delimeter = action.Delimeter;
  m_action = selected ? action.Action : WrdAct::Tooltip;
  m_tip = action.tipText;
  std::vector<ListEntry> entries;
  for (int place = 1; place <= action.NumberOfWords(); ++place)
    entries.push_back({action.WordList(place), action.IconList(place)});
  m_entries.Assign(std::move(entries));
  m_actionCommitted = true;
}

void ActionLists::EditAction() {
  m_actionCommitted = false;
  m_owner.MarkChanged();
}

ActionLists::ActionPointer ActionLists::MakeAction() const {
  auto action = std::make_shared<WrdAct>();
  action->Delimeter = m_delimeter;
  action->Action = m_action;
  action->tipText = m_tip;
  action->SetNumberOfWords(static_cast<std::int16_t>(m_entries.Count()));
  int place = 0;
  for (const ListEntry& entry : m_entries.All()) {
    action->SetWordList(++place, entry.Text);
    action->SetIconList(place, entry.Icon);
  }
  return action;
}

ActionLists::WordPointer ActionLists::MakeWord() const {
  auto word = std::make_shared<Word>();
  word->Name = m_name;
  for (const ActionPointer& action : m_delimeters.All()) action->AddTo(word->Actions);
  return word;
}

// Words.

void ActionLists::SetName(std::string name) {
  m_name = std::move(name);
  m_wordCommitted = false;
  m_owner.MarkChanged();
}

void ActionLists::CommitWord() {
  m_wordCommitted = true;
  m_owner.MarkChanged();
}

bool ActionLists::SelectWord(std::optional<std::size_t> row) {
  if (row == m_words.Selected()) return true;
  if (!row) {
    m_words.Select(row);
    return true;
  }
  if (!LeaveWord()) return false;
  m_words.Select(row);
  LoadWord();
  return true;
}

bool ActionLists::AddWord() {
  if (!LeaveAction() || !m_owner.Accepts(WhyNotActionWord(m_name))) return false;
  m_words.Add(MakeWord());
  m_words.Select(m_words.Count() - 1);
  CommitWord();
  return true;
}

bool ActionLists::ChangeWord() {
  if (!LeaveAction() || !m_owner.Accepts(WhyNotActionWord(m_name))) return false;
  m_words.ReplaceSelected(MakeWord());
  CommitWord();
  return true;
}

void ActionLists::RemoveWord() {
  m_words.RemoveSelected();
  CommitWord();
}

bool ActionLists::Clear() {
  if (!LeaveWord()) return false;
  m_words.Select(std::nullopt);
  LoadWord();
  EntryText.clear();
  Icon = FirstIcon;
  return true;
}

// Delimeters.

void ActionLists::SetDelimeter(std::string delimeter) {
  m_delimeter = std::move(delimeter);
  EditAction();
}

void ActionLists::SetAction(std::int16_t action) {
  m_action = action;
  EditAction();
}

void ActionLists::SetTip(std::string tip) {
  m_tip = std::move(tip);
  EditAction();
}

/// A word has one action for a delimeter, whatever its letter case; `replaced` is the row that the new one takes.
bool ActionLists::AcceptsDelimeter(std::optional<std::size_t> replaced) {
  std::string reason = WhyNotDelimeter(m_delimeter);
  const std::string key = rich_text::LowerCase(m_delimeter);
  for (std::size_t row = 0; row < m_delimeters.Count() && reason.empty(); ++row)
    if (row != replaced && rich_text::LowerCase(m_delimeters.All()[row]->Delimeter) == key)
      reason = "The word has an action for this delimiter already.";
  return m_owner.Accepts(reason);
}

void ActionLists::CommitAction() {
  m_actionCommitted = true;
  m_wordCommitted = false;
  m_owner.MarkChanged();
}

bool ActionLists::SelectDelimeter(std::optional<std::size_t> row) {
  if (row == m_delimeters.Selected()) return true;
  if (!row) {
    m_delimeters.Select(row);
    return true;
  }
  if (!LeaveAction()) return false;
  m_delimeters.Select(row);
  LoadAction();
  return true;
}

bool ActionLists::AddDelimeter() {
  if (!AcceptsDelimeter(std::nullopt)) return false;
  m_owner.RequireDelimeter(m_delimeter);
  m_delimeters.Add(MakeAction());
  m_delimeters.Select(m_delimeters.Count() - 1);
  CommitAction();
  return true;
}

bool ActionLists::ChangeDelimeter() {
  if (!AcceptsDelimeter(m_delimeters.Selected())) return false;
  m_owner.RequireDelimeter(m_delimeter);
  m_delimeters.ReplaceSelected(MakeAction());
  CommitAction();
  return true;
}

void ActionLists::RemoveDelimeter() {
  m_delimeters.RemoveSelected();
  CommitAction();
}

// List entries.

void ActionLists::SelectEntry(std::optional<std::size_t> row) {
  m_entries.Select(row);
  if (!m_entries.Current()) return;
  EntryText = m_entries.Current()->Text;
  Icon = m_entries.Current()->Icon;
}

void ActionLists::AddEntry() {
  if (!m_owner.Accepts(WhyNotListEntry(EntryText))) return;
  if (!m_owner.Accepts(m_entries.Count() == MostNumbered ? "A list has at most 32767 entries." : "")) return;
  m_entries.Add({EntryText, Icon});
  EditAction();
}

void ActionLists::ChangeEntry() {
  if (!m_owner.Accepts(WhyNotListEntry(EntryText))) return;
  m_entries.ReplaceSelected({EntryText, Icon});
  EditAction();
}

void ActionLists::RemoveEntry() {
  m_entries.RemoveSelected();
  EditAction();
}

}  // namespace template_editor
