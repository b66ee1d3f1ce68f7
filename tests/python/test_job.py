"""Jobs, and long work that is watched and stopped."""
import gc
import pathlib
import signal
import threading
import traceback

import numpy as np
import pytest

import shapemodel
from shapemodel import ColorSetting, Document, GcodeOptions, Image, Text, Vector, _library

SAMPLES = pathlib.Path(__file__).parents[2] / "samples"


def nested():
    document = Document()
    document.add(Vector.rectangle(0, 0, 30, 20, color=0xFF0000))
    document.add(Vector.rectangle(10, 5, 5, 5, color=0x0000FF))
    return document


def many(count):
    document, ring = Document(), np.linspace(0, 2 * np.pi, 60)
    for place in range(count):
        points = np.column_stack([np.cos(ring), np.sin(ring)]) * 4 + (place % 40 * 10, place // 40 * 10)
        document.add(Vector(points))
    return document


def test_order_lengths_and_report():
    document = nested()
    job = document.job(order="fast")
    assert (job.paths, job.shapes, job.engraved, job.rect) == (2, 2, 0, (0, 0, 30, 20))
    report = job.report(feed=600, bed=(20, 20))
    assert report["paths"] == 2 and report["cutLength"] == pytest.approx(120)
    assert report["spoils"] is False and report["findings"]["outOfBed"]["count"] == 1
    lines = job.csv().splitlines()
    assert len(lines) > 8 and "<svg" in job.svg()
    document.add(Vector.rectangle(50, 50, 1, 1))  # too late
    assert job.csv().splitlines() == lines


def test_gcode_takes_its_options(tmp_path):
    job = nested().job(colors={"#0000ff": ColorSetting(feed=300, power=150), 0xFF0000: ColorSetting(passes=2)})
    words = job.gcode(feed=900, power=700, constant_power=True)
    # The small square is cut first, once; the frame around it twice.
    assert [line for line in words.splitlines() if line.startswith("M3")] == ["M3 S150", "M3 S700", "M3 S700"]
    assert "F300" in words and "F900" in words
    assert job.gcode(tmp_path / "a.gcode", options=GcodeOptions(feed=900, power=700), constant_power=True) == ""
    assert (tmp_path / "a.gcode").read_text() == words
    for values in ({"feed": -1}, {"power": float("nan")}, {"dialect": "other"}, {"passes": 0}, {"power": -1},
                   {"most_power": -1}, {"engrave_feed": 0}, {"feed": 0}):
        with pytest.raises(ValueError):
            job.gcode(**values)
    for setting in (ColorSetting(feed=0), ColorSetting(power=-1), ColorSetting(passes=0)):
        with pytest.raises(ValueError):
            nested().job(colors={0xFF: setting})
    with pytest.raises(TypeError, match="fed"):
        job.gcode(fed=600)
    with pytest.raises(FileNotFoundError):
        job.gcode(tmp_path / "none" / "a.gcode")
    with pytest.raises(ValueError):
        nested().job(order="slow")


def test_pictures_are_engraved():
    document = Document()
    document.add(Image(np.zeros((4, 4), np.uint8), width=4))
    job = document.job(engrave=True, lines_per_mm=5)
    assert (job.paths, job.engraved) == (0, 1)
    report = job.report()
    assert report["engravedRows"] == 20 and report["engravedArea"] == pytest.approx(16, rel=0.1)


def test_progress_is_told_and_may_raise():
    told, document = [], many(50)
    document.job(progress=lambda *step: told.append(step))
    assert told and all(isinstance(name, str) and (done <= total or not total) for name, done, total in told)
    assert told[0] == ("cloning", 1, 50)

    class Enough(Exception):
        pass

    def stop(step, done, total):
        raise Enough(step)

    gc.collect()
    before = _library.lib.sm_handle_count()
    with pytest.raises(Enough):
        document.job(progress=stop)
    assert _library.lib.sm_handle_count() == before
    # Callbacks may use the library: other documents and, as soon as the job has its copy, this one.
    small, inner, busy = nested(), Document(), []
    inner.add(Vector.rectangle(0, 0, 1, 1))

    def ask(step, done, total):
        inner.job(progress=lambda *_: None)
        try:
            len(small)
        except RuntimeError:
            busy.append(step)

    small.job(progress=ask)
    assert set(busy) == {"cloning"}


LONG_CALLS = {
    "open": lambda document, place, **told: Document.open(place / "a.shapes", **told),
    "from_bytes": lambda document, place, **told: Document.from_bytes((place / "a.shapes").read_bytes(), **told),
    "save": lambda document, place, **told: document.save(place / "kept.shapes", **told),
    "to_bytes": lambda document, place, **told: document.to_bytes(**told),
    "check": lambda document, place, **told: shapemodel.check(place / "a.shapes", **told),
    "repair": lambda document, place, **told: shapemodel.repair(place / "a.shapes", place / "kept.shapes", **told),
    "repair_bytes": lambda document, place, **told: shapemodel.repair_bytes(document.to_bytes(), **told),
    "flatten": lambda document, place, **told: document[0].flatten(**told),
    "clone": lambda document, place, **told: document[0].clone(**told),
    "drawing": lambda document, place, **told: document.import_drawing(SAMPLES / "rosette.svg", **told),
    "picture": lambda document, place, **told: document.import_picture(SAMPLES / "medallion.png", **told),
    "render": lambda document, place, **told: document.render(place / "kept.png", **told),
    "job": lambda document, place, **told: document.job(**told),
    "gcode": lambda document, place, **told: document.job().gcode(**told),
    "report": lambda document, place, **told: document.job().report(**told),
}


@pytest.mark.parametrize("name", LONG_CALLS)
def test_long_work_is_told_and_stopped(name, tmp_path):
    document, told = nested(), []
    first = document[0]  # errors hold it, too
    document.save(tmp_path / "a.shapes")
    kept = tmp_path / ("kept.png" if name == "render" else "kept.shapes")
    kept.write_text("old")

    def stop(*step):
        raise KeyboardInterrupt

    before, files = document.to_bytes(), sorted(tmp_path.iterdir())
    gc.collect()  # what earlier tests' errors still hold
    handles = _library.lib.sm_handle_count()
    with pytest.raises(KeyboardInterrupt):
        LONG_CALLS[name](document, tmp_path, progress=stop)
    assert kept.read_text() == "old" and sorted(tmp_path.iterdir()) == files
    assert document.to_bytes() == before and _library.lib.sm_handle_count() == handles
    LONG_CALLS[name](document, tmp_path, progress=lambda *step: told.append(step))
    assert told and all(isinstance(step, str) and done <= total or not total for step, done, total in told)


def test_a_signal_stops_work_that_nobody_watches():
    document = many(2000)

    def interrupt(number, frame):
        raise KeyboardInterrupt

    former = signal.signal(signal.SIGALRM, interrupt)
    signal.setitimer(signal.ITIMER_REAL, 0.1)
    try:
        with pytest.raises(KeyboardInterrupt) as told:
            document.job()
    finally:
        signal.setitimer(signal.ITIMER_REAL, 0)
        signal.signal(signal.SIGALRM, former)
    assert "_told" in [frame.name for frame in traceback.extract_tb(told.tb)]
    assert len(document) == 2000


def test_other_threads_run_meanwhile():
    data = many(2000).to_bytes()
    thread = threading.Thread(target=Document.from_bytes, args=(data,))
    ticks = 0
    thread.start()
    while thread.is_alive():
        ticks += 1
    assert ticks > 1000
