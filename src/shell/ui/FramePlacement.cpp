#include "shell/ui/FramePlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <cmath>

#include "platform/Twips.h"

namespace shell::ui {
namespace {

using platform::TwipsX, platform::TwipsY;

constexpr QSize Smallest(240, 160);

/// Pixels, whatever a file says: no number that a screen could not have.
int Pixels(float twips) {
  return std::isfinite(twips) ? static_cast<int>(std::lround(std::clamp(twips / TwipsX, -1e5F, 1e5F))) : 0;
}

/// The screen that shows most of the rectangle, the main one when none shows any.
QScreen* ScreenOf(const QRect& rectangle) {
  QScreen* best = QGuiApplication::primaryScreen();
  int most = 0;
  for (QScreen* screen : QGuiApplication::screens()) {
    const QRect part = screen->availableGeometry().intersected(rectangle);
    if (part.width() * part.height() <= most) continue;
    most = part.width() * part.height();
    best = screen;
  }
  return best;
}

}  // namespace

void ApplyPlace(QWidget& window, const settings::FramePlace& place) {
  QRect wanted(Pixels(place.Left), Pixels(place.Top), Pixels(place.Width), Pixels(place.Height));
  const QRect screen = ScreenOf(wanted)->availableGeometry();
  wanted.setSize(wanted.size().boundedTo(screen.size()).expandedTo(Smallest));
  wanted.moveLeft(std::clamp(wanted.left(), screen.left(), std::max(screen.left(), screen.right() - wanted.width())));
  wanted.moveTop(std::clamp(wanted.top(), screen.top(), std::max(screen.top(), screen.bottom() - wanted.height())));
  window.resize(wanted.size());
  window.move(wanted.topLeft());
}

void ShowInState(QWidget& window, settings::WindowState state) {
  if (state == settings::WindowState::Maximised)
    window.showMaximized();
  else if (state == settings::WindowState::Minimised)
    window.showMinimized();
  else
    window.show();
}

void RememberPlace(const QWidget& window, settings::FramePlace& place) {
  place.State = window.isMinimized()   ? settings::WindowState::Minimised
                : window.isMaximized() ? settings::WindowState::Maximised
                                       : settings::WindowState::Normal;
  if (place.State != settings::WindowState::Normal || window.isFullScreen()) return;
  place.Left = static_cast<float>(window.x()) * TwipsX;
  place.Top = static_cast<float>(window.y()) * TwipsY;
  place.Width = static_cast<float>(window.width()) * TwipsX;
  place.Height = static_cast<float>(window.height()) * TwipsY;
}

settings::ScreenSize MainScreen() {
  const QSize size = QGuiApplication::primaryScreen()->availableSize();
  return {static_cast<float>(size.width()) * TwipsX, static_cast<float>(size.height()) * TwipsY};
}

}  // namespace shell::ui
