// How the text control looks: fonts, colours of the desktop, scrolling, and the text that an input method composes.

#include <QEvent>
#include <QInputMethodEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/qt/Colour.h"
#include "platform/qt/FontChoice.h"
#include "platform/qt/RichTextBox.h"

namespace platform::qt {
namespace {

constexpr unsigned StrikeIndicator = 8;
constexpr unsigned LeftPadding = 4;

/// The face as an RTF font table can hold it.
std::string RtfFontName(const std::string& name) {
  std::string plain;
  for (const char c : name)
    if (c >= 0x20 && c < 0x7F && c != '{' && c != '}' && c != '\\' && c != ';') plain += c;
  return plain.empty() ? "Courier New" : plain;
}

}  // namespace

void RichTextBox::SetUpScintilla() {
  struct Setting {
    unsigned Message;
    std::size_t First, Second;
  };
  constexpr std::size_t Yes = 1, No = 0;
  const Setting settings[] = {
      {SCI_SETCODEPAGE, SC_CP_UTF8, 0},
      {SCI_SETUNDOCOLLECTION, No, 0},
      {SCI_EMPTYUNDOBUFFER, 0, 0},
      {SCI_SETMODEVENTMASK, SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE, 0},
      {SCI_SETCOMMANDEVENTS, No, 0},
      {SCI_SETEOLMODE, SC_EOL_CRLF, 0},
      {SCI_CLEARALLCMDKEYS, 0, 0},
      {SCI_USEPOPUP, No, 0},
      {SCI_SETLAYOUTCACHE, SC_CACHE_PAGE, 0},
      {SCI_SETPOSITIONCACHE, 4096, 0},
      {SCI_SETIDLESTYLING, SC_IDLESTYLING_NONE, 0},
      {SCI_SETBUFFEREDDRAW, No, 0},  // the toolkit buffers already, and sharper on fine screens
      {SCI_SETSCROLLWIDTH, 1, 0},
      {SCI_SETSCROLLWIDTHTRACKING, Yes, 0},
      {SCI_SETMARGINLEFT, 0, LeftPadding},
      {SCI_SETMULTIPLESELECTION, No, 0},
      {SCI_SETMOUSESELECTIONRECTANGULARSWITCH, No, 0},
      {SCI_SETRECTANGULARSELECTIONMODIFIER, 0, 0},
      {SCI_INDICSETSTYLE, StrikeIndicator, INDIC_STRIKE},
      {SCI_SETINDICATORCURRENT, StrikeIndicator, 0},
  };
  for (const Setting& setting : settings) Send(setting.Message, setting.First, setting.Second);
  for (unsigned margin = 0; margin < 5; ++margin) Send(SCI_SETMARGINWIDTHN, margin, 0);
  setFrameShape(QFrame::NoFrame);
  setAttribute(Qt::WA_InputMethodEnabled);
  setAcceptDrops(true);
}

void RichTextBox::ApplyLook() {
  const QPalette::ColorGroup group = QPalette::Active;
  const auto colour = [&](QPalette::ColorRole role) { return ValueOf(palette().color(group, role)); };
  Send(SCI_STYLESETFORE, STYLE_DEFAULT, colour(QPalette::Text));
  Send(SCI_STYLESETBACK, STYLE_DEFAULT, colour(QPalette::Base));
  const QByteArray family = FamilyFor(m_font).toUtf8();
  SendScintilla(SCI_STYLESETFONT, static_cast<unsigned long>(STYLE_DEFAULT), family.constData());
  Send(SCI_STYLESETSIZEFRACTIONAL, STYLE_DEFAULT, static_cast<std::size_t>(std::lround(m_font.Size * 100)));
  Send(SCI_STYLESETBOLD, STYLE_DEFAULT, m_font.Bold);
  Send(SCI_STYLESETITALIC, STYLE_DEFAULT, m_font.Italic);
  Send(SCI_STYLESETUNDERLINE, STYLE_DEFAULT, m_font.Underline);
  Send(SCI_STYLECLEARALL);
  ShowStyleColours(1);
  Send(SCI_INDICSETFORE, StrikeIndicator, colour(QPalette::Text));
  Send(SCI_SETSELFORE, 1, colour(QPalette::HighlightedText));
  Send(SCI_SETSELBACK, 1, colour(QPalette::Highlight));
  Send(SCI_SETCARETFORE, colour(QPalette::Text));
  Send(SCI_SETCARETWIDTH, logicalDpiX() >= 144 ? 2 : 1);
}

/// Gives the styles from this place on the colours to draw them in.
void RichTextBox::ShowStyleColours(std::size_t firstPlace) {
  const rich_text::ColourValue background = ValueOf(palette().color(QPalette::Active, QPalette::Base));
  const auto& colours = m_styles.Colours();
  for (std::size_t place = firstPlace; place <= colours.size(); ++place)
    Send(SCI_STYLESETFORE, ColourStyles::StyleAt(place), ReadableColour(colours[place - 1], background));
}

void RichTextBox::changeEvent(QEvent* event) {
  QsciScintillaBase::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) ApplyLook();
}

void RichTextBox::SetFont(const FontRecord& font) {
  const bool wasStruck = m_font.Strikethrough;
  m_font = font;
  m_rtfFont = RtfFontName(font.Name);
  ApplyLook();
  if (wasStruck) Send(SCI_INDICATORCLEARRANGE, 0, Length());
  if (font.Strikethrough) StrikeThrough(0, Length());
}

// The component's fonts know no strike-out, so a mark over the whole text draws it.
void RichTextBox::StrikeThrough(std::size_t start, std::size_t length) {
  if (length > 0) Send(SCI_INDICATORFILLRANGE, start, length);
}

void RichTextBox::SetWordWrap(bool on) {
  Send(SCI_SETWRAPMODE, on ? SC_WRAP_WORD : SC_WRAP_NONE);
  if (on) Send(SCI_SETXOFFSET, 0);
}

std::size_t RichTextBox::VerticalScroll() const {
  return static_cast<std::size_t>(Send(SCI_GETFIRSTVISIBLELINE));
}

void RichTextBox::SetVerticalScroll(std::size_t line) {
  if (line != VerticalScroll()) Send(SCI_SETFIRSTVISIBLELINE, line);
}

std::size_t RichTextBox::HorizontalScroll() const {
  return static_cast<std::size_t>(Send(SCI_GETXOFFSET));
}

void RichTextBox::SetHorizontalScroll(std::size_t pixels) {
  if (pixels != HorizontalScroll()) Send(SCI_SETXOFFSET, pixels);
}

void RichTextBox::SetRedraw(bool redraw) {
  m_redraw = redraw;
  if (redraw) Refresh();
}

QFont RichTextBox::ShownFont() const {
  return FontOf(m_font);
}

// What has changed is due for painting already, except what came up while painting was off.
void RichTextBox::Refresh() {
  if (!m_redraw || !m_missedPaint) return;
  m_missedPaint = false;
  viewport()->update();
}

void RichTextBox::paintEvent(QPaintEvent* event) {
  if (!m_redraw) {
    m_missedPaint = true;
    return;
  }
  QsciScintillaBase::paintEvent(event);
  if (!m_preedit.isEmpty()) PaintPreedit();
}

QRect RichTextBox::RectangleAt(std::size_t offset) const {
  const std::size_t at = Clamp(offset);
  const auto line = static_cast<std::size_t>(Send(SCI_LINEFROMPOSITION, at));
  return {static_cast<int>(Send(SCI_POINTXFROMPOSITION, 0, at)), static_cast<int>(Send(SCI_POINTYFROMPOSITION, 0, at)),
          0, static_cast<int>(Send(SCI_TEXTHEIGHT, line))};
}

QRect RichTextBox::CaretRectangle() const {
  QRect rectangle = RectangleAt(Caret());
  rectangle.setWidth(static_cast<int>(Send(SCI_GETCARETWIDTH)));
  return rectangle;
}

std::size_t RichTextBox::OffsetAt(int x, int y) const {
  return static_cast<std::size_t>(
      Send(SCI_POSITIONFROMPOINT, static_cast<std::size_t>(std::max(x, 0)), static_cast<std::size_t>(std::max(y, 0))));
}

// The text being composed.

void RichTextBox::SetPreedit(const QInputMethodEvent& event) {
  const bool had = !m_preedit.isEmpty();
  m_preedit = event.preeditString();
  m_preeditCaret = static_cast<int>(m_preedit.size());
  for (const QInputMethodEvent::Attribute& attribute : event.attributes())
    if (attribute.type == QInputMethodEvent::Cursor)
      m_preeditCaret = std::clamp(attribute.start, 0, static_cast<int>(m_preedit.size()));
  if (had || !m_preedit.isEmpty()) viewport()->update();
}

namespace {

QFont Zoomed(QFont font, long zoom) {
  font.setPointSizeF(std::max(2.0, font.pointSizeF() + static_cast<double>(zoom)));
  font.setUnderline(true);
  return font;
}

}  // namespace

QRect RichTextBox::PreeditRectangle() const {
  QRect rectangle = RectangleAt(Caret());
  const QFontMetrics metrics(Zoomed(FontOf(m_font), Send(SCI_GETZOOM)));
  rectangle.setWidth(metrics.horizontalAdvance(m_preedit) + 1);
  rectangle.moveLeft(std::max(0, std::min(rectangle.left(), viewport()->width() - rectangle.width())));
  return rectangle;
}

void RichTextBox::PaintPreedit() {
  const QRect rectangle = PreeditRectangle();
  const QFont font = Zoomed(FontOf(m_font), Send(SCI_GETZOOM));
  QPainter painter(viewport());
  painter.fillRect(rectangle, palette().color(QPalette::Active, QPalette::Base));
  painter.setPen(palette().color(QPalette::Active, QPalette::Text));
  painter.setFont(font);
  painter.drawText(rectangle, Qt::AlignLeft | Qt::AlignVCenter, m_preedit);
  const int caret = rectangle.left() + QFontMetrics(font).horizontalAdvance(m_preedit.left(m_preeditCaret));
  painter.fillRect(QRect(caret, rectangle.top(), 1, rectangle.height()), painter.pen().color());
}

QVariant RichTextBox::inputMethodQuery(Qt::InputMethodQuery query) const {
  switch (query) {
    case Qt::ImEnabled:
      return m_enabled;
    case Qt::ImCursorRectangle: {
      if (m_preedit.isEmpty()) return CaretRectangle();
      QRect rectangle = PreeditRectangle();
      rectangle.translate(QFontMetrics(FontOf(m_font)).horizontalAdvance(m_preedit.left(m_preeditCaret)), 0);
      rectangle.setWidth(1);
      return rectangle;
    }
    case Qt::ImFont:
      return FontOf(m_font);
    case Qt::ImCursorPosition:
    case Qt::ImAnchorPosition:
    case Qt::ImSurroundingText:
    case Qt::ImCurrentSelection:
      return SurroundingQuery(query);
    default:
      return QWidget::inputMethodQuery(query);  // NOLINT(bugprone-parent-virtual-call): Scintilla's own answers count
                                                // characters from the top
  }
}

}  // namespace platform::qt
