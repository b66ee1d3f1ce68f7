"""Holds what shapedoc tells of documents against examples/read_document.py, which knows nothing of the library.

Usage: compare_readers.py SHAPEDOC FILE... [--older FILE...]

Kinds, numbers of points, vector types, status bits, parameters of texts, pixels, cells and rectangles must agree, the
rectangle of the machine's lines with that of the outlines. Of the files behind --older the same must hold in all
older versions from 3 on that lack fields, made by leaving these out. Rectangles are
reckoned from the points here: the library's may differ by what rounding to 32 bits and curve fitting allow.
"""
import json
import math
import pathlib
import subprocess
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(TOP / "examples"))
sys.dont_write_bytecode = True
from read_document import Document  # noqa: E402

VECTOR_TYPES = ["RECT", "ELLIPSE", "POLYLINE", "POLYLINE_B", "BEZIER_CHAIN", "BEZIER_SET", "MIXED"]
STATUS = {1: "selected", 2: "locked", 4: "hidden", 8: "grouped"}
STRAIGHT, CURVE, SEPARATOR, FILL = range(4)
TOLERANCE = 0.006  # mm; curve fitting may move an outline by 0.005


def agree(what, ours, theirs):
    if isinstance(ours, float) or isinstance(theirs, float):
        if math.isclose(ours, theirs, rel_tol=1e-9, abs_tol=TOLERANCE):
            return
    elif ours == theirs:
        return
    sys.exit(f"{what}: the reader says {ours}, shapedoc {theirs}")


def extremes(a, b, c, d):
    """The values of a cubic at its ends and where its derivative is 0."""
    p, q, r = -a + 3 * b - 3 * c + d, 2 * (a - 2 * b + c), b - a
    if abs(p) > 1e-12:
        root = q * q - 4 * p * r
        places = [(-q + sign * math.sqrt(root)) / (2 * p) for sign in (1, -1)] if root >= 0 else []
    else:
        places = [-r / q] if q else []
    at = lambda t: a * (1 - t) ** 3 + 3 * b * t * (1 - t) ** 2 + 3 * c * t * t * (1 - t) + d * t**3
    return [a, d] + [at(t) for t in places if 0 < t < 1]


def outline(points):
    """Places on the outline between which its rectangle lies, one list for x and one for y."""
    places, i, last = ([], []), 0, None
    drawn = [point for point in points if point[2] != SEPARATOR]
    while i < len(drawn):
        cubic = drawn[i][2] == CURVE and last is not None and i + 2 < len(drawn)
        for axis in (0, 1):
            values = extremes(last[axis], *(drawn[i + k][axis] for k in range(3))) if cubic else [drawn[i][axis]]
            places[axis].extend(values)
        i += 2 if cubic else 0
        last = drawn[i]
        i += 1
    return places


def rect_of(shape):
    """Left, top, right, bottom; None where fonts have a say, or there is nothing."""
    if "members" in shape:
        rects = [rect_of(member) for member in shape["members"]]
        if None in rects or not rects:
            return None
        frame = [f(r[i] for r in rects) for i, f in enumerate((min, min, max, max))]
        cells = [cell for cell in shape.get("cells", []) if cell["valid"]]
        if "cells" not in shape:
            return frame
        xs, ys = [cell["x"] for cell in cells], [cell["y"] for cell in cells]
        return [min(xs), min(ys), max(xs) + frame[2] - frame[0], max(ys) + frame[3] - frame[1]]
    if shape["type"] == "text":
        return None
    xs, ys = outline(shape["points"])
    return [min(xs), min(ys), max(xs), max(ys)]


def compare(ours, theirs, where):
    agree(f"{where}: type", ours["type"], theirs["type"])
    where = f"{where} ({ours['type']})"
    agree(f"{where}: points", sum(kind != SEPARATOR for _, _, kind in ours["points"]), theirs["points"])
    agree(f"{where}: status", [name for bit, name in STATUS.items() if ours["status"] & bit], theirs["status"])
    if "members" not in ours:
        agree(f"{where}: color", ours["color"], theirs["color"])
    if ours["type"] == "vector":
        agree(f"{where}: vector type", "EVECTOR_" + VECTOR_TYPES[ours["vectorType"]], theirs["vectorType"])
    if "pixels" in ours:
        agree(f"{where}: pixels", ours["pixels"], [theirs["picture"]["pixels"][axis] for axis in "xy"])
    for mine, told in zip(ours.get("cells", []), theirs.get("cells", [])):
        for name in mine:
            agree(f"{where}: cell {mine['index']}: {name}", mine[name], told[name])
    agree(f"{where}: cells", len(ours.get("cells", [])), len(theirs.get("cells", [])))
    compare_texts(ours.get("text"), theirs.get("text"), where)
    rect, told = rect_of(ours), theirs["rect"]
    for i, value in enumerate((told["x"], told["y"], told["x"] + told["width"], told["y"] + told["height"])):
        if rect:
            agree(f"{where}: edge {i} of the rectangle", rect[i], value)
    compare_lists(ours.get("members", []), theirs.get("members", []), where)


def compare_texts(ours, theirs, where):
    agree(f"{where}: is a text", bool(ours), bool(theirs))
    same = ("text", "font", "bold", "italic", "vertical", "angle", "mirrorX", "mirrorY")
    for name in theirs or {}:
        if name in same and ours[name] is not None:
            agree(f"{where}: {name}", ours[name], theirs[name])
    if ours:
        agree(f"{where}: centre x", ours["centre x"], theirs["centre"]["x"])
        agree(f"{where}: centre y", ours["centre y"], theirs["centre"]["y"])
        agree(f"{where}: size", ours["size"] * (ours["scale x"] or 1), theirs["size"])


def compare_lists(ours, theirs, where):
    agree(f"{where}: number of shapes", len(ours), len(theirs))
    for i, (mine, told) in enumerate(zip(ours, theirs)):
        compare(mine, told, f"{where}: {i + 1}")


def compare_lines(shapedoc, file, shapes):
    """The rectangle of all lines, where every shape has some, is that of all outlines."""
    rects = [rect_of(shape) for shape in shapes]
    if None in rects:
        return
    told = subprocess.run([shapedoc, "lines", file, "--frames", "--keep-doubles", "--order=reading",
                           "-o", "-", "--format=csv"],
                          check=True, capture_output=True, text=True).stdout.splitlines()  # fmt: skip
    ends = [[float(value) for value in line.split(",")[3:7]] for line in told[1:]]
    for axis in (0, 1):
        values = [end[axis] for end in ends] + [end[axis + 2] for end in ends]
        agree(f"{file}: least of axis {axis} of the lines", min(rect[axis] for rect in rects), min(values))
        agree(f"{file}: greatest of axis {axis} of the lines", max(rect[axis + 2] for rect in rects), max(values))


def main():
    shapedoc, *words = sys.argv[1:]
    split = words.index("--older") if "--older" in words else len(words)
    for place, file in enumerate(words):
        if place == split:
            continue
        data = pathlib.Path(file).read_bytes()
        newest = Document(data)
        since = {field[4] for field in newest.fields} if place > split else set()
        for version in sorted({newest.version} | {each - 1 for each in since if each > 3}):
            kept = [raw for begin, raw, _, _, since in newest.fields if begin >= 12 and since <= version]
            pathlib.Path("bare").write_bytes(b"".join(kept))
            told = subprocess.run([shapedoc, "info", "--json", "--bare", f"--version={version}", "bare"], check=True,
                                  capture_output=True).stdout  # fmt: skip
            ours = Document(b"".join(kept), version)
            compare_lists(ours.shapes, json.loads(told)["shapes"], f"{file}, version {version}")
        compare_lines(shapedoc, file, newest.shapes)
        print(f"{file}: {len(newest.fields)} fields")


main()
