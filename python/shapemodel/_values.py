"""Small values: rectangles, colours, outlines."""
from __future__ import annotations

from typing import Any, NamedTuple, Sequence, Union

import numpy as np
from numpy.typing import ArrayLike, NDArray

from ._library import ffi


class Rect(NamedTuple):
    """An upright rectangle, mm; y is that of the upper edge, because y goes down."""

    x: float
    y: float
    width: float
    height: float

    @property
    def right(self) -> float:
        return self.x + self.width

    @property
    def bottom(self) -> float:
        return self.y + self.height

    @property
    def center(self) -> tuple[float, float]:
        return self.x + self.width / 2, self.y + self.height / 2


#: 0xRRGGBB or "#rrggbb".
Color = Union[int, str]

_ALIGNMENTS = {"left": 1, "center": 2, "right": 3}


def rect_of(struct: Any) -> Rect:
    return Rect(struct.x, struct.y, struct.width, struct.height)


def color_number(color: Color) -> int:
    if isinstance(color, str):
        digits = color[1:]
        if len(color) != 7 or color[0] != "#" or not all(digit in "0123456789abcdefABCDEF" for digit in digits):
            raise ValueError(f"{color!r} is no colour as '#ff0000'")
        return int(digits, 16)
    if not 0 <= color <= 0xFFFFFF:
        raise ValueError(f"{color} is no colour from 0 to 0xFFFFFF")
    return int(color)


def alignment_number(name: str | None) -> int | None:
    if name is None:
        return None
    if name not in _ALIGNMENTS:
        raise ValueError(f"{name!r} is none of 'left', 'center' and 'right'")
    return _ALIGNMENTS[name]


def alignment_name(number: int) -> str:
    return next(name for name, value in _ALIGNMENTS.items() if value == number)


def outline_arguments(points: ArrayLike, types: ArrayLike | None) -> tuple[Any, Any, int]:
    """Memory of points and types for a call, and their number. The tuple keeps the memory alive until the call
    returns."""
    xy: NDArray[np.float64] = np.ascontiguousarray(points, np.float64)
    if xy.ndim != 2 or xy.shape[1] != 2:
        raise ValueError(f"points have the shape {xy.shape}, not (count, 2)")
    if types is None:
        return ffi.from_buffer("double[]", xy), ffi.NULL, len(xy)
    kinds = whole_bytes(types, "types")
    if kinds.shape != (len(xy),):
        raise ValueError(f"{len(xy)} points have types of the shape {kinds.shape}")
    return ffi.from_buffer("double[]", xy), ffi.from_buffer("uint8_t[]", kinds), len(xy)


def whole_bytes(values: ArrayLike, name: str) -> NDArray[np.uint8]:
    """Whole numbers from 0 to 255. Other values would silently wrap, and True would be a nearly black pixel."""
    array = np.asarray(values)
    if array.dtype != np.uint8:
        if array.dtype.kind not in "iu" or (array.size and (array.min() < 0 or array.max() > 255)):
            raise ValueError(f"{name} of the type {array.dtype} are not all whole numbers from 0 to 255")
        array = array.astype(np.uint8)
    return np.ascontiguousarray(array)


def pair(values: Sequence[float], name: str) -> tuple[float, float]:
    if len(values) != 2:
        raise ValueError(f"{name} are two lengths, mm")
    return float(values[0]), float(values[1])
