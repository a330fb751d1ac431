"""Killed at every system call of a save, and at random instants: the file is the old or the new one."""

import collections
import signal
import time

from harness import Conversation, Place, counted, strace


def at_every_call(run, in_place):
    place = Place(run, in_place)
    calls = run.calls_of_a_save(place)
    run.check(len(calls) > 10 and place.state() == "new", f"the save that is to be killed does not work: {place.state()}")
    states, left, killed = collections.Counter(), 0, 0
    for call in calls[::4] if run.short else calls:
        place.reset()
        result = run.save(place.path, place.text, strace(call, "signal=SIGKILL"))
        killed += "saved" not in result.lines
        state = place.state()
        states[state] += 1
        left += len(place.others())
        run.check(state != "BROKEN", f"killed at {call.name} number {call.ordinal}: {call.text}")
        if state == "old in the copy":
            told = run.play([f"open {place.path}"]).lines
            run.check(any("was broken off" in line for line in told), "a copy left behind is not told")
    run.check(killed > 0, "no save was killed")
    run.say(f"kill at every call, {place.kind()}: {len(calls)} calls in a save, {killed} saves killed; came back: "
            f"{counted(states)}; files left beside: {left}")


class Looping(Conversation):
    """A driver that saves one text and another by turns."""

    def __init__(self, run, place, first):
        super().__init__(run)
        self.send(f"loop {place.path} {place.text} {first}")

    def wait(self, word):
        """The time at which the driver has said this."""
        while self.process.stdout.readline().strip() not in (word, ""):
            pass
        return time.monotonic()

    def kill(self):
        """True when it was killed inside a save."""
        self.process.kill()
        lines = self.process.stdout.read().split()
        self.end()
        return not lines or lines[-1] == "begin"


def seconds_of_a_save(run, place, first):
    looping, times = Looping(run, place, first), []
    for _ in range(10):
        begin = looping.wait("begin")
        times.append(looping.wait("end") - begin)
    looping.kill()
    return sorted(times)[len(times) // 2]


def at_random(run, in_place, count):
    place = Place(run, in_place, old=b"A" * 300_000, new=b"B" * 700_000)
    first = run.folder() / "first.txt"
    first.write_bytes(place.old)
    states, left, inside = collections.Counter(), 0, 0
    reach = 1.1 * seconds_of_a_save(run, place, first)
    for number in range(count):
        place.reset()
        looping = Looping(run, place, first)
        for _ in range(run.random.randint(1, 3)):
            looping.wait("begin")
        time.sleep(run.random.uniform(0, reach))
        inside += looping.kill()
        run.check(looping.process.returncode == -signal.SIGKILL, "the driver ended by itself")
        state = place.state()
        if state == "BROKEN" and in_place:  # the file may have been the new one when its last save began
            state = "new in the copy" if any(entry.read_bytes() == place.new for entry in place.others()) else state
        states[state] += 1
        left += len(place.others())
        run.check(state != "BROKEN", f"kill number {number} of seed {run.seed}")
    run.check(inside > count / 4, f"only {inside} kills came inside a save")
    run.say(f"kill at a random instant, {place.kind()}: {count} kills, {inside} inside a save; came back: "
            f"{counted(states)}; files left beside: {left}")


def kills(run):
    at_random(run, False, 15 if run.short else 500)
    at_random(run, True, 10 if run.short else 500)
    run.need_trace()
    at_every_call(run, False)
    at_every_call(run, True)
