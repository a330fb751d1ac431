#pragma once
// An open file, folder or socket that closes itself, and the few calls on it that every writer needs. Failures leave
// errno as the system set it.

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace platform {

class FileDescriptor {
 public:
  /// Owns `value`; a negative one is no file.
  explicit FileDescriptor(int value = -1) : m_value(value) {}
  ~FileDescriptor() { Close(); }
  FileDescriptor(FileDescriptor&& other) noexcept : m_value(std::exchange(other.m_value, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
      Close();
      m_value = std::exchange(other.m_value, -1);
    }
    return *this;
  }

  int Get() const { return m_value; }
  bool IsOpen() const { return m_value >= 0; }
  /// Closes the file, keeping errno, so that the reason of a failure outlives the tidying up after it.
  void Close() {
    if (m_value < 0) return;
    const int error = errno;
    ::close(std::exchange(m_value, -1));
    errno = error;
  }

 private:
  int m_value;
};

/// The system's words for the failure that happened last.
inline std::string LastError() {
  return std::strerror(errno);
}

/// Writes all bytes at `offset`, however many calls it takes; false when the system takes no more.
inline bool WriteAt(int descriptor, std::string_view bytes, off_t offset) {
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

/// Brings what was written to the disk. A place that knows no syncing (a file of the kernel's own) counts as synced.
inline bool Sync(int descriptor) {
  int result = 0;
  do result = ::fsync(descriptor);
  while (result != 0 && errno == EINTR);
  return result == 0 || errno == EINVAL || errno == ENOTSUP;
}

/// Brings renamed and removed names of a folder to the disk.
inline bool SyncFolder(const std::string& folder) {
  const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.IsOpen()) return Sync(opened.Get());
  // A folder that may be written but not listed cannot be opened; its whole disk is synced instead, through what is
  // above.
  if (errno != EACCES) return false;
  ::sync();
  return true;
}

/// Whether the file gives back exactly these bytes.
inline bool Holds(int descriptor, std::string_view bytes) {
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
