#pragma once
// A strip of tabs, one a tool. The user closes a tab with its button or the middle mouse button, and drags tabs into
// another order, which is the strip's alone: it changes no tool.

#include <QTabBar>
#include <string>
#include <vector>

namespace platform::qt {

/// What a tab shows. Key says which tab it is when names and numbers change.
struct Tab {
  std::string Tool;
  std::uint64_t Key = 0;
  QString Caption;
  QString Tip;
  bool Current = false;
};

class TabStrip : public QTabBar {
  Q_OBJECT

 public:
  explicit TabStrip(QWidget* parent = nullptr);

  /// Shows these tabs: those that stay keep their place, new ones come last.
  void SetTabs(const std::vector<Tab>& tabs);

  /// The tool of a tab (0-based), "" for none.
  std::string ToolAt(int index) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void Chosen(const std::string& tool);
  void CloseAsked(const std::string& tool);

 protected:
  QSize tabSizeHint(int index) const override;
  QSize minimumTabSizeHint(int index) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void CurrentChanged(int index);
  int IndexOf(std::uint64_t key) const;
  void Show(int index, const Tab& tab);

  std::uint64_t m_current = 0;  ///< the key of the tab in front
  int m_pressedByMiddle = -1;
};

}  // namespace platform::qt
