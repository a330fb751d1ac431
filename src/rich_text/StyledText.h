#pragma once
// Text with coloured runs: what a text control shows, what the colouring makes and what travels as RTF.
//
// Text is always valid UTF-8, whatever the file's own encoding was. Line ends inside it are CR LF, LF or CR, as they
// came. Offsets are bytes, 0-based; ranges are half-open. Colour numbers are 1-based places in Colours; 0 is the
// control's own text colour.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace rich_text {

/// A colour: red in the low byte, green in the second, blue in the third, the top byte zero.
using ColourValue = std::uint32_t;

/// One coloured stretch, [Start, End) in bytes.
struct ColourRun {
  std::size_t Start = 0;
  std::size_t End = 0;
  std::uint32_t Colour = 0;  ///< 1-based place in StyledText::Colours

  bool operator==(const ColourRun&) const = default;
};

struct StyledText {
  std::string Text;                  ///< valid UTF-8
  std::vector<ColourValue> Colours;  ///< colour number n is Colours[n - 1]
  std::vector<ColourRun> Runs;       ///< ascending, never overlapping, never empty; what lies between has no colour
};

/// The length in bytes of the line end that starts at `offset` of `text`: 2 for CR LF, 1 for a lone CR or LF, 0 where
/// no line end starts.
std::size_t LineEndLength(std::string_view text, std::size_t offset);

/// The offset of the first line end (of any kind) at or after `from`, or the text's size when none follows.
std::size_t FindLineEnd(std::string_view text, std::size_t from);

/// Whether the offset lies inside a character of the text, or between the CR and the LF of a pair.
bool SplitsCharacter(std::string_view text, std::size_t offset);

/// Whether two texts are the same when every kind of line end counts as the same one.
bool EqualButForLineEnds(std::string_view a, std::string_view b);

}  // namespace rich_text
