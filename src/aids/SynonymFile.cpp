#include "aids/SynonymFile.h"

#include <algorithm>
#include <memory>

namespace aids {
namespace {

constexpr std::string_view FirstLine = "Quillmark Synonym File";
constexpr std::string_view Warning =
    "BE CAREFUL IF EDITING THIS FILE, the only check made is that the above line is correct.  Everything else (except "
    "this line) is read, and must be in the correct format.  It is recommended to use the synonym editor on the edit "
    "menu instead.";

/// Takes the next line, without its end, off the text.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end);
  if (text.substr(0, 2) == "\r\n")
    text.remove_prefix(2);
  else if (!text.empty())
    text.remove_prefix(1);
  return line;
}

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(' ') - start + 1);
}

/// Takes the next field, and the comma behind it, off a line. A quote that is not closed ends with the line.
std::string_view TakeField(std::string_view& line) {
  const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
  if (line.substr(start, 1) == "\"") {
    line.remove_prefix(start + 1);
    const std::size_t close = std::min(line.find('"'), line.size());
    const std::string_view field = line.substr(0, close);
    line.remove_prefix(std::min(line.find(',', close), line.size() - 1) + 1);
    return field;
  }
  const std::size_t comma = std::min(line.find(','), line.size());
  const std::string_view field = WithoutBlanks(line.substr(0, comma));
  line.remove_prefix(std::min(comma + 1, line.size()));
  return field;
}

/// A text that does not would end its field too early, and all records after it would be read as others.
bool FitsInQuotes(std::string_view text) {
  return text.find_first_of("\"\r\n") == std::string_view::npos;
}

}  // namespace

std::string WriteSynonyms(const templates::KeyedCollection<templates::Synonym>& synonyms,
                          std::string_view curFileName) {
  std::string text = std::string(FirstLine) + "\r\n";
  if (!curFileName.empty()) text += "Saved From " + std::string(curFileName) + ".  ";
  text += std::string(Warning) + "\r\n";
  for (const auto& synonym : synonyms)
    if (FitsInQuotes(synonym->Word) && FitsInQuotes(synonym->Synonym))
      text += '"' + synonym->Word + "\",\"" + synonym->Synonym + "\"\r\n";
  return text;
}

std::optional<std::vector<templates::Synonym>> ReadSynonyms(std::string_view text) {
  if (TakeLine(text) != FirstLine) return std::nullopt;
  TakeLine(text);
  std::vector<templates::Synonym> records;
  std::optional<std::string_view> word;
  while (!text.empty()) {
    std::string_view line = TakeLine(text);
    if (WithoutBlanks(line).empty()) continue;
    do {
      const std::string_view field = TakeField(line);
      if (word) records.push_back({std::string(*word), std::string(field)});
      word = word ? std::nullopt : std::optional(field);
    } while (!line.empty());
  }
  return records;
}

void ReplaceSynonym(templates::KeyedCollection<templates::Synonym>& synonyms, const templates::Synonym& synonym) {
  synonyms.AddReplacing(std::make_shared<templates::Synonym>(synonym), synonym.Word);
}

}  // namespace aids
