#pragma once
// A definition as a text, for tables of small definitions: one line a part, "3: if else" for a list of role 3, "1 /*
// */" for a range of role 1, "!4 …" for a loss in line 4. Larger definitions are files below cases/.

#include <filesystem>
#include <string>

#include "import/Definition.h"
#include "tests/unit/SourceFile.h"

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

/// Reads every definition of a folder of cases that has what is read of it beside it, in a file with ".read" behind its
/// name; the other files are neighbours that definitions take in. `read` is given the text and the neighbours.
template <typename Read>
void ExpectRead(const std::string& folder, Read read) {
  const std::string cases = "tests/unit/import/cases/" + folder + '/';
  const auto beside = [&](std::string_view name) -> std::optional<std::string> {
    const std::string path = cases + std::string(name);
    if (!std::filesystem::exists(QUILLMARK_SOURCE_DIR "/" + path)) return std::nullopt;
    return SourceFile(path);
  };
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(QUILLMARK_SOURCE_DIR "/" + cases)) {
    if (entry.path().extension() != ".read") continue;
    ++count;
    EXPECT_EQ(Describe(read(SourceFile(cases + entry.path().stem().string()), beside)),
              SourceFile(cases + entry.path().filename().string()))
        << entry.path();
  }
  EXPECT_GT(count, 0);
}

}  // namespace tests
