#pragma once
// Texts taken apart into characters, as plain models of the program's rules read them.

#include <string>
#include <string_view>
#include <vector>

#include "platform/TextControl.h"
#include "rich_text/Encoding.h"
#include "rich_text/Rtf.h"

namespace tests {

/// The parts of a list that is written with "|" between them.
inline std::vector<std::string> Split(std::string_view list) {
  std::vector<std::string> parts(1);
  for (const char c : list)
    if (c == '|')
      parts.emplace_back();
    else
      parts.back() += c;
  return parts;
}

inline std::u32string FromUtf8(std::string_view text) {
  std::u32string characters;
  for (std::size_t i = 0; i < text.size();) {
    const rich_text::CodePoint point = rich_text::CodePointAt(text, i);
    characters += point.Value;
    i += point.Bytes;
  }
  return characters;
}

inline std::string ToUtf8(const std::u32string& characters) {
  std::string text;
  for (const char32_t character : characters) rich_text::AppendUtf8(text, character);
  return text;
}

/// Whether the offset lies inside a character of several bytes, or between CR and LF.
inline bool IsInside(std::string_view text, std::size_t at) {
  if (at == 0 || at >= text.size()) return false;
  return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80 || (text[at] == '\n' && text[at - 1] == '\r');
}

/// How a text is coloured, a sign a byte: what `sign` gives for the value of a colour, "." for none, "|" for a line
/// end.
template <typename Sign>
std::string ColourPicture(const platform::TextControl& control, Sign sign) {
  const rich_text::StyledText styled = rich_text::ReadRtf(control.TextRTF());
  std::string picture(styled.Text.size(), '.');
  for (const rich_text::ColourRun& run : styled.Runs)
    picture.replace(run.Start, run.End - run.Start, run.End - run.Start, sign(styled.Colours[run.Colour - 1]));
  for (std::size_t i = 0; i < picture.size(); ++i)
    if (styled.Text[i] == '\n') picture[i] = '|';
  return picture;
}

/// The same with "c" for every colour.
inline std::string ColourPicture(const platform::TextControl& control) {
  return ColourPicture(control, [](rich_text::ColourValue) { return 'c'; });
}

}  // namespace tests
