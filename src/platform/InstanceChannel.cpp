#include "platform/InstanceChannel.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <thread>

#include "platform/ExecuteLines.h"
#include "platform/LocalSocket.h"
#include "platform/UserFolders.h"

namespace platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto Patience = std::chrono::milliseconds(20);  ///< between two tries

/// Whether the folder is this user's and only this user may put anything into it.
bool IsSafe(const std::string& folder) {
  struct stat status {};
  return ::stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid() &&
         (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

/// Makes the folder, or closes one that is there already to others; false when it is not ours to use.
bool MakeOwnFolder(const std::string& folder) {
  ::mkdir(folder.c_str(), 0700);
  struct stat status {};
  if (::lstat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != ::geteuid()) return false;
  return (status.st_mode & 07777) == 0700 || ::chmod(folder.c_str(), 0700) == 0;
}

/// Waits until the socket is ready for `events`; false when the time is over.
bool WaitFor(int socket, short events, Clock::time_point end) {
  pollfd wait{socket, events, 0};
  while (true) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    if (left <= 0) return false;
    const int ready = ::poll(&wait, 1, static_cast<int>(left));
    if (ready > 0) return true;
    if (ready == 0 || errno != EINTR) return false;
  }
}

bool SendAll(int socket, std::string_view bytes, Clock::time_point end) {
  while (!bytes.empty()) {
    const ssize_t sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent > 0)
      bytes.remove_prefix(static_cast<std::size_t>(sent));
    else if (sent < 0 && errno != EINTR && (errno != EAGAIN || !WaitFor(socket, POLLOUT, end)))
      return false;
  }
  return true;
}

/// A connection to the first instance of the folder; closed when it cannot be reached or is not this user's.
FileDescriptor Connected(const std::string& folder) {
  FileDescriptor socket = MakeLocalSocket();
  if (!socket.IsOpen() || !ConnectIn(socket.Get(), folder) || !PeerIsThisUser(socket.Get())) socket.Close();
  return socket;
}

std::string ReceiveLine(int socket, Clock::time_point end) {
  ExecuteLines lines;
  char buffer[256];
  while (WaitFor(socket, POLLIN, end)) {
    const ssize_t got = ::recv(socket, buffer, sizeof buffer, 0);
    if (got < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (got <= 0) break;
    lines.Add({buffer, static_cast<std::size_t>(got)});
    if (auto line = lines.Next()) return *line;
    if (lines.Spoilt()) break;
  }
  return "";
}

}  // namespace

InstancePlaces InstancePlaces::FromProcess() {
  const std::string runtime = Environment("XDG_RUNTIME_DIR");
  return {runtime.starts_with('/') ? runtime : "/run/user/" + std::to_string(::geteuid()), platform::StateHome()};
}

std::string FindInstanceFolder(const InstancePlaces& places) {
  if (IsSafe(places.RuntimeDir)) {
    const std::string folder = places.RuntimeDir + "/quillmark";
    if (MakeOwnFolder(folder)) return folder;
  }
  if (places.StateHome.empty()) return "";
  std::error_code error;
  std::filesystem::create_directories(places.StateHome, error);
  const std::string state = places.StateHome + "/quillmark", folder = state + "/run";
  return IsSafe(places.StateHome) && MakeOwnFolder(state) && MakeOwnFolder(folder) ? folder : "";
}

bool InstanceChannel::TakeLock() {
  if (m_folder.empty()) return true;
  if (!m_lock.IsOpen())
    m_lock = FileDescriptor(::open((m_folder + "/lock").c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
  if (m_lock.IsOpen() && ::flock(m_lock.Get(), LOCK_EX | LOCK_NB) == 0) return true;
  if (m_lock.IsOpen() && (errno == EWOULDBLOCK || errno == EINTR)) return false;
  m_folder.clear();  // a disk without locks keeps nobody from working
  return true;
}

InstanceChannel::Role InstanceChannel::Claim(std::chrono::milliseconds timeout) {
  const Clock::time_point end = Clock::now() + timeout;
  while (true) {
    if (TakeLock()) return Role::First;
    if (Connected(m_folder).IsOpen()) return Role::Second;
    if (Clock::now() >= end) return Role::Unanswered;
    std::this_thread::sleep_for(Patience);
  }
}

bool InstanceChannel::Send(std::string_view command, std::chrono::milliseconds timeout) const {
  if (command.size() > ExecuteLines::Longest || command.find('\n') != std::string_view::npos) return false;
  const Clock::time_point end = Clock::now() + timeout;
  const std::string line = std::string(command) + '\n';
  while (true) {
    const FileDescriptor socket = Connected(m_folder);
    const bool isSent = socket.IsOpen() && SendAll(socket.Get(), line, end);
    if (const std::string answer = isSent ? ReceiveLine(socket.Get(), end) : ""; !answer.empty())
      return answer == "accepted";
    if (Clock::now() + Patience >= end) return false;
    std::this_thread::sleep_for(Patience);  // a server that is full turns everybody away, for a moment
  }
}

}  // namespace platform
