#pragma once
// The text control as screen readers see it: role, name, text, caret, selection, colours and character rectangles.
//
// Offsets are UTF-16 units of the whole text, as the accessibility interface counts. They are found through an index of
// lines that the editing component keeps up to date from the first question on, so that no answer counts from the top.
// The component's own accessible object does, on every key; this one takes its place.

#include <QAccessibleWidget>

#include "platform/TextControl.h"

namespace platform::qt {

class RichTextBox;

/// Makes every RichTextBox of the program offer a TextAccessible; done once however often it is called. The component's
/// own object is registered by its first widget and must not come later.
void InstallTextAccessible();

/// Tells a listening screen reader what has changed; costs nothing when none listens.
void TellTextChanged(RichTextBox& box, const TextChange& change);
void TellCaretMoved(RichTextBox& box);

class TextAccessible : public QAccessibleWidget,
                       public QAccessibleTextInterface,
                       public QAccessibleEditableTextInterface {
 public:
  explicit TextAccessible(RichTextBox& box);

  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
  int selectionCount() const override;
  void addSelection(int startOffset, int endOffset) override;
  void removeSelection(int selectionIndex) override;
  void setSelection(int selectionIndex, int startOffset, int endOffset) override;
  int cursorPosition() const override;
  void setCursorPosition(int position) override;
  using QAccessibleWidget::text;  // what the widget is called and describes itself as
  QString text(int startOffset, int endOffset) const override;
  QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start, int* end) const override;
  QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start, int* end) const override;
  QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start, int* end) const override;
  int characterCount() const override;
  QRect characterRect(int offset) const override;
  int offsetAtPoint(const QPoint& point) const override;
  void scrollToSubstring(int startIndex, int endIndex) override;
  QString attributes(int offset, int* startOffset, int* endOffset) const override;

  void deleteText(int startOffset, int endOffset) override;
  void insertText(int offset, const QString& text) override;
  void replaceText(int startOffset, int endOffset, const QString& text) override;

  /// From bytes to UTF-16 units and back.
  int UnitsTo(std::size_t offset) const;
  std::size_t BytesTo(int units) const;

 private:
  /// The line of a position and its neighbours: all that a word, sentence or line boundary near it depends on.
  struct Window {
    QString Text;
    int Start;
  };
  Window WindowAround(int offset) const;

  RichTextBox& m_box;
};

}  // namespace platform::qt
