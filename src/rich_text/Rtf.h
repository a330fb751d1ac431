#pragma once
// Styled text as RTF, and back.
//
// The header names one font and lists the colours; the body begins after the first space behind "\deflang"; every line
// ends with CR LF "\par ". The last paragraph of a whole text ends in the same way and starts no new line; a
// selection's last paragraph does not end. The reader takes all that the writer gives, and RTF of other programs as far
// as it is text and colours: unknown words and groups are passed over, nothing it reads can make it fail.

#include <string>
#include <string_view>

#include "rich_text/StyledText.h"

namespace rich_text {

/// "{\rtf1 … }" for the text; only colours in use stand in its table, in the order of their first use. `fontName` must
/// be plain ASCII without braces, backslash and semicolon. `endLastParagraph` is false for a piece of a line.
std::string WriteRtf(const StyledText& styled, std::string_view fontName, bool endLastParagraph = true);

/// The same for a whole text whose parts lie in different places; what they are is told at StyledText.
std::string WriteRtf(std::string_view text, const std::vector<ColourValue>& colours, const std::vector<ColourRun>& runs,
                     std::string_view fontName, bool endLastParagraph = true);

/// The text and its colours. Lines end with LF. A colour number without an entry in the table is no colour.
StyledText ReadRtf(std::string_view rtf);

/// The header up to and including the table's entry 0: "{\rtf1 … {\colortbl\red0\green0\blue0;".
std::string RtfHeader(std::string_view fontName);

/// What stands between the closed colour table and the first character: "\deflang1033\pard\plain\f0\fs20 ".
inline constexpr std::string_view RtfBodyPrefix = "\\deflang1033\\pard\\plain\\f0\\fs20 ";

/// The offset of the body of a whole RTF: behind the first space after "\deflang", the RTF's size where none follows; 0
/// for a piece of a body, which has no such prefix.
std::size_t RtfBodyStart(std::string_view rtf);

/// "\red" R "\green" G "\blue" B ";".
void AppendColourEntry(std::string& rtf, ColourValue colour);

/// The text [from, to) escaped, a line end of any kind as CR LF "\par ". No character and no line end may be cut.
void AppendRtfText(std::string& rtf, std::string_view text);

/// The reader for a piece of a body, without header and table: the text with line ends as LF. Switches and unknown
/// words are passed over. A line end that closes the piece is kept.
std::string ReadRtfPiece(std::string_view piece);

}  // namespace rich_text
