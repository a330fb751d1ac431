#include "platform/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <utility>

namespace platform {
namespace {

class Descriptor {
 public:
  explicit Descriptor(int value) : m_value(value) {}
  ~Descriptor() {
    if (m_value >= 0) ::close(m_value);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Get() const { return m_value; }
  bool IsOpen() const { return m_value >= 0; }
  int Close() { return ::close(std::exchange(m_value, -1)); }

 private:
  int m_value;
};

std::string LastError() {
  return std::strerror(errno);
}

bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

/// Where a path leads when symbolic links are followed, the last one's target not having to exist.
std::string TargetOf(const std::string& path) {
  std::error_code error;
  std::filesystem::path target = path;
  for (int links = 0; links < 40 && std::filesystem::is_symlink(target, error); ++links) {
    const std::filesystem::path next = std::filesystem::read_symlink(target, error);
    if (error) break;
    target = next.is_absolute() ? next : target.parent_path() / next;
  }
  return target.string();
}

std::string FolderOfTarget(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

/// Writes and syncs the new content under a name of its own; "" or the reason.
std::string WriteBeside(int descriptor, std::string_view bytes, mode_t mode) {
  if (::fchmod(descriptor, mode) != 0 || !WriteAll(descriptor, bytes) || ::fsync(descriptor) != 0) return LastError();
  return "";
}

void SyncFolder(const std::string& folder) {
  const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.IsOpen()) ::fsync(opened.Get());
}

mode_t ModeForNewFiles() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

}  // namespace

FileContent ReadDescriptor(int descriptor) {
  FileContent content;
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) return {"", LastError()};
  if (S_ISDIR(status.st_mode)) return {"", "it is a folder"};
  std::size_t size = 0;
  content.Bytes.resize(S_ISREG(status.st_mode) ? static_cast<std::size_t>(status.st_size) + 1 : 64 * 1024);
  while (true) {
    if (size == content.Bytes.size()) content.Bytes.resize(size * 2);
    const ssize_t got = ::read(descriptor, content.Bytes.data() + size, content.Bytes.size() - size);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return {"", LastError()};
    if (got == 0) break;
    size += static_cast<std::size_t>(got);
  }
  content.Bytes.resize(size);
  return content;
}

FileContent ReadFile(const std::string& path) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.IsOpen()) return {"", LastError()};
  return ReadDescriptor(file.Get());
}

std::string WriteFile(const std::string& path, std::string_view bytes) {
  const std::string target = TargetOf(path);
  struct stat status {};
  const bool exists = ::stat(target.c_str(), &status) == 0;
  if (!exists && errno != ENOENT) return LastError();  // above all, links that lead round in a circle
  if (exists && !S_ISREG(status.st_mode)) return "it is not a regular file";
  if (exists && ::access(target.c_str(), W_OK) != 0) return LastError();

  std::string beside = target + ".XXXXXX";
  Descriptor file(::mkostemp(beside.data(), O_CLOEXEC));
  if (!file.IsOpen()) return LastError();
  std::string error = WriteBeside(file.Get(), bytes, exists ? status.st_mode & 07777 : ModeForNewFiles());
  if (file.Close() != 0 && error.empty()) error = LastError();
  if (error.empty() && ::rename(beside.c_str(), target.c_str()) != 0) error = LastError();
  if (!error.empty()) {
    ::unlink(beside.c_str());
    return error;
  }
  SyncFolder(FolderOfTarget(target));
  return "";
}

bool FileExists(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

bool FolderExists(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace platform
