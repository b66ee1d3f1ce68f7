#!/usr/bin/env python3
"""Keeps the ratios of the releases, and holds a build against the last ones.

usage: history.py record VERSION OUTPUT   adds what the benchmarks printed to history.csv, or renews a version
       history.py kept PROGRAM            measures a few steady rows; fails when one is worse than kept three times
"""
import csv
import datetime
import pathlib
import re
import subprocess
import sys

from figure_rows import read_rows

HISTORY = pathlib.Path(__file__).with_name("history.csv")
WORSE = 1.5  # times the kept ratio: what a busy machine does not reach three times in turn
REPEATS = 3

# Rows whose ratios hardly change from run to run, from every room; less than two minutes together.
STEADY = (
    "D1 the same, 100 a shape, into freed memory",
    "D1 the same, 4 a shape, into freed memory",
    "D3 write 1 M points, 100 a shape",
    "P1 paths rebuilt, 10,000 outlines of 100 points",
    "F1 Flatten of 10,000 polylines of 100 points",
    "F1 the same curves",
    "F3 300,000 micro lines of ellipses",
    "F5 the same",
    "L1 put as many in front of 100,000 shapes",
    "L2 Sort of 999 shapes: nested squares",
    "N1 the same",
    "N2 the same",
    "N3 the same",
    "N6 the same",
    "T1 Rotate, 10 outlines of 100,000 points",
    "T1 mirror across a line, 10 outlines",
    "T2 Offset with paths, 10,000 outlines",
    "H1 20 mouse positions, 10,000 outlines side by side",
    "H2 3 mouse positions, 10,000 outlines over each other",
    "X1 text of 500 letters, sans",
    "X1 text of 2,000 letters, sans",
    "X2 the same, 400 texts",
    "I1 display image, 4096 x 4096 turned by 30 degrees",
    "I4 file equal bytes that lie elsewhere",
    "N7 the same",
    "N9 shapes of an array of 1,000 pictures",
    "M1 after reading, 100 points a shape, per point",
    "M2 painter paths, per element",
    "A1 layout of 10,000 cells",
    "Y2 1 M points copied to C",
)


def read_history():
    if not HISTORY.exists():
        return []
    with HISTORY.open(encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file))


def record(version, output):
    """One line for the version, one column for each row that any release had."""
    rows = read_rows(pathlib.Path(output).read_text(encoding="utf-8"))
    if not rows:
        sys.exit(f"{output} holds no rows: {HISTORY} stays as it is")
    releases = [release for release in read_history() if release["version"] != version]
    releases.append({"version": version, "date": datetime.date.today().isoformat()}
                    | {row.name: f"{row.ratio:g}" for row in rows})
    columns = list(dict.fromkeys(column for release in releases for column in release))
    with HISTORY.open("w", encoding="utf-8", newline="") as file:
        writer = csv.DictWriter(file, columns, lineterminator="\n")
        writer.writeheader()
        writer.writerows(releases)


def measure(program, names):
    """The rows of these names, measured now."""
    escaped = (re.sub(r"([.()+*?\[\]^$|\\])", r"\\\1", name) for name in names)
    run = subprocess.run([program, f"--benchmark_filter=^({'|'.join(escaped)})/"], check=True, text=True,
                         encoding="utf-8", stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    return {row.name: row for row in read_rows(run.stdout)}


def kept_ratios():
    """Of the steady rows in the last release that has any."""
    releases = read_history()
    if not releases:
        sys.exit(f"{HISTORY} is missing or empty: there is nothing to hold the build against")
    return releases[-1]["version"], {name: float(releases[-1][name]) for name in STEADY if releases[-1].get(name)}


def hold(program):
    """Whether every row keeps its ratio. A row that is worse is measured again, up to three times in all."""
    version, kept = kept_ratios()
    left = list(kept)
    for repeat in range(REPEATS):
        measured = measure(program, left)
        missing = [name for name in left if name not in measured]
        if missing:
            sys.exit(f"{program} has no row {', '.join(missing)}")
        left = [name for name in left if measured[name].worse_than(kept[name], WORSE)]
        if not left:
            print(f"{len(kept)} ratios are within {WORSE} times those of {version}; measured {repeat + 1} times")
            return True
    for name in left:
        print(f"{name}: {measured[name].ratio:g}, {kept[name]:g} in {version}", file=sys.stderr)
    print(f"{len(left)} of {len(kept)} ratios are worse than {WORSE} times those of {version}, {REPEATS} times in turn",
          file=sys.stderr)
    return False


if __name__ == "__main__":
    if len(sys.argv) == 4 and sys.argv[1] == "record":
        record(sys.argv[2], sys.argv[3])
    elif len(sys.argv) == 3 and sys.argv[1] == "kept":
        sys.exit(0 if hold(sys.argv[2]) else 1)
    else:
        sys.exit(__doc__)
