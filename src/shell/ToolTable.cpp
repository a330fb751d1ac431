#include "shell/ToolTable.h"

#include <algorithm>

#include "shell/ListedTools.h"

namespace shell {
namespace {

using platform::BandDesign;
using platform::BandEntry;
using platform::BandKind;
using platform::BarDesign;
using platform::ToolDesign;

ToolDesign Command(std::string_view name, std::string_view caption, std::string_view description,
                   std::string_view shortcut, std::string_view icon) {
  return {
      .Name = name, .Caption = caption, .Description = description, .Shortcut = shortcut, .Icon = icon, .SubBand = ""};
}

ToolDesign CheckTool(std::string_view name, std::string_view caption, std::string_view description,
                     std::string_view shortcut, std::string_view icon) {
  ToolDesign tool = Command(name, caption, description, shortcut, icon);
  tool.Checkable = true;
  return tool;
}

// A tool that opens the band of its own name.
ToolDesign Menu(std::string_view name, std::string_view caption, std::string_view icon = "") {
  ToolDesign tool = Command(name, caption, "", "", icon);
  tool.SubBand = name;
  tool.HasCommand = false;
  return tool;
}

std::vector<ToolDesign> FileTools() {
  ToolDesign fresh = Command("new", "New", "Creates a new, blank file", "Ctrl+N", "new");
  fresh.SubBand = "Templates";
  return {
      Menu("mnuFile", "&File"),
      fresh,
      Command("newTemplate", "&Template", "Create New Template", "", "new-template"),
      Command("open", "&Open", "Opens or finds a file", "Ctrl+O", "open"),
      Command("OpenTemplate", "Open Te&mplate", "Opens a template in the template editor", "Ctrl+Shift+O",
              "open-template"),
      Command("save", "&Save", "Saves current active file", "Ctrl+S", "save"),
      Command("saveas", "Save &As...", "Saves current file with a new name", "Ctrl+Shift+S", "save-as"),
      Command("SaveExec", "Save and &Execute", "Save current file, and execute it.", "F5", "execute"),
      Command("GenPrev", "JavaScript Preview", "Generate a Preview (JavaScript only)", "F6", "preview"),
      Command("Associations", "Asso&ciations", "Choose which template goes with which kind of file", "",
              "associations"),
      Command("History1", "", "Open This File", "", ""),
      Command("History2", "", "Open This File", "", ""),
      Command("History3", "", "Open This File", "", ""),
      Command("exit", "E&xit", "Close all documents and exit", "Ctrl+Q", "exit"),
  };
}

std::vector<ToolDesign> EditTools() {
  return {
      Menu("mnuEdit", "&Edit"),
      Command("miUndo", "&Undo", "Undo last action", "Ctrl+Z", "undo"),
      Command("miRedo", "&Redo", "Repeat last action", "Ctrl+Y, Ctrl+Shift+Z", "redo"),
      Command("miCut", "Cu&t", "Cut current selection to clipboard", "Ctrl+X, Shift+Del", "cut"),
      Command("miCopy", "&Copy", "Copy current selection to clipboard", "Ctrl+C, Ctrl+Ins", "copy"),
      Command("miPaste", "&Paste", "Paste clipboard contents into document", "Ctrl+V, Shift+Ins", "paste"),
      Command("miSelectAll", "Select &All", "Select whole document", "Ctrl+A", "select-all"),
      Command("miFind", "&Find", "Find a text string", "Ctrl+F", "find"),
      Command("miFindNext", "Find &Next", "Find next occurance of a search string", "F3", "find-next"),
      Command("miReplace", "&Replace", "Replace a text string with another", "Ctrl+H", "replace"),
      CheckTool("miWordWrap", "&Word Wrap", "Toggle Word Wrapping", "Alt+Z", "word-wrap"),
      Command("miRefresh", "Refresh C&olouring", "Perform a full syntax highlight of the document", "Ctrl+R",
              "refresh"),
      CheckTool("fntProportional", "Proportional", "Show this document in the proportional font", "",
                "font-proportional"),
      CheckTool("fntFixedWidth", "Fixed Width", "Show this document in the fixed-width font", "", "font-fixed"),
      CheckTool("fntDOS", "DOS", "Show this document in the DOS font", "", "font-dos"),
      Command("fntSet", "Set &Fonts", "Choose the three fonts of documents", "", "fonts"),
      Command("Options", "&Options", "Set Program Options", "Ctrl+,", "options"),
      Menu("mnuSynonyms", "&Synonyms", "synonyms"),
      Command("miAddSynonym", "Add &Synonym", "Let another word stand for the word at the caret", "", "add-synonym"),
      Command("miEditSynonyms", "Edit &Synonyms", "Change or remove the synonyms of this document", "",
              "edit-synonyms"),
      Command("miLoadSynonyms", "&Load Synonyms", "Read synonyms from a file", "", "load-synonyms"),
      Command("miSaveSynonyms", "&Save Synonyms", "Keep the synonyms of this document in a file", "", "save-synonyms"),
  };
}

std::vector<ToolDesign> WindowAndHelpTools() {
  return {
      Menu("mnuWindow", "&Window"),
      Command("miWTileH", "Tile &Horizontally", "Show all windows one below the other", "", "tile-horizontally"),
      Command("miWTileV", "Tile &Vertically", "Show all windows side by side", "", "tile-vertically"),
      Command("miWCascade", "&Cascade", "Cascade Windows", "", "cascade"),
      Command("miWTileA", "&Arrange Icons", "Put minimised windows in order", "", "arrange-icons"),
      Menu("mnuHelp", "&Help"),
      Command("WordHelp", "Context Help", "Show help on the word at the caret", "F1", "word-help"),
      Command("miHContents", "&Contents", "Show the contents of the help", "", "contents"),
      Command("miHSearch", "&Search", "Look a keyword up in the help", "", "search-help"),
      Command("miHAbout", "&About", "About this application", "", "about"),
      Command("miHAboutTemplate", "About &Template", "Show information about current template", "", "about-template"),
      Command("Reset", "&Reset Settings", "Give every setting its first value back", "", "reset"),
      Command("ResetToolbars", "&Reset Toolbars", "Bring all toolbars and menus back as they were designed", "", ""),
  };
}

// The tools of a band: names with blanks between them, "-" for a line, NAME=CAPTION where the band captions a tool.
std::vector<BandEntry> Tools(std::string_view names) {
  std::vector<BandEntry> tools;
  while (!names.empty()) {
    const std::string_view entry = names.substr(0, names.find(' '));
    names.remove_prefix(std::min(names.size(), entry.size() + 1));
    const std::size_t mark = std::min(entry.find('='), entry.size());
    tools.push_back({entry == "-" ? platform::Separator : entry.substr(0, mark),
                     mark < entry.size() ? entry.substr(mark + 1) : std::string_view()});
  }
  return tools;
}

std::vector<BandDesign> Bands() {
  return {
      {"MenuBar", "Menu Bar", BandKind::MenuBar, 0, false, Tools("mnuFile mnuEdit mnuWindow mnuHelp")},
      {"mnuFile", "File Menu", BandKind::Menu, 0, false,
       Tools("new open OpenTemplate save saveas SaveExec GenPrev Associations - History1 History2 History3 - exit")},
      {"mnuEdit", "Edit Menu", BandKind::Menu, 0, false,
       Tools("miSelectAll mnuSynonyms - miUndo miRedo - miCut miCopy miPaste - miFind miFindNext miReplace - miRefresh "
             "miWordWrap fntSet Options")},
      {"mnuSynonyms", "Synonyms Menu", BandKind::Menu, 0, false,
       Tools("miAddSynonym miEditSynonyms - miLoadSynonyms miSaveSynonyms")},
      {"mnuWindow", "Window Menu", BandKind::Menu, 0, true, Tools("miWTileH miWTileV miWCascade miWTileA -")},
      {"mnuHelp", "Help Menu", BandKind::Menu, 0, false,
       Tools("WordHelp miHContents miHSearch - miHAbout miHAboutTemplate - Reset")},
      {"Templates", "Templates", BandKind::Menu, 0, true, Tools("- newTemplate")},
      {"Toolbar", "Toolbar", BandKind::Toolbar, 0, false,
       Tools(
           "new open OpenTemplate save SaveExec - miCut miCopy miPaste - miUndo miRedo - miFind miFindNext miReplace - "
           "miWordWrap miRefresh GenPrev")},
      {"tbrFonts", "Fonts", BandKind::Toolbar, 0, false, Tools("fntProportional fntFixedWidth fntDOS - fntSet")},
      {"WindowTabs", "Windows", BandKind::Tabs, 1, true, {}},
      {"TextPopup", "Text Menu", BandKind::Popup, 0, false,
       Tools("miAddSynonym - miUndo miRedo - miCut miCopy=C&opy miPaste - miSelectAll")},
  };
}

BarDesign MakeDesign() {
  BarDesign design;
  for (const std::vector<ToolDesign>& tools : {FileTools(), EditTools(), WindowAndHelpTools()})
    design.Tools.insert(design.Tools.end(), tools.begin(), tools.end());
  for (std::size_t i = 0; i < design.Tools.size(); ++i) {
    ToolDesign& tool = design.Tools[i];
    tool.Id = tool.Name == "ResetToolbars" ? ResetToolbarsTool : static_cast<int>(i) + 1;
  }
  design.Bands = Bands();
  return design;
}

}  // namespace

const BarDesign& DesignedBar() {
  static const BarDesign design = MakeDesign();
  return design;
}

}  // namespace shell
