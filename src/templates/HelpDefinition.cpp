#include "templates/HelpDefinition.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>

#include "platform/FileParsing.h"
#include "platform/Files.h"
#include "rich_text/Encoding.h"
#include "templates/LineReader.h"
#include "templates/Values.h"

namespace templates {
namespace {

constexpr std::string_view HeaderLine = "Quillmark Help Definition File";
constexpr std::string_view EndField = "==END==";

/// The table's fields, separated by commas and line ends.
class FieldReader {
 public:
  explicit FieldReader(LineReader lines) : m_lines(lines) {}

  /// The next field; nothing at the end of the text. Lines without a field are passed over where a new line begins.
  std::optional<std::string_view> Next() {
    while (!m_rest) {
      m_rest = m_lines.RawLine();
      if (!m_rest) return std::nullopt;
      if (SkipBlanks(*m_rest).empty()) m_rest.reset();
    }
    const std::string_view text = SkipBlanks(*m_rest);
    const bool quoted = text.starts_with('"');
    const std::size_t end = quoted ? std::min(text.find('"', 1), text.size()) : std::min(text.find(','), text.size());
    const std::size_t comma = text.find(',', end);
    if (comma == std::string_view::npos)
      m_rest.reset();
    else
      m_rest = text.substr(comma + 1);
    return quoted ? text.substr(1, end - 1) : text.substr(0, end);
  }

 private:
  static std::string_view SkipBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
  }

  LineReader m_lines;
  std::optional<std::string_view> m_rest;  ///< of the line, when a comma promises one more field there
};

bool IsRegularFile(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

}  // namespace

std::string DerivedHelpFile(const std::string& templateFile) {
  return platform::FileTitle(templateFile) + ".hdf";
}

void ReadHelpDefinitionText(std::string_view text, KeyedCollection<HelpWord>& helpWords) {
  LineReader lines(text);
  if (lines.RawLine() != HeaderLine) return;
  lines.RawLine();
  lines.RawLine();
  const std::string_view prefix = FromCharacter(lines.RawLine().value_or(""), 7);
  const std::string_view suffix = FromCharacter(lines.RawLine().value_or(""), 7);
  FieldReader fields(lines);
  while (true) {
    std::array<std::string_view, 3> entry;
    for (std::string_view& field : entry) {
      const auto next = fields.Next();
      if (!next) return;
      field = *next;
    }
    if (std::all_of(entry.begin(), entry.end(), [](std::string_view field) { return field == EndField; })) return;
    auto word = std::make_shared<HelpWord>();
    word->Word = entry[0];
    word->CommandLine.append(prefix).append(entry[1]).append(suffix);
    word->Name = entry[2];
    helpWords.Add(std::move(word));
  }
}

void ReadHelpDefinition(const std::string& file, KeyedCollection<HelpWord>& helpWords) {
  std::string path = file;
  if (!IsRegularFile(path)) std::replace(path.begin(), path.end(), '\\', '/');
  if (!IsRegularFile(path)) return;
  platform::FileContent content = platform::ReadFile(path);
  if (content.Ok()) ReadHelpDefinitionText(rich_text::DecodeText(std::move(content.Bytes)).Text, helpWords);
}

}  // namespace templates
