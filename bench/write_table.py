#!/usr/bin/env python3
"""Puts what the benchmarks printed into the README beside this script: usage: write_table.py OUTPUT."""
import pathlib
import re
import sys

from figure_rows import COLUMNS, read_rows

README = pathlib.Path(__file__).with_name("README.md")
MARKS = re.compile(r"(<!-- table -->\n).*?(\n<!-- end of table -->)", re.DOTALL)


def table(rows):
    """The rows as a table, narrow, below the count of goals that are met."""
    lines = [f"{sum(row.met for row in rows)} of {len(rows)} goals met.", ""]
    lines += ["| " + " | ".join(cells) + " |" for cells in (COLUMNS, ("---",) * len(COLUMNS))]
    lines += ["| " + " | ".join(row.cells) + " |" for row in rows]
    return "\n".join(lines)


def main(output):
    rows = read_rows(pathlib.Path(output).read_text(encoding="utf-8"))
    if not rows:
        sys.exit(f"{output} holds no rows: {README} stays as it is")
    text, marked = MARKS.subn(lambda marks: marks[1] + table(rows) + marks[2], README.read_text(encoding="utf-8"))
    if not marked:
        sys.exit(f"{README} has no place for the table")
    README.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(sys.argv[1])
