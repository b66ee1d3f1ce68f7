#!/usr/bin/env python3
"""Prints a C++ source that names every class and structure of the libraries' public headers once, in a function that
is exported: compiled with debug information it holds their layouts and tables of virtual functions.

Usage: public_types.py"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).parent.parent


def public_headers():
    for room in ("src", "libs/shapedocument"):
        listed = (ROOT / room / "CMakeLists.txt").read_text().split("FILE_SET HEADERS", 1)[1]
        for name in re.findall(r"^ {8}([\w/]+\.h)$", listed, re.M):
            yield ROOT / room / name, name


def types(header):
    """The names of the classes and structures at the outermost level, with their namespaces."""
    namespace, before = "", ""
    for line in header.read_text().splitlines():
        if opened := re.match(r"namespace ([\w:]+)", line):
            namespace = opened[1] + "::"
        elif line.startswith("} // namespace"):
            namespace = ""
        named = re.match(r"(?:class|struct) (?:\w+_EXPORT )?(\w+)(?: final)?(?: : .*)?$", line)
        if named and not before.startswith("template"):
            yield namespace + named[1]
        before = line


def main():
    headers = list(public_headers())
    for _, name in headers:
        print(f'#include "{name}"')
    names = [name for path, _ in headers for name in types(path)]
    for number, name in enumerate(names):
        print(f'extern "C" void Type{number}(const {name}&) {{}}')


main()
