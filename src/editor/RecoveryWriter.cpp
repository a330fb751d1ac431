#include "editor/RecoveryWriter.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <utility>

#include "platform/FileDescriptor.h"

namespace editor {
namespace {

using platform::LastError, platform::SyncFolder;

constexpr std::size_t UrgentBytes = 1 << 20;  // so much is not worth waiting for more

}  // namespace

// The first part belongs to all threads, under the writer's mutex. The second is passed on with the jobs: the writing
// thread opens and writes, and the syncing thread has the path from then on. The descriptor stays open until the last
// job or, after a failure, until the handle goes, as either thread may be using it.
struct JournalFile {
  std::string Name;
  std::string Pending;
  std::size_t Writing = 0;
  bool WantsName = false, Published = false;
  bool Removed = false, Left = false;
  std::string Error;

  std::string Path;  ///< where the file is now; "" when there is none
  platform::FileDescriptor Descriptor;
  std::size_t GoodBytes = 0;
};

/// What the threads have taken over from a file.
struct RecoveryWriter::Job {
  JournalHandle File;
  std::string Bytes;
  bool Publish = false, Remove = false, Leave = false;
  std::string Error;
};

std::string MakePrivateFolder(const std::string& folder) {
  std::error_code error;
  const std::string above = std::filesystem::path(folder).parent_path().string();
  std::filesystem::create_directories(above, error);
  if (error) return above + ": " + error.message();
  const bool made = ::mkdir(folder.c_str(), 0700) == 0;
  struct stat status {};
  if (!made && errno != EEXIST) return folder + ": " + LastError();
  if (::stat(folder.c_str(), &status) != 0) return folder + ": " + LastError();
  if (!S_ISDIR(status.st_mode)) return folder + ": it is not a folder";
  if (status.st_uid != ::geteuid()) return folder + ": it belongs to another user";
  if ((status.st_mode & 0777) != 0700 && ::chmod(folder.c_str(), 0700) != 0) return folder + ": " + LastError();
  if (made) SyncFolder(above);
  return "";
}

// The window's side.

RecoveryWriter::RecoveryWriter(std::string folder, std::chrono::milliseconds gather)
    : m_folder(std::move(folder)), m_gather(gather), m_writer([this] { Write(); }), m_syncer([this] { Sync(); }) {}

RecoveryWriter::~RecoveryWriter() {
  {
    const std::lock_guard lock(m_mutex);
    m_stop = true;
  }
  m_wake.notify_one();
  m_writer.join();
  m_syncer.join();
}

void RecoveryWriter::Changed(const JournalHandle& file, bool urgent) {
  if (std::find(m_files.begin(), m_files.end(), file) == m_files.end()) m_files.push_back(file);
  m_urgent = m_urgent || urgent;
  m_wake.notify_one();
}

JournalHandle RecoveryWriter::Create(const std::string& name) {
  JournalHandle file = std::make_shared<JournalFile>();
  file->Name = name;
  return file;
}

void RecoveryWriter::Append(const JournalHandle& file, std::string_view bytes) {
  const std::lock_guard lock(m_mutex);
  if (!file->Error.empty()) return;
  file->Pending += bytes;
  Changed(file, file->Pending.size() >= UrgentBytes);
}

void RecoveryWriter::Publish(const JournalHandle& file) {
  const std::lock_guard lock(m_mutex);
  file->WantsName = true;
  Changed(file, false);
}

void RecoveryWriter::Remove(const JournalHandle& file) {
  const std::lock_guard lock(m_mutex);
  file->Pending.clear();
  file->Removed = true;
  Changed(file, true);
}

void RecoveryWriter::Leave(const JournalHandle& file) {
  const std::lock_guard lock(m_mutex);
  file->Left = true;
  Changed(file, true);
}

RecoveryWriter::FileStatus RecoveryWriter::Status(const JournalHandle& file) const {
  const std::lock_guard lock(m_mutex);
  return {file->Error, file->Pending.size() + file->Writing, file->Published};
}

void RecoveryWriter::Flush() {
  std::unique_lock lock(m_mutex);
  m_urgent = true;
  m_wake.notify_one();
  m_done.wait(lock, [this] { return m_files.empty() && m_inWork == 0; });
}

// The threads.

std::vector<RecoveryWriter::Job> RecoveryWriter::TakeJobs() {
  std::vector<Job> jobs;
  for (JournalHandle& file : std::exchange(m_files, {})) {
    file->Writing += file->Pending.size();
    jobs.push_back({file, std::exchange(file->Pending, {}), file->WantsName, file->Removed, file->Left, file->Error});
  }
  m_inWork += jobs.size();
  return jobs;
}

void RecoveryWriter::Write() {
  std::unique_lock lock(m_mutex);
  while (true) {
    m_wake.wait(lock, [this] { return m_stop || !m_files.empty(); });
    if (m_files.empty()) break;
    m_wake.wait_for(lock, m_gather, [this] { return m_stop || m_urgent; });
    m_urgent = false;
    std::vector<Job> jobs = TakeJobs();
    lock.unlock();
    for (Job& job : jobs) WriteBytes(job);
    lock.lock();
    std::move(jobs.begin(), jobs.end(), std::back_inserter(m_written));
    m_toSync.notify_one();
  }
  m_allWritten = true;
  m_toSync.notify_one();
}

void RecoveryWriter::Sync() {
  std::unique_lock lock(m_mutex);
  while (true) {
    m_toSync.wait(lock, [this] { return m_allWritten || !m_written.empty(); });
    if (m_written.empty()) return;
    std::vector<Job> jobs = std::exchange(m_written, {});
    lock.unlock();
    for (Job& job : jobs) Finish(job);
    lock.lock();
    for (const Job& job : jobs) {
      job.File->Writing -= job.Bytes.size();
      if (job.File->Error.empty()) job.File->Error = job.Error;
      job.File->Published = job.File->Published || (job.Publish && job.Error.empty());
      if (!job.Error.empty()) job.File->Pending.clear();
    }
    m_inWork -= jobs.size();
    m_done.notify_all();
  }
}

namespace {

std::string UnfinishedPath(const JournalFile& file, const std::string& folder) {
  return folder + '/' + file.Name + std::string(UnfinishedSuffix);
}

std::string Open(JournalFile& file, const std::string& folder) {
  if (const std::string error = MakePrivateFolder(folder); !error.empty()) return error;
  const std::string path = UnfinishedPath(file, folder);
  file.Descriptor = platform::FileDescriptor(
      ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC | O_NOFOLLOW, 0600));
  if (!file.Descriptor.IsOpen()) return path + ": " + LastError();
  file.Path = path;
  return ::flock(file.Descriptor.Get(), LOCK_EX | LOCK_NB) == 0 ? "" : path + ": " + LastError();
}

std::string AppendTo(JournalFile& file, std::string_view bytes, const std::string& folder) {
  if (platform::WriteAt(file.Descriptor.Get(), bytes, static_cast<off_t>(file.GoodBytes))) {
    file.GoodBytes += bytes.size();
    return "";
  }
  const std::string error = UnfinishedPath(file, folder) + ": " + LastError();
  // What was cut off would be passed over by a reader; without it the file is as small as can be on a full disk.
  [[maybe_unused]] const int ignored = ::ftruncate(file.Descriptor.Get(), static_cast<off_t>(file.GoodBytes));
  return error;
}

std::string GiveName(JournalFile& file, const std::string& folder) {
  const std::string path = folder + '/' + file.Name + std::string(JournalSuffix);
  if (file.Path == path) return "";
  if (::rename(file.Path.c_str(), path.c_str()) != 0) return path + ": " + LastError();
  file.Path = path;
  SyncFolder(folder);  // should it fail, a power cut leaves the old name or the new one, and either is right
  return "";
}

/// Takes a file that never got its name off the disk, and gives its room back at once.
void Discard(JournalFile& file) {
  if (!file.Path.ends_with(UnfinishedSuffix)) return;
  ::unlink(file.Path.c_str());
  file.Path.clear();
  if (!file.Descriptor.IsOpen()) return;
  [[maybe_unused]] const int ignored = ::ftruncate(file.Descriptor.Get(), 0);
}

}  // namespace

// Nothing here waits for the disk: what is written survives the program's end, whatever the disk is busy with.
void RecoveryWriter::WriteBytes(Job& job) const {
  if (job.Remove || !job.Error.empty() || job.Bytes.empty()) return;
  if (!job.File->Descriptor.IsOpen()) job.Error = Open(*job.File, m_folder);
  if (job.Error.empty()) job.Error = AppendTo(*job.File, job.Bytes, m_folder);
}

void RecoveryWriter::Finish(Job& job) const {
  JournalFile& file = *job.File;
  if (job.Remove) {
    if (!file.Path.empty() && ::unlink(file.Path.c_str()) == 0) SyncFolder(m_folder);
    file.Path.clear();
    return file.Descriptor.Close();
  }
  if (job.Error.empty() && !job.Bytes.empty() && ::fdatasync(file.Descriptor.Get()) != 0)
    job.Error = file.Path + ": " + LastError();
  if (job.Error.empty() && job.Publish && file.Descriptor.IsOpen()) job.Error = GiveName(file, m_folder);
  if (!job.Error.empty()) Discard(file);
  if (job.Leave) file.Descriptor.Close();
}

}  // namespace editor
