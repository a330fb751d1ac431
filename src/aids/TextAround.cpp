#include "aids/TextAround.h"

#include <algorithm>

#include "rich_text/Encoding.h"

namespace aids {
namespace {

constexpr std::size_t PieceBytes = 256;

/// How many bytes of the piece are whole characters; a piece that is all of the rest has no others.
std::size_t WholeCharacters(std::string_view piece) {
  std::size_t last = piece.size();
  while (last > 0 && rich_text::ContinuesCharacter(piece[last - 1])) --last;
  if (last == 0) return piece.size();
  const std::size_t needed = rich_text::CharacterBytes(piece[last - 1]);
  return last - 1 + needed <= piece.size() ? piece.size() : last - 1;
}

}  // namespace

void VisitCharacters(const platform::TextControl& control, std::size_t start, std::size_t end,
                     const std::function<bool(std::size_t, std::string_view)>& visit) {
  const std::size_t last = std::min(end, control.Length());
  for (std::size_t at = start; at < last;) {
    const std::string piece = control.TextRange(at, std::min(at + PieceBytes, last));
    const std::size_t whole = WholeCharacters(piece);
    if (whole == 0) return;
    for (std::size_t i = 0; i < whole;) {
      const std::size_t bytes = rich_text::CharacterBytes(piece[i]);
      if (!visit(at + i, std::string_view(piece).substr(i, bytes))) return;
      i += bytes;
    }
    at += whole;
  }
}

std::size_t FirstDelimeter(const platform::TextControl& control, const templates::TemplateFields& fields,
                           std::size_t start, std::size_t end) {
  std::size_t found = std::max(start, std::min(end, control.Length()));
  VisitCharacters(control, start, end, [&](std::size_t offset, std::string_view character) {
    if (!fields.IsDelimeter(character)) return true;
    found = offset;
    return false;
  });
  return found;
}

std::string CharactersAt(const platform::TextControl& control, std::size_t start, std::size_t count) {
  std::string text;
  if (count == 0) return text;
  VisitCharacters(control, start, control.Length(), [&](std::size_t, std::string_view character) {
    text += character;
    return --count > 0;
  });
  return text;
}

}  // namespace aids
