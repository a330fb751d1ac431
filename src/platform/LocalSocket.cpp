#include "platform/LocalSocket.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace platform {
namespace {

constexpr const char* SocketName = "/socket";

/// Does `action` with the address of the socket file. An address holds 107 bytes: a longer path is reached through the
/// opened folder.
template <typename Action>
bool WithAddress(const std::string& folder, Action action) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::string path = folder + SocketName;
  FileDescriptor opened;
  if (path.size() >= sizeof address.sun_path) {
    opened = FileDescriptor(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    path = "/proc/self/fd/" + std::to_string(opened.Get()) + SocketName;
  }
  std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
  return action(reinterpret_cast<const sockaddr*>(&address), static_cast<socklen_t>(sizeof address)) == 0;
}

}  // namespace

FileDescriptor MakeLocalSocket() {
  return FileDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

bool BindIn(int socket, const std::string& folder) {
  return WithAddress(folder,
                     [&](const sockaddr* address, socklen_t length) { return ::bind(socket, address, length); });
}

bool ConnectIn(int socket, const std::string& folder) {
  return WithAddress(folder,
                     [&](const sockaddr* address, socklen_t length) { return ::connect(socket, address, length); });
}

void RemoveSocketIn(const std::string& folder) {
  ::unlink((folder + SocketName).c_str());
}

bool PeerIsThisUser(int socket) {
  ucred peer{};
  socklen_t length = sizeof peer;
  return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 && peer.uid == ::geteuid();
}

}  // namespace platform
