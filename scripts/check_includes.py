#!/usr/bin/env python3
"""Holds the includes of src/ against the storeys of include_storeys.txt.

Fails on a header without a storey, an include that goes up outside a bridge, a circle of headers, and an installed
header that includes one that is not installed.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCE = ROOT / "src"
INCLUDE = re.compile(r'^\s*#include "([^"]+)"', re.MULTILINE)
GENERATED = {"shapemodel_export.h", "shapehost_export.h"}


def read_storeys():
    storeys, bridges = {}, set()
    for line in (ROOT / "scripts/include_storeys.txt").read_text().splitlines():
        if not line or line.startswith("#"):
            continue
        level, name = line.split()
        if level == "bridge":
            bridges.add(name)
        else:
            storeys[name] = int(level)
    return storeys, bridges


def storey_of(header, storeys):
    return storeys.get(header, storeys.get(header.split("/")[0] + "/"))


def storey_of_source(name, storeys):
    """The storey of the header whose name the file's name begins with, the longest such name."""
    folder, stem = name.split("/")[0], pathlib.PurePath(name).stem
    headers = [h for h in storeys if h.startswith(folder + "/") and h.endswith(".h")]
    own = [h for h in headers if stem.startswith(pathlib.PurePath(h).stem)]
    # A file of the shape folder such as ShapeGeometry.cpp belongs to its class, CShape.
    return storeys[max(own, key=len)] if own else None


def circle(header, includes, path, done):
    if header in path:
        return path[path.index(header):] + [header]
    if header in done:
        return None
    for target in includes.get(header, []):
        if found := circle(target, includes, path + [header], done):
            return found
    done.add(header)
    return None


def main():
    storeys, bridges = read_storeys()
    installed = set(re.findall(r"^\s+(\w+/\w+\.h)", (SOURCE / "CMakeLists.txt").read_text(), re.MULTILINE))
    installed |= {f"host/{p.name}" for p in (SOURCE / "host").glob("*.h")}
    faults, includes = [], {}
    for path in sorted([*SOURCE.rglob("*.h"), *SOURCE.rglob("*.cpp")]):
        name = path.relative_to(SOURCE).as_posix()
        targets = [t for t in INCLUDE.findall(path.read_text()) if t not in GENERATED]
        level = storey_of(name, storeys) if path.suffix == ".h" else storey_of_source(name, storeys)
        if level is None:
            faults.append(f"{name}: no storey in scripts/include_storeys.txt")
            continue
        if path.suffix == ".h":
            includes[name] = targets
        for target in targets:
            goes_to = storey_of(target, storeys)
            if goes_to is not None and goes_to > level and name not in bridges:
                faults.append(f"{name}: includes {target}, storey {level} to storey {goes_to}")
            if name in installed and target not in installed:
                faults.append(f"{name}: is installed but includes {target}, which is not")
    done = set()
    for header in includes:
        if found := circle(header, includes, [], done):
            faults.append("circle: " + " -> ".join(found))
    print("\n".join(faults) if faults else f"{len(includes)} headers in order")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
