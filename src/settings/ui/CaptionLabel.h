#pragma once
// A label that is the caption of an option or a check box standing apart from it: it may wrap, and a click on it is a
// click on its button.

#include <QAbstractButton>
#include <QLabel>

namespace settings::ui {

class CaptionLabel : public QLabel {
  Q_OBJECT

 public:
  /// The button must outlive the label; it gets the text as its name for screen readers.
  CaptionLabel(const QString& text, QAbstractButton& button, QWidget* parent);

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QAbstractButton& m_button;
};

}  // namespace settings::ui
