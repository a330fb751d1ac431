#include "aids/ui/frmToolTip.h"

#include <QEvent>
#include <QFontMetricsF>

#include "platform/Twips.h"

namespace aids::ui {
namespace {

using platform::TwipsX, platform::TwipsY;

constexpr int RoomBeside = 10, RoomAbove = 5;

}  // namespace

frmToolTip::frmToolTip(QWidget* frame) : PopupFrame(frame), tipText(new QLabel(this)) {
  setObjectName(QStringLiteral("frmToolTip"));
  setAutoFillBackground(true);
  tipText->setObjectName(QStringLiteral("tipText"));
  tipText->setTextFormat(Qt::PlainText);
  tipText->setIndent(0);
  tipText->setMargin(0);
  for (std::size_t i = 0; i < m_lines.size(); ++i) {
    m_lines[i] = new QFrame(this);
    m_lines[i]->setObjectName(QStringLiteral("Line%1").arg(i + 1));
    m_lines[i]->setAutoFillBackground(true);
  }
  SetColours();
}

void frmToolTip::ShowAt(std::size_t start, std::size_t end, const std::string& text) {
  m_start = start;
  m_end = end;
  tipText->setText(QString::fromStdString(text));
  ShowUnder(end);
}

void frmToolTip::FitTo(int available) {
  tipText->setWordWrap(false);
  tipText->setMinimumWidth(0);
  QSize size = tipText->sizeHint();
  if (size.width() + RoomBeside > available) {
    tipText->setWordWrap(true);
    const int width = available - RoomBeside;
    size = {width, tipText->heightForWidth(width)};
  }
  tipText->setGeometry(RoomBeside / 2, RoomAbove / 2, size.width(), size.height());
}

Box frmToolTip::BoxAt(const CaretPoint& caret) const {
  const QRect start = Text()->RectangleAt(m_start), end = Text()->RectangleAt(m_end);
  const QString word = QString::fromStdString(Text()->TextRange(m_start, m_end));
  const qreal w =
      start.top() == end.top() ? end.left() - start.left() : QFontMetricsF(Text()->ShownFont()).horizontalAdvance(word);
  return TipBox(caret, TwipsX * static_cast<float>(w), TwipsX * static_cast<float>(RoomBeside + tipText->width()),
                TwipsY * static_cast<float>(RoomAbove + tipText->height()));
}

void frmToolTip::resizeEvent(QResizeEvent*) {
  const int right = width() - 1, bottom = height() - 1;
  m_lines[0]->setGeometry(0, 0, 1, height());
  m_lines[1]->setGeometry(0, 0, width(), 1);
  m_lines[2]->setGeometry(right, 0, 1, height());
  m_lines[3]->setGeometry(0, bottom, width(), 1);
}

void frmToolTip::SetColours() {
  const QColor back = palette().color(QPalette::Active, QPalette::ToolTipBase);
  const QColor fore = palette().color(QPalette::Active, QPalette::ToolTipText);
  QPalette own = palette();
  own.setColor(QPalette::Window, back);
  own.setColor(QPalette::WindowText, fore);
  tipText->setPalette(own);
  own.setColor(QPalette::Window, Mixed(back, fore, 0.4));
  for (QFrame* line : m_lines) line->setPalette(own);
  own.setColor(QPalette::Window, back);
  setPalette(own);
}

void frmToolTip::changeEvent(QEvent* event) {
  PopupFrame::changeEvent(event);
  if (event->type() == QEvent::FontChange) tipText->setFont(font());
}

}  // namespace aids::ui
