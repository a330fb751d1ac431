#!/usr/bin/env python3
"""Every tool of the menus and bars: where it stands, how it looks in each state, and that each way to it does its work."""

import os
import pathlib
import unittest.mock

import desktop
from tool_tables import BARS, BARS_MENU, EXIT, LINE, MENUS, MORE_SHORTCUTS, RECENT, TEXT_MENU, Tool

# What most commands open, and a text in it.
DIALOGS = {
    "Open": ("Open Script", ""), "Open Template": ("Open Template", ""), "Save As...": ("Save Script", ""),
    "Associations": ("Setup Template Associations", ""), "Find": ("Find", "Find What:"),
    "Replace": ("Replace", "Replace With:"), "Set Fonts": ("Set Quillmark Fonts", ""), "Options": ("Quillmark Options", ""),
    "Add Synonym": ("Select Synonym", "document"), "Edit Synonyms": ("Edit Synonyms", ""),
    "Load Synonyms": ("Load Synonyms", ""), "Save Synonyms": ("Save Synonyms", ""), "About": ("About Quillmark", ""),
    "About Template": ("Quillmark - About JavaScript", ""),
    "Reset Settings": ("Quillmark", "Reset All Settings, are you sure?"),
    "Reset Toolbars": ("Quillmark", "Reset All Toolbars, are you sure?"),
    "Customise...": ("Customise Toolbars and Menus", ""),
}
# A JavaScript whose program, help and words are at hand wherever the test runs.
TEMPLATE = """N: JavaScript
X: js
D: ()<>.,;
S: True
H: JavaScript.hdf
R: cp "%s" "{home}/ran"
C: #008000
L: // 1  1 True
W: "document" 1
2 "." 1
""
write 5
"""
HELP = "Quillmark Help Definition File\n\n\nStart:touch {home}/\nEnd:\nalpha,helped,Alpha\n"
TEXT = "alpha beta\nalpha gamma" + 60 * " delta" + "\n"
ALPHA = 5 * ["shift+Right"]  # selects the first word
FONTS = ("Proportional", "Fixed Width", "DOS")


# How tools look.

def words(name, key, enabled, checked):
    return f"{name} ({key})" + ("" if enabled else ", grey") + (", checked" if checked else "")


def tools_in(element, key, line_role):
    """The tools of a bar or an open menu in words."""
    texts = []
    for child in element.children():
        if child.is_showing() and child.role == line_role:
            texts += [] if texts[-1:] == [LINE.caption] else [LINE.caption]  # without a tool between, two are seen as one
        elif child.is_showing():
            texts.append(words(child.name, key(child), child.has("ENABLED"), child.has("CHECKED")))
    return texts


def entries_of(menu):
    return tools_in(menu, lambda entry: entry.key, "separator")


def expected(tools, states=(), checked=(), key=lambda tool: tool.key):
    """The same by the tables."""
    return [tool.caption if tool is LINE else
            words(tool.name, key(tool), not tool.when or tool.when in states, tool.name in checked) for tool in tools]


class Tools(desktop.Path):
    def setUp(self):
        super().setUp()
        self.editor = self.bar = None
        self.done = set()
        self.buttons = {}
        self.aside = 0

    def stand_in(self, program, script):
        """A program that is found before any other of its name."""
        path = self.home / "bin" / program
        path.parent.mkdir(exist_ok=True)
        path.write_text(script)
        path.chmod(0o755)
        search = unittest.mock.patch.dict(os.environ, PATH=f"{path.parent}:{os.environ['PATH']}")
        search.start()
        self.addCleanup(search.stop)

    def begin(self):
        """Starts with a document and a template of its own."""
        home = self.home / ".local/share/quillmark"
        home.mkdir(parents=True)
        (home / "JavaScript.def").write_text(TEMPLATE.format(home=self.home))
        (home / "JavaScript.hdf").write_text(HELP.format(home=self.home))
        self.use(self.start(self.file("one.js", TEXT), title="one.js"))
        self.editor.wait_status("Using 'JavaScript' Template")

    def use(self, editor):
        self.editor = editor
        self.bar = editor.frame.find("menu bar")
        for bar in BARS:
            buttons = editor.frame.find("tool bar", bar).children()
            self.buttons.update({button.name: button for button in buttons if button.is_showing()})

    # Menus and their entries.

    def below(self, place, caption):
        """The open menu of an entry of the menu bar or of another menu."""
        name = Tool(caption).name
        entry = desktop.wait(lambda: next((e for e in place.children() if e.name == name), None), f"the entry {name}")
        return desktop.wait(lambda: next((m for m in entry.children() if m.is_showing()), None), f"the menu {name}")

    def pull_down(self, caption):
        """Opens a menu by its access key; gives it."""
        if caption == "&Synonyms":
            edit = self.pull_down("&Edit")
            self.desktop.keys("s")
            return self.below(edit, caption)
        self.desktop.keys(f"alt+{Tool(caption).access_key.lower()}")
        return self.below(self.bar, caption)

    def click_open(self, caption):
        """The same with the mouse."""
        path = ["Edit", "Synonyms"] if caption == "&Synonyms" else [Tool(caption).name]
        self.editor.choose(*path)
        return self.below(self.below(self.bar, "&Edit") if len(path) > 1 else self.bar, caption)

    def text_menu(self):
        return self.desktop.menu_opened_by(lambda: self.desktop.keys("Menu"))

    def bars_menu(self):
        self.aside = 20 - self.aside  # a second click at the same place would be a double one
        return self.desktop.menu_opened_by(lambda: self.desktop.click(self.bar, button=3, aside=self.aside))

    def choose_entry(self, menu, tools, tool):
        """Chooses in an open menu by access key; where several entries have it, it goes from one to the next."""
        entry = desktop.wait(lambda: next((e for e in menu.children() if e.name == tool.name), None), tool.name)
        if not tool.access_key:
            return self.desktop.click(entry)
        rivals = [e.name for e in menu.children() if e.has("ENABLED") and any(
            t.name == e.name and t.access_key.upper() == tool.access_key.upper() for t in tools)]
        if len(rivals) == 1:
            return self.desktop.keys(tool.access_key.lower())

        def selected():
            return next((e.name for e in menu.children() if e.name in rivals and e.has("FOCUSED")), None)
        while (before := selected()) != tool.name:
            self.desktop.keys(tool.access_key.lower())
            desktop.wait(lambda: selected() != before, f"another selection than {before}")
        return self.desktop.keys("Return")

    # How they look.

    def look(self, states, template, windows=(), checked=("Fixed Width",)):
        """Compares everything in the frame with the tables; the last of the windows is in front."""
        for caption, tools in MENUS.items():
            in_front = set()
            if caption == "&Window":
                tools = tools + [Tool(f"&{number} {name}") for number, name in enumerate(windows, 1)]
                in_front = {f"{len(windows)} {name}" for name in windows[-1:]}
            if "recent" not in states:
                tools = [tool for tool in tools if tool is not RECENT]
            wanted = expected(tools, states, {*checked, *in_front})
            wanted = [text for place, text in enumerate(wanted) if text != LINE.caption or wanted[place - 1] != text]
            menu = self.click_open(caption)
            desktop.wait_equal(lambda: entries_of(menu), wanted, f"the menu {caption}")
            self.desktop.keys(*["Escape"] * 3)
        for name, tools in BARS.items():
            bar = self.editor.frame.find("tool bar", name)
            wanted = expected(tools, states, checked, lambda tool: tool.tip.format(template=template))
            desktop.wait_equal(lambda: tools_in(bar, lambda tool: tool.description, "filler"), wanted, f"the bar {name}")

    def test_tools_stand_and_look_as_they_should(self):
        text = {"window", "document", "runs"}
        with self.step("a new document"):
            self.use(self.start(title="Untitled"))
            self.look(text - {"runs"} | {"selection"}, "Plain text", ["Untitled"])  # that the caret has not moved in
        with self.step("the templates"):
            folder = pathlib.Path(__file__).parents[2] / "data/templates"
            files = sorted(folder.glob("*.def"), key=lambda path: path.name.lower())
            names = [next(line[3:] for line in path.read_text().splitlines() if line.startswith("N: ")) for path in files]
            self.editor.choose("File", "New")
            templates = self.below(self.below(self.bar, "&File"), "New")
            self.assertEqual([entry.name for entry in templates.children()], [*names, "", "Template"])
            self.desktop.keys(*["Escape"] * 3)
        with self.step("no document"):
            self.editor.wait_keyboard()
            self.desktop.keys("ctrl+w")
            desktop.wait(lambda: not self.editor.area(), "the document to close")
            self.look(set(), "Plain text")
        with self.step("a changed document with a selection"):
            self.start(self.file("one.js", TEXT)).wait_end()
            self.editor.wait_title("one.js")
            self.editor.wait_keyboard()
            self.desktop.type("x")
            self.desktop.keys("alt+z", "ctrl+a")
            changed = text | {"recent", "changed", "undo", "JavaScript"}
            self.look(changed | {"selection"}, "Plain text", ["one.js"], ["Fixed Width", "Word Wrap"])
        with self.step("the menu of the text"):
            menu = self.text_menu()
            desktop.wait_equal(lambda: entries_of(menu), expected(TEXT_MENU, changed | {"selection"}), "the text's menu")
            self.desktop.keys("Escape")
        with self.step("the menu of the bars"):
            menu = self.bars_menu()
            wanted = expected(BARS_MENU, checked=("Toolbar", "Fonts", "Windows"))
            desktop.wait_equal(lambda: entries_of(menu), wanted, "the menu of the bars")
            self.desktop.keys("Escape")
        with self.step("undone"):
            self.editor.wait_keyboard()
            self.desktop.keys("ctrl+Home", "ctrl+z")
            self.editor.wait_text(TEXT)
            self.look(changed - {"undo", "changed"} | {"redo"}, "Plain text", ["one.js"], ["Fixed Width", "Word Wrap"])
        with self.step("a template editor in front"):
            self.editor.choose("File", "New", "Template")
            self.editor.wait_title("Untitled (Template)")
            self.look({"window", "recent"}, "Plain text", ["one.js", "Untitled (Template)"], ["Fixed Width", "Word Wrap"])

    # Ways to a command.

    def ways(self, name):
        """Each way to it, as its name and what goes it."""
        for caption, tools in MENUS.items():
            for tool in (tool for tool in tools if tool.name == name):
                if name == "New":
                    continue  # it opens the templates there
                yield f"the menu {caption}", lambda: self.choose_entry(self.pull_down(caption), tools, tool)
                if tool.shortcut:
                    yield tool.shortcut, lambda: self.shortcut(tool.shortcut)
        for bar, tools in BARS.items():
            if name in (tool.name for tool in tools):
                yield f"the bar {bar}", lambda: self.desktop.click(self.buttons[name])
        for tool in (tool for tool in TEXT_MENU if tool.name == name):
            yield "the text's menu", lambda: self.choose_entry(self.text_menu(), TEXT_MENU, tool)
        for tool in (tool for tool in BARS_MENU if tool.name == name):
            yield "the menu of the bars", lambda: self.choose_entry(self.bars_menu(), BARS_MENU, tool)
        if name in MORE_SHORTCUTS:
            yield MORE_SHORTCUTS[name], lambda: self.shortcut(MORE_SHORTCUTS[name])

    def shortcut(self, keys):
        *held, key = keys.split("+")
        self.desktop.keys("+".join([*map(str.lower, held), {",": "comma"}.get(key, key.lower() if len(key) == 1 else key)]))

    def go(self, *names):
        """Goes each way to the commands, with what must be before and be seen after each time."""
        for name in names:
            seen = 0
            for way, go in self.ways(name):
                try:
                    self.rest()
                    effect = self.opens(*DIALOGS[name]) if name in DIALOGS else EFFECTS[name](self)
                    next(effect)
                    if name in self.buttons:
                        desktop.wait(lambda: self.buttons[name].has("ENABLED"), "the tool to be ready")
                    go()
                    next(effect, None)
                except AssertionError as error:
                    raise AssertionError(f"{name} by {way}: {error}") from None
                seen += 1
            self.assertGreater(seen, 0, f"no way to {name}")
            self.done.add(name)

    def rest(self):
        """The document as it came, with the caret at its start."""
        desktop.wait(lambda: self.editor.frame.name.startswith("Quillmark - [one.js"), "one.js in front")
        self.editor.wait_keyboard()
        self.editor.wait_text(TEXT)
        self.desktop.keys("ctrl+Home")
        desktop.wait_equal(lambda: self.editor.area().selection, (0, 0), "the selection")

    # What is seen of them: each is prepared, and looked at when the command has been given.

    def opens(self, title, text):
        yield
        dialog = self.editor.dialog(title, saying=text)
        self.desktop.keys("Escape")
        dialog.wait_closed(title)

    def shows(self, title):
        """A window more, which is closed again."""
        yield
        self.editor.wait_title(title)
        self.desktop.keys("ctrl+w")

    def makes(self, file, text):
        path = self.home / file
        path.unlink(missing_ok=True)
        yield
        desktop.wait(lambda: path.exists() and text in path.read_text(), f"{file} with {text}")

    def selects(self, start, end):
        yield
        desktop.wait_equal(lambda: self.editor.area().selection, (start, end), "the selection")

    def saves(self):
        self.desktop.type("x")
        self.editor.wait_title("one.js *")
        yield
        self.wait_file(self.home / "one.js", "x" + TEXT)
        self.desktop.keys("ctrl+Home", "Delete")

    def changes(self, before, text, back, then=()):
        """Keys before it, keys behind it, the text that there is now, and keys that bring the old one back."""
        self.desktop.keys(*before)
        yield
        self.desktop.keys(*then)
        self.editor.wait_text(text)
        self.desktop.keys(*back)

    def finds_next(self):
        self.desktop.keys("ctrl+f")
        find = self.editor.dialog("Find")
        find.fill("Find What:", "gamma")
        find.press("Find Next")
        self.desktop.keys("Escape")
        find.wait_closed("the dialog")
        self.desktop.keys("ctrl+Home")
        yield from self.selects(TEXT.index("gamma"), TEXT.index("gamma") + 5)

    def colours(self):
        self.desktop.keys("ctrl+End")
        self.desktop.type("// note")
        self.editor.wait_text(TEXT + "// note")
        self.assertIsNone(self.editor.area().colour_at(len(TEXT)), "the line of the caret is plain")
        yield
        desktop.wait_equal(lambda: self.editor.area().colour_at(len(TEXT)), "0,128,0", "the colour of a note")
        self.desktop.keys("shift+Home", "Delete")

    def wraps(self):
        tool = self.buttons["Word Wrap"]
        wrapped = tool.has("CHECKED")
        yield
        desktop.wait(lambda: tool.has("CHECKED") != wrapped, "the check mark to turn")
        desktop.wait(lambda: bool(self.editor.area().look_for("scroll bar")) == wrapped, "lines of another length")

    def looks(self, font):
        yield
        area = self.editor.area()
        desktop.wait_equal(lambda: [f for f in FONTS if self.buttons[f].has("CHECKED")], [font], "the checked font")
        is_fixed = font != "Proportional"  # an "l" is then as wide as an "m"
        desktop.wait(lambda: (area.width_at(TEXT.index("l")) == area.width_at(TEXT.index("m"))) == is_fixed, "the font")

    def helps(self, tab, part):
        yield
        window = self.editor.help()
        desktop.wait(lambda: window.look_for("page tab list", tab) and window.find(*part).has("FOCUSED"), tab)
        self.desktop.keys("Escape")
        window.wait_closed("the help")

    def hides(self, name):
        bar = self.editor.frame.find("tool bar", name)
        yield
        desktop.wait(lambda: not bar.is_showing(), f"no {name}")
        self.choose_entry(self.bars_menu(), BARS_MENU, Tool(name))
        desktop.wait(bar.is_showing, f"{name}")

    def arranges(self, is_meant):
        """The places of the windows of one.js and of another document, which is in front."""
        yield
        desktop.wait(lambda: is_meant(*self.places()), "the places of the windows")

    def places(self):
        windows = self.editor.frame.look_for("layered pane").children()
        return [window.extents() for window in sorted(windows, key=lambda window: not window.name.startswith("one.js"))]

    def lines_up(self):
        for number in (1, 0):
            left, top, width, _ = before = self.places()[number]
            title = ["xdotool", "mousemove", str(left + width // 2), str(top + 8), "click", "3"]
            self.desktop.menu_opened_by(lambda: self.desktop.ask(*title))
            self.desktop.keys("n")
            desktop.wait(lambda: self.places()[number][3] < before[3], "a minimised window")
        yield  # the icons cannot be moved by hand, so they stand in their row already
        (left, top, width, height), right = sorted(self.places())
        place = self.editor.frame.look_for("layered pane").extents()
        self.assertEqual((left, top + height), (0, place[1] + place[3]), "the lower left corner")
        self.assertEqual(right, (width, top, width, height))

    def reopens(self):
        yield
        tabs = self.editor.frame.find("tool bar", "Windows")
        desktop.wait_equal(lambda: [tab.role for tab in tabs.everything()].count("page tab"), 2, "the number of tabs")
        self.desktop.keys("ctrl+w")

    def test_every_way_to_a_command_does_its_work(self):
        self.stand_in("xdg-open", f'#!/bin/sh\necho "$1" > "{self.home}/opened"\n')
        with self.step("files"):
            self.begin()
            self.go("New", "Open", "Open Template", "Save", "Save As...", "Save and Execute", "JavaScript Preview",
                    "Associations", "1 one.js")
        with self.step("text"):
            self.go("Select All", "Cut", "Copy", "Paste", "Redo", "Undo", "Find", "Find Next", "Replace")
        with self.step("looks"):
            self.go("Customise...", "Refresh Colouring", "Word Wrap", "Proportional", "Fixed Width", "DOS", "Set Fonts",
                    "Options")
        with self.step("synonyms"):
            self.go("Add Synonym", "Edit Synonyms", "Load Synonyms", "Save Synonyms")
        with self.step("help"):
            self.go("Context Help", "Contents", "Search", "About", "About Template", "Reset Settings")
        with self.step("bars"):
            self.go("Reset Toolbars", "Fonts", "Windows", "Toolbar")
        with self.step("windows"):
            self.editor.choose("File", "New", "Template")
            self.editor.wait_title("Untitled (Template)")
            self.desktop.keys("ctrl+w")
            self.editor.choose("File", "New", "JavaScript")
            self.editor.wait_title("Untitled")
            self.rest = lambda: None
            self.go("Tile Horizontally", "Tile Vertically", "Cascade", "Arrange Icons")
        with self.step("nothing was left out"):
            tools = [tool for tools in [*MENUS.values(), *BARS.values(), TEXT_MENU, BARS_MENU] for tool in tools]
            self.assertEqual(self.done, {tool.name for tool in tools if tool is not LINE} - {"Synonyms", "Exit"})

    def test_exit_ends_the_program(self):
        for way in (lambda: self.choose_entry(self.pull_down("&File"), MENUS["&File"], EXIT), lambda: self.shortcut("Ctrl+Q")):
            self.use(self.start(title="Untitled"))
            way()
            self.editor.wait_end()


EFFECTS = {
    "New": lambda self: self.shows("Untitled"),
    "Save": Tools.saves,
    "Save and Execute": lambda self: self.makes("ran", TEXT),
    "JavaScript Preview": lambda self: self.makes("opened", "~Preview.html"),
    "1 one.js": Tools.reopens,
    "Select All": lambda self: self.selects(0, len(TEXT)),
    "Undo": lambda self: self.changes([*ALPHA, "ctrl+x"], TEXT, []),
    "Redo": lambda self: self.changes([*ALPHA, "ctrl+x", "ctrl+z"], TEXT[5:], ["ctrl+v"]),
    "Cut": lambda self: self.changes(ALPHA, TEXT[5:], ["ctrl+v"]),
    "Copy": lambda self: self.changes(ALPHA, TEXT + "alpha", 5 * ["BackSpace"], ["ctrl+End", "ctrl+v"]),
    "Paste": lambda self: self.changes([*ALPHA, "ctrl+c", "ctrl+End"], TEXT + "alpha", 5 * ["BackSpace"]),
    "Find Next": Tools.finds_next,
    "Refresh Colouring": Tools.colours,
    "Word Wrap": Tools.wraps,
    **{font: lambda self, font=font: self.looks(font) for font in FONTS},
    "Context Help": lambda self: self.makes("helped", ""),
    "Tile Horizontally": lambda self: self.arranges(lambda one, front: one[:3:2] == front[:3:2] and one[1] > front[1]),
    "Tile Vertically": lambda self: self.arranges(lambda one, front: one[1::2] == front[1::2] and one[0] > front[0]),
    "Cascade": lambda self: self.arranges(
        lambda one, front: one[2:] == front[2:] and one[0] < front[0] < one[0] + 90 and one[1] < front[1] < one[1] + 90),
    "Arrange Icons": Tools.lines_up,
    **{bar: lambda self, bar=bar: self.hides(bar) for bar in ("Toolbar", "Fonts", "Windows")},
    "Contents": lambda self: self.helps("Contents", ("tree", "Contents")),
    "Search": lambda self: self.helps("Index", ("text", "Keyword:")),
}

if __name__ == "__main__":
    desktop.main()
