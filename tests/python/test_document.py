"""Documents: files, bytes, sequences, and what goes wrong."""
import errno
import gc
import os
import pathlib
import struct
import subprocess
import sys
import warnings

import numpy as np
import pytest

import shapemodel
from shapemodel import _library
from shapemodel import Array, Document, Group, Vector

SAMPLES = pathlib.Path(__file__).parents[2] / "samples"


@pytest.fixture
def rosette():
    document = Document()
    document.import_drawing(SAMPLES / "rosette.svg")
    return document


def squares(count):
    document = Document()
    for place in range(count):
        document.add(Vector.rectangle(10 * place, 0, 5, 5, color=place))
    return document


def test_documents_come_back_byte_for_byte(tmp_path, rosette):
    file = tmp_path / "with ä name.shapes"
    rosette.save(file)
    data = file.read_bytes()
    with Document.open(file) as again:
        assert again.to_bytes() == data == rosette.to_bytes()
        again.save(str(tmp_path / "second"))
    assert (tmp_path / "second").read_bytes() == data
    assert Document.from_bytes(data).to_bytes() == data
    assert Document.from_bytes(rosette.to_bytes(bare=True), bare=True).to_bytes() == data
    with pytest.raises(ValueError, match="version is -1"):  # None states none
        Document.from_bytes(rosette.to_bytes(bare=True), bare=True, version=-1)
    # The program, which reads documents without this interface, sees the same.
    environment = {name: value for name, value in os.environ.items() if name != "LD_PRELOAD"}  # it brings its own
    told = subprocess.run([os.environ["SHAPEDOC"], "check", file], env=environment, capture_output=True, text=True,
                          check=True).stdout
    assert f"clean, {sum(1 for _ in rosette.walk())} shapes" in told


def test_a_document_is_a_sequence():
    document = squares(5)
    assert len(document) == 5 and [shape.color for shape in document] == [0, 1, 2, 3, 4]
    assert document[-1].color == 4 and [shape.color for shape in document[1:4:2]] == [1, 3]
    assert [shape.index for shape in reversed(document)] == [4, 3, 2, 1, 0]
    assert document[2] == document[2] != document[3] and len({document[2], document[2], document[3]}) == 2
    assert document.rect == (0, 0, 45, 5) and Document().rect == (0, 0, 0, 0)
    for index in (5, -6, 2**70):
        with pytest.raises(IndexError):
            document[index]
    assert [shape.color for shape in document.select(lambda shape: shape.color % 2)] == [1, 3]


def test_shapes_go_in_and_out():
    document = squares(4)
    first = document.remove(document[0])
    assert first.document is None and first not in document and document[0] in document
    for place, order in ((1, [1, 0, 2, 3]), (-1, [1, 2, 0, 3]), (99, [1, 2, 3, 0]), (None, [1, 2, 3, 0])):
        assert document.add(first, place).document == document
        assert [shape.color for shape in document] == order
        document.remove(first)
    group = document.group(document[:2])
    assert isinstance(document[0], Group) and [member.color for member in group] == [1, 2] and len(document) == 2
    assert document.select(lambda shape: shape.color == 2, members=True) == [group[1]]
    assert group[-1].document == document
    with pytest.raises(ValueError):
        group[0].remove()
    assert group.dissolve() == document[:2]
    with pytest.raises(ValueError):
        group.rect
    array = document.array(document[:1], rows=2, columns=3, gap=(1, 2), shift=(4, 0))
    assert isinstance(array, Array) and len(array.cells) == 6 and array.cells[4].rect[:2] == (10 + 6 + 4, 7)
    array.delete_cell(1)
    assert [cell.valid for cell in array.cells] == [True, False, True, True, True, True]
    del document[1:]
    assert list(document) == [array]
    with pytest.raises(ValueError):
        squares(1).group([array])


def test_what_goes_wrong_names_file_and_reason(tmp_path, rosette):
    missing, damaged, empty = tmp_path / "none.shapes", tmp_path / "damaged.shapes", tmp_path / "empty.svg"
    damaged.write_bytes(rosette.to_bytes()[:300])
    empty.write_text("<svg xmlns='http://www.w3.org/2000/svg'/>")
    for call in (Document.open, shapemodel.check, Document().import_drawing, shapemodel.Image.open):
        with pytest.raises(FileNotFoundError) as told:
            call(missing)
        assert told.value.errno == errno.ENOENT and told.value.filename == str(missing)
        assert str(missing) not in told.value.strerror
    for call, file in ((Document.open, damaged), (Document().import_drawing, empty), (shapemodel.Image.open, empty)):
        with pytest.raises(shapemodel.FormatError) as told:
            call(file)
        assert isinstance(told.value, ValueError) and told.value.filename == str(file)
        assert str(told.value) == f"{file}: {told.value.reason}" and len(told.value.reason) > 5
    with pytest.raises(OSError) as told:
        rosette.save(tmp_path / "no folder" / "file.shapes")
    assert "no folder" in str(told.value)
    for name in ("a\0b", b"a\0b".decode()):
        with pytest.raises(ValueError, match="zero"):
            Document.open(name)


def test_damaged_documents_are_checked_and_repaired(tmp_path, rosette):
    file, saved, data = tmp_path / "damaged.shapes", tmp_path / "saved.shapes", bytearray(rosette.to_bytes())
    assert shapemodel.check(bytes(data)).clean
    data = data[:-40]
    file.write_bytes(data)
    found = shapemodel.check(file)
    assert not found.clean and found.fault and found.shapes == len(rosette) - 1
    kept = shapemodel.repair(file, saved)
    assert kept.kept_before == found.shapes and shapemodel.check(saved).clean
    assert shapemodel.repair_bytes(bytes(data)) == (saved.read_bytes(), kept)
    for source, target, missing in ((file, tmp_path / "none" / "a", tmp_path / "none" / "a"),
                                    (tmp_path / "none.shapes", saved, tmp_path / "none.shapes")):
        with pytest.raises(FileNotFoundError) as told:
            shapemodel.repair(source, target)
        assert told.value.filename == str(missing)
    saved.chmod(0o444)
    with pytest.raises(PermissionError):
        shapemodel.repair(file, saved)
    assert shapemodel.repair(file, saved, force=True) == kept


def test_closed_documents_answer_errors_and_their_shapes_live_on(rosette):
    first = rosette[0]
    with rosette as document:
        pass
    for call in (lambda: len(document), lambda: document[0], document.to_bytes, document.__enter__, document.job):
        with pytest.raises(ValueError, match="closed"):
            call()
    document.close()
    assert repr(document) == "<Document, closed>" and document._repr_png_() is None
    assert first.document is not None and len(first.document) > 1


def test_a_hundred_documents_leave_nothing(rosette):
    data, count = rosette.to_bytes(), _library.lib.sm_handle_count
    gc.collect()
    before = count()
    for _ in range(100):
        document = Document.from_bytes(data)
        shape, rect = document[0], document.rect
    assert count() > before
    del document, shape
    gc.collect()
    assert count() == before


def test_warnings_that_are_errors_leave_nothing(tmp_path):
    document = Document()
    with pytest.warns(shapemodel.ShapeWarning):
        text = document.add(shapemodel.Text("a", font="No Such Font"))
    data, colors = document.to_bytes(), {0x123456: shapemodel.ColorSetting(passes=2)}
    document.save(tmp_path / "a.shapes")
    gc.collect()
    before = _library.lib.sm_handle_count()
    with warnings.catch_warnings():
        warnings.simplefilter("error")
        for call in (lambda: Document.from_bytes(data), lambda: Document.open(tmp_path / "a.shapes"),
                     lambda: shapemodel.Text("a", font="No Such Font"), lambda: shapemodel.Image([[1, 2]], width=2),
                     lambda: document.job(colors=colors)):
            with pytest.raises(shapemodel.ShapeWarning):
                call()
        gc.collect()
        assert _library.lib.sm_handle_count() == before
        with pytest.raises(shapemodel.ShapeWarning):
            text.text = "behind the deed"
    assert text.text == "behind the deed"


def test_drawings_come_in(tmp_path):
    drawing = (b"<svg xmlns='http://www.w3.org/2000/svg' width='96' height='96'>"
               b"<path d='M0 0L96 48' stroke='red'/></svg>")
    document = Document()
    line, = document.import_drawing(drawing)
    assert line.rect == pytest.approx((0, 0, 25.4, 12.7)) and line.color == 0xFF0000
    (tmp_path / "blurred.svg").write_bytes(drawing.replace(b"stroke=", b"filter='url(#none)' stroke="))
    with pytest.warns(shapemodel.ShapeWarning) as told:
        document.import_drawing(tmp_path / "blurred.svg")
    assert told[0].filename == __file__


GIVING_CALLS = {
    "new": lambda document: Document(),
    "open": lambda document: Document.from_bytes(document.to_bytes()),
    "shapes": lambda document: [shape.document for shape in document],
    "make": lambda document: Group([Vector.rectangle(0, 0, 1, 1), document[0].clone()]).members,
    "lines": lambda document: document[0].flatten(),
    "pixels": lambda document: shapemodel.Image(np.zeros((4, 4), np.uint8), width=4).pixels,
    "job": lambda document: document.job().gcode(),
    "repair": lambda document: shapemodel.repair_bytes(document.to_bytes()),
}


@pytest.mark.parametrize("name", GIVING_CALLS)
def test_an_interrupt_at_any_step_leaves_no_handle(name):
    document, package = squares(1), os.path.dirname(shapemodel.__file__)

    def interrupted_at(step):
        """Whether there are as many steps (bytecodes of the package)."""
        left = step

        def trace(frame, event, argument):
            nonlocal left
            if os.path.dirname(frame.f_code.co_filename) != package:
                return None
            frame.f_trace_opcodes = True
            left -= event == "opcode"
            if event == "opcode" and left == 0:
                raise KeyboardInterrupt
            return trace

        sys.settrace(trace)
        try:
            GIVING_CALLS[name](document)
        except KeyboardInterrupt:
            pass
        finally:
            sys.settrace(None)
        return left <= 0

    gc.collect()
    handles, step = _library.lib.sm_handle_count(), 1
    stride = 5 if "LD_PRELOAD" in os.environ else 1  # every step in the faster builds
    while interrupted_at(step):
        assert _library.lib.sm_handle_count() == handles, step
        step += stride
    assert step > 20


@pytest.mark.parametrize("call", [
    "document.render(width=20000)",
    "picture.resize(width=70, height=102).pixels",
    "picture.resize(width=70, height=102).render()",
    "shapemodel.Image.open('large.bmp')",
])
def test_what_there_is_no_memory_for(call, tmp_path):
    fields = (0, 0, 1078, 40, 12000, 12000, 1, 8, 0, 0, 0, 0, 256, 0)
    header = b"BM" + struct.pack("<IIIIiiHHIIiiII", *fields) + bytes(1024)
    with open(tmp_path / "large.bmp", "wb") as file:
        file.write(header)
        file.truncate(len(header) + 12000 * 12000)
    script = f"""import resource, numpy as np, shapemodel
document = shapemodel.Document()
document.add(shapemodel.Vector.rectangle(0, 0, 9, 9))
picture = shapemodel.Image(np.full((7000, 7000), 99, np.uint8), width=70)
if {"LD_PRELOAD" not in os.environ}:
    used = int(open("/proc/self/statm").read().split()[0]) * resource.getpagesize()
    resource.setrlimit(resource.RLIMIT_AS, (used + (50 << 20),) * 2)
try:
    {call}
except MemoryError as error:
    print(error)"""
    limits = os.environ.get("ASAN_OPTIONS", "") + ":allocator_may_return_null=1:max_allocation_size_mb=60"
    done = subprocess.run([sys.executable, "-c", script], cwd=tmp_path, env=dict(os.environ, ASAN_OPTIONS=limits),
                          capture_output=True, text=True)
    assert (done.returncode, done.stdout) == (0, "not enough memory\n"), done.stderr
