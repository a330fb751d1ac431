#include "platform/qt/ToolIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <cmath>

#include "platform/qt/Text.h"

// The drawings are in a static library, where nothing else would draw them in.
static void LinkDrawings() {
  Q_INIT_RESOURCE(icons);
}

namespace platform::qt {
namespace {

// The colours that the drawings are written with.
constexpr const char* Lines = "#404040";
constexpr const char* Accent = "#2f6fb0";

QColor LineColour(QIcon::Mode mode) {
  const QPalette palette = QGuiApplication::palette();
  const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
  if (mode == QIcon::Selected) return palette.color(QPalette::Active, QPalette::HighlightedText);
  if (mode != QIcon::Disabled) return text;
  // What cannot be used now is a shade between text and ground, as its caption is.
  const QColor ground = palette.color(QPalette::Active, QPalette::Window);
  const auto between = [](int a, int b) { return (a * 2 + b * 3) / 5; };
  return QColor(between(text.red(), ground.red()), between(text.green(), ground.green()),
                between(text.blue(), ground.blue()));
}

QColor AccentColour(QIcon::Mode mode) {
  if (mode == QIcon::Disabled || mode == QIcon::Selected) return LineColour(mode);
  const bool dark = QGuiApplication::palette().color(QPalette::Active, QPalette::Window).lightness() < 128;
  return dark ? QColor(0x6C, 0xB2, 0xF2) : QColor(0x1F, 0x6F, 0xC0);
}

class Engine : public QIconEngine {
 public:
  explicit Engine(QByteArray drawing) : m_drawing(std::move(drawing)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const int side = std::min(rect.width(), rect.height());
    const QRect square(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2, side, side);
    Render(*painter, square, mode);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    const QColor lines = LineColour(mode), accent = AccentColour(mode);
    const QString key = QStringLiteral("tool %1 %2 %3 %4 %5")
                            .arg(qHash(m_drawing))
                            .arg(size.width())
                            .arg(size.height())
                            .arg(lines.rgba())
                            .arg(accent.rgba());
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) return picture;
    picture = QPixmap(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    painter.end();
    QPixmapCache::insert(key, picture);
    return picture;
  }

  QIconEngine* clone() const override { return new Engine(m_drawing); }
  QString key() const override { return QStringLiteral("QuillmarkTool"); }

 private:
  void Render(QPainter& painter, const QRect& square, QIcon::Mode mode) {
    const QColor lines = LineColour(mode), accent = AccentColour(mode);
    if (!m_renderer.isValid() || m_lines != lines || m_accent != accent)
      m_renderer.load(Recoloured(m_drawing, lines, accent));
    m_lines = lines, m_accent = accent;
    painter.setRenderHint(QPainter::Antialiasing);
    m_renderer.render(&painter, square);
  }

  QByteArray m_drawing;
  QSvgRenderer m_renderer;  ///< the drawing as it was read last, in the colours below
  QColor m_lines, m_accent;
};

}  // namespace

QByteArray Recoloured(QByteArray drawing, const QColor& lines, const QColor& accent) {
  return drawing.replace(Lines, lines.name().toLatin1()).replace(Accent, accent.name().toLatin1());
}

QIcon ToolIcon(std::string_view name) {
  static const bool linked = (LinkDrawings(), true);
  Q_UNUSED(linked);
  QFile file(QStringLiteral(":/icons/") + Text(name) + QStringLiteral(".svg"));
  if (name.empty() || !file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new Engine(file.readAll()));
}

}  // namespace platform::qt
