#include "aids/SynonymFile.h"

#include <algorithm>
#include <memory>

#include "templates/LineReader.h"

namespace aids {
namespace {

constexpr std::string_view FirstLine = "Quillmark Synonym File";
constexpr std::string_view Warning =
    "BE CAREFUL IF EDITING THIS FILE, the only check made is that the above line is correct.  Everything else (except "
    "this line) is read, and must be in the correct format.  It is recommended to use the synonym editor on the edit "
    "menu instead.";

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
  templates::LineReader lines(text);
  if (lines.RawLine() != FirstLine) return std::nullopt;
  lines.RawLine();
  std::vector<templates::Synonym> records;
  std::optional<std::string_view> word;
  while (const auto line = lines.RawLine()) {
    std::string_view rest = *line;
    if (WithoutBlanks(rest).empty()) continue;
    do {
      const std::string_view field = TakeField(rest);
      if (word) records.push_back({std::string(*word), std::string(field)});
      word = word ? std::nullopt : std::optional(field);
    } while (!rest.empty());
  }
  return records;
}

void ReplaceSynonym(templates::KeyedCollection<templates::Synonym>& synonyms, const templates::Synonym& synonym) {
  synonyms.AddReplacing(std::make_shared<templates::Synonym>(synonym), synonym.Word);
}

}  // namespace aids
