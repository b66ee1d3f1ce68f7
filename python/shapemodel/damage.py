"""Checks and repairs damaged documents."""
from __future__ import annotations

from typing import Any, NamedTuple, Optional

from ._library import (Buffer, Path, check_and_warn, checked, document_options, ffi, file_name, file_to_blame, lib,
                       new_result, warn)


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


def check(source: Path | bytes, *, bare: bool = False, version: int | None = None) -> Check:
    """Checks every byte of a file, or of its bytes. A damaged document is a result, not an exception."""
    options, result = document_options(bare, version), new_result("sm_check_result")
    if isinstance(source, bytes):
        check_and_warn(lib.sm_check_bytes(source, len(source), options, result))
    else:
        check_and_warn(lib.sm_check(file_name(source), options, result), source)
    return Check(bool(result.clean), None if result.version == lib.SM_VERSION_UNSTATED else result.version, bool(result.bare), result.shapes,
                 result.fault_offset, ffi.string(result.fault).decode("utf-8", "replace"))


def repair(source: Path, target: Path, *, bare: bool = False, version: int | None = None) -> Repair:
    """Writes what can be saved of a damaged document as a new one, for which check() returns clean.

    FormatError where nothing can be saved.
    """
    result = new_result("sm_repair_result")
    status = lib.sm_repair(file_name(source), file_name(target), document_options(bare, version), result)
    check_and_warn(status, file_to_blame(source, target) if status else None)
    return _repair(result)


def repair_bytes(data: bytes, *, bare: bool = False, version: int | None = None) -> tuple[bytes, Repair]:
    """Repairs the bytes of a file; returns those of the new document."""
    result, buffer = new_result("sm_repair_result"), ffi.new("sm_buffer*")
    lines = checked(lib.sm_repair_bytes(data, len(data), document_options(bare, version), buffer, result))
    repaired = Buffer(buffer[0]).to_bytes()
    warn(lines)
    return repaired, _repair(result)


def _repair(result: Any) -> Repair:
    return Repair(result.version, result.kept_before, result.recovered, result.open_groups, result.mended_values,
                  result.skipped_bytes, bool(result.gave_up))
