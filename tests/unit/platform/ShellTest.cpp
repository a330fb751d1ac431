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
  struct Case {
    std::string Program, SearchPath, Found;
  };
  const std::string there = folder + '/' + name, above = "../" + file.parent_path().filename().string();
  for (const Case& c :
       {Case{name, folder, there}, Case{name, "/nowhere::.:" + above + ':' + folder, there}, Case{name, "", ""},
        Case{name, ".", ""}, Case{name, ":", ""}, Case{name, above, ""}, Case{self, "", self},
        Case{"./" + name, folder, ""}, Case{above + '/' + name, folder, ""}, Case{folder, "", ""}, Case{"", folder, ""},
        Case{"..", folder, ""}, Case{"/etc/passwd", "", ""}})
    EXPECT_EQ(platform::FindExecutable(c.Program, c.SearchPath), c.Found) << c.Program << " in " << c.SearchPath;
  std::filesystem::current_path(before);
}

}  // namespace
