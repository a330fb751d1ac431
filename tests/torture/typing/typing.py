#!/usr/bin/env python3
"""Kills the editor while somebody types, starts it again, and measures what is lost.

typing.py --bin FOLDER [--kills N] [--large N]

Kills N documents of several kinds (untitled, CR LF, Latin-1, LF) and as many of 100 MB as --large says, each at a random
moment. What comes back must be a text that was there, and every key pressed more than two seconds before the kill must
be in it; the restored window must be unsaved and its new journal must be there. Nothing comes back where undo had just
brought back the text of the file.
"""

import argparse
import concurrent.futures
import os
import pathlib
import random
import signal
import subprocess
import sys
import tempfile
import time

MOST_LOST = 2.0  # seconds
LARGE = 100 * 1000 * 1000
LINES = "".join(f"var line{number} = 'text {number}'; // note\n" for number in range(40))
TEXTS = {"crlf": LINES.replace("\n", "\r\n").encode(), "latin1": LINES.replace("text", "t\xe9xt").encode("latin-1"),
         "lf": LINES.encode()}


def large_file(folder: pathlib.Path) -> pathlib.Path:
    path = folder / "large.txt"
    block = b"".join(b"a line of a large file, number %09d\r\n" % number for number in range(25000))
    path.write_bytes(block * (LARGE // len(block) + 1))
    return path


def document(kind: str, folder: pathlib.Path, large: pathlib.Path | None) -> str:
    if kind not in TEXTS:
        return "-" if kind == "untitled" else str(large)
    path = folder / f"{kind}.js"
    path.write_bytes(TEXTS[kind])
    return str(path)


def kill_once(driver: str, kind: str, seed: int, large: pathlib.Path | None) -> tuple[float, int]:
    """The milliseconds lost and the keys pressed; raises where something is wrong."""
    dice = random.Random(seed)
    with tempfile.TemporaryDirectory(prefix="quillmark-typing.") as name:
        folder = pathlib.Path(name)
        state, log = folder / "state", folder / "log"
        path = document(kind, folder, large)
        pause = 300 if kind == "large" else 25
        typist = subprocess.Popen([driver, "type", state, path, str(seed), str(pause), log], stdout=subprocess.PIPE, text=True)
        while typist.stdout.readline().strip() != "ready":
            if typist.poll() is not None:
                raise AssertionError("the program did not start")
        time.sleep(dice.uniform(0.2, 8 if kind == "large" else 5))
        killed = time.monotonic()
        typist.send_signal(signal.SIGKILL)
        typist.wait()
        lines = [line.split() for line in log.read_text().splitlines()] if log.exists() else []
        return (lost(driver, state, path, lines, killed), sum(line[1] == "done" for line in lines))


def lost_since(same: list[int], states: list[list[str]], killed: float) -> float:
    """The milliseconds from the first state behind the last that came back, of which there may be none."""
    later = states[same[-1] + 1:] if same else states
    return max(0.0, killed * 1000 - int(later[0][0])) if later else 0.0


def lost(driver: str, state: pathlib.Path, path: str, log: list[list[str]], killed: float) -> float:
    run = subprocess.run([driver, "restore", state], capture_output=True, text=True, check=True)
    lines = run.stdout.splitlines()
    restored = [line.split() for line in lines if line.startswith("restored ")]
    texts = [line for line in log if len(line) == 3]
    states = [text for number, text in enumerate(texts) if number == 0 or text[1:] != texts[number - 1][1:]]
    if not restored:
        file = states[0][1:] if states and path != "-" else None  # the first state is the file's
        return lost_since([number for number, known in enumerate(states) if known[1:] == file], states, killed)
    _, where, saved, _, *fingerprint = restored[0]
    asked = [line for line in lines if line.startswith("asked ")]
    if len(restored) != 1 or where != path or saved != "0" or len(asked) != 1:
        raise AssertionError(f"restored wrongly: {lines}")
    if ('"Untitled"' if path == "-" else f'"{path}"') not in asked[0]:
        raise AssertionError(f"the question names no file: {asked}")
    if len(list(state.glob("*.journal"))) != 1:
        raise AssertionError(f"{len(list(state.iterdir()))} journals after restoring")
    same = [number for number, known in enumerate(states) if known[1:] == fingerprint]
    if not same and log and log[-1][1] != "done":
        return 0.0  # killed within a key, after the text had changed and before that was in the log
    if not same:
        raise AssertionError(f"what came back was never there: {fingerprint}, log {log[-3:]}")
    return lost_since(same, states, killed)


def torture(driver: str, kills: int, larges: int) -> int:
    kinds = ["untitled", *TEXTS]
    seed = int.from_bytes(os.urandom(3), "little")
    print(f"seed {seed}")
    failures, losses, keys = 0, [], 0
    with tempfile.TemporaryDirectory(prefix="quillmark-large.") as name:
        large = large_file(pathlib.Path(name)) if larges else None
        cases = [(kinds[number % 4], seed + number) for number in range(kills)]
        cases += [("large", seed + kills + number) for number in range(larges)]
        with concurrent.futures.ThreadPoolExecutor(2) as pool:
            runs = {pool.submit(kill_once, driver, kind, number, large): (kind, number) for kind, number in cases}
            for run in concurrent.futures.as_completed(runs):
                try:
                    milliseconds, pressed = run.result()
                except (AssertionError, subprocess.CalledProcessError, OSError) as error:
                    failures += 1
                    print(f"{runs[run]}: {error}")
                    continue
                losses.append(milliseconds)
                keys += pressed
                if milliseconds > 1000 * MOST_LOST:
                    failures += 1
                    print(f"{runs[run]}: {milliseconds:.0f} ms of typing were lost")
    if losses:
        losses.sort()
        print(f"{kills + larges} kills ({larges} in 100 MB), {keys} keys, {failures} failures; lost: median "
              f"{losses[len(losses) // 2]:.0f} ms, worst {losses[-1]:.0f} ms")
    return 1 if failures or not keys else 0


def main() -> int:
    parser = argparse.ArgumentParser()
    parser.add_argument("--bin", required=True)
    parser.add_argument("--kills", type=int, default=100)
    parser.add_argument("--large", type=int, default=10)
    arguments = parser.parse_args()
    return torture(f"{arguments.bin}/typing_driver", arguments.kills, arguments.large)


if __name__ == "__main__":
    sys.exit(main())
