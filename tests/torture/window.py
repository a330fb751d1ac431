"""The program itself in a window of a display of its own: killed while it saves, and its file changed by others."""

import collections
import os
import shutil
import signal
import subprocess
import time

from harness import Skip, counted

OLD, TYPED = b"function first() {\r\n}\r\n", b"x"
NEW = TYPED + OLD
CALLS = "openat,pwrite64,fsync,linkat,renameat2,unlink,fchmod,ftruncate"


class Display:
    """A display with a window manager."""

    def __init__(self, run):
        reader, writer = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-screen", "0", "1000x800x24", "-nolisten",
                                        "tcp"], pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as number:
            self.environment = {**os.environ, "DISPLAY": f":{number.readline().strip()}", "QT_QPA_PLATFORM": "xcb",
                                "HOME": str(run.root), "XDG_RUNTIME_DIR": str(run.root),
                                "XDG_CONFIG_HOME": str(run.root / "config"), "XDG_DATA_HOME": str(run.root / "data")}
        self.manager = subprocess.Popen(["openbox"], env=self.environment, stderr=subprocess.DEVNULL)
        self.wait(lambda: "window id" in self.ask("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))

    def ask(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True, check=False).stdout

    @staticmethod
    def wait(condition, seconds=20.0):
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            if condition():
                return True
            time.sleep(0.03)
        return False

    def windows(self, name):
        return self.ask("xdotool", "search", "--onlyvisible", "--name", name).split()

    def keys(self, *keys):
        self.ask("xdotool", "key", "--delay", "20", *keys)

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


class Editor:
    """Quillmark with one file, ready for keys."""

    def __init__(self, run, display, path):
        self.display, self.path = display, path
        self.process = subprocess.Popen([run.quillmark, str(path)], env=display.environment, stderr=subprocess.DEVNULL)
        self.is_ready = display.wait(lambda: path.name in " ".join(self.titles()))
        time.sleep(0.2)

    def titles(self):
        return [self.display.ask("xdotool", "getwindowname", window) for window in self.display.windows("Quillmark")]

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()


def killed_at(run, display, path, number):
    """Kills at the call of that number after Ctrl+S; True when the program was killed."""
    path.write_bytes(OLD)
    editor = Editor(run, display, path)
    run.check(editor.is_ready, "the window does not come up")
    display.keys("x")
    time.sleep(0.2)
    tracer = subprocess.Popen(["strace", "-f", "-o", "/dev/null", "-e", f"trace={CALLS}", "-P", str(path), "-P",
                               str(path.parent), "-e", f"inject={CALLS}:signal=SIGKILL:when={number}", "-p",
                               str(editor.process.pid)], stderr=subprocess.PIPE, text=True)
    tracer.stderr.readline()  # attached
    display.keys("ctrl+s")
    Display.wait(lambda: editor.process.poll() is not None or path.read_bytes() == NEW, 3)
    Display.wait(lambda: editor.process.poll() is not None, 0.3)
    was_killed = editor.process.poll() == -signal.SIGKILL
    editor.close()
    tracer.wait()
    return was_killed


def kills(run, display):
    folder, states, left, killed = run.folder(), collections.Counter(), 0, 0
    path = folder / "script.js"
    for number in range(1, 30):
        was_killed = killed_at(run, display, path, number)
        states[{OLD: "old", NEW: "new"}.get(path.read_bytes(), "BROKEN")] += 1
        killed += was_killed
        left += len(os.listdir(folder)) - 1
        for entry in folder.iterdir():
            if entry != path:
                entry.unlink()
        if not was_killed:
            break
    run.check(states["BROKEN"] == 0 and states["new"] > 0 and killed > 2, f"{killed} killed: {states}")
    run.say(f"the window killed at a call of its save: {killed} kills; came back: {counted(states)}; left beside: {left}")


def changed(run, display):
    """Changed by others: asked before saving, kept on No."""
    path = run.folder() / "script.js"
    path.write_bytes(OLD)
    editor = Editor(run, display, path)
    display.keys("x")
    path.write_bytes(b"theirs\n")
    display.keys("ctrl+s")
    is_asked = display.wait(lambda: len(display.windows("^Quillmark$")) > 0, 5)
    display.keys("Return")  # the default answer is No
    time.sleep(0.3)
    run.check(is_asked and path.read_bytes() == b"theirs\n", f"asked: {is_asked}, {path.read_bytes()}")
    display.wait(lambda: len(display.windows("^Quillmark$")) == 0, 5)
    display.keys("ctrl+s")
    display.wait(lambda: len(display.windows("^Quillmark$")) > 0, 5)
    display.keys("alt+y")
    run.check(display.wait(lambda: path.read_bytes() == NEW, 5), f"Yes does not save: {path.read_bytes()}")
    editor.close()
    run.say("the window's file changed by others: asked before saving; No keeps it, Yes overwrites it")


def window(run):
    missing = [name for name in ("Xvfb", "openbox", "xdotool", "xprop") if shutil.which(name) is None]
    if missing:
        raise Skip(f"not installed: {', '.join(missing)}")
    display = Display(run)
    try:
        changed(run, display)
        run.need_trace()
        kills(run, display)
    finally:
        display.close()
