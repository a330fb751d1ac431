#include "template_editor/ui/Swatch.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>

#include "platform/qt/Colour.h"

namespace template_editor::ui {
namespace {

const QColor CrossedOut(0xE0, 0x38, 0x38);

void PaintSwatch(QPainter& painter, const QRect& place, MaybeColour colour, const QPalette& palette) {
  const QRect box = place.adjusted(1, 1, -2, -2);
  painter.setPen(palette.color(QPalette::Mid));
  painter.setBrush(colour ? platform::qt::ColourOf(*colour) : palette.color(QPalette::Base));
  painter.drawRect(box);
  if (colour) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(CrossedOut, 1.5));
  painter.drawLine(box.bottomLeft() + QPoint(1, -1), box.topRight() + QPoint(-1, 1));
}

class SwatchEngine : public QIconEngine {
 public:
  explicit SwatchEngine(MaybeColour colour) : m_colour(colour) {}

  void paint(QPainter* painter, const QRect& place, QIcon::Mode, QIcon::State) override {
    PaintSwatch(*painter, place, m_colour, QApplication::palette());
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, picture.rect(), mode, state);
    return picture;
  }
  QIconEngine* clone() const override { return new SwatchEngine(m_colour); }

 private:
  MaybeColour m_colour;
};

}  // namespace

QIcon SwatchIcon(MaybeColour colour) {
  return QIcon(new SwatchEngine(colour));
}

SwatchBox::SwatchBox(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SwatchBox::SetColour(MaybeColour colour) {
  if (m_colour == colour) return;
  m_colour = colour;
  update();
}

QSize SwatchBox::sizeHint() const {
  return {2 * fontMetrics().height(), fontMetrics().height() + 4};
}

void SwatchBox::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintSwatch(painter, rect(), m_colour, palette());
}

}  // namespace template_editor::ui
