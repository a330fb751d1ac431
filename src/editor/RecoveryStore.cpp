#include "editor/RecoveryStore.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/Files.h"
#include "platform/UserFolders.h"

namespace editor {
namespace {

constexpr std::time_t SecondsUntilLeftover = 60;

std::optional<std::string> TextOfBase(const JournalHead& head) {
  if (!head.Base.Exists) return std::nullopt;
  platform::FileContent content = platform::ReadFile(head.Path);
  if (!content.Ok() || platform::HashOf(content.Bytes) != head.Base.Contents) return std::nullopt;
  return rich_text::DecodeText(std::move(content.Bytes)).Text;
}

/// A journal that its program never finished, because it ended in that moment.
void RemoveLeftover(const std::string& path) {
  struct stat status {};
  std::string ignored;
  if (::lstat(path.c_str(), &status) != 0 || std::time(nullptr) - status.st_mtime < SecondsUntilLeftover) return;
  if (std::optional<DeadJournal> leftover = DeadJournal::Take(path, ignored)) leftover->Remove();
}

}  // namespace

// Journals.

std::optional<DeadJournal> DeadJournal::Take(const std::string& path, std::string& error) {
  platform::FileDescriptor file(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
  if (!file.IsOpen()) {
    error = errno == ENOENT ? "" : platform::LastError();
    return std::nullopt;
  }
  struct stat opened {
  }, named{};
  if (::fstat(file.Get(), &opened) != 0 || !S_ISREG(opened.st_mode) || opened.st_uid != ::geteuid()) {
    error = "it is no file of this user";
    return std::nullopt;
  }
  if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) return std::nullopt;
  // Until the lock was had somebody else may have dealt with it.
  if (::lstat(path.c_str(), &named) != 0 || named.st_ino != opened.st_ino) return std::nullopt;
  return DeadJournal(path, std::move(file));
}

JournalContent DeadJournal::Read() const {
  ::lseek(m_file.Get(), 0, SEEK_SET);
  const platform::FileContent file = platform::ReadDescriptor(m_file.Get());
  return file.Ok() ? ReadJournal(file.Bytes, TextOfBase) : JournalContent{};
}

void DeadJournal::Remove() {
  ::unlink(m_path.c_str());
}

// The folder.

RecoveryStore::RecoveryStore(std::string folder, std::chrono::milliseconds gather)
    : m_folder(std::move(folder)), m_writer(m_folder, gather) {}

std::string RecoveryStore::DefaultFolder() {
  const std::string state = platform::StateHome();
  return state.empty() ? "" : state + "/quillmark";
}

std::vector<DeadJournal> RecoveryStore::TakeDead(std::vector<std::string>& problems) const {
  std::vector<std::string> names;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(m_folder, error), end; !error && entry != end; entry.increment(error))
    names.push_back(entry->path().filename().string());
  if (error && error != std::errc::no_such_file_or_directory) problems.push_back(m_folder + ": " + error.message());
  std::sort(names.begin(), names.end());
  std::vector<DeadJournal> journals;
  for (const std::string& name : names) {
    const std::string path = m_folder + '/' + name;
    if (name.ends_with(UnfinishedSuffix)) RemoveLeftover(path);
    if (!name.ends_with(JournalSuffix)) continue;
    std::string problem;
    if (std::optional<DeadJournal> journal = DeadJournal::Take(path, problem)) journals.push_back(std::move(*journal));
    if (!problem.empty()) problems.push_back((path + ": ").append(problem));
  }
  return journals;
}

// The time in front keeps names in the order of their documents; what follows keeps apart those of one moment.
std::string RecoveryStore::NewName() {
  std::array<unsigned char, 6> random{};
  [[maybe_unused]] const ssize_t ignored = ::getrandom(random.data(), random.size(), 0);
  std::array<char, 32> name{};
  std::snprintf(name.data(), name.size(), "%016llx-%02x%02x%02x%02x%02x%02x",
                static_cast<unsigned long long>(std::chrono::duration_cast<std::chrono::nanoseconds>(
                                                    std::chrono::system_clock::now().time_since_epoch())
                                                    .count()),
                random[0], random[1], random[2], random[3], random[4], random[5]);
  return name.data();
}

void RecoveryStore::TellOnce(platform::Prompts& prompts, const std::string& error) {
  if (std::exchange(m_told, true)) return;
  prompts.Show({.Text = "Unsaved text cannot be protected from a crash at present:\n\n" + error +
                        "\n\nYou can go on editing.  Please save often.",
                .Icon = platform::PromptIcon::Exclamation});
}

}  // namespace editor
