#!/usr/bin/env python3
"""Reads a document without the library: docs/file-format.md in a hundred lines of Python.

Usage: read_document.py FILE          its shapes as JSON
       read_document.py --hex FILE    its bytes, a line for each field
"""
import json
import struct
import sys

KINDS = {0: "image", 1: "vector", 2: "text", 3: "group", 4: "array", 16: "code image"}
FORMATS = {"int32": "<i", "uint32": "<I", "uint8": "<B", "float32": "<f", "float64": "<d"}


class Document:
    """version and shapes, and in fields (offset, bytes, name, value, since version) of every field."""

    def __init__(self, data, version=None):
        self.data, self.at, self.fields, self.version = data, 0, [], version
        if version is None:  # not a bare list
            if self.take("magic", "bytes", 8) != b"SHAPEDOC":
                raise ValueError("is no document")
            self.version = self.take("version", "int32")
        self.shapes = self.read_list()
        if self.at != len(data):
            raise ValueError(f"{len(data) - self.at} bytes are left behind the list")

    def take(self, name, kind, size=0, since=0):
        """The next field; None where the version does not have it."""
        if since > (self.version or 0):
            return None
        begin, self.at = self.at, self.at + (size if kind == "bytes" else struct.calcsize(FORMATS[kind]))
        if self.at > len(self.data):
            raise ValueError(f"byte {begin}: ends within {name}")
        raw = self.data[begin : self.at]
        value = raw if kind == "bytes" else struct.unpack(FORMATS[kind], raw)[0]
        self.fields.append((begin, raw, name, value, since))
        return value

    def take_text(self, name):
        return self.take(name, "bytes", self.take(f"{name}: length", "int32")).decode("utf-8", "replace")

    def take_picture(self, name, since=0):
        """Columns and rows of a picture; the pixels are passed over."""
        head = [self.take(f"{name}: {part}", "int32", since=since) for part in ("width", "height", "bits", "row bytes")]
        if head[0] is not None:
            self.take(f"{name}: pixels", "bytes", head[1] * head[3], since)
        return head[:2]

    def read_list(self):
        return [self.read_shape() for _ in range(self.take("count", "uint32"))]

    def read_shape(self):
        shape = {"type": KINDS[self.take("tag", "uint32")]}
        shape["status"] = self.take("status", "uint32")
        shape["color"] = f"#{self.take('color', 'uint32'):06x}"
        lead = [("guide line mode", "int32"), ("lead-in", "int32"), ("lead-in length", "float64"),
                ("lead-out", "int32")]
        shape["leads"] = [self.take(*field) for field in lead]
        self.take("padding", "bytes", 4)
        shape["leads"].append(self.take("lead-out length", "float64"))
        count = self.take("points", "int32")
        row = (("x", "float32"), ("y", "float32"), ("type", "uint8"))
        shape["points"] = [tuple(self.take(f"point {i}: {name}", kind) for name, kind in row) for i in range(count)]
        getattr(self, "read_" + shape["type"].replace(" ", "_"))(shape)
        return shape

    def read_vector(self, shape):
        shape["vectorType"] = self.take("vector type", "int32")
        self.take("extract contour", "uint8", since=7)

    def read_text(self, shape):
        self.read_vector(shape)
        text = {"text": self.take_text("text"), "font": self.take_text("family")}
        numbers = [("bold", "uint8", 0), ("italic", "uint8", 0), ("vertical", "uint8", 0), ("size", "float64", 0),
                   ("angle", "float64", 1), ("centre x", "float64", 2), ("centre y", "float64", 2),
                   ("mirrorX", "uint8", 3), ("mirrorY", "uint8", 3), ("scale x", "float64", 4),
                   ("scale y", "float64", 4), ("align", "int32", 5), ("charSpacing", "float64", 5),
                   ("lineSpacing", "float64", 8), ("reserved", "int32", 11)]  # fmt: skip
        text.update((name, self.take(name, kind, since=since)) for name, kind, since in numbers)
        shape["text"] = text

    def read_image(self, shape):
        self.take("file format", "int32")
        shape["file"] = self.take_text("file name")
        shape["pixels"] = self.take_picture("display picture")
        self.take("reserved", "bytes", 8)
        self.take_picture("original picture", 13)
        for i in range(6):
            self.take(f"process value {i}", "int32", since=13)
        self.take("process factor", "float64", since=13)
        self.take("process flag", "int32", since=13)
        self.take("processed", "int32", since=13)

    def read_code_image(self, shape):
        self.read_image(shape)
        self.take("code type", "uint8")
        shape["code"] = self.take_text("code text")

    def read_group(self, shape):
        shape["members"] = self.read_list()

    def read_array(self, shape):
        self.read_group(shape)
        row = (("index", "int32"), ("x", "float64"), ("y", "float64"), ("valid", "uint8"), ("selected", "uint8"))
        cells = range(self.take("cells", "int32"))
        shape["cells"] = [{name: self.take(f"cell {i}: {name}", kind) for name, kind in row} for i in cells]


def print_hex(document):
    for begin, raw, name, value, _ in document.fields:
        shown = raw.hex(" ") if len(raw) <= 8 else raw[:8].hex(" ") + " …"
        print(f"{begin:6}  {shown:25}  {name} = {value if len(raw) <= 20 else str(len(raw)) + ' bytes'}")


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    with open(sys.argv[-1], "rb") as file:
        document = Document(file.read())
    if sys.argv[1] == "--hex":
        print_hex(document)
    else:
        print(json.dumps({"version": document.version, "shapes": document.shapes}, indent=1))


if __name__ == "__main__":
    main()
