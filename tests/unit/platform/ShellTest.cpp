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
  const struct {
    std::string Program, SearchPath, Found;
  } cases[] = {{name, folder, there},
               {name, "/nowhere::.:" + above + ':' + folder, there},
               {name, "", ""},
               {name, ".", ""},
               {name, ":", ""},
               {name, above, ""},
               {self, "", self},
               {"./" + name, folder, ""},
               {above + '/' + name, folder, ""},
               {folder, "", ""},
               {"", folder, ""},
               {"..", folder, ""},
               {"/etc/passwd", "", ""}};
  for (const auto& c : cases)
    EXPECT_EQ(platform::FindExecutable(c.Program, c.SearchPath), c.Found) << c.Program << " in " << c.SearchPath;
  std::filesystem::current_path(before);
}

}  // namespace
