#pragma once
// How a file looked when it was last read or written, so that a change by somebody else is noticed: device, inode, size
// and times, and, where those differ or cannot be trusted, the contents by their hash.
//
// Times are nanoseconds since 1970. Paths are UTF-8 and symbolic links are followed. Nothing is owned or kept open.

#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Files.h"

namespace platform {

struct FileIdentity {
  bool Exists = false;
  std::uint64_t Device = 0, Inode = 0, Size = 0;
  std::int64_t Modified = 0, Changed = 0;  ///< of the contents; of anything about the file
  std::uint64_t Contents = 0;              ///< HashOf all bytes
  /// False when the file had been written just before it was looked at: a second change may then bear the same time.
  bool Settled = true;

  /// Whether device, inode, size and time of modification are those of `other`.
  bool HasStatusOf(const FileIdentity& other) const;
  /// Whether both exist with equal contents, or neither exists.
  bool HasContentsOf(const FileIdentity& other) const;
};

/// A hash of all bytes, the same on every machine of one byte order; not proof against forgers.
std::uint64_t HashOf(std::string_view bytes);

/// The identity of a file that has this status and holds `bytes`.
FileIdentity IdentityOf(const struct stat& status, std::string_view bytes);

/// Reads a whole file and says how it looked before the first byte was read. A failure leaves `identity` as one of a
/// file that does not exist.
FileContent ReadIdentified(const std::string& path, FileIdentity& identity);

enum class FileDifference {
  None,     ///< the same contents
  Changed,  ///< other contents, or contents where there were none
  Missing,  ///< there was a file and now there is none
};

/// What a look at the disk gave.
struct FileLook {
  FileDifference Difference = FileDifference::None;
  FileIdentity Seen;  ///< the file as it is now
};

/// Compares the file with what is known of it. Contents are read only where the status differs or is not settled. A
/// file whose folder cannot be searched counts as the same: whoever opens or writes it gets the reason.
FileLook LookAt(const std::string& path, const FileIdentity& known);

}  // namespace platform
