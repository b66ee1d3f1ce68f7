#!/usr/bin/env python3
"""Holds the includes between folders against the storeys of include_storeys.txt.

Fails on a folder without a storey, an include of a higher storey or of another folder of the same one, a circle of
headers, and an installed header that includes one that is not installed.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
# Where the quoted names of includes begin.
INCLUDE_ROOTS = [ROOT / "src", ROOT / "libs/shapedocument", ROOT / "libs/commandline",
                 ROOT / "apps/referencehost", ROOT / "apps/workbench"]
INCLUDE = re.compile(r'^\s*#include "([^"]+)"', re.MULTILINE)
LISTED_HEADER = re.compile(r"^\s+(?:\$\{PROJECT_SOURCE_DIR\}/src/)?(\w+/\w+\.h)$", re.MULTILINE)


def read_storeys():
    lines = (ROOT / "scripts/include_storeys.txt").read_text().splitlines()
    storeys = [line.split() for line in lines if line and not line.startswith("#")]
    return {folder: level for level, folders in enumerate(storeys) for folder in folders}


def folder_of(path, storeys):
    """The nearest folder above the file that has a storey."""
    for parent in path.relative_to(ROOT).parents:
        if parent.as_posix() in storeys:
            return parent.as_posix()
    return None


def find_header(name, including):
    """The project's file that an include names; nothing for generated headers."""
    for root in [including.parent, *INCLUDE_ROOTS]:
        if (root / name).is_file():
            return (root / name).resolve()
    return None


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


def installed_headers():
    lists = [ROOT / "src/CMakeLists.txt", ROOT / "apps/referencehost/CMakeLists.txt",
             ROOT / "libs/shapedocument/CMakeLists.txt"]
    names = [name for path in lists if path.exists() for name in LISTED_HEADER.findall(path.read_text())]
    return {found for name in names if (found := find_header(name, ROOT / "src/CMakeLists.txt"))}


def main():
    storeys = read_storeys()
    installed = installed_headers()
    faults, includes = [], {}
    sources = [path for top in ("src", "libs", "apps", "plugins", "fuzz") for path in (ROOT / top).rglob("*")
               if path.suffix in (".h", ".cpp")]
    for path in sorted(sources):
        name = path.relative_to(ROOT).as_posix()
        folder = folder_of(path, storeys)
        if folder is None:
            faults.append(f"{name}: its folder has no storey in scripts/include_storeys.txt")
            continue
        targets = [found for t in INCLUDE.findall(path.read_text()) if (found := find_header(t, path))]
        if path.suffix == ".h":
            includes[path] = targets
        for target in targets:
            goes_to = folder_of(target, storeys)
            if goes_to != folder and storeys[goes_to] >= storeys[folder]:
                faults.append(f"{name}: includes {target.relative_to(ROOT)}, {folder} is not above {goes_to}")
            if path in installed and target not in installed:
                faults.append(f"{name}: is installed but includes {target.relative_to(ROOT)}, which is not")
    done = set()
    for header in includes:
        if found := circle(header, includes, [], done):
            faults.append("circle: " + " -> ".join(str(path.relative_to(ROOT)) for path in found))
    print("\n".join(faults) if faults else f"{len(includes)} headers in order, {len(installed)} installed")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
