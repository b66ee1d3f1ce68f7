"""Groups, and arrays that repeat shapes over a grid."""
from __future__ import annotations

from typing import Any, Iterable, Iterator, NamedTuple, Sequence

from ._library import check, ffi, lib, new_options, new_result, new_slot
from ._values import Rect, pair, rect_of
from .shapes import Shape, kind, make, shape_of

#: The index behind all others.
END = int(ffi.cast("size_t", lib.SM_END))


def _handles(shapes: list[Shape]) -> tuple[Any, int]:
    """The shapes' handles for a call, and their number. Keep references to the shapes until the call returns: otherwise
    their handles become invalid."""
    handles = [shape._handle for shape in shapes]
    return ffi.new("sm_shape[]", handles), len(handles)


class _Members(Shape):
    """A shape with members."""

    __slots__ = ()

    def __len__(self) -> int:
        count = ffi.new("size_t*")
        check(lib.sm_shape_member_count(self._handle, count))
        return int(count[0])

    def __bool__(self) -> bool:
        return True

    def __getitem__(self, index: int) -> Shape:
        if index < 0:
            index += len(self)
        if not 0 <= index < END:
            raise IndexError("no such member")
        slot = new_slot()
        check(lib.sm_shape_member(self._handle, index, slot))
        return shape_of(slot)

    def __iter__(self) -> Iterator[Shape]:
        for index in range(len(self)):
            yield self[index]

    @property
    def members(self) -> list[Shape]:
        """The shapes in it."""
        return list(self)


@kind(lib.SM_SHAPE_GROUP)
class Group(_Members):
    """Shapes that are treated as one.

    Made of shapes of one document, it takes the place of the first of them; made of detached shapes, it is detached.
    """

    __slots__ = ()

    def __init__(self, shapes: Iterable[Shape]) -> None:
        held = list(shapes)
        handles = _handles(held)
        make(self, lambda shape: lib.sm_group_new(*handles, shape))

    def dissolve(self) -> list[Shape]:
        """Replaces the group in its document by its members and returns these. The group no longer exists then."""
        members = self.members
        check(lib.sm_group_dissolve(self._handle))
        return members


class Cell(NamedTuple):
    """A place of an array."""

    rect: Rect  #: mm
    valid: bool  #: False: it was left out


@kind(lib.SM_SHAPE_ARRAY)
class Array(_Members):
    """Shapes, repeated over a grid. Its place is that of a group of them.

    gap is the distance of neighbouring columns and rows, mm; shift moves odd rows to the right and odd columns down.
    """

    __slots__ = ()

    def __init__(self, shapes: Iterable[Shape], *, rows: int = 1, columns: int = 1, gap: Sequence[float] = (0, 0),
                 shift: Sequence[float] = (0, 0)) -> None:
        held = list(shapes)
        handles, gaps, shifts = _handles(held), pair(gap, "gap"), pair(shift, "shift")
        options = new_options("sm_array_options", rows=rows, columns=columns, column_gap=gaps[0], row_gap=gaps[1],
                              row_shift=shifts[0], column_shift=shifts[1])
        make(self, lambda shape: lib.sm_array_new(*handles, options, shape))

    @property
    def cells(self) -> list[Cell]:
        """All cells, row by row, left out ones included."""
        count, cell = ffi.new("size_t*"), new_result("sm_cell")
        check(lib.sm_array_cell_count(self._handle, count))
        cells = []
        for index in range(count[0]):
            check(lib.sm_array_cell(self._handle, index, cell))
            cells.append(Cell(rect_of(cell.rect), bool(cell.valid)))
        return cells

    def delete_cell(self, index: int) -> None:
        """Leaves a cell out. The others keep their indices."""
        check(lib.sm_array_delete_cell(self._handle, index))
