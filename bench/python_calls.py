#!/usr/bin/env python3
"""What a call costs from Python, and a million points as a NumPy array.

Usage: PYTHONPATH=build/release/python SHAPEMODEL_C_LIBRARY=build/release/lib/libshapemodel-c.so bench/python_calls.py

Y1: a call through the package beside the C interface's own time, which is that of one foreign call less that of an
empty one (both measured here). Y2: points of a shape beside memcpy of as many bytes into new memory. Both sides run in
turn; a figure is the median of the rounds.
"""
import ctypes
import statistics
import time

import numpy as np

import shapemodel
from shapemodel._library import ffi, lib

ROUNDS, CALLS = 31, 5000


def seconds(call, count):
    begin = time.process_time()
    for _ in range(count):
        call()
    return (time.process_time() - begin) / count


def race(ours, peer, count):
    """Medians of both sides, which change places from round to round, and of their ratios."""
    pairs = []
    for turn in range(ROUNDS):
        first, second = (ours, peer) if turn % 2 else (peer, ours)
        one, other = seconds(first, count), seconds(second, count)
        pairs.append((one, other) if turn % 2 else (other, one))
    mine, others = zip(*pairs)
    return statistics.median(mine), statistics.median(others), statistics.median(a / b for a, b in pairs)


def calls():
    shape = shapemodel.Vector.rectangle(0, 0, 10, 10)
    handle, color, rect = shape._handle, ffi.new("uint32_t*"), ffi.new("sm_rect*")
    document = shapemodel.Document()
    document.add(shapemodel.Vector.rectangle(0, 0, 1, 1))
    held, found = document[0], ffi.new("sm_shape*")
    rows = [
        ("shape.color", lambda: shape.color, lambda: lib.sm_shape_color(handle, color)),
        ("shape.rect", lambda: shape.rect, lambda: lib.sm_shape_rect(handle, rect)),
        ("shape.move(dx=0)", lambda: shape.move(dx=0), lambda: lib.sm_shape_move(handle, 0, 0)),
        ("document[0]", lambda: document[0],
         lambda: lib.sm_release(found[0]) if not lib.sm_document_shape(document._handle, 0, found) else None),
    ]
    empty = seconds(lambda: lib.sm_document_format(), CALLS)  # answers a constant
    print(f"{'Y1 call':20} {'Python':>9} {'C':>9} {'beyond':>9}   goal 3 µs")
    for name, ours, peer in rows:
        mine, foreign, _ = race(ours, peer, CALLS)
        own = max(0.0, foreign - empty)
        beyond = mine - own
        verdict = "met" if beyond < 3e-6 else "not met"
        print(f"{name:20} {mine * 1e6:6.2f} µs {own * 1e6:6.2f} µs {beyond * 1e6:6.2f} µs   {verdict}")
    assert held == document[0]


def points():
    xy = np.random.default_rng(1).uniform(0, 100, (1_000_000, 2))
    shape = shapemodel.Vector(xy)
    assert (shape.points == xy).all()

    def copy():
        target = np.empty_like(xy)
        ctypes.memmove(target.ctypes.data, xy.ctypes.data, xy.nbytes)

    mine, memcpy, ratio = race(lambda: shape.points, copy, 3)
    print(f"Y2 a million points   {mine * 1e3:.2f} ms, memcpy {memcpy * 1e3:.2f} ms, ratio {ratio:.2f}   goal 1.3   "
          f"{'met' if ratio <= 1.3 else 'not met'}")


calls()
points()
