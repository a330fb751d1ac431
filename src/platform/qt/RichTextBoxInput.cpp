// What the user does to the text control: keys, input methods, the mouse, the clipboard and things dropped.

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QWheelEvent>

#include "platform/qt/DroppedFiles.h"
#include "platform/qt/KeyCodes.h"
#include "platform/qt/RichTextBox.h"
#include "rich_text/Encoding.h"

namespace platform::qt {
namespace {

int ButtonOf(Qt::MouseButton button) {
  return button == Qt::LeftButton ? 1 : button == Qt::RightButton ? 2 : button == Qt::MiddleButton ? 4 : 0;
}

/// Text for other programs, turned into theirs only when one of them asks: every selection is offered to them.
class TextMimeData : public QMimeData {
 public:
  explicit TextMimeData(const QByteArray& text) : m_text(text) {}
  QStringList formats() const override { return {QStringLiteral("text/plain")}; }
  bool hasFormat(const QString& type) const override { return formats().contains(type); }

 protected:
  QVariant retrieveData(const QString& type, QMetaType) const override {
    if (!hasFormat(type)) return {};
    QString text = QString::fromUtf8(m_text);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  }

 private:
  QByteArray m_text;
};

}  // namespace

// Keys.

void RichTextBox::keyPressEvent(QKeyEvent* event) {
  if (!m_enabled) return event->ignore();
  event->accept();
  if (m_events != nullptr && m_events->KeyDown(VirtualKey(*event), ShiftOf(event->modifiers()))) return;
  const std::u32string characters = TypedCharacters(*event);
  if (event->key() == Qt::Key_Backtab) {
    if (m_events != nullptr) m_events->KeyPress('\t');  // it types no tab
  } else if (!characters.empty()) {
    Type(characters);
    if (event->key() == Qt::Key_Escape) event->ignore();
  } else if (const unsigned command = CommandOf(*event)) {
    Perform(command);
  } else {
    event->ignore();
  }
}

void RichTextBox::keyReleaseEvent(QKeyEvent* event) {
  if (!m_enabled) return event->ignore();
  event->accept();
  if (m_events != nullptr && !event->isAutoRepeat()) m_events->KeyUp(VirtualKey(*event), ShiftOf(event->modifiers()));
}

// Tab is a key like any other here.
bool RichTextBox::focusNextPrevChild(bool) {
  return false;
}

void RichTextBox::Type(const std::u32string& characters) {
  for (const char32_t character : characters) {
    const bool isSurrogate = character >= 0xD800 && character < 0xE000;
    const char32_t typed = character == '\n' ? U'\r' : character;
    if (isSurrogate || !m_enabled || (m_events != nullptr && m_events->KeyPress(typed))) continue;
    InsertTyped(typed);
  }
}

void RichTextBox::InsertTyped(char32_t character) {
  if (character == '\r') {
    SetSelText(m_lineEnd);
  } else if (character == '\b') {
    Perform(SCI_DELETEBACK);
  } else if (character >= 0x20 || character == '\t') {
    std::string text;
    rich_text::AppendUtf8(text, character);
    SetSelText(text);
  }
}

void RichTextBox::Perform(unsigned command) {
  if (command == SCI_PASTE) return Paste();
  Operate([&] { Send(command); });
}

// Input methods.

void RichTextBox::inputMethodEvent(QInputMethodEvent* event) {
  if (!m_enabled) return event->ignore();
  event->accept();
  ReplaceSurrounding(*event);
  SetPreedit(*event);
  if (event->commitString().isEmpty()) return;
  Type(event->commitString().toStdU32String());
  // The keys behind it are the input method's, and nobody may see them go up.
  if (m_events != nullptr && m_enabled) m_events->KeyUp(0, Shift::None);
}

/// Some input methods correct what they gave before: the commit then takes the place of text near the caret, told in
/// UTF-16 units from it.
void RichTextBox::ReplaceSurrounding(const QInputMethodEvent& event) {
  if (event.replacementLength() <= 0) return;
  const QString line = SurroundingQuery(Qt::ImSurroundingText).toString();
  const auto first =
      qBound(0, SurroundingQuery(Qt::ImCursorPosition).toInt() + event.replacementStart(), int(line.size()));
  const std::size_t start = LineStart(LineOf(Caret())) + static_cast<std::size_t>(line.left(first).toUtf8().size());
  const auto length = static_cast<std::size_t>(line.mid(first, event.replacementLength()).toUtf8().size());
  Select(start, start + length);
  SetSelText("");
}

/// What input methods ask of the caret's line; positions are UTF-16 units in it.
QVariant RichTextBox::SurroundingQuery(Qt::InputMethodQuery query) const {
  const std::size_t line = LineOf(Caret()), start = LineStart(line);
  const auto unitsTo = [&](std::size_t offset) {
    return static_cast<int>(QString::fromStdString(TextRange(start, std::max(start, offset))).size());
  };
  switch (query) {
    case Qt::ImCursorPosition:
      return unitsTo(Caret());
    case Qt::ImAnchorPosition:
      return unitsTo(std::min(static_cast<std::size_t>(Send(SCI_GETANCHOR)), LineStart(line + 1)));
    case Qt::ImSurroundingText:
      return QString::fromStdString(TextRange(start, RangeOfLines(line, line).End));
    default:
      return QString::fromStdString(SelText());
  }
}

// The mouse.

bool RichTextBox::TellMouseDown(const QMouseEvent& event) {
  const QPoint at = event.position().toPoint();
  return m_events != nullptr &&
         m_events->MouseDown(ButtonOf(event.button()), ShiftOf(event.modifiers()), at.x(), at.y());
}

void RichTextBox::mousePressEvent(QMouseEvent* event) {
  if (!m_enabled) return event->ignore();
  event->accept();
  if (event->button() == Qt::RightButton) setFocus(Qt::MouseFocusReason);
  if (TellMouseDown(*event) || event->button() == Qt::RightButton) return;
  Operate([&] { QsciScintillaBase::mousePressEvent(event); });
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent* event) {
  if (!m_enabled) return event->ignore();
  event->accept();
  if (TellMouseDown(*event) || event->button() == Qt::RightButton) return;
  Operate([&] { QsciScintillaBase::mouseDoubleClickEvent(event); });
}

void RichTextBox::mouseMoveEvent(QMouseEvent* event) {
  if (!m_enabled) return;
  Operate([&] { QsciScintillaBase::mouseMoveEvent(event); });
}

// The component hears of every release, so that it never goes on selecting without a button.
void RichTextBox::mouseReleaseEvent(QMouseEvent* event) {
  Operate([&] { QsciScintillaBase::mouseReleaseEvent(event); });
  if (!m_enabled || m_events == nullptr) return;
  const QPoint at = event->position().toPoint();
  m_events->MouseUp(ButtonOf(event->button()), ShiftOf(event->modifiers()), at.x(), at.y());
}

void RichTextBox::wheelEvent(QWheelEvent* event) {
  const int up = event->angleDelta().y();
  if (!event->modifiers().testFlag(Qt::ControlModifier) || up == 0) return QsciScintillaBase::wheelEvent(event);
  Send(up > 0 ? SCI_ZOOMIN : SCI_ZOOMOUT);
  event->accept();
}

// The menu key is a right click on the caret; the mouse's own request has come as a click before.
void RichTextBox::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() != QContextMenuEvent::Keyboard || !m_enabled || m_events == nullptr) return;
  const QPoint at = CaretRectangle().bottomLeft();
  m_events->MouseDown(2, Shift::None, at.x(), at.y());
  m_events->MouseUp(2, Shift::None, at.x(), at.y());
}

// The clipboard.

void RichTextBox::Paste() {
  bool rectangular = false;
  const QMimeData* source = QApplication::clipboard()->mimeData();
  if (!canInsertFromMimeData(source)) return;
  const QByteArray text = fromMimeData(source, rectangular);
  SetSelText({text.constData(), static_cast<std::size_t>(text.size())});
}

bool RichTextBox::canInsertFromMimeData(const QMimeData* source) const {
  return source != nullptr && m_enabled && source->hasText();
}

QByteArray RichTextBox::fromMimeData(const QMimeData* source, bool& rectangular) const {
  rectangular = false;
  return QByteArray::fromStdString(InDocumentLineEnds(source->text().toStdString()));
}

QMimeData* RichTextBox::toMimeData(const QByteArray& text, bool) const {
  return new TextMimeData(text);
}

// Drag and drop: files are the listener's, text is the component's own.

void RichTextBox::dragEnterEvent(QDragEnterEvent* event) {
  if (!DroppedFiles(event->mimeData()).empty()) return event->acceptProposedAction();
  if (m_enabled) QsciScintillaBase::dragEnterEvent(event);
}

void RichTextBox::dragMoveEvent(QDragMoveEvent* event) {
  if (!DroppedFiles(event->mimeData()).empty()) return event->acceptProposedAction();
  if (m_enabled) Operate([&] { QsciScintillaBase::dragMoveEvent(event); });
}

void RichTextBox::dropEvent(QDropEvent* event) {
  const std::vector<std::string> paths = DroppedFiles(event->mimeData());
  if (!paths.empty()) {
    event->acceptProposedAction();
    if (m_events != nullptr) m_events->FilesDropped(paths);
  } else if (m_enabled) {
    Operate([&] { QsciScintillaBase::dropEvent(event); });
  }
}

}  // namespace platform::qt
