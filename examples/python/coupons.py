#!/usr/bin/env python3
"""A picture engraved with a power curve, and a matrix of coupons that tells which power and speed a material wants.

Usage: coupons.py PICTURE OUT [--gamma 1.8]

Writes OUT-picture.gcode, OUT-matrix.gcode, and the pictures of both.
"""
import argparse
import sys

import numpy as np

import shapemodel

POWERS = [100, 250, 400, 550, 700, 850, 1000]  # S words, from the first row to the last
FEEDS = [600, 1200, 2400, 4800, 9600]  # mm per minute, from the first column to the last
SIDE, GAP, PITCH = 8.0, 3.0, 0.2  # mm: of a coupon, between coupons, between the lines in one


def power_curve(pixels, gamma):
    """Darker greys get more of the power: burnt darkness grows faster than the power does."""
    burn = (255 - np.arange(256)) / 255
    curve = np.rint(255 * (1 - burn ** gamma)).astype(np.uint8)
    return curve[pixels]


def engrave(picture, out, gamma):
    document = shapemodel.Document()
    image = document.import_picture(picture)
    image.resize(width=40)
    image.pixels = power_curve(image.pixels, gamma)
    job = document.job(engrave=True, lines_per_mm=8)
    job.gcode(out + "-picture.gcode", engrave_feed=3000, least_power=50, most_power=800, overscan=2)
    document.render(out + "-picture.png")
    print(f"picture: {image.pixels.shape[1]} x {image.pixels.shape[0]} pixels, "
          f"{job.report(engrave_feed=3000)['engravedRows']} rows")


def coupon(x, y, color):
    """Lines to and fro that fill a square: one polyline."""
    count = round(SIDE / PITCH) + 1
    lines = np.empty((count, 2, 2))
    lines[:, :, 1] = y + np.linspace(0, SIDE, count)[:, None]
    lines[:, :, 0] = x, x + SIDE
    lines[1::2, :, 0] = x + SIDE, x
    return shapemodel.Vector(lines.reshape(-1, 2), color=color)


def matrix(out):
    document, settings = shapemodel.Document(), {}
    step = SIDE + GAP
    for row, power in enumerate(POWERS):
        document.add(shapemodel.Text(f"S{power}", font="Liberation Sans", size=4).move_to(x=-14, y=row * step + 2))
        for column, feed in enumerate(FEEDS):
            # A colour of its own carries the settings of a coupon: redder with power, bluer with speed.
            color = 55 + 200 * row // (len(POWERS) - 1) << 16 | 55 + 200 * column // (len(FEEDS) - 1)
            settings[color] = shapemodel.ColorSetting(feed=feed, power=power)
            document.add(coupon(column * step, row * step, color))
    for column, feed in enumerate(FEEDS):
        document.add(shapemodel.Text(f"F{feed}", font="Liberation Sans", size=3).move_to(x=column * step, y=-5))
    job = document.job(colors=settings)
    job.gcode(out + "-matrix.gcode", feed=1500, power=300)  # of the letters
    document.render(out + "-matrix.png")
    print(f"matrix: {len(settings)} coupons, about {job.report(feed=1500, power=300)['seconds'] / 60:.0f} min")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("picture")
    parser.add_argument("out")
    parser.add_argument("--gamma", type=float, default=1.8)
    arguments = parser.parse_args()
    engrave(arguments.picture, arguments.out, arguments.gamma)
    matrix(arguments.out)


if __name__ == "__main__":
    sys.exit(main())
