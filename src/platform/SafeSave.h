#pragma once
// Writes a file so that neither a failure nor a kill nor a power cut costs what it held.
//
// The new content is written beside the file, synced, compared, and takes the file's place in one step; the folder is
// synced. Mode, owner, access lists, extended attributes and symbolic links stay. Where another file in its place could
// not keep something (hard links, a foreign owner, a folder that cannot be written), the file is written in place,
// after a synced copy of it was made; a copy that outlives the program is the file's last whole content. Paths are
// UTF-8.

#include <string>
#include <string_view>

#include "platform/FileIdentity.h"

namespace platform {

struct SaveResult {
  std::string Error;     ///< "" when the file holds the new content; else why it does not
  bool Changed = false;  ///< nothing was written, as the file is not the expected one any more
  FileIdentity Written;  ///< the file as saved; nothing on failure
  bool Ok() const { return Error.empty(); }
};

/// Writes the file, a new one where there is none. With `expected` it is replaced only while its contents are those, up
/// to the very step that replaces it (written in place: up to the first byte written).
SaveResult SafeSave(const std::string& path, std::string_view bytes, const FileIdentity* expected = nullptr);

/// Where a copy stands that a save in place of `path` left behind when it was broken off: beside the file that the path
/// leads to, or, where its folder took none, in the user's own. "" when there is none.
std::string CopyLeftOf(const std::string& path);

}  // namespace platform
