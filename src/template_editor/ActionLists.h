#pragma once
// Action words, edited on three levels: a word, its delimeters with their actions, and the entries of an action's list.
//
// A working word and inside it a working action hold what the page shows. Nothing reaches the level above before it is
// added or changed there; two flags remember whether a working copy has such changes, and leaving one that has asks
// what is to become of them. Entries once committed are never modified, only replaced. All texts are UTF-8; rows are
// 0-based.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "template_editor/ListOwner.h"
#include "template_editor/Rows.h"
#include "templates/Model.h"

namespace template_editor {

/// One entry of a completion list. Icons are 1 to 7; any other number, which a file may have, is none.
struct ListEntry {
  std::string Text;
  std::int32_t Icon = 0;
};

class ActionLists {
 public:
  using WordPointer = std::shared_ptr<templates::Word>;
  using ActionPointer = std::shared_ptr<templates::WrdAct>;

  static constexpr std::int32_t FirstIcon = 1;

  /// The owner must outlive the lists.
  explicit ActionLists(ListOwner& owner) : m_owner(owner) {}

  /// The words of another template; nothing is selected, and both working copies are empty.
  void Take(std::vector<WordPointer> words);

  /// Makes ready for another use of the words, such as saving them: asks about changes that have not been committed,
  /// first of the action, then of the word. False when the user wants to stay with them.
  bool Leave() { return LeaveWord(); }

  bool WordCommitted() const { return m_wordCommitted; }
  bool ActionCommitted() const { return m_actionCommitted; }

  // Words. What selects, adds or changes gives false when the user stays with the changes before it, or when the entry
  // is refused. Changing and removing need a selected row; taking the selection away leaves the fields as they are.
  const Rows<WordPointer>& Words() const { return m_words; }
  const std::string& Name() const { return m_name; }
  void SetName(std::string name);
  bool SelectWord(std::optional<std::size_t> row);
  bool AddWord();
  bool ChangeWord();
  void RemoveWord();
  /// Empties both working copies for a new word.
  bool Clear();

  // The working word's delimeters with their actions.
  const Rows<ActionPointer>& Delimeters() const { return m_delimeters; }
  const std::string& Delimeter() const { return m_delimeter; }
  std::int16_t Action() const { return m_action; }
  const std::string& Tip() const { return m_tip; }
  void SetDelimeter(std::string delimeter);
  void SetAction(std::int16_t action);
  void SetTip(std::string tip);
  bool SelectDelimeter(std::optional<std::size_t> row);
  bool AddDelimeter();
  bool ChangeDelimeter();
  void RemoveDelimeter();

  // The working action's list.
  const Rows<ListEntry>& Entries() const { return m_entries; }
  std::string EntryText;          ///< the field of an entry's text
  std::int32_t Icon = FirstIcon;  ///< the chosen icon
  void SelectEntry(std::optional<std::size_t> row);
  void AddEntry();
  void ChangeEntry();
  void RemoveEntry();

 private:
  bool LeaveAction();
  bool LeaveWord();
  void LoadWord();
  void LoadAction();
  void EditAction();
  void CommitAction();
  void CommitWord();
  ActionPointer MakeAction() const;
  WordPointer MakeWord() const;
  bool AcceptsDelimeter(std::optional<std::size_t> replaced);

  ListOwner& m_owner;
  Rows<WordPointer> m_words;
  // The working word.
  std::string m_name;
  Rows<ActionPointer> m_delimeters;
  bool m_wordCommitted = true;
  // The working action.
  std::string m_delimeter;
  std::int16_t m_action = templates::WrdAct::Tooltip;
  std::string m_tip;
  Rows<ListEntry> m_entries;
  bool m_actionCommitted = true;
};

}  // namespace template_editor
