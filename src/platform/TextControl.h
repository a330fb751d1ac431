#pragma once
// The text control as colouring, keys, undo and editing aids see it. The real one stands on the editing component of
// the desktop; the tests have a small one in memory; one contract suite runs on both.
//
// Text is valid UTF-8. Offsets and lengths are bytes, 0-based, and never split a character or a CR LF pair; an offset
// outside the text is taken as its nearest end. A selection that was kept while the text changed may be put back
// anywhere: an end that would split a character or a pair goes in front of it. Lines are 1-based and end with CR LF, LF
// or CR; a text always has a last line, which may be empty. Scroll positions are lines (vertical) and pixels
// (horizontal).

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FontRecord.h"
#include "rich_text/StyledText.h"

namespace platform {

/// What a change did: at Start, Removed stood before, and the Inserted bytes stand now.
struct TextChange {
  std::size_t Start = 0;
  std::string Removed;
  std::size_t Inserted = 0;
};

/// Modifier keys, added up.
namespace Shift {
inline constexpr int None = 0, ShiftKey = 1, Ctrl = 2, Alt = 4;
}

/// Who listens to a control. Called on the window thread; the control is in its new state already.
class TextControlEvents {
 public:
  virtual ~TextControlEvents() = default;

  /// A key went down. `keyCode` is the key's virtual code (9 Tab, 27 Esc, 37 Left …); true consumes the key.
  virtual bool KeyDown(int keyCode, int shift) = 0;
  /// A key or an input method gave the character; true consumes it.
  virtual bool KeyPress(char32_t character) = 0;
  virtual void KeyUp(int keyCode, int shift) = 0;
  virtual void Change(const TextChange& change) = 0;
  virtual void SelChange() = 0;
  /// Button 1 left, 2 right, 4 middle; x and y in pixels of the control. True consumes the click.
  virtual bool MouseDown(int button, int shift, int x, int y) = 0;
  virtual void MouseUp(int button, int shift, int x, int y) = 0;
  /// Files were dropped on the text: absolute paths, one a line.
  virtual void FilesDropped(const std::vector<std::string>& paths) = 0;
};

class TextControl {
 public:
  virtual ~TextControl() = default;

  /// At most one listener, not owned; null for none.
  virtual void SetEvents(TextControlEvents* events) = 0;

  // The whole text.
  virtual std::size_t Length() const = 0;
  virtual std::string Text() const = 0;
  /// Replaces the text; all of it is without colour afterwards and the caret is at its start.
  virtual void SetText(std::string_view text) = 0;
  /// Makes room for a text of so many bytes, so that setting it takes less time. Nothing that can be seen changes.
  virtual void Reserve(std::size_t bytes) = 0;
  /// The bytes [start, end).
  virtual std::string TextRange(std::size_t start, std::size_t end) const = 0;
  /// The whole text and its colours as RTF.
  virtual std::string TextRTF() const = 0;
  /// When the RTF's text is the control's own (line ends of any kind being equal), only colours change: no byte, no
  /// caret, no scroll position, no Change event. Otherwise the text is replaced, its line ends in the document's kind.
  virtual void SetTextRTF(std::string_view rtf) = 0;

  // The selection. SetSelStart empties it; SetSelLength reaches forward from its start.
  virtual std::size_t SelStart() const = 0;
  virtual void SetSelStart(std::size_t start) = 0;
  virtual std::size_t SelLength() const = 0;
  virtual void SetSelLength(std::size_t length) = 0;
  virtual std::string SelText() const = 0;
  /// Replaces the selection; the caret stands behind what was put in, nothing is selected.
  virtual void SetSelText(std::string_view text) = 0;
  /// The end of the selection that moves with Shift and the arrow keys; its other end with Select.
  virtual std::size_t Caret() const = 0;
  /// The selection between `anchor` and `caret`, which may stand before it.
  virtual void Select(std::size_t anchor, std::size_t caret) = 0;
  /// The selection as RTF; its last paragraph does not end, so that a selection inside one line has no line end.
  virtual std::string SelRTF() const = 0;

  // Lines. None of these costs more in a longer text.
  virtual std::size_t LineCount() const = 0;
  /// The line (1-based) in which `offset` lies.
  virtual std::size_t LineOf(std::size_t offset) const = 0;
  /// The offset of a line's first character; the text's length for a line behind the last.
  virtual std::size_t LineStart(std::size_t line) const = 0;
  /// Characters (code points) between the start of its line and `offset`, plus 1.
  virtual std::size_t ColumnOf(std::size_t offset) const = 0;
  /// The lines first to last (1-based, both included) as RTF of their own, each line ended.
  virtual std::string LinesRTF(std::size_t first, std::size_t last) const = 0;
  /// Colours the lines first to last as in the RTF, the end of the last one without colour; ignored when its text is
  /// not that of the lines.
  virtual void SetLinesRTF(std::size_t first, std::size_t last, std::string_view rtf) = 0;

  /// The line end that new lines get: that of the first line end of the text last set, CR LF when it had none.
  virtual std::string_view LineEnd() const = 0;

  // Colours without RTF.
  /// Takes every colour away and gives the runs theirs (their offsets are the control's own); nothing else changes. The
  /// same as SetTextRTF with the RTF of the runs.
  virtual void SetColours(const std::vector<rich_text::ColourValue>& colours,
                          std::vector<rich_text::ColourRun> runs) = 0;

  // The view.
  /// The offset of the character nearest to a point, in pixels of the control.
  virtual std::size_t OffsetAt(int x, int y) const = 0;
  virtual bool Enabled() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual std::size_t VerticalScroll() const = 0;
  virtual void SetVerticalScroll(std::size_t line) = 0;
  virtual std::size_t HorizontalScroll() const = 0;
  virtual void SetHorizontalScroll(std::size_t pixels) = 0;
  /// While false nothing is painted.
  virtual void SetRedraw(bool redraw) = 0;
  virtual void Refresh() = 0;
  virtual void SetWordWrap(bool on) = 0;
  virtual void SetFont(const FontRecord& font) = 0;
  virtual void SetFocus() = 0;
};

}  // namespace platform
