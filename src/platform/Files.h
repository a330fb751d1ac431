#pragma once
// Whole files, read and written. Paths are UTF-8. Failures are told as a sentence for the user, never thrown.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// What reading gave: the bytes, or why there are none.
struct FileContent {
  std::string Bytes;
  std::string Error;  ///< "" on success
  bool Ok() const { return Error.empty(); }
};

/// Reads a whole file ("-" is no special name here). A folder, a device, a named pipe, a missing file and an unreadable
/// one are failures.
FileContent ReadFile(const std::string& path);

/// Reads a whole open file, such as standard input, to its end.
FileContent ReadDescriptor(int descriptor);

/// Replaces the file so that a failure, a kill or a power cut leaves the old or the new content (see SafeSave, which
/// says what is kept). Returns "" or the reason, in which case the old file is whole.
std::string WriteFile(const std::string& path, std::string_view bytes);

/// The size in bytes of a file that is there to be read; 0 for any other, for a folder and for what has no size.
std::size_t FileSize(const std::string& path);

bool FileExists(const std::string& path);    ///< a file that is no folder
bool FolderExists(const std::string& path);  ///< a folder

}  // namespace platform
