#include "platform/FileParsing.h"

#include <algorithm>
#include <filesystem>

#include "rich_text/Encoding.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view Separators = "/\\";

int CharactersIn(std::string_view text) {
  return static_cast<int>(rich_text::CharacterCount(text));
}

/// The first `count` characters.
std::string_view FirstCharacters(std::string_view text, int count) {
  std::size_t end = 0;
  while (end < text.size() && CharactersIn(text.substr(0, end + 1)) <= count) ++end;
  return text.substr(0, end);
}

/// ".." after a symbolic link does not lead back to where the link stands, so it stays there.
fs::path Resolved(const fs::path& path) {
  fs::path result;
  for (const fs::path& part : path) {
    std::error_code error;
    if (part.empty() || part == ".") continue;
    if (part == ".." && result.filename() != ".." && !fs::is_symlink(result, error))
      result = result.parent_path();
    else
      result /= part;
  }
  return result;
}

std::string Existing(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error) && !error ? Resolved(path).string() : "";
}

}  // namespace

std::string FileExtension(std::string_view path) {
  const std::size_t dot = path.rfind('.');
  return dot == std::string_view::npos ? "" : std::string(path.substr(dot + 1));
}

std::string FileNameOf(std::string_view path) {
  const std::size_t separator = path.find_last_of(Separators);
  return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string FileTitle(std::string_view path) {
  const std::string name = FileNameOf(path);
  return name.substr(0, name.rfind('.'));
}

std::string FolderOf(std::string_view path) {
  const std::size_t separator = path.find_last_of(Separators);
  return separator == std::string_view::npos ? "" : std::string(path.substr(0, separator + 1));
}

std::string ShortenPath(std::string_view path, int maximum) {
  if (CharactersIn(path) <= maximum) return std::string(path);
  const std::size_t last = path.find_last_of(Separators);
  const std::string separator(1, last == std::string_view::npos ? '/' : path[last]);
  const std::string dots = "..." + separator;
  const int budget = maximum - 4;
  std::string result, name, rest(path);
  bool isFileName = true;
  for (;; isFileName = false) {
    name = FileNameOf(rest);
    rest = FolderOf(rest);
    if (CharactersIn(name) + CharactersIn(result) >= budget || rest.empty()) break;
    rest.pop_back();
    if (!result.empty()) name += separator;
    result.insert(0, name);
  }
  if (isFileName) return dots + name;
  const int room = budget - CharactersIn(result) - 3;
  if (room < 1) return dots + result;
  return dots + std::string(FirstCharacters(name, room)) + ".." + separator + result;
}

std::string FullPathName(std::string_view path, std::string_view from) {
  if (path.empty()) return "";
  std::string found = Existing(fs::path(from) / fs::path(path));
  if (!found.empty() || path.find('\\') == std::string_view::npos) return found;
  std::string slashes(path);
  std::replace(slashes.begin(), slashes.end(), '\\', '/');
  return Existing(fs::path(from) / fs::path(slashes));
}

}  // namespace platform
