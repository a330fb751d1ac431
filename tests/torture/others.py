"""Another program writes, replaces or removes the file: while it is open, and between the last look and the rename."""

import os
import subprocess
import time

from harness import Place, strace

THEIRS = b"their line\n" * 800


def append(place):
    with open(place.path, "ab") as file:
        file.write(THEIRS)


def same_size(place):
    """Other bytes, of the same number and with the same time of modification."""
    times = os.stat(place.path)
    with open(place.path, "r+b") as file:
        file.write(b"X")
    os.utime(place.path, ns=(times.st_atime_ns, times.st_mtime_ns))


def replace(place):
    other = place.text.parent / "theirs"
    other.write_bytes(THEIRS)
    os.rename(other, place.path)


def remove(place):
    place.path.unlink()


def touch(place):
    os.utime(place.path)


CHANGES = {"appended": append, "same size and time": same_size, "replaced": replace, "deleted": remove, "touched": touch}


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


def content(place):
    return place.path.read_bytes() if place.path.exists() else None


def while_open(run, in_place):
    count = 0
    for name, change in CHANGES.items():
        for answer in "NY":
            place = Place(run, in_place)
            talk = Conversation(run)
            talk.say(f"open {place.path}")
            change(place)
            theirs = content(place)
            asks = 0 if name == "touched" else 1
            asked, _ = talk.say("look")  # without an answer: no
            run.check(len(asked) == asks, f"{name}, on activation: {asked}")
            run.check(talk.say("look")[0] == [], f"{name}: asked again about the same state")
            talk.say(f"text {place.text}")
            talk.say(f"answers {answer}")
            asked, ended = talk.say(f"save {place.path}")
            knows = name in ("touched", "deleted")  # a file that is gone was asked about already
            run.check(len(asked) == (0 if knows else 1), f"{name}, before saving: {asked}")
            should_save = answer == "Y" or knows
            run.check(ended == ("saved" if should_save else "failed"), f"{name}, answered {answer}: {ended}")
            run.check(content(place) == (place.new if should_save else theirs), f"{name}, answered {answer}: the file differs")
            talk.end()
            run.check(not place.others(), f"{name}: left beside: {place.others()}")
            count += 1
    run.say(f"changed by others while open, {place.kind()}: {count} cases, asked about once each")


def reload(run):
    count = 0
    for name in ("appended", "same size and time", "replaced"):
        place = Place(run, False)
        kept = place.text.parent / "kept"
        talk = Conversation(run)
        talk.say(f"open {place.path}")
        talk.say(f"text {place.text}")  # a change of the user's own
        CHANGES[name](place)
        talk.say("answers Y")
        asked, _ = talk.say("look")
        talk.say(f"keep {kept}")
        run.check(len(asked) == 1 and kept.read_bytes() == content(place), f"reloading what was {name}: {asked}")
        talk.say("undo")
        talk.say(f"keep {kept}")
        run.check(kept.read_bytes() in (place.new, place.old), f"undo after reloading what was {name}")
        talk.end()
        count += 1
    run.say(f"reloaded and taken back by undo: {count} cases")


def interfere(run, place, call, change, answer):
    """Changes the file while the save is held up before `call`; gives the questions, the end, and their contents."""
    talk = Conversation(run, strace(call, "delay_enter=700000"))
    talk.say(f"open {place.path}")
    talk.say(f"text {place.text}")
    talk.say(f"answers {answer}")
    talk.send(f"save {place.path}")
    deadline = time.monotonic() + 10
    while not place.others() and time.monotonic() < deadline:
        time.sleep(0.005)
    run.check(place.others(), "the save was not caught")
    change(place)
    theirs = content(place)
    asked, ended = talk.answer()
    talk.end()
    return asked, ended, theirs


def during_the_save(run, in_place):
    count = 0
    calls = run.calls_of_a_save(*(lambda place: (place.path, place.text))(Place(run, in_place)))
    # The new file has its name before the rename; the copy stands before it is synced.
    held = next(call for call in calls if call.name == ("fsync" if in_place else "renameat2"))
    names = ["appended", "replaced"] if run.short else list(CHANGES)
    for name in names:
        for answer in "NY":
            place = Place(run, in_place)
            asked, ended, theirs = interfere(run, place, held, CHANGES[name], answer)
            asks = name != "touched"
            run.check(len(asked) == asks, f"{name} during a save: {asked}")
            should_save = answer == "Y" or not asks
            run.check(ended == ("saved" if should_save else "failed"), f"{name} during a save, answered {answer}: {ended}")
            run.check(content(place) == (place.new if should_save else theirs),
                      f"{name} during a save, answered {answer}: the file differs")
            run.check(not place.others(), f"{name} during a save: left beside: {place.others()}")
            count += 1
    run.say(f"changed by others between the last look and the {'first byte' if in_place else 'rename'}: {count} cases, "
            "every one noticed")


def born_meanwhile(run):
    """A file that appears under the name of a new one."""
    place = Place(run, False)
    place.path.unlink()
    calls = run.calls_of_a_save(place.path, place.text)
    place.path.unlink()
    held = next(call for call in calls if call.name == "linkat")
    talk = Conversation(run, strace(held, "delay_enter=700000"))
    talk.say(f"text {place.text}")
    talk.send(f"save {place.path}")
    time.sleep(0.35)
    place.path.write_bytes(THEIRS)
    asked, ended = talk.answer()
    talk.end()
    run.check(len(asked) == 1 and ended == "failed" and content(place) == THEIRS, f"born meanwhile: {asked}, {ended}")
    run.say("a file that appears where a new one is being saved: asked about, kept")


def others(run):
    for in_place in (False, True):
        while_open(run, in_place)
    reload(run)
    run.need_trace()
    for in_place in (False, True):
        during_the_save(run, in_place)
    born_meanwhile(run)
