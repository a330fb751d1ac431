#include "aids/WordAtCaret.h"

#include "aids/TextAround.h"
#include "rich_text/Encoding.h"

namespace aids {
namespace {

constexpr std::size_t PieceBytes = 256;

/// The offset behind the last delimiter before `caret`, 0 when there is none.
std::size_t WordStart(const platform::TextControl& control, const templates::TemplateFields& fields,
                      std::size_t caret) {
  std::size_t end = caret;
  while (end > 0) {
    const std::size_t from = end > PieceBytes ? end - PieceBytes : 0;
    const std::string piece = control.TextRange(from, end);
    std::string_view rest = rich_text::FromWholeCharacter(piece);
    const std::size_t start = end - rest.size();  // a character that the piece cuts belongs to the piece before
    while (!rest.empty()) {
      const std::string_view last = rich_text::LastCharacter(rest);
      if (fields.IsDelimeter(last)) return start + rest.size();
      rest.remove_suffix(last.size());
    }
    if (from == 0) return 0;
    end = start;
  }
  return 0;
}

}  // namespace

WordRange WordAtCaret(const platform::TextControl& control, const templates::TemplateFields& fields) {
  const std::size_t caret = control.SelStart();
  return {WordStart(control, fields, caret), FirstDelimeter(control, fields, caret, control.Length())};
}

}  // namespace aids
