#pragma once
// The tooltip: one line of hint, as a call's parameter list, in a window under the word that it is about. It takes no
// part in the keyboard; its rules stand in aids::Popups. A hint wider than the screen is broken into several lines.

#include <QLabel>
#include <array>

#include "aids/ui/PopupFrame.h"

namespace aids::ui {

class frmToolTip final : public PopupFrame, public TipWindow {
  Q_OBJECT

 public:
  /// `frame` is the window that the tooltip belongs to and never takes the keyboard from.
  explicit frmToolTip(QWidget* frame);

  PopupOwner* OwnerWin() const override { return Owner(); }
  void SetOwnerWin(PopupOwner* owner) override { Serve(owner); }
  void Unload() override { PutAway(); }
  void ShowAt(std::size_t start, std::size_t end, const std::string& text) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  Box BoxAt(const CaretPoint& caret) const override;
  void FitTo(int available) override;

 private:
  void SetColours();

  QLabel* tipText;
  std::array<QFrame*, 4> m_lines{};  ///< left, top, right, bottom: Line1 to Line4
  std::size_t m_start = 0, m_end = 0;
};

}  // namespace aids::ui
