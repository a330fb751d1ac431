#include "shell/CaretPlace.h"

#include <algorithm>

#include "rich_text/Encoding.h"

namespace shell {

std::size_t OffsetOf(const platform::TextControl& control, std::size_t line, std::size_t column) {
  const std::size_t shown = std::clamp<std::size_t>(line, 1, control.LineCount());
  const std::size_t start = control.LineStart(shown), end = control.LineStart(shown + 1);
  if (column <= 1) return start;
  const std::string text = control.TextRange(
      start, start + std::min(end - start, std::min(column, end - start) * rich_text::LongestCharacter));
  std::size_t offset = 0;
  for (std::size_t i = 1; i < column && offset < text.size() && text[offset] != '\r' && text[offset] != '\n'; ++i)
    offset += rich_text::CharacterBytes(text[offset]);
  return start + std::min(offset, text.size());
}

}  // namespace shell
