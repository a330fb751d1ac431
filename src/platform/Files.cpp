#include "platform/Files.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cerrno>

#include "platform/FileDescriptor.h"
#include "platform/SafeSave.h"

namespace platform {
namespace {

/// A pipe without a name, which a program was given instead of a file: somebody writes into it and closes it.
bool IsHandedPipe(const std::string& path) {
  struct statfs system {};
  return ::statfs(path.c_str(), &system) == 0 && system.f_type == PIPEFS_MAGIC;
}

/// Why the path is not to be opened; "" when it may be. Opening a named pipe waits for a writer, who may never come,
/// and a device may have no end.
std::string ReasonNotToRead(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode)) return "";
  if (S_ISDIR(status.st_mode)) return "it is a folder";
  if (S_ISFIFO(status.st_mode)) return IsHandedPipe(path) ? "" : "it is a pipe, not a file";
  return "it is a device, not a file";
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
  const std::string reason = ReasonNotToRead(path);
  if (!reason.empty()) return {"", reason};
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC));
  if (!file.IsOpen()) return {"", LastError()};
  return ReadDescriptor(file.Get());
}

std::string WriteFile(const std::string& path, std::string_view bytes) {
  return SafeSave(path, bytes).Error;
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
