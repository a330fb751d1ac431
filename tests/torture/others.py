"""Another program writes, replaces or removes the file between the last look of a save and its rename."""

import os
import time

from harness import Conversation, Place, strace

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


def content(place):
    return place.path.read_bytes() if place.path.exists() else None


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
    calls = run.calls_of_a_save(Place(run, in_place))
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
    calls = run.calls_of_a_save(place)
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
    run.need_trace()
    for in_place in (False, True):
        during_the_save(run, in_place)
    born_meanwhile(run)
