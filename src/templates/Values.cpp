#include "templates/Values.h"

#include <cctype>

#include "rich_text/Encoding.h"

namespace templates {

std::string_view FromCharacter(std::string_view line, std::size_t position) {
  std::size_t offset = 0;
  for (std::size_t i = 1; i < position && offset < line.size(); ++i) offset += rich_text::CharacterBytes(line[offset]);
  return line.substr(offset);
}

bool SplitFields(std::string_view text, std::span<std::string_view> fields, bool quotedAllowed) {
  std::size_t start = 0;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (start > text.size()) return false;
    std::size_t end = text.size();
    if (quotedAllowed && start < text.size() && text[start] == '"') {
      const std::size_t quote = text.find('"', start + 1);
      if (quote == std::string_view::npos) return false;
      end = quote + 1;
    } else if (i + 1 < fields.size()) {
      end = text.find(' ', start);
      if (end == std::string_view::npos) return false;
    }
    fields[i] = text.substr(start, end - start);
    start = end + 1;
  }
  return true;
}

std::optional<std::string_view> StripQuotes(std::string_view field) {
  if (field.size() < 2 || field.front() != '"' || field.back() != '"') return std::nullopt;
  return field.substr(1, field.size() - 2);
}

std::string_view DropEnds(std::string_view text) {
  text = FromCharacter(text, 2);
  text.remove_suffix(rich_text::LastCharacter(text).size());
  return text;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  return first == std::string_view::npos ? std::string_view{}
                                         : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::optional<bool> ParseBoolean(std::string_view text) {
  text = Trimmed(text);
  const std::string word = rich_text::LowerCase(text);
  if (word == "true") return true;
  if (word == "false") return false;
  if (text.starts_with('+')) text.remove_prefix(1);
  if (text.empty() || std::isalpha(static_cast<unsigned char>(text.back())) != 0) return std::nullopt;  // "inf", "nan"
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number != 0;
}

std::optional<rich_text::ColourValue> ParseHexColour(std::string_view digits) {
  digits = Trimmed(digits);
  rich_text::ColourValue value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  if (error != std::errc{} || end != digits.data() + digits.size() || value > 0xFFFFFF) return std::nullopt;
  return value;
}

std::string HexColour(rich_text::ColourValue value) {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  std::string hex = "#";
  for (int shift = 20; shift >= 0; shift -= 4) hex += Digits[value >> shift & 0xF];
  return hex;
}

}  // namespace templates
