#pragma once
// The keys of document windows that people know: Ctrl+Tab and Ctrl+Shift+Tab go from window to window, Ctrl+W and
// Ctrl+F4 close one. They belong to the frame: the toolkit's own, one set a window, cancel each other out.

class QMainWindow;
class QMdiArea;
class QMdiSubWindow;

namespace shell::ui {

void AddWindowKeys(QMainWindow& frame, QMdiArea& windows);

/// Takes the toolkit's own keys away from a child window.
void RemoveWindowKeys(QMdiSubWindow& window);

}  // namespace shell::ui
