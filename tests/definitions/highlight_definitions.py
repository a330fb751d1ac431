#!/usr/bin/env python3
"""Makes a template of every definition of the program highlight, and colours a sample with it.

What the definitions say comes from the real Lua (highlight.lua), so that the program's own reader is compared with it.
Marks that are patterns are looked at where a few characters taken away leave a literal.
"""

import pathlib
import re
import subprocess
import sys

import colours

FOLDER = pathlib.Path("/usr/share/highlight/langDefs")
HERE = pathlib.Path(__file__).resolve().parent


def literals(pattern):
    """The alternatives of a pattern that are literals but for backslashes."""
    found = []
    for one in re.split(r"(?<!\\)\|", pattern.strip()):
        if re.fullmatch(r"(?:\\[^A-Za-z0-9]|[^\\.*+?()\[\]{}|^$\s])+", one):
            found.append(re.sub(r"\\(.)", r"\1", one))
    return found


def facts_of(file):
    output = subprocess.run(["lua5.4", HERE / "highlight.lua", FOLDER, file.name], capture_output=True, check=True)
    try:
        text = output.stdout.decode()
    except UnicodeDecodeError:
        text = output.stdout.decode("cp1252")
    records = [line.split("\t", 1 if line.startswith("word") else -1) for line in text.splitlines()]
    words = [record[1] for record in records if record[0] == "word"]
    comments, texts = [], []
    for record in records:
        if record[0] == "comment":
            ends = literals(record[2]) if record[2] else [""]
            comments += [(start, ends[0]) for start in literals(record[1]) if ends]
        elif record[0] == "string":
            texts += [(quote, quote) for quote in literals(record[1])]
    starts = [start for start, _ in comments]
    texts = [pair for pair in texts if pair[0] not in starts]
    # Twins in letter case are one key of a template.
    comments = list({start.lower(): (start, end) for start, end in reversed(comments)}.values())
    return colours.Facts([word.strip() for word in words], comments, texts)


def main():
    run = colours.Run(sys.argv[1])
    for file in sorted(FOLDER.glob("*.lang")):
        if run.make(file) is not None:
            run.examine(file.name, facts_of(file))
    return run.ends({"definitions": 215, "with words": 190, "with comments": 180, "with strings": 190, "words": 40000})


if __name__ == "__main__":
    sys.exit(main())
