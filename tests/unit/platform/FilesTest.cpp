#include "platform/Files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "platform/SafeSave.h"
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
  ASSERT_EQ(::mkfifo(m_folder.Path("pipe").c_str(), 0600), 0);
  const OrdinaryUser user;
  const struct {
    std::string Path, Error;
    bool IsFile, IsFolder;
  } cases[] = {
      {m_folder.Path("missing"), "No such file or directory", false, false},
      {m_folder.Path("file/below"), "Not a directory", false, false},
      {m_folder.Path(), "it is a folder", false, true},
      {m_folder.Path("file"), "Permission denied", true, false},
      {"", "No such file or directory", false, false},
      {m_folder.Path("pipe"), "it is a pipe, not a file", true, false},
      {"/dev/zero", "it is a device, not a file", true, false},
  };
  for (const auto& c : cases) {
    const FileContent content = ReadFile(c.Path);
    EXPECT_EQ(content.Error, c.Error) << c.Path;
    EXPECT_EQ(content.Bytes, "");
    EXPECT_EQ(FileExists(c.Path), c.IsFile) << c.Path;
    EXPECT_EQ(FolderExists(c.Path), c.IsFolder) << c.Path;
    EXPECT_EQ(platform::FileSize(c.Path), 0u) << c.Path;
  }
}

TEST_F(FilesTest, ReadsAFileThatTellsNoSize) {
  const FileContent content = ReadFile("/proc/self/status");
  EXPECT_EQ(content.Error, "");
  EXPECT_TRUE(content.Bytes.starts_with("Name:"));
}

TEST_F(FilesTest, AFailedWriteLeavesTheOldFile) {
  m_folder.Write("locked/other", "old");
  m_folder.SetMode("locked", 0555);
  m_folder.Write("readonly", "old");
  m_folder.SetMode("readonly", 0444);
  std::filesystem::create_directory(m_folder.Path("folder"));
  std::filesystem::create_symlink("loop", m_folder.Path("loop"));
  ASSERT_EQ(::mkfifo(m_folder.Path("pipe").c_str(), 0666), 0);
  const OrdinaryUser user;
  const std::pair<std::string, const char*> cases[] = {
      {m_folder.Path("locked/new"), "Permission denied"},
      {m_folder.Path("locked/other"), "Permission denied"},
      {m_folder.Path("readonly"), "Permission denied"},
      {m_folder.Path("folder"), "it is not a regular file"},
      {m_folder.Path("pipe"), "it is not a regular file"},
      {"/dev/full", "it is not a regular file"},
      {m_folder.Path("gone/file"), "No such file or directory"},
      {m_folder.Path("loop"), "Too many levels of symbolic links"},
  };
  for (const auto& [path, error] : cases) EXPECT_EQ(WriteFile(path, "new"), error) << path;
  EXPECT_EQ(m_folder.Read("locked/other"), "old");
  EXPECT_EQ(m_folder.Read("readonly"), "old");
  EXPECT_TRUE(std::filesystem::is_symlink(m_folder.Path("loop")));
  EXPECT_EQ(m_folder.EntryCount(), 5u) << "nothing is left beside the files";
}

TEST_F(FilesTest, WhatARenameCannotKeepIsWrittenInPlace) {
  m_folder.Write("locked/file", "old and longer");
  m_folder.SetMode("locked/file", 0666);
  m_folder.SetMode("locked", 0555);
  m_folder.Write("first", "old");
  m_folder.SetMode("first", 0666);
  std::filesystem::create_hard_link(m_folder.Path("first"), m_folder.Path("second"));
  const OrdinaryUser user;
  EXPECT_EQ(WriteFile(m_folder.Path("locked/file"), "new"), "");
  EXPECT_EQ(m_folder.Read("locked/file"), "new");
  EXPECT_EQ(WriteFile(m_folder.Path("second"), "new"), "");
  EXPECT_EQ(m_folder.Read("first"), "new");
  EXPECT_EQ(m_folder.EntryCount(), 3u) << "the copies are gone";
}

TEST_F(FilesTest, TheCopyOfABrokenSaveIsFoundThroughLinks) {
  m_folder.Write("real/file", "half");
  std::filesystem::create_symlink("real/file", m_folder.Path("link"));
  EXPECT_EQ(platform::CopyLeftOf(m_folder.Path("link")), "");
  const std::string copy = m_folder.Write("real/file.quillmark-backup", "whole");
  EXPECT_EQ(platform::CopyLeftOf(m_folder.Path("link")), copy);
  EXPECT_EQ(platform::CopyLeftOf(m_folder.Path("real/file")), copy);
}

TEST_F(FilesTest, AFileThatSomebodyElseChangedIsNotReplaced) {
  const std::string path = m_folder.Write("file", "known");
  FileIdentity known;
  EXPECT_EQ(ReadIdentified(path, known).Bytes, "known");
  m_folder.Write("file", "other");  // of the same size and, most likely, the same time
  const SaveResult refused = SafeSave(path, "mine", &known);
  EXPECT_TRUE(refused.Changed);
  EXPECT_FALSE(refused.Ok());
  EXPECT_EQ(m_folder.Read("file"), "other");

  m_folder.Write("file", "known");  // another time, the same contents
  SaveResult saved = SafeSave(path, "mine", &known);
  EXPECT_EQ(saved.Error, "");
  EXPECT_EQ(m_folder.Read("file"), "mine");
  EXPECT_EQ(LookAt(path, saved.Written).Difference, FileDifference::None);

  std::filesystem::remove(path);
  EXPECT_EQ(LookAt(path, saved.Written).Difference, FileDifference::Missing);
  EXPECT_TRUE(SafeSave(path, "again", &saved.Written).Changed);
  const FileIdentity nothing;
  EXPECT_EQ(SafeSave(path, "again", &nothing).Error, "");
  EXPECT_TRUE(SafeSave(path, "twice", &nothing).Changed);
  EXPECT_EQ(m_folder.Read("file"), "again");
  EXPECT_EQ(m_folder.EntryCount(), 1u);
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
