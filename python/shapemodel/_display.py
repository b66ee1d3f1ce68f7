"""Renders documents, shapes and jobs: in notebooks, as bytes, or to files."""
from __future__ import annotations

import os
import time

from ._library import Buffer, Handle, Path, check_and_warn, file_name, lib, new_options, new_slot, warn
from ._progress import Progress, run_with

# Browsers need seconds for larger SVGs, and making them takes long; notebooks show the PNG instead.
_LARGEST_SVG = 1_000_000
_LONGEST_SVG = 1.0  # seconds
_FORMATS = {".png": lib.SM_PICTURE_PNG, ".svg": lib.SM_PICTURE_SVG, ".pdf": lib.SM_PICTURE_PDF}


class _TooLong(ValueError):
    pass


class Shown(Handle):
    """An object that can be drawn on a sheet with a millimetre frame."""

    __slots__ = ()

    def render(self, path: Path | None = None, *, format: str | None = None, width: int | None = None,
               points: bool = False, progress: Progress | None = None) -> bytes:
        """Draws a picture, and writes it to a file where a path is given.

        format is "png", "svg" or "pdf"; by default the path's ending decides, else PNG. width is in pixels, of a PNG,
        800 by default. points shows the outlines' points, too (documents and shapes). progress: called with the state
        of the work; Ctrl-C and exceptions that it raises stop the work. It cannot use the object that is being drawn.
        """
        if format:
            ending = "." + format
        else:
            ending = os.path.splitext(os.fspath(path))[1].lower() if path is not None else ".png"
        if ending not in _FORMATS:
            raise ValueError(f"{ending[1:]!r} is none of 'png', 'svg' and 'pdf'")
        options = new_options("sm_render_options", format=_FORMATS[ending], width=width, points=points)
        name = None if path is None else file_name(path)
        slot = new_slot()
        lines = run_with(options, lambda: int(lib.sm_render(self._handle, options, slot)), progress)
        picture = Buffer(slot)
        if name is not None:
            check_and_warn(lib.sm_buffer_save(picture._handle, name), path)
        warn(lines)
        return picture.to_bytes()

    def _repr_png_(self) -> bytes | None:
        try:
            return self.render()
        except ValueError:  # closed, or nothing to show
            return None

    def _repr_svg_(self) -> str | None:
        end = time.monotonic() + _LONGEST_SVG

        def watch(step: str, done: int, total: int) -> None:
            if time.monotonic() > end:
                raise _TooLong(step)

        try:
            picture = self.render(format="svg", progress=watch)
        except ValueError:
            return None
        return picture.decode() if len(picture) <= _LARGEST_SVG else None
