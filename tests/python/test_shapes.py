"""Shapes: their places, arrays of what they hold, texts and pictures."""
import gc
import os
import pathlib
import subprocess
import sys
import threading

import numpy as np
import pytest

from shapemodel import (CURVE, STRAIGHT, CodeImage, Document, Group, Image, Leads, Rect, ShapeWarning, Text,
                        Vector)

SAMPLES = pathlib.Path(__file__).parents[2] / "samples"


def test_points_are_read_only_copies():
    given = np.array([[0, 0], [10, 0], [10, 5.5]])
    line = Vector(given, color="#00ff7F")
    assert line.color == 0x00FF7F
    points, types = line.points, line.types
    assert points.dtype == np.float64 and (points == given).all() and types.tolist() == [STRAIGHT] * 3
    for array in (points, types):
        with pytest.raises(ValueError):
            array[0] = 1
    line.move(dx=1).set_outline([(0, 0), (1, 2), (2, 2), (3, 0)], [STRAIGHT, CURVE, CURVE, CURVE])
    del line
    gc.collect()
    assert (points == given).all()


@pytest.mark.parametrize("points, types", [
    ([[0, 0]], None), ([], None), ([1, 2, 3], None), (np.zeros((4, 3)), None), ([[0, 0], [np.nan, 1]], None),
    ([[0, 0], [np.inf, 1]], None), ([[0, 0], [1e9, 1]], None), ([[0, 0], [1, 1]], [0]), ([[0, 0], [1, 1]], [0, 256]),
    ([[0, 0], [1, 1]], [0, 0.5]), ([[0, 0], [1, 1]], [False, False])])
def test_outlines_that_are_none_are_refused(points, types):
    line = Vector([(0, 0), (1, 1)])
    with pytest.raises(ValueError):
        Vector(points, types)
    with pytest.raises(ValueError):
        line.set_outline(points, types)
    assert line.points.tolist() == [[0, 0], [1, 1]]


@pytest.mark.parametrize("edit, rect", [
    (lambda shape: shape.move(dx=5, dy=-1), (6, 1, 10, 4)),
    (lambda shape: shape.move_to(y=0), (1, 0, 10, 4)),
    (lambda shape: shape.resize(width=20), (1, 2, 20, 8)),
    (lambda shape: shape.resize(width=20, height=1), (1, 2, 20, 1)),
    (lambda shape: shape.fit_to(Rect(0, 0, 5, 5)), (0, 0, 5, 5)),
    (lambda shape: shape.turn(degrees=90), (4, -1, 4, 10)),
    (lambda shape: shape.turn(degrees=90, about=(1, 2)), (-3, 2, 4, 10)),
    (lambda shape: shape.mirror(x=0), (-11, 2, 10, 4)),
    (lambda shape: shape.mirror(y=0), (1, -6, 10, 4)),
    (lambda shape: shape.mirror(), (1, 2, 10, 4)),
])
def test_transforms(edit, rect):
    for shape in (Vector.rectangle(1, 2, 10, 4), Group([Vector.rectangle(1, 2, 5, 4), Vector.rectangle(6, 2, 5, 4)])):
        assert edit(shape) is shape and shape.rect == pytest.approx(rect, abs=1e-9)
    assert Vector([(1, 2), (11, 2)]).resize(width=20).rect == (1, 2, 20, 0)


def test_what_cannot_be_changes_nothing():
    shape = Vector.rectangle(1, 2, 10, 4)
    for call in (lambda: shape.move(dx=float("nan")), lambda: shape.resize(width=0), lambda: shape.resize(),
                 lambda: shape.turn(degrees=float("inf")), lambda: shape.mirror(x=1, y=1), lambda: shape.remove(),
                 lambda: setattr(shape, "color", "red"), lambda: setattr(shape, "color", 1 << 24)):
        with pytest.raises(ValueError):
            call()
    assert shape.rect == (1, 2, 10, 4) and shape.color == Vector.rectangle(0, 0, 1, 1).color


def test_state_leads_and_copies():
    shape = Vector.ellipse(0, 0, 10, 10)
    shape.locked = shape.hidden = True
    shape.locked = False
    shape.leads = Leads(2, 1.5, True)
    copy = shape.clone().move(dx=20)
    assert (copy.selected, copy.locked, copy.hidden) == (False, False, True) and copy.leads == (2, 1.5, True)
    assert type(copy) is Vector and copy != shape and shape.rect == (0, 0, 10, 10)


def test_circles_are_fitted_and_the_process_ends_well():
    script = """import numpy as np, shapemodel
angle = np.linspace(0, 2 * np.pi, 400)
circle = shapemodel.Vector(np.column_stack([np.cos(angle), np.sin(angle)]) * 20)
before, steps = circle.points, []
class Enough(Exception): pass
def told(step, done, total):
    steps.append(step)
    if len(steps) == patience: raise Enough
for patience in (1, 2):  # in front of the plug-in, and behind it
    steps.clear()
    try:
        circle.fit(progress=told)
    except Enough:
        print(steps[-1], (circle.points == before).all())
fit = circle.fit()
print(fit.fitted, fit.before, fit.after < 40, fit.after == len(circle.points), fit.deviation < 0.01)"""
    done = subprocess.run([sys.executable, "-c", script], env=dict(os.environ, LD_LIBRARY_PATH=os.environ["PLUGINS"]),
                          capture_output=True, text=True)
    assert (done.returncode, done.stdout) == (0, "fitting True\ncomparing True\nTrue 400 True True True\n"), done.stderr


def test_lines_outlive_their_shape():
    # Nobody but the group holds them.
    group = Group(make(20 * place, 0, 10, 10) for place, make in enumerate((Vector.rectangle, Vector.ellipse)))
    square, circle = group.flatten()
    group.move(dx=100)
    del group
    gc.collect()
    assert square.tolist() == [[0, 0], [10, 0], [10, 10], [0, 10], [0, 0]]
    assert np.hypot(*(circle - (25, 5)).T) == pytest.approx(5, abs=0.02)  # four cubics are no circle
    assert not circle.flags.writeable and not circle.flags.owndata


def test_texts():
    text = Text("one\ntwo", font="Liberation Sans", size=12, align="center", x=5, y=6)
    assert text.rect[:2] == pytest.approx((5, 6)) and text.text == "one\ntwo"
    assert text.style[:5] == ("Liberation Sans", 12, False, False, "center")
    center = text.rect.center
    text.style = text.style._replace(size=24, bold=True)
    text.text = "drei"
    assert text.style[:3] == ("Liberation Sans", 24, True) and text.text == "drei"
    assert text.rect.center == pytest.approx(center, abs=0.05)
    with pytest.warns(ShapeWarning, match="1 x text is not resized"):
        Group([text]).fit_to((0, 0, 5, 500))
    for call in (lambda: Text("a", align="middle"), lambda: Text("a\0b"), lambda: Text("a", size=-1),
                 lambda: Text("a", font="x" * 64), lambda: Text("\ud800")):
        with pytest.raises(ValueError):
            call()


def test_pixels_are_lent_and_outlive_all_edits():
    grey = np.arange(48, dtype=np.uint8).reshape(6, 8)
    image = Image(grey[:, ::-1], width=16)
    document = Document()
    document.add(image)
    assert image.rect == (0, 0, 16, 12)
    lent = image.pixels
    assert not lent.flags.owndata and (lent == grey[:, ::-1]).all()
    with pytest.raises(ValueError):
        lent.flags.writeable = True
    image.mirror()
    mirrored, seen = image.pixels, image.pixels.copy()
    assert (seen != lent).any()
    image.pixels = np.full((3, 4), 7)
    assert image.pixels.tolist() == [[7] * 4] * 3 and image.rect == (0, 0, 16, 12)
    with pytest.warns(ShapeWarning, match="3 columns of pixels become 4"):
        image.pixels = np.zeros((2, 3), np.uint8)
    document.close()
    del image, document
    gc.collect()
    assert (lent == grey[:, ::-1]).all() and (mirrored == seen).all()
    for pixels in (np.zeros((0, 4)), np.zeros(4), [[0.5]], [[256]], [[True]]):
        with pytest.raises(ValueError):
            Image(pixels, width=10)


def test_pictures_of_files_and_codes():
    document = Document()
    medallion = document.import_picture(SAMPLES / "medallion.png")
    assert type(medallion) is Image and medallion.pixels.shape == (240, 304)
    with pytest.warns(ShapeWarning, match="2 columns of pixels become 4"):
        code = document.add(CodeImage([[0, 255], [255, 0]], code="ähm", width=3, number=1, x=60))
    assert code.original_pixels.tolist() == [[0, 0, 255, 255], [255, 255, 0, 0]]
    with pytest.raises(TypeError, match="which text"):  # a file holds no code
        CodeImage.open(SAMPLES / "medallion.png")
    again = Document.from_bytes(document.to_bytes())
    assert type(again[1]) is CodeImage and again[1].code == code.code == "ähm" and again[1].number == 1
    assert again[1].rect == (60, 0, 3, 3)
    assert (again[0].pixels == medallion.pixels).all()


def test_pictures_for_notebooks(tmp_path):
    document = Document()
    circle = document.add(Vector.ellipse(0, 0, 20, 10, color=0xFF0000))
    for shown in (document, circle, document.job()):
        assert shown._repr_png_().startswith(b"\x89PNG") and "<svg" in shown._repr_svg_()
    assert document.render(tmp_path / "a.pdf").startswith(b"%PDF") and (tmp_path / "a.pdf").read_bytes()[:4] == b"%PDF"
    document.close()
    assert document._repr_png_() is None is document._repr_svg_()
    with pytest.raises(ValueError):
        circle.render(tmp_path / "a.jpeg")
    with pytest.raises(FileNotFoundError) as told:
        circle.render(tmp_path / "none" / "a.png")
    assert told.value.filename == str(tmp_path / "none" / "a.png")
    (tmp_path / "link.png").symlink_to(tmp_path / "a.pdf")
    circle.render(tmp_path / "link.png")
    assert (tmp_path / "link.png").is_symlink() and (tmp_path / "a.pdf").read_bytes().startswith(b"\x89PNG")
    (tmp_path / "link.png").unlink()
    assert [file.name for file in tmp_path.iterdir()] == ["a.pdf"]


def test_threads_share_a_document():
    document, faults = Document(), []

    def work(number):
        try:
            for step in range(40):
                shape = document.add(Vector.rectangle(number, step, 1, 1))
                assert shape.move(dx=1).points.shape == (5, 2) and len(document.to_bytes()) > 0
                document.remove(shape)
        except Exception as error:
            faults.append(error)

    threads = [threading.Thread(target=work, args=(number,)) for number in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not faults and len(document) == 0
