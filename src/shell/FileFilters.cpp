#include "shell/FileFilters.h"

namespace shell {
namespace {

platform::FileFilter AllFiles() {
  return {"All Files", {"*.*"}};
}

/// "htm;html" gives "*.htm" and "*.html".
std::vector<std::string> PatternsOf(std::string_view extensions) {
  std::vector<std::string> patterns;
  for (const std::string& extension : templates::ExtensionsOf(extensions))
    if (!extension.empty()) patterns.push_back("*." + extension);
  return patterns;
}

}  // namespace

std::vector<platform::FileFilter> FiltersFor(std::string_view name, std::string_view extensions) {
  std::vector<platform::FileFilter> filters;
  if (auto patterns = PatternsOf(extensions); !patterns.empty())
    filters.push_back({std::string(name), std::move(patterns)});
  filters.push_back(AllFiles());
  return filters;
}

std::vector<platform::FileFilter> TemplateFilters(const std::vector<templates::Template>& list,
                                                  const std::vector<templates::Template>& associations) {
  std::vector<platform::FileFilter> filters;
  filters.reserve(list.size() + 2);
  for (const templates::Template& record : list)
    filters.push_back({record.Name + " File", PatternsOf(record.Extension)});
  platform::FileFilter others{"Others", {}};
  for (const templates::Template& record : associations)
    for (std::string& pattern : PatternsOf(record.Extension)) others.Patterns.push_back(std::move(pattern));
  if (!others.Patterns.empty()) filters.push_back(std::move(others));
  filters.push_back(AllFiles());
  return filters;
}

}  // namespace shell
