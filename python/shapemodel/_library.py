"""Loads the C library, and turns results of its calls into exceptions, warnings and arrays."""
from __future__ import annotations

import errno
import os
import pathlib
import sys
import sysconfig
import warnings
from typing import TYPE_CHECKING, Any, Union

import numpy as np

from ._interface import ffi as ffi  # other modules import it from here

if TYPE_CHECKING:
    from typing import Self

# The number is the version of the C interface: libraries with another one have other calls.
_NAME = "libshapemodel-c.so.1"

#: A file name, as open() takes it.
Path = Union[str, "os.PathLike[str]"]


class FormatError(ValueError):
    """A file that cannot be read: damaged, of another kind, or too large.

    filename is the file, or None for bytes; reason is what is wrong with it.
    """

    def __init__(self, reason: str, filename: str | None = None) -> None:
        super().__init__(f"{filename}: {reason}" if filename else reason)
        self.reason = reason
        self.filename = filename


class ShapeWarning(UserWarning):
    """Something was replaced, left out or not understood."""


def _candidates() -> list[str]:
    """Places of the library: SHAPEMODEL_C_LIBRARY (tests), the prefix of this package, the system's search path."""
    if asked := os.environ.get("SHAPEMODEL_C_LIBRARY"):
        return [asked]
    folders = ["lib", "lib64"]
    if multiarch := sysconfig.get_config_var("MULTIARCH"):
        folders.insert(0, f"lib/{multiarch}")
    # PREFIX/lib/python3/dist-packages/shapemodel/_library.py
    prefixes = pathlib.Path(__file__).resolve().parents[4:5]
    files = [prefix / folder / _NAME for prefix in prefixes for folder in folders]
    return [str(file) for file in files if file.exists()] + [_NAME]


def _load() -> Any:
    reason = ""
    for name in _candidates():
        try:
            # Never unloaded: Qt and plug-ins, which it loads, run its code when the process ends.
            return ffi.dlopen(name, ffi.RTLD_NOW | ffi.RTLD_NODELETE)
        except OSError as error:
            reason = reason or str(error)
    raise ImportError(f"the C library of the shape model is not there (package libshapemodel-c1): {reason}")


lib = _load()


def _said(text: Any) -> str:
    return str(ffi.string(text).decode("utf-8", "replace"))


def _file_error(status: int, reason: str, file: str) -> Exception | None:
    # Reasons start with the name of the faulty file, which may be another one: a picture beside a drawing.
    name, colon, rest = reason.partition(": ")
    if colon and os.path.basename(name) == os.path.basename(file):
        reason = rest
    if status == lib.SM_NO_FILE:
        return FileNotFoundError(errno.ENOENT, reason or "no such file", file)
    if status == lib.SM_DENIED:
        return PermissionError(errno.EACCES, reason or "denied", file)
    if status == lib.SM_CANNOT_WRITE:
        return OSError(errno.EIO, reason or "cannot be written", file)
    if status == lib.SM_CANNOT_READ:
        return FormatError(reason, file)
    return None


_EXCEPTIONS: dict[int, type[Exception]] = {
    lib.SM_WRONG_KIND: TypeError,
    lib.SM_OUT_OF_RANGE: IndexError,
    lib.SM_CANNOT_READ: FormatError,
    lib.SM_CANNOT_WRITE: OSError,
    lib.SM_NO_FILE: FileNotFoundError,
    lib.SM_DENIED: PermissionError,
    lib.SM_NO_MEMORY: MemoryError,
    lib.SM_STOPPED: InterruptedError,
    lib.SM_BUSY: RuntimeError,
    lib.SM_UNAVAILABLE: RuntimeError,
    lib.SM_INTERNAL: RuntimeError,
}


def failure(status: int, file: Path | None = None) -> Exception:
    """The exception for a status that is not SM_OK, of this thread's last call."""
    reason = _said(lib.sm_last_error()) or _said(lib.sm_status_text(status))
    named = _file_error(status, reason, os.fspath(file)) if file is not None else None
    # Bad arguments, invalid handles and refusals are all ValueErrors.
    return named or _EXCEPTIONS.get(status, ValueError)(reason)


def file_to_blame(*files: Path) -> Path:
    """Of the files of a failed call, the one with which the reason starts; else the first."""
    reason = _said(lib.sm_last_error())
    return next((file for file in files if reason.startswith(os.fsdecode(file) + ": ")), files[0])


def check(status: int) -> None:
    """Raises the exception of a failed call; for calls without warnings."""
    if status:
        raise failure(status)


def checked(status: int, file: Path | None = None) -> list[str]:
    """For calls that may warn: returns the lines for warn()."""
    if status:
        raise failure(status, file)
    return _said(lib.sm_last_warnings()).splitlines()


def warn(lines: list[str]) -> None:
    """Warns the code that has called this package."""
    level = _caller_level() if lines else 0
    for line in lines:
        warnings.warn(line, ShapeWarning, stacklevel=level)


def check_and_warn(status: int, file: Path | None = None) -> None:
    """For calls that return no handle and may warn."""
    warn(checked(status, file))


def _caller_level() -> int:
    """The stacklevel, for warnings.warn() in warn(), of the first frame outside of this package."""
    here, level = os.path.dirname(__file__), 2
    frame = sys._getframe(2)
    while frame.f_back is not None and os.path.dirname(frame.f_code.co_filename) == here:
        frame, level = frame.f_back, level + 1
    return level


def start() -> None:
    """Makes the application object that fonts and pictures need, where the process has none.

    Otherwise the first call that makes a document or a shape does so, on its thread. Scripts that make them on several
    threads call this first; programs with their own QGuiApplication make it before.
    """
    check(lib.sm_start())


def text(value: str) -> bytes:
    """The text as UTF-8. Refuses zero characters, which would silently end it."""
    if "\0" in value:
        raise ValueError("a text holds a zero character")
    return value.encode("utf-8")


def file_name(value: Path) -> bytes:
    """A file's name as bytes. Refuses zero characters."""
    name = os.fsencode(value)
    if b"\0" in name:
        raise ValueError("a file name holds a zero character")
    return name


def new_options(struct: str, **values: Any) -> Any:
    """A struct of options with its defaults, and the values that are not None."""
    options = ffi.new(struct + "*")
    check(getattr(lib, struct + "_defaults")(options, ffi.sizeof(struct)))
    for name, value in values.items():
        if value is not None:
            setattr(options, name, value)
    return options


def document_options(bare: bool, version: int | None = None, force: bool = False) -> Any:
    """Options of reading or writing a document. None leaves the C library's number for an unstated version."""
    if version is not None and version < 0:
        raise ValueError(f"version is {version}, below 0")
    return new_options("sm_document_options", bare=bare, version=version, force=force)


def new_result(struct: str) -> Any:
    """A struct for a call to fill in."""
    result = ffi.new(struct + "*")
    result.struct_size = ffi.sizeof(struct)
    return result


def new_slot() -> Any:
    """Memory for a handle, which a call stores there and which is released when nothing refers to the memory any more.

    No step of Python lies in between: an exception at any time, such as that of Ctrl-C, leaks no handle.
    """
    return ffi.gc(ffi.new("sm_handle*"), lib.sm_release_at)


class Handle:
    """An object of the library, with one reference to its handle."""

    __slots__ = ("_handle", "_slot", "__weakref__")
    _handle: int

    def _take(self, slot: Any) -> Self:
        """Takes the handle that a call has stored in slot."""
        self._slot, self._handle = slot, int(slot[0])
        return self

    @classmethod
    def _adopt(cls, slot: Any) -> Self:
        """An object for the handle in slot."""
        return cls.__new__(cls)._take(slot)

    def __eq__(self, other: object) -> bool:
        # An object keeps one handle as long as there is a reference to it. Closed documents have none.
        return self is other or (isinstance(other, Handle) and self._handle == other._handle != 0)

    def __hash__(self) -> int:
        return hash(self._handle)


class _Lender:
    """Keeps a buffer alive as long as an array shows its memory."""

    def __init__(self, buffer: Buffer, address: int, kind: str, shape: tuple[int, ...],
                 strides: tuple[int, ...] | None):
        self.buffer = buffer
        self.__array_interface__ = {
            "version": 3, "data": (address, True), "typestr": kind, "shape": shape, "strides": strides}


class Buffer(Handle):
    """Bytes that the library lends and never changes; valid as long as this object."""

    __slots__ = ("_data", "size")

    def __init__(self, slot: Any) -> None:
        data, size = ffi.new("const uint8_t**"), ffi.new("size_t*")
        check(lib.sm_buffer_view(self._take(slot)._handle, data, size))
        self._data, self.size = data[0], int(size[0])

    def to_bytes(self) -> bytes:
        """A copy."""
        return bytes(ffi.buffer(self._data, self.size)) if self.size else b""

    def array(self, kind: str, shape: tuple[int, ...], strides: tuple[int, ...] | None = None) -> np.ndarray[Any, Any]:
        """A read-only view; kind as in NumPy's array interface."""
        if not self.size:
            return np.empty(shape, np.dtype(kind))
        return np.asarray(_Lender(self, int(ffi.cast("uintptr_t", self._data)), kind, shape, strides))
