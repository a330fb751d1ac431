// Where a program's name is looked for.

#include "platform/Shell.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(Shell, FindsProgramsInAbsoluteFoldersOfTheSearchPathAlone) {
  const std::string self = std::filesystem::read_symlink("/proc/self/exe");
  const std::filesystem::path file(self);
  const std::string name = file.filename(), folder = file.parent_path();
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder);  // as if the document lay beside a program
  const std::string there = folder + '/' + name, above = "../" + file.parent_path().filename().string();
  for (const std::string& path : {folder, "/nowhere::.:" + above + ':' + folder})
    EXPECT_EQ(platform::FindExecutable(name, path), there) << path;
  for (const std::string& path : {std::string(), std::string("."), std::string(":"), above})
    EXPECT_EQ(platform::FindExecutable(name, path), "") << path;
  for (const std::string& program : {"./" + name, above + '/' + name, folder, std::string(), std::string("..")})
    EXPECT_EQ(platform::FindExecutable(program, folder), "") << program;
  for (const std::string& path : {self, std::string("/etc/passwd"), folder})
    EXPECT_EQ(platform::FindExecutable(path, ""), path == self ? self : "") << path;
  std::filesystem::current_path(before);
}

}  // namespace
