// Tools and commands belong together: no tool without a command, no command without a tool, no key for two of them.

#include "shell/ToolTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "shell/CommandTable.h"
#include "tests/support/FakeChild.h"

namespace {

using namespace shell;
using platform::BandDesign;
using platform::ToolDesign;

std::vector<std::string> SplitShortcuts(std::string_view shortcuts) {
  std::vector<std::string> list;
  while (!shortcuts.empty()) {
    list.emplace_back(shortcuts.substr(0, shortcuts.find(", ")));
    shortcuts.remove_prefix(std::min(shortcuts.size(), list.back().size() + 2));
  }
  return list;
}

TEST(ToolTable, ToolsAndCommandsBelongTogether) {
  const platform::BarDesign& design = DesignedBar();
  std::set<std::string_view> commands, tools;
  for (const CommandRule& rule : CommandRules())
    if (!rule.IsPrefix) commands.insert(rule.Name);
  for (const ToolDesign& tool : design.Tools)
    if (tool.HasCommand) tools.insert(tool.Name);
  EXPECT_EQ(tools, commands);

  std::set<std::string_view> placed, opened;
  for (const BandDesign& band : design.Bands)
    for (const platform::BandEntry& entry : band.Tools) {
      if (entry.Name == platform::Separator) continue;
      EXPECT_NE(design.Tool(entry.Name), nullptr) << entry.Name;
      placed.insert(entry.Name);
    }
  for (const ToolDesign& tool : design.Tools) {
    EXPECT_TRUE(placed.contains(tool.Name) || tool.Name == "ResetToolbars") << tool.Name;
    if (!tool.SubBand.empty()) opened.insert(tool.SubBand);
  }
  for (const BandDesign& band : design.Bands)
    EXPECT_EQ(opened.contains(band.Name), band.Kind == platform::BandKind::Menu) << band.Name;
}

TEST(ToolTable, EveryToolCanBeToldApart) {
  std::map<std::string, std::string_view> owners;
  std::set<int> ids;
  std::set<std::string_view> names;
  for (const ToolDesign& tool : DesignedBar().Tools) {
    EXPECT_TRUE(names.insert(tool.Name).second) << tool.Name;
    EXPECT_TRUE(ids.insert(tool.Id).second) << tool.Id;
    EXPECT_TRUE(tool.Id < 1000 || tool.Name == "ResetToolbars") << tool.Name;
    EXPECT_EQ(tool.Description.empty(), !tool.HasCommand) << tool.Name;
    EXPECT_EQ(tool.Caption.empty(), tool.Name.starts_with("History")) << tool.Name;
    for (const std::string& shortcut : SplitShortcuts(tool.Shortcut))
      EXPECT_TRUE(owners.emplace(shortcut, tool.Name).second) << shortcut << " of " << tool.Name;
  }
  EXPECT_GE(owners.size(), 20U);
}

TEST(ToolTable, EveryIconHasItsDrawingAndEveryDrawingItsTool) {
  std::set<std::string> icons = {"critical", "exclamation", "question"}, drawings;  // of message boxes
  for (const ToolDesign& tool : DesignedBar().Tools)
    if (!tool.Icon.empty()) icons.insert(std::string(tool.Icon));
  for (const auto& file : std::filesystem::directory_iterator(QUILLMARK_SOURCE_DIR "/data/icons"))
    if (file.path().extension() == ".svg") drawings.insert(file.path().stem());
  EXPECT_EQ(icons, drawings);
  for (const char* bar : {"Toolbar", "tbrFonts"})
    for (const platform::BandEntry& entry : DesignedBar().Band(bar)->Tools) {
      const ToolDesign* tool = DesignedBar().Tool(entry.Name);
      EXPECT_FALSE(tool && tool->Icon.empty()) << entry.Name;
    }
}

// Pressing an access key twice goes to the second tool; that is bearable, and these are all there are.
TEST(ToolTable, AccessKeysDifferWithinAMenuButForTheKnownOnes) {
  std::set<std::string> doubled;
  for (const BandDesign& band : DesignedBar().Bands) {
    std::map<char, std::string_view> owners;
    for (const platform::BandEntry& entry : band.Tools) {
      const ToolDesign* tool = DesignedBar().Tool(entry.Name);
      if (!tool || band.Kind == platform::BandKind::Toolbar) continue;
      const std::string_view caption = entry.Caption.empty() ? tool->Caption : entry.Caption;
      const std::size_t mark = caption.find('&');
      if (mark == std::string_view::npos) continue;
      const auto [owner, first] = owners.emplace(static_cast<char>(std::toupper(caption[mark + 1])), entry.Name);
      if (!first)
        doubled.insert(std::string(band.Name) + ": " + std::string(owner->second) + ' ' + std::string(entry.Name));
    }
  }
  EXPECT_EQ(doubled, (std::set<std::string>{"mnuEdit: miFind fntSet", "mnuEdit: miRedo miReplace",
                                            "mnuEdit: miRefresh Options", "mnuSynonyms: miAddSynonym miEditSynonyms",
                                            "mnuSynonyms: miAddSynonym miSaveSynonyms"}));
}

TEST(CommandTable, RunsTheFirstCommandThatFitsWhereItsConditionHolds) {
  tests::FakeChild document("Mainwin"), editor("frmTemplate");
  ChildWindow* active = nullptr;
  std::string ran;
  CommandTable table([&] { return active; });
  for (const char* name : {"new", "Template", "newTemplate", "save", "miCut", "tbWList"})
    table.Bind(name, [&ran, name](const std::string& tool) { ran += name + (':' + tool) + ' '; });
  const auto run = [&](ChildWindow* child, std::initializer_list<const char*> tools) {
    active = child;
    ran.clear();
    for (const char* tool : tools) table.Run(tool);
    return ran;
  };
  const auto all = {"new", "New", "Template12", "newTemplate", "save", "miCut", "tbWList3", "miWList3", "mnuFile", ""};
  EXPECT_EQ(run(nullptr, all), "new:new Template:Template12 newTemplate:newTemplate tbWList:tbWList3 ");
  EXPECT_EQ(run(&editor, {"save", "miCut"}), "save:save ");
  EXPECT_EQ(run(&document, {"save", "miCut"}), "save:save miCut:miCut ");

  EXPECT_THROW(table.RequireAll(), std::logic_error);
  EXPECT_THROW(table.Bind("miCu", nullptr), std::logic_error);
}

}  // namespace
