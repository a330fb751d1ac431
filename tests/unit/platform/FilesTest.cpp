#include "platform/Files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "tests/support/TemporaryFolder.h"

namespace {

using namespace platform;
using tests::OrdinaryUser;
using tests::TemporaryFolder;

class FilesTest : public testing::Test {
 protected:
  TemporaryFolder m_folder;
};

TEST_F(FilesTest, ReadsEveryByteOrTellsWhyNot) {
  std::string bytes(200'000, 'x');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7 % 256);
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, bytes.size()}) {
    const FileContent content = ReadFile(m_folder.Write("file", bytes.substr(0, size)));
    EXPECT_EQ(content.Error, "");
    EXPECT_EQ(content.Bytes, bytes.substr(0, size));
  }
  m_folder.SetMode("file", 0);
  const OrdinaryUser user;
  struct Case {
    std::string Path, Error;
    bool IsFile, IsFolder;
  };
  const Case cases[] = {
      {m_folder.Path("missing"), "No such file or directory", false, false},
      {m_folder.Path("file/below"), "Not a directory", false, false},
      {m_folder.Path(), "it is a folder", false, true},
      {m_folder.Path("file"), "Permission denied", true, false},
      {"", "No such file or directory", false, false},
  };
  for (const Case& c : cases) {
    const FileContent content = ReadFile(c.Path);
    EXPECT_EQ(content.Error, c.Error) << c.Path;
    EXPECT_EQ(content.Bytes, "");
    EXPECT_EQ(FileExists(c.Path), c.IsFile) << c.Path;
    EXPECT_EQ(FolderExists(c.Path), c.IsFolder) << c.Path;
  }
}

TEST_F(FilesTest, ReadsAFileThatTellsNoSize) {
  const FileContent content = ReadFile("/proc/self/status");
  EXPECT_EQ(content.Error, "");
  EXPECT_TRUE(content.Bytes.starts_with("Name:"));
}

TEST_F(FilesTest, WritingKeepsModeAndLinks) {
  const mode_t mask = ::umask(027);
  EXPECT_EQ(WriteFile(m_folder.Path("new"), "1"), "");
  ::umask(mask);
  EXPECT_EQ(m_folder.Mode("new"), 0640u);
  m_folder.SetMode("new", 0751);
  EXPECT_EQ(WriteFile(m_folder.Path("new"), "22"), "");
  EXPECT_EQ(m_folder.Mode("new"), 0751u);
  EXPECT_EQ(m_folder.Read("new"), "22");

  std::filesystem::create_directory(m_folder.Path("sub"));
  std::filesystem::create_symlink("../sub/second", m_folder.Path("sub/first"));
  std::filesystem::create_symlink(m_folder.Path("new"), m_folder.Path("sub/second"));
  std::filesystem::create_symlink("born", m_folder.Path("sub/dangling"));
  EXPECT_EQ(WriteFile(m_folder.Path("sub/first"), "333"), "");
  EXPECT_EQ(m_folder.Read("new"), "333");
  EXPECT_EQ(WriteFile(m_folder.Path("sub/dangling"), "4"), "");
  EXPECT_EQ(m_folder.Read("sub/born"), "4");
  for (const char* link : {"sub/first", "sub/second", "sub/dangling"})
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder.Path(link))) << link;
  EXPECT_EQ(m_folder.EntryCount(), 2u) << "nothing is left beside the files";
}

TEST_F(FilesTest, AFailedWriteLeavesTheOldFile) {
  m_folder.Write("locked/file", "old");
  m_folder.SetMode("locked/file", 0666);
  m_folder.SetMode("locked", 0555);
  m_folder.Write("readonly", "old");
  m_folder.SetMode("readonly", 0444);
  std::filesystem::create_directory(m_folder.Path("folder"));
  std::filesystem::create_symlink("loop", m_folder.Path("loop"));
  const OrdinaryUser user;
  const std::pair<const char*, const char*> cases[] = {
      {"locked/file", "Permission denied"},       {"locked/new", "Permission denied"},
      {"readonly", "Permission denied"},          {"folder", "it is not a regular file"},
      {"gone/file", "No such file or directory"},
  };
  for (const auto& [name, error] : cases) EXPECT_EQ(WriteFile(m_folder.Path(name), "new"), error) << name;
  EXPECT_EQ(WriteFile(m_folder.Path("loop"), "new"), "Too many levels of symbolic links");
  EXPECT_EQ(WriteFile("/dev/full", "new"), "it is not a regular file");
  EXPECT_EQ(m_folder.Read("locked/file"), "old");
  EXPECT_EQ(m_folder.Read("readonly"), "old");
  EXPECT_TRUE(std::filesystem::is_symlink(m_folder.Path("loop")));
  EXPECT_EQ(m_folder.EntryCount(), 4u) << "nothing is left beside the files";
}

TEST_F(FilesTest, AWriteThatBreaksOffLeavesTheOldFile) {
  m_folder.Write("file", "old");
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{1000, before.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &small);
  const std::string error = WriteFile(m_folder.Path("file"), std::string(5000, 'x'));
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(error, "File too large");
  EXPECT_EQ(m_folder.Read("file"), "old");
  EXPECT_EQ(m_folder.EntryCount(), 1u) << "nothing is left beside the file";
}

}  // namespace
