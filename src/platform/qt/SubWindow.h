#pragma once
// The window inside the frame that holds a widget.

class QMdiSubWindow;
class QWidget;

namespace platform::qt {

/// Null while the widget is in none.
QMdiSubWindow* SubWindowOf(const QWidget& widget);

/// Whether the widget's window is the one in front of the others.
bool IsInFront(const QWidget& widget);

/// Closes the widget's window as soon as pending events have run.
void CloseSoon(const QWidget& widget);

}  // namespace platform::qt
