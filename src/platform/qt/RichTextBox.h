#pragma once
// The text control on Scintilla, the field's editing component.
//
// Text is UTF-8 bytes with one style byte each; a colour is a style number, 247 of them at one time. Offsets are bytes,
// pixels device-independent and counted from the control's upper left corner. Nothing here costs more in a longer text
// but what hands over the whole text. One user action gives at most one Change and one SelChange, in this order, when
// it is complete. A disabled control ignores its input and hands keys on to its window, but keeps the focus and its
// look.

#include <QRect>
#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "platform/TextControl.h"
#include "platform/qt/ColourStyles.h"
#include "platform/qt/ScintillaBase.h"

namespace platform::qt {

class RichTextBox final : public QsciScintillaBase, public TextControl {
  Q_OBJECT

 public:
  explicit RichTextBox(QWidget* parent = nullptr);

  void SetEvents(TextControlEvents* events) override { m_events = events; }

  std::size_t Length() const override;
  std::string Text() const override;
  void SetText(std::string_view text) override;
  void Reserve(std::size_t bytes) override;
  std::string TextRange(std::size_t start, std::size_t end) const override;
  std::string TextRTF() const override;
  void SetTextRTF(std::string_view rtf) override;

  std::size_t SelStart() const override;
  void SetSelStart(std::size_t start) override;
  std::size_t SelLength() const override;
  void SetSelLength(std::size_t length) override;
  std::string SelText() const override;
  void SetSelText(std::string_view text) override;
  std::size_t Caret() const override;
  void Select(std::size_t anchor, std::size_t caret) override;
  std::string SelRTF() const override;

  std::size_t LineCount() const override;
  std::size_t LineOf(std::size_t offset) const override;
  std::size_t LineStart(std::size_t line) const override;
  std::size_t ColumnOf(std::size_t offset) const override;
  std::string LinesRTF(std::size_t first, std::size_t last) const override;
  void SetLinesRTF(std::size_t first, std::size_t last, std::string_view rtf) override;
  std::string_view LineEnd() const override { return m_lineEnd; }

  void SetColours(const std::vector<rich_text::ColourValue>& colours, std::vector<rich_text::ColourRun> runs) override;

  std::size_t OffsetAt(int x, int y) const override;
  bool Enabled() const override { return m_enabled; }
  void SetEnabled(bool enabled) override { m_enabled = enabled; }
  std::size_t VerticalScroll() const override;
  void SetVerticalScroll(std::size_t line) override;
  std::size_t HorizontalScroll() const override;
  void SetHorizontalScroll(std::size_t pixels) override;
  void SetRedraw(bool redraw) override;
  void Refresh() override;
  void SetWordWrap(bool on) override;
  void SetFont(const FontRecord& font) override;
  void SetFocus() override { setFocus(); }

  // What windows ask for beside the interface.
  void Cut();
  void Copy();
  /// Puts the clipboard's text in place of the selection, its line ends in the document's kind.
  void Paste();
  void SelectAll();
  /// The font that the text is shown in, without zoom.
  QFont ShownFont() const;
  /// Where the caret is drawn.
  QRect CaretRectangle() const;
  /// Where the character at `offset` begins, with the height of its line and no width.
  QRect RectangleAt(std::size_t offset) const;
  /// The colour of the character at `offset`, and the stretch [start, end) around it that has it, looked for no farther
  /// than in the character's own line.
  struct ColouredStretch {
    std::optional<rich_text::ColourValue> Colour;
    std::size_t Start = 0, End = 0;
  };
  ColouredStretch StretchAt(std::size_t offset) const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool canInsertFromMimeData(const QMimeData* source) const override;
  QByteArray fromMimeData(const QMimeData* source, bool& rectangular) const override;
  QMimeData* toMimeData(const QByteArray& text, bool rectangular) const override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct Selection {
    std::size_t Start = 0, Length = 0;
    bool operator==(const Selection&) const = default;
  };

  long Send(unsigned message, std::size_t wParam = 0, std::size_t lParam = 0) const;

  /// Runs work that may change the text or the selection, and tells the listener when the outermost of such works is
  /// done.
  template <typename Work>
  void Operate(Work work) {
    ++m_operations;
    work();
    if (--m_operations == 0) TellEvents();
  }
  void OnModified(int position, int type, const char* text, int length);
  void OnUpdate();
  void NoteReplacement(std::size_t start, std::size_t end, std::size_t inserted);
  void TellEvents();
  void TellLater();

  std::size_t Clamp(std::size_t offset) const;
  std::size_t WholeAt(std::size_t offset) const;
  void AppendRange(std::string& text, std::size_t start, std::size_t end) const;
  std::string_view WholeText(std::string& copy) const;
  /// Puts text in place of [start, end); the selection moves with the text around it.
  void Replace(std::size_t start, std::size_t end, std::string_view text);
  /// Makes the text equal to `text` by replacing what differs between the first and the last difference.
  void ReplaceDifference(std::string_view text);
  std::string InDocumentLineEnds(std::string_view text) const;
  /// [start, end) of the lines, without the end of the last one.
  struct ByteRange {
    std::size_t Start, End;
  };
  ByteRange RangeOfLines(std::size_t first, std::size_t last) const;

  ByteRange DifferenceFromPainted(const std::vector<rich_text::ColourRun>& runs) const;
  rich_text::StyledText Styled(std::size_t start, std::size_t end) const;
  void AppendRuns(std::vector<rich_text::ColourRun>& runs, std::size_t start, std::size_t end) const;
  std::vector<std::uint8_t> StylesFor(const std::vector<rich_text::ColourValue>& colours,
                                      const std::vector<rich_text::ColourRun>& runs, bool wholeText);
  /// Gives [start, end) the colours of the runs (offsets of the whole text, colours as places of m_styles) and takes
  /// away all others there.
  void PaintRuns(std::size_t start, std::size_t end, const std::vector<rich_text::ColourRun>& runs);

  void SetUpScintilla();
  void ApplyLook();
  void ShowStyleColours(std::size_t firstPlace);
  void StrikeThrough(std::size_t start, std::size_t length);

  void Type(const std::u32string& characters);
  void InsertTyped(char32_t character);
  void Perform(unsigned command);
  void ReplaceSurrounding(const QInputMethodEvent& event);
  void SetPreedit(const QInputMethodEvent& event);
  QRect PreeditRectangle() const;
  void PaintPreedit();
  QVariant SurroundingQuery(Qt::InputMethodQuery query) const;
  bool TellMouseDown(const QMouseEvent& event);

  TextControlEvents* m_events = nullptr;
  ColourStyles m_styles;
  bool m_coloured = false;                      ///< some byte may have a style
  std::vector<rich_text::ColourRun> m_painted;  ///< what the whole text was given last, colours as places of m_styles
  bool m_knowsPainted = false;                  ///< whether the text still has just these colours
  std::string m_lineEnd = "\r\n";
  std::string m_rtfFont;
  FontRecord m_font;
  bool m_enabled = true;
  bool m_redraw = true;
  bool m_missedPaint = false;

  int m_operations = 0;
  bool m_modified = false;  ///< since the listener was told last
  bool m_tellsLater = false;
  std::optional<TextChange> m_change;
  Selection m_told;

  QString m_preedit;       ///< what an input method is composing; drawn over the text, no part of it
  int m_preeditCaret = 0;  ///< UTF-16 units into it
};

}  // namespace platform::qt
