#!/usr/bin/env python3
"""Writes the module through which Python calls the C library: what cffi makes of the header's declarations.

Usage: emit_interface.py HEADER MODULE.py

Nothing is compiled. The declarations are read once, when the package is built, because reading them takes longer than
importing everything else does.
"""
import pathlib
import sys

import cffi

BEGIN, END = "// BEGIN DECLARATIONS", "// END DECLARATIONS"


def main() -> None:
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    header, module = map(pathlib.Path, sys.argv[1:])
    _, begin, rest = header.read_text(encoding="utf-8").partition(BEGIN)
    declarations, end, _ = rest.partition(END)
    if not begin or not end:
        sys.exit(f"{header}: the marks around the declarations are missing")
    ffi = cffi.FFI()
    ffi.cdef(declarations)
    ffi.set_source(module.stem, None)
    ffi.emit_python_code(str(module))
    module.touch()  # an equal module is left alone, and would look too old ever after


main()
