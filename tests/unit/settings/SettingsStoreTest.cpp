#include "settings/SettingsStore.h"

#include <gtest/gtest.h>

#include <string>

#include "settings/RegistryFile.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/SourceFile.h"

namespace {

using namespace settings;
using platform::RegistryResult;
using platform::RegistryType;

const std::string Main = "Software\\Quillmark";

class SettingsStoreTest : public testing::Test {
 protected:
  SettingsStoreTest()
      : Store(Values, Prompts,
              {.Screen =
                   [] {
                     return ScreenSize{28800, 16200};
                   },
               .WriteFileInfo = [this] { Log += "info "; },
               .SaveToolbarLayout =
                   [this] {
                     Log += RegistryFile(Path).OpenKey(Main) == RegistryResult::Success ? "layout " : "too early ";
                     LegacyAtLayout = HasLegacySettings(RegistryFile(Path));
                   },
               .ResetToolbars = [this] { Log += "reset "; }}) {}

  HistoryPaths Load() { return Store.LoadSettings(RegistryFile(Path)); }
  bool Save() {
    RegistryFile file(Path);
    return Store.SaveSettings(file);
  }
  /// Changes the stored file behind the program's back.
  void Edit(const std::function<void(platform::Registry&)>& change) {
    RegistryFile file(Path);
    change(file);
    EXPECT_EQ(file.Flush(), "");
  }
  void ExpectError(const std::string& verb, const std::string& status) {
    Prompts.Expect({.Text = "An error occured when " + verb + " the registry:\n" + status,
                    .Icon = platform::PromptIcon::Critical});
  }

  tests::TemporaryFolder Folder;
  std::string Path = Folder.Path("registry.reg");
  tests::ScriptedPrompts Prompts;
  Settings Values;
  std::string Log;
  bool LegacyAtLayout = false;
  SettingsStore Store;
};

// Written by hand from the table of the stored form.
const std::string Stored = tests::SourceFile("tests/unit/settings/cases/stored.reg");

TEST_F(SettingsStoreTest, EveryValueIsStoredInItsFormAndComesBack) {
  Values.Frame = {-45, 60, 4800, 3200, WindowState::Minimised};
  Values.AskUnknownTemplates = Values.NewLineForEnter = false;
  Values.OverrideTemplateFonts = true;
  Values.DefaultFontType = 2;
  Values.TabWidth = 300;  // the byte holds 255
  Values.DefOpenTemplate = "/t.def";
  Values.DefNewTemplate = {"JavaScript", "js", "/js.def"};
  Values.DosFont = {.Name = "Terminal", .Size = 10.5, .Underline = true, .Fixed = true};
  Values.FixedFont.Bold = true;
  Values.ProportionalFont.Italic = Values.ProportionalFont.Strikethrough = true;
  Values.History = {"/old"};
  Values.Associations = {{"", "txt", "C:\\first.def"},
                         {"", "", "/no extension.def"},
                         {"", "TXT", "C:\\t.def"},
                         {"", "two\nlines", "/x.def"}};
  ASSERT_TRUE(Save());
  EXPECT_EQ(Folder.Read("registry.reg"), Stored);
  EXPECT_EQ(Log, "info layout ");

  const Settings saved = Values;
  Values = {};
  Values.History = {"untouched"};
  EXPECT_EQ(Load(), (HistoryPaths{"/old", "", ""}));
  EXPECT_EQ(Values.Frame, saved.Frame);
  EXPECT_EQ(Values.Version, "3.0");
  EXPECT_EQ(Values.DefNewTemplate.Name + Values.DefNewTemplate.FileName, "JavaScript");
  EXPECT_EQ(Values.DosFont, saved.DosFont);
  EXPECT_EQ(Values.FixedFont, saved.FixedFont);
  EXPECT_EQ(Values.ProportionalFont, saved.ProportionalFont);
  ASSERT_EQ(Values.Associations.size(), 2U);
  EXPECT_EQ(Values.Associations[0].Extension + Values.Associations[0].FileName, "txtC:\\t.def");
  EXPECT_EQ(Values.TabWidth, 255);
  Values.History = {"/old"};
  Edit([](auto& registry) { registry.SetValue(Main + "\\Settings", "mine", {RegistryType::String, "stays"}); });
  const std::string withMine = Folder.Read("registry.reg");
  EXPECT_TRUE(Save());
  EXPECT_EQ(Folder.Read("registry.reg"), withMine);  // nothing changed, what is not ours stays
  const FramePlace help{1500, 3000, 9000, 6000, WindowState::Normal};
  const Settings before = Values;
  Values.HelpWindow = help;
  EXPECT_TRUE(Save());
  Values.HelpWindow = {};
  Load();
  EXPECT_EQ(Values.HelpWindow, help);
  Values = before;
  EXPECT_TRUE(Save());
  EXPECT_EQ(Folder.Read("registry.reg"), withMine);  // a help window without a place leaves no value

  Values.Associations.erase(Values.Associations.begin());
  Values.History.clear();
  Values.TabWidth = -1;
  EXPECT_TRUE(Save());
  RegistryFile file(Path);
  platform::RegistryValue value;
  EXPECT_EQ(file.QueryValueInfo(Main + "\\Associations").Count, 1U);
  EXPECT_EQ(file.QueryValueInfo(Main + "\\History").Count, 0U);
  EXPECT_EQ(file.QueryValue(Main + "\\Settings", "Flags", value), RegistryResult::Success);
  EXPECT_EQ(value.Data.back(), '\0');
}

TEST_F(SettingsStoreTest, TheFirstRunHasTheDefaults) {
  Values.TabWidth = 9;
  Values.FixedFont.Name = "x";
  EXPECT_EQ(Load(), HistoryPaths());
  EXPECT_EQ(Values.Frame, (FramePlace{3600, 2025, 21600, 12150, WindowState::Maximised}));
  EXPECT_EQ(Values.TabWidth, 4);
  EXPECT_EQ(Values.FixedFont.Name, "Courier New");
  EXPECT_EQ(Values.DefOpenTemplate + Values.Version, "*none*3.0");
  Values.History = {"h"};
  Values.Associations = {{"", "a", "b"}};
  Values.UseColours = false;
  Store.SetDefaults(true);
  EXPECT_EQ(Log, "reset ");
  EXPECT_TRUE(Values.UseColours);
  EXPECT_EQ(Values.History.size() + Values.Associations.size(), 2U);
}

TEST_F(SettingsStoreTest, AnOlderReleasesSettingsAreTakenOverAndRemovedByTheFirstSave) {
  Folder.Write("registry.reg", tests::SourceFile("tests/unit/settings/cases/legacy.reg"));
  EXPECT_EQ(Load(), (HistoryPaths{"", "/b", ""}));
  EXPECT_EQ(Values.Frame, (FramePlace{3600, 2025, 6000, 12150, WindowState::Normal}));
  EXPECT_EQ(Values.DefNewTemplate.Name, "HTML");
  EXPECT_FALSE(Values.AutoIndent);
  EXPECT_TRUE(Values.ReducedColours && Values.UseColours && Values.FixedFont.Strikethrough);
  EXPECT_EQ(Values.TabWidth, 3);
  EXPECT_EQ(Values.DosFont.Size, 10.5);
  EXPECT_EQ(Values.Version, "");
  ASSERT_EQ(Values.Associations.size(), 2U);
  EXPECT_EQ(Values.Associations[0].Extension + '|' + Values.Associations[0].FileName, "txt|/a;b.def");
  EXPECT_EQ(Values.Associations[1].Extension + '|' + Values.Associations[1].FileName, " | ");
  EXPECT_TRUE(Save());
  EXPECT_TRUE(LegacyAtLayout);
  EXPECT_EQ(RegistryFile(Path).OpenKey("Software\\Quillmark Legacy\\Quillmark"), RegistryResult::FileNotFound);
  Values = {};
  Load();
  EXPECT_EQ(Values.TabWidth, 3);
}

TEST_F(SettingsStoreTest, AFailedReadNamesItsStepAndKeepsTheRest) {
  Folder.Write("registry.reg", Stored);
  const struct {
    std::string Key, Value, Status;
    bool FontsRead;
  } cases[] = {{"", "WindowPos", "Opening WindowPos Key", false},
               {"\\Associations", "", "Reading Associations", false},
               {"\\Fonts\\Proportional", "Size", "Reading Fonts", true},
               {"\\History", "", "Reading History", true},
               {"\\Settings", "Flags", "Reading Settings", true}};
  for (const auto& c : cases) {
    Folder.Write("registry.reg", Stored);
    Edit([&](auto& registry) {
      c.Value.empty() ? registry.DeleteKey(Main + c.Key) : registry.SetValue(Main + c.Key, c.Value, {{}, "text"});
    });
    Values = {};
    Values.TabWidth = 11;
    ExpectError("reading the settings from", c.Status);
    Load();
    EXPECT_EQ(Values.TabWidth, 11);
    EXPECT_EQ(Values.DosFont.Name == "Terminal", c.FontsRead) << c.Status;
    // What was stored and not read is kept aside before it is replaced.
    const std::string old = Folder.Read("registry.reg");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Folder.Read("registry.reg.damaged"), old);
  }
}

TEST_F(SettingsStoreTest, AFailedSaveSaysWhyAndLeavesTheLayout) {
  Folder.SetMode("", 0555);
  {
    const tests::OrdinaryUser user;
    ExpectError("writing the settings to", "Closing Quillmark Registry Key.  " + Path + ": Permission denied");
    EXPECT_FALSE(Save());
  }
  EXPECT_EQ(Log, "info ");
  Folder.SetMode("", 0755);
  Path = Folder.Path();  // a folder is no registry
  ExpectError("writing the settings to", "Opening/Creating Quillmark Registry Key.  Result: 5");
  EXPECT_FALSE(Save());
  Prompts.Expect({.Text = "Not all of the stored settings could be read:\n\n" + Path + ": it is not a regular file",
                  .Icon = platform::PromptIcon::Exclamation});
  ExpectError("reading the settings from", "Opening Quillmark Key.  Result: 5");
  Load();
}

TEST_F(SettingsStoreTest, AnyByteButZeroIsTrue) {
  std::string text = Stored;
  text.replace(text.find("hex:00,ff,00,ff,00"), 18, "hex:01,02,00,80,00");
  Folder.Write("registry.reg", text);
  Load();
  EXPECT_TRUE(Values.AskUnknownTemplates && Values.AutoIndent && Values.OverrideTemplateFonts);
  EXPECT_FALSE(Values.NewLineForEnter || Values.ReducedColours);
}

}  // namespace
