#!/usr/bin/env python3
"""Finds sources that use a shared header without including it, which a build with precompiled headers hides.

Usage: check_used_headers.py BUILD_FOLDER

A source passes when it, or a header of the project that it includes, names the headers of all shared types it uses.
Of the others the preprocessor tells what other headers bring along; the fault is what comes from nowhere.
"""
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

from check_includes import INCLUDE, ROOT, find_header

OUTSIDE = re.compile(r"^\s*#include <([^>]+)>", re.MULTILINE)
DECLARED = re.compile(r"^class (Q\w+);", re.MULTILINE)
COMMENT_OR_TEXT = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.DOTALL)
# What tells that a shared header of the standard library is used; a class of Qt is named as its header is.
STANDARD = {
    "algorithm": r"std::(sort|min|max|clamp|find(_if)?|any_of|all_of|none_of|(stable_)?partition|lower_bound"
                 r"|upper_bound|reverse|rotate|copy|fill|equal|count_if|transform|nth_element|unique|replace)\s*[(<]",
    "array": r"std::(array\b|to_array)",
    "cmath": r"std::(sqrt|hypot|floor|ceil|round|isfinite|isnan|sin|cos|tan|atan2?|lround|pow|fmod|trunc|nextafter)"
             r"\s*\(",
    "cstdint": r"\bu?int(8|16|32|64)_t\b",
    "functional": r"std::(function|less|greater|invoke|hash)\b",
    "limits": r"std::numeric_limits\b",
    "memory": r"std::(unique_ptr|shared_ptr|make_unique|make_shared|addressof)\b",
    "optional": r"std::(optional|nullopt)\b",
    "span": r"std::span\b",
    "string": r"std::(string|to_string)\b",
    "utility": r"std::(pair|exchange|swap|as_const|forward)\b",
    "vector": r"std::vector\b",
}


def shared_headers():
    """Names of the precompiled headers with the patterns that tell their use."""
    settings = (ROOT / "cmake/BuildSpeed.cmake").read_text()
    listed = re.search(r"set\(SHAPEMODEL_SHARED_HEADERS(.*?)\)", settings, re.DOTALL)
    names = re.findall(r"<([^>]+)>", listed.group(1))
    return {name: re.compile(STANDARD.get(name, rf"\b{name}\b")) for name in names
            if name in STANDARD or name[0] == "Q"}


def reached(path, seen):
    """The file and all headers of the project that it includes, with theirs."""
    if path in seen:
        return
    seen[path] = path.read_text()
    for name in INCLUDE.findall(seen[path]):
        if header := find_header(name, path):
            reached(header, seen)


def missing_by_name(source, shared):
    texts = {}
    reached(source, texts)
    included = {name for text in texts.values() for name in OUTSIDE.findall(text) + DECLARED.findall(text)}
    code = COMMENT_OR_TEXT.sub("", OUTSIDE.sub("", texts[source]))
    return {name for name, pattern in shared.items() if name not in included and pattern.search(code)}


def missing(entry, names):
    """Of the names, those that the preprocessor does not meet without precompiled headers."""
    words = shlex.split(entry["command"])
    words = words[1:] if os.path.basename(words[0]) == "ccache" else words
    kept, skip = [], False
    for i, word in enumerate(words):
        if skip or word == "-Winvalid-pch":
            skip = False
        elif word in ("-o", "-MF", "-MT") or (word == "-include" and "cmake_pch" in words[i + 1]):
            skip = True
        elif word not in ("-c", "-MD"):
            kept.append(word)
    met = subprocess.run([*kept, "-M"], cwd=entry["directory"], capture_output=True, text=True)
    if met.returncode != 0:
        return sorted(names)
    found = {os.path.basename(path) for path in met.stdout.split()}
    # QPointF is told of in qpoint.h.
    return sorted(name for name in names
                  if not {name, name.lower() + ".h", name.lower().removesuffix("f") + ".h"} & found)


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    shared = shared_headers()
    ours = [e for e in json.loads((build / "compile_commands.json").read_text())
            if not pathlib.Path(e["file"]).is_relative_to(build)
            and pathlib.Path(e["file"]).relative_to(ROOT).parts[0] in ("src", "libs", "apps", "plugins")]
    doubtful = {e["file"]: (e, names) for e in ours if (names := missing_by_name(pathlib.Path(e["file"]), shared))}
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda item: (item[0], missing(*item[1])), doubtful.items())
        faults = [f"{os.path.relpath(file, ROOT)}: does not include <{'>, <'.join(names)}>"
                  for file, names in results if names]
    print("\n".join(faults) if faults else f"{len(ours)} sources include what they use of the shared headers")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
