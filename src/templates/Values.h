#pragma once
// The values inside template lines: the cutting into fields, and the conversions, which are as lenient as people write
// by hand: blanks around a number do not count, a boolean may be a number. What does not convert gives nothing.

#include <charconv>
#include <concepts>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "rich_text/StyledText.h"

namespace templates {

/// The rest of a line from a 1-based character on; "" when the line is shorter. The line is valid UTF-8.
std::string_view FromCharacter(std::string_view line, std::size_t position);

/// Cuts `text` into as many fields as there is room for. A field that begins with a double quote, where such are
/// allowed, runs to the next one and keeps both; any other runs to the next space, the last to the end of the text. The
/// next field starts one character behind. False when there are too few fields or a quote is not closed.
bool SplitFields(std::string_view text, std::span<std::string_view> fields, bool quotedAllowed);

/// What stands between the double quotes of a field; nothing when they are missing.
std::optional<std::string_view> StripQuotes(std::string_view field);

/// `text` without its first and its last character, whatever they are.
std::string_view DropEnds(std::string_view text);

/// `text` without the blanks around it.
std::string_view Trimmed(std::string_view text);

/// A whole decimal number with an optional sign; nothing when it is none or does not fit.
template <std::signed_integral Number>
std::optional<Number> ParseInteger(std::string_view text) {
  text = Trimmed(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

/// True or False in any letter case, or a number: all but 0 are true.
std::optional<bool> ParseBoolean(std::string_view text);

/// Hexadecimal digits, up to FFFFFF.
std::optional<rich_text::ColourValue> ParseHexColour(std::string_view digits);

/// "#" and six upper-case hexadecimal digits.
std::string HexColour(rich_text::ColourValue value);

}  // namespace templates
