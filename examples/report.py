#!/usr/bin/env python3
"""Prints a report on a table of temperatures.

The table is a CSV file with the columns station, date and celsius; without a
file the program makes up a week of its own.
"""

from __future__ import annotations

import argparse
import csv
import random
import statistics
import sys
from collections import defaultdict
from collections.abc import Iterable, Iterator
from dataclasses import dataclass, field
from datetime import date, timedelta
from pathlib import Path

STATIONS = ("harbour", "hill", "forest")
FROST = 0.0


@dataclass(frozen=True)
class Reading:
    """What one station measured on one day."""

    station: str
    day: date
    celsius: float

    @property
    def is_frost(self) -> bool:
        return self.celsius < FROST


@dataclass
class Summary:
    name: str
    values: list[float] = field(default_factory=list)
    frosts: int = 0

    def add(self, reading: Reading) -> None:
        self.values.append(reading.celsius)
        self.frosts += reading.is_frost

    def __str__(self) -> str:
        low, high = min(self.values), max(self.values)
        mean = statistics.fmean(self.values)
        return f"{self.name:<10}{low:8.1f}{mean:8.1f}{high:8.1f}{self.frosts:8d}"


def read_table(path: Path) -> Iterator[Reading]:
    """Yield the readings of a file; a bad line is reported and skipped."""
    with path.open(newline="", encoding="utf-8") as file:
        for number, row in enumerate(csv.DictReader(file), start=2):
            try:
                yield Reading(row["station"], date.fromisoformat(row["date"]), float(row["celsius"]))
            except (KeyError, TypeError, ValueError) as error:
                print(f"{path}:{number}: {error}", file=sys.stderr)


def make_up(days: int, seed: int = 7) -> Iterator[Reading]:
    rng = random.Random(seed)  # always the same week
    start = date(2026, 11, 24)
    for offset in range(days):
        for index, station in enumerate(STATIONS):
            yield Reading(station, start + timedelta(days=offset), rng.gauss(4.0 - 2 * index, 3.0))


def summarise(readings: Iterable[Reading]) -> dict[str, Summary]:
    summaries: dict[str, Summary] = defaultdict(lambda: Summary(""))
    for reading in readings:
        summary = summaries[reading.station]
        summary.name = reading.station.capitalize()
        summary.add(reading)
    return dict(sorted(summaries.items()))


def describe(count: int) -> str:
    match count:
        case 0:
            return "no station had frost"
        case 1:
            return "one station had frost"
        case _:
            return "several stations had frost"


def main() -> int:
    parser = argparse.ArgumentParser(description="Report on temperatures.")
    parser.add_argument("table", nargs="?", type=Path, help="a CSV file")
    parser.add_argument("--days", type=int, default=7, help="days to make up without a file")
    options = parser.parse_args()

    readings = read_table(options.table) if options.table is not None else make_up(options.days)
    summaries = summarise(readings)
    if not summaries:
        print("nothing to report", file=sys.stderr)
        return 1

    print("{:<10}{:>8}{:>8}{:>8}{:>8}".format("station", "low", "mean", "high", "frost"))
    for summary in summaries.values():
        print(summary)
    cold = sum(1 for summary in summaries.values() if summary.frosts > 0)
    print("=" * 42, describe(cold), sep="\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
