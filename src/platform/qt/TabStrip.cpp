#include "platform/qt/TabStrip.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>

namespace platform::qt {
namespace {

constexpr int LongestTab = 220;  // pixels; a longer caption loses its middle
constexpr int ShortestTab = 72;

struct TabData {
  std::string Tool;
  std::uint64_t Key = 0;
};

}  // namespace
}  // namespace platform::qt

Q_DECLARE_METATYPE(platform::qt::TabData)

namespace platform::qt {

TabStrip::TabStrip(QWidget* parent) : QTabBar(parent) {
  setTabsClosable(true);
  setMovable(true);
  setDocumentMode(true);
  setDrawBase(false);
  setExpanding(false);
  setElideMode(Qt::ElideMiddle);
  setUsesScrollButtons(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setFocusPolicy(Qt::NoFocus);
  setAccessibleName(tr("Windows"));
  connect(this, &QTabBar::currentChanged, this, &TabStrip::CurrentChanged);
  connect(this, &QTabBar::tabBarClicked, this, [this](int index) {
    if (index >= 0 && index == currentIndex()) Q_EMIT Chosen(ToolAt(index));  // its window may be minimised
  });
  connect(this, &QTabBar::tabCloseRequested, this, [this](int index) { Q_EMIT CloseAsked(ToolAt(index)); });
}

std::string TabStrip::ToolAt(int index) const {
  return tabData(index).value<TabData>().Tool;
}

// The current tab gets another place, too, when tabs are dragged.
void TabStrip::CurrentChanged(int index) {
  const std::uint64_t key = tabData(index).value<TabData>().Key;
  if (std::exchange(m_current, key) != key && index >= 0) Q_EMIT Chosen(ToolAt(index));
}

int TabStrip::IndexOf(std::uint64_t key) const {
  for (int i = 0; i < count(); ++i)
    if (tabData(i).value<TabData>().Key == key) return i;
  return -1;
}

void TabStrip::SetTabs(const std::vector<Tab>& tabs) {
  const QSignalBlocker quiet(this);
  for (int i = count() - 1; i >= 0; --i) {
    const std::uint64_t key = tabData(i).value<TabData>().Key;
    if (std::none_of(tabs.begin(), tabs.end(), [&](const Tab& tab) { return tab.Key == key; })) removeTab(i);
  }
  for (const Tab& tab : tabs) {
    const int known = IndexOf(tab.Key);
    Show(known >= 0 ? known : addTab(QString()), tab);
  }
}

void TabStrip::Show(int index, const Tab& tab) {
  if (tabText(index) != tab.Caption) setTabText(index, tab.Caption);
  setTabToolTip(index, tab.Tip);
  setTabData(index, QVariant::fromValue(TabData{tab.Tool, tab.Key}));
  if (!tab.Current) return;
  m_current = tab.Key;
  setCurrentIndex(index);
}

// The strip takes what room there is, however many tabs there are.
QSize TabStrip::sizeHint() const {
  return {2 * LongestTab, QTabBar::sizeHint().height()};
}

QSize TabStrip::minimumSizeHint() const {
  return {ShortestTab, QTabBar::minimumSizeHint().height()};
}

QSize TabStrip::tabSizeHint(int index) const {
  const QSize size = QTabBar::tabSizeHint(index);
  return {std::clamp(size.width(), ShortestTab, LongestTab), size.height()};
}

QSize TabStrip::minimumTabSizeHint(int index) const {
  return tabSizeHint(index);
}

void TabStrip::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton)
    m_pressedByMiddle = tabAt(event->position().toPoint());
  else
    QTabBar::mousePressEvent(event);
}

void TabStrip::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::MiddleButton) return QTabBar::mouseReleaseEvent(event);
  const int index = tabAt(event->position().toPoint());
  if (index >= 0 && index == m_pressedByMiddle) Q_EMIT CloseAsked(ToolAt(index));
  m_pressedByMiddle = -1;
}

}  // namespace platform::qt
