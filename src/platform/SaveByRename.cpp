// Saving by a file beside the target that takes its place.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <random>

#include "platform/FileDescriptor.h"
#include "platform/SaveSteps.h"

namespace platform {
namespace {

/// A new file in the target's folder. It has no name at first where the file system allows that, so that a kill leaves
/// nothing; whatever name it has when this object goes, goes too.
class FileBeside {
 public:
  explicit FileBeside(const std::string& target) : m_folder(FolderOfTarget(target)) {}
  ~FileBeside() {
    if (!m_name.empty()) ::unlink(m_name.c_str());
  }
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;

  /// `mode` as the process's mask and the folder's default access list leave it.
  bool Create(mode_t mode) {
    m_file = FileDescriptor(::open(m_folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode));
    const bool isUnknown = errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL || errno == ENOENT;
    if (!m_file.IsOpen()) return isUnknown && CreateNamed(mode);
    // Without /proc it could never be named.
    return ::access(OpenName().c_str(), F_OK) == 0 || CreateNamed(mode);
  }

  /// Gives the file a name of its own if it has none.
  bool Name() {
    for (int tries = 0; m_name.empty() && tries < MostNames; ++tries) {
      std::string name = NewName();
      if (LinkTo(name))
        m_name = std::move(name);
      else if (errno != EEXIST)
        break;
    }
    return !m_name.empty();
  }

  /// Names the file `target`, which must not exist.
  bool PlaceNew(const std::string& target) {
    if (m_name.empty()) return LinkTo(target);
    if (::renameat2(AT_FDCWD, m_name.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) != 0 &&
        !(errno == EINVAL && ::access(target.c_str(), F_OK) != 0 && ::rename(m_name.c_str(), target.c_str()) == 0))
      return false;
    m_name.clear();
    return true;
  }

  /// Lets go of the name: the file under it is the target now.
  void Release() { m_name.clear(); }

  int Get() const { return m_file.Get(); }
  const std::string& OwnName() const { return m_name; }
  const std::string& Folder() const { return m_folder; }

 private:
  static constexpr int MostNames = 100;

  std::string NewName() const {
    std::random_device random;
    char digits[24];
    std::snprintf(digits, sizeof digits, "%08x%08x", random(), random());
    return m_folder + "/.quillmark-" + digits;
  }
  bool CreateNamed(mode_t mode) {
    for (int tries = 0; tries < MostNames; ++tries) {
      std::string name = NewName();
      m_file = FileDescriptor(::open(name.c_str(), O_CREAT | O_EXCL | O_RDWR | O_NOFOLLOW | O_CLOEXEC, mode));
      if (m_file.IsOpen()) return m_name = std::move(name), true;
      if (errno != EEXIST) return false;
    }
    return false;
  }
  std::string OpenName() const { return "/proc/self/fd/" + std::to_string(m_file.Get()); }
  bool LinkTo(const std::string& name) const {
    return ::linkat(AT_FDCWD, OpenName().c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
  }

  std::string m_folder, m_name;
  FileDescriptor m_file;
};

/// Failures that say that the folder, not the disk, is against a second file or its rename.
SaveStep StepOfFolderError() {
  const bool isFolders = errno == EACCES || errno == EPERM || errno == EROFS || errno == EBUSY || errno == EXDEV;
  return isFolders ? SaveStep::InPlace : SaveStep::Failed;
}

class RenameSave {
 public:
  explicit RenameSave(const SaveJob& job) : m_job(job), m_new(job.Target) {}

  SaveTry Run() {
    if (!m_new.Create(NewMode())) return FailedTry(StepOfFolderError());
    SaveTry attempt = Fill();
    if (attempt.Step == SaveStep::Done) attempt = m_job.Exists ? Replace() : PlaceNew();
    if (attempt.Step != SaveStep::Done) return attempt;
    struct stat status {};
    if (::fstat(m_new.Get(), &status) == 0) attempt.Written = IdentityOf(status, m_job.Bytes);
    return attempt;
  }

 private:
  /// Nobody else may look into the new file before it has the old one's attributes.
  mode_t NewMode() const { return m_job.Exists ? 0600 : 0666; }

  SaveTry Fill() {
    if (!WriteAt(m_new.Get(), m_job.Bytes, 0)) return FailedTry();
    if (m_job.Exists && !ApplyAttributes(m_new.Get(), m_job.Attributes)) return {SaveStep::InPlace, "", {}};
    if (!Sync(m_new.Get()) || !Holds(m_new.Get(), m_job.Bytes)) return FailedTry(SaveStep::SyncFailed);
    return {};
  }

  SaveTry PlaceNew() {
    if (!m_new.PlaceNew(m_job.Target)) return FailedTry(errno == EEXIST ? SaveStep::Changed : SaveStep::Failed);
    if (SyncFolder(m_new.Folder())) return {};
    SaveTry failed = FailedTry(SaveStep::SyncFailed);
    ::unlink(m_job.Target.c_str());
    return failed;
  }

  /// The two files change places, so that the old one can be looked at once more, and put back.
  SaveTry Replace() {
    if (!m_new.Name()) return FailedTry(StepOfFolderError());
    if (!Exchange()) return errno == EINVAL || errno == ENOSYS ? ReplaceWithoutExchange() : AfterFailedRename();
    if (m_job.Expected != nullptr && IsAnother()) return PutBack({SaveStep::Changed, "", {}});
    if (!SyncFolder(m_new.Folder())) return PutBack(FailedTry(SaveStep::SyncFailed));
    return {};
  }

  bool Exchange() {
    return ::renameat2(AT_FDCWD, m_new.OwnName().c_str(), AT_FDCWD, m_job.Target.c_str(), RENAME_EXCHANGE) == 0;
  }

  static SaveTry AfterFailedRename() {
    return errno == ENOENT ? SaveTry{SaveStep::Changed, "", {}} : FailedTry(StepOfFolderError());
  }

  /// Whether the file that was replaced is not the one that was to be: the rename itself has changed only its ctime.
  bool IsAnother() const {
    FileIdentity expected = *m_job.Expected;
    struct stat status {};
    if (::lstat(m_new.OwnName().c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return true;
    const FileIdentity now = IdentityOf(status, "");
    if (!now.HasStatusOf(expected)) return true;
    if (expected.Settled) return false;
    return HasChanged(m_new.OwnName(), expected);
  }

  /// Undoes the exchange. Where somebody put yet another file there in between, that one stays.
  SaveTry PutBack(SaveTry reason) {
    struct stat own {};
    if (Exchange() && ::fstat(m_new.Get(), &own) == 0 && (own.st_nlink > 0 || Exchange())) return reason;
    const std::string kept = m_new.OwnName();
    m_new.Release();
    return {SaveStep::Failed, LastError() + ".  What the file held before is in \"" + kept + "\"", {}};
  }

  SaveTry ReplaceWithoutExchange() {
    if (m_job.Expected != nullptr && HasChanged(m_job.Target, *m_job.Expected)) return {SaveStep::Changed, "", {}};
    if (::rename(m_new.OwnName().c_str(), m_job.Target.c_str()) != 0) return AfterFailedRename();
    m_new.Release();
    return SyncFolder(m_new.Folder()) ? SaveTry{} : FailedTry();
  }

  const SaveJob& m_job;
  FileBeside m_new;
};

}  // namespace

SaveTry SaveByRename(const SaveJob& job) {
  return RenameSave(job).Run();
}

}  // namespace platform
