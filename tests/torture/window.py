"""The program itself in a window of a display of its own: killed while it saves, and its file changed by others."""

import collections
import os
import pathlib
import shutil
import signal
import subprocess
import sys

from harness import Skip, counted

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "desktop"))
import desktop  # noqa: E402

OLD, TYPED = b"function first() {\r\n}\r\n", b"x"
NEW = TYPED + OLD
CALLS = "openat,pwrite64,fsync,linkat,renameat2,unlink,fchmod,ftruncate"


def typed_into(run, display, path):
    """The editor with the file, in which a key has been pressed."""
    path.write_bytes(OLD)
    editor = desktop.Editor(display, run.quillmark, os.environ, [path])
    editor.wait_ready(path.name)
    display.type(TYPED.decode())
    editor.wait_title(f"{path.name} *")
    return editor


def holds(condition, seconds):
    """Whether the condition comes to hold in that time."""
    try:
        return desktop.wait(condition, "a condition", seconds)
    except AssertionError:
        return False


def killed_at(run, display, path, number):
    """Kills at the call of that number after Ctrl+S; True when the program was killed."""
    editor = typed_into(run, display, path)
    tracer = subprocess.Popen(["strace", "-f", "-o", "/dev/null", "-e", f"trace={CALLS}", "-P", str(path), "-P",
                               str(path.parent), "-e", f"inject={CALLS}:signal=SIGKILL:when={number}", "-p",
                               str(editor.process.pid)], stderr=subprocess.PIPE, text=True)
    tracer.stderr.readline()  # attached
    display.keys("ctrl+s")
    holds(lambda: editor.process.poll() is not None or path.read_bytes() == NEW, 3)
    holds(lambda: editor.process.poll() is not None, 0.3)
    was_killed = editor.process.poll() == -signal.SIGKILL
    editor.kill()
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
    editor = typed_into(run, display, path)
    path.write_bytes(b"theirs\n")
    display.keys("ctrl+s")
    question = editor.dialog("Quillmark", saying="has been changed by another program")
    display.keys("Return")  # the default answer is No
    question.wait_closed("the question")
    run.check(path.read_bytes() == b"theirs\n", f"No has changed the file: {path.read_bytes()}")
    editor.wait_keyboard()
    display.keys("ctrl+s")
    editor.dialog("Quillmark", saying="has been changed by another program")
    display.keys("alt+y")
    run.check(holds(lambda: path.read_bytes() == NEW, 5), f"Yes does not save: {path.read_bytes()}")
    editor.kill()
    run.say("the window's file changed by others: asked before saving; No keeps it, Yes overwrites it")


def window(run):
    missing = [name for name in ("Xvfb", "openbox", "xdotool") if shutil.which(name) is None]
    if missing:
        raise Skip(f"not installed: {', '.join(missing)}")
    try:
        display = desktop.Desktop()
    except (ImportError, desktop.NoDisplay) as error:
        raise Skip(f"no display: {error}") from None
    try:
        changed(run, display)
        run.need_trace()
        kills(run, display)
    finally:
        display.close()
