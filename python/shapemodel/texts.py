"""Texts that stay texts."""
from __future__ import annotations

from typing import Any, NamedTuple

from ._library import check, check_and_warn, ffi, lib, new_options, new_result, text
from ._values import Color, alignment_name, alignment_number
from .shapes import Shape, kind, make


_LONGEST_FAMILY = 63  # bytes; a record has one more byte, for the terminating zero


class TextStyle(NamedTuple):
    """Font, size and layout of a text."""

    font: str  #: the family
    size: float  #: mm, of the font
    bold: bool
    italic: bool
    align: str  #: of lines: "left", "center" (on the centre of the first line) or "right"
    vertical: bool  #: characters run down columns
    char_spacing: float  #: mm, added between letters
    line_spacing: float  #: mm, added between lines


def read_text(handle: int) -> str:
    """The text of a text shape, or the one that a code image encodes."""
    length = ffi.new("size_t*")
    check(lib.sm_shape_text(handle, ffi.NULL, 0, length))
    while True:
        room = length[0] + 1
        memory = ffi.new("char[]", room)
        status = lib.sm_shape_text(handle, memory, room, length)
        if status != lib.SM_TOO_SHORT:  # else another thread has set a longer text meanwhile
            break
    check(status)
    return str(ffi.string(memory).decode("utf-8"))


def _style_values(values: dict[str, Any]) -> dict[str, Any]:
    font = values.pop("font", None)
    family = None if font is None else text(font)
    if family is not None and len(family) > _LONGEST_FAMILY:
        raise ValueError(f"a font's name has at most {_LONGEST_FAMILY} bytes")
    return {**values, "align": alignment_number(values.get("align")), "family": family}


@kind(lib.SM_SHAPE_TEXT)
class Text(Shape):
    """A text in a font of the system, lines separated by line feeds, its upper left corner at x, y (mm).

    size is that of the font in mm, 10 by default; the spacings are added between letters and lines, mm. Warns of
    missing fonts and letters.
    """

    __slots__ = ()

    def __init__(self, content: str, *, font: str | None = None, size: float | None = None, bold: bool | None = None,
                 italic: bool | None = None, align: str | None = None, vertical: bool | None = None,
                 char_spacing: float | None = None, line_spacing: float | None = None, x: float = 0, y: float = 0,
                 color: Color | None = None) -> None:
        options = new_options("sm_text_options", **_style_values(
            {"font": font, "size": size, "bold": bold, "italic": italic, "align": align, "vertical": vertical,
             "char_spacing": char_spacing, "line_spacing": line_spacing}))
        make(self, lambda shape: lib.sm_text_new(text(content), options, shape))
        if x or y:
            self.move(dx=x, dy=y)
        if color is not None:
            self.color = color

    @property
    def text(self) -> str:
        """Its letters. Setting them keeps the centre."""
        return read_text(self._handle)

    @text.setter
    def text(self, content: str) -> None:
        check_and_warn(lib.sm_shape_set_text(self._handle, text(content), ffi.NULL))

    @property
    def style(self) -> TextStyle:
        """Its style. Setting it keeps the centre: text.style = text.style._replace(size=12)."""
        options = self._options()
        return TextStyle(ffi.string(options.family).decode("utf-8"), options.size, bool(options.bold),
                         bool(options.italic), alignment_name(options.align), bool(options.vertical),
                         options.char_spacing, options.line_spacing)

    @style.setter
    def style(self, style: TextStyle) -> None:
        options = self._options()
        for name, value in _style_values(style._asdict()).items():
            setattr(options, name, value)
        check_and_warn(lib.sm_shape_set_text(self._handle, text(self.text), options))

    def _options(self) -> Any:
        options = new_result("sm_text_options")
        check(lib.sm_shape_text_options(self._handle, options))
        return options
