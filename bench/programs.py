#!/usr/bin/env python3
"""What whole runs of shapedoc cost beside rsvg-convert and Inkscape: processor time and memory, as a table.

Usage: bench/programs.py SHAPEDOC FOLDER [--megabytes 1,4,16,64]

Drawings of so many megabytes are tiled from samples/ into FOLDER. Times are processor times of a process and its
children. Both sides run in turn, and change places from round to round; times are medians of the rounds, ratios
medians of the rounds' ratios. Memory: resident at most as the system counts it, or private (RssAnon, looked at every
2 ms), which libraries and pages of files do not count in.
"""
import argparse
import math
import os
import pathlib
import re
import shutil
import statistics
import struct
import subprocess
import sys
import time
from dataclasses import dataclass

SAMPLES = pathlib.Path(__file__).parent.parent / "samples"
TILE, STEP = 38, 40  # mm: a sample's side on the sheet, and from one to the next
LINEAR = math.log(11) / math.log(10)  # ten times the data, at most eleven times the time
MIB = 1 << 20


def tiled(megabytes):
    """A sheet of samples, each with ids of its own: half of its bytes polygons, half curves."""
    one, many, some = ((SAMPLES / f"{name}.svg").read_text() for name in ("rosette", "ornament", "flaws"))
    turns = [one] + 19 * [many] + [some]
    count = size = 0
    while size < megabytes * 1_000_000:
        size += len(turns[count % len(turns)])
        count += 1
    across = math.ceil(math.sqrt(count))
    side = across * STEP
    yield f'<svg xmlns="http://www.w3.org/2000/svg" width="{side}mm" height="{side}mm" viewBox="0 0 {side} {side}">\n'
    for i in range(count):
        place = f'x="{i % across * STEP}" y="{i // across * STEP}" width="{TILE}" height="{TILE}"'
        sample = re.sub(r'width="\d+mm" height="\d+mm"', place, turns[i % len(turns)], count=1)
        yield sample.replace(' id="', f' id="tile{i}-')
    yield "</svg>\n"


@dataclass
class Run:
    seconds: float  # of the processor
    resident: int  # bytes at most
    private: int = 0  # likewise; 0 where nobody asked


def private_bytes(pid):
    try:
        with open(f"/proc/{pid}/status") as status:
            return next((int(line.split()[1]) * 1024 for line in status if line.startswith("RssAnon")), 0)
    except OSError:
        return 0


def run(command, watched=False, expected=(0,)):
    child = subprocess.Popen([str(word) for word in command], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    most = pid = 0
    while watched and not pid:
        most = max(most, private_bytes(child.pid))
        time.sleep(0.002)
        pid, status, usage = os.wait4(child.pid, os.WNOHANG)
    if not pid:
        _, status, usage = os.wait4(child.pid, 0)
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode not in expected:
        sys.exit(f"{' '.join(map(str, command))}: exit code {child.returncode}")
    return Run(usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024, most)


def race(rounds, *sides):
    """Runs of each side. The first of the last round is the last of the next."""
    runs = [[] for _ in sides]
    for turn in range(rounds):
        order = reversed(range(len(sides))) if turn % 2 else range(len(sides))
        for i in order:
            runs[i].append(sides[i]())
    return runs


def seconds(runs):
    return statistics.median(one.seconds for one in runs)


def resident(runs):
    return max(one.resident for one in runs)


def row(measure, takes, beside, limit, ratio, goal, larger=False):
    """goal: what the ratio may be at most, or has to be at least."""
    met = ratio >= goal if larger else ratio <= goal
    sign = "≥" if larger else "≤"
    verdict = "met" if met else "not met"
    print(f"| {measure} | {takes} | {beside} | {limit} | {ratio:.3g} | {sign} {goal:.3g} | {verdict} |", flush=True)


def time_row(measure, runs, beside, others, goal):
    ratio = statistics.median(a.seconds / b.seconds for a, b in zip(runs, others))
    row(measure, f"{seconds(runs):.3g} s, {resident(runs) / 1e6:.0f} MB", beside,
        f"{seconds(others):.3g} s, {resident(others) / 1e6:.0f} MB", ratio, goal)


def png_side(file):
    with open(file, "rb") as picture:
        return struct.unpack(">I", picture.read(24)[16:20])[0]


class Sheet:
    """A drawing of so many megabytes, and what is made of it."""

    def __init__(self, program, folder, megabytes):
        self.program, self.megabytes = program, megabytes
        self.svg, self.png, self.shapes, self.gcode, self.made = (
            folder / f"{megabytes}{ending}" for ending in (".svg", ".svg.png", ".shapes", ".gcode", ".out.png"))
        with open(self.svg, "w") as out:
            out.writelines(tiled(megabytes))
        self.rounds = math.ceil(5 / math.sqrt(megabytes))
        self.took = {}

    def command(self, *words, **how):
        return lambda: run([self.program, *words], **how)

    def measure(self):
        size = f"{self.megabytes} MB"
        imports, pictures, renders = race(
            self.rounds, self.command("import", self.svg, "-o", self.shapes),
            lambda: run(["rsvg-convert", self.svg, "-o", self.png]),
            lambda: run([self.program, "render", self.shapes, "-o", self.made, "--width", png_side(self.png)]))
        time_row(f"Z2 import of {size}", imports, "rsvg-convert, its PNG", pictures, 1.5)
        time_row(f"Z3 render of {size}, {png_side(self.png)} pixels wide", renders, "the same", pictures, 1)
        lines, reading, checks, repairs = race(
            self.rounds, self.command("lines", self.shapes, "-o", self.gcode, watched=True),
            self.command("lines", self.shapes, "-o", self.gcode, "--order", "reading", "--keep-doubles", watched=True),
            self.command("check", self.shapes), self.command("repair", self.shapes, "-o", self.made))
        document = self.shapes.stat().st_size
        for what, runs in (("lines", lines), ("lines --order reading --keep-doubles", reading)):
            most = max(one.private for one in runs)
            limit = 64 * MIB + 2 * document
            row(f"Z4 {what}, {size}, private memory", f"{most / 1e6:.0f} MB", "64 MiB and twice the document",
                f"{limit / 1e6:.0f} MB", most / limit, 1)
        self.took = {"import": imports, "render": renders, "lines": lines,
                     "lines --order reading --keep-doubles": reading, "check": checks, "repair": repairs}
        self.made.unlink()
        self.png.unlink()

    def measure_writing(self):
        """The text of ten more passes: nothing but reading the job and writing it."""
        words = ["lines", self.shapes, "-o", self.gcode, "--order", "reading", "--keep-doubles", "--passes"]
        sizes, runs = [], []
        for passes in (1, 11):
            runs.append([run([self.program, *words, passes]) for _ in range(3)])
            sizes.append(self.gcode.stat().st_size)
        letters, spent = sizes[1] - sizes[0], seconds(runs[1]) - seconds(runs[0])
        row(f"Z5 G-code text, {letters / 1e6:.0f} MB", f"{spent:.3g} s", "1 s for 100 MB", f"{letters / 1e8:.3g} s",
            letters / 1e8 / spent, 1, larger=True)

    def compare(self, smaller):
        """Each step's time beside that of the smaller sheet."""
        for what, runs in self.took.items():
            before = smaller.took[what]
            goal = (self.megabytes / smaller.megabytes) ** LINEAR
            row(f"Z6 {what}, {self.megabytes} MB", f"{seconds(runs):.3g} s, {resident(runs) / 1e6:.0f} MB",
                f"{smaller.megabytes} MB", f"{seconds(before):.3g} s, {resident(before) / 1e6:.0f} MB",
                seconds(runs) / seconds(before), goal)


def measure_starts(program, folder):
    svg, png, shapes, lines = (folder / f"small.{ending}" for ending in ("svg", "png", "shapes", "gcode"))
    svg.write_text((SAMPLES / "flaws.svg").read_text())
    run([program, "import", svg, "-o", shapes])
    words = {"info": ["info", shapes], "check": ["check", shapes], "lines": ["lines", shapes, "-o", lines]}
    sides = [lambda name=name: run([program, *words[name]]) for name in words]
    *runs, peer = race(9, *sides, lambda: run(["rsvg-convert", svg, "-o", png]))
    for name, ours in zip(words, runs):
        row(f"Z1 {name} of a small document", f"{seconds(ours):.3f} s", "0.05 s", "0.05 s", seconds(ours) / 0.05, 1)
        row("Z1 the same, memory", f"{resident(ours) / 1e6:.1f} MB", "40 MB", "40 MB", resident(ours) / 40e6, 1)
    print(f"| Z1 rsvg-convert of the drawing | {seconds(peer):.3f} s, {resident(peer) / 1e6:.1f} MB | | | | | |")


def measure_inkscape(sheet):
    if not shutil.which("inkscape"):
        return
    imports, peer = race(1, sheet.command("import", sheet.svg, "-o", sheet.shapes),
                         lambda: run(["inkscape", sheet.svg, "--export-type=png", "-o", sheet.png]))
    time_row(f"Z2 import of {sheet.megabytes} MB", imports, "Inkscape, its PNG", peer, 1)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", type=pathlib.Path)
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--megabytes", type=lambda text: [int(size) for size in text.split(",")],
                        default=[1, 4, 16, 64])
    options = parser.parse_args()
    options.folder.mkdir(parents=True, exist_ok=True)
    print("| measure | it takes | limit or peer | takes | ratio | goal | met |\n" + "| --- " * 7 + "|")
    measure_starts(options.program, options.folder)
    sheets = [Sheet(options.program, options.folder, size) for size in options.megabytes]
    for sheet in sheets:
        sheet.measure()
    measure_inkscape(sheets[0])
    sheets[min(1, len(sheets) - 1)].measure_writing()
    for smaller, larger in zip(sheets[1:], sheets[2:]):  # of the smallest, much is the start
        larger.compare(smaller)


main()
