// What the frame's tools do: each command of the table bound to its action.

#include <QMdiSubWindow>

#include "shell/FileFilters.h"
#include "shell/ToolTable.h"
#include "shell/ui/BackWin.h"
#include "shell/ui/FrameLifetime.h"
#include "shell/ui/FrameWindows.h"

namespace shell::ui {

void BackWin::ActiveBar_ToolClick(const std::string& name) {
  m_commands.Run(name);
  FocusChild();
}

platform::ActiveBarEvents BackWin::BarEvents() {
  return {.ToolClick = [this](const std::string& tool) { ActiveBar_ToolClick(tool); },
          .ToolClose = [this](const std::string& tool) { m_windows->Close(WindowOf(tool)); },
          .BandOpen = [this](const std::string& band) { BandOpens(band); },
          .FileDropped = [this](const std::string& path) { OpenDropped(path); },
          .ResetBand = [this](const std::string& band) { m_layout.ResetBand(band); },
          .Released = [this] { FocusChild(); }};
}

void BackWin::BandOpens(const std::string& band) {
  if (band == "mnuWindow") m_menus.FillWindowMenu(m_windows->Listed(), ActiveChild());
  if (band == platform::CustomiseBand) m_menus.FillCustomiseMenu();
}

void BackWin::BindCommands() {
  BindFileCommands();
  BindEditCommands();
  BindWindowCommands();
  BindHelpCommands();
  BindAidCommands();
  BindSettingsCommands();
  BindTemplateCommands();
  m_commands.RequireAll();
}

void BackWin::BindDocument(std::string_view tool, std::function<void(editor::ui::Mainwin&)> action) {
  m_commands.Bind(tool, [this, action = std::move(action)](const std::string&) {
    if (editor::ui::Mainwin* document = ActiveDocument()) action(*document);
  });
}

void BackWin::BindFileCommands() {
  m_commands.Bind("new", [this](const std::string&) { NewDocument(); });
  m_commands.Bind(TemplateTool, [this](const std::string& tool) { NewFromTemplate(tool); });
  m_commands.Bind("open", [this](const std::string&) { OpenByDialog(); });
  m_commands.Bind("save", [this](const std::string&) { ActiveChild()->SaveFile(ActiveChild()->CurFileName()); });
  m_commands.Bind("saveas", [this](const std::string&) { ActiveChild()->SaveFile(""); });
  for (const char* history : {"History1", "History2", "History3"})
    m_commands.Bind(history, [this](const std::string& tool) { OpenFile(m_menus.HistoryPath(tool)); });
  m_commands.Bind("exit", [this](const std::string&) { close(); });
}

void BackWin::BindEditCommands() {
  BindDocument("miUndo", [](editor::ui::Mainwin& document) { document.Undo(); });
  BindDocument("miRedo", [](editor::ui::Mainwin& document) { document.Redo(); });
  BindDocument("miCut", [](editor::ui::Mainwin& document) { document.TextArea().Cut(); });
  BindDocument("miCopy", [](editor::ui::Mainwin& document) { document.TextArea().Copy(); });
  BindDocument("miPaste", [](editor::ui::Mainwin& document) { document.TextArea().Paste(); });
  BindDocument("miSelectAll", [](editor::ui::Mainwin& document) { document.TextArea().SelectAll(); });
  BindDocument("miWordWrap", [this](editor::ui::Mainwin& document) { WordWrap(document); });
  BindDocument("miRefresh", [this](editor::ui::Mainwin& document) { RefreshColouring(document); });
  std::int16_t useFont = 0;
  for (const char* font : {"fntProportional", "fntFixedWidth", "fntDOS"})
    BindDocument(font, [number = ++useFont](editor::ui::Mainwin& document) { document.SetUseFont(number); });
}

void BackWin::BindWindowCommands() {
  m_commands.Bind("miWTileH", [this](const std::string&) { m_windows->TileHorizontally(); });
  m_commands.Bind("miWTileV", [this](const std::string&) { m_windows->TileVertically(); });
  m_commands.Bind("miWCascade", [this](const std::string&) { m_windows->Cascade(); });
  m_commands.Bind("miWTileA", [this](const std::string&) { m_windows->ArrangeMinimised(); });
  const auto activate = [this](const std::string& tool) { m_windows->Activate(WindowOf(tool)); };
  m_commands.Bind(WindowTabTool, activate);
  m_commands.Bind(WindowMenuTool, activate);
  m_commands.Bind("Reset", [this](const std::string&) {
    if (Confirmed("Reset All Settings, are you sure?")) m_lifetime->SetDefaults(true);
  });
  m_commands.Bind("ResetToolbars", [this](const std::string&) {
    if (Confirmed("Reset All Toolbars, are you sure?")) m_layout.ResetToolbars();
  });
}

bool BackWin::Confirmed(const std::string& question) {
  return m_prompts.Show({.Text = question,
                         .Buttons = platform::PromptButtons::YesNo,
                         .Icon = platform::PromptIcon::Question,
                         .Default = platform::PromptAnswer::No}) == platform::PromptAnswer::Yes;
}

void BackWin::NewFromTemplate(const std::string& tool) {
  if (m_menus.ChooseTemplate(tool)) NewDocument();
}

void BackWin::WordWrap(editor::ui::Mainwin& document) {
  const bool on = !m_bar.Tool("miWordWrap").Checked;
  m_bar.Check("miWordWrap", on);
  document.WordWrap(on);
}

void BackWin::RefreshColouring(editor::ui::Mainwin& document) {
  const bool useColours = m_values.Settings.UseColours;
  m_values.Settings.UseColours = true;
  document.ColourScan();
  m_values.Settings.UseColours = useColours;
}

void BackWin::OpenByDialog() {
  const std::string path = GetOpenFile("Open Script", TemplateTypes, "");
  if (!path.empty()) OpenFile(path);
}

}  // namespace shell::ui
