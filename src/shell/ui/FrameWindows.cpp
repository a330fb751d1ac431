#include "shell/ui/FrameWindows.h"

#include <QMdiSubWindow>
#include <QPointer>
#include <QStyle>
#include <algorithm>

#include "shell/WindowList.h"
#include "shell/WindowTiles.h"
#include "shell/ui/WindowKeys.h"

namespace shell::ui {
namespace {

constexpr QSize FirstSize(720, 480);

QList<QMdiSubWindow*> Minimised(const QMdiArea& area) {
  QList<QMdiSubWindow*> windows = area.subWindowList();
  windows.removeIf([](const QMdiSubWindow* window) { return !window->isMinimized(); });
  return windows;
}

void Place(const QList<QMdiSubWindow*>& windows, const std::vector<Tile>& tiles) {
  for (qsizetype i = 0; i < windows.size(); ++i) {
    const Tile& tile = tiles[static_cast<std::size_t>(i)];
    if (windows[i]->isMaximized()) windows[i]->showNormal();
    windows[i]->setGeometry(tile.Left, tile.Top, tile.Width, tile.Height);
  }
}

}  // namespace

ChildWindow* ChildIn(const QMdiSubWindow* window) {
  return window ? dynamic_cast<ChildWindow*>(window->widget()) : nullptr;
}

FrameWindows::FrameWindows(QWidget* parent) : QMdiArea(parent) {
  setObjectName(QStringLiteral("Windows"));
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void FrameWindows::Add(QWidget* child) {
  const QMdiSubWindow* active = currentSubWindow();
  const bool maximised = !active || active->isMaximized(), minimised = active && active->isMinimized();
  QMdiSubWindow* window = addSubWindow(child);
  window->setAttribute(Qt::WA_DeleteOnClose);
  RemoveWindowKeys(*window);
  window->setWindowIcon(this->window()->windowIcon());
  window->resize(FirstSize.boundedTo(viewport()->size().expandedTo(window->minimumSizeHint())));
  if (maximised)
    window->showMaximized();
  else if (minimised)
    window->showMinimized();
  else
    window->show();
}

std::vector<ChildWindow*> FrameWindows::Windows() const {
  std::vector<ChildWindow*> windows;
  for (const QMdiSubWindow* window : subWindowList(CreationOrder))
    if (ChildWindow* child = ChildIn(window)) windows.push_back(child);
  return windows;
}

std::vector<const ChildWindow*> FrameWindows::Listed() const {
  const std::vector<ChildWindow*> windows = Windows();
  return {windows.begin(), windows.end()};
}

ChildWindow* FrameWindows::Active() const {
  return ChildIn(currentSubWindow());
}

QMdiSubWindow* FrameWindows::WindowOf(std::uint64_t key) const {
  for (QMdiSubWindow* window : subWindowList(CreationOrder))
    if (const ChildWindow* child = ChildIn(window); child && WindowKey(*child) == key) return window;
  return nullptr;
}

void FrameWindows::Activate(std::uint64_t key) {
  QMdiSubWindow* window = WindowOf(key);
  if (!window) return;
  if (window->isMinimized()) window->showNormal();
  setActiveSubWindow(window);
}

void FrameWindows::Close(std::uint64_t key) {
  if (QMdiSubWindow* window = WindowOf(key)) window->close();
}

// The question of one window lets events run, in which another may go.
bool FrameWindows::CloseAll() {
  QList<QPointer<QMdiSubWindow>> windows;
  for (QMdiSubWindow* window : subWindowList(CreationOrder)) windows.append(window);
  for (const QPointer<QMdiSubWindow>& window : windows)
    if (window && !window->close()) return false;
  return true;
}

// Arranging. The window in front gets the first place.

QList<QMdiSubWindow*> FrameWindows::Arrangeable() const {
  QList<QMdiSubWindow*> windows = subWindowList(StackingOrder);
  windows.removeIf([](const QMdiSubWindow* window) { return window->isMinimized(); });
  std::reverse(windows.begin(), windows.end());
  return windows;
}

QSize FrameWindows::TileArea() const {
  QSize size = viewport()->size();
  if (const QList<QMdiSubWindow*> icons = Minimised(*this); !icons.isEmpty())
    size.rheight() = std::max(1, size.height() - icons.first()->height());
  return size;
}

void FrameWindows::TileHorizontally() {
  const QList<QMdiSubWindow*> windows = Arrangeable();
  const QSize area = TileArea();
  Place(windows, shell::TileHorizontally(static_cast<std::size_t>(windows.size()), area.width(), area.height()));
  ArrangeMinimised();
}

void FrameWindows::TileVertically() {
  const QList<QMdiSubWindow*> windows = Arrangeable();
  const QSize area = TileArea();
  Place(windows, shell::TileVertically(static_cast<std::size_t>(windows.size()), area.width(), area.height()));
  ArrangeMinimised();
}

void FrameWindows::Cascade() {
  const QList<QMdiSubWindow*> windows = Arrangeable();
  if (windows.isEmpty()) return;
  const QSize area = TileArea();
  const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, windows.first());
  std::vector<Tile> tiles =
      shell::Cascade(static_cast<std::size_t>(windows.size()), title, area.width(), area.height());
  std::reverse(tiles.begin(), tiles.end());  // the window in front covers the others, but for their titles
  Place(windows, tiles);
  ArrangeMinimised();
}

void FrameWindows::ArrangeMinimised() {
  const QList<QMdiSubWindow*> windows = Minimised(*this);
  if (windows.isEmpty()) return;
  const QSize icon = windows.first()->size();
  Place(windows, ArrangeIcons(static_cast<std::size_t>(windows.size()), icon.width(), icon.height(),
                              viewport()->width(), viewport()->height()));
}

}  // namespace shell::ui
