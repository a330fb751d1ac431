// One program a user: who is first, what the first one takes from others, and what it turns away.

#include "platform/InstanceChannel.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <thread>

#include "platform/ExecuteLines.h"
#include "platform/InstanceServer.h"
#include "platform/LocalSocket.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace platform;
using namespace std::chrono_literals;
using Role = InstanceChannel::Role;

std::string LinesOf(const std::vector<std::string>& chunks) {
  ExecuteLines lines;
  std::string all;
  for (const std::string& chunk : chunks) {
    lines.Add(chunk);
    while (const auto line = lines.Next()) all += '<' + (line->size() > 9 ? std::to_string(line->size()) : *line) + '>';
  }
  return lines.Spoilt() ? all + "spoilt" : all;
}

TEST(ExecuteLines, AreCutOutOfAnyChunks) {
  const std::string longest(ExecuteLines::Longest, 'x');
  EXPECT_EQ(LinesOf({"a\nb", "c", "\n\nd"}), "<a><bc><>");
  EXPECT_EQ(LinesOf({longest, "\na\n"}), "<65536><a>");
  EXPECT_EQ(LinesOf({"a\n" + longest, "x"}), "<a>spoilt");
  EXPECT_EQ(LinesOf({longest + "x\na\n"}), "spoilt");
  EXPECT_EQ(LinesOf({"a\n\xC3", "\xA4\nb\xC3\nc\n", "d\n"}), "<a><\xC3\xA4>spoilt");
  EXPECT_EQ(LinesOf({std::string("a\0b\n", 4), "c\n"}), "spoilt");
}

TEST(InstanceFolder, IsNeverOneThatUsersShare) {
  const tests::TemporaryFolder folder;
  folder.SetMode("", 0755);
  for (const char* name : {"run/x", "shared/x", "state/x", "linked/x"}) folder.Write(name, "");
  folder.SetMode("shared", 0777);
  ASSERT_EQ(::symlink(folder.Path("run").c_str(), folder.Path("linked/quillmark").c_str()), 0);
  const std::string state = folder.Path("state"), fallback = state + "/quillmark/run";
  EXPECT_EQ(FindInstanceFolder({folder.Path("run"), state}), folder.Path("run/quillmark"));
  EXPECT_EQ(folder.Mode("run/quillmark"), 0700u);
  folder.SetMode("run/quillmark", 0755);
  EXPECT_EQ(FindInstanceFolder({folder.Path("run"), state}), folder.Path("run/quillmark"));
  EXPECT_EQ(folder.Mode("run/quillmark"), 0700u);
  EXPECT_EQ(FindInstanceFolder({folder.Path("shared"), state}), fallback);
  EXPECT_EQ(FindInstanceFolder({folder.Path("linked"), state}), fallback);
  EXPECT_EQ(FindInstanceFolder({folder.Path("none"), state}), fallback);
  EXPECT_EQ(folder.Mode("state/quillmark/run"), 0700u);
  EXPECT_EQ(FindInstanceFolder({"", folder.Path("shared")}), "");
  EXPECT_EQ(FindInstanceFolder({"", ""}), "");
}

/// Whether something comes, or may go, within so many milliseconds.
bool IsReady(int descriptor, short events, int milliseconds) {
  pollfd wait{descriptor, events, 0};
  return ::poll(&wait, 1, milliseconds) > 0;
}

/// A first instance that serves in a thread of its own and writes down what it is told.
class RunningServer {
 public:
  explicit RunningServer(const std::string& folder, std::chrono::milliseconds patience = 10s)
      : m_server(
            folder,
            [this](std::string_view command) {
              ++m_commands;
              return command.starts_with("FileOpen:");
            },
            patience),
        m_thread([this] {
          while (!m_stop)
            if (IsReady(m_server.Descriptor(), POLLIN, 10)) m_server.Serve();
        }) {}
  ~RunningServer() {
    m_stop = true;
    m_thread.join();
  }
  int Commands() const { return m_commands; }

 private:
  std::atomic<int> m_commands{0};
  std::atomic<bool> m_stop{false};
  InstanceServer m_server;
  std::thread m_thread;
};

TEST(InstanceChannel, TheLockDecidesAndCommandsAreAnswered) {
  const tests::TemporaryFolder folder;
  const std::string deep = folder.Path(std::string(120, 'd'));  // longer than a socket's address
  std::filesystem::create_directory(deep);
  std::ofstream(deep + "/socket") << "left over";
  auto first = std::make_unique<InstanceChannel>(deep);
  ASSERT_EQ(first->Claim(0ms), Role::First);
  InstanceChannel second(deep);
  EXPECT_EQ(second.Claim(50ms), Role::Unanswered);
  EXPECT_FALSE(second.Send("FileOpen:/a", 1s));
  {
    const RunningServer server(deep);
    EXPECT_EQ(second.Claim(5s), Role::Second);
    EXPECT_TRUE(second.Send("FileOpen:/a b\xC3\xA4.js", 5s));
    EXPECT_FALSE(second.Send("Nonsense", 5s));
    EXPECT_FALSE(second.Send("FileOpen:/a\nFileOpen:/b", 5s));  // would be two commands
    EXPECT_EQ(server.Commands(), 2);
  }
  EXPECT_FALSE(std::filesystem::exists(deep + "/socket"));
  first.reset();
  EXPECT_EQ(second.Claim(0ms), Role::First);
  EXPECT_EQ(InstanceChannel("").Claim(0ms), Role::First);
}

/// A client that is no program of ours.
class RawClient {
 public:
  explicit RawClient(const std::string& folder) : m_socket(MakeLocalSocket()) {
    m_connected = ConnectIn(m_socket.Get(), folder);
  }
  bool Connected() const { return m_connected; }

  /// Sends until everything has gone or the other end does not want more; the bytes that went.
  std::size_t Send(std::string_view bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size() && IsReady(m_socket.Get(), POLLOUT, 5000)) {
      const ssize_t part = ::send(m_socket.Get(), bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
      if (part <= 0) break;
      sent += static_cast<std::size_t>(part);
    }
    return sent;
  }
  /// Everything until the other end closes, or for five seconds.
  std::string ReadAll() {
    std::string all;
    char buffer[4096];
    while (IsReady(m_socket.Get(), POLLIN, 5000)) {
      const ssize_t got = ::recv(m_socket.Get(), buffer, sizeof buffer, 0);
      if (got <= 0) return all + "closed";
      all.append(buffer, static_cast<std::size_t>(got));
    }
    return all + "open";
  }

 private:
  FileDescriptor m_socket;
  bool m_connected = false;
};

TEST(InstanceChannel, AHostileClientIsCutOff) {
  const tests::TemporaryFolder folder;
  const RunningServer server(folder.Path(), 300ms);
  const auto answer = [&](std::string_view bytes) {
    RawClient client(folder.Path());
    client.Send(bytes);
    return client.ReadAll();
  };
  EXPECT_EQ(answer({"\xFF\xFE\0garbage\n", 11}), "refused\nclosed");
  EXPECT_EQ(answer("FileOpen:/half"), "closed") << "after the server's patience";
  const std::string endless(64 << 20, 'x');
  EXPECT_LT(RawClient(folder.Path()).Send(endless), 4u << 20) << "a line of 64 megabytes was not cut off";
  std::string flood;
  for (int i = 0; i < 100'000; ++i) flood += "Nonsense:\n";
  EXPECT_LT(RawClient(folder.Path()).Send(flood), flood.size());
  RawClient(folder.Path()).Send("FileOpen:/half");  // goes without a line end
  std::vector<std::unique_ptr<RawClient>> crowd;
  for (int i = 0; i < 200; ++i) crowd.push_back(std::make_unique<RawClient>(folder.Path()));
  crowd.clear();
  const int before = server.Commands();
  EXPECT_TRUE(InstanceChannel(folder.Path()).Send("FileOpen:/a", 5s)) << "though the server has yet to see them go";
  EXPECT_EQ(server.Commands(), before + 1) << "neither the crowd nor the half line was a command";
}

/// Runs `work` in a process of its own and gives its exit status.
template <typename Work>
pid_t InAnotherProcess(Work work) {
  const pid_t process = ::fork();
  if (process == 0) ::_exit(work());
  return process;
}

int StatusOf(pid_t process) {
  int status = -1;
  ::waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(InstanceChannel, AForeignUserIsTurnedAway) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the administrator can become another user";
  const tests::TemporaryFolder folder;
  InstanceServer server(folder.Path(), [](std::string_view) { return true; });
  const auto foreign = [&] {
    if (::setresuid(65534, 65534, 65534) != 0) return 9;
    RawClient client(folder.Path());
    client.Send("FileOpen:/a\n");
    const bool refused = client.Connected() && client.ReadAll() == "closed";
    return refused && !InstanceChannel(folder.Path()).Send("FileOpen:/a", 200ms) ? 1 : 2;
  };
  folder.SetMode("socket", 0777);  // as if both folder and socket were open to everybody
  const pid_t process = InAnotherProcess(foreign);
  int status = 0;
  while (::waitpid(process, &status, WNOHANG) == 0)
    if (IsReady(server.Descriptor(), POLLIN, 10)) server.Serve();
  EXPECT_EQ(WEXITSTATUS(status), 1);
}

/// A start of the program: 1 when it was the first and got the others' calls, 2 when its call was accepted.
int Start(const std::string& folder, int others) {
  InstanceChannel channel(folder);
  if (channel.Claim(20s) != Role::First) return channel.Send("BringToFront:", 20s) ? 2 : 3;
  InstanceServer server(folder, [&](std::string_view) { return --others >= 0; });
  const auto end = std::chrono::steady_clock::now() + 20s;
  while (others > 0 && std::chrono::steady_clock::now() < end)
    if (IsReady(server.Descriptor(), POLLIN, 1000)) server.Serve();
  return others == 0 ? 1 : 4;
}

TEST(InstanceChannel, StartsAtOnceEndWithOneFirstInstance) {
  const char* wanted = std::getenv("QUILLMARK_STARTS");
  const int rounds = wanted ? std::atoi(wanted) : 10;
  for (int round = 0; round < rounds; ++round) {
    const tests::TemporaryFolder folder;
    std::vector<pid_t> starts;
    for (int i = 0; i < 3; ++i) starts.push_back(InAnotherProcess([&] { return Start(folder.Path(), 2); }));
    std::string statuses;
    for (const pid_t start : starts) statuses += std::to_string(StatusOf(start));
    std::sort(statuses.begin(), statuses.end());
    ASSERT_EQ(statuses, "122") << "in round " << round;
  }
}

}  // namespace
