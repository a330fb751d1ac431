#pragma once
// Access keys of menus where several entries have the same one: the toolkit goes from one to the next and stops for
// good at an entry that cannot be used now. Here the key goes among those that can be used, and runs the only one there
// is.

#include <QObject>

class QAction;
class QKeyEvent;
class QMenu;

namespace platform::qt {

class MenuKeys : public QObject {
 public:
  /// Watches the menu, to which it belongs.
  explicit MenuKeys(QMenu& menu);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Press(const QKeyEvent& key);

  QMenu& m_menu;
};

}  // namespace platform::qt
