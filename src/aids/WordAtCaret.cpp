#include "aids/WordAtCaret.h"

#include <algorithm>

#include "aids/TextAround.h"
#include "aids/TextSearch.h"

namespace aids {
namespace {

constexpr std::size_t PieceBytes = 256;

bool Continues(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The offset behind the last delimiter before `caret`, 0 when there is none.
std::size_t WordStart(const platform::TextControl& control, const templates::TemplateFields& fields,
                      std::size_t caret) {
  std::size_t end = caret;
  while (end > 0) {
    const std::size_t from = end > PieceBytes ? end - PieceBytes : 0;
    const std::string piece = control.TextRange(from, end);
    std::string_view rest = piece;
    // A character that the piece cuts belongs to the piece before.
    const std::size_t whole =
        static_cast<std::size_t>(std::find_if_not(piece.begin(), piece.end(), Continues) - piece.begin());
    while (rest.size() > whole) {
      const std::string_view last = LastCharacter(rest);
      if (fields.IsDelimeter(last)) return from + rest.size();
      rest.remove_suffix(last.size());
    }
    if (from == 0) return 0;
    end = from + whole;
  }
  return 0;
}

}  // namespace

WordRange WordAtCaret(const platform::TextControl& control, const templates::TemplateFields& fields) {
  const std::size_t caret = control.SelStart();
  return {WordStart(control, fields, caret), FirstDelimeter(control, fields, caret, control.Length())};
}

}  // namespace aids
