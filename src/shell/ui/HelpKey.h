#pragma once
// F1 in every window: opens the help page of the window, or of the page in it, that has the keyboard. Where F1 is a
// command of its own, as in the frame with its documents, the key goes its way.

#include <QObject>

#include "platform/HelpViewer.h"

class QWidget;

namespace shell::ui {

class HelpKey : public QObject {
  Q_OBJECT

 public:
  /// Watches the application's keys until it is deleted. The help must outlive it.
  explicit HelpKey(platform::HelpViewer& help);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  platform::HelpViewer& m_help;
};

}  // namespace shell::ui
