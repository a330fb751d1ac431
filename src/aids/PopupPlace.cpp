#include "aids/PopupPlace.h"

#include <algorithm>

#include "platform/Twips.h"

namespace aids {
namespace {

using platform::TwipsX, platform::TwipsY;

constexpr int IconAndGap = 17;

bool Overlap(const Box& left, const Box& right) {
  return left.Left < right.Left + right.Width && right.Left < left.Left + left.Width &&
         left.Top < right.Top + right.Height && right.Top < left.Top + left.Height;
}

}  // namespace

Box ListBox(const CaretPoint& caret, int dialogFrame, float width, float height) {
  return {TwipsX * static_cast<float>(caret.X - IconAndGap - dialogFrame),
          TwipsY * static_cast<float>(caret.Y + caret.tmHeight), width, height};
}

Box TipBox(const CaretPoint& caret, float w, float width, float height) {
  return {TwipsX * static_cast<float>(caret.X - 1) - w, TwipsY * static_cast<float>(caret.tmHeight + caret.Y), width,
          height};
}

Box KeptOnScreen(Box box, const CaretPoint& caret, const Box& screen) {
  const float right = screen.Left + screen.Width, bottom = screen.Top + screen.Height;
  const float above = TwipsY * static_cast<float>(caret.Y) - box.Height;
  if (box.Top + box.Height > bottom) box.Top = above >= screen.Top ? above : bottom - box.Height;
  box.Top = std::max(box.Top, screen.Top);
  box.Left = std::max(std::min(box.Left, right - box.Width), screen.Left);
  return box;
}

Box KeptClearOf(const Box& other, Box box, const CaretPoint& caret, const Box& screen) {
  if (!Overlap(other, box)) return box;
  Box moved = box;
  for (const float top : {TwipsY * static_cast<float>(caret.Y) - box.Height, other.Top + other.Height}) {
    moved.Top = top;
    const bool isSeen = top >= screen.Top && top + box.Height <= screen.Top + screen.Height;
    if (isSeen && !Overlap(other, moved)) return moved;
  }
  return box;
}

}  // namespace aids
