#include "aids/Popups.h"

#include <algorithm>
#include <utility>

#include "aids/TextAround.h"
#include "editor/ColourPass.h"
#include "rich_text/Encoding.h"

namespace aids {
namespace {

constexpr int Escape = 27, PageUp = 33, PageDown = 34, Up = 38, Down = 40;

/// How far behind the delimiter the caret may have come, in bytes, before the key is released.
constexpr std::size_t TypedAhead = 256;

bool IsListKey(int keyCode) {
  return keyCode == PageUp || keyCode == PageDown || keyCode == Up || keyCode == Down;
}

/// The offset `count` characters before `at`, or the text's start.
std::size_t BackBy(std::size_t count, std::string_view text, std::size_t at) {
  for (; count > 0 && at > 0; --count) do
      --at;
    while (at > 0 && rich_text::ContinuesCharacter(text[at]));
  return at;
}

/// Where the last delimiter stands that the word stands before.
std::size_t LastOf(const templates::TemplateFields& fields, std::string_view word, std::string_view delimeter,
                   std::string_view text) {
  const std::string folded = editor::CaseFold(fields, word);
  const std::size_t length = rich_text::CharacterCount(word);
  std::size_t at = text.rfind(delimeter);
  while (at != std::string::npos) {
    const std::size_t start = BackBy(length, text, at);
    if (editor::CaseFold(fields, text.substr(start, at - start)) == folded) break;
    at = at == 0 ? std::string::npos : text.rfind(delimeter, at - 1);
  }
  return at;
}

}  // namespace

Popups::Popups(platform::TextControl& control, editor::DocumentState& state, ListWindow& list, TipWindow& tip,
               std::function<void()> textEdited)
    : m_control(control), m_state(state), m_listWindow(list), m_tipWindow(tip), m_textEdited(std::move(textEdited)) {}

Popups::~Popups() {
  CloseAll();
}

// Opening.

std::shared_ptr<const templates::WrdAct> Popups::PendingAction() const {
  std::string delimeter;
  rich_text::AppendUtf8(delimeter, m_state.ActionDelimeter);
  return m_state.ActionWord ? m_state.ActionWord->Actions.Find(delimeter) : nullptr;
}

/// A fast typist is further on when the delimiter's key goes up, so the word is looked for a little back.
std::optional<Popups::Trigger> Popups::FindTrigger() const {
  std::string delimeter;
  rich_text::AppendUtf8(delimeter, m_state.ActionDelimeter);
  const templates::TemplateFields& fields = m_state.Template;
  const std::string name = editor::CaseFold(fields, m_state.ActionWord->Name);
  const std::size_t caret = m_control.SelStart();

  std::optional<Trigger> found;
  const auto look = [&](const std::string& word) {
    const std::size_t reach =
        rich_text::LongestCharacter * rich_text::CharacterCount(word) + delimeter.size() + TypedAhead;
    const std::string piece = m_control.TextRange(caret - std::min(caret, reach), caret);
    const std::string_view before = rich_text::FromWholeCharacter(piece);
    const std::size_t at = LastOf(fields, word, delimeter, before);
    if (at == std::string::npos) return;
    const std::size_t end = caret - before.size() + at + delimeter.size();
    const std::size_t start = caret - before.size() + BackBy(rich_text::CharacterCount(word), before, at);
    if (!found || end > found->End) found = {start, end, word};
  };
  look(m_state.ActionWord->Name);
  for (const auto& synonym : fields.Synonyms)
    if (editor::CaseFold(fields, synonym->Synonym) == name) look(synonym->Word);
  return found;
}

void Popups::OpenList(const templates::WrdAct& act, const Trigger& trigger) {
  if (!ListStillValid(m_control, m_state.Template, {trigger.End, m_control.SelStart()})) return;
  m_listWindow.SetOwnerWin(this);
  std::vector<std::int32_t> icons;
  act.FillWordList(m_listWords);
  act.FillIconList(icons);
  m_listWindow.Populate(m_listWords, icons, static_cast<std::int16_t>(m_listWords.size()));
  m_foldedWords = ListWords(m_listWords, m_state.Template.CaseSensitive);
  m_contextListTextStart = trigger.End;
  m_listWindow.ShowAt(trigger.End);
  if (m_control.SelStart() > trigger.End) NarrowList();
}

void Popups::OpenTip(const templates::WrdAct& act, const Trigger& trigger) {
  m_tipWindow.SetOwnerWin(this);
  m_tip = {act.tipText, trigger.Word, trigger.Start, CountDelimeters(m_state.Template, act.tipText)};
  m_tipWindow.ShowAt(trigger.Start, trigger.End, act.tipText);
}

/// True when a pop-up was asked for.
bool Popups::OpenPending() {
  const bool list = std::exchange(m_state.ListPending, false), tip = std::exchange(m_state.TipPending, false);
  if (!list && !tip) return false;
  const auto act = PendingAction();
  const std::optional<Trigger> trigger = act ? FindTrigger() : std::nullopt;
  if (!trigger) return true;
  if (act->Action == templates::WrdAct::Tooltip) OpenTip(*act, *trigger);
  if (act->Action == templates::WrdAct::List) OpenList(*act, *trigger);
  return true;
}

// Keys.

bool Popups::KeyDown(int keyCode, int shift) {
  if (keyCode == Escape && shift == platform::Shift::None) CloseAll();
  return IsListKey(keyCode) && PopupListShown() && SelectByKey(keyCode);
}

bool Popups::SelectByKey(int keyCode) {
  const int selected = m_listWindow.SelectedRow(), rows = m_listWindow.RowCount();
  const float height = m_listWindow.ListHeight(), rowHeight = m_listWindow.RowHeight();
  int row = 0;
  if (keyCode == Down)
    row = selected == 0 ? 1 : selected + 1;
  else if (keyCode == Up)
    row = selected == 0 ? 1 : selected - 1;
  else
    row = keyCode == PageDown ? PageDownRow(selected, rows, height, rowHeight)
                              : PageUpRow(selected, rows, height, rowHeight);
  const bool isPage = keyCode == PageDown || keyCode == PageUp;
  if (row < 1 || row > rows) return isPage;
  m_listWindow.SelectRow(row);
  return true;
}

bool Popups::KeyUp(int keyCode, int) {
  if (IsListKey(keyCode) && PopupListShown()) return true;
  if (OpenPending()) return false;
  if (PopupListShown()) {
    NarrowList();
  } else if (ToolTipShown() && !TipStillValid(m_control, m_state.Template, m_tip, m_control.SelStart())) {
    CloseToolTip();
  }
  return false;
}

void Popups::NarrowList() {
  const ListPlace place = Place();
  if (!ListStillValid(m_control, m_state.Template, place)) return CloseList();
  const std::string prefix =
      ListPrefix(m_control, m_state.Template, place.ContextListTextStart, m_foldedWords.LongestWord());
  const int row = m_foldedWords.FindListMatch(prefix);
  row < 1 ? m_listWindow.SelectRow(0) : m_listWindow.SelectTopRow(row);
}

void Popups::WriteIt() {
  if (!PopupListShown()) return;
  const int row = m_listWindow.SelectedRow();
  const ReplacedRange range = RangeToReplace(m_control, m_state.Template, Place());
  if (row < 1 || range.End < range.Start) return CloseList();
  const std::string word = m_listWords[static_cast<std::size_t>(row) - 1];
  CloseList();
  {
    const editor::SelectionHold hold(m_state);
    m_state.DontChange = true;
    m_control.SetSelStart(range.Start);
    m_control.SetSelLength(range.End - range.Start);
    m_control.SetSelText(word);
    m_state.DontChange = false;
  }
  m_textEdited();
}

// Closing.

void Popups::CloseOutdated() {
  if (PopupListShown() && !ListStillValid(m_control, m_state.Template, Place())) CloseList();
  if (ToolTipShown() && !TipStillValid(m_control, m_state.Template, m_tip, m_control.SelStart())) CloseToolTip();
}

void Popups::CloseList() {
  if (PopupListShown()) m_listWindow.Unload();
}

void Popups::CloseToolTip() {
  if (ToolTipShown()) m_tipWindow.Unload();
}

void Popups::CloseAll() {
  CloseList();
  CloseToolTip();
}

}  // namespace aids
