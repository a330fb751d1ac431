#include "templates/HeaderScan.h"

#include "platform/Files.h"
#include "rich_text/Encoding.h"
#include "templates/LineReader.h"
#include "templates/Values.h"

namespace templates {

void ScanTemplateHeader(std::string_view text, Template& record) {
  LineReader lines(text);
  while (const auto line = lines.RawLine()) {
    if (line->starts_with("N:")) record.Name = FromCharacter(*line, 4);
    if (line->starts_with("X:")) record.Extension = FromCharacter(*line, 4);
  }
}

Template ReadTemplateHeader(const std::string& path) {
  Template record;
  record.FileName = path;
  platform::FileContent file = platform::ReadFile(path);
  if (file.Ok()) ScanTemplateHeader(rich_text::DecodeText(std::move(file.Bytes)).Text, record);
  return record;
}

}  // namespace templates
