"""The base of all shapes: place, colour, state, transforms, lines."""
from __future__ import annotations

from typing import TYPE_CHECKING, Any, NamedTuple

import numpy as np
from numpy.typing import NDArray

from ._display import Shown
from ._library import Buffer, check, check_and_warn, ffi, lib, new_options, new_result, new_slot, warn
from ._progress import Progress, run
from ._values import Color, Rect, color_number, rect_of

if TYPE_CHECKING:
    from typing import Self, TypeVar

    from .document import Document

    AnyShape = TypeVar("AnyShape", bound="Shape")


class Leads(NamedTuple):
    """Lengths of lead-in and lead-out, mm; 0: none."""

    in_length: float
    out_length: float
    as_open: bool = False  #: closed outlines get leads like open ones; otherwise along the bisector of their corner


class _ColorProperty:
    """The colour, 0xRRGGBB. A string as "#ff0000" can be set, too. Setting that of a group sets it for all members."""

    # Not property(): type checkers would then allow only the returned type to be set.
    def __get__(self, shape: Shape, owner: type[Shape] | None = None) -> int:
        color = ffi.new("uint32_t*")
        check(lib.sm_shape_color(shape._handle, color))
        return int(color[0])

    def __set__(self, shape: Shape, color: Color) -> None:
        check(lib.sm_shape_set_color(shape._handle, color_number(color)))


class Shape(Shown):
    """A shape of a document, or a detached one, which is in no document.

    Lengths and places are millimetres, x to the right and y down. A shape keeps its document alive. Two objects for the
    same shape are equal. Transforms return the shape, so that they can be chained.
    """

    __slots__ = ()

    def __init__(self) -> None:
        raise TypeError("make a Vector, Text, Image, CodeImage, Group or Array")

    def __repr__(self) -> str:
        try:
            x, y, width, height = self.rect
        except ValueError:
            return f"<{type(self).__name__}, gone>"
        return f"<{type(self).__name__} {width:.6g} x {height:.6g} mm at {x:.6g}, {y:.6g}>"

    # State

    @property
    def document(self) -> Document | None:
        """The document that holds the shape, directly or in groups; None for a detached one."""
        from .document import Document

        slot = new_slot()
        check(lib.sm_shape_document(self._handle, slot))
        return Document._adopt(slot) if slot[0] else None

    @property
    def index(self) -> int:
        """The index among the document's shapes; 0 is drawn first. ValueError for members and detached shapes."""
        index = ffi.new("size_t*")
        check(lib.sm_shape_index(self._handle, index))
        return int(index[0])

    @property
    def rect(self) -> Rect:
        """The rectangle around the shape, mm, without control points of curves."""
        rect = ffi.new("sm_rect*")
        check(lib.sm_shape_rect(self._handle, rect))
        return rect_of(rect)

    color = _ColorProperty()

    def _state(self) -> int:
        state = ffi.new("uint32_t*")
        check(lib.sm_shape_state(self._handle, state))
        return int(state[0])

    def _set_state(self, bit: int, on: bool) -> None:
        state = self._state()
        check(lib.sm_shape_set_state(self._handle, state | bit if on else state & ~bit))

    @property
    def selected(self) -> bool:
        return bool(self._state() & lib.SM_STATE_SELECTED)

    @selected.setter
    def selected(self, on: bool) -> None:
        self._set_state(lib.SM_STATE_SELECTED, on)

    @property
    def locked(self) -> bool:
        return bool(self._state() & lib.SM_STATE_LOCKED)

    @locked.setter
    def locked(self, on: bool) -> None:
        self._set_state(lib.SM_STATE_LOCKED, on)

    @property
    def hidden(self) -> bool:
        """Hidden shapes are not shown and not part of jobs."""
        return bool(self._state() & lib.SM_STATE_HIDDEN)

    @hidden.setter
    def hidden(self, on: bool) -> None:
        self._set_state(lib.SM_STATE_HIDDEN, on)

    @property
    def leads(self) -> Leads:
        """Short extra lines at the start and the end of an outline, mm. Setting Leads(0, 0) removes them."""
        leads = new_result("sm_leads")
        check(lib.sm_shape_leads(self._handle, leads))
        return Leads(leads.in_length, leads.out_length, bool(leads.as_open))

    @leads.setter
    def leads(self, leads: Leads) -> None:
        options = new_options("sm_leads", **Leads(*leads)._asdict())
        check(lib.sm_shape_set_leads(self._handle, options))

    # Transforms

    def move(self, *, dx: float = 0, dy: float = 0) -> Self:
        """Moves by mm."""
        check(lib.sm_shape_move(self._handle, dx, dy))
        return self

    def move_to(self, *, x: float | None = None, y: float | None = None) -> Self:
        """Moves the upper left corner of rect, mm; a coordinate that is not given stays."""
        left, top, _, _ = self.rect
        return self.move(dx=0 if x is None else x - left, dy=0 if y is None else y - top)

    def resize(self, *, width: float | None = None, height: float | None = None) -> Self:
        """Sets width and height of rect, mm; its upper left corner stays. With one of them the proportions are kept.

        Texts keep their proportions in any case.
        """
        x, y, old_width, old_height = self.rect
        if width is None and height is None:
            raise ValueError("neither a width nor a height is given")
        if (width is None and not old_height) or (height is None and not old_width):
            raise ValueError("a line has no proportions: give both width and height")
        if width is None:
            width = old_width * (height or 0) / old_height
        if height is None:
            height = old_height * width / old_width
        return self.fit_to(Rect(x, y, width, height))

    def fit_to(self, rect: tuple[float, float, float, float]) -> Self:
        """Fits rect onto another one, x, y, width, height in mm. Texts keep their proportions."""
        check_and_warn(lib.sm_shape_resize(self._handle, tuple(rect)))
        return self

    def turn(self, *, degrees: float, about: tuple[float, float] | None = None) -> Self:
        """Turns clockwise as seen, about a point (mm) or the centre of rect."""
        x, y = self.rect.center if about is None else about
        check(lib.sm_shape_turn(self._handle, degrees, x, y))
        return self

    def mirror(self, *, x: float | None = None, y: float | None = None) -> Self:
        """Mirrors across the vertical line at x or the horizontal line at y, mm; without either, across the vertical
        line through the centre of rect."""
        if x is not None and y is not None:
            raise ValueError("either x or y is mirrored at")
        if y is not None:
            check(lib.sm_shape_mirror_y(self._handle, y))
        else:
            check(lib.sm_shape_mirror_x(self._handle, self.rect.center[0] if x is None else x))
        return self

    # Copies and lines

    def clone(self, *, progress: Progress | None = None) -> Self:
        """A deep copy, detached; also of a member.

        progress: called for a group's members; Ctrl-C and exceptions that it raises stop the work.
        """
        slot = new_slot()
        run(lambda told, context: int(lib.sm_shape_clone(self._handle, told, context, slot)), progress)
        return self._adopt(slot)

    def remove(self) -> Self:
        """Takes the shape out of its document, which detaches it. ValueError for members and detached shapes."""
        check(lib.sm_shape_remove(self._handle))
        return self

    def flatten(self, *, progress: Progress | None = None) -> list[NDArray[np.float64]]:
        """The machine's fine lines, members and cells included: for each an array (count, 2) of mm.

        The arrays are read-only views of memory that the library lends and that no edit changes. progress: called for
        outlines; Ctrl-C and exceptions that it raises stop the work.
        """
        slots = new_slot(), new_slot()
        warn(run(lambda told, context: int(lib.sm_shape_lines(self._handle, told, context, *slots)), progress))
        points, starts = map(Buffer, slots)
        xy: Any = points.array("<f8", (points.size // 16, 2))
        ends: Any = starts.array("<u8", (starts.size // 8,)).tolist()
        return [xy[begin:end] for begin, end in zip(ends, ends[1:])]


#: Classes by the library's number of their kind.
_KINDS: dict[int, type[Shape]] = {}


def kind(number: int) -> Any:
    """Decorator: registers the number of a class of shapes."""

    def note(shape: type[Shape]) -> type[Shape]:
        _KINDS[number] = shape
        return shape

    return note


def shape_of(slot: Any) -> Shape:
    """The object for what a call has put into the place, of the class for its kind."""
    number = ffi.new("int32_t*")
    check(lib.sm_shape_type(slot[0], number))
    return _KINDS[number[0]]._adopt(slot)


def make(shape: AnyShape, call: Any, path: Any = None) -> AnyShape:
    """Sets the handle of a new object to the one that call stores in its argument."""
    slot = new_slot()
    check_and_warn(call(slot), path)
    return shape._take(slot)
