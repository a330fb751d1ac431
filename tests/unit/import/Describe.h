#pragma once
// A definition as a text, for tables of small definitions: one line a part, "3: if else" for a list of role 3, "1 /*
// */" for a range of role 1, "!4 …" for a loss in line 4.

#include <string>

#include "import/Definition.h"

namespace tests {

inline std::string Describe(const import::Definition& definition) {
  std::string text = definition.Name;
  for (const std::string& extension : definition.Extensions) text += " ." + extension;
  if (!definition.CaseSensitive) text += " any case";
  if (!definition.BackslashEscapes) text += " no escapes";
  if (definition.HasNumbers) text += " numbers";
  for (const std::string& credit : {definition.Version, definition.Author, definition.Licence})
    if (!credit.empty()) text += " [" + credit + ']';
  text += '\n';
  const auto role = [](import::Role value) { return std::to_string(static_cast<int>(value)); };
  for (const import::Range& range : definition.Ranges)
    text += role(range.Class) + ' ' + range.Start + (range.End.empty() ? "" : ' ' + range.End) + '\n';
  for (const import::WordList& list : definition.Lists) {
    text += role(list.Class) + ':';
    for (const std::string& word : list.Words) text += ' ' + word;
    text += '\n';
  }
  for (const import::Loss& loss : definition.Losses) text += '!' + std::to_string(loss.Line) + ' ' + loss.What + '\n';
  return text;
}

inline std::string Describe(const import::ReadDefinition& read) {
  if (read.Error.empty()) return Describe(read.Read);
  return "error " + std::to_string(read.ErrorLine) + ": " + read.Error + '\n';
}

}  // namespace tests
