#include "aids/FindDialog.h"

#include <utility>

namespace aids {
namespace {

enum DirectionEntry { All, Up, Down };

}  // namespace

void FindDialog::SetParentForm(SearchedDocument* document) {
  if (std::exchange(m_parentForm, document) != document) FindWordEdited();
}

void FindDialog::ShowFind() {
  m_replaceMode = false;
}

void FindDialog::ShowReplace() {
  m_replaceMode = true;
  m_canReplace = false;
}

FindFields FindDialog::Remembered(FindFields fields) const {
  if (!m_parentForm) return fields;
  const DocumentSearch& search = m_parentForm->Search();
  fields.FindWord = search.PreviousFindWord;
  fields.MatchCase = search.PreviousCaseSense;
  fields.WholeWord = search.PreviousWholeWord;
  const std::int32_t direction = search.PreviousDirection;
  fields.DirectionIndex = direction == Direction::Up ? Up : direction == Direction::Down ? Down : All;
  return fields;
}

void FindDialog::FindWordEdited() {
  OptionClicked();
  m_canReplace = false;
}

void FindDialog::OptionClicked() {
  m_lastFoundAll = m_startedAgain = false;
}

std::int32_t FindDialog::DirectionCode(int index) {
  const bool goesOn = m_lastFoundAll;
  m_lastFoundAll = index == All;
  if (index == Up) return Direction::Up;
  return index == Down || goesOn ? Direction::Down : Direction::FromTop;
}

FindDialog::Outcome FindDialog::Find(const FindFields& fields) {
  if (!m_parentForm) return Outcome::Nothing;
  if (fields.FindWord.empty()) return Outcome::NoWord;
  DocumentSearch& search = m_parentForm->Search();
  while (true) {
    const std::int32_t direction = DirectionCode(fields.DirectionIndex);
    if (search.Find(fields.FindWord, direction, fields.MatchCase, fields.WholeWord) != DocumentSearch::NotFound) {
      m_canReplace = true;
      return Outcome::Found;
    }
    m_canReplace = false;
    if (!search.OffersToWrap(m_prompts, fields.FindWord, direction, m_startedAgain)) return Outcome::NotFound;
  }
}

FindDialog::Outcome FindDialog::Replace(const FindFields& fields) {
  if (!m_replaceMode) {
    ShowReplace();
    return Outcome::SwitchedMode;
  }
  if (!m_parentForm || !m_canReplace || !m_parentForm->MayEdit()) return Outcome::Nothing;
  m_parentForm->ReplaceSelection(fields.ReplaceWord);
  return Find(fields);
}

void FindDialog::ReplaceAll(const FindFields& fields) {
  if (!m_parentForm || !m_parentForm->MayEdit()) return;
  const std::size_t count =
      m_parentForm->ReplaceAll(fields.FindWord, fields.ReplaceWord, fields.MatchCase, fields.WholeWord);
  m_prompts.Show(
      {.Text = "Replace Complete.  " + std::to_string(count) + " replacement" + (count == 1 ? "" : "s") + " were made.",
       .Title = "Replace",
       .Icon = platform::PromptIcon::Information});
}

int TopOffCaret(const DialogPlace& dialog, int caretX, int caretY, int lineHeight, int screenHeight) {
  const bool covers =
      dialog.Top < caretY + lineHeight && dialog.Left < caretX && caretX < dialog.Right && caretY < dialog.Bottom;
  if (!covers) return dialog.Top;
  const int above = caretY - lineHeight - (dialog.Bottom - dialog.Top);
  if (dialog.Top < screenHeight / 2 && above >= 0) return above;
  return caretY + 2 * lineHeight;
}

}  // namespace aids
