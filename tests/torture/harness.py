"""What every kind of torture shares: playing the save driver, tracing it, and counting what came back."""

import collections
import os
import pathlib
import random
import re
import shutil
import subprocess
import tempfile

BEGIN, END = "/quillmark-save-begins", "/quillmark-save-ends"
ORDINARY = 65534
Result = collections.namedtuple("Result", "status lines errors")
Call = collections.namedtuple("Call", "name ordinal text")


class Skip(Exception):
    """The machine does not permit a case."""


class Run:
    """One run: where the programs are, how much is asked for, and what has been found."""

    def __init__(self, bin_folder, short, seed):
        self.driver = str(bin_folder / "save_driver")
        self.short, self.seed = short, seed
        self.random = random.Random(seed)
        self.failures, self.skips = 0, 0
        self.quillmark = str(bin_folder / "quillmark")
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="quillmark-torture."))
        os.chmod(self.root, 0o755)
        os.environ["XDG_STATE_HOME"] = str(self.root / "state")
        self._folders = 0

    def close(self):
        shutil.rmtree(self.root, ignore_errors=True)

    def say(self, text):
        print(text, flush=True)

    def check(self, is_right, text):
        """Counts and prints a failure."""
        if not is_right:
            self.failures += 1
            self.say(f"  FAILED: {text}")
        return is_right

    def skip(self, text):
        self.skips += 1
        self.say(f"*** SKIPPED: {text}")

    def folder(self, under=None):
        """A new empty folder."""
        self._folders += 1
        made = (under or self.root) / f"case{self._folders}"
        made.mkdir()
        return made

    def play(self, lines, prefix=(), timeout=60):
        """Plays the lines to the driver and waits for its end."""
        done = subprocess.run([*prefix, self.driver], input="".join(f"{line}\n" for line in lines).encode(),
                              capture_output=True, timeout=timeout, check=False)
        return Result(done.returncode, done.stdout.decode(errors="replace").splitlines(), done.stderr.decode())

    def save(self, path, text, prefix=(), answers=""):
        """Opens `path`, replaces its text by that of `text`, and saves."""
        lines = [f"open {path}", f"text {text}"] + ([f"answers {answers}"] if answers else []) + [f"save {path}"]
        return self.play(lines, prefix)

    def need_trace(self):
        """Skips where system calls cannot be interfered with."""
        if shutil.which("strace") is None:
            raise Skip("strace is not installed")
        if subprocess.run(["strace", "-o", "/dev/null", "true"], capture_output=True, check=False).returncode != 0:
            raise Skip("strace may not trace here (no ptrace)")

    def need_root(self, what):
        if os.geteuid() != 0:
            raise Skip(f"{what} needs the administrator")

    def calls_of_a_save(self, place):
        """Every system call of one save, with its ordinal among the process's calls of that name."""
        log = self.root / "trace"
        self.save(place.path, place.text, ["strace", "-o", str(log)])
        seen, calls, inside = collections.Counter(), [], False
        for line in log.read_text(errors="replace").splitlines():
            match = re.match(r"(\w+)\(", line)
            if not match:
                continue
            name = match.group(1)
            seen[name] += 1
            if END in line:
                break
            if inside:
                calls.append(Call(name, seen[name], line))
            inside = inside or BEGIN in line
        return calls


def strace(call, action, count=""):
    """A prefix that runs a program and does something to one of its calls (with "+", to all from there on)."""
    return ["strace", "-o", "/dev/null", "-e", f"trace={call.name}",
            "-e", f"inject={call.name}:{action}:when={call.ordinal}{count}"]


def as_user():
    return ["setpriv", f"--reuid={ORDINARY}", f"--regid={ORDINARY}", "--clear-groups", "--inh-caps=-all", "--bounding-set=-all"]


class Conversation:
    """A driver that is spoken to line by line."""

    def __init__(self, run, prefix=()):
        self.process = subprocess.Popen([*prefix, run.driver], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def send(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()

    def answer(self):
        """The questions up to the answer, and the answer."""
        asked = []
        while True:
            line = self.process.stdout.readline().rstrip("\n")
            if not line.startswith("asked "):
                return asked, line
            asked.append(line)

    def say(self, line):
        self.send(line)
        return self.answer()

    def end(self):
        self.process.stdin.close()
        self.process.wait(timeout=30)
        self.process.stdout.close()


class Place:
    """A folder with a file that is saved again and again: by a rename, or in place because of a second link."""

    def __init__(self, run, in_place, old=b"old line\n" * 900, new=b"the new line\n" * 1100, under=None):
        self.folder = run.folder(under)
        self.path = self.folder / "script.txt"
        self.text = run.folder() / "new.txt"
        self.in_place, self.old, self.new = in_place, old, new
        self.text.write_bytes(new)
        self.reset()

    def reset(self):
        for entry in self.folder.iterdir():
            entry.unlink()
        self.path.write_bytes(self.old)
        if self.in_place:
            os.link(self.path, self.folder / "second-link")

    def others(self):
        """What stands beside the file and its second link."""
        return [entry for entry in self.folder.iterdir() if entry.name not in ("script.txt", "second-link")]

    def state(self):
        """"old", "new", "old in the copy" while a save in place is under way, or "BROKEN"."""
        held = self.path.read_bytes() if self.path.exists() else None
        if held == self.old:
            return "old"
        if held == self.new:
            return "new"
        copies = [entry for entry in self.others() if ".quillmark-backup" in entry.name]
        if self.in_place and any(entry.read_bytes() == self.old for entry in copies):
            return "old in the copy"
        return "BROKEN"

    def kind(self):
        return "in place" if self.in_place else "by rename"


def counted(counter):
    return ", ".join(f"{name} {number}" for name, number in sorted(counter.items()))
