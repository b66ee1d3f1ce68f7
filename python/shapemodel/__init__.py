"""Documents for laser engraving and cutting: their shapes, and the jobs that machines burn.

    import shapemodel

    with shapemodel.Document.open("badge.shapes") as document:
        for shape in document.select(lambda shape: shape.color == 0xFF0000):
            shape.move(dx=5)
        document.job(order="fast").gcode("badge.gcode", feed=1200, power=500)

Lengths and places are millimetres, x to the right and y down; angles are degrees, clockwise as seen; colours are
0xRRGGBB. Replaced or left out parts cause a ShapeWarning. Threads may work on different documents at the same time;
calls for one document wait for each other.
"""
from ._library import FormatError, ShapeWarning, lib as _lib, _said, start
from ._progress import Progress
from ._values import Color, Rect
from .damage import Check, Repair, check, repair, repair_bytes
from .document import Document
from .groups import Array, Cell, Group
from .images import CodeImage, Image
from .job import ColorSetting, GcodeOptions, Job
from .shapes import Leads, Shape
from .texts import Text, TextStyle
from .vectors import CURVE, FILL, SEPARATOR, STRAIGHT, Fit, Vector

__version__ = _said(_lib.sm_version())

__all__ = [
    "Array", "CURVE", "Cell", "Check", "CodeImage", "Color", "ColorSetting", "Document", "FILL", "Fit", "FormatError",
    "GcodeOptions", "Group", "Image", "Job", "Leads", "Progress", "Rect", "Repair", "SEPARATOR", "STRAIGHT", "Shape",
    "ShapeWarning", "Text", "TextStyle", "Vector", "check", "repair", "repair_bytes", "start"]
