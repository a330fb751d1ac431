#include "settings/FileInfos.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <vector>

#include "platform/Files.h"
#include "rich_text/Encoding.h"
#include "templates/LineReader.h"
#include "templates/Model.h"
#include "templates/Values.h"

namespace settings {
namespace {

constexpr std::string_view SynonymsPrefix = "Synonyms=";
constexpr std::string_view TemplatePrefix = "Template=";
constexpr std::string_view Comments =
    ";Quillmark File Information file.  Delete only entire sections, please.  File may become corrupt otherwise.\r\n"
    ";Do not put any spaces around = signs, and make sure each section has a synonyms and a template value.  ; "
    "comments\r\n";

std::string AsUtf8(std::string_view text) {
  return rich_text::IsValidUtf8(text) ? std::string(text) : rich_text::DecodeText(text).Text;
}

bool FitsOnLine(std::string_view text) {
  return text.find_first_of("\r\n") == std::string_view::npos;
}

/// The sections of a text by its lines, with what follows each line found beforehand: a text of nothing but headers
/// costs no more than another.
class SectionReader {
 public:
  explicit SectionReader(std::string_view text) {
    templates::LineReader reader(text);
    while (const auto line = reader.RawLine()) m_lines.push_back(*line);
    m_headers = NextPlaces("[");
    m_synonyms = NextPlaces(SynonymsPrefix);
    m_templates = NextPlaces(TemplatePrefix);
  }

  void ReadInto(FileInfos& records) const {
    std::size_t header = m_headers[0];
    while (header < m_lines.size()) {
      const std::size_t synonyms = m_synonyms[header + 1];
      const std::size_t templateLine = synonyms < m_lines.size() ? m_templates[synonyms + 1] : synonyms;
      const bool isWhole = templateLine < m_lines.size();
      FileInfo record = isWhole ? Whole(synonyms, templateLine) : CutOff(header);
      record.FileName = templates::DropEnds(m_lines[header]);
      const bool tells = isWhole || !record.UsesTemplate.empty() || !record.UsesSynonyms.empty();
      if (!record.FileName.empty() && tells) records.Put(record);
      header = m_headers[header + 1];  // also when this section reached into the next one
    }
  }

 private:
  /// For each line, and for the end, the first line from there on that begins with the prefix; the number of lines when
  /// there is none.
  std::vector<std::size_t> NextPlaces(std::string_view prefix) const {
    std::vector<std::size_t> places(m_lines.size() + 2, m_lines.size());
    for (std::size_t i = m_lines.size(); i-- > 0;) places[i] = m_lines[i].starts_with(prefix) ? i : places[i + 1];
    return places;
  }

  std::string Value(std::size_t line) const { return std::string(m_lines[line].substr(SynonymsPrefix.size())); }

  FileInfo Whole(std::size_t synonyms, std::size_t templateLine) const {
    return {"", Value(templateLine), Value(synonyms)};
  }

  /// The section of which no whole record can be made before the file ends: its own lines, in any order.
  FileInfo CutOff(std::size_t header) const {
    const std::size_t end = m_headers[header + 1];
    FileInfo record;
    if (const std::size_t line = m_synonyms[header]; line < end) record.UsesSynonyms = Value(line);
    if (const std::size_t line = m_templates[header]; line < end) record.UsesTemplate = Value(line);
    return record;
  }

  std::vector<std::string_view> m_lines;
  std::vector<std::size_t> m_headers, m_synonyms, m_templates;
};

}  // namespace

std::shared_ptr<const FileInfo> FileInfos::Find(std::string_view fileName) const {
  return m_records.Find(AsUtf8(fileName));
}

void FileInfos::Put(const FileInfo& record) {
  m_records.AddReplacing(std::make_shared<FileInfo>(record), AsUtf8(record.FileName));
}

void RecordClosing(FileInfos& records, const ClosingDocument& document) {
  if (document.CurFileName.empty() || (document.CurSFileName.empty() && !document.TemplateChosen)) return;
  records.Put({document.CurFileName, document.TemplateFile.empty() ? templates::NoTemplate : document.TemplateFile,
               document.CurSFileName});
}

void ReadFileInfoText(std::string_view text, FileInfos& records) {
  SectionReader(text).ReadInto(records);
}

std::string WriteFileInfoText(const FileInfos& records) {
  std::string text(Comments);
  for (const auto& record : records.All()) {
    // A name with a line end in it has no form in this file.
    if (!FitsOnLine(record->FileName) || !FitsOnLine(record->UsesSynonyms) || !FitsOnLine(record->UsesTemplate))
      continue;
    text += '[' + record->FileName + "]\r\n";
    text += std::string(SynonymsPrefix) + record->UsesSynonyms + "\r\n";
    text += std::string(TemplatePrefix) + record->UsesTemplate + "\r\n\r\n";
  }
  return text;
}

FileInfoFile::FileInfoFile(const std::string& programFolder, FileInfos& records, platform::Prompts& prompts)
    : m_path(programFolder + "/FileInfo.ini"), m_records(records), m_prompts(prompts) {}

void FileInfoFile::ReadFileInfo() {
  std::error_code error;
  if (std::filesystem::status(m_path, error).type() == std::filesystem::file_type::not_found) return;
  platform::FileContent file = platform::ReadFile(m_path);
  m_unreadable = !file.Ok();
  if (m_unreadable) return Tell("Could not read ", file.Error);
  ReadFileInfoText(rich_text::DecodeText(std::move(file.Bytes)).Text, m_records);
}

void FileInfoFile::WriteFileInfo() {
  if (m_unreadable) return;
  const std::string error = platform::WriteFile(m_path, WriteFileInfoText(m_records));
  if (!error.empty()) Tell("Could not save ", error);
}

void FileInfoFile::Tell(const std::string& what, const std::string& reason) {
  m_prompts.Show({.Text = what + m_path + "\n\n" + reason, .Icon = platform::PromptIcon::Critical});
}

}  // namespace settings
