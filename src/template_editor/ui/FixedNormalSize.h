#pragma once
// A window inside the frame that can be maximised and minimised but not dragged larger or smaller: in its normal state
// it has the size of its contents.

#include <QMdiSubWindow>

namespace template_editor::ui {

class FixedNormalSize : public QObject {
  Q_OBJECT

 public:
  /// Watches the window as long as it lives.
  explicit FixedNormalSize(QMdiSubWindow& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Apply();

  QMdiSubWindow& m_window;
};

}  // namespace template_editor::ui
