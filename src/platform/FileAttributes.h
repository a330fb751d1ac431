#pragma once
// What a file has besides its contents and must not lose when it is written anew: owner, mode with its set-id bits, and
// extended attributes, access lists among them.

#include <sys/stat.h>

#include <map>
#include <string>

namespace platform {

struct FileAttributes {
  mode_t Mode = 0;  ///< permission, set-id and sticky bits
  uid_t Owner = 0;
  gid_t Group = 0;
  std::map<std::string, std::string> Extended;  ///< name to value
  bool IsComplete = true;                       ///< false when an attribute is there that may not be read
};

/// The attributes of a file whose status is known.
FileAttributes AttributesOf(const std::string& path, const struct stat& status);

/// Gives an open file the attributes, as many as this user may. True when it has them all, and no other.
bool ApplyAttributes(int descriptor, const FileAttributes& attributes);

}  // namespace platform
