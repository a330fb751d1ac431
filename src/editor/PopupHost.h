#pragma once
// What key handling asks of the two pop-ups, the completion list and the tooltip. A document has one host; the windows
// behind it are the same for all documents.
//
// A typed delimiter leaves its request in DocumentState: ListPending or TipPending, with ActionWord and
// ActionDelimeter; the host takes it up at the key's release. Whoever implements it gets the document's control and
// state (Document::State) when it is made, outlives the document's use of it, and sets DontChange while it writes.

namespace editor {

class PopupHost {
 public:
  virtual ~PopupHost() = default;

  /// Whether the completion list, or the tooltip, is on screen for this document.
  virtual bool PopupListShown() const = 0;
  virtual bool ToolTipShown() const = 0;

  /// Writes the selected row, if there is one, in place of the word under the caret, and closes the list.
  virtual void WriteIt() = 0;

  /// A key went down (virtual code and Shift as in TextControlEvents), before the document looks at it: Up, Down, Page
  /// Up and Page Down while the list is shown, and Esc. True consumes the key. Any other key is left alone.
  virtual bool KeyDown(int keyCode, int shift) = 0;

  /// A key was released: opens what is pending, narrows a shown list, closes what no longer fits the text. True
  /// swallows the release, so that the document does nothing more about it.
  virtual bool KeyUp(int keyCode, int shift) = 0;

  /// Takes the tooltip off the screen; nothing when there is none.
  virtual void CloseToolTip() = 0;

  /// Takes both off the screen, as the document is about to close.
  virtual void CloseAll() = 0;
};

/// A host that never shows anything.
class NoPopups final : public PopupHost {
 public:
  bool PopupListShown() const override { return false; }
  bool ToolTipShown() const override { return false; }
  void WriteIt() override {}
  bool KeyDown(int, int) override { return false; }
  bool KeyUp(int, int) override { return false; }
  void CloseToolTip() override {}
  void CloseAll() override {}
};

}  // namespace editor
