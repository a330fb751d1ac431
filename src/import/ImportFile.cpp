#include "import/ImportFile.h"

#include <utility>

#include "import/HighlightReader.h"
#include "import/KdeReader.h"
#include "import/SciteReader.h"
#include "import/TemplateMaker.h"
#include "platform/FileParsing.h"
#include "platform/Files.h"
#include "rich_text/Encoding.h"
#include "templates/Writer.h"

namespace import {
namespace {

/// The files beside a definition, and those that an installation keeps elsewhere.
NeighbourFiles FilesBeside(const std::string& path) {
  const std::string folder = platform::FolderOf(path);
  return [folder](std::string_view name) -> std::optional<std::string> {
    if (!IsPlainFileName(name)) return std::nullopt;
    for (const std::string& place : {folder, folder + "../", std::string("/etc/highlight/")}) {
      platform::FileContent content = platform::ReadFile(place + std::string(name));
      if (content.Ok() && content.Bytes.size() <= MostBytes)
        return rich_text::DecodeText(std::move(content.Bytes)).Text;
    }
    return std::nullopt;
  };
}

ReadDefinition ReadAny(const std::string& path, std::string_view text, const std::string& language) {
  const std::string extension = rich_text::LowerCase(platform::FileExtension(path));
  const std::string name = platform::FileNameOf(path);
  if (extension == "lang") return ReadHighlight(text, name, FilesBeside(path));
  if (extension == "properties") return ReadScite(text, name, language, FilesBeside(path));
  if (extension == "xml") return ReadKde(text, name, FilesBeside(path));
  return ReadDefinition::Failed(
      0, "A definition is a file \".xml\" of KDE, \".properties\" of SciTE or \".lang\" of highlight.");
}

}  // namespace

ImportedFile ImportFile(const std::string& path, const std::string& language, const std::string& date) {
  ImportedFile result;
  platform::FileContent content = platform::ReadFile(path);
  result.Error = content.Error;
  if (content.Bytes.size() > MostBytes) result.Error = "The file is too large for a definition.";
  if (!result.Error.empty()) return result;
  ReadDefinition read = ReadAny(path, rich_text::DecodeText(std::move(content.Bytes)).Text, language);
  result.ErrorLine = read.ErrorLine;
  result.Error = std::move(read.Error);
  if (!result.Error.empty()) return result;
  MadeTemplate made = MakeTemplate(std::move(read.Read), date);
  result.Template = templates::WriteTemplate(made.Template, date);
  result.Losses = std::move(made.Losses);
  const std::string name = platform::FileNameOf(path);
  for (Loss& loss : result.Losses)
    if (loss.File == name) loss.File = path;
  return result;
}

}  // namespace import
