#include "shell/TemplateList.h"

#include <algorithm>

#include "platform/FileParsing.h"
#include "platform/ProgramFolder.h"
#include "templates/HeaderScan.h"

namespace shell {

std::vector<templates::Template> ReadTemplateList(const std::string& folder) {
  std::vector<templates::Template> list;
  for (const std::string& file : platform::ListFiles(folder, ".def"))
    list.push_back(templates::ReadTemplateHeader(file));
  return list;
}

void AddExtraTemplate(std::vector<templates::Template>& extra, const std::string& path,
                      const std::string& programFolder) {
  const auto is = [&](const templates::Template& record) { return record.FileName == path; };
  if (platform::FolderOf(path) == programFolder + '/' || std::any_of(extra.begin(), extra.end(), is)) return;
  extra.push_back({.Name = "", .Extension = "", .FileName = path});
}

}  // namespace shell
