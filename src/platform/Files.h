#pragma once
// Whole files, read and written. Paths are UTF-8. Failures are told as a sentence for the user, never thrown.

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

/// Reads a whole file ("-" is no special name here). A folder, a missing file and an unreadable one are failures.
FileContent ReadFile(const std::string& path);

/// Reads a whole open file, such as standard input, to its end.
FileContent ReadDescriptor(int descriptor);

/// Replaces the file so that at any moment either the old or the new content is on disk: written beside the target,
/// synced, renamed, the folder synced. Symbolic links are followed and kept, the mode is kept. Returns "" or the
/// reason, in which case the old file is whole.
std::string WriteFile(const std::string& path, std::string_view bytes);

bool FileExists(const std::string& path);    ///< a file that is no folder
bool FolderExists(const std::string& path);  ///< a folder

}  // namespace platform
