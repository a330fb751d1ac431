#include "aids/TipRules.h"

#include "aids/TextAround.h"
#include "editor/ColourPass.h"
#include "rich_text/Encoding.h"

namespace aids {
namespace {

/// The caption's last character when typing it ends the hint: a delimiter other than a blank that stands there once.
std::string ClosingCharacter(const templates::TemplateFields& fields, std::string_view caption) {
  const std::string_view character = rich_text::LastCharacter(caption);
  const bool closes =
      character != " " && fields.IsDelimeter(character) && caption.find(character) == caption.size() - character.size();
  return closes ? std::string(character) : std::string();
}

/// Whether the text typed so far has used up the hint.
bool IsTypedOut(const platform::TextControl& control, const templates::TemplateFields& fields, const ShownTip& tip,
                std::size_t caret) {
  const std::string closing = ClosingCharacter(fields, tip.Caption);
  std::size_t delimeters = 0;
  bool typedOut = tip.TipDelimeters == 0;
  VisitCharacters(control, tip.InTipTextStart, caret, [&](std::size_t, std::string_view character) {
    if (fields.IsDelimeter(character)) ++delimeters;
    typedOut = delimeters >= tip.TipDelimeters || character == closing;
    return !typedOut;
  });
  return typedOut;
}

}  // namespace

std::size_t CountDelimeters(const templates::TemplateFields& fields, std::string_view text) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t bytes = rich_text::CharacterBytes(text[i]);
    if (fields.IsDelimeter(text.substr(i, bytes))) ++count;
    i += bytes;
  }
  return count;
}

bool TipStillValid(const platform::TextControl& control, const templates::TemplateFields& fields, const ShownTip& tip,
                   std::size_t caret) {
  if (caret < tip.InTipTextStart || IsTypedOut(control, fields, tip, caret)) return false;
  const std::string word = CharactersAt(control, tip.InTipTextStart, rich_text::CharacterCount(tip.TipTextWord));
  return editor::CaseFold(fields, word) == editor::CaseFold(fields, tip.TipTextWord);
}

}  // namespace aids
