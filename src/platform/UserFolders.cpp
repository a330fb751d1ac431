#include "platform/UserFolders.h"

#include <cstdlib>

namespace platform {
namespace {

std::string FolderOf(const char* variable, const char* belowHome) {
  if (std::string folder = Environment(variable); folder.starts_with('/')) return folder;
  const std::string home = Environment("HOME");
  return home.starts_with('/') ? home + belowHome : "";
}

}  // namespace

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string DataHome() {
  return FolderOf("XDG_DATA_HOME", "/.local/share");
}

std::string StateHome() {
  return FolderOf("XDG_STATE_HOME", "/.local/state");
}

std::string ConfigHome() {
  return FolderOf("XDG_CONFIG_HOME", "/.config");
}

}  // namespace platform
