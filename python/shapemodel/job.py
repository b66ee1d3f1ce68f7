"""Jobs for the machine."""
from __future__ import annotations

import json
from typing import Any, Callable, Mapping, NamedTuple, Optional, Sequence

from ._display import Shown
from ._library import Buffer, Path, check, ffi, file_name, lib, new_options, new_result, new_slot, warn
from ._progress import Progress, run
from ._values import Color, Rect, color_number, rect_of

_ORDERS = {"fast": lib.SM_ORDER_FAST, "reading": lib.SM_ORDER_READING}
_DIALECTS = {"grbl": lib.SM_DIALECT_GRBL, "marlin": lib.SM_DIALECT_MARLIN}
_AIR = {"off": lib.SM_AIR_OFF, "lines": lib.SM_AIR_LINES, "all": lib.SM_AIR_ALL}


class ColorSetting(NamedTuple):
    """Settings for the lines of a colour; None: as for all others."""

    feed: Optional[float] = None  #: mm per minute
    power: Optional[float] = None  #: S word
    passes: Optional[int] = None
    order: Optional[int] = None  #: lower orders are cut first, colours without one last


class GcodeOptions(NamedTuple):
    """Options of G-code; None: the library's default, which the remarks give."""

    dialect: str = "grbl"  #: or "marlin"
    feed: Optional[float] = None  #: mm per minute: 1200
    power: Optional[float] = None  #: S word: half of the dialect's full power
    constant_power: bool = False  #: M3 instead of M4
    passes: Optional[int] = None
    pass_depth: Optional[float] = None  #: mm by which each further pass is deeper
    air: str = "off"  #: "lines": on along lines; "all": on along rows, too
    y_down: bool = False  #: y as in the document
    height: Optional[float] = None  #: mm: the document's y that becomes 0; else the lowest line's
    engrave_feed: Optional[float] = None  #: mm per minute in rows: as feed
    least_power: Optional[float] = None  #: S word of nearly white: 0
    most_power: Optional[float] = None  #: S word of black: as power
    overscan: Optional[float] = None  #: mm of run-up on either side of a row: 0


def _gcode_struct(options: GcodeOptions | None, values: dict[str, Any]) -> Any:
    if unknown := values.keys() - set(GcodeOptions._fields):
        raise TypeError(f"no option of G-code: {', '.join(sorted(unknown))}")
    fields = (options or GcodeOptions())._replace(**values)._asdict()
    _expect_meant(fields)
    fields["dialect"] = _choice(_DIALECTS, fields["dialect"])
    fields["air"] = _choice(_AIR, fields["air"])
    return new_options("sm_gcode_options", **fields, has_height=fields["height"] is not None)


def _expect_meant(fields: Mapping[str, Any]) -> None:
    """Refuses numbers that mean the default to the C library; here only None does."""
    for name, value in fields.items():
        if name in ("power", "most_power") and value is not None and value < 0:
            raise ValueError(f"{name} is {value}, below 0")
        if name in ("feed", "engrave_feed", "passes") and value == 0:
            raise ValueError(f"{name} is 0")


def _choice(names: Mapping[str, int], name: str) -> int:
    if name not in names:
        raise ValueError(f"{name!r} is none of {', '.join(map(repr, names))}")
    return names[name]


def _color_settings(colors: Mapping[Color, ColorSetting] | None) -> Any:
    structs = ffi.new("sm_color_setting[]", len(colors or {}))
    for struct, (color, setting) in zip(structs, (colors or {}).items()):
        check(lib.sm_color_setting_defaults(ffi.addressof(struct), ffi.sizeof("sm_color_setting")))
        struct.color = color_number(color)
        _expect_meant(setting._asdict())
        for name, value in setting._asdict().items():
            if value is not None:
                setattr(struct, name, value)
    return structs


def new_job(document: int, colors: Mapping[Color, ColorSetting] | None, progress: Progress | None, *, order: str,
            **values: Any) -> Job:
    options = new_options("sm_job_options", order=_choice(_ORDERS, order), **values)
    settings, slot = _color_settings(colors), new_slot()
    if len(settings):
        options.colors, options.color_count = settings, len(settings)
    warn(run(lambda told, context: int(lib.sm_job_new(document, options, told, context, slot)), progress))
    return Job._adopt(slot)


class Job(Shown):
    """Lines and rows in the order in which a machine burns them, made by Document.job.

    Later changes of the document do not affect it.
    """

    __slots__ = ()

    def __init__(self) -> None:
        raise TypeError("Document.job makes jobs")

    def __repr__(self) -> str:
        return f"<Job of {self.paths} paths and {self.engraved} engraved shapes>"

    def _describe(self) -> Any:
        info = new_result("sm_job_info")
        check(lib.sm_job_describe(self._handle, info))
        return info

    @property
    def paths(self) -> int:
        """Number of cuts and leads."""
        return int(self._describe().paths)

    @property
    def shapes(self) -> int:
        """Number of shapes with paths."""
        return int(self._describe().shapes)

    @property
    def engraved(self) -> int:
        """Number of engraved shapes."""
        return int(self._describe().engraved)

    @property
    def rect(self) -> Rect:
        """The rectangle around all lines and rows, mm; all 0 for an empty job."""
        return rect_of(self._describe().rect)

    def gcode(self, path: Path | None = None, *, options: GcodeOptions | None = None, progress: Progress | None = None,
              **values: Any) -> str:
        """Returns the G-code; with a path writes it there, completely or not at all, and returns "".

        Keywords are those of GcodeOptions: job.gcode(feed=600, power=800).
        """
        struct = _gcode_struct(options, values)
        return self._write(lib.SM_FORMAT_GCODE, path, struct, progress)

    def csv(self, path: Path | None = None, *, progress: Progress | None = None) -> str:
        """A row per line, mm; path as in gcode()."""
        return self._write(lib.SM_FORMAT_CSV, path, ffi.NULL, progress)

    def svg(self, path: Path | None = None, *, progress: Progress | None = None) -> str:
        """Polylines, mm; path as in gcode()."""
        return self._write(lib.SM_FORMAT_SVG, path, ffi.NULL, progress)

    def _write(self, kind: int, path: Path | None, options: Any, progress: Progress | None) -> str:
        if path is not None:
            name = file_name(path)
            warn(run(lambda told, context: int(lib.sm_job_write(self._handle, kind, name, options, told, context)),
                     progress, path))
            return ""
        return self._written(lambda told, context, buffer: int(
            lib.sm_job_write_bytes(self._handle, kind, options, told, context, buffer)), progress).decode()

    def _written(self, call: Callable[[Any, Any, Any], int], progress: Progress | None) -> bytes:
        slot = new_slot()
        warn(run(lambda told, context: call(told, context, slot), progress))
        return Buffer(slot).to_bytes()

    def report(self, *, bed: Sequence[float] | None = None, strict_bed: bool = False, rapid: float | None = None,
               acceleration: float | None = None, junction_deviation: float | None = None, beam: float | None = None,
               widest_gap: float | None = None, options: GcodeOptions | None = None, progress: Progress | None = None,
               **values: Any) -> dict[str, Any]:
        """Lengths (mm), areas (mm²), the time (seconds) and findings of the G-code with these options.

        bed: width and height, or x, y, width, height, mm, as the machine counts. rapid: mm per minute between paths
        (6000). acceleration: mm/s² (500). junction_deviation, beam, widest_gap: mm. Keywords of GcodeOptions as in
        gcode(). The entries are those of `shapedoc report --json`: "paths", "cutLength", "seconds", "findings" ...
        """
        gcode = _gcode_struct(options, values)
        struct = new_options(
            "sm_report_options", strict_bed=strict_bed, rapid=rapid, acceleration=acceleration,
            junction_deviation=junction_deviation, beam=beam, widest_gap=widest_gap)
        if bed is not None:
            if len(bed) not in (2, 4):
                raise ValueError("a bed is width and height, or x, y, width, height, mm")
            struct.has_bed, struct.bed = True, (0, 0, *bed) if len(bed) == 2 else tuple(bed)
        report: dict[str, Any] = json.loads(self._written(lambda told, context, buffer: int(
            lib.sm_job_report(self._handle, gcode, struct, told, context, buffer)), progress))
        return report
