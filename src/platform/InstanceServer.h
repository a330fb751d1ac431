#pragma once
// The first instance's end of the channel: takes execute strings from other starts of the program and answers them.
//
// Whoever connects may be hostile: a foreign user is turned away, memory and the number of connections are bounded, a
// client that says nothing whole for ten seconds is cut off, and one call of Serve does a bounded amount of work.

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/ExecuteLines.h"
#include "platform/InstanceChannel.h"

namespace platform {

class InstanceServer {
 public:
  /// Runs one execute string; whether it is accepted.
  using Execute = std::function<bool(std::string_view command)>;

  static constexpr std::size_t MostConnections = 32;

  /// Removes what an earlier instance left and listens in the folder, whose lock the caller holds. Where that fails it
  /// stays silent: nobody can connect.
  InstanceServer(std::string folder, Execute execute, std::chrono::milliseconds patience = std::chrono::seconds(10));
  ~InstanceServer();
  InstanceServer(const InstanceServer&) = delete;
  InstanceServer& operator=(const InstanceServer&) = delete;

  bool Listening() const { return m_listener.IsOpen(); }

  /// Readable whenever Serve has something to do; for the event loop to watch.
  int Descriptor() const { return m_events.Get(); }

  /// Does what is due, and returns without waiting.
  void Serve();

 private:
  struct Connection {
    FileDescriptor Socket;
    ExecuteLines Lines;
    std::chrono::steady_clock::time_point End;
  };

  void Watch(int descriptor);
  void Accept();
  bool Receive(Connection& connection);
  bool Answer(Connection& connection);
  void CutOffTheSilent();

  std::string m_folder;
  Execute m_execute;
  std::chrono::milliseconds m_patience;
  FileDescriptor m_events, m_timer, m_listener;
  std::map<int, Connection> m_connections;  ///< under their descriptors
};

}  // namespace platform
