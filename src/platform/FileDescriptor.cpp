#include "platform/FileDescriptor.h"

#include <fcntl.h>

#include <cstring>

namespace platform {

std::string LastError() {
  return std::strerror(errno);
}

bool WriteAt(int descriptor, std::string_view bytes, off_t offset) {
  while (!bytes.empty()) {
    const ssize_t written = ::pwrite(descriptor, bytes.data(), bytes.size(), offset);
    if (written < 0 && errno == EINTR) continue;
    if (written == 0) errno = ENOSPC;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
    offset += written;
  }
  return true;
}

bool Sync(int descriptor) {
  int result = 0;
  do result = ::fsync(descriptor);
  while (result != 0 && errno == EINTR);
  return result == 0 || errno == EINVAL || errno == ENOTSUP;
}

bool SyncFolder(const std::string& folder) {
  const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.IsOpen()) return Sync(opened.Get());
  // A folder that may be written but not listed cannot be opened; its whole disk is synced instead, through what is
  // above.
  if (errno != EACCES) return false;
  ::sync();
  return true;
}

bool Holds(int descriptor, std::string_view bytes) {
  std::string block(std::size_t{256} * 1024, '\0');
  off_t offset = 0;
  while (true) {
    const ssize_t got = ::pread(descriptor, block.data(), block.size(), offset);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return false;
    const auto size = static_cast<std::size_t>(got);
    if (bytes.substr(0, size) != std::string_view(block).substr(0, size)) return errno = EIO, false;
    if (size == 0) return bytes.empty() || (errno = EIO, false);
    bytes.remove_prefix(size);
    offset += got;
  }
}

}  // namespace platform
