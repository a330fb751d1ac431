#include "shell/TemplateList.h"

#include "platform/ProgramFolder.h"
#include "templates/HeaderScan.h"

namespace shell {

std::vector<templates::Template> ReadTemplateList(const std::string& folder) {
  std::vector<templates::Template> list;
  for (const std::string& file : platform::ListFiles(folder, ".def"))
    list.push_back(templates::ReadTemplateHeader(file));
  return list;
}

std::string TemplateOfExtension(const std::vector<templates::Template>& list, std::string_view extension) {
  for (const templates::Template& record : list)
    if (templates::NamesExtension(record.Extension, extension)) return record.FileName;
  return "";
}

}  // namespace shell
