// Paths taken apart, shortened and found.

#include "platform/FileParsing.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/TemporaryFolder.h"

namespace {

using namespace platform;

TEST(FileParsing, PathsAreTakenApartAtBothSeparators) {
  const struct {
    const char *Path, *Extension, *Name, *Title, *Folder;
  } cases[] = {
      {"", "", "", "", ""},
      {"readme.txt", "txt", "readme.txt", "readme", ""},
      {"C:\\my.dir\\readme", "dir\\readme", "readme", "readme", "C:\\my.dir\\"},  // the whole path's last "." counts
      {"/x.y/readme", "y/readme", "readme", "readme", "/x.y/"},
      {"C:\\a\\b.c.def", "def", "b.c.def", "b.c", "C:\\a\\"},
      {"a\\b/c.", "", "c.", "c", "a\\b/"},
      {"/home/.rc", "rc", ".rc", "", "/home/"},
      {"dir/", "", "", "", "dir/"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FileExtension(c.Path), c.Extension);
    EXPECT_EQ(FileNameOf(c.Path), c.Name);
    EXPECT_EQ(FileTitle(c.Path), c.Title);
    EXPECT_EQ(FolderOf(c.Path), c.Folder);
  }
}

TEST(FileParsing, LongPathsAreShownShort) {
  const std::string name(30, 'n');
  const struct {
    std::string Path;
    int Maximum;
    std::string Shown;
  } cases[] = {
      {"C:\\Program Files\\Editor\\Scripts\\test.js", 30, "...\\P..\\Editor\\Scripts\\test.js"},
      {"/home/somebody/Editor/Scripts/test.js", 30, "...\\s..\\Editor\\Scripts\\test.js"},
      {"/home/me/a.js", 30, "/home/me/a.js"},
      {"\\" + name, 30, "...\\" + name},
      {"/a/" + name, 30, ".../" + name},
      {"/a/bb/" + std::string(25, 'n'), 30, ".../" + std::string(25, 'n')},  // no room for a part of "bb"
      {"/aaaaaaaaaaaaaaaaaaaaaaaaaaa/" + std::string(20, 'n'), 30, ".../aaa../" + std::string(20, 'n')},
      {"/häääääääääää/Scripts/Tests/b.js", 30, ".../hääää../Scripts/Tests/b.js"},
      {std::string(60, '/'), 30, ".../../"},
      {"/abc", 2, ".../abc"},
  };
  for (auto c : cases) {
    if (c.Path[0] == '/') std::replace(c.Shown.begin(), c.Shown.end(), '\\', '/');
    EXPECT_EQ(ShortenPath(c.Path, c.Maximum), c.Shown) << c.Path;
  }
}

TEST(FileParsing, FullPathsAreThoseOfWhatExists) {
  const tests::TemporaryFolder folder;
  folder.Write("sub/a b.js", "");
  folder.Write("odd\\name.js", "");
  folder.Write("other/deep/b.js", "");
  std::filesystem::create_symlink(folder.Path("other/deep"), folder.Path("sub/link"));
  const std::pair<std::string, std::string> cases[] = {
      {"sub/a b.js", "sub/a b.js"},
      {"sub\\a b.js", "sub/a b.js"},
      {"./sub//../sub/./a b.js", "sub/a b.js"},
      {folder.Path("sub/a b.js"), "sub/a b.js"},
      {"sub", "sub"},
      {"sub/", "sub"},
      {"odd\\name.js", "odd\\name.js"},
      {"sub/link/b.js", "sub/link/b.js"},                  // a link keeps its name
      {"sub/link/../deep/b.js", "sub/link/../deep/b.js"},  // and what lies above its target is not above the link
      {"sub/none.js", ""},
      {"none/../sub/a b.js", ""},
      {"sub/a b.js/", ""},
      {"", ""},
  };
  for (const auto& [path, found] : cases)
    EXPECT_EQ(FullPathName(path, folder.Path()), found.empty() ? "" : folder.Path(found)) << path;
}

}  // namespace
