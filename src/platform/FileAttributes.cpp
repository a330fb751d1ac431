#include "platform/FileAttributes.h"

#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <vector>

namespace platform {
namespace {

constexpr mode_t ModeBits = 07777;

/// Values that the kernel computes from the contents: a copied one would be wrong.
bool IsComputed(const std::string& name) {
  return name == "security.ima" || name == "security.evm";
}

/// Calls `get(buffer, size)`, which tells the size it needs, until the answer fits; nothing when it fails.
template <typename Get>
std::optional<std::string> Fetch(Get get) {
  for (int tries = 0; tries < 8; ++tries) {
    const ssize_t needed = get(nullptr, 0);
    if (needed < 0) return std::nullopt;
    std::string value(static_cast<std::size_t>(needed), '\0');
    const ssize_t got = needed == 0 ? 0 : get(value.data(), value.size());
    if (got < 0 && errno == ERANGE) continue;  // it has grown in between
    if (got < 0) return std::nullopt;
    value.resize(static_cast<std::size_t>(got));
    return value;
  }
  return std::nullopt;
}

std::vector<std::string> NamesIn(const std::optional<std::string>& list) {
  std::vector<std::string> names;
  for (std::size_t at = 0; list && at < list->size(); at += names.back().size() + 1)
    names.emplace_back(list->c_str() + at);
  return names;
}

std::vector<std::string> NamesOf(int descriptor) {
  return NamesIn(Fetch([&](char* buffer, std::size_t size) { return ::flistxattr(descriptor, buffer, size); }));
}

std::optional<std::string> ValueOf(int descriptor, const std::string& name) {
  return Fetch([&](char* buffer, std::size_t size) { return ::fgetxattr(descriptor, name.c_str(), buffer, size); });
}

/// A new file may have attributes already, from its folder.
bool RemoveOthers(int descriptor, const FileAttributes& attributes) {
  bool isGone = true;
  for (const std::string& name : NamesOf(descriptor))
    if (!attributes.Extended.contains(name) && !IsComputed(name) && !name.starts_with("security."))
      isGone &= ::fremovexattr(descriptor, name.c_str()) == 0;
  return isGone;
}

bool ApplyExtended(int descriptor, const FileAttributes& attributes) {
  bool isKept = RemoveOthers(descriptor, attributes);
  for (const auto& [name, value] : attributes.Extended)
    if (ValueOf(descriptor, name) != value)
      isKept &= ::fsetxattr(descriptor, name.c_str(), value.data(), value.size(), 0) == 0;
  return isKept;
}

}  // namespace

FileAttributes AttributesOf(const std::string& path, const struct stat& status) {
  FileAttributes attributes{status.st_mode & ModeBits, status.st_uid, status.st_gid, {}, true};
  const auto list = Fetch([&](char* buffer, std::size_t size) { return ::listxattr(path.c_str(), buffer, size); });
  attributes.IsComplete = list || errno == ENOTSUP;
  for (const std::string& name : NamesIn(list)) {
    if (IsComputed(name)) continue;
    auto value =
        Fetch([&](char* buffer, std::size_t size) { return ::getxattr(path.c_str(), name.c_str(), buffer, size); });
    if (value)
      attributes.Extended[name] = *std::move(value);
    else
      attributes.IsComplete = false;
  }
  return attributes;
}

// A new owner takes the set-id bits away and an access list changes the mode, so the mode comes last.
bool ApplyAttributes(int descriptor, const FileAttributes& attributes) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) return false;
  bool isKept = attributes.IsComplete;
  if (status.st_uid != attributes.Owner || status.st_gid != attributes.Group)
    isKept &= ::fchown(descriptor, attributes.Owner, attributes.Group) == 0;
  isKept &= ApplyExtended(descriptor, attributes);
  if (::fstat(descriptor, &status) == 0 && (status.st_mode & ModeBits) != attributes.Mode)
    isKept &= ::fchmod(descriptor, attributes.Mode) == 0;
  return isKept && ::fstat(descriptor, &status) == 0 && (status.st_mode & ModeBits) == attributes.Mode;
}

}  // namespace platform
