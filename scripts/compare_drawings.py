#!/usr/bin/env python3
"""Compares the lines that shapedoc makes of SVG drawings with the outlines of a second, independent renderer.

Usage: compare_drawings.py SHAPEDOC FOLDER_OR_FILE... [--most N [--seed N]] [--work FOLDER] [--picture WORST.png]
                           [--jobs N]

Inkscape writes each drawing as PDF, its texts as paths; these are kept in the work folder for the next run. A drawing
counts as wrong when more than 0.5 mm and more than 0.2 % of the length of either side lies farther than 0.1 mm from the
other side. Only what lies on the page is compared.
Drawings named in drawings_explained.txt, where the second renderer departs from the standard, are counted apart.
Needs inkscape, and rsvg-convert for the picture.
"""
import argparse
import concurrent.futures
import gzip
import math
import os
import random
import re
import resource
import subprocess
import sys
import zlib
from pathlib import Path

NEAR = 0.1  # mm
LEAST_LENGTH = 0.5  # mm off
LEAST_SHARE = 0.002  # of the length off
DEEPEST_ENTITY = 4
MOST_UNFOLDED = 20_000_000  # bytes
MM_PER_POINT = 25.4 / 72
PIECE = 0.4  # mm; longest piece that is judged as a whole
CELL = 0.5  # mm
MOST_PIECES = 400_000
MOST_MEMORY = 4 << 30  # bytes, of the second renderer

FEATURES = {
    "text": rb"<(?:\w+:)?text\b", "clip path": rb"clip-path", "mask": rb"\bmask\s*[=:]\s*[\"']?url",
    "filter": rb"\bfilter\s*[=:]\s*[\"']?url",
    "use": rb"<(?:\w+:)?use\b", "pattern": rb"<(?:\w+:)?pattern\b", "gradient": rb"Gradient\b",
    "marker": rb"marker-(?:start|mid|end)|marker\s*:\s*url",
    "picture": rb"<(?:\w+:)?image\b", "style sheet": rb"<(?:\w+:)?style\b",
    "dashes": rb"stroke-dasharray\s*[=:]\s*[\"']?\s*[0-9]",
    "switch": rb"<(?:\w+:)?switch\b", "flow text": rb"flowRoot", "opacity": rb"[\s;\"']opacity\s*[=:]",
}


# The reference: a PDF's paths.

def multiply(m, n):
    return (m[0] * n[0] + m[1] * n[2], m[0] * n[1] + m[1] * n[3], m[2] * n[0] + m[3] * n[2], m[2] * n[1] + m[3] * n[3],
            m[4] * n[0] + m[5] * n[2] + n[4], m[4] * n[1] + m[5] * n[3] + n[5])


def mapped(m, x, y):
    return (m[0] * x + m[2] * y + m[4], m[1] * x + m[3] * y + m[5])


def curve_points(p0, p1, p2, p3):
    bend = max(math.dist(p0, p1), math.dist(p1, p2), math.dist(p2, p3))
    steps = max(2, min(64, int(math.sqrt(bend / 0.01)) + 1))
    for i in range(1, steps + 1):
        t = i / steps
        s = 1 - t
        a, b, c, d = s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t
        yield (a * p0[0] + b * p1[0] + c * p2[0] + d * p3[0], a * p0[1] + b * p1[1] + c * p2[1] + d * p3[1])


def closed(sub_paths):
    return [p + [p[0]] if len(p) > 2 and p[0] != p[-1] else p for p in sub_paths]


class Pdf:
    """The objects of a PDF as cairo writes it."""

    def __init__(self, data):
        self.data = data
        self.at = {int(m[1]): m.end() for m in re.finditer(rb"(?:^|[\r\n])(\d+) 0 obj\b", data)}

    def dictionary(self, number):
        begin = self.at[number]
        end = min(p for p in (self.data.find(b"stream", begin), self.data.find(b"endobj", begin)) if p >= 0)
        return self.data[begin:end]

    def stream(self, number):
        head = self.dictionary(number)
        length = re.search(rb"/Length (\d+)( 0 R)?", head)
        size = int(length[1])
        if length[2]:
            size = int(self.data[self.at[size]:self.at[size] + 30].split()[0])
        begin = re.compile(rb"stream\r?\n").search(self.data, self.at[number]).end()
        raw = self.data[begin:begin + size]
        return zlib.decompress(raw) if b"FlateDecode" in head else raw

    def resources(self, head):
        ref = re.search(rb"/Resources (\d+) 0 R", head)
        text = self.dictionary(int(ref[1])) if ref else head
        return {m[1].decode(): int(m[2]) for m in re.finditer(rb"/(x\d+) (\d+) 0 R", text)}


class Reference:
    """Polylines in mm with the clips around them."""

    def __init__(self, data):
        self.pdf = Pdf(data)
        self.paths = []  # (sub-paths, filled, clips)
        page = next(n for n in self.pdf.at if re.search(rb"/Type /Page\b(?!s)", self.pdf.dictionary(n)))
        head = self.pdf.dictionary(page)
        box = [float(x) for x in re.search(rb"/MediaBox \[\s*([^\]]*)\]", head)[1].split()]
        self.size = ((box[2] - box[0]) * MM_PER_POINT, (box[3] - box[1]) * MM_PER_POINT)
        to_mm = (MM_PER_POINT, 0, 0, -MM_PER_POINT, 0, self.size[1])
        contents = int(re.search(rb"/Contents (\d+) 0 R", head)[1])
        self.run(contents, self.pdf.resources(head), to_mm, [], 0)

    def run(self, number, names, matrix, clips, depth):
        if depth > 30:
            return
        stack, saved, path, clip_rule = [], [], [], None
        start = None
        tokens = re.findall(rb"\[[^\]]*\]|\([^)]*\)|<<.*?>>|/[^\s/\[\]<>()]+|[^\s/\[\]<>()]+", self.pdf.stream(number))
        for token in tokens:
            if token[0:1] in b"+-.0123456789":
                stack.append(float(token))
                continue
            if token[0:1] in b"/[(<":
                stack.append(token)
                continue
            op = token.decode("latin1")
            if op == "q":
                saved.append((matrix, clips))
            elif op == "Q":
                if saved:
                    matrix, clips = saved.pop()
            elif op == "cm":
                matrix = multiply(tuple(stack[-6:]), matrix)
            elif op == "m":
                start = mapped(matrix, *stack[-2:])
                path.append([start])
            elif op == "l" and path:
                path[-1].append(mapped(matrix, *stack[-2:]))
            elif op == "c" and path:
                p = [mapped(matrix, *stack[i:i + 2]) for i in range(len(stack) - 6, len(stack), 2)]
                path[-1].extend(curve_points(path[-1][-1], *p))
            elif op == "h" and path:
                path[-1].append(path[-1][0])
            elif op == "re":
                x, y, w, h = stack[-4:]
                path.append([mapped(matrix, *p) for p in ((x, y), (x + w, y), (x + w, y + h), (x, y + h), (x, y))])
            elif op in ("W", "W*"):
                clip_rule = op
            elif op in ("f", "F", "f*", "B", "B*", "b", "b*", "S", "s", "n"):
                if op != "n":
                    filled = op not in ("S", "s")
                    if filled or op == "s":
                        path = closed(path)
                    self.paths.append((path, "*" in op and "o" or (filled and "w" or ""), clips))
                if clip_rule:
                    clips = clips + [(path, clip_rule == "W*")]
                path, clip_rule = [], None
            elif op == "sh" and clips:  # a gradient fills the innermost clip
                self.paths.append((closed(clips[-1][0]), clips[-1][1] and "o" or "w", clips[:-1]))
            elif op == "Do" and stack:
                self.do(stack[-1].decode()[1:], names, matrix, clips, depth)
            stack = []

    def do(self, name, names, matrix, clips, depth):
        if name not in names:
            return
        head = self.pdf.dictionary(names[name])
        if b"/Subtype /Image" in head:  # fills the unit square; documents hold its frame
            frame = [mapped(matrix, *p) for p in ((0, 0), (1, 0), (1, 1), (0, 1), (0, 0))]
            self.paths.append(shown_frame(frame, clips))
        if b"/Subtype /Form" not in head:
            return
        m = re.search(rb"/Matrix \[([^\]]*)\]", head)
        if m:
            matrix = multiply(tuple(float(x) for x in m[1].split()), matrix)
        self.run(names[name], self.pdf.resources(head), matrix, clips, depth + 1)


def shown_frame(frame, clips):
    """Of a picture, as a path with its clips: upright ones are cut to the smallest frame of what is seen."""
    box, upright = box_of([frame]), is_upright(frame)
    for sub_paths, _ in clips if upright else ():
        around = box_of(sub_paths)
        box = (max(box[0], around[0]), max(box[1], around[1]), min(box[2], around[2]), min(box[3], around[3]))
    if upright:
        frame = [(box[i], box[j]) for i, j in ((0, 1), (2, 1), (2, 3), (0, 3), (0, 1))]
    seen = box[0] < box[2] and box[1] < box[3]
    return ([frame] if seen else [], "", [] if upright else clips)


def box_of(sub_paths):
    xs = [p[0] for s in sub_paths for p in s] or [0]
    ys = [p[1] for s in sub_paths for p in s] or [0]
    return (min(xs), min(ys), max(xs), max(ys))


def is_upright(points):
    return all(abs(a[0] - b[0]) < 1e-6 or abs(a[1] - b[1]) < 1e-6 for a, b in zip(points, points[1:]))


def holds(sub_paths, even_odd, x, y):
    winding = 0
    for points in sub_paths:
        last = points[-1]
        for p in points:
            if (last[1] <= y) != (p[1] <= y):
                at = last[0] + (y - last[1]) / (p[1] - last[1]) * (p[0] - last[0])
                if at > x:
                    winding += 1 if p[1] > last[1] else -1
            last = p
    return winding % 2 == 1 if even_odd else winding != 0


class Clip:
    def __init__(self, sub_paths, even_odd):
        self.sub_paths, self.even_odd = sub_paths, even_odd
        self.box = box_of(sub_paths)
        self.rect = len(sub_paths) == 1 and len(sub_paths[0]) in (4, 5) and all(
            a[0] == b[0] or a[1] == b[1] for a, b in zip(sub_paths[0], sub_paths[0][1:]))

    def holds(self, x, y):
        if not (self.box[0] <= x <= self.box[2] and self.box[1] <= y <= self.box[3]):
            return False
        return self.rect or holds(self.sub_paths, self.even_odd, x, y)


def pieces_of(points):
    for a, b in zip(points, points[1:]):
        length = math.dist(a, b)
        count = max(1, math.ceil(length / PIECE))
        for i in range(count):
            s, t = i / count, (i + 1) / count
            yield (a[0] + s * (b[0] - a[0]), a[1] + s * (b[1] - a[1]),
                   a[0] + t * (b[0] - a[0]), a[1] + t * (b[1] - a[1]))


def reference_pieces(reference):
    """What is painted, and (as second list) edges of clips along which areas may end."""
    made, painted, edges = {}, [], []
    for sub_paths, fill, clips in reference.paths:
        around = []
        for clip in clips:
            key = id(clip[0])
            if key not in made:
                made[key] = Clip(*clip)
            around.append(made[key])
        boxes = [c for c in around]
        for points in sub_paths:
            for piece in pieces_of(points):
                x, y = (piece[0] + piece[2]) / 2, (piece[1] + piece[3]) / 2
                if all(c.holds(x, y) for c in boxes):
                    painted.append(piece)
        if fill:
            for clip in around:
                for points in clip.sub_paths:
                    edges.extend(pieces_of(points + points[:1]))
        if len(painted) + len(edges) > MOST_PIECES:
            raise ValueError("too large to be compared")
    return painted, edges


# The judgement.

def cells_between(a, b):
    """Indices of the cells that a stretch of one axis reaches, what is near its ends included."""
    return range(math.floor((min(a, b) - NEAR) / CELL), math.floor((max(a, b) + NEAR) / CELL) + 1)


class Near:
    def __init__(self, pieces):
        self.cells = {}
        for piece in pieces:
            rows = cells_between(piece[1], piece[3])
            for i in cells_between(piece[0], piece[2]):
                for j in rows:
                    self.cells.setdefault((i, j), []).append(piece)

    def has(self, x, y):
        for x1, y1, x2, y2 in self.cells.get((math.floor(x / CELL), math.floor(y / CELL)), ()):
            dx, dy = x2 - x1, y2 - y1
            square = dx * dx + dy * dy
            t = max(0, min(1, ((x - x1) * dx + (y - y1) * dy) / square)) if square > 0 else 0
            if (x - x1 - t * dx) ** 2 + (y - y1 - t * dy) ** 2 <= NEAR * NEAR:
                return True
        return False


def off(pieces, near, size):
    """Total length on the page, the part of it that is off, and the pieces of that."""
    total, wrong, which = 0, 0, []
    for piece in pieces:
        x, y = (piece[0] + piece[2]) / 2, (piece[1] + piece[3]) / 2
        if not (NEAR < x < size[0] - NEAR and NEAR < y < size[1] - NEAR):
            continue
        length = math.hypot(piece[2] - piece[0], piece[3] - piece[1])
        total += length
        if not near.has(x, y):
            wrong += length
            which.append(piece)
    return total, wrong, which


def own_pieces(csv):
    for row in csv.read_text().splitlines()[1:]:
        x1, y1, x2, y2 = (float(x) for x in row.split(",")[3:7])
        yield from pieces_of([(x1, y1), (x2, y2)])


def stem_of(name, work):
    return work / re.sub(r"\W", "_", str(name))[-150:]


def has_outcome(name, work):
    """Whether the reference is there, and made of the drawing as it is now."""
    stem = stem_of(name, work)
    copy = Path(f"{stem}.svg")
    done = any(Path(f"{stem}{ending}").exists() for ending in (".pdf", ".none"))
    return done and copy.exists() and copy.read_bytes() == plain(name)


def judge(name, shapedoc, work):
    stem = stem_of(name, work)
    result = {"name": name, "said": "", "verdict": "", "off": 0.0, "length": 0.0}
    pdf = Path(f"{stem}.pdf")
    if not pdf.exists():
        result["verdict"] = "no reference"
        return result
    try:
        said = subprocess.run([shapedoc, "import", "--solid", str(name), "-o", f"{stem}.shapes"],
                              capture_output=True, text=True, timeout=600)
    except subprocess.TimeoutExpired:
        result["verdict"] = "refused"
        return result
    result["said"] = said.stderr.strip().replace(str(name), "")
    if said.returncode != 0 and "paints no path" not in result["said"]:
        result["verdict"] = "refused"
        return result
    try:
        reference = Reference(pdf.read_bytes())
        painted, edges = reference_pieces(reference)
        own = []
        if said.returncode == 0:
            lines = subprocess.run([shapedoc, "lines", "--frames", "--keep-doubles", f"{stem}.shapes",
                                    "-o", f"{stem}.csv"], capture_output=True, text=True)
            if lines.returncode == 0:
                own = list(own_pieces(Path(f"{stem}.csv")))
        if len(own) > MOST_PIECES:
            raise ValueError("too large to be compared")
    except (ValueError, KeyError, StopIteration, TypeError, zlib.error) as fault:
        result["verdict"] = f"no reference"
        result["said"] += f" [{fault!r}]"
        return result
    total1, wrong1, which1 = off(painted, Near(own), reference.size)
    total2, wrong2, which2 = off(own, Near(painted + edges), reference.size)
    result["length"] = max(total1, total2)
    result["off"] = max(wrong1, wrong2)
    bad = any(w > LEAST_LENGTH and w > LEAST_SHARE * max(t, 1e-9) for t, w in ((total1, wrong1), (total2, wrong2)))
    result["verdict"] = "wrong" if bad else "right"
    if bad:
        result["drawn"] = (own, painted, which2, which1, reference.size)
    return result


def with_entities(data):
    """What the drawing's own entities stand for in their places: the second renderer leaves them out in attributes."""
    declarations = re.finditer(rb"<!ENTITY\s+([\w.:-]+)\s+(?:\"([^\"]*)\"|'([^']*)')\s*>", data)
    declared = {m[1]: m[2] or m[3] or b"" for m in declarations}
    if not declared:
        return data
    begin = data.find(b"]", data.rfind(b"<!ENTITY"))
    head, body = data[:begin], data[begin:]
    for _ in range(DEEPEST_ENTITY):
        body = re.sub(rb"&([\w.:-]+);", lambda m: declared.get(m[1], m[0]), body)
        if len(body) > MOST_UNFOLDED:  # one that multiplies itself
            return data
    return head + body


def plain(name):
    """The drawing as both are to read it: without filters and masks, whose outlines documents keep, without the
    editor's own notes, by which it would draw otherwise than the path says, with the font that the other renderer takes
    where a text names none, with its entities unfolded, and with full names of the files beside it."""
    data = name.read_bytes()
    if data[:2] == b"\x1f\x8b":
        data = gzip.decompress(data)
    data = with_entities(data)
    data = re.sub(rb"\b(?:filter|mask)\s*:\s*url\([^;}\"']*"
                  rb"|\b(?:filter|mask)\s*=\s*([\"'])\s*url\([^)]*\)\s*\1", b"", data)
    data = re.sub(rb"\b(?:sodipodi:type|inkscape:path-effect)\s*=\s*([\"'])[^\"']*\1", b"", data)
    root = re.search(rb"<(?:\w+:)?svg\b[^>]*", data)
    if root and re.search(FEATURES["text"], data) and not re.search(rb"\bfont(?:-family)?\s*[=:]", root[0]):
        data = data[:root.end()].rstrip(b"/") + b" font-family='Times New Roman'" + data[root.end():]

    def full(match):
        target = name.parent / match[2].decode("utf-8", "replace")
        return match[1] + (os.fsencode(f"{name.parent}/") if target.is_file() else b"") + match[2]

    return re.sub(rb"(\bhref\s*=\s*[\"'])(?![\w+-]+:|#)([^\"'#]+)", full, data)


def bound_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))


def export(names, work):
    """One PDF each, from one run of the renderer."""
    commands = []
    for name in names:
        if not has_outcome(name, work):
            stem = stem_of(name, work)
            pdf, copy = Path(f"{stem}.pdf"), Path(f"{stem}.svg")
            pdf.unlink(missing_ok=True)
            Path(f"{stem}.none").unlink(missing_ok=True)
            copy.write_bytes(plain(name))
            commands.append(f"file-open:{copy}\nexport-area-page\nexport-text-to-path\nexport-ignore-filters\n"
                            f"export-filename:{pdf}\nexport-do\nfile-close\n")
    if not commands:
        return
    env = dict(os.environ, INKSCAPE_PROFILE_DIR=str(work / f"profile{os.getpid()}-{abs(hash(names[0]))}"))
    try:
        subprocess.run(["inkscape", "--shell"], input="".join(commands) + "quit\n", text=True, env=env,
                       preexec_fn=bound_memory, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       timeout=60 + 20 * len(commands))
    except subprocess.TimeoutExpired:
        pass


def path_text(pieces, dx, dy, scale):
    return "".join(f"M{dx + scale * a:.1f} {dy + scale * b:.1f}L{dx + scale * c:.1f} {dy + scale * d:.1f}"
                   for a, b, c, d in pieces)


def draw_worst(results, picture):
    side, rows = 300, []
    for i, result in enumerate(results):
        own, painted, off_own, off_painted, size = result["drawn"]
        scale = (side - 20) / max(size)
        for column, (lines, wrong) in enumerate(((own, off_own), (painted, off_painted))):
            x, y = (i % 2) * 2.1 * side + column * side + 10, i // 2 * (side + 20) + 20
            rows.append(f"<path d='{path_text(lines, x, y, scale)}' stroke='#333' fill='none' stroke-width='.6'/>"
                        f"<path d='{path_text(wrong, x, y, scale)}' stroke='red' fill='none' stroke-width='1.6'/>")
        rows.append(f"<text x='{(i % 2) * 2.1 * side + 10}' y='{i // 2 * (side + 20) + 14}' font-size='11'>"
                    f"{result['name'].name[:60]}: own | reference; "
                    f"{result['off']:.1f} of {result['length']:.0f} mm</text>")
    height = (len(results) + 1) // 2 * (side + 20) + 20
    svg = (f"<svg xmlns='http://www.w3.org/2000/svg' width='{4.1 * side}' height='{height}'>"
           "<rect width='100%' height='100%' fill='white'/>" + "".join(rows) + "</svg>")
    subprocess.run(["rsvg-convert", "--unlimited", "-o", picture], input=svg.encode(), check=False)


def features(name):
    data = name.read_bytes()
    if data[:2] == b"\x1f\x8b":
        data = gzip.decompress(data)
    return [feature for feature, pattern in FEATURES.items() if re.search(pattern, data)] or ["plain"]


def drawings(folders, most, seed):
    names = []
    for folder in folders:
        path = Path(folder)
        if path.is_file() and path.suffix in (".svg", ".svgz"):
            found = [path]
        elif path.is_file():
            found = [Path(line) for line in path.read_text().splitlines() if line]
        else:
            found = sorted(p for p in path.rglob("*.svg*") if p.is_file() and not p.is_symlink())
        if most and seed is not None:
            found = sorted(random.Random(seed).sample(found, min(most, len(found))))
        step = max(1, len(found) // most) if most else 1
        names += found[::step][:most or None]
    return names


def with_progress(outcomes, count, doing):
    """The outcomes as they come, a line on standard error at each hundredth."""
    for number, outcome in enumerate(outcomes, 1):
        if number == count or number % max(1, count // 100) == 0:
            print(f"{doing}: {number} of {count}", file=sys.stderr, flush=True)
        yield outcome


def explanations():
    text = Path(__file__).with_name("drawings_explained.txt").read_text()
    lines = text.replace("\n    ", " ").splitlines()  # indented lines go on with the one above
    return dict(line.split(": ", 1) for line in lines if line and not line.startswith("#"))


def report(results):
    judged = [r for r in results if r["verdict"] != "no reference"]
    bad = [r for r in judged if r["verdict"] != "right"]
    reasons = explanations()
    explained = [r for r in bad if r["name"].name in reasons]
    bad = [r for r in bad if r["name"].name not in reasons]
    silent = [r for r in bad if not r["said"]]
    print(f"{len(results)} drawings, {len(judged)} with a reference: {len(bad)} not right "
          f"({sum(r['verdict'] == 'refused' for r in bad)} refused), {len(silent)} of them without a word; "
          f"{len(explained)} more where the reference is not")
    table = {}
    for r in judged:
        for feature in features(r["name"]):
            row = table.setdefault(feature, [0, 0, 0])
            row[0] += 1
            row[1] += r in bad
            row[2] += r in silent
    print(f"{'feature':14} drawings  not right  silently")
    for feature, (count, wrong, quiet) in sorted(table.items(), key=lambda item: -item[1][0]):
        print(f"{feature:14} {count:8}  {wrong:9}  {quiet:8}")
    for r in sorted(bad, key=lambda r: -r["off"] / max(r["length"], 1e-9)):
        print(f"{r['verdict']:8} {r['off']:9.1f} of {r['length']:9.1f} mm  {r['name']}  {r['said'][-150:]}")
    for r in explained:
        print(f"explained: {r['name'].name}: {reasons[r['name'].name]}")
    return [r for r in sorted(bad, key=lambda r: -r["off"] / max(r["length"], 1e-9)) if "drawn" in r]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("shapedoc")
    parser.add_argument("folders", nargs="+", help="folders of drawings, drawings, or lists of their names")
    parser.add_argument("--most", type=int, default=0, help="of each folder, evenly chosen, or at random with --seed")
    parser.add_argument("--seed", type=int)
    parser.add_argument("--work", type=Path, default=Path("build/compare"), help="keeps the reference between runs")
    parser.add_argument("--picture", help="the worst ten side by side (PNG)")
    parser.add_argument("--jobs", type=int, default=2)
    options = parser.parse_args()
    options.work.mkdir(parents=True, exist_ok=True)
    work = options.work.resolve()
    names = [n.resolve() for n in drawings(options.folders, options.most, options.seed)]
    wanted = [n for n in names if not has_outcome(n, work)]
    chunks = [wanted[i:i + 25] for i in range(0, len(wanted), 25)]
    with concurrent.futures.ProcessPoolExecutor(options.jobs) as pool:
        list(with_progress(pool.map(export, chunks, [work] * len(chunks)), len(chunks), "references, 25 drawings each"))
        missing = [[n] for n in names if not has_outcome(n, work)]
        list(with_progress(pool.map(export, missing, [work] * len(missing)), len(missing), "references once more"))
        for name in (n for n in names if not has_outcome(n, work)):
            Path(f"{stem_of(name, work)}.none").touch()
        judged = pool.map(judge, names, [options.shapedoc] * len(names), [work] * len(names))
        results = list(with_progress(judged, len(names), "compared"))
    worst = report(results)
    if options.picture and worst:
        draw_worst(worst[:10], options.picture)
    return 0


if __name__ == "__main__":
    sys.exit(main())
