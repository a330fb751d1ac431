#include "platform/ProgramFolder.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "platform/TemplateCopies.h"
#include "platform/UserFolders.h"
#include "rich_text/Encoding.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

bool HasTemplates(const std::string& folder) {
  return !ListFiles(folder, ".def").empty();
}

bool CanBeWritten(const std::string& folder) {
  return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

/// The absolute path without a final separator: what is opened by its path must not depend on the current folder.
std::string WholePath(const std::string& folder) {
  std::error_code error;
  const fs::path path = fs::absolute(folder, error).lexically_normal();
  return (path.has_filename() || path == path.root_path() ? path : path.parent_path()).string();
}

}  // namespace

ProgramPlaces ProgramPlaces::FromProcess() {
  ProgramPlaces places;
  std::error_code error;
  places.Executable = fs::read_symlink("/proc/self/exe", error).string();
  places.Override = Environment("QUILLMARK_HOME");
  places.DataHome = platform::DataHome();
  return places;
}

std::string InstalledFolder(const ProgramPlaces& places) {
  const fs::path folder = fs::path(places.Executable).parent_path();
  for (const char* place : {"../share/quillmark", "../../data/templates", "../../../data/templates"}) {
    const std::string candidate = (folder / place).lexically_normal().string();
    if (HasTemplates(candidate)) return candidate;
  }
  return "";
}

std::string FindProgramFolder(const ProgramPlaces& places, bool fill) {
  if (!places.Override.empty()) return WholePath(places.Override);
  const std::string portable = fs::path(places.Executable).parent_path().string();
  if (HasTemplates(portable) && CanBeWritten(portable)) return portable;
  const std::string installed = InstalledFolder(places);
  if (places.DataHome.empty()) return installed;
  const std::string own = places.DataHome + "/quillmark";
  if (fill) RenewCopies(own, installed);
  return HasTemplates(own) || fill || installed.empty() ? own : installed;
}

std::string FindHelpFile(const std::string& programFolder, const ProgramPlaces& places) {
  constexpr const char* Name = "Quillmark.hlp";
  const std::string own = programFolder + "/" + Name;
  const fs::path beside = (fs::path(places.Executable).parent_path() / "../share/quillmark" / Name).lexically_normal();
  std::error_code error;
  return fs::exists(own, error) || !fs::exists(beside, error) ? own : beside.string();
}

std::vector<std::string> ListFiles(const std::string& folder, const std::string& ending) {
  std::vector<std::pair<std::string, std::string>> found;  // folded name, path
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    const std::string folded = rich_text::IsValidUtf8(name) ? rich_text::LowerCase(name) : name;
    std::error_code unreadable;
    if (folded.ends_with(ending) && !entry->is_directory(unreadable))
      found.emplace_back(folded, entry->path().string());
  }
  std::sort(found.begin(), found.end());
  std::vector<std::string> paths;
  paths.reserve(found.size());
  for (auto& [folded, path] : found) paths.push_back(std::move(path));
  return paths;
}

}  // namespace platform
