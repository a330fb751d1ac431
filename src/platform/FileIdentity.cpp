#include "platform/FileIdentity.h"

#include <fcntl.h>

#include <array>
#include <bit>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <vector>

#include "platform/FileDescriptor.h"

namespace platform {
namespace {

constexpr std::int64_t NanosecondsASecond = 1'000'000'000;
constexpr std::int64_t SettlingTime = 3 * NanosecondsASecond;  // some file systems keep times in steps of two seconds
constexpr std::size_t BlockBytes = 256 * 1024;
constexpr std::uint64_t Odd = 0x9E3779B97F4A7C15;

std::int64_t Nanoseconds(const timespec& time) {
  return time.tv_sec * NanosecondsASecond + time.tv_nsec;
}

std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) {
  return std::rotl(hash ^ word, 29) * Odd;
}

std::uint64_t Word(const char* bytes) {
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

/// Four lanes side by side, as one would wait for each multiplication; an array of them would stay in memory.
std::uint64_t AddBlock(std::uint64_t hash, std::string_view block) {
  constexpr std::size_t Lanes = 4, Step = Lanes * sizeof(std::uint64_t);
  std::uint64_t a = hash, b = hash + 1, c = hash + 2, d = hash + 3;
  const std::size_t size = block.size();
  for (; block.size() >= Step; block.remove_prefix(Step)) {
    a = Mix(a, Word(block.data()));
    b = Mix(b, Word(block.data() + 8));
    c = Mix(c, Word(block.data() + 16));
    d = Mix(d, Word(block.data() + 24));
  }
  const std::array<std::uint64_t, Lanes> lanes = {a, b, c, d};
  std::array<char, Step> rest{};
  if (!block.empty()) std::memcpy(rest.data(), block.data(), block.size());
  hash = Mix(hash, size);
  for (std::size_t lane = 0; lane < Lanes; ++lane)
    hash = Mix(Mix(hash, lanes[lane]), Word(rest.data() + lane * sizeof(std::uint64_t)));
  return hash ^ (hash >> 32);
}

/// Fills the block from the file as far as it reaches; negative when reading fails.
ssize_t ReadBlock(int descriptor, std::vector<char>& block) {
  std::size_t filled = 0;
  while (filled < block.size()) {
    const ssize_t got = ::read(descriptor, block.data() + filled, block.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return -1;
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  return static_cast<ssize_t>(filled);
}

/// Adds the hash of the contents; false when they cannot be read.
bool AddContents(const std::string& path, FileIdentity& identity) {
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file.IsOpen()) return false;
  std::vector<char> block(BlockBytes);
  std::uint64_t hash = 0;
  while (true) {
    const ssize_t got = ReadBlock(file.Get(), block);
    if (got < 0) return false;
    if (got > 0) hash = AddBlock(hash, {block.data(), static_cast<std::size_t>(got)});
    if (static_cast<std::size_t>(got) < block.size()) break;
  }
  identity.Contents = hash;
  return true;
}

FileIdentity IdentityOfStatus(const struct stat& status) {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  FileIdentity identity;
  identity.Exists = true;
  identity.Device = status.st_dev;
  identity.Inode = status.st_ino;
  identity.Size = static_cast<std::uint64_t>(status.st_size);
  identity.Modified = Nanoseconds(status.st_mtim);
  identity.Changed = Nanoseconds(status.st_ctim);
  identity.Settled = Nanoseconds(now) - identity.Changed > SettlingTime;
  return identity;
}

}  // namespace

bool FileIdentity::HasStatusOf(const FileIdentity& other) const {
  return Exists == other.Exists && Device == other.Device && Inode == other.Inode && Size == other.Size &&
         Modified == other.Modified;
}

bool FileIdentity::HasContentsOf(const FileIdentity& other) const {
  return Exists == other.Exists && Size == other.Size && Contents == other.Contents;
}

std::uint64_t HashOf(std::string_view bytes) {
  std::uint64_t hash = 0;
  for (; !bytes.empty(); bytes.remove_prefix(std::min(BlockBytes, bytes.size())))
    hash = AddBlock(hash, bytes.substr(0, BlockBytes));
  return hash;
}

FileIdentity IdentityOf(const struct stat& status, std::string_view bytes) {
  FileIdentity identity = IdentityOfStatus(status);
  identity.Contents = HashOf(bytes);
  return identity;
}

FileContent ReadIdentified(const std::string& path, FileIdentity& identity) {
  identity = {};
  struct stat status {};
  const bool hasStatus = ::stat(path.c_str(), &status) == 0;
  FileContent content = ReadFile(path);
  if (hasStatus && content.Ok()) identity = IdentityOf(status, content.Bytes);
  return content;
}

FileLook LookAt(const std::string& path, const FileIdentity& known) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    const bool isMissing = errno == ENOENT || errno == ENOTDIR;
    if (!isMissing) return {FileDifference::None, known};
    return {known.Exists ? FileDifference::Missing : FileDifference::None, {}};
  }
  FileLook look{FileDifference::None, IdentityOfStatus(status)};
  look.Seen.Contents = known.Contents;
  if (known.Settled && look.Seen.HasStatusOf(known) && look.Seen.Changed == known.Changed) return look;
  // What cannot be read, or is no file, has its status alone.
  const bool isRead = S_ISREG(status.st_mode) && AddContents(path, look.Seen);
  if (isRead ? look.Seen.HasContentsOf(known) : look.Seen.HasStatusOf(known)) return look;
  look.Difference = FileDifference::Changed;
  return look;
}

}  // namespace platform
