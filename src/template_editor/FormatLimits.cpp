#include "template_editor/FormatLimits.h"

namespace template_editor {
namespace {

bool HasAny(std::string_view text, std::string_view characters) {
  return text.find_first_of(characters) != std::string_view::npos;
}

}  // namespace

std::string WhyNotColourWord(const templates::colWord& word) {
  if (word.StartWord.empty()) return "Enter the colour word first.";
  if (HasAny(word.StartWord, " \r\n")) return "A colour word cannot contain spaces.";
  if (HasAny(word.EndWord, " \r\n")) return "The word that ends the colour cannot contain spaces.";
  return "";
}

std::string WhyNotActionWord(std::string_view name) {
  if (name.empty()) return "Enter the action word first.";
  if (HasAny(name, "\"\r\n")) return "An action word cannot contain double quotes.";
  return "";
}

std::string WhyNotDelimeter(std::string_view delimeter) {
  if (delimeter.empty()) return "Enter the delimiter first.";
  if (HasAny(delimeter, "\"\r\n")) return "The double quote cannot be the delimiter of an action word.";
  return "";
}

std::string WhyNotListEntry(std::string_view entry) {
  if (entry.empty()) return "Enter the list entry first.";
  if (entry.front() == ';') return "A list entry cannot begin with a semicolon.";
  if (HasAny(entry, "\r\n")) return "A list entry is one line.";
  return "";
}

}  // namespace template_editor
