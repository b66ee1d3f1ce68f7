"""Outlines."""
from __future__ import annotations

from typing import Any, NamedTuple

import numpy as np
from numpy.typing import ArrayLike, NDArray

from ._library import check, ffi, lib, new_result, warn
from ._progress import Progress, run
from ._values import Color, outline_arguments
from .shapes import Shape, kind, make

STRAIGHT = int(lib.SM_POINT_STRAIGHT)  #: a straight line to the point
CURVE = int(lib.SM_POINT_CURVE)  #: one of three points: control, control, end of a cubic
SEPARATOR = int(lib.SM_POINT_SEPARATOR)  #: ends a run, never drawn; the next point begins the next one
FILL = int(lib.SM_POINT_FILL)  #: a copy of its run's first point, behind the run's last: the outline is engraved


class Fit(NamedTuple):
    """The result of Vector.fit()."""

    fitted: bool  #: False: it has curves already, or no run without a FILL point has a fit with fewer points
    before: int  #: points
    after: int  #: points
    deviation: float  #: mm, the largest distance of either outline from the other


def read_outline(handle: int, with_points: bool, with_types: bool) -> tuple[Any, Any]:
    """Read-only copies of points and types: the library's own memory moves when the shape is edited, on any thread."""
    count = ffi.new("size_t*")
    check(lib.sm_shape_points(handle, ffi.NULL, ffi.NULL, 0, count))
    while True:
        room = count[0]
        points = np.empty((room, 2)) if with_points else None
        types = np.empty(room, np.uint8) if with_types else None
        status = lib.sm_shape_points(
            handle, ffi.NULL if points is None else ffi.from_buffer("double[]", points),
            ffi.NULL if types is None else ffi.from_buffer("uint8_t[]", types), room, count)
        if status != lib.SM_TOO_SHORT:  # else another thread has added points meanwhile
            break
    check(status)
    return tuple(None if array is None else _read_only(array[:count[0]]) for array in (points, types))  # type: ignore


def _read_only(array: NDArray[Any]) -> NDArray[Any]:
    array.flags.writeable = False
    return array


class _Outline(Shape):
    """A shape with points."""

    __slots__ = ()

    @property
    def points(self) -> NDArray[np.float64]:
        """The points, (count, 2), mm: a read-only copy."""
        points: NDArray[np.float64] = read_outline(self._handle, True, False)[0]
        return points

    @property
    def types(self) -> NDArray[np.uint8]:
        """STRAIGHT, CURVE, SEPARATOR or FILL for each point: a read-only copy."""
        types: NDArray[np.uint8] = read_outline(self._handle, False, True)[1]
        return types


@kind(lib.SM_SHAPE_VECTOR)
class Vector(_Outline):
    """An outline of straight lines and cubics.

    points: at least two, mm. Without types all are straight and make one polyline.
    """

    __slots__ = ()

    def __init__(self, points: ArrayLike, types: ArrayLike | None = None, *, color: Color | None = None) -> None:
        xy, kinds, count = outline_arguments(points, types)
        make(self, lambda shape: lib.sm_vector_new(xy, kinds, count, shape))
        if color is not None:
            self.color = color

    @classmethod
    def rectangle(cls, x: float, y: float, width: float, height: float, *, color: Color | None = None) -> Vector:
        """A rectangle, mm."""
        return cls._made(lambda shape: lib.sm_vector_new_rectangle((x, y, width, height), shape), color)

    @classmethod
    def ellipse(cls, x: float, y: float, width: float, height: float, *, color: Color | None = None) -> Vector:
        """An ellipse of four cubics in a rectangle, mm."""
        return cls._made(lambda shape: lib.sm_vector_new_ellipse((x, y, width, height), shape), color)

    @classmethod
    def _made(cls, call: Any, color: Color | None) -> Vector:
        vector = make(cls.__new__(cls), call)
        if color is not None:
            vector.color = color
        return vector

    def set_outline(self, points: ArrayLike, types: ArrayLike | None = None) -> None:
        """Replaces the outline, points in mm; without types all are straight."""
        xy, kinds, count = outline_arguments(points, types)
        check(lib.sm_shape_set_points(self._handle, xy, kinds, count))

    def fit(self, *, progress: Progress | None = None) -> Fit:
        """Replaces fine straight pieces by curves with fewer points. RuntimeError without the curve plug-in.

        progress: called when the plug-in starts, and while its outline is compared; Ctrl-C and exceptions that it
        raises stop the work there, and the outline stays unchanged.
        """
        result = new_result("sm_fit_result")
        warn(run(lambda told, context: int(lib.sm_shape_fit(self._handle, told, context, result)), progress))
        return Fit(bool(result.fitted), result.before, result.after, result.deviation)
