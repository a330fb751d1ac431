#include "aids/ui/PopupFrame.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QScrollBar>
#include <cmath>

#include "platform/Twips.h"

namespace aids::ui {
namespace {

using platform::TwipsX, platform::TwipsY;

int Pixels(float twips) {
  return static_cast<int>(std::lround(twips / TwipsX));
}

Box InTwips(const QRect& rectangle) {
  return {TwipsX * static_cast<float>(rectangle.x()), TwipsY * static_cast<float>(rectangle.y()),
          TwipsX * static_cast<float>(rectangle.width()), TwipsY * static_cast<float>(rectangle.height())};
}

}  // namespace

QColor Mixed(const QColor& from, const QColor& to, double part) {
  const auto mix = [&](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * part)); };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

PopupFrame::PopupFrame(QWidget* frame)
    : QWidget(frame, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFocusPolicy(Qt::NoFocus);
}

void PopupFrame::Serve(PopupOwner* owner) {
  m_owner = owner;
  auto* text = owner ? &dynamic_cast<platform::qt::RichTextBox&>(owner->TextArea()) : nullptr;
  if (m_text == text) return;
  if (m_text) disconnect(m_text->verticalScrollBar(), nullptr, this, nullptr);
  if (m_text) disconnect(m_text->horizontalScrollBar(), nullptr, this, nullptr);
  m_text = text;
  if (!text) return;
  for (const QScrollBar* bar : {text->verticalScrollBar(), text->horizontalScrollBar()})
    connect(bar, &QScrollBar::valueChanged, this, &PopupFrame::Place);
  QFont font;
  font.setFamily(text->ShownFont().family());
  font.setPointSizeF(text->ShownFont().pointSizeF());
  setFont(font);
}

void PopupFrame::ShowUnder(std::size_t offset) {
  m_offset = offset;
  m_shown = true;
  Place();
}

void PopupFrame::PutAway() {
  m_shown = false;
  hide();
  Serve(nullptr);
}

void PopupFrame::SetSuspended(bool suspended) {
  m_suspended = suspended;
  Place();
}

void PopupFrame::KeepClearOf(PopupFrame& other) {
  m_above = &other;
  other.installEventFilter(this);
}

void PopupFrame::Place() {
  if (!m_shown || !m_text) return;
  const QRect caret = m_text->RectangleAt(m_offset);
  const QRect seen = m_text->viewport()->rect();
  const bool inSight = caret.bottom() >= seen.top() && caret.top() <= seen.bottom() && caret.left() >= seen.left() &&
                       caret.left() <= seen.right();
  if (m_suspended || !inSight || !m_text->isVisible()) return hide();
  const QPoint at = m_text->viewport()->mapToGlobal(caret.topLeft());
  const QScreen* screen = QGuiApplication::screenAt(at);
  const QRect available = (screen ? screen : m_text->screen())->availableGeometry();
  FitTo(available.width());
  const CaretPoint point{at.x(), at.y(), caret.height()};
  Box box = KeptOnScreen(BoxAt(point), point, InTwips(available));
  if (m_above && m_above->isVisible()) box = KeptClearOf(InTwips(m_above->geometry()), box, point, InTwips(available));
  setGeometry(Pixels(box.Left), Pixels(box.Top), Pixels(box.Width), Pixels(box.Height));
  show();
}

/// The keyboard is never given to a pop-up; should a platform do so all the same, what is typed goes to the text.
bool PopupFrame::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_above) {
    const bool moves = event->type() == QEvent::Show || event->type() == QEvent::Hide || event->type() == QEvent::Move;
    if (moves || event->type() == QEvent::Resize) Place();
    return false;
  }
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  if (!isKey || !m_text) return false;
  QCoreApplication::sendEvent(m_text, event);
  return true;
}

}  // namespace aids::ui
