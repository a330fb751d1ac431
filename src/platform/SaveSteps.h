#pragma once
// The two ways to bring bytes into a file, and what their steps share. SafeSave chooses.

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "platform/FileAttributes.h"
#include "platform/SafeSave.h"

namespace platform {

/// What is to be written, and what stands there now. Outlived by whatever it points to.
struct SaveJob {
  std::string Target;  ///< the file itself, behind all symbolic links
  std::string_view Bytes;
  const FileIdentity* Expected = nullptr;  ///< the status and contents to be replaced; null for any
  bool Exists = false;
  struct stat Status {};      ///< when it exists
  FileAttributes Attributes;  ///< when it exists
};

/// How one try ended.
enum class SaveStep {
  Done,
  Failed,
  SyncFailed,  ///< nothing has changed; worth another try with everything written anew
  InPlace,     ///< nothing has changed; a rename cannot keep what the file has
  Changed,     ///< nothing has changed; the file is not the expected one any more
};

struct SaveTry {
  SaveStep Step = SaveStep::Done;
  std::string Error;
  FileIdentity Written;
};

/// A try that ended with the failure that errno names.
SaveTry FailedTry(SaveStep step = SaveStep::Failed);

/// Writes a file beside the target and puts it into the target's place.
SaveTry SaveByRename(const SaveJob& job);

/// Copies the target, writes it in place, and removes the copy.
SaveTry SaveInPlace(const SaveJob& job);

/// Where a path leads when symbolic links are followed, the last one's target not having to exist.
std::string TargetOf(const std::string& path);

/// The folder of a path, "." when it names none.
std::string FolderOfTarget(const std::string& path);

/// Whether the file can no longer be the one that is to be replaced. Status and, when not settled, contents count.
bool HasChanged(const std::string& path, const FileIdentity& expected);

}  // namespace platform
