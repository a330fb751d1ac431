#include "editor/UndoHistory.h"

#include <algorithm>
#include <utility>

namespace editor {
namespace {

using platform::TextChange;
using platform::TextControl;

constexpr int MergeMilliseconds = 500;
constexpr std::size_t FirstBlock = 64, LargestBlock = 64 * 1024;

/// The control's text before and after a change, read in pieces.
class TwoTexts {
 public:
  TwoTexts(const TextControl& control, const TextChange& change)
      : m_control(control),
        m_change(change),
        m_newLength(control.Length()),
        m_oldLength(m_newLength - change.Inserted + change.Removed.size()) {}

  std::size_t OldLength() const { return m_oldLength; }
  std::size_t NewLength() const { return m_newLength; }
  std::size_t Shorter() const { return std::min(m_oldLength, m_newLength); }

  std::string New(std::size_t start, std::size_t end) const { return m_control.TextRange(start, end); }
  std::string Old(std::size_t start, std::size_t end) const {
    const std::size_t removedStart = m_change.Start, removedEnd = removedStart + m_change.Removed.size();
    std::string text;
    if (start < removedStart) text = New(start, std::min(end, removedStart));
    const std::size_t from = std::max(start, removedStart), to = std::min(end, removedEnd);
    if (from < to) text.append(m_change.Removed, from - removedStart, to - from);
    const auto now = [&](std::size_t offset) { return offset - m_change.Removed.size() + m_change.Inserted; };
    if (end > removedEnd) text += New(now(std::max(start, removedEnd)), now(end));
    return text;
  }

  /// How many bytes from `start` on are equal, `limit` at most.
  std::size_t EqualFrom(std::size_t start, std::size_t limit) const {
    std::size_t equal = 0;
    for (std::size_t block = FirstBlock; equal < limit; block = std::min(block * 2, LargestBlock)) {
      const std::size_t from = start + equal, to = std::min(from + block, start + limit);
      const std::string before = Old(from, to), now = New(from, to);
      const auto differs = std::mismatch(before.begin(), before.end(), now.begin()).first;
      equal += static_cast<std::size_t>(differs - before.begin());
      if (differs != before.end()) break;
    }
    return equal;
  }

  /// How many bytes are equal before the last `tail` ones, `limit` at most.
  std::size_t EqualBefore(std::size_t tail, std::size_t limit) const {
    std::size_t equal = 0;
    for (std::size_t block = FirstBlock; equal < limit; block = std::min(block * 2, LargestBlock)) {
      const std::size_t from = tail + equal, to = std::min(from + block, tail + limit);
      const std::string before = Old(m_oldLength - to, m_oldLength - from);
      const std::string now = New(m_newLength - to, m_newLength - from);
      const auto differs = std::mismatch(before.rbegin(), before.rend(), now.rbegin()).first;
      equal += static_cast<std::size_t>(differs - before.rbegin());
      if (differs != before.rend()) break;
    }
    return equal;
  }

  /// Whether the places, one in each text, both stand between characters.
  bool BetweenCharacters(std::size_t oldPlace, std::size_t newPlace) const {
    const auto isInside = [&](std::size_t place, std::size_t length, auto text) {
      return place > 0 && place < length && rich_text::SplitsCharacter(text(place - 1, place + 1), 1);
    };
    return !isInside(oldPlace, m_oldLength, [this](auto from, auto to) { return Old(from, to); }) &&
           !isInside(newPlace, m_newLength, [this](auto from, auto to) { return New(from, to); });
  }

 private:
  const TextControl& m_control;
  const TextChange& m_change;
  std::size_t m_newLength, m_oldLength;
};

/// Makes `earlier` say what it and the change after it, which the control has just told, did together.
void Merge(TextChange& earlier, const TextChange& change, const TextControl& control) {
  const TwoTexts texts(control, change);
  const std::size_t earlierEnd = earlier.Start + earlier.Inserted, changeEnd = change.Start + change.Removed.size();
  const std::size_t from = std::min(earlier.Start, change.Start), to = std::max(earlierEnd, changeEnd);
  if (from < earlier.Start) earlier.Removed.insert(0, texts.Old(from, earlier.Start));
  if (to > earlierEnd) earlier.Removed += texts.Old(earlierEnd, to);
  earlier.Inserted = to - from - change.Removed.size() + change.Inserted;
  earlier.Start = from;
}

}  // namespace

std::optional<cUndoElement> FindChange(const TextControl& control, TextChange change) {
  const TwoTexts texts(control, change);
  const bool sameLength = texts.OldLength() == texts.NewLength();
  const std::size_t reach = sameLength ? change.Inserted : texts.Shorter() - change.Start;
  const std::size_t equal = texts.EqualFrom(change.Start, reach);
  if (sameLength && equal == reach) return std::nullopt;
  std::size_t start = change.Start + equal;
  while (!texts.BetweenCharacters(start, start)) --start;

  const std::size_t behind = texts.NewLength() - change.Start - change.Inserted, room = texts.Shorter() - start;
  std::size_t tail = room <= behind ? room : behind + texts.EqualBefore(behind, room - behind);
  while (!texts.BetweenCharacters(texts.OldLength() - tail, texts.NewLength() - tail)) --tail;

  const std::size_t oldEnd = texts.OldLength() - tail, newEnd = texts.NewLength() - tail;
  const bool isWhole = start == change.Start && oldEnd == start + change.Removed.size();
  return cUndoElement{start, newEnd - start, isWhole ? std::move(change.Removed) : texts.Old(start, oldEnd)};
}

UndoHistory::UndoHistory(TextControl& control, std::unique_ptr<platform::Timer> timer, DocumentState& state,
                         std::function<void()> stacksChanged)
    : m_control(control),
      m_tmrWait(std::move(timer)),
      m_state(state),
      m_stacksChanged(std::move(stacksChanged)),
      m_view(control) {
  m_tmrWait->ThatTime = [this] { tmrWait_ThatTime(); };
}

// Recording.

void UndoHistory::RecordChange(const TextChange& change) {
  if (m_state.Mode == UndoMode::Program) {
    // What was pending still holds, but can no longer be compared: the text that it was made in is gone.
    if (const auto pending = std::exchange(m_pending, std::nullopt))
      PushRecord({pending->Start, pending->Inserted, pending->Removed});
    ForgetSaved();
    return m_tmrWait->SetInterval(0);
  }
  if (m_pending)
    Merge(*m_pending, change, m_control);
  else
    m_pending = change;
  m_recordNow ? CommitPending() : m_tmrWait->SetInterval(MergeMilliseconds);
}

void UndoHistory::MarkSaved() {
  CommitPending();
  m_savedAt = m_undoStack.size();
}

void UndoHistory::tmrWait_ThatTime() {
  CommitPending();
}

void UndoHistory::CommitPending() {
  m_tmrWait->SetInterval(0);
  if (!m_pending) return;
  std::optional<cUndoElement> record = FindChange(m_control, std::move(*std::exchange(m_pending, std::nullopt)));
  if (record) PushRecord(std::move(*record));
}

void UndoHistory::PushRecord(cUndoElement record) {
  std::vector<cUndoElement>& stack = m_state.Mode == UndoMode::Undoing ? m_redoStack : m_undoStack;
  const bool isEdit = &stack == &m_undoStack && !m_redoing;
  if (isEdit && m_savedAt > stack.size()) ForgetSaved();  // what led there is gone
  stack.push_back(std::move(record));
  const bool emptiesRedo = isEdit && !m_redoStack.empty();
  if (emptiesRedo) m_redoStack.clear();
  if (emptiesRedo || stack.size() == 1) m_stacksChanged();
}

// Undo and redo.

void UndoHistory::Apply(std::vector<cUndoElement>& stack) {
  const cUndoElement record = std::move(stack.back());
  stack.pop_back();
  const SelectionHold hold(m_state);
  m_view.SaveView();
  m_recordNow = true;
  m_control.SetSelStart(record.iStart);
  m_control.SetSelLength(record.lLength);
  m_control.SetSelText(record.sText);
  m_recordNow = false;
  m_view.RestoreView();
}

void UndoHistory::Undo() {
  if (m_recordNow) return;
  CommitPending();
  if (m_undoStack.empty()) return;
  m_state.Mode = UndoMode::Undoing;
  Apply(m_undoStack);
  m_state.Mode = UndoMode::Normal;
  m_stacksChanged();
  m_control.SetFocus();
}

void UndoHistory::Redo() {
  if (m_recordNow) return;
  CommitPending();
  if (m_redoStack.empty()) return;
  m_redoing = true;
  Apply(m_redoStack);
  m_redoing = false;
  m_stacksChanged();
  m_control.SetFocus();
}

bool UndoHistory::TakesKey(int keyCode, int shift) {
  if (keyCode != 'Z' || shift != platform::Shift::Ctrl) return false;
  Undo();
  return true;
}

}  // namespace editor
