"""Checks and repairs damaged documents."""
from __future__ import annotations

from typing import Any, NamedTuple, Optional

from ._library import Path, document_options, ffi, file_name, file_to_blame, lib, new_result, warn
from ._progress import Progress, run_with, take_bytes


class Check(NamedTuple):
    """The result of check()."""

    clean: bool  #: every byte matches the format
    version: Optional[int]  #: with which the document was checked; None: not known
    bare: bool  #: there is no file header
    shapes: int  #: whole shapes before the first fault, members included
    fault_offset: int  #: byte
    fault: str  #: as "list > shape 12 (group) > member 3 (text) > family: length 80 is outside 0 to 63"


class Repair(NamedTuple):
    """The result of repair()."""

    version: int  #: with which the damaged document was read
    kept_before: int  #: shapes before the first fault, members included
    recovered: int  #: shapes behind the first fault
    open_groups: int  #: recovered groups and arrays that have lost members or cells
    mended_values: int  #: impossible values, replaced by harmless ones
    skipped_bytes: int  #: bytes that belong to no kept shape
    gave_up: bool  #: the search ended at its limit, the rest was skipped


def check(source: Path | bytes, *, bare: bool = False, version: int | None = None,
          progress: Progress | None = None) -> Check:
    """Checks every byte of a file, or of its bytes. A damaged document is a result, not an exception.

    progress: called with the state of the work; Ctrl-C and exceptions that it raises stop the work.
    """
    options, result = document_options(bare, version), new_result("sm_check_result")
    if isinstance(source, bytes):
        data = source
        warn(run_with(options, lambda: int(lib.sm_check_bytes(data, len(data), options, result)), progress))
    else:
        name = file_name(source)
        warn(run_with(options, lambda: int(lib.sm_check(name, options, result)), progress, source))
    return Check(bool(result.clean), None if result.version == lib.SM_VERSION_UNSTATED else result.version,
                 bool(result.bare), result.shapes, result.fault_offset,
                 ffi.string(result.fault).decode("utf-8", "replace"))


def repair(source: Path, target: Path, *, bare: bool = False, version: int | None = None, force: bool = False,
           progress: Progress | None = None) -> Repair:
    """Writes what can be saved of a damaged document as a new one, for which check() returns clean.

    FormatError where nothing can be saved. force replaces a write-protected target, and one whose owner or group cannot
    be kept. progress: as in check(); a stop leaves an existing target unchanged.
    """
    options, result = document_options(bare, version, force), new_result("sm_repair_result")
    names = file_name(source), file_name(target)
    warn(run_with(options, lambda: int(lib.sm_repair(*names, options, result)), progress,
                  lambda: file_to_blame(source, target)))
    return _repair(result)


def repair_bytes(data: bytes, *, bare: bool = False, version: int | None = None,
                 progress: Progress | None = None) -> tuple[bytes, Repair]:
    """Repairs the bytes of a file; returns those of the new document."""
    options, result = document_options(bare, version), new_result("sm_repair_result")
    repaired = take_bytes(options, lambda buffer: int(lib.sm_repair_bytes(data, len(data), options, buffer, result)),
                          progress)
    return repaired, _repair(result)


def _repair(result: Any) -> Repair:
    return Repair(result.version, result.kept_before, result.recovered, result.open_groups, result.mended_values,
                  result.skipped_bytes, bool(result.gave_up))
