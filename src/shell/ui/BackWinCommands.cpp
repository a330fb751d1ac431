// What the frame's tools do: each command of the table bound to its action.

#include <QMdiArea>
#include <QMdiSubWindow>

#include "platform/FileParsing.h"
#include "shell/FileFilters.h"
#include "shell/ToolTable.h"
#include "shell/ui/BackWin.h"

namespace shell::ui {

void BackWin::ActiveBar_ToolClick(const std::string& name) {
  m_commands.Run(name);
  if (editor::ui::Mainwin* active = ActiveDocument()) active->setFocus();
}

platform::ActiveBarEvents BackWin::BarEvents() {
  return {.ToolClick = [this](const std::string& tool) { ActiveBar_ToolClick(tool); },
          .ToolClose =
              [this](const std::string& tool) {
                const int n = m_bar.Tool(tool).Tag;
                if (n > 0 && n <= m_windows->subWindowList().size()) m_windows->subWindowList()[n - 1]->close();
              },
          .BandOpen =
              [this](const std::string& band) {
                if (band == platform::CustomiseBand) m_bar.AddTool(band, "ResetToolbars");
              },
          .FileDropped = [this](const std::string& path) { OpenFile(path); },
          .ResetBand = [this](const std::string& band) { m_bar.LoadBand(m_designedLayout, band); },
          .Released =
              [this] {
                if (editor::ui::Mainwin* active = ActiveDocument()) active->setFocus();
              }};
}

// A tool whose command is not there yet stays grey, whatever a document says.
void BackWin::EnableTool(std::string_view name, bool enabled) {
  m_bar.Enable(name, enabled && m_commands.Bound(name));
}

void BackWin::DisableWaitingTools() {
  for (const std::string& tool : m_commands.Waiting()) m_bar.Enable(tool, false);
}

ChildWindow* BackWin::ActiveChild() const {
  const QMdiSubWindow* window = m_windows->currentSubWindow();
  return window ? dynamic_cast<ChildWindow*>(window->widget()) : nullptr;
}

void BackWin::BindDocument(std::string_view tool, std::function<void(editor::ui::Mainwin&)> action) {
  m_commands.Bind(tool, [this, action = std::move(action)](const std::string&) {
    if (editor::ui::Mainwin* document = ActiveDocument()) action(*document);
  });
}

void BackWin::BindFileCommands() {
  m_commands.Bind("new", [this](const std::string&) { NewDocument(); });
  m_commands.Bind("open", [this](const std::string&) { OpenByDialog(); });
  m_commands.Bind("save", [this](const std::string&) { ActiveChild()->SaveFile(ActiveChild()->CurFileName()); });
  m_commands.Bind("saveas", [this](const std::string&) { ActiveChild()->SaveFile(""); });
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
  for (const char* font : {"fntProportional", "fntFixedWidth", "fntDOS"})
    BindDocument(font, [this, font](editor::ui::Mainwin& document) { ChooseFont(font, document); });
}

void BackWin::BindWindowCommands() {
  m_commands.Bind("miWTileV", [this](const std::string&) { m_windows->tileSubWindows(); });
  m_commands.Bind("miWCascade", [this](const std::string&) { m_windows->cascadeSubWindows(); });
  const auto activate = [this](const std::string& tool) {
    const int n = m_bar.Tool(tool).Tag;
    if (n > 0 && n <= m_windows->subWindowList().size())
      m_windows->setActiveSubWindow(m_windows->subWindowList()[n - 1]);
  };
  m_commands.Bind("tbWList", activate);
  m_commands.Bind("ResetToolbars", [this](const std::string&) { m_bar.LoadLayout(m_designedLayout); });
}

void BackWin::BindHelpCommands() {
  m_commands.Bind("miHAbout", [this](const std::string&) { ShowAbout(); });
}

void BackWin::WordWrap(editor::ui::Mainwin& document) {
  const bool on = !m_bar.Tool("miWordWrap").Checked;
  m_bar.Check("miWordWrap", on);
  document.WordWrap(on);
}

void BackWin::RefreshColouring(editor::ui::Mainwin& document) {
  const bool useColours = m_settings.UseColours;
  m_settings.UseColours = true;
  document.ColourScan();
  m_settings.UseColours = useColours;
}

void BackWin::ChooseFont(const std::string& tool, editor::ui::Mainwin& document) {
  std::int16_t useFont = 0;
  for (const char* font : {"fntProportional", "fntFixedWidth", "fntDOS"}) {
    m_bar.Check(font, tool == font);
    ++useFont;
    if (tool == font) document.SetUseFont(useFont);
  }
}

void BackWin::OpenByDialog() {
  const editor::ui::Mainwin* document = ActiveDocument();
  const std::string path = m_prompts.AskOpenFile({.Title = "Open Script",
                                                  .Filters = TemplateFilters(m_templateList, m_associations),
                                                  .Folder = document ? platform::FolderOf(document->CurFileName()) : "",
                                                  .SuggestedName = ""});
  if (!path.empty()) OpenFile(path);
}

void BackWin::ShowAbout() {
  m_prompts.Show({.Text = "Quillmark " QUILLMARK_VERSION "\n\nA script editor whose languages come from plain-text "
                          "templates.\nFree software under the GNU General Public License, version 3 or later.",
                  .Icon = platform::PromptIcon::Information});
}

}  // namespace shell::ui
