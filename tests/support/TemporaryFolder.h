#pragma once
// A folder of a test's own, removed with everything in it at the end; in memory where the machine has such a place, as
// tests save thousands of files. OrdinaryUser makes permissions count for a test that runs as the administrator.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tests {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    const bool hasMemory = ::access("/dev/shm", W_OK) == 0;
    m_path = (hasMemory ? "/dev/shm" : std::filesystem::temp_directory_path().string()) + "/quillmark.XXXXXX";
    if (::mkdtemp(m_path.data()) == nullptr) ADD_FAILURE() << "no folder " << m_path;
    if (::geteuid() == 0) SetMode("", 0777);  // OrdinaryUser works here too
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The path of a name in the folder; of the folder itself for "".
  std::string Path(const std::string& name = "") const { return name.empty() ? m_path : m_path + '/' + name; }

  /// Writes a file, making the folders on the way, and returns its path.
  std::string Write(const std::string& name, std::string_view bytes) const {
    std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
    std::ofstream(Path(name), std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return Path(name);
  }
  std::string Read(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void SetMode(const std::string& name, mode_t mode) const { EXPECT_EQ(::chmod(Path(name).c_str(), mode), 0); }
  mode_t Mode(const std::string& name) const {
    return static_cast<mode_t>(std::filesystem::status(Path(name)).permissions()) & 07777;
  }
  std::size_t EntryCount() const {
    using Entries = std::filesystem::directory_iterator;
    return static_cast<std::size_t>(std::distance(Entries(m_path), Entries()));
  }

 private:
  std::string m_path;
};

/// While it lives, an administrator's test runs as a user without rights.
class OrdinaryUser {
 public:
  OrdinaryUser() : m_wasRoot(::geteuid() == 0) {
    if (m_wasRoot && ::setresuid(65534, 65534, 0) != 0) ADD_FAILURE() << "cannot become an ordinary user";
  }
  ~OrdinaryUser() {
    if (m_wasRoot && ::setresuid(0, 0, 0) != 0) ADD_FAILURE() << "cannot become the administrator again";
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  bool m_wasRoot;
};

}  // namespace tests
