#pragma once
// One document's completion list and tooltip: when they open, what the keys do meanwhile, when they close. The windows
// are shared by all documents; a pop-up is this document's while this document is its owner.
//
// Offsets are bytes. Control, state and windows outlive this; a pop-up that is still shown then is taken off the
// screen. A request without an action, or whose word is no longer before the caret, opens nothing.

#include <functional>
#include <optional>

#include "aids/ListRules.h"
#include "aids/PopupWindows.h"
#include "aids/TipRules.h"
#include "editor/DocumentState.h"
#include "editor/PopupHost.h"

namespace aids {

class Popups final : public editor::PopupHost, public PopupOwner {
 public:
  /// `textEdited` hears that a chosen word was written into the text.
  Popups(platform::TextControl& control, editor::DocumentState& state, ListWindow& list, TipWindow& tip,
         std::function<void()> textEdited);
  ~Popups() override;
  Popups(const Popups&) = delete;
  Popups& operator=(const Popups&) = delete;

  bool PopupListShown() const override { return m_listWindow.OwnerWin() == this; }
  bool ToolTipShown() const override { return m_tipWindow.OwnerWin() == this; }
  void WriteIt() override;
  bool KeyDown(int keyCode, int shift) override;
  bool KeyUp(int keyCode, int shift) override;
  void CloseToolTip() override;
  void CloseAll() override;

  /// Closes what no longer fits the text, as after a click into it.
  void CloseOutdated();

  platform::TextControl& TextArea() override { return m_control; }
  void RowDoubleClicked() override { WriteIt(); }

 private:
  /// Where the word and delimiter that ask for a pop-up stand.
  struct Trigger {
    std::size_t Start = 0, End = 0;
    std::string Word;  ///< as the template, or the synonym, has it
  };
  std::optional<Trigger> FindTrigger() const;
  std::shared_ptr<const templates::WrdAct> PendingAction() const;
  void OpenList(const templates::WrdAct& act, const Trigger& trigger);
  void OpenTip(const templates::WrdAct& act, const Trigger& trigger);
  bool OpenPending();
  void NarrowList();
  bool SelectByKey(int keyCode);
  void CloseList();
  ListPlace Place() const { return {m_contextListTextStart, m_control.SelStart()}; }

  platform::TextControl& m_control;
  editor::DocumentState& m_state;
  ListWindow& m_listWindow;
  TipWindow& m_tipWindow;
  std::function<void()> m_textEdited;

  std::vector<std::string> m_listWords;  ///< in row order
  ListWords m_foldedWords;
  std::size_t m_contextListTextStart = 0;
  ShownTip m_tip;
};

}  // namespace aids
