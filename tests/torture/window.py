"""The program itself in a window of a display of its own, killed while it saves."""

import collections
import os
import pathlib
import shutil
import signal
import subprocess
import sys

from harness import Place, Skip, counted

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "desktop"))
import desktop  # noqa: E402

OLD = b"function first() {\r\n}\r\n"
CALLS = "openat,pwrite64,fsync,linkat,renameat2,unlink,fchmod,ftruncate"


def holds(condition, seconds):
    """Whether the condition comes to hold in that time."""
    try:
        return desktop.wait(condition, "a condition", seconds)
    except AssertionError:
        return False


def killed_at(run, display, place, number):
    """Types a key and kills at the call of that number after Ctrl+S; True when the program was killed."""
    editor = desktop.Editor(display, run.quillmark, os.environ, [place.path])
    editor.wait_ready(place.path.name)
    display.type("x")
    editor.wait_title(f"{place.path.name} *")
    tracer = subprocess.Popen(["strace", "-f", "-o", "/dev/null", "-e", f"trace={CALLS}", "-P", str(place.path), "-P",
                               str(place.folder), "-e", f"inject={CALLS}:signal=SIGKILL:when={number}", "-p",
                               str(editor.process.pid)], stderr=subprocess.PIPE, text=True)
    tracer.stderr.readline()  # attached
    display.keys("ctrl+s")
    holds(lambda: editor.process.poll() is not None or place.state() == "new", 3)
    holds(lambda: editor.process.poll() is not None, 0.3)
    was_killed = editor.process.poll() == -signal.SIGKILL
    editor.kill()
    tracer.wait()
    return was_killed


def kills(run, display):
    place, states, left, killed = Place(run, False, OLD, b"x" + OLD), collections.Counter(), 0, 0
    for number in range(1, 30):
        place.reset()
        was_killed = killed_at(run, display, place, number)
        killed += was_killed
        states[place.state()] += 1
        left += len(place.others())
        if not was_killed:
            break
    run.check(states["BROKEN"] == 0 and states["new"] > 0 and killed > 2, f"{killed} killed: {states}")
    run.say(f"the window killed at a call of its save: {killed} kills; came back: {counted(states)}; left beside: {left}")


def window(run):
    missing = [name for name in ("Xvfb", "openbox", "xdotool") if shutil.which(name) is None]
    if missing:
        raise Skip(f"not installed: {', '.join(missing)}")
    run.need_trace()
    try:
        display = desktop.Desktop()
    except (ImportError, desktop.NoDisplay) as error:
        raise Skip(f"no display: {error}") from None
    try:
        kills(run, display)
    finally:
        display.close()
