#pragma once
// Writes the journals of unsaved documents from threads of its own, so that no key ever waits for a disk.
//
// The threads know nothing of documents: they get bytes. One gathers each file's bytes for a moment and appends them,
// so that they outlive the program; the other syncs them, so that they outlive the machine, and may take its time on a
// slow disk. A file takes its final name only when its first bytes are safe, and holds a lock (flock) as long as it is
// open. Every function returns at once unless it says otherwise, and is called on the window thread. A write that fails
// ends its file: what was written before stays, cut at the last whole write, and the error is kept.

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace editor {

/// A file being written, as a handle.
struct JournalFile;
using JournalHandle = std::shared_ptr<JournalFile>;

class RecoveryWriter {
 public:
  /// `gather` is how long bytes may wait for others before they are written together.
  RecoveryWriter(std::string folder, std::chrono::milliseconds gather);
  /// Writes what is waiting, whatever time it takes.
  ~RecoveryWriter();
  RecoveryWriter(const RecoveryWriter&) = delete;
  RecoveryWriter& operator=(const RecoveryWriter&) = delete;

  /// A new file NAME.new. It must not exist yet; nothing is on disk before the first bytes are written.
  JournalHandle Create(const std::string& name);
  void Append(const JournalHandle& file, std::string_view bytes);
  /// Gives the file its final name NAME.journal, in place of another one of this name, as soon as all bytes so far are
  /// safe.
  void Publish(const JournalHandle& file);
  /// Deletes the file, under whichever name it has, and forgets it.
  void Remove(const JournalHandle& file);
  /// Closes the file and lets it be.
  void Leave(const JournalHandle& file);

  struct FileStatus {
    std::string Error;        ///< why nothing more is written; "" while all is well
    std::size_t Waiting = 0;  ///< bytes not yet safe
    bool Published = false;
  };
  FileStatus Status(const JournalHandle& file) const;

  /// Waits until everything asked for so far has been done or has failed.
  void Flush();

 private:
  struct Job;
  void Write();
  void Sync();
  std::vector<Job> TakeJobs();
  void WriteBytes(Job& job) const;
  void Finish(Job& job) const;
  void Changed(const JournalHandle& file, bool urgent);

  const std::string m_folder;
  const std::chrono::milliseconds m_gather;
  mutable std::mutex m_mutex;
  std::condition_variable m_wake, m_toSync, m_done;
  std::vector<JournalHandle> m_files;  ///< those with work to do
  std::vector<Job> m_written;          ///< what is to be synced and finished
  std::size_t m_inWork = 0;            ///< jobs taken and not finished
  bool m_urgent = false, m_stop = false, m_allWritten = false;
  std::thread m_writer, m_syncer;  ///< the last members: they use all others
};

/// What the names of finished and of unfinished journals end with.
inline constexpr std::string_view JournalSuffix = ".journal", UnfinishedSuffix = ".new";

/// Makes the folder, open to its owner alone; "" or why it cannot be used.
std::string MakePrivateFolder(const std::string& folder);

}  // namespace editor
