#pragma once
// The frame's status bar: the panels CoOrds, DocSize and Template, then CAPS, NUM and INS; or one simple text over the
// whole bar. The Template panel is a button. A panel grows with its text and never shrinks, so that nothing jumps.

#include <QStatusBar>

#include "platform/StatusPanels.h"

class QLabel;
class QStackedWidget;
class QToolButton;

namespace platform::qt {

class StatusBar final : public QStatusBar, public StatusPanels {
  Q_OBJECT

 public:
  explicit StatusBar(QWidget* parent = nullptr);

  void SetPanelText(std::string_view key, std::string_view text) override;
  void SetStyle(StatusStyle style) override;
  void SetSimpleText(std::string_view text) override;
  void SetOverwrite(bool overwrite) override;

  /// The CAPS and NUM panels; the bar itself follows the keyboard where the platform tells its state with the keys.
  void SetKeyboardLocks(bool caps, bool num);

 Q_SIGNALS:
  /// The Template panel was clicked, or pressed by key.
  void TemplateClicked();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLabel* AddLabel(QWidget& row, const char* name, const QString& text);
  QLabel* AddIndicator(const char* name, const QString& text);
  void AddTemplateButton(QWidget& row);

  QStackedWidget* m_pages;
  QLabel* m_simple;
  QLabel *m_coOrds, *m_docSize, *m_caps, *m_num, *m_ins;
  QToolButton* m_template;
};

}  // namespace platform::qt
