// The menus that are made while the program runs: recent files, windows, templates; and where windows are tiled.

#include <gtest/gtest.h>

#include "shell/History.h"
#include "shell/TemplatesMenu.h"
#include "shell/WindowList.h"
#include "shell/WindowTiles.h"
#include "tests/support/FakeChild.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace shell;

std::string Captions(const History& history) {
  std::string all;
  for (const History::Entry& entry : history.Entries()) all += entry.Caption + " | ";
  return all;
}

TEST(History, CaptionsFollowTheNewestFilesFolder) {
  History history;
  const std::pair<const char*, const char*> steps[] = {
      {"", ""},
      {"/home/me/a.js", "&1 a.js | "},
      {"/home/me/b.js", "&1 a.js | &2 b.js | "},
      {"/home/me/a.js", "&1 a.js | &2 b.js | "},  // keeps its place
      {"/srv/projects/site/scripts/deep/c&d.js", "&1 /home/me/a.js | &2 /home/me/b.js | &3 c&&d.js | "},
      {"/srv/e.js", "&1 /home/me/b.js | &2 .../site/scripts/deep/c&&d.js | &3 e.js | "},
      // Back in the older entries' own folder they go by name again, the other one does not.
      {"/home/me/f.js", "&1 .../site/scripts/deep/c&&d.js | &2 /srv/e.js | &3 f.js | "},
      {"/home/me/g.js", "&1 /srv/e.js | &2 f.js | &3 g.js | "},
  };
  for (const auto& [path, captions] : steps) {
    history.AddToHistory(path);
    EXPECT_EQ(Captions(history), captions) << path;
  }
  EXPECT_EQ(history.Paths(), (std::vector<std::string>{"/srv/e.js", "/home/me/f.js", "/home/me/g.js"}));
  EXPECT_EQ(history.Entries()[0].Description, "/srv/e.js");
}

std::string Describe(const std::vector<platform::DynamicTool>& tools) {
  std::string all;
  for (const platform::DynamicTool& tool : tools)
    all += std::to_string(tool.Id) + ' ' + tool.Name + ' ' + tool.Caption + (tool.Checked ? " checked\n" : "\n");
  return all;
}

TEST(WindowList, TabsAndMenuListTheWindows) {
  tests::ScriptedPrompts prompts;
  const tests::FakeChild first("Mainwin", "a&b.js", true), other("frmOptions", "no", true),
      second("frmTemplate", "T", false), third("Mainwin", "c", true);
  const std::vector<const ChildWindow*> windows = {&first, &other, &second, &third};
  EXPECT_EQ(Describe(WindowTabs(windows, &second, &first, prompts)), "3001 tbWList1 T * checked\n3002 tbWList2 c\n");
  EXPECT_EQ(Describe(WindowMenu(windows, &third, prompts)),
            "3001 miWList1 &1 a&&b.js\n3002 miWList2 &2 T\n3003 miWList3 &3 c checked\n");
  EXPECT_EQ(WindowMenu(windows, &third, prompts)[1].Key, WindowKey(second));
  EXPECT_EQ(WindowTabs(windows, &third, nullptr, prompts)[0].Tip, "/x/a&b.js");

  std::vector<const ChildWindow*> many(2001, &first);
  for (int i = 0; i < 2; ++i)
    prompts.Expect({.Text = "A maximum of 1999 windows can be displayed",
                    .Title = "Too Many Windows",
                    .Icon = platform::PromptIcon::Critical});
  EXPECT_EQ(WindowTabs(many, nullptr, nullptr, prompts).back().Name, "tbWList1999");
  EXPECT_EQ(WindowMenu(many, nullptr, prompts).back().Id, 4999);
}

TEST(TemplatesMenu, TheNewDocumentTemplateFollowsItsName) {
  const tests::TemporaryFolder folder;
  folder.Write("a.def", "N: One\nX: 1\n");
  folder.Write("B.def", "N: Two & Half\n");
  folder.Write("c.def", "N: One\n");
  const struct {
    templates::Template Before;
    std::string Name, File;
  } cases[] = {
      {{}, "One", "c.def"},  // the first found, and then the later one of its name
      {{"One", "", ""}, "One", "c.def"},
      {{"Two & Half", "", ""}, "Two & Half", "B.def"},
      {{"Gone", "", ""}, "One", "c.def"},
      {{"Gone", "", folder.Path("gone.def")}, "Gone", "gone.def"},
  };
  tests::ScriptedPrompts prompts;
  for (const auto& c : cases) {
    templates::Template chosen = c.Before;
    const TemplatesMenu menu = PopulateTemplates(folder.Path(), chosen, prompts);
    EXPECT_EQ(chosen.Name, c.Name);
    EXPECT_EQ(chosen.FileName, folder.Path(c.File)) << c.Before.Name;
    EXPECT_EQ(Describe(menu.Tools), "1001 Template1 One\n1002 Template2 Two && Half\n1003 Template3 One\n");
    EXPECT_TRUE(menu.Complete);
  }
  templates::Template none{"Kept", "", ""};
  EXPECT_TRUE(PopulateTemplates(folder.Path("none"), none, prompts).List.empty());
  EXPECT_EQ(none.Name, "Kept");
  EXPECT_EQ(none.FileName, "");
}

TEST(TemplatesMenu, TwoThousandTemplatesAreOneTooMany) {
  const tests::TemporaryFolder folder;
  for (int i = 1; i <= 2000; ++i) folder.Write(std::to_string(10000 + i) + ".def", "N: T\n");
  tests::ScriptedPrompts prompts;
  prompts.Expect({.Text = "A maximum of 1999 templates can be displayed",
                  .Title = "Too Many Templates",
                  .Icon = platform::PromptIcon::Critical});
  templates::Template chosen;
  const TemplatesMenu menu = PopulateTemplates(folder.Path(), chosen, prompts);
  EXPECT_EQ(menu.List.size(), 1999u);
  EXPECT_FALSE(menu.Complete);
  EXPECT_EQ(chosen.FileName, folder.Path("11999.def"));
}

TEST(WindowTiles, TilesCoverTheAreaOnce) {
  for (std::size_t count = 0; count <= 30; ++count)
    for (const bool vertically : {false, true}) {
      constexpr int Width = 640, Height = 371;
      const std::vector<Tile> tiles =
          vertically ? TileVertically(count, Width, Height) : TileHorizontally(count, Width, Height);
      ASSERT_EQ(tiles.size(), count);
      std::vector<int> covered(Width * Height);
      for (const Tile& tile : tiles)
        for (int y = tile.Top; y < tile.Top + tile.Height; ++y)
          for (int x = tile.Left; x < tile.Left + tile.Width; ++x)
            ++covered.at(static_cast<std::size_t>(y * Width + x));
      EXPECT_EQ(std::count(covered.begin(), covered.end(), 1), count > 0 ? Width * Height : 0) << count;
    }
  EXPECT_EQ(TileHorizontally(3, 90, 90)[1], (Tile{0, 30, 90, 30}));
  EXPECT_EQ(TileVertically(3, 90, 90)[1], (Tile{30, 0, 30, 90}));
  EXPECT_EQ(ArrangeIcons(3, 50, 20, 120, 100), (std::vector<Tile>{{0, 80, 50, 20}, {50, 80, 50, 20}, {0, 60, 50, 20}}));
  EXPECT_EQ(Cascade(4, 10, 40, 40),
            (std::vector<Tile>{{0, 0, 30, 30}, {10, 10, 30, 30}, {10, 0, 30, 30}, {0, 10, 30, 30}}));
  EXPECT_EQ(Cascade(1, 0, 0, 0), (std::vector<Tile>{{0, 0, 0, 0}}));
}

}  // namespace
