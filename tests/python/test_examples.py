"""The scripts of examples/python, as a user starts them."""
import os
import pathlib
import re
import subprocess
import sys

import pytest

import shapemodel

TOP = pathlib.Path(__file__).parents[2]


def run(script, *arguments, code=0):
    done = subprocess.run([sys.executable, TOP / "examples/python" / script, *map(str, arguments)], capture_output=True,
                          text=True)
    assert done.returncode == code, done.stderr
    return done.stdout, done.stderr


def test_two_hundred_drawings_and_a_bad_one(tmp_path):
    drawings = tmp_path / "drawings"
    drawings.mkdir()
    count = 12 if "LD_PRELOAD" in os.environ else 200  # fewer under the sanitizer, which takes ten times as long
    for place in range(count):  # the samples in turn, each a little larger than the last
        text = (TOP / "samples" / ("flaws.svg", "rosette.svg")[place % 20 == 0]).read_text()
        size = f'<svg viewBox="0 0 {1000 - place} {1000 - place}" '
        (drawings / f"{place:03}.svg").write_text(text.replace("<svg ", size, 1) if "viewBox" not in text else text)
    (drawings / "bad.svg").write_text("no drawing")
    table, told = run("batch.py", tmp_path / "out", drawings, "--bed", "400x400", code=1)
    rows = table.splitlines()
    assert len(rows) == count + 2 and rows[-1].startswith(f"{count} drawings")
    assert len(list((tmp_path / "out").glob("*.gcode"))) == count
    assert f"left out: {drawings / 'bad.svg'}: " in told
    shapes = [int(re.split(r"\s+", row)[1]) for row in rows[1:-1]]
    assert min(shapes) > 0 and rows[-1].split()[2] == str(sum(shapes))

    (drawings / "deeper").mkdir()
    (drawings / "deeper" / "000.svg").write_text(text)
    _, told = run("batch.py", tmp_path / "second", drawings, drawings / "deeper", code=2)
    assert "would both become 000.gcode" in told and not (tmp_path / "second").exists()


def real_drawings(most):
    """Drawings of the system that nobody here has made: clip art and icons, small ones, from all over the folders."""
    share = pathlib.Path("/usr/share")
    found = [path for pattern in ("openclipart/svg/*/*.svg", "icons/*/scalable/*/*.svg") for path in share.glob(pattern)
             if path.is_file() and not path.is_symlink() and path.stat().st_size < 30_000]
    return sorted(found)[::max(1, len(found) // most)][:most]


def test_real_drawings(tmp_path):
    drawings = tmp_path / "drawings"
    drawings.mkdir()
    for place, source in enumerate(real_drawings(4 if "LD_PRELOAD" in os.environ else 24)):
        (drawings / f"{place:03}.svg").write_bytes(source.read_bytes())
    count = len(list(drawings.iterdir()))
    if not count:
        pytest.skip("no drawings in /usr/share/openclipart and /usr/share/icons")
    done = subprocess.run([sys.executable, TOP / "examples/python/batch.py", tmp_path / "out", drawings],
                          capture_output=True, text=True)
    left_out = re.findall(r"^left out: .+?([0-9]{3})\.svg: .+$", done.stderr, re.M)
    written = sorted(path.stem for path in (tmp_path / "out").glob("*.gcode"))
    assert done.returncode == bool(left_out) and not set(left_out) & set(written), done.stderr
    assert len(left_out) + len(written) == count and len(written) > count / 2, done.stderr
    assert all("M5" in (tmp_path / "out" / f"{name}.gcode").read_text() for name in written)


def test_numbered_tags(tmp_path):
    names = tmp_path / "names.csv"
    names.write_text("name,number\nAda Lovelace,001\nÉmilie du Châtelet,002\nWolfgang Amadeus Theophilus Mozart,003\n"
                     "Emmy Noether,104\n", encoding="utf-8")
    said, _ = run("tags.py", names, tmp_path / "sheet")
    assert said.startswith("4 tags, ")
    with shapemodel.Document.open(tmp_path / "sheet.shapes") as sheet:
        assert len(sheet) == 4 and sheet.rect.width < 3 * 74 and sheet.rect.height < 2 * 34
        codes = sheet.select(lambda shape: isinstance(shape, shapemodel.CodeImage), members=True)
        assert [code.code for code in codes] == ["001", "002", "003", "104"]
        assert sheet[2].members[2].rect.right < 2 * 74 + 70
    gcode = (tmp_path / "sheet.gcode").read_text()
    assert gcode.index("S200") < gcode.index("S900")


def test_power_curve_and_coupons(tmp_path):
    said, _ = run("coupons.py", TOP / "samples/medallion.png", tmp_path / "test")
    assert re.search(r"matrix: 35 coupons, about \d+ min", said)
    matrix = (tmp_path / "test-matrix.gcode").read_text()
    for setting in ("S100", "S1000", "F600", "F9600"):
        assert setting in matrix
    powers = [float(power) for power in re.findall(r"S([\d.]+)", (tmp_path / "test-picture.gcode").read_text())]
    assert max(powers) <= 800 and len(set(powers)) > 20
