#!/usr/bin/env python3
"""Attacks the saving of files from outside and prints what was counted and what came back.

usage: torture.py [--short] [--bin FOLDER] [--seed NUMBER] [KIND…]

KIND is one of those below; without one all run. Ends with 1 when something was lost or not told, with 77 when nothing
failed but the machine did not permit a case, else with 0.
"""

import argparse
import pathlib
import subprocess
import sys
import time

import faults
import keeps
import kills
import others
import window
from harness import Run, Skip


KINDS = {"kills": kills.kills, "faults": faults.faults, "full": faults.full, "keeps": keeps.keeps, "others": others.others,
         "window": window.window}


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("--short", action="store_true")
    arguments.add_argument("--bin", type=pathlib.Path, default=pathlib.Path("build/bin"))
    arguments.add_argument("--seed", type=int, default=None)
    arguments.add_argument("kinds", nargs="*", choices=[*KINDS, []])
    options = arguments.parse_args()
    seed = options.seed if options.seed is not None else 1 if options.short else int(time.time())
    run = Run(options.bin.resolve(), options.short, seed)
    run.say(f"seed {seed}")
    try:
        for kind in options.kinds or KINDS:
            try:
                KINDS[kind](run)
            except Skip as reason:
                run.skip(f"{kind}: {reason}")
            except subprocess.TimeoutExpired as late:
                run.check(False, f"{kind}: hangs: {late}")
    finally:
        run.close()
    run.say(f"torture: {run.failures} failures, {run.skips} skipped")
    return 1 if run.failures else 77 if run.skips else 0


if __name__ == "__main__":
    sys.exit(main())
