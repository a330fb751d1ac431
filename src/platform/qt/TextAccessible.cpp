#include "platform/qt/TextAccessible.h"

#include <algorithm>

#include "platform/qt/RichTextBox.h"
#include "rich_text/Encoding.h"

namespace platform::qt {
namespace {

constexpr unsigned long Utf16Index = QsciScintillaBase::SC_LINECHARACTERINDEX_UTF16;

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
  auto* box = qobject_cast<RichTextBox*>(object);
  return box == nullptr ? nullptr : new TextAccessible(*box);
}

TextAccessible* AccessibleOf(RichTextBox& box) {
  return QAccessible::isActive() ? dynamic_cast<TextAccessible*>(QAccessible::queryAccessibleInterface(&box)) : nullptr;
}

/// A piece of text on its own, to find boundaries in with the toolkit's rules.
class TextPiece : public QAccessibleTextInterface {
 public:
  explicit TextPiece(const QString& text) : m_text(text) {}
  QString text(int start, int end) const override { return m_text.mid(start, end - start); }
  int characterCount() const override { return static_cast<int>(m_text.size()); }
  int cursorPosition() const override { return 0; }
  void selection(int, int*, int*) const override {}
  int selectionCount() const override { return 0; }
  void addSelection(int, int) override {}
  void removeSelection(int) override {}
  void setSelection(int, int, int) override {}
  void setCursorPosition(int) override {}
  QRect characterRect(int) const override { return {}; }
  int offsetAtPoint(const QPoint&) const override { return 0; }
  void scrollToSubstring(int, int) override {}
  QString attributes(int, int*, int*) const override { return {}; }

 private:
  QString m_text;
};

using BoundaryQuestion = QString (QAccessibleTextInterface::*)(int, QAccessible::TextBoundaryType, int*, int*) const;

/// Asks the question of the window, in offsets of the whole text.
QString AskWindow(const QString& window, int windowStart, int offset, BoundaryQuestion question,
                  QAccessible::TextBoundaryType type, int* start, int* end) {
  const TextPiece piece(window);
  const QString answer = (piece.*question)(offset - windowStart, type, start, end);
  if (*start >= 0) *start += windowStart;
  if (*end >= 0) *end += windowStart;
  return answer;
}

}  // namespace

void InstallTextAccessible() {
  static const bool installed = [] {
    QAccessible::installFactory(MakeAccessible);
    return true;
  }();
  static_cast<void>(installed);
}

void TellTextChanged(RichTextBox& box, const TextChange& change) {
  const TextAccessible* accessible = AccessibleOf(box);
  if (accessible == nullptr) return;
  QAccessibleTextUpdateEvent event(&box, accessible->UnitsTo(change.Start), QString::fromStdString(change.Removed),
                                   QString::fromStdString(box.TextRange(change.Start, change.Start + change.Inserted)));
  QAccessible::updateAccessibility(&event);
}

void TellCaretMoved(RichTextBox& box) {
  const TextAccessible* accessible = AccessibleOf(box);
  if (accessible == nullptr) return;
  const int caret = accessible->cursorPosition();
  QAccessibleTextCursorEvent moved(&box, caret);
  QAccessible::updateAccessibility(&moved);
  QAccessibleTextSelectionEvent selected(&box, accessible->UnitsTo(box.SelStart()),
                                         accessible->UnitsTo(box.SelStart() + box.SelLength()));
  selected.setCursorPosition(caret);
  QAccessible::updateAccessibility(&selected);
}

TextAccessible::TextAccessible(RichTextBox& box) : QAccessibleWidget(&box, QAccessible::EditableText), m_box(box) {}

QAccessible::State TextAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.multiLine = true;
  state.selectableText = true;
  state.editable = true;
  return state;
}

void* TextAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
  if (type == QAccessible::EditableTextInterface) return static_cast<QAccessibleEditableTextInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

int TextAccessible::UnitsTo(std::size_t offset) const {
  if ((m_box.SendScintilla(QsciScintillaBase::SCI_GETLINECHARACTERINDEX) & static_cast<long>(Utf16Index)) == 0)
    m_box.SendScintilla(QsciScintillaBase::SCI_ALLOCATELINECHARACTERINDEX, Utf16Index);
  const std::size_t line = m_box.LineOf(offset);
  const long before = m_box.SendScintilla(QsciScintillaBase::SCI_INDEXPOSITIONFROMLINE,
                                          static_cast<unsigned long>(line - 1), static_cast<long>(Utf16Index));
  return static_cast<int>(before + QString::fromStdString(m_box.TextRange(m_box.LineStart(line), offset)).size());
}

std::size_t TextAccessible::BytesTo(int units) const {
  const int wanted = std::clamp(units, 0, characterCount());
  const long line = m_box.SendScintilla(QsciScintillaBase::SCI_LINEFROMINDEXPOSITION,
                                        static_cast<unsigned long>(wanted), static_cast<long>(Utf16Index));
  const std::size_t start = m_box.LineStart(static_cast<std::size_t>(line) + 1);
  const std::string text = m_box.TextRange(start, m_box.LineStart(static_cast<std::size_t>(line) + 2));
  int left = wanted - UnitsTo(start);
  std::size_t bytes = 0;
  while (left > 0 && bytes < text.size()) {
    const rich_text::CodePoint point = rich_text::CodePointAt(text, bytes);
    left -= point.Value < 0x10000 ? 1 : 2;
    bytes += point.Bytes;
  }
  return start + bytes;
}

void TextAccessible::selection(int, int* startOffset, int* endOffset) const {
  const bool any = m_box.SelLength() > 0;
  *startOffset = any ? UnitsTo(m_box.SelStart()) : 0;
  *endOffset = any ? UnitsTo(m_box.SelStart() + m_box.SelLength()) : 0;
}

int TextAccessible::selectionCount() const {
  return m_box.SelLength() > 0 ? 1 : 0;
}

void TextAccessible::addSelection(int startOffset, int endOffset) {
  setSelection(0, startOffset, endOffset);
}

void TextAccessible::removeSelection(int) {
  m_box.Select(m_box.Caret(), m_box.Caret());
}

void TextAccessible::setSelection(int, int startOffset, int endOffset) {
  m_box.Select(BytesTo(startOffset), BytesTo(endOffset));
}

int TextAccessible::cursorPosition() const {
  return UnitsTo(m_box.Caret());
}

void TextAccessible::setCursorPosition(int position) {
  m_box.SetSelStart(BytesTo(position));
}

QString TextAccessible::text(int startOffset, int endOffset) const {
  const int end = endOffset < 0 ? characterCount() : endOffset;
  return QString::fromStdString(m_box.TextRange(BytesTo(startOffset), BytesTo(end)));
}

TextAccessible::Window TextAccessible::WindowAround(int offset) const {
  const std::size_t line = m_box.LineOf(BytesTo(offset));
  const std::size_t start = m_box.LineStart(line > 1 ? line - 1 : 1);
  return {QString::fromStdString(m_box.TextRange(start, m_box.LineStart(line + 2))), UnitsTo(start)};
}

QString TextAccessible::textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start, int* end) const {
  const Window window = WindowAround(offset);
  return AskWindow(window.Text, window.Start, offset, &QAccessibleTextInterface::textBeforeOffset, type, start, end);
}

QString TextAccessible::textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start, int* end) const {
  const Window window = WindowAround(offset);
  return AskWindow(window.Text, window.Start, offset, &QAccessibleTextInterface::textAfterOffset, type, start, end);
}

QString TextAccessible::textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start, int* end) const {
  const Window window = WindowAround(offset);
  return AskWindow(window.Text, window.Start, offset, &QAccessibleTextInterface::textAtOffset, type, start, end);
}

int TextAccessible::characterCount() const {
  return UnitsTo(m_box.Length());
}

QRect TextAccessible::characterRect(int offset) const {
  const std::size_t at = BytesTo(offset);
  QRect rectangle = m_box.RectangleAt(at);
  const auto next = static_cast<std::size_t>(
      m_box.SendScintilla(QsciScintillaBase::SCI_POSITIONAFTER, static_cast<unsigned long>(at)));
  const QRect following = m_box.RectangleAt(next);
  const bool sameRow = following.top() == rectangle.top() && following.left() > rectangle.left();
  rectangle.setWidth(sameRow ? following.left() - rectangle.left() : m_box.CaretRectangle().width());
  return rectangle.translated(m_box.viewport()->mapToGlobal(QPoint(0, 0)));
}

int TextAccessible::offsetAtPoint(const QPoint& point) const {
  const QPoint inside = m_box.viewport()->mapFromGlobal(point);
  return m_box.viewport()->rect().contains(inside) ? UnitsTo(m_box.OffsetAt(inside.x(), inside.y())) : -1;
}

void TextAccessible::scrollToSubstring(int startIndex, int endIndex) {
  m_box.SendScintilla(QsciScintillaBase::SCI_SCROLLRANGE, static_cast<unsigned long>(BytesTo(endIndex)),
                      static_cast<long>(BytesTo(startIndex)));
}

QString TextAccessible::attributes(int offset, int* startOffset, int* endOffset) const {
  const RichTextBox::ColouredStretch stretch = m_box.StretchAt(BytesTo(offset));
  *startOffset = UnitsTo(stretch.Start);
  *endOffset = UnitsTo(stretch.End);
  if (!stretch.Colour) return {};
  const rich_text::ColourValue colour = *stretch.Colour;
  return QStringLiteral("color:rgb(%1,%2,%3);").arg(colour & 255U).arg(colour >> 8 & 255U).arg(colour >> 16 & 255U);
}

void TextAccessible::deleteText(int startOffset, int endOffset) {
  replaceText(startOffset, endOffset, {});
}

void TextAccessible::insertText(int offset, const QString& text) {
  replaceText(offset, offset, text);
}

void TextAccessible::replaceText(int startOffset, int endOffset, const QString& text) {
  if (!m_box.Enabled()) return;
  m_box.Select(BytesTo(startOffset), BytesTo(endOffset));
  m_box.SetSelText(text.toStdString());
}

}  // namespace platform::qt
