// Saving by writing over the file itself, which keeps its links, its owner and its place in a folder that takes no
// other.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cinttypes>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "platform/FileDescriptor.h"
#include "platform/SaveSteps.h"
#include "platform/UserFolders.h"

namespace platform {
namespace {

constexpr int MostCopies = 100;

/// In a folder of others' copies the name tells whose copy it is; beside the target, its own name does.
std::string CopyName(const std::string& folder, const std::string& target, int number) {
  constexpr std::size_t LongestName = 200;  // a copy of a file with the longest of names needs a name too
  std::string name = std::filesystem::path(target).filename().string().substr(0, LongestName);
  if (folder != FolderOfTarget(target)) {
    char digits[20];
    std::snprintf(digits, sizeof digits, ".%016" PRIx64, HashOf(std::filesystem::absolute(target).string()));
    name += digits;
  }
  name += ".quillmark-backup";
  if (number > 1) name += '.' + std::to_string(number);
  return folder + '/' + name;
}

/// Where a copy may stand, best first: the target's folder may not be writable.
std::vector<std::string> CopyFolders(const std::string& target) {
  std::vector<std::string> folders = {FolderOfTarget(target)};
  const std::string state = StateHome(), temporary = Environment("TMPDIR");
  if (!state.empty()) folders.push_back(state + "/quillmark");
  folders.push_back(temporary.empty() ? "/tmp" : temporary);
  return folders;
}

/// A synced copy of what the file held. It stays until Remove.
class Copy {
 public:
  bool Make(const std::string& target, std::string_view bytes) {
    int error = 0;
    for (const std::string& folder : CopyFolders(target)) {
      if (MakeIn(folder, target, bytes)) return true;
      if (error == 0) error = errno;  // what is wrong with the file's own folder is the reason to tell
    }
    errno = error;
    return false;
  }
  /// A copy that cannot be removed says at the next opening that a save was broken off, and holds what was before it.
  void Remove() {
    if (::unlink(m_path.c_str()) == 0) SyncFolder(FolderOfTarget(m_path));
  }
  const std::string& Path() const { return m_path; }

 private:
  bool MakeIn(const std::string& folder, const std::string& target, std::string_view bytes) {
    std::error_code ignored;
    if (folder.ends_with("/quillmark") && std::filesystem::create_directories(folder, ignored))
      ::chmod(folder.c_str(), 0700);
    FileDescriptor file;
    for (int number = 1; !file.IsOpen() && number <= MostCopies; ++number) {
      m_path = CopyName(folder, target, number);
      file = FileDescriptor(::open(m_path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_NOFOLLOW | O_CLOEXEC, 0600));
      if (!file.IsOpen() && errno != EEXIST) return false;
    }
    if (!file.IsOpen()) return false;
    if (WriteAt(file.Get(), bytes, 0) && Sync(file.Get()) && SyncFolder(folder)) return true;
    const int error = errno;
    ::unlink(m_path.c_str());
    errno = error;
    return false;
  }

  std::string m_path;
};

/// Gives the open file these contents, on the disk. The end is cut off last, so that what the file had at first still
/// has its room should it have to come back. After a failed sync the system may have dropped what it held: everything
/// is written once more.
bool WriteContents(int descriptor, std::string_view bytes) {
  for (int tries = 0; tries < 2; ++tries) {
    if (!WriteAt(descriptor, bytes, 0) || ::ftruncate(descriptor, static_cast<off_t>(bytes.size())) != 0) return false;
    if (Sync(descriptor) && Holds(descriptor, bytes)) return true;
  }
  return false;
}

bool IsSameTime(const timespec& left, const timespec& right) {
  return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

enum class Again { Same, Other, Unknown };

/// Whether the path still leads to the file with this status, and nobody has written into it.
Again LookAgain(const std::string& path, const struct stat& opened) {
  struct stat now {};
  if (::lstat(path.c_str(), &now) != 0) return errno == ENOENT || errno == ENOTDIR ? Again::Other : Again::Unknown;
  const bool isSame = now.st_dev == opened.st_dev && now.st_ino == opened.st_ino && now.st_size == opened.st_size &&
                      IsSameTime(now.st_mtim, opened.st_mtim) && IsSameTime(now.st_ctim, opened.st_ctim);
  return isSame ? Again::Same : Again::Other;
}

/// Puts the old contents back; tells where they are when even that fails.
SaveTry Restore(int descriptor, const SaveJob& job, std::string_view old, Copy& copy) {
  SaveTry failed = FailedTry();
  if (WriteContents(descriptor, old)) {
    ApplyAttributes(descriptor, job.Attributes);
    copy.Remove();
  } else {
    failed.Error += ".  The file could not be put back either; what it held is in \"" + copy.Path() + "\"";
  }
  return failed;
}

}  // namespace

SaveTry SaveInPlace(const SaveJob& job) {
  const SaveTry changed{SaveStep::Changed, "", {}};
  const FileDescriptor file(::open(job.Target.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file.IsOpen()) return FailedTry(errno == ENOENT ? SaveStep::Changed : SaveStep::Failed);
  struct stat status {};
  if (::fstat(file.Get(), &status) != 0) return FailedTry();
  if (status.st_dev != job.Status.st_dev || status.st_ino != job.Status.st_ino) return changed;
  const FileContent old = ReadDescriptor(file.Get());
  if (!old.Ok()) return {SaveStep::Failed, old.Error, {}};
  if (job.Expected != nullptr && HashOf(old.Bytes) != job.Expected->Contents) return changed;
  Copy copy;
  if (!copy.Make(job.Target, old.Bytes)) return FailedTry();
  if (LookAgain(job.Target, status) != Again::Same) {
    copy.Remove();
    return changed;
  }
  if (!WriteContents(file.Get(), job.Bytes)) return Restore(file.Get(), job, old.Bytes, copy);
  ApplyAttributes(file.Get(), job.Attributes);  // writing takes set-id bits away
  const bool isKnown = ::fstat(file.Get(), &status) == 0;
  copy.Remove();
  // Another file may have taken the name while this one was written.
  if (isKnown && LookAgain(job.Target, status) == Again::Other) return changed;
  if (!isKnown) status.st_size = static_cast<off_t>(job.Bytes.size());  // the times are old: a look compares contents
  return {SaveStep::Done, "", IdentityOf(status, job.Bytes)};
}

std::string CopyLeftOf(const std::string& path) {
  const std::string target = TargetOf(path);
  for (const std::string& folder : CopyFolders(target))
    if (std::string copy = CopyName(folder, target, 1); FileExists(copy)) return copy;
  return "";
}

}  // namespace platform
