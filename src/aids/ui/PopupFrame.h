#pragma once
// What the completion list and the tooltip have in common: a frameless window above all others that never takes the
// keyboard, belongs to one text area for a while, and stands at a place of its text.
//
// The window remembers the offset under which it was shown and finds its place again when the text scrolls or the
// frame moves. It is hidden while its place is out of sight or the application is not active, and shown again later;
// its owner stays the same meanwhile. At the bottom edge of the caret's screen it flips above the caret's line, at the
// right edge it moves left.

#include <QPointer>
#include <QWidget>

#include "aids/PopupPlace.h"
#include "aids/PopupWindows.h"
#include "platform/qt/RichTextBox.h"

namespace aids::ui {

/// The colour at `part` of the way from one to the other.
QColor Mixed(const QColor& from, const QColor& to, double part);

class PopupFrame : public QWidget {
  Q_OBJECT

 public:
  explicit PopupFrame(QWidget* frame);

  /// Hides the window while the application is not active.
  void SetSuspended(bool suspended);
  /// Makes room for another window whenever that is shown; it must outlive this.
  void KeepClearOf(PopupFrame& other);
  /// Moves the window to its place, or hides it when its place is out of sight.
  void Place();

 protected:
  /// Takes the owner's text area into use, and with it the name and size of its font; null for no owner.
  void Serve(PopupOwner* owner);
  PopupOwner* Owner() const { return m_owner; }
  void ShowUnder(std::size_t offset);
  /// Takes the window off the screen and forgets its owner.
  void PutAway();

  /// Where the window goes with its place at `caret`.
  virtual Box BoxAt(const CaretPoint& caret) const = 0;
  /// The window's size is about to be used: the screen is `available` pixels wide.
  virtual void FitTo(int available) = 0;
  /// The owner's text area; null while there is no owner, or when it has gone.
  platform::qt::RichTextBox* Text() const { return m_text; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  PopupOwner* m_owner = nullptr;
  QPointer<platform::qt::RichTextBox> m_text;
  PopupFrame* m_above = nullptr;  ///< the window that this one keeps clear of
  std::size_t m_offset = 0;
  bool m_shown = false;
  bool m_suspended = false;
};

}  // namespace aids::ui
