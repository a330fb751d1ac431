#include "platform/SafeSave.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

#include "platform/FileDescriptor.h"
#include "platform/SaveSteps.h"

namespace platform {
namespace {

constexpr int MostTries = 4;
constexpr int MostSyncFailures = 2;
constexpr const char* ChangedText = "another program has changed it meanwhile";

/// Finds out what is there; "" or why it cannot be written.
std::string Examine(SaveJob& job) {
  job.Exists = ::stat(job.Target.c_str(), &job.Status) == 0;
  if (!job.Exists) return errno == ENOENT ? "" : LastError();  // above all, links that lead round in a circle
  if (!S_ISREG(job.Status.st_mode)) return "it is not a regular file";
  if (::faccessat(AT_FDCWD, job.Target.c_str(), W_OK, AT_EACCESS) != 0) return LastError();
  job.Attributes = AttributesOf(job.Target, job.Status);
  return "";
}

SaveTry TryOnce(const SaveJob& job) {
  if (job.Exists && job.Status.st_nlink > 1) return SaveInPlace(job);
  SaveTry attempt = SaveByRename(job);
  if (attempt.Step != SaveStep::InPlace) return attempt;
  if (!job.Exists) return {SaveStep::Failed, attempt.Error, {}};
  return SaveInPlace(job);
}

}  // namespace

SaveTry FailedTry(SaveStep step) {
  return {step, LastError(), {}};
}

std::string TargetOf(const std::string& path) {
  std::error_code error;
  std::filesystem::path target = path;
  for (int links = 0; links < 40 && std::filesystem::is_symlink(target, error); ++links) {
    const std::filesystem::path next = std::filesystem::read_symlink(target, error);
    if (error) break;
    target = next.is_absolute() ? next : target.parent_path() / next;
  }
  return target.string();
}

std::string FolderOfTarget(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

bool HasChanged(const std::string& path, const FileIdentity& expected) {
  return LookAt(path, expected).Difference != FileDifference::None;
}

SaveResult SafeSave(const std::string& path, std::string_view bytes, const FileIdentity* expected) {
  SaveTry attempt;
  FileLook look;
  for (int tries = 0, syncFailures = 0; tries < MostTries; ++tries) {
    SaveJob job{TargetOf(path), bytes, nullptr, false, {}, {}};
    if (std::string error = Examine(job); !error.empty()) return {error, false, {}};
    if (expected != nullptr) {
      look = LookAt(job.Target, *expected);
      if (look.Difference != FileDifference::None) return {ChangedText, true, {}};
      job.Expected = &look.Seen;
    }
    attempt = TryOnce(job);
    if (attempt.Step == SaveStep::SyncFailed && ++syncFailures == MostSyncFailures) break;
    const bool again = attempt.Step == SaveStep::SyncFailed || attempt.Step == SaveStep::Changed;
    if (!again) break;  // what has changed is looked at again: its contents may be the expected ones
  }
  if (attempt.Step == SaveStep::Changed) return {ChangedText, true, {}};
  return {attempt.Error, false, attempt.Written};
}

}  // namespace platform
