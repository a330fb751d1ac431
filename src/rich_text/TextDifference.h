#pragma once
// Where two texts differ, as one range: what is equal at both ends is left out. Offsets are bytes, half-open, and never
// inside a character or between CR and LF.

#include <cstddef>
#include <string_view>

namespace rich_text {

/// [Start, OldEnd) of the one text became [Start, NewEnd) of the other.
struct TextDifference {
  std::size_t Start = 0, OldEnd = 0, NewEnd = 0;
  bool IsEmpty() const { return Start == OldEnd && Start == NewEnd; }
};

/// The smallest such range of two valid UTF-8 texts.
TextDifference DifferenceOf(std::string_view oldText, std::string_view newText);

}  // namespace rich_text
