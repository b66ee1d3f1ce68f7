"""Damaged documents: what is wrong with them, and what is left."""
from __future__ import annotations

from typing import Any, NamedTuple, Optional

from ._library import (Buffer, Path, check_and_warn, checked, document_options, ffi, file_name, file_to_blame, lib,
                       new_result, warn)


class Check(NamedTuple):
    """How far a document is intact."""

    clean: bool  #: every byte matches the format
    version: Optional[int]  #: with which it was looked at
    bare: bool  #: there is no file header
    shapes: int  #: whole ones before the first fault, members included
    fault_offset: int  #: byte
    fault: str  #: as "list > shape 12 (group) > member 3 (text) > family: length 80 is outside 0 to 63"


class Repair(NamedTuple):
    """What a repair has kept."""

    version: int  #: that the damaged document was read with
    kept_before: int  #: shapes before the first fault, members included
    recovered: int  #: shapes behind it
    open_groups: int  #: recovered groups and arrays that have lost members or cells
    mended_values: int  #: impossible values, replaced by harmless ones
    skipped_bytes: int  #: that belong to no shape that is kept
    gave_up: bool  #: the search would have taken too long, the rest was skipped


def check(source: Path | bytes, *, bare: bool = False, version: int | None = None) -> Check:
    """Looks at every byte of a file, or of its bytes. Answers for damaged documents, too."""
    options, result = document_options(bare, version), new_result("sm_check_result")
    if isinstance(source, bytes):
        check_and_warn(lib.sm_check_bytes(source, len(source), options, result))
    else:
        check_and_warn(lib.sm_check(file_name(source), options, result), source)
    return Check(bool(result.clean), None if result.version == lib.SM_VERSION_UNSTATED else result.version, bool(result.bare), result.shapes,
                 result.fault_offset, ffi.string(result.fault).decode("utf-8", "replace"))


def repair(source: Path, target: Path, *, bare: bool = False, version: int | None = None) -> Repair:
    """Writes what a damaged document still holds as a new one, which check() calls clean.

    FormatError where nothing can be saved.
    """
    result = new_result("sm_repair_result")
    status = lib.sm_repair(file_name(source), file_name(target), document_options(bare, version), result)
    check_and_warn(status, file_to_blame(source, target) if status else None)
    return _repair(result)


def repair_bytes(data: bytes, *, bare: bool = False, version: int | None = None) -> tuple[bytes, Repair]:
    """The same of the bytes of a file."""
    result, buffer = new_result("sm_repair_result"), ffi.new("sm_buffer*")
    lines = checked(lib.sm_repair_bytes(data, len(data), document_options(bare, version), buffer, result))
    repaired = Buffer(buffer[0]).to_bytes()
    warn(lines)
    return repaired, _repair(result)


def _repair(result: Any) -> Repair:
    return Repair(result.version, result.kept_before, result.recovered, result.open_groups, result.mended_values,
                  result.skipped_bytes, bool(result.gave_up))
