// The layout file from run to run: what is told, what is deleted, what the bars look like then.

#include "settings/ToolbarLayout.h"

#include <gtest/gtest.h>

#include <QMainWindow>
#include <filesystem>

#include "platform/qt/ActiveBar.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using platform::BandKind;
using platform::PromptIcon;
using settings::ToolbarLayout;

const platform::BarDesign& Design() {
  static const platform::BarDesign design = {.Tools = {{.Name = "a"}, {.Name = "b"}},
                                             .Bands = {{"MenuBar", "", BandKind::MenuBar, 0, false, {}},
                                                       {"Toolbar", "", BandKind::Toolbar, 0, false, {{"a"}, {"b"}}},
                                                       {"Other", "", BandKind::Toolbar, 0, false, {{"b"}}}}};
  return design;
}

const platform::MessageBox Unloadable = {
    .Text = "An Error occured when trying to load the layout changes.  Default layout will be used",
    .Icon = PromptIcon::Critical};

class ToolbarLayoutTest : public testing::Test {
 protected:
  struct Window : QMainWindow {
    platform::qt::ActiveBar Bar{*this, Design(), {}};
  };
  // One run of the program: the bar as it is after loading.
  platform::BandLayout Start(const std::string& version = "3.0") {
    Window window;
    Steps.clear();
    Made(window).LoadToolbarLayout(version);
    return window.Bar.Layout();
  }
  ToolbarLayout Made(Window& window) {
    return ToolbarLayout(window.Bar, Prompts, File,
                         {.PopulateTemplates = [this] { Steps += "templates "; },
                          .EnableButtons = [this] { Steps += "buttons "; },
                          .UpdateWindowTabs = [this] { Steps += "tabs "; }});
  }
  // A run that changes the bars and ends.
  platform::BandLayout Rearrange(bool hideMenuBar = false) {
    Window window;
    platform::BandLayout layout = window.Bar.Layout();
    layout.Move("Toolbar", 0, "Other", 0);
    layout.Show("MenuBar", !hideMenuBar);
    layout.Show("Other", false);
    window.Bar.Apply(layout);
    Made(window).SaveToolbarLayout();
    return window.Bar.Layout();
  }
  bool FileIsThere() const { return std::filesystem::exists(File); }

  tests::TemporaryFolder Folder;
  tests::ScriptedPrompts Prompts;
  std::string File = Folder.Path(ToolbarLayout::FileName);
  std::string Steps;
  const platform::BandLayout Designed{Design()};
};

TEST_F(ToolbarLayoutTest, AnArrangementLastsFromRunToRun) {
  EXPECT_EQ(Start(""), Designed) << "a first start says nothing";
  const platform::BandLayout changed = Rearrange();
  EXPECT_EQ(changed.Find("Other")->Tools.size(), 2U);
  EXPECT_FALSE(changed.Find("Other")->Place.Shown);
  EXPECT_EQ(Start(), changed);
  EXPECT_EQ(Steps, "");
  Rearrange(true);
  EXPECT_EQ(Start(), changed) << "the menu bar comes back";
}

TEST_F(ToolbarLayoutTest, AFileThatCannotBeUsedIsToldAndDeleted) {
  for (const char* content : {"", "garbage", "Quillmark toolbar layout 2\n0 00000000\n"}) {
    Folder.Write(ToolbarLayout::FileName, content);
    Prompts.Expect(Unloadable);
    EXPECT_EQ(Start(), Designed);
    EXPECT_EQ(Steps, "templates buttons tabs ");
    EXPECT_FALSE(FileIsThere());
  }
  std::filesystem::create_directory(File);
  Prompts.Expect(Unloadable);
  EXPECT_EQ(Start(), Designed);
}

TEST_F(ToolbarLayoutTest, AnUpgradeResetsTheBarsOnce) {
  Rearrange();
  Prompts.Expect({.Text = "Toolbars must be reset for this upgrade of Quillmark.  Press OK to reset toolbars.",
                  .Title = "Quillmark Upgrade",
                  .Icon = PromptIcon::Information});
  EXPECT_EQ(Start("2.1"), Designed);
  EXPECT_FALSE(FileIsThere());
  EXPECT_EQ(Start(), Designed);
}

TEST_F(ToolbarLayoutTest, AFileThatCannotBeWrittenIsToldAndDeleted) {
  std::filesystem::create_directory(File);
  Window window;
  Prompts.Expect({.Text = "An Error occured when trying to save the layout changes.  Default layout will be used",
                  .Icon = PromptIcon::Critical});
  Made(window).SaveToolbarLayout();
  EXPECT_FALSE(FileIsThere());
}

TEST_F(ToolbarLayoutTest, ResetsOneBandOrAll) {
  Window window;
  ToolbarLayout layout = Made(window);
  layout.LoadToolbarLayout("3.0");
  platform::BandLayout changed = window.Bar.Layout();
  changed.Remove("Toolbar", 0);
  changed.Remove("Other", 0);
  window.Bar.Apply(changed);
  layout.ResetBand("Other");
  EXPECT_EQ(window.Bar.ToolsOf("Other"), Designed.Find("Other")->Tools);
  EXPECT_EQ(window.Bar.ToolsOf("Toolbar").size(), 1U);
  EXPECT_EQ(Steps, "");
  layout.ResetToolbars();
  EXPECT_EQ(window.Bar.Layout(), Designed);
}

}  // namespace
