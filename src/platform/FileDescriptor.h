#pragma once
// An open file, folder or socket that closes itself, and the few calls on it that every writer needs. Failures leave
// errno as the system set it.

#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
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
std::string LastError();

/// Writes all bytes at `offset`, however many calls it takes; false when the system takes no more.
bool WriteAt(int descriptor, std::string_view bytes, off_t offset);

/// Brings what was written to the disk. A place that knows no syncing (a file of the kernel's own) counts as synced.
bool Sync(int descriptor);

/// Brings renamed and removed names of a folder to the disk.
bool SyncFolder(const std::string& folder);

/// Whether the file gives back exactly these bytes.
bool Holds(int descriptor, std::string_view bytes);

}  // namespace platform
