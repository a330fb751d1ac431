#pragma once
// One program a user: who is first, and how a later start reaches it.
//
// A lock file decides who is first; it is held until the object goes. Beside it, in a folder of the user's own that
// nobody else may enter, the first one listens on a socket (InstanceServer). One execute string goes a line, and
// "accepted" or "refused" comes back. Where there is no safe folder every start is the first.

#include <chrono>
#include <string>
#include <string_view>

#include "platform/FileDescriptor.h"

namespace platform {

/// What the choice of the folder depends on; FromProcess reads it from the running process.
struct InstancePlaces {
  std::string RuntimeDir;  ///< $XDG_RUNTIME_DIR
  std::string StateHome;   ///< as the function of that name gives it

  static InstancePlaces FromProcess();
};

/// The folder for lock and socket, made when missing: "quillmark" in the runtime folder if that belongs to this user
/// and nobody else may write there, else "quillmark/run" in the state folder under the same conditions. Never in a
/// folder that users share. "" when there is none.
std::string FindInstanceFolder(const InstancePlaces& places);

class InstanceChannel {
 public:
  enum class Role {
    First,       ///< this process holds the lock
    Second,      ///< another one does, and listens
    Unanswered,  ///< another one does, but did not answer in time
  };

  /// `folder` as FindInstanceFolder gave it; "" makes this process the first without a channel.
  explicit InstanceChannel(std::string folder) : m_folder(std::move(folder)) {}

  /// Finds out the role, waiting while the other one is starting or ending.
  Role Claim(std::chrono::milliseconds timeout);

  /// Sends one execute string to the first instance and waits for the answer; true for "accepted".
  bool Send(std::string_view command, std::chrono::milliseconds timeout) const;

  /// Where the first instance listens; "" when there is no channel.
  const std::string& Folder() const { return m_folder; }

 private:
  bool TakeLock();

  std::string m_folder;
  FileDescriptor m_lock;
};

}  // namespace platform
