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

std::string FileExtension(std::string_view path) {
  const std::size_t dot = path.rfind('.');
  return dot == std::string_view::npos ? "" : std::string(path.substr(dot + 1));
}

std::string FileNameOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string FolderOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string_view::npos ? "" : std::string(path.substr(0, separator + 1));
}

}  // namespace shell
