"""A desktop of its own and the editor on it as its user has them: real keys and mouse go in, and what the accessibility
bus tells comes out. A test file derives its paths from Path and ends with main()."""

import contextlib
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

SKIPPED = 77
PATIENCE = 20.0  # seconds, with a condition that holds in milliseconds on an idle machine
Atspi = GLib = None  # loaded when the bus is there: the library looks for it once


class NoDisplay(Exception):
    """Xvfb cannot start here."""


def wait(condition, what, seconds=PATIENCE):
    """Waits until the condition tells something true, and returns that; `what` names it in the failure."""
    deadline = time.monotonic() + seconds
    while True:
        try:
            answer = condition()
        except GLib.Error:  # what was asked is going, or not there yet
            answer = None
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {seconds:.1f} s in vain for {what}")
        time.sleep(0.02)


def wait_equal(get, wanted, what):
    """Waits until get() gives what is wanted; the failure shows what it gave last."""
    last = [None]

    def is_equal():
        last[0] = get()
        return last[0] == wanted

    try:
        wait(is_equal, what)
    except AssertionError as error:
        raise AssertionError(f"{error}: it is {last[0]!r}, not {wanted!r}") from None


class Desktop:
    """An X server with a window manager, a session bus and an accessibility bus. One a process."""

    def __init__(self):
        self._stack = contextlib.ExitStack()
        self.root = pathlib.Path(self._stack.enter_context(tempfile.TemporaryDirectory(prefix="quillmark-desktop.")))
        runtime = self.root / "runtime"
        runtime.mkdir(mode=0o700)
        for name in [name for name in os.environ if name.startswith(("XDG_", "QT_", "QUILLMARK_", "DBUS_", "AT_SPI_"))]:
            del os.environ[name]
        os.environ.update(HOME=str(self.root), XDG_RUNTIME_DIR=str(runtime), LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb",
                          QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        try:
            self._start()
        except BaseException:
            self.close()
            raise

    def _start(self):
        # Without -noreset the server begins anew when one client leaves before the next comes.
        number = self._serve(["Xvfb", "-displayfd", "{}", "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset"])
        if not number:
            raise NoDisplay("Xvfb does not start")
        os.environ["DISPLAY"] = f":{number}"
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._serve(["dbus-daemon", "--session", "--nofork", "--print-address={}"])
        self._load_library()
        # The manager overlooks a window that comes while it starts; the command runs when it has started.
        self._serve_quietly(["openbox", "--startup", f"touch {self.root}/managed"])
        wait((self.root / "managed").exists, "the window manager")

    def _serve(self, command):
        """Starts a server that writes one line to the descriptor put in place of {}; returns the line."""
        reader, writer = os.pipe()
        with os.fdopen(reader) as line:
            try:
                self._serve_quietly([part.format(writer) for part in command], pass_fds=[writer])
            except FileNotFoundError as error:
                raise RuntimeError(f"{error}: ./dev test installs what the desktop tests need") from None
            finally:
                os.close(writer)
            return line.readline().strip()

    def _serve_quietly(self, command, **options):
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   **options)
        self._stack.callback(process.wait)
        self._stack.callback(process.terminate)

    @staticmethod
    def _load_library():
        global Atspi, GLib
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi as atspi, GLib as glib
        Atspi, GLib = atspi, glib
        Atspi.init()
        # A program that starts before the bus is there does not speak to it.
        wait(lambda: Atspi.get_desktop(0), "the accessibility bus")

    @staticmethod
    def ask(*command):
        return subprocess.run(command, capture_output=True, text=True, check=False).stdout

    def keys(self, *keys):
        """Presses keys by their names, such as "ctrl+s"."""
        self.ask("xdotool", "key", "--delay", "15", *keys)

    def type(self, text):
        """Types the text; a line end is the key Return."""
        for number, line in enumerate(text.split("\n")):
            if number > 0:
                self.keys("Return")
            self.ask("xdotool", "type", "--delay", "15", line)

    def click(self, element, count=1, button=1, aside=0):
        """Presses a mouse button, the left one if nothing else is said, in the middle of what is shown, or pixels aside."""
        left, top, width, height = wait(lambda: element.is_showing() and element.extents(), f"{element} on the screen")
        self.ask("xdotool", "mousemove", str(left + width // 2 + aside), str(top + height // 2),
                 "click", "--repeat", str(count), "--delay", "60", str(button))

    def menu_opened_by(self, go):
        """The menu that comes up, which belongs to no menu bar, when `go` has been called."""
        shown = []
        listener = Atspi.EventListener.new(lambda event: shown.append(event.source) if event.detail1 else None)
        listener.register("object:state-changed:showing")

        def menu():
            while GLib.MainContext.default().iteration(False):
                pass
            return next((source for source in shown if source.get_role_name() == "popup menu"), None)
        try:
            go()
            return Element(wait(menu, "a menu"), self)
        finally:
            listener.deregister("object:state-changed:showing")

    def take_picture(self, path):
        path.parent.mkdir(parents=True, exist_ok=True)
        self.ask("import", "-window", "root", str(path))

    def close(self):
        self._stack.close()


class Element:
    """Something that the accessibility bus tells of: a window, or a part of one that is used by its labels."""

    def __init__(self, accessible, desktop):
        self._accessible, self._desktop = accessible, desktop

    def __str__(self):
        return f'the {self.role} "{self.name}"'

    @property
    def role(self):
        return self._accessible.get_role_name()

    @property
    def name(self):
        return self._accessible.get_name()

    @property
    def description(self):
        return self._accessible.get_description()

    @property
    def key(self):
        """The shortcut of an entry of a menu, or else its access key."""
        return Atspi.Action.get_key_binding(self._accessible, 0)

    @property
    def text(self):
        return Atspi.Text.get_text(self._accessible, 0, Atspi.Text.get_character_count(self._accessible))

    @property
    def selection(self):
        """Start and end of the selected text."""
        chosen = Atspi.Text.get_selection(self._accessible, 0)
        return chosen.start_offset, chosen.end_offset

    def colour_at(self, offset):
        """The colour of a character as "rgb(r,g,b)"; None where it has the default one."""
        return Atspi.Text.get_attribute_run(self._accessible, offset, False)[0].get("fg-color")

    def has(self, state):
        return self._accessible.get_state_set().contains(getattr(Atspi.StateType, state))

    def is_showing(self):
        return self.has("SHOWING")

    def width_at(self, offset):
        """How wide a character is drawn."""
        return Atspi.Text.get_character_extents(self._accessible, offset, Atspi.CoordType.SCREEN).width

    def extents(self):
        box = Atspi.Component.get_extents(self._accessible, Atspi.CoordType.SCREEN)
        return (box.x, box.y, box.width, box.height) if box.width > 0 and box.height > 0 else None

    def children(self):
        found = (self._accessible.get_child_at_index(index) for index in range(self._accessible.get_child_count()))
        return [Element(child, self._desktop) for child in found if child]

    def everything(self):
        """What is shown in this, outermost first."""
        for child in self.children():
            if child.is_showing():
                yield child
                yield from child.everything()

    def look_for(self, role, name=None):
        """The first shown element of the role whose name begins so; None when there is none."""
        return next((found for found in self.everything()
                     if found.role == role and (name is None or found.name.startswith(name))), None)

    def find(self, role, name=None):
        return wait(lambda: self.look_for(role, name), f'a {role} "{name}" in {self}')

    def press(self, button):
        self._desktop.click(self.find("push button", button))

    def check(self, box):
        self._tick(self.find("check box", box))

    def choose(self, option):
        self._tick(self.find("radio button", option))

    def _tick(self, button):
        self._desktop.click(button)
        wait(lambda: button.has("CHECKED"), f"a tick at {button}")

    def fill(self, label, text):
        """Writes into the field that has the label, in place of what is there."""
        field = self.find("text", label)
        self._desktop.click(field)
        wait(lambda: field.has("FOCUSED"), f"the keyboard in {field}")
        self._desktop.keys("ctrl+a")
        self._desktop.type(text)
        wait_equal(lambda: field.text, text, f"the text of {field}")

    def wait_closed(self, what):
        def is_gone():
            try:
                return not self.is_showing()
            except GLib.Error:
                return True
        wait(is_gone, f"{what} to close")


class Editor:
    """The running program."""

    def __init__(self, desktop, program, environment, arguments):
        self.desktop = desktop
        self.process = subprocess.Popen([program, *map(str, arguments)], env=environment, cwd=environment["HOME"],
                                        stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.frame = None

    def windows(self):
        """Everything of the program that has a window of its own."""
        root = Atspi.get_desktop(0)
        for index in range(root.get_child_count()):
            program = root.get_child_at_index(index)
            if program and program.get_process_id() == self.process.pid:
                program.set_cache_mask(Atspi.Cache.NONE)
                found = (program.get_child_at_index(window) for window in range(program.get_child_count()))
                return [Element(window, self.desktop) for window in found if window]
        return []

    def look_for_window(self, role, name=""):
        return next((window for window in self.windows()
                     if window.role == role and window.name.startswith(name) and window.is_showing()), None)

    def wait_ready(self, title):
        """Waits until the frame is there and shows this document."""
        self.frame = wait(lambda: self.look_for_window("frame", "Quillmark"), "the editor's window")
        self.wait_title(title)
        self.wait_keyboard()

    def wait_keyboard(self):
        """Waits until what is typed goes into the text."""
        wait(lambda: self.frame.has("ACTIVE"), "the editor's window in front")
        wait(lambda: self.area() and self.area().has("FOCUSED"), "the keyboard in the text")

    def wait_title(self, title):
        wait_equal(lambda: self.frame.name, f"Quillmark - [{title}]", "the title")

    def area(self):
        """The text area of the document in front, which is the one that the title names; None without one."""
        title = self.frame.name
        inside = [child for child in self.frame.look_for("layered pane").children() if f"[{child.name}]" in title]
        return inside[-1].look_for("text", "Text") if inside else None

    @property
    def text(self):
        return self.area().text

    def wait_text(self, text):
        wait_equal(lambda: self.text, text, "the text")

    def wait_status(self, text):
        bar = self.frame.find("status bar")
        wait(lambda: bar.look_for("label", text) or bar.look_for("push button", text), f'"{text}" in the status bar')

    def dialog(self, title, saying=""):
        """The dialog of that title, with that text in it, once it is in front."""
        def is_meant(window):
            return (window.role in ("dialog", "alert") and window.name == title and window.has("ACTIVE")
                    and (not saying or any(saying in found.name for found in window.everything())))
        what = f'the dialog "{title}"' + (f' that says "{saying}"' if saying else "")
        return wait(lambda: next((window for window in self.windows() if is_meant(window)), None), what)

    def choose_file(self, title, path):
        """Writes the path into the file chooser of that title, and ends it."""
        self.dialog(title).fill("File name:", str(path))
        self.desktop.keys("Return")

    def help(self):
        """The window of the help, once it is in front."""
        def in_front():
            window = self.look_for_window("frame", "Quillmark – Quillmark Help")
            return window if window and window.has("ACTIVE") else None
        return wait(in_front, "the help in front")

    def choose(self, *entries):
        """Clicks through the menus, from the menu bar on."""
        place = self.frame.find("menu bar")
        for entry in entries:
            place = wait(lambda: self._entry(place, entry), f'"{entry}" in {place}')
            self.desktop.click(place)

    @staticmethod
    def _entry(place, name):
        """The entry in an open menu; a menu stands below the entry that opens it."""
        menus = [place, *(child for child in place.children() if child.role == "popup menu")]
        entries = (entry for menu in menus if menu.is_showing() for entry in menu.children())
        return next((entry for entry in entries if entry.name == name and entry.is_showing() and entry.extents()), None)

    def _list(self):
        window = self.look_for_window("filler", "Completion list")
        return [row for row in window.everything() if row.role == "list item"] if window else []

    def listed(self):
        """The words of the completion list that can be seen; none while it is closed."""
        return [row.name for row in self._list()]

    def listed_word(self):
        """The selected word of the completion list."""
        return next((row.name for row in self._list() if row.has("SELECTED")), None)

    def listed_row(self, word):
        return wait(lambda: next((row for row in self._list() if row.name == word), None), f'"{word}" in the list')

    def place(self, left, top, width, height):
        """Makes the window an ordinary one of that size there."""
        whole = self.size()
        # A double click on the title makes an ordinary window of one that fills the screen.
        self.desktop.ask("xdotool", "mousemove", str(whole[0] // 2), "8", "click", "--repeat", "2", "--delay", "60", "1")
        wait(lambda: self.size() != whole, "the window to become smaller")
        window = self.desktop.ask("xdotool", "getactivewindow").strip()
        self.desktop.ask("xdotool", "windowsize", window, str(width), str(height), "windowmove", window, str(left), str(top))
        wait_equal(self.size, (width, height), "the size of the window")

    def size(self):
        return self.frame.extents()[2:]

    def wait_end(self):
        wait(lambda: self.process.poll() is not None, "the program's end")

    def kill(self):
        self.process.kill()
        self.process.wait()


class Path(unittest.TestCase):
    """A path that a user walks, with a home folder of its own that is empty at first."""

    desktop = build = None

    def setUp(self):
        self.home = self.desktop.root / self._testMethodName
        self.home.mkdir()
        self._pictures = self.build / "desktop" / self._testMethodName
        shutil.rmtree(self._pictures, ignore_errors=True)
        self._steps = 0

    def start(self, *arguments, title=None):
        """Starts the editor; with a title waits until it shows that document."""
        runtime = self.home / "runtime"
        runtime.mkdir(mode=0o700, exist_ok=True)
        environment = {**os.environ, "HOME": str(self.home), "XDG_RUNTIME_DIR": str(runtime)}
        editor = Editor(self.desktop, str(self.build / "bin/quillmark"), environment, arguments)
        self.addCleanup(editor.kill)
        self.desktop.ask("xdotool", "mousemove", "1200", "700")  # off the tools, which describe themselves under it
        if title:
            editor.wait_ready(title)
        return editor

    def file(self, name, text):
        path = self.home / name
        path.write_bytes(text.encode())
        return path

    def wait_file(self, path, text):
        wait_equal(path.read_bytes, text.encode(), f"{path.name} on the disk")

    @contextlib.contextmanager
    def step(self, name):
        """One step: a picture of its end stays in the build folder, and its failure names it."""
        self._steps += 1
        picture = self._pictures / f"{self._steps:02} {name}.png"
        try:
            yield
        except AssertionError as error:
            raise AssertionError(f'step {self._steps}, "{name}": {error}; see {picture}') from None
        finally:
            self.desktop.take_picture(picture)


def main():
    """Runs the paths of the calling file: FILE.py BUILD [TEST…]."""
    Path.build = pathlib.Path(sys.argv[1]).resolve()
    try:
        Path.desktop = Desktop()
    except NoDisplay as error:
        print(f"SKIPPED: {error}")
        sys.exit(SKIPPED)
    try:
        result = unittest.main(module="__main__", argv=[sys.argv[0], *sys.argv[2:]], verbosity=2, exit=False).result
    finally:
        Path.desktop.close()
    sys.exit(0 if result.wasSuccessful() and result.testsRun > 0 else 1)
