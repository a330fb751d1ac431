#pragma once
// Five scanners over the text control's RTF, or a piece of its body. They tell text from codes: an escaped backslash is
// a character, whatever letters follow it. Positions in RTF are 1-based bytes; nothing here fails, whatever the bytes
// are.

#include <cstddef>
#include <span>
#include <string_view>

namespace editor::rtfscan {

/// Takes the colour switches ("\cf" n " ") and the "\plain" runs up to their closing space out of a piece, in place.
/// Returns the length of what is left, which stands at the piece's start.
std::size_t ClearLn(std::span<char> piece);

/// The position of the first character of line `n` + 1 of a body, that is, behind its n-th "\par "; the position behind
/// the body when it has fewer lines.
std::size_t GoToLine(std::string_view body, std::size_t n);

/// The number of leading spaces of the 1-based `line` of a whole RTF; 0 for a line that does not exist.
std::size_t WhiteSpace(std::string_view rtf, std::size_t line);

/// The number of "\par" in the RTF, plus 1. As a whole text's last paragraph ends with one too, the text itself has one
/// line less.
std::size_t NumberOfLinesIn(std::string_view rtf);

/// The position in a whole RTF of the character at the 0-based `offset` of its plain text, a line end counting as two
/// characters; the position behind the last character for an offset beyond it. `cachePos` and `cacheOffset` are the
/// position and the offset at which that character's line begins; a call with a `cachePos` above 0 goes on from there
/// and needs an `offset` that is not before `cacheOffset`.
std::size_t RTFPosition(std::string_view rtf, std::size_t offset, std::size_t& cachePos, std::size_t& cacheOffset);

}  // namespace editor::rtfscan
