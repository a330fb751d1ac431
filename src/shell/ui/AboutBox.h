#pragma once
// What the program is: name, version, licence, and the versions of the libraries that it runs on.

#include <QDialog>

#include "platform/HelpViewer.h"

namespace shell::ui {

class AboutBox : public QDialog {
  Q_OBJECT

 public:
  /// The help shows the licence; it must outlive the box.
  AboutBox(platform::HelpViewer& help, QWidget* parent);
};

}  // namespace shell::ui
