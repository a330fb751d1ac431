#pragma once
// Where the pop-ups go: the list with its words under the caret, the tooltip under the beginning of its word, both
// below the caret's line. At the bottom edge of the screen a pop-up flips above the caret's line, at the right edge it
// moves left, and it never begins left of or above the screen.
//
// Twips, counted from the desktop's upper left corner.

namespace aids {

struct Box {
  float Left = 0, Top = 0, Width = 0, Height = 0;
};

/// Where the caret is drawn, in pixels of the desktop, and the height of its line.
struct CaretPoint {
  int X = 0, Y = 0;
  int tmHeight = 0;
};

/// The list: the icon and the window's frame stand left of the caret.
Box ListBox(const CaretPoint& caret, int dialogFrame, float width, float height);

/// The tooltip: `w` is the width of its word and the delimiter after it, in twips.
Box TipBox(const CaretPoint& caret, float w, float width, float height);

/// The box moved so that it is seen on the caret's screen.
Box KeptOnScreen(Box box, const CaretPoint& caret, const Box& screen);

/// The box, or, where it would lie under another one, the box moved above the caret's line, and below the other one
/// when there is no room above.
Box KeptClearOf(const Box& other, Box box, const CaretPoint& caret, const Box& screen);

}  // namespace aids
