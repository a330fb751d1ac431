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

/// Why a file with this status is not to be read; "" when it may be. The writer of a named pipe may never come, and a
/// device may have no end. A pipe without a name was handed to the program instead of a file: somebody writes into it
/// and closes it.
std::string ReasonNotToRead(const struct stat& status, const struct statfs& system) {
  if (S_ISREG(status.st_mode)) return "";
  if (S_ISDIR(status.st_mode)) return "it is a folder";
  if (S_ISFIFO(status.st_mode)) return system.f_type == PIPEFS_MAGIC ? "" : "it is a pipe, not a file";
  return "it is a device, not a file";
}

std::string ReasonNotToRead(const std::string& path) {
  struct stat status {};
  struct statfs system {};
  if (::stat(path.c_str(), &status) != 0 || ::statfs(path.c_str(), &system) != 0) return "";
  return ReasonNotToRead(status, system);
}

std::string ReasonNotToRead(int descriptor) {
  struct stat status {};
  struct statfs system {};
  if (::fstat(descriptor, &status) != 0 || ::fstatfs(descriptor, &system) != 0) return LastError();
  return ReasonNotToRead(status, system);
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

// What the path leads to may change after the first look, so it is opened without waiting and looked at again.
FileContent ReadFile(const std::string& path) {
  if (std::string reason = ReasonNotToRead(path); !reason.empty()) return {"", std::move(reason)};
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file.IsOpen()) return {"", LastError()};
  if (std::string reason = ReasonNotToRead(file.Get()); !reason.empty()) return {"", std::move(reason)};
  ::fcntl(file.Get(), F_SETFL, 0);  // the writer of a pipe is waited for
  return ReadDescriptor(file.Get());
}

std::string WriteFile(const std::string& path, std::string_view bytes) {
  return SafeSave(path, bytes).Error;
}

std::size_t FileSize(const std::string& path) {
  struct stat status {};
  const bool isRead =
      ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && ::access(path.c_str(), R_OK) == 0;
  return isRead ? static_cast<std::size_t>(status.st_size) : 0;
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
