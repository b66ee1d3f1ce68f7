#!/usr/bin/env python3
"""Draws the pictures of docs/machine.md: what the machine does for a small drawing, with an option and without it.

Usage: machine_pictures.py SHAPEDOC OUTPUT_FOLDER

Each picture is G-code of shapedoc lines: black burns, blue is on its way at full speed with the laser off, dashed grey
is a rapid. A dot marks the begin of a path, with its number. Needs rsvg-convert.
"""
import math
import pathlib
import re
import subprocess
import sys
import tempfile

SCALE = 8  # pixels to a millimetre


def moves(gcode):
    """(motion, from, to, power, depth, whether the laser has been switched on before) of each move, arcs in pieces."""
    x = y = z = power = 0.0
    on, motion, begins = False, 0, False
    for line in gcode.splitlines():
        line = line.split(";")[0]
        words = [(w, float(v)) for w, v in re.findall(r"([A-Z])\s*(-?[\d.]+)", line)]
        values = dict(words)
        for letter, value in words:
            if letter == "M" and value in (3, 4, 5):
                on = begins = value != 5
            if letter == "G" and value <= 3:
                motion = int(value)
        power = values.get("S", power)
        z = values.get("Z", z)
        if "X" not in values and "Y" not in values:
            continue
        to = (values.get("X", x), values.get("Y", y))
        burns = power if on and motion > 0 else 0
        if motion < 2:
            yield motion, (x, y), to, burns, z, begins
        else:
            cx, cy = x + values["I"], y + values["J"]
            begin = math.atan2(y - cy, x - cx)
            sweep = (math.atan2(to[1] - cy, to[0] - cx) - begin) % (2 * math.pi)
            sweep = sweep - 2 * math.pi if motion == 2 else sweep
            radius, last = math.hypot(x - cx, y - cy), (x, y)
            for i in range(1, 41):
                angle = begin + sweep * i / 40
                place = (cx + radius * math.cos(angle), cy + radius * math.sin(angle))
                yield motion + (10 if i < 40 else 0), last, place, burns, z, begins and i == 1
                last = place
        begins = begins and not burns
        x, y = to


def drawn(gcode, ends, wide, most):
    """SVG of one job, y down. ends: dots at the ends of all segments; wide: mm that burns; most: the S word that is
    black."""
    parts, number = [], 0

    def line(a, b, style):
        parts.append(f'<path d="M{a[0]:.3f} {a[1]:.3f}L{b[0]:.3f} {b[1]:.3f}" {style}/>')

    def lowered(p, z):
        return (p[0] - 1.5 * z, p[1] - 2.5 * z)

    for motion, a, b, power, z, begins in moves(gcode):
        a, b = lowered(a, z), lowered(b, z)
        if power > 0:
            line(a, b, f'stroke="#000" stroke-width="{wide}" stroke-opacity="{0.55 * min(power / most, 1):.3f}"')
            if begins and not ends and wide < 0.5:
                number += 1
                parts.append(
                    f'<circle cx="{a[0]}" cy="{a[1]}" r="0.45" fill="#d00"/>'
                    f'<text x="{a[0] + 0.7}" y="{a[1] - 0.5}" font-size="2.2" fill="#d00" stroke="none">{number}</text>'
                )
            if ends and motion < 10:
                parts.append(f'<circle cx="{b[0]:.3f}" cy="{b[1]:.3f}" r="0.3" fill="#d00"/>')
        elif motion == 0:
            line(a, b, 'stroke="#999" stroke-width="0.15" stroke-dasharray="0.7 0.5"')
        else:
            line(a, b, 'stroke="#26c" stroke-width="0.25"')
    return f'<g fill="none" stroke-linecap="round">{"".join(parts)}</g>'


class Maker:
    def __init__(self, shapedoc, folder, temporary):
        self.shapedoc, self.folder, self.temporary = shapedoc, folder, temporary

    def gcode(self, svg, options, to_import=()):
        source, document, output = (self.temporary / name for name in ("a.svg", "a.shapes", "a.gcode"))
        source.write_text(
            '<svg xmlns="http://www.w3.org/2000/svg" width="60mm" height="40mm" viewBox="0 0 60 40">'
            f'<g fill="none" stroke="#000" stroke-width="0.1">{svg}</g></svg>'
        )
        run = lambda *words: subprocess.run([self.shapedoc, *map(str, words)], check=True, capture_output=True)
        run("import", source, "-o", document, *to_import)
        run("lines", document, "-o", output, "--y-down", *options)
        return output.read_text()

    def picture(self, name, size, svg, columns, ends=False, wide=0.25, always=(), to_import=(), most=500):
        """A column for each list of options, which is its title."""
        always = list(always)
        width, height = size
        body = ""
        for i, options in enumerate(columns):
            job = drawn(self.gcode(svg, always + options, to_import), ends, wide, most)
            title = " ".join(options) or "without it"
            body += (
                f'<g transform="translate({i * (width + 4) + 2} 5)">'
                f'<text y="-1.5" font-family="monospace" font-size="2.6">{title}</text>{job}</g>'
            )
        total = (len(columns) * (width + 4), height + 7)
        page = (
            f'<svg xmlns="http://www.w3.org/2000/svg" width="{total[0] * SCALE}" height="{total[1] * SCALE}" '
            f'viewBox="0 0 {total[0]} {total[1]}" font-family="sans-serif">'
            f'<rect width="100%" height="100%" fill="#fff"/>{body}</svg>'
        )
        target = self.folder / f"{name}.png"
        subprocess.run(["rsvg-convert", "-o", target], input=page.encode(), check=True)
        print(f"  {target.name}")


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    folder = pathlib.Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as temporary:
        make = Maker(sys.argv[1], folder, pathlib.Path(temporary)).picture
        frame = '<path d="M4 4H34"/><path d="M34 24V4"/><path d="M4 24H34"/><path d="M4 4V24"/>'
        make("join", (40, 27), frame + '<circle cx="24" cy="14" r="5"/>', [["--join", "0"], []])
        squares = '<path d="M4 4H19V22H4z"/><path d="M19 4H34V22H19z"/>'
        make("doubles", (40, 25), squares, [["--keep-doubles"], []])
        curve = '<path d="M4 20C8 -8 20 34 34 6"/><circle cx="28" cy="20" r="4"/>'
        make("arcs", (40, 27), curve, [[], ["--arcs"]], ends=True)
        shape = '<path d="M14 4L30 12L14 20L18 12z" fill="#000" stroke="none"/>'
        rows = ["--engrave", "--lines-per-mm", "1"]
        engraved = {"wide": 0.6, "always": rows, "to_import": ["--fills"]}
        make("overscan", (42, 23), shape, [[], ["--overscan", "8"]], **engraved)
        make("one-way", (42, 23), shape, [[], ["--one-way"]], **engraved)
        make("frames", (42, 23), shape, [[], ["--frames"]], **engraved)
        make("engrave-power", (42, 23), shape, [[], ["--engrave-power", "0,200"]], **engraved)
        pair = '<path d="M{0} 4V12" stroke="#f00"/><path d="M{1} 4V12" stroke="#00f"/>'
        pairs = "".join(pair.format(x, x + 4) for x in (4, 14, 24, 34))
        make("mix-colors", (44, 16), pairs, [[], ["--mix-colors"]])
        nested = '<path d="M4 4H30V24H4z"/><circle cx="12" cy="14" r="4"/><circle cx="22" cy="14" r="4"/>'
        make("passes", (44, 34), nested, [["--passes", "2", "--step", "3"]])


main()
