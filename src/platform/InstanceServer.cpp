#include "platform/InstanceServer.h"

#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>

#include "platform/LocalSocket.h"

namespace platform {
namespace {

constexpr int Waiting = 64;  ///< connections that the system holds for us
constexpr std::size_t ChunkBytes = 16 * 1024;
constexpr int MostCommands = 64;  ///< that one connection may send at once

/// Answers "accepted" or "refused"; false when the client does not take it.
bool SendAnswer(int socket, bool accepted) {
  const std::string_view answer = accepted ? "accepted\n" : "refused\n";
  return ::send(socket, answer.data(), answer.size(), MSG_NOSIGNAL | MSG_DONTWAIT) ==
         static_cast<ssize_t>(answer.size());
}

}  // namespace

InstanceServer::InstanceServer(std::string folder, Execute execute, std::chrono::milliseconds patience)
    : m_folder(std::move(folder)),
      m_execute(std::move(execute)),
      m_patience(patience),
      m_events(::epoll_create1(EPOLL_CLOEXEC)),
      m_timer(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)) {
  if (m_folder.empty()) return;
  RemoveSocketIn(m_folder);
  m_listener = MakeLocalSocket();
  if (!BindIn(m_listener.Get(), m_folder) || ::listen(m_listener.Get(), Waiting) != 0) {
    m_listener.Close();
    return;
  }
  Watch(m_listener.Get());
  Watch(m_timer.Get());
}

InstanceServer::~InstanceServer() {
  if (Listening()) RemoveSocketIn(m_folder);
}

void InstanceServer::Watch(int descriptor) {
  epoll_event event{};
  event.events = EPOLLIN;
  event.data.fd = descriptor;
  ::epoll_ctl(m_events.Get(), EPOLL_CTL_ADD, descriptor, &event);
}

void InstanceServer::Serve() {
  epoll_event events[MostConnections];
  const int count = ::epoll_wait(m_events.Get(), events, static_cast<int>(MostConnections), 0);
  for (int i = 0; i < count; ++i) {
    const int descriptor = events[i].data.fd;
    if (descriptor == m_listener.Get())
      Accept();
    else if (descriptor == m_timer.Get())
      CutOffTheSilent();
    else if (const auto found = m_connections.find(descriptor); found != m_connections.end())
      if (!Receive(found->second)) m_connections.erase(descriptor);
  }
}

void InstanceServer::Accept() {
  FileDescriptor socket(::accept4(m_listener.Get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
  if (!socket.IsOpen() || m_connections.size() >= MostConnections || !PeerIsThisUser(socket.Get())) return;
  const int descriptor = socket.Get();
  Watch(descriptor);
  m_connections[descriptor] = {std::move(socket), {}, std::chrono::steady_clock::now() + m_patience};
  if (m_connections.size() > 1) return;
  itimerspec every{};
  const auto tick = std::chrono::duration_cast<std::chrono::nanoseconds>(m_patience / 2).count();
  every.it_value = every.it_interval = {tick / 1'000'000'000, tick % 1'000'000'000};
  ::timerfd_settime(m_timer.Get(), 0, &every, nullptr);
}

/// Takes what has arrived and runs the commands in it. False when the connection has to go.
bool InstanceServer::Receive(Connection& connection) {
  char buffer[ChunkBytes];
  const ssize_t got = ::recv(connection.Socket.Get(), buffer, sizeof buffer, 0);
  if (got < 0) return errno == EAGAIN || errno == EINTR;
  if (got == 0) return false;
  connection.Lines.Add({buffer, static_cast<std::size_t>(got)});
  return Answer(connection);
}

bool InstanceServer::Answer(Connection& connection) {
  for (int commands = 0; commands < MostCommands; ++commands) {
    const auto line = connection.Lines.Next();
    if (!line && !connection.Lines.Spoilt()) return true;
    if (!line) break;
    connection.End = std::chrono::steady_clock::now() + m_patience;
    if (!SendAnswer(connection.Socket.Get(), m_execute(*line))) return false;
  }
  SendAnswer(connection.Socket.Get(), false);
  return false;
}

void InstanceServer::CutOffTheSilent() {
  std::uint64_t ticks = 0;
  [[maybe_unused]] const ssize_t got = ::read(m_timer.Get(), &ticks, sizeof ticks);
  const auto now = std::chrono::steady_clock::now();
  std::erase_if(m_connections, [&](const auto& entry) { return entry.second.End <= now; });
  if (m_connections.empty()) {
    const itimerspec never{};
    ::timerfd_settime(m_timer.Get(), 0, &never, nullptr);
  }
}

}  // namespace platform
