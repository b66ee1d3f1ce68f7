"""Grey pictures and code images."""
from __future__ import annotations

from typing import Any

import numpy as np
from numpy.typing import ArrayLike, NDArray

from ._library import (Buffer, Path, check, check_and_warn, ffi, file_name, lib, new_options, new_result, new_slot,
                       text, warn)
from ._progress import Progress, run_with
from ._values import whole_bytes
from .shapes import Shape, kind, make
from .texts import read_text


def _pixel_arguments(pixels: ArrayLike) -> tuple[Any, int, int, int]:
    """The arguments of a call: memory, width, height and the bytes of a row."""
    array = whole_bytes(pixels, "pixels")
    if array.ndim != 2 or not array.size:
        raise ValueError(f"pixels have the shape {array.shape}, not (height, width)")
    return ffi.from_buffer("uint8_t[]", array), array.shape[1], array.shape[0], array.shape[1]


def _rect(pixels: tuple[Any, int, int, int], x: float, y: float, width: float,
          height: float | None) -> tuple[float, ...]:
    return x, y, width, width * pixels[2] / pixels[1] if height is None else height


@kind(lib.SM_SHAPE_IMAGE)
class Image(Shape):
    """A picture of grey pixels, an array (height, width) of 0 (black) to 255 (white), rows from the top.

    width and height are mm; without a height the pixels are square. x, y is the upper left corner, mm.
    """

    __slots__ = ()

    def __init__(self, pixels: ArrayLike, *, width: float, height: float | None = None, x: float = 0,
                 y: float = 0) -> None:
        memory = _pixel_arguments(pixels)
        rect = _rect(memory, x, y, width, height)
        make(self, lambda shape: lib.sm_image_new(*memory, rect, shape))

    @classmethod
    def open(cls, path: Path, *, large: bool = False, progress: Progress | None = None) -> Image:
        """Decodes a PNG, JPEG, BMP, TIFF or WebP file, its upper left corner at 0, 0, its size from its resolution.

        large allows more than 256 MiB of pixels. Warns of pictures that may be damaged. progress: called while the
        decoder works; Ctrl-C and exceptions that it raises take effect after decoding.
        """
        options, name, slot = new_options("sm_image_options", large=large), file_name(path), new_slot()
        warn(run_with(options, lambda: int(lib.sm_image_open(name, options, slot)), progress, path))
        return cls._adopt(slot)

    @property
    def pixels(self) -> NDArray[np.uint8]:
        """The pixels as displayed, with all edits; white beside a turned picture.

        A read-only view of memory that the library lends and that no edit changes. Setting others keeps the rectangle
        and discards the edits.
        """
        return self._read_pixels(lib.SM_PIXELS_SHOWN)

    @pixels.setter
    def pixels(self, pixels: ArrayLike) -> None:
        check_and_warn(lib.sm_shape_set_pixels(self._handle, *_pixel_arguments(pixels)))

    @property
    def original_pixels(self) -> NDArray[np.uint8]:
        """The pixels as they were given, before edits: a read-only view as of pixels."""
        return self._read_pixels(lib.SM_PIXELS_UNEDITED)

    def _read_pixels(self, which: int) -> NDArray[np.uint8]:
        info, slot = new_result("sm_pixels"), new_slot()
        check(lib.sm_shape_pixels(self._handle, which, info, slot))
        return Buffer(slot).array("|u1", (info.height, info.width), (info.stride, 1))


@kind(lib.SM_SHAPE_CODE_IMAGE)
class CodeImage(Image):
    """A picture of a code, with the text that it encodes. The caller supplies the pixels of the code.

    number is 0 or 1: a program's own number for the kind of code, which is stored unchanged.
    """

    __slots__ = ()

    def __init__(self, pixels: ArrayLike, *, code: str, width: float, number: int = 0, height: float | None = None,
                 x: float = 0, y: float = 0) -> None:
        memory = _pixel_arguments(pixels)
        rect = _rect(memory, x, y, width, height)
        make(self, lambda shape: lib.sm_code_image_new(*memory, rect, text(code), number, shape))

    @classmethod
    def open(cls, path: Path, *, large: bool = False, progress: Progress | None = None) -> Image:
        """TypeError: a file holds a picture, not the text that its code encodes. Give the pixels to CodeImage."""
        raise TypeError("a picture file does not say which text its code encodes: CodeImage(Image.open(file).pixels, "
                        "code=..., width=...)")

    @property
    def code(self) -> str:
        """The text that is encoded."""
        return read_text(self._handle)

    @property
    def number(self) -> int:
        """The number of the kind of code."""
        number = ffi.new("int32_t*")
        check(lib.sm_code_image_kind(self._handle, number))
        return int(number[0])
