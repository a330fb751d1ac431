#pragma once
// The child windows inside the frame: made, listed, brought to the front, arranged and closed.

#include <QMdiArea>
#include <cstdint>
#include <vector>

#include "shell/ChildWindow.h"

namespace shell::ui {

class FrameWindows : public QMdiArea {
  Q_OBJECT

 public:
  explicit FrameWindows(QWidget* parent);

  /// Shows a widget that is a ChildWindow in a window of its own: maximised if it is the first, else in the state of
  /// the active one. The window closes and goes with the widget.
  void Add(QWidget* child);

  /// The child windows in the order in which they were opened.
  std::vector<ChildWindow*> Windows() const;
  /// The same, for the lists of windows.
  std::vector<const ChildWindow*> Listed() const;
  /// The one in front, null when there is none.
  ChildWindow* Active() const;

  /// By the WindowKey; a window that has gone meanwhile is passed over.
  void Activate(std::uint64_t key);
  void Close(std::uint64_t key);
  /// Closes one after another until one of them wants to stay; true when all have gone.
  bool CloseAll();

  /// One below the other, side by side, or overlapping; windows shown as icons stay below. Icons stand in rows from the
  /// lower left corner.
  void TileHorizontally();
  void TileVertically();
  void Cascade();
  void ArrangeMinimised();

 private:
  QList<QMdiSubWindow*> Arrangeable() const;
  QSize TileArea() const;
  QMdiSubWindow* WindowOf(std::uint64_t key) const;
};

/// The child that a window shows, null for none.
ChildWindow* ChildIn(const QMdiSubWindow* window);

}  // namespace shell::ui
