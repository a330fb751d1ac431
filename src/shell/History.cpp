#include "shell/History.h"

#include <algorithm>

#include "platform/FileParsing.h"
#include "shell/ListedTools.h"

namespace shell {
namespace {

std::string Numbered(std::size_t place, const std::string& text) {
  return "&" + std::to_string(place) + " " + CaptionText(text);
}

History::Entry ByName(std::size_t place, const std::string& path) {
  return {path, Numbered(place, platform::FileNameOf(path)), path};
}

}  // namespace

void History::AddToHistory(const std::string& path) {
  if (path.empty() || std::any_of(m_entries.begin(), m_entries.end(), [&](const Entry& e) { return e.Path == path; }))
    return;
  if (m_entries.size() == Most) {
    m_entries.erase(m_entries.begin());
    for (std::size_t i = 0; i < m_entries.size(); ++i) m_entries[i] = ByName(i + 1, m_entries[i].Path);
  }
  const std::string folder = platform::FolderOf(path);
  for (std::size_t i = 0; i < m_entries.size(); ++i)
    if (platform::FolderOf(m_entries[i].Path) != folder)
      m_entries[i].Caption = Numbered(i + 1, platform::ShortenPath(m_entries[i].Path, CaptionLength));
  m_entries.push_back(ByName(m_entries.size() + 1, path));
}

std::vector<std::string> History::Paths() const {
  std::vector<std::string> paths;
  for (const Entry& entry : m_entries) paths.push_back(entry.Path);
  return paths;
}

}  // namespace shell
