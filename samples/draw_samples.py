#!/usr/bin/env python3
"""Draws the two sample drawings and the sample picture. The results are kept beside this file; no build needs it."""
import math
import struct
import zlib
from pathlib import Path

HERE = Path(__file__).parent


def polar(radius, degrees, centre=(0.0, 0.0)):
    a = math.radians(degrees)
    return centre[0] + radius * math.cos(a), centre[1] + radius * math.sin(a)


def spot(p):
    return f"{p[0]:.3f},{p[1]:.3f}"


def gear(centre, teeth, outer, root):
    """Outline of a gear with straight flanks and arcs at tips and roots."""
    step = 360 / teeth
    parts = []
    for k in range(teeth):
        a = k * step
        corners = [polar(root, a - 0.28 * step, centre), polar(outer, a - 0.16 * step, centre),
                   polar(outer, a + 0.16 * step, centre), polar(root, a + 0.28 * step, centre)]
        if k == 0:
            parts.append(f"M{spot(corners[0])}")
        else:
            parts.append(f"A{root:g},{root:g} 0 0 1 {spot(corners[0])}")
        parts.append(f"L{spot(corners[1])} A{outer:g},{outer:g} 0 0 1 {spot(corners[2])} L{spot(corners[3])}")
    first = polar(root, -0.28 * step, centre)
    parts.append(f"A{root:g},{root:g} 0 0 1 {spot(first)} Z")
    return " ".join(parts)


def window(centre, inner, outer, middle, half, gap):
    """A rounded window between two spokes, as one closed curve."""
    a, b = middle - half, middle + half
    i = inner + gap
    p = [polar(outer, a, centre), polar(outer, b, centre), polar(i, b - 4, centre), polar(i, a + 4, centre)]
    c1, c2 = polar((inner + outer) / 2, b + 6, centre), polar((inner + outer) / 2, a - 6, centre)
    return (f"M{spot(p[0])} A{outer:g},{outer:g} 0 0 1 {spot(p[1])} Q{spot(c1)} {spot(p[2])} "
            f"A{i:g},{i:g} 0 0 0 {spot(p[3])} Q{spot(c2)} {spot(p[0])} Z")


def leaf(root, tip, bend):
    """A leaf (closed) and its vein (open)."""
    dx, dy = tip[0] - root[0], tip[1] - root[1]
    def at(t, side):
        return root[0] + t * dx - side * dy, root[1] + t * dy + side * dx
    outline = (f"M{spot(root)} C{spot(at(0.25, bend))} {spot(at(0.7, bend))} {spot(tip)} "
               f"C{spot(at(0.7, -bend))} {spot(at(0.25, -bend))} {spot(root)} Z")
    vein = f"M{spot(at(0.84, 0))} Q{spot(at(0.5, 0.12 * bend))} {spot(at(0.12, 0))}"
    return outline, vein


def ornament():
    centre = (70.0, 70.0)
    cut, score, mark = "#d62728", "#1f5fbf", "#2a9d4a"
    out = ['<svg xmlns="http://www.w3.org/2000/svg" width="140mm" height="140mm" viewBox="0 0 140 140" '
           'fill="none" stroke-width="0.2" stroke-linejoin="round">',
           "  <title>Hanging gear ornament: red is cut, blue is scored, green is marked</title>",
           f'  <g id="cut" stroke="{cut}">']
    out.append(f'    <path d="{gear(centre, 24, 64, 57)}"/>')
    for k in range(6):
        out.append(f'    <path d="{window(centre, 24, 45.5, 60 * k + 30, 21, 6)}"/>')
    for k in range(6):
        x, y = polar(50.2, 60 * k, centre)
        out.append(f'    <circle cx="{x:.3f}" cy="{y:.3f}" r="2"/>')
    out.append(f'    <circle cx="{centre[0]:g}" cy="{centre[1] - 50.2:g}" r="2.6"/>')
    out.append("  </g>")
    out.append(f'  <g id="score" stroke="{score}">')
    for radius in (54.4, 9):
        out.append(f'    <circle cx="{centre[0]:g}" cy="{centre[1]:g}" r="{radius:g}"/>')
    for k in range(12):
        tip = polar(21 if k % 2 else 25, 30 * k, centre)
        outline, vein = leaf(polar(11, 30 * k, centre), tip, 0.34)
        out.append(f'    <path d="{outline}"/>')
        out.append(f'    <path d="{vein}"/>')
    out.append("  </g>")
    out.append(f'  <g id="mark" stroke="{mark}">')
    for k in range(6):
        for near, far in ((33, 38), (38, 43)):
            out.append(f'    <polyline points="{spot(polar(near, 60 * k - 4, centre))} '
                       f'{spot(polar(far, 60 * k, centre))} {spot(polar(near, 60 * k + 4, centre))}"/>')
    # A star with filled ground: its area is closed without saying so.
    star = [polar(7 if k % 2 == 0 else 3, 36 * k - 90, centre) for k in range(10)]
    out.append(f'    <path fill="{mark}" stroke="none" d="M{" L".join(spot(p) for p in star)}"/>')
    # One path of many short lines, all in one shape.
    ticks = " ".join(f"M{spot(polar(48.6, a, centre))} L{spot(polar(51.8, a, centre))}"
                     for a in range(5, 360, 5) if 60 * round(a / 60) != a and abs(a - 270) > 5)
    out.append(f'    <path d="{ticks}"/>')
    out += ["  </g>", "</svg>", ""]
    (HERE / "ornament.svg").write_text("\n".join(out))


def rosette():
    """Guilloche rosette of closed polygons: a few waves whose phase turns from ring to ring."""
    centre, steps = (75.0, 75.0), 360
    inks = ["#123a7a", "#7a1e48", "#0f6b57"]
    out = ['<svg xmlns="http://www.w3.org/2000/svg" width="150mm" height="150mm" viewBox="0 0 150 150" '
           'fill="none" stroke-width="0.12">', "  <title>Guilloche rosette of straight pieces</title>"]

    def ring(radius, height, waves, phase):
        points = []
        for k in range(steps):
            a = 360 * k / steps + phase
            r = radius + height * math.cos(math.radians(waves * (a - phase) + phase))
            points.append(spot(polar(r, a, centre)))
        return " ".join(points)

    bands = [(60, 7.0, 18, 12, 0), (42, 8.0, 12, 12, 1), (22, 7.5, 8, 9, 2)]
    for radius, height, waves, count, ink in bands:
        out.append(f'  <g stroke="{inks[ink]}">')
        for k in range(count):
            out.append(f'    <polygon points="{ring(radius, height, waves, 360 * k / count)}"/>')
        out.append("  </g>")
    for radius, ink in ((70, 0), (51.5, 1), (31.7, 2), (12, 2)):
        out.append(f'  <circle cx="75" cy="75" r="{radius}" stroke="{inks[ink]}"/>')
    out += ["</svg>", ""]
    (HERE / "rosette.svg").write_text("\n".join(out))


def medallion():
    """A coin with a star in relief, lit from the upper left, on clear ground: grey with alpha, 254 dots to the inch."""
    width, height, per_metre = 301, 240, 10000
    centre, radius = (150, 120), 116

    def level(x, y):
        r, a = math.hypot(x, y) / radius, math.atan2(y, x)
        star = 0.42 + 0.22 * math.cos(5 * a + math.pi / 2)
        rim = 9 * math.exp(-((r - 0.92) / 0.03) ** 2)
        waves = 1.2 * math.cos(60 * r + 6 * math.cos(12 * a)) if star < r < 0.86 else 0
        return rim + waves + 10 * (1 / (1 + math.exp(40 * (r - star))))

    rows = bytearray()
    for row in range(height):
        rows.append(0)
        for column in range(width):
            x, y = column - centre[0], row - centre[1]
            slope = level(x + 1, y) - level(x - 1, y) + level(x, y + 1) - level(x, y - 1)
            grey = max(0, min(255, round(150 - 45 * slope)))
            alpha = max(0, min(255, round(255 * (radius + 0.5 - math.hypot(x, y)))))
            rows += bytes((grey, alpha))

    def chunk(name, content):
        return struct.pack(">I", len(content)) + name + content + struct.pack(">I", zlib.crc32(name + content))

    (HERE / "medallion.png").write_bytes(
        b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 4, 0, 0, 0)) +
        chunk(b"pHYs", struct.pack(">IIB", per_metre, per_metre, 1)) +
        chunk(b"IDAT", zlib.compress(bytes(rows), 9)) + chunk(b"IEND", b""))


ornament()
rosette()
medallion()
