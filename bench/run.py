#!/usr/bin/env python3
"""Measures Quillmark beside its peers: run.py [GROUP…].

Without arguments every group is measured and bench/RESULTS.md is written; with names only those groups are, and
nothing is written. The groups:

  pass       the colouring pass alone
  document   whole documents in the real text control, beside the editing component's own JavaScript lexer
  rtf        a coloured text to RTF and back
  growth     time per byte from 1 to 100 MB: the pass, documents, the whole process
  batch      quillmark-colour as a whole process, beside other programs
  start      quillmark-colour on 1 KB
  keys       keys in the whole editor, in process: from a key's event to painted, in texts from 1 KB to 100 MB
  screen     the editor beside SciTE on an X display, looked at from outside: start, opening 100 MB, keys, memory

Each number is the median of several runs; what is compared runs in turns. A megabyte is 10^6 bytes. The programs are
those in build/bin, or in $QUILLMARK_BUILD_DIR/bin. Ends with 1 when a budget is missed or something did not run.
"""

import datetime
import json
import os
import pathlib
import platform
import shutil
import statistics
import subprocess
import sys
import tarfile
import time

import desktop

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = pathlib.Path(os.environ.get("QUILLMARK_BUILD_DIR", ROOT / "build"))
DATA = BUILD / "bench-data"
SCRIPT = DATA / "typescript.js"
PACKAGE = "typescript@5.4.5"
COLOURER = BUILD / "bin" / "quillmark-colour"
EDITOR = BUILD / "bin" / "quillmark"
MB = 1_000_000

# A peer that would need longer than this for the whole script gets the start of it.
LONGEST_RUN = 60.0
SMALLER_INPUT = MB


class Row:
    """One line of the table. `value` is what the budget speaks about; `at_most` or `at_least` is the budget."""

    def __init__(self, what, ours, peer, value, unit="", at_most=None, at_least=None, remark=""):
        self.what, self.ours, self.peer, self.value, self.unit = what, ours, peer, value, unit
        self.at_most, self.at_least, self.remark = at_most, at_least, remark

    def missed(self):
        return (self.at_most is not None and self.value > self.at_most) or (
            self.at_least is not None and self.value < self.at_least)

    def budget(self):
        if self.at_most is not None:
            return f"at most {self.at_most:g}{self.unit}"
        return f"at least {self.at_least:g}{self.unit}" if self.at_least is not None else "–"

    def verdict(self):
        if self.budget() == "–":
            return ""
        return "**MISSED**" if self.missed() else "ok"

    def cells(self):
        value = "–" if self.value is None else f"{self.value:.3g}{self.unit}" if self.value < 100 else f"{self.value:.0f}{self.unit}"
        return [self.what, self.ours, self.peer, value, self.budget(), self.verdict(), self.remark]


def seconds(value):
    if value >= 1:
        return f"{value:.2f} s"
    return f"{value * 1000:.1f} ms" if value < 0.1 else f"{value * 1000:.0f} ms"


def rate(text_bytes, value):
    return text_bytes / value / MB


# The input.

def fetch_script():
    if SCRIPT.exists():
        return
    DATA.mkdir(parents=True, exist_ok=True)
    print(f"Fetching {PACKAGE} …", file=sys.stderr)
    packed = subprocess.run(["npm", "pack", "--silent", PACKAGE], cwd=DATA, check=True, capture_output=True, text=True)
    archive = DATA / packed.stdout.split()[-1]
    with tarfile.open(archive) as package:
        content = package.extractfile("package/lib/typescript.js").read()
    part = SCRIPT.with_suffix(".part")
    part.write_bytes(content)
    part.rename(SCRIPT)
    archive.unlink()


def script_of_size(size, one_line=False):
    """The script repeated (or cut) to about `size` bytes, at the end of a line; made once."""
    path = DATA / f"{'line' if one_line else 'script'}-{size}.js"
    if not path.exists():
        script = SCRIPT.read_bytes()
        text = script * (size // len(script) + 2)
        text = text[:text.index(b"\n", size - 1) + 1]
        if one_line:  # nothing may open a comment that would run to the end of the only line
            text = text.replace(b"\n", b" ").replace(b"\r", b" ").replace(b"//", b";;").replace(b"#!", b";;")
        path.write_bytes(text)
    return path


# Programs in process.

def run_benchmarks(program, pattern, repetitions, least_seconds=0.1):
    """The medians by benchmark: (seconds, counters). The repetitions of all benchmarks are mixed with each other."""
    command = [str(BUILD / "bin" / program), f"--benchmark_filter={pattern}", f"--benchmark_repetitions={repetitions}",
               f"--benchmark_min_time={least_seconds}", "--benchmark_enable_random_interleaving=true",
               "--benchmark_format=json", str(SCRIPT)]
    run = subprocess.run(command, check=True, capture_output=True, text=True)
    samples, last = {}, {}
    for record in json.loads(run.stdout)["benchmarks"]:
        if record.get("error_occurred"):
            raise RuntimeError(f"{record['name']}: {record['error_message']}")
        if record["run_type"] != "iteration":
            continue
        name = record["run_name"].removesuffix("/real_time")
        unit = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}[record["time_unit"]]
        samples.setdefault(name, []).append(record["real_time"] * unit)
        last[name] = record
    return {name: (statistics.median(values), last[name]) for name, values in samples.items()}


# Whole processes.

# The templates are those of the tree wherever the build stands; the peers get no settings of a user.
ENVIRONMENT = {**os.environ, "QUILLMARK_HOME": str(ROOT / "data" / "templates"), "LC_ALL": "C.UTF-8",
               "QT_QPA_PLATFORM": "offscreen"}


def time_once(command, limit=None):
    """Seconds of one run with its output thrown away; None when it took longer than `limit`."""
    start = time.perf_counter()
    try:
        run = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, stdin=subprocess.DEVNULL,
                             timeout=limit, env=ENVIRONMENT, check=False)
    except subprocess.TimeoutExpired:
        return None
    taken = time.perf_counter() - start
    if run.returncode != 0:
        raise RuntimeError(f"{command[0]} ended with {run.returncode}: {run.stderr.decode(errors='replace')[:300]}")
    return taken


def time_in_turns(commands, rounds, limit=None):
    """The median of each command, all of them run in turns; None when one run took longer than `limit`."""
    samples = [[] for _ in commands]
    for _ in range(rounds):
        for command, taken in zip(commands, samples):
            taken.append(time_once(command, limit))
            if taken[-1] is None:
                return None
    return [statistics.median(taken) for taken in samples]


def colourer(path, form="rtf"):
    return [str(COLOURER), "--to", form, str(path)]


def debian(program):
    """The distribution's own program, whatever else stands first in the search path."""
    path = f"/usr/bin/{program}"
    return path if os.path.exists(path) else shutil.which(program)


# Name, our form, and the peer's command.
PEERS = [
    ("highlight -O rtf", "rtf", ["highlight", "-O", "rtf"]),
    ("source-highlight (terminal)", "ansi", ["source-highlight", "-s", "javascript", "-f", "esc", "-o", "STDOUT", "-i"]),
    ("pygmentize -f rtf", "rtf", ["pygmentize", "-f", "rtf"]),
    ("batcat (terminal)", "ansi", ["batcat", "--color=always", "--paging=never", "--style=plain", "--no-config"]),
    ("kate-syntax-highlighter (terminal)", "ansi", ["kate-syntax-highlighter", "-s", "JavaScript", "-f", "ansi"]),
]


# The groups. Each returns its rows.

def group_pass():
    results = run_benchmarks("bench_passes", "^(Pass|PassOneLine|PassManyWords|LoadManyWords|PrepareManyWords)/", 9)

    def row(name, what, at_least=None, remark=""):
        taken, record = results[name]
        return Row(what, seconds(taken), "", rate(record["text"], taken), " MB/s", at_least=at_least, remark=remark)

    yield row("Pass", "Colouring pass alone, typescript.js", 400, f"{results['Pass'][1]['runs']:,.0f} coloured runs")
    yield row("PassOneLine", "Colouring pass, one line of 50 MB", remark=f"{results['PassOneLine'][1]['runs']:,.0f} coloured runs")
    yield row("PassManyWords", "Colouring pass, 1,000,000 further colour words")
    yield Row("Loading a template of 1,000,000 further colour words", seconds(results["LoadManyWords"][0]), "", None)
    yield Row("Preparing it for the pass", seconds(results["PrepareManyWords"][0]), "", None)


def group_document():
    names = ["ThroughRtfUncoloured/0", "ThroughRtfColoured/0", "ScanUncoloured/0", "ScanColoured/0"]
    results = run_benchmarks("bench_documents", f"^({'|'.join(names)}|Lexer)/", 11)
    peer = results["Lexer"][0]
    titles = ["Document, TextRTF → coloured → SetTextRTF, from no colours", "Document, the same from a coloured text",
              "Document as the editor colours it (ColourScan), from no colours", "Document, ColourScan from a coloured text"]
    for name, title in zip(names, titles):
        yield Row(title, seconds(results[name][0]), f"the component's JavaScript lexer: {seconds(peer)}",
                  results[name][0] / peer, " ×", at_most=0.5, remark="aim: 0.33 ×")


def group_rtf():
    results = run_benchmarks("bench_passes", "^(WriteRtf|ReadRtf|WriteColouredRtf)/", 9)
    results |= run_benchmarks("bench_documents", "^(TextRTF|SetTextRTF|SetColours)/", 9)
    for name, what in [("WriteRtf", "WriteRtf, coloured typescript.js"), ("ReadRtf", "ReadRtf of the same"),
                       ("WriteColouredRtf", "WriteColouredRtf of the same"), ("TextRTF", "TextRTF of the control"),
                       ("SetTextRTF", "SetTextRTF of the control, same text"), ("SetColours", "SetColours of the control")]:
        taken, record = results[name]
        yield Row(what, seconds(taken), "", rate(record["text"], taken), " MB/s", remark="bytes of text, not of RTF")


def group_growth():
    results = run_benchmarks("bench_passes", "^PassGrowth/", 9)
    results |= run_benchmarks("bench_documents", "^(ThroughRtfUncoloured|ScanUncoloured)/(1|10|100)/", 7)
    for name, what in [("PassGrowth", "Growth of the pass"), ("ThroughRtfUncoloured", "Growth of a document through RTF"),
                       ("ScanUncoloured", "Growth of ColourScan")]:
        yield growth_row(what, [(results[f"{name}/{size}"][1]["text"], results[f"{name}/{size}"][0]) for size in (1, 10, 100)])
    paths = [script_of_size(size * MB) for size in (1, 10, 100)]
    times = time_in_turns([colourer(path) for path in paths], 9)
    yield growth_row("Growth of quillmark-colour --to rtf", [(path.stat().st_size, taken) for path, taken in zip(paths, times)])
    line = script_of_size(50 * MB, one_line=True)
    taken, = time_in_turns([colourer(line)], 5)
    yield Row("quillmark-colour --to rtf, one line of 50 MB", seconds(taken), "", rate(line.stat().st_size, taken), " MB/s")


def growth_row(what, sizes_and_times):
    per_byte = [taken / size for size, taken in sizes_and_times]
    ours = ", ".join(seconds(taken) for _, taken in sizes_and_times)
    return Row(what, f"1, 10, 100 MB: {ours}", "", per_byte[2] / per_byte[0], " ×", at_most=1.3,
               remark=f"time per byte at 100 MB to that at 1 MB; 10 MB: {per_byte[1] / per_byte[0]:.2f} ×")


def group_batch():
    small = script_of_size(SMALLER_INPUT)
    for name, form, command in PEERS:
        program = debian(command[0])
        if program is None:
            raise RuntimeError(f"{command[0]} is not installed")
        peer = [program, *command[1:]]
        # Only the whole file tells: the time of a part says little about it.
        trial = time_once([*peer, str(SCRIPT)], LONGEST_RUN)
        both, remark = None, "whole file"
        if trial is not None:
            both = time_in_turns([colourer(SCRIPT, form), [*peer, str(SCRIPT)]], 5 if trial < 10 else 3, LONGEST_RUN)
        if both is None:
            remark = f"first MB only, for both: the whole file takes it more than {LONGEST_RUN:.0f} s"
            both = time_in_turns([colourer(small, form), [*peer, str(small)]], 3, LONGEST_RUN)
        if both is None:
            yield Row(f"quillmark-colour --to {form}", "", f"{name}: more than {LONGEST_RUN:.0f} s for 1 MB", None)
            continue
        ours, theirs = both
        yield Row(f"quillmark-colour --to {form}, typescript.js", seconds(ours), f"{name}: {seconds(theirs)}", theirs / ours, " × faster",
                  at_least=50 if command[0] == "highlight" else None, remark=remark)


def group_start():
    path = script_of_size(1000)
    commands = [colourer(path), ["/bin/true"], *([debian(c[0]), *c[1:], str(path)] for _, _, c in PEERS)]
    ours, nothing, *peers = time_in_turns(commands, 15)
    yield Row("Start of quillmark-colour, 1 KB", seconds(ours), f"/bin/true: {seconds(nothing)}", ours / nothing, " ×",
              remark="both with what the measuring needs to start a process")
    for (name, _, _), taken in zip(PEERS, peers):
        yield Row("Start, the same", seconds(ours), f"{name}: {seconds(taken)}", taken / ours, " × faster")


def percentile(values, percent):
    return sorted(values)[min(len(values) - 1, len(values) * percent // 100)]


def median_and_p95(values):
    return f"{statistics.median(values):.2f} ms ({percentile(values, 95):.2f})"


def group_keys():
    run = subprocess.run([str(BUILD / "bin" / "bench_editor"), str(SCRIPT)], env=ENVIRONMENT, check=True, capture_output=True, text=True)
    samples = json.loads(run.stdout)
    sizes = [1000, MB, 20 * MB, 100 * MB]
    for what, title, least in [
            ("key in the middle", "A letter in the middle of the text", 0), ("key at the end", "A letter at its end", 0),
            ("Enter", "Enter in the middle", 1), ("leave an edited line", "Up or Down off an edited line", 0),
            ("caret", "Left or Right", 0), ("Shift+Down", "Shift+Up or Shift+Down, half of the text being selected", 0)]:
        taken = [samples[f"{what}/{size}"] for size in sizes]
        compared = ["100 MB to 1 KB", "100 MB to 1 MB, as 1 KB needs no scroll bar"][least]
        yield Row(title, "1 KB, 1, 20, 100 MB: " + ", ".join(map(median_and_p95, taken)), "",
                  statistics.median(taken[-1]) / statistics.median(taken[least]), " ×", at_most=1.5,
                  remark=f"{compared}; medians (95th percentiles), event to painted")
    for what, title in [("paste", "Pasting 10 MB"), ("undo", "Undo of that"), ("redo", "Redo of that")]:
        small, large = (statistics.median(samples[f"{what}/{size}"]) / 1000 for size in (sizes[0], sizes[-1]))
        yield Row(title, f"into 1 KB and 100 MB: {seconds(small)}, {seconds(large)}", "", large / small, " ×", remark="100 MB to 1 KB")


def group_screen():
    with desktop.display(BUILD / "bin" / "bench_screen", ROOT / "data" / "templates") as display:
        yield from start_rows(display)
        for size, name in [(MB, "1 MB"), (100 * MB, "100 MB")]:
            for place, where in [("here", "at the start of"), ("end", "at the end of")]:
                yield key_row(display, f"A letter {where} {name}, to its pixels", place, script_of_size(size))


def editors(path):
    return [str(EDITOR), str(path)], [debian("scite"), str(path)]


def start_rows(display):
    def in_turns(path, rounds):
        taken = [[], []]
        for _ in range(rounds):
            for list_of_times, command in zip(taken, editors(path)):
                list_of_times.append(display.start(command))
        return [{key: statistics.median(times[key] for times in of_one) for key in of_one[0]} for of_one in taken]

    in_turns(script_of_size(1000), 1)  # the programs are in memory from here on
    ours, theirs = in_turns(script_of_size(MB), 7)
    yield Row("Start to 1 MB painted and coloured", seconds(ours["coloured"] / 1000), f"SciTE: {seconds(theirs['coloured'] / 1000)}",
              ours["coloured"] / theirs["coloured"], " ×", at_most=1, remark="whole process, seen on the screen")
    path = script_of_size(100 * MB)
    ours, theirs = in_turns(path, 3)
    yield Row("Start to the text of 100 MB on the screen", seconds(ours["text"] / 1000), f"SciTE: {seconds(theirs['text'] / 1000)}",
              ours["text"] / theirs["text"], " ×", at_most=1.25)
    yield Row("Start to 100 MB coloured to its end", seconds(ours["coloured"] / 1000), "", ours["coloured"] / 1000, " s", at_most=1.5,
              remark="the colours of the first screen come last")
    size = path.stat().st_size
    yield Row("Memory with 100 MB open, a byte of text", f"{ours['rss'] / MB:.0f} MB", f"SciTE: {theirs['rss'] / MB:.0f} MB",
              ours["rss"] / size, " bytes", at_most=4, remark=f"resident; {ours['peak'] / size:.1f} at most on the way there")


def key_row(display, what, place, path):
    taken = [[], []]
    for _ in range(2):
        for samples, command in zip(taken, editors(path)):
            samples += display.keys(60, place, command)
    ours, theirs = taken
    return Row(what, median_and_p95(ours), f"SciTE: {median_and_p95(theirs)}", statistics.median(ours) / statistics.median(theirs), " ×",
               at_most=1, remark="medians (95th percentiles)")


GROUPS = {"pass": group_pass, "document": group_document, "rtf": group_rtf, "growth": group_growth,
          "batch": group_batch, "start": group_start, "keys": group_keys, "screen": group_screen}


# The report.

HEADINGS = ["What", "Ours", "Peer, or what we compare with", "Value", "Budget", "", "Remark"]


def table(rows):
    lines = ["| " + " | ".join(HEADINGS) + " |", "|" + "---|" * len(HEADINGS)]
    lines += ["| " + " | ".join(cell.replace("|", "\\|") for cell in row.cells()) + " |" for row in rows]
    return "\n".join(lines)


def machine():
    cpu, memory = platform.machine(), "unknown"
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            cpu = line.split(":", 1)[1].strip()
            break
    for line in pathlib.Path("/proc/meminfo").read_text().splitlines():
        if line.startswith("MemTotal"):
            memory = f"{int(line.split()[1]) / 1024 ** 2:.1f} GiB"
    system = platform.freedesktop_os_release().get("PRETTY_NAME", platform.system())
    return f"{cpu}, {os.cpu_count()} cores, {memory} of memory; {system}, Linux {platform.release()}"


def build_type():
    for line in (BUILD / "CMakeCache.txt").read_text().splitlines():
        if line.startswith("CMAKE_BUILD_TYPE:"):
            return line.split("=", 1)[1] or "RelWithDebInfo"  # what the tree takes when nothing is asked for
    return "unknown"


def results_text(rows, failures, load_before, load_after):
    missed = [f"- {row.what}: {row.cells()[3]}, budget {row.budget()}." for row in rows if row.missed()]
    missed += [f"- Not measured: {failure}." for failure in failures]
    return f"""# Results of the benchmarks

Written by `./dev bench`; do not edit.

- Date: {datetime.datetime.now(datetime.timezone.utc):%Y-%m-%d %H:%M} UTC
- Machine: {machine()}
- Build: {build_type()}; load of the machine before and after: {load_before:.2f}, {load_after:.2f}
- Input: `lib/typescript.js` of the npm package {PACKAGE}, {SCRIPT.stat().st_size:,} bytes, coloured with the JavaScript
  template that ships; other sizes are made by repeating it. 1 MB is 10^6 bytes.

## Missed

{chr(10).join(missed) if missed else "Nothing."}

## Table

{table(rows)}

## How it was measured

- In process: Google Benchmark, the repetitions of all benchmarks of a group mixed at random, medians of 7 to 11
  repetitions of at least 0.1 s each; wall-clock time.
- The document rows and their peer are two widgets in one process. The peer is the same editing component with its own
  JavaScript lexer (the C++ lexer with JavaScript's keywords), undo, notices and folding off, restyling the whole text
  after its styles were cleared; clearing them is not counted. In the rows "from no colours" ours are taken away before
  each round, which is not counted either. "Through RTF" counts every step: `TextRTF`, reading it, colouring, writing
  the RTF, `SetTextRTF`. One round goes before and is not counted; with the strings in fresh memory it takes about a fifth
  longer.
- Whole processes: wall-clock time from start to end with the output going to /dev/null, ours and the peer in turns,
  medians of 5 (growth: 9, start: 15; peers that take more than 10 s: 3). A peer that needs more than {LONGEST_RUN:.0f} s for the whole file gets the first
  megabyte, and so do we in that comparison.
- Growth of the pass: the 1 MB is another megabyte of the script in each round, so that it is the same code per byte as
  the larger texts. Documents and processes take the first megabyte.
- Keys in process: the whole editor drawing into memory, four documents open at one time and measured in turns, six rounds
  of 25 keys; from the key's event until everything that it caused has been done and painted.
- On the screen: Xvfb and openbox, both programs with a window of 1000 × 720, in turns. The start is measured by looking
  at the whole screen every few milliseconds; "painted" and "coloured" are when 95 % of the last picture's pixels stood,
  for good. A key is measured from the moment when it is sent until pixels of its line differ, both programs in the same
  way; the server's news of drawing say when to look.
- The one line of 50 MB is the repeated script with blanks for its line ends and without what would open a comment to
  the end of the line.
"""


def main():
    names = sys.argv[1:]
    unknown = [name for name in names if name not in GROUPS]
    if unknown:
        print(f"There is no group {', '.join(unknown)}; the groups are {', '.join(GROUPS)}.", file=sys.stderr)
        return 2
    fetch_script()
    load_before = os.getloadavg()[0]
    rows, failures = [], []
    for name in names or GROUPS:
        print(f"Measuring: {name} …", file=sys.stderr, flush=True)
        try:
            for row in GROUPS[name]():
                rows.append(row)
                print("  " + "; ".join(cell for cell in row.cells() if cell), file=sys.stderr, flush=True)
        except (RuntimeError, OSError, subprocess.CalledProcessError) as error:
            failures.append(f"{name}: {error}")
    print(table(rows))
    for failure in failures:
        print(f"Not measured: {failure}", file=sys.stderr)
    if not names:
        (ROOT / "bench" / "RESULTS.md").write_text(results_text(rows, failures, load_before, os.getloadavg()[0]), encoding="utf-8")
    return 1 if failures or any(row.missed() for row in rows) else 0


if __name__ == "__main__":
    sys.exit(main())
