"""Which tools stand on which menus and bars, in which order, with their keys, and when they can be used. Written by hand
from what users are promised, never from the program's own tables."""

import typing


class Tool(typing.NamedTuple):
    caption: str  # with the access key behind "&"
    shortcut: str = ""
    when: str = ""  # the state in which it can be used; "" for always
    tip: str = ""

    @property
    def name(self):
        return self.caption.replace("&", "")

    @property
    def access_key(self):
        return self.caption.partition("&")[2][:1]

    @property
    def key(self):
        return self.shortcut or (f"Alt+{self.access_key}" if self.access_key else "")


LINE = Tool("----")
RECENT = Tool("&1 one.js")
EXIT = Tool("E&xit", "Ctrl+Q")
MENUS = {
    "&File": [
        Tool("New", "Ctrl+N"), Tool("&Open", "Ctrl+O"), Tool("Open Te&mplate", "Ctrl+Shift+O"),
        Tool("&Save", "Ctrl+S", "changed"), Tool("Save &As...", "Ctrl+Shift+S", "window"),
        Tool("Save and &Execute", "F5", "runs"), Tool("JavaScript Preview", "F6", "JavaScript"), Tool("Asso&ciations"), LINE,
        RECENT, LINE, EXIT],
    "&Edit": [
        Tool("Select &All", "Ctrl+A", "document"), Tool("&Synonyms"), LINE, Tool("&Undo", "Ctrl+Z", "undo"),
        Tool("&Redo", "Ctrl+Y", "redo"), LINE, Tool("Cu&t", "Ctrl+X", "selection"), Tool("&Copy", "Ctrl+C", "selection"),
        Tool("&Paste", "Ctrl+V", "document"), LINE, Tool("&Find", "Ctrl+F", "document"),
        Tool("Find &Next", "F3", "document"), Tool("&Replace", "Ctrl+H", "document"), LINE,
        Tool("Refresh C&olouring", "Ctrl+R", "document"), Tool("&Word Wrap", "Alt+Z", "document"), Tool("Set &Fonts"),
        Tool("&Options", "Ctrl+,")],
    "&Synonyms": [
        Tool("Add &Synonym"), Tool("Edit &Synonyms", "", "document"), LINE, Tool("&Load Synonyms"), Tool("&Save Synonyms")],
    "&Window": [
        Tool("&Arrange Icons"), Tool("&Cascade"), Tool("Tile &Vertically"), Tool("Tile &Horizontally"), LINE],
    "&Help": [
        Tool("Context Help", "F1"), Tool("&Contents"), Tool("&Search"), LINE, Tool("&About"), Tool("About &Template"), LINE,
        Tool("&Reset Settings")],
}
TEXT_MENU = [
    Tool("Add &Synonym"), LINE, Tool("&Undo", "Ctrl+Z", "undo"), Tool("&Redo", "Ctrl+Y", "redo"), LINE,
    Tool("Cu&t", "Ctrl+X", "selection"), Tool("C&opy", "Ctrl+C", "selection"), Tool("&Paste", "Ctrl+V", "document"), LINE,
    Tool("Select &All", "Ctrl+A", "document")]
BARS_MENU = [
    Tool("Toolbar"), Tool("Fonts"), Tool("Windows"), LINE, Tool("&Customise..."), Tool("&Reset Toolbars")]
BARS = {
    "Toolbar": [
        Tool("New", tip="New {template} (Ctrl+N)"), Tool("Open", tip="Opens or finds a file (Ctrl+O)"),
        Tool("Open Template", tip="Opens a template in the template editor (Ctrl+Shift+O)"),
        Tool("Save", "", "changed", "Saves current active file (Ctrl+S)"),
        Tool("Save and Execute", "", "runs", "Save current file, and execute it (F5)"), LINE,
        Tool("Cut", "", "selection", "Cut current selection to clipboard (Ctrl+X)"),
        Tool("Copy", "", "selection", "Copy current selection to clipboard (Ctrl+C)"),
        Tool("Paste", "", "document", "Paste clipboard contents into document (Ctrl+V)"), LINE,
        Tool("Undo", "", "undo", "Undo last action (Ctrl+Z)"), Tool("Redo", "", "redo", "Repeat last action (Ctrl+Y)"), LINE,
        Tool("Find", "", "document", "Find a text string (Ctrl+F)"),
        Tool("Find Next", "", "document", "Find next occurance of a search string (F3)"),
        Tool("Replace", "", "document", "Replace a text string with another (Ctrl+H)"), LINE,
        Tool("Word Wrap", "", "document", "Toggle Word Wrapping (Alt+Z)"),
        Tool("Refresh Colouring", "", "document", "Perform a full syntax highlight of the document (Ctrl+R)"),
        Tool("JavaScript Preview", "", "JavaScript", "Generate a Preview (JavaScript only) (F6)")],
    "Fonts": [
        Tool("Proportional", "", "document", "Show this document in the proportional font"),
        Tool("Fixed Width", "", "document", "Show this document in the fixed-width font"),
        Tool("DOS", "", "document", "Show this document in the DOS font"), LINE,
        Tool("Set Fonts", tip="Choose the three fonts of documents")],
}
MORE_SHORTCUTS = {"Redo": "Ctrl+Shift+Z", "Cut": "Shift+Delete", "Copy": "Ctrl+Insert", "Paste": "Shift+Insert"}
