#pragma once
// Which style number of the editing component stands for which colour.
//
// Style 0 is text without colour. The component keeps the numbers 32 to 39 for itself, so that 247 colours have a
// number of their own at one time; a colour that comes later takes the number of the nearest one. Owns nothing of the
// widget.

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "rich_text/StyledText.h"

namespace platform::qt {

class ColourStyles {
 public:
  static constexpr std::size_t MaxColours = 247;

  /// The style number of a colour: its own, a new one while there is one, else that of the nearest colour in use.
  std::uint8_t StyleOf(rich_text::ColourValue colour);

  /// Whether all these colours can have numbers of their own beside those already given.
  bool HasRoomFor(const std::vector<rich_text::ColourValue>& colours) const;

  /// The colours in the order of their numbers.
  const std::vector<rich_text::ColourValue>& Colours() const { return m_colours; }

  /// The 1-based place in Colours() of a style number, 0 for text without colour.
  static std::uint32_t PlaceOf(std::uint8_t style);

  /// The style number of the 1-based place in Colours().
  static std::uint8_t StyleAt(std::size_t place);

  void Clear();

 private:
  std::size_t NearestPlace(rich_text::ColourValue colour) const;

  std::vector<rich_text::ColourValue> m_colours;
  std::unordered_map<rich_text::ColourValue, std::uint8_t> m_styles;
};

/// How far two colours are told apart: 1 (not at all) to 21 (black on white).
double Contrast(rich_text::ColourValue a, rich_text::ColourValue b);

/// The colour to draw text of `colour` in: itself on a light background; on a dark one lightened, as far as needed, to
/// a contrast of 4.5 to 1.
rich_text::ColourValue ReadableColour(rich_text::ColourValue colour, rich_text::ColourValue background);

}  // namespace platform::qt
