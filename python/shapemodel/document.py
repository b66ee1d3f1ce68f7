"""Documents: lists of shapes, and their files."""
from __future__ import annotations

import itertools
from typing import TYPE_CHECKING, Any, Callable, Iterable, Iterator, Sequence, overload

from . import groups as _groups  # these imports register the kinds of shapes
from . import images as _images
from . import texts as _texts
from . import vectors as _vectors
from ._display import Shown
from ._library import Path, check, document_options, ffi, file_name, lib, new_options, new_slot, warn
from ._progress import Progress, run_with, take_bytes
from ._values import Rect, rect_of
from .groups import END, Array, Group
from .job import ColorSetting, Job, new_job
from .shapes import Shape, shape_of

if TYPE_CHECKING:
    from types import TracebackType
    from typing import Mapping, Self, TypeVar

    from ._values import Color

    AnyShape = TypeVar("AnyShape", bound=Shape)


class Document(Shown):
    """Shapes in the order in which they are drawn. Document() is empty.

    It is a sequence: len(document), document[0], document[-1], document[2:5], and loops over it. A with statement
    closes it at the end; shapes that are still referenced then keep their document alive.
    """

    __slots__ = ()

    def __init__(self) -> None:
        slot = new_slot()
        check(lib.sm_document_new(slot))
        self._take(slot)

    # Files

    @classmethod
    def open(cls, path: Path, *, bare: bool = False, version: int | None = None,
             progress: Progress | None = None) -> Self:
        """Reads a file. Warns of fonts that were replaced.

        bare: a list stream without the file header, of that version (None: the present one). Raises FileNotFoundError,
        PermissionError, and FormatError for a damaged document or another kind of file: see check() and repair().
        progress: called with the state of the work; Ctrl-C and exceptions that it raises stop the work.
        """
        slot, options, name = new_slot(), document_options(bare, version), file_name(path)
        warn(run_with(options, lambda: int(lib.sm_document_open(name, options, slot)), progress, path))
        return cls._adopt(slot)

    @classmethod
    def from_bytes(cls, data: bytes | bytearray | memoryview, *, bare: bool = False, version: int | None = None,
                   progress: Progress | None = None) -> Self:
        """Reads the bytes of a file, as open()."""
        slot, options, memory = new_slot(), document_options(bare, version), ffi.from_buffer(data)
        warn(run_with(
            options, lambda: int(lib.sm_document_open_bytes(memory, len(memory), options, slot)), progress))
        return cls._adopt(slot)

    def save(self, path: Path, *, bare: bool = False, force: bool = False, progress: Progress | None = None) -> None:
        """Writes a file completely or not at all: an existing one is replaced after all is on the disk.

        force replaces write-protected files, and those whose owner or group cannot be kept. progress: as in open(); a
        stop leaves an existing file unchanged. It cannot use this document.
        """
        options, name, handle = document_options(bare, force=force), file_name(path), self._open_handle()
        warn(run_with(options, lambda: int(lib.sm_document_save(handle, name, options)), progress, path))

    def to_bytes(self, *, bare: bool = False, progress: Progress | None = None) -> bytes:
        """The bytes that save() would write."""
        options, handle = document_options(bare), self._open_handle()
        return take_bytes(options, lambda buffer: int(lib.sm_document_save_bytes(handle, options, buffer)), progress)

    def close(self) -> None:
        """Releases the document without saving it."""
        if self._handle:
            self._handle = 0
            lib.sm_release_at(self._slot)

    def __enter__(self) -> Self:
        self._open_handle()
        return self

    def __exit__(self, kind: type[BaseException] | None, error: BaseException | None,
                 trace: TracebackType | None) -> None:
        self.close()

    def _open_handle(self) -> int:
        if not self._handle:
            raise ValueError("the document is closed")
        return self._handle

    # A sequence of shapes

    def __len__(self) -> int:
        count = ffi.new("size_t*")
        check(lib.sm_document_count(self._open_handle(), count))
        return int(count[0])

    def __bool__(self) -> bool:
        return True

    def __repr__(self) -> str:
        if not self._handle:
            return "<Document, closed>"
        count, (x, y, width, height) = len(self), self.rect
        shapes = "1 shape" if count == 1 else f"{count} shapes"
        return f"<Document of {shapes}, {width:.6g} x {height:.6g} mm at {x:.6g}, {y:.6g}>"

    @overload
    def __getitem__(self, index: int) -> Shape: ...

    @overload
    def __getitem__(self, index: slice) -> list[Shape]: ...

    def __getitem__(self, index: int | slice) -> Shape | list[Shape]:
        if isinstance(index, slice):
            return [self[place] for place in range(*index.indices(len(self)))]
        if index < 0:
            index += len(self)
        if not 0 <= index < END:
            raise IndexError("no such shape")
        slot = new_slot()
        check(lib.sm_document_shape(self._open_handle(), index, slot))
        return shape_of(slot)

    def __iter__(self) -> Iterator[Shape]:
        # As with a list, shapes that are added during the loop are visited, too.
        for index in itertools.count():
            try:
                shape = self[index]
            except IndexError:
                return
            yield shape

    def __contains__(self, shape: object) -> bool:
        return isinstance(shape, Shape) and shape.document == self

    def walk(self) -> Iterator[Shape]:
        """All shapes, each group and array before its members."""
        waiting: list[Shape] = self[::-1]
        while waiting:
            shape = waiting.pop()
            yield shape
            if isinstance(shape, (Group, Array)):
                waiting.extend(reversed(shape.members))

    def select(self, predicate: Callable[[Shape], object], *, members: bool = False) -> list[Shape]:
        """The shapes for which predicate is true; members: those in groups and arrays, too."""
        return [shape for shape in (self.walk() if members else iter(self)) if predicate(shape)]

    @property
    def rect(self) -> Rect:
        """The rectangle around all shapes, mm; all 0 without any."""
        rect = ffi.new("sm_rect*")
        check(lib.sm_document_rect(self._open_handle(), rect))
        return rect_of(rect)

    # Shapes in and out

    def add(self, shape: AnyShape, index: int | None = None) -> AnyShape:
        """Puts a detached shape in front of the one at index, as list.insert does, or behind all. Returns it."""
        if index is None:
            place = END  # the end also when another thread adds a shape
        else:
            count = len(self)
            place = min(max(0, index + count if index < 0 else index), count)
        check(lib.sm_document_add(self._open_handle(), shape._handle, place))
        return shape

    def remove(self, shape: AnyShape) -> AnyShape:
        """Takes a shape out of the document, which detaches it. Returns it."""
        if shape not in self:
            raise ValueError("the shape is not in this document")
        return shape.remove()

    def __delitem__(self, index: int | slice) -> None:
        shapes = self[index] if isinstance(index, slice) else [self[index]]
        for shape in shapes:
            shape.remove()

    def group(self, shapes: Iterable[Shape]) -> Group:
        """Makes a group of shapes of the document; it takes the place of the first of them."""
        return Group(self._own(shapes))

    def array(self, shapes: Iterable[Shape], *, rows: int = 1, columns: int = 1, gap: Sequence[float] = (0, 0),
              shift: Sequence[float] = (0, 0)) -> Array:
        """Repeats shapes of the document over a grid, lengths in mm: see Array."""
        return Array(self._own(shapes), rows=rows, columns=columns, gap=gap, shift=shift)

    def _own(self, shapes: Iterable[Shape]) -> list[Shape]:
        own = list(shapes)
        if any(shape not in self for shape in own):
            raise ValueError("a shape is not in this document")
        return own

    def import_drawing(self, source: Path | bytes, *, base: Path | None = None, flatten: bool = False,
                       solid: bool = False, visible: bool = False, crop: bool = False, fills: bool = False,
                       text_as_text: bool = False, progress: Progress | None = None) -> list[Shape]:
        """Adds the shapes of a drawing (SVG, plain or compressed), a file or its bytes, and returns them.

        The page's corner lies at 0, 0; a user unit is 1/96 inch. Warns of differences from the painted drawing.
        flatten: fine straight pieces instead of curves. solid: dashed lines become solid. visible: parts that later
        opaque fills hide are left out. crop: cut at the page. fills: filled areas can be engraved. text_as_text: texts
        stay texts where a text shape draws what is painted. base: for bytes, the file beside which linked pictures lie.
        progress: as in open().
        """
        handle, count = self._open_handle(), ffi.new("size_t*")
        options = new_options("sm_drawing_options", flatten=flatten, solid=solid, visible=visible, crop=crop,
                              fills=fills, text_as_text=text_as_text)
        if isinstance(source, bytes):
            data, beside = source, ffi.NULL if base is None else file_name(base)
            warn(run_with(options, lambda: int(lib.sm_document_import_drawing_bytes(
                handle, data, len(data), beside, options, count)), progress, base))
        else:
            name = file_name(source)
            warn(run_with(options, lambda: int(lib.sm_document_import_drawing(
                handle, name, options, count)), progress, source))
        return self[len(self) - count[0]:]  # progress may have added or removed shapes before

    def import_picture(self, path: Path, *, large: bool = False, progress: Progress | None = None) -> _images.Image:
        """Adds the picture of a file: see Image.open."""
        return self.add(_images.Image.open(path, large=large, progress=progress))

    def import_text(self, path: Path, *, encoding: str = "utf-8", **style: Any) -> _texts.Text:
        """Adds the text of a file; style: the keywords of Text."""
        with open(path, encoding=encoding) as file:
            return self.add(_texts.Text(file.read().rstrip("\n"), **style))

    # Jobs

    def job(self, *, order: str = "fast", engrave: bool = False, mix_colors: bool = False, leads: bool = False,
            frames: bool | None = None, arcs: bool = False, keep_doubles: bool = False, one_way: bool = False,
            grey_step: int | None = None, dither: bool = False, join: float | None = None,
            lines_per_mm: float | None = None, colors: Mapping[Color, ColorSetting] | None = None,
            progress: Progress | None = None) -> Job:
        """A job for the machine, of the document as it is now. Warns of shapes without lines.

        order: "fast" (inside before outside, short moves) or "reading". engrave: pictures and filled outlines become
        rows, lines_per_mm of them (10). colors: settings by colour. join: ends of one colour no farther apart than
        this, mm, are joined (0.05). arcs: curves become arcs. leads: lead-in and lead-out lines. grey_step: greys that
        differ by no more than this burn as one. dither: dots that burn or do not. one_way: all rows from left to right.
        frames: outlines of engraved shapes are followed, too. mix_colors: colours may alternate. keep_doubles: lines
        that lie on each other are all cut. progress: called with the state of the work; Ctrl-C and exceptions that it
        raises stop the work.
        """
        return new_job(
            self._open_handle(), colors, progress, order=order, engrave=engrave, mix_colors=mix_colors, leads=leads,
            frames=frames, arcs=arcs, keep_doubles=keep_doubles, one_way=one_way, grey_step=grey_step, dither=dither,
            join=join, lines_per_mm=lines_per_mm)


__all__ = ["Document"]
