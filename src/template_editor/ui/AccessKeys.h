#pragma once
// Alt and a letter inside one window of the frame. The window's own controls come before the menus of the same letter;
// of several controls with one letter, that in the innermost group around the focus comes first, and when it has the
// focus already, the next one. A label hands the focus to its buddy, a button is pressed.

#include <QWidget>

namespace template_editor::ui {

class AccessKeys : public QObject {
  Q_OBJECT

 public:
  /// For a window whose controls have all been made.
  explicit AccessKeys(QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* TargetOf(const QKeySequence& key) const;

  QWidget& m_window;
};

}  // namespace template_editor::ui
