#!/usr/bin/env python3
"""A sheet of numbered tags from a CSV file with the columns name and number.

Usage: tags.py NAMES.csv OUT [--columns 3] [--font 'Liberation Sans']

Writes OUT.shapes, OUT.gcode and OUT.png. Names and numbers are written first, in blue, with little power; holes and
outlines are cut then, in red. The number is also a bar code (Code 39), which is engraved.
"""
import argparse
import csv
import sys

import numpy as np

import shapemodel
from shapemodel import CURVE, STRAIGHT

WIDTH, HEIGHT, RADIUS, GAP = 70.0, 30.0, 4.0, 4.0  # mm
RED, BLUE = 0xFF0000, 0x0000FF
SIGNS = "0123456789*"
BARS = ("000110100 100100001 001100001 101100000 000110001 100110000 "
        "001110000 000100101 100100100 001100100 010010100").split()


def bar_code(number):
    """Pixels of a digits' Code 39: 9 bars and gaps a sign, wide ones three pixels."""
    row = []
    for sign in f"*{number}*":
        for place, wide in enumerate(BARS[SIGNS.index(sign)]):
            row += [255 if place % 2 else 0] * (3 if wide == "1" else 1)
        row.append(255)
    return np.tile(np.array(row, np.uint8), (12, 1))


def rounded(x, y, width, height, radius):
    """A rectangle with round corners: four sides, and between them a cubic for each corner."""
    pull = radius * 0.4477  # a control point of a quarter of a circle lies so far from the corner
    right, bottom = x + width, y + height
    points = [(x + radius, y), (right - radius, y), (right - pull, y), (right, y + pull), (right, y + radius),
              (right, bottom - radius), (right, bottom - pull), (right - pull, bottom), (right - radius, bottom),
              (x + radius, bottom), (x + pull, bottom), (x, bottom - pull), (x, bottom - radius),
              (x, y + radius), (x, y + pull), (x + pull, y), (x + radius, y)]
    return shapemodel.Vector(points, [STRAIGHT, *[STRAIGHT, CURVE, CURVE, CURVE] * 4], color=RED)


def fitted_text(content, font, size, width, x, y):
    """A text that is made smaller where it is too wide, with its upper left corner at x, y (mm)."""
    text = shapemodel.Text(content, font=font, size=size, color=BLUE)
    if text.rect.width > width:
        text.resize(width=width)
    return text.move_to(x=x, y=y)


def add_tag(document, x, y, name, number, font):
    code = bar_code(number)
    document.group(document.add(shape) for shape in [
        rounded(x, y, WIDTH, HEIGHT, RADIUS),
        shapemodel.Vector.ellipse(x + 4, y + HEIGHT / 2 - 2.5, 5, 5, color=RED),
        fitted_text(name, font, 7, WIDTH - 18, x + 13, y + 4),
        fitted_text(f"No. {number}", font, 4, WIDTH - 18, x + 13, y + HEIGHT - 9),
        shapemodel.CodeImage(code, code=number, width=code.shape[1] * 0.3, height=6, x=x + 36, y=y + HEIGHT - 10),
    ])


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("names")
    parser.add_argument("out")
    parser.add_argument("--columns", type=int, default=3)
    parser.add_argument("--font", default="Liberation Sans")
    arguments = parser.parse_args()
    with open(arguments.names, newline="", encoding="utf-8") as file:
        people = list(csv.DictReader(file))
    document = shapemodel.Document()
    for place, person in enumerate(people):
        row, column = divmod(place, arguments.columns)
        add_tag(document, column * (WIDTH + GAP), row * (HEIGHT + GAP),
                person["name"], person["number"], arguments.font)
    document.save(arguments.out + ".shapes")
    document.render(arguments.out + ".png", width=1000)
    job = document.job(engrave=True, colors={
        BLUE: shapemodel.ColorSetting(feed=3000, power=200, order=1),
        RED: shapemodel.ColorSetting(feed=600, power=900, order=2)})
    job.gcode(arguments.out + ".gcode", engrave_feed=6000)
    report = job.report(engrave_feed=6000)
    print(f"{len(document)} tags, {job.paths} paths, {report['cutLength'] / 1000:.2f} m to cut, "
          f"about {report['seconds'] / 60:.0f} min")


if __name__ == "__main__":
    sys.exit(main())
