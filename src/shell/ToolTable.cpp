#include "shell/ToolTable.h"

namespace shell {
namespace {

constexpr Tool Line{Separator, "", "", ""};

const Tool Undo{"miUndo", "&Undo", "Undo last action", "Ctrl+Z"};
const Tool Redo{"miRedo", "&Redo", "Repeat last action", "Ctrl+Y, Ctrl+Shift+Z"};
const Tool Cut{"miCut", "Cu&t", "Cut current selection to clipboard", "Ctrl+X, Shift+Del"};
const Tool Copy{"miCopy", "&Copy", "Copy current selection to clipboard", "Ctrl+C, Ctrl+Ins"};
const Tool Paste{"miPaste", "&Paste", "Paste clipboard contents into document", "Ctrl+V, Shift+Ins"};
const Tool SelectAll{"miSelectAll", "Select &All", "Select whole document", "Ctrl+A"};

}  // namespace

const std::vector<Band>& MenuBands() {
  static const std::vector<Band> bands = {
      {"mnuFile",
       "&File",
       {{"new", "New", "Creates a new, blank file", "Ctrl+N"},
        {"open", "&Open", "Opens or finds a file", "Ctrl+O"},
        {"save", "&Save", "Saves current active file", "Ctrl+S"},
        {"saveas", "Save &As...", "Saves current file with a new name", "Ctrl+Shift+S"},
        Line,
        {"exit", "E&xit", "Close all documents and exit", "Ctrl+Q"}}},
      {"mnuEdit",
       "&Edit",
       {SelectAll,
        Line,
        Undo,
        Redo,
        Line,
        Cut,
        Copy,
        Paste,
        Line,
        {"miRefresh", "Refresh C&olouring", "Perform a full syntax highlight of the document", "Ctrl+R"},
        {"miWordWrap", "&Word Wrap", "Toggle Word Wrapping", "Alt+Z", true}}},
      {"mnuWindow",
       "&Window",
       {{"miWTileV", "Tile &Vertically", "Show all windows side by side", ""},
        {"miWCascade", "&Cascade", "Cascade Windows", ""}}},
      {"mnuHelp", "&Help", {{"miHAbout", "&About", "About this application", ""}}},
  };
  return bands;
}

const Band& TextPopup() {
  static const Band band = {
      "TextPopup",
      "",
      {Undo, Redo, Line, Cut, {"miCopy", "C&opy", Copy.Description, Copy.Shortcut}, Paste, Line, SelectAll}};
  return band;
}

}  // namespace shell
