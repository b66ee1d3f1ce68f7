#!/usr/bin/env python3
"""Drawings become G-code, and a table tells what the machine will do.

Usage: batch.py OUT DRAWING_OR_FOLDER... [--bed 400x300] [--feed 1200] [--power 500] [--engrave] [--jobs 2]

Drawings that cannot be read are told at the end, and the exit code is 1; the others are done.
"""
import argparse
import collections
import concurrent.futures
import os
import pathlib
import sys
import threading
import warnings

import shapemodel

Row = collections.namedtuple("Row", "name shapes paths cut travel seconds findings")
here = threading.local()  # the drawing that a thread is at


def drawings_of(places):
    for place in map(pathlib.Path, places):
        yield from sorted(place.glob("*.svg")) if place.is_dir() else [place]


def shared_name(drawings):
    """Two drawings whose G-code would have the same name; None without any."""
    first = {}
    for drawing in drawings:
        if first.setdefault(drawing.stem, drawing) is not drawing:
            return first[drawing.stem], drawing
    return None


def convert(drawing, arguments):
    """Writes the G-code of one drawing. Threads do this side by side: the library works without Python's lock."""
    here.drawing = drawing.name
    with shapemodel.Document() as document:
        document.import_drawing(drawing, fills=arguments.engrave)
        job = document.job(order="fast", engrave=arguments.engrave)
        options = shapemodel.GcodeOptions(feed=arguments.feed, power=arguments.power)
        job.gcode(arguments.out / (drawing.stem + ".gcode"), options=options)
        report = job.report(bed=arguments.bed, options=options)
        told = [report[name] for name in ("paths", "cutLength", "travelLength", "seconds")]
        return Row(drawing.stem, len(document), *told, sum(found["count"] for found in report["findings"].values()))


def print_row(*cells):
    print("{:28.28} {:>7} {:>7} {:>9} {:>9} {:>8} {:>8}".format(*cells))


def print_table(rows):
    print_row("drawing", "shapes", "paths", "cut mm", "travel mm", "time", "findings")
    total = Row(f"{len(rows)} drawings", *(sum(column) for column in list(zip(*rows))[1:])) if rows else None
    for row in rows + [total] * (len(rows) > 1):
        time = "{}:{:02}".format(*divmod(round(row.seconds), 60))
        print_row(*row[:3], f"{row.cut:.1f}", f"{row.travel:.1f}", time, row.findings)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("out", type=pathlib.Path)
    parser.add_argument("drawings", nargs="+")
    parser.add_argument("--bed", type=lambda text: tuple(map(float, text.split("x"))))
    for option in ("--feed", "--power"):
        parser.add_argument(option, type=float)
    parser.add_argument("--engrave", action="store_true")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    arguments = parser.parse_args()
    drawings = list(drawings_of(arguments.drawings))
    if shared := shared_name(drawings):
        parser.error(f"{shared[0]} and {shared[1]} would both become {shared[0].stem}.gcode")
    arguments.out.mkdir(parents=True, exist_ok=True)
    warnings.simplefilter("always", shapemodel.ShapeWarning)
    warnings.showwarning = lambda message, *_: print(f"{here.drawing}: {message}", file=sys.stderr)

    shapemodel.start()  # on this thread, which lives longer than those of the pool
    rows, failed = [], []
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        waiting = [(drawing, pool.submit(convert, drawing, arguments)) for drawing in drawings]
        try:
            for drawing, future in waiting:
                try:
                    rows.append(future.result())
                except (ValueError, OSError) as error:
                    failed.append(str(error) if str(drawing) in str(error) else f"{drawing}: {error}")
        except KeyboardInterrupt:
            pool.shutdown(wait=False, cancel_futures=True)  # those that are begun are done
            raise
    print_table(rows)
    for reason in failed:
        print(f"left out: {reason}", file=sys.stderr)
    return 1 if failed or not rows else 0


if __name__ == "__main__":
    sys.exit(main())
