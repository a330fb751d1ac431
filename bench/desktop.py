"""A display of its own for measurements, and the stop-watch that looks at it from outside (bench_screen)."""

import contextlib
import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import time

SIZE = "1280x900x24"
# The same window for the peer as Quillmark's own, and no looking for another instance.
SCITE_SETTINGS = "position.width=1000\nposition.height=720\ncheck.if.already.open=0\n"


class Display:
    """An X server with a window manager and a home folder where nobody has settings."""

    def __init__(self, stopwatch, templates, home, number):
        self.stopwatch, self.state = stopwatch, f"{home}/state"
        self.environment = {
            **os.environ, "DISPLAY": f":{number}", "HOME": home, "XDG_DATA_HOME": f"{home}/data", "XDG_CONFIG_HOME": f"{home}/config",
            "XDG_STATE_HOME": self.state, "XDG_RUNTIME_DIR": home, "QT_QPA_PLATFORM": "xcb", "QUILLMARK_HOME": str(templates),
            "LC_ALL": "C.UTF-8",
            "NO_AT_BRIDGE": "1",  # without a session bus the peer would wait for it
        }

    def _measure(self, *arguments):
        shutil.rmtree(self.state, ignore_errors=True)  # nobody is asked about the text of the run before, which was killed
        run = subprocess.run([self.stopwatch, *map(str, arguments)], env=self.environment, stdout=subprocess.PIPE,
                             stderr=subprocess.PIPE, text=True, check=False, timeout=600)
        if run.returncode != 0:
            raise RuntimeError(f"{' '.join(map(str, arguments))}: {run.stderr.strip()[-300:]}")
        return json.loads(run.stdout)

    def start(self, command):
        """Milliseconds to "text" and "coloured" on the screen, and the program's memory then: "rss" and "peak" in bytes."""
        return self._measure("start", *command)

    def keys(self, count, place, command):
        """Milliseconds from each key to its pixels. The place is "end" or "here"."""
        return self._measure("keys", count, place, *command)["samples"]


@contextlib.contextmanager
def display(stopwatch, templates):
    with tempfile.TemporaryDirectory() as home, contextlib.ExitStack() as stack:
        os.chmod(home, 0o700)
        pathlib.Path(home, ".SciTEUser.properties").write_text(SCITE_SETTINGS, encoding="utf-8")
        reader, writer = os.pipe()

        def start(command, **options):
            process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)
            stack.callback(process.wait)
            stack.callback(process.kill)

        start(["Xvfb", "-displayfd", str(writer), "-screen", "0", SIZE, "-wr", "-nolisten", "tcp"], pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as told:
            number = told.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        here = Display(stopwatch, templates, home, number)
        start(["openbox"], env=here.environment)
        for _ in range(100):  # a window that is mapped earlier may be overlooked
            told = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=here.environment, capture_output=True,
                                  text=True, check=False).stdout
            if "window id" in told:
                break
            time.sleep(0.1)
        else:
            raise RuntimeError("the window manager did not start")
        yield here
