#!/usr/bin/env python3
"""Holds the code blocks of README.md and docs/*.md against the programs of examples/, and runs their commands.

Usage: check_pages.py BUILT_EXAMPLES SHAPEDOC WORK [--write]

The README's own host is built by check_packages.sh. A block ```cpp, ```c or ```cmake of a page must stand in a file of
examples/, line for line but for its indentation. A block ```sh is run by bash in a folder of its page that holds the
samples, a block ```python behind those above it by the interpreter that PYTHON names, where it names one; a block
```text behind them is what they print. Pictures that a page shows must be in docs/pictures. --write puts the pictures
that the commands have drawn there, and what they print into the pages.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import textwrap

TOP = pathlib.Path(__file__).resolve().parent.parent
PICTURES = TOP / "docs/pictures"
BLOCK = re.compile(r"^```(\w*)\n(.*?)^```\n", re.M | re.S)


def plain(code):
    return textwrap.dedent(code).strip()


def stands_in(block, sources):
    """Whether the lines of the block follow each other in a source, all indented alike."""
    wanted = plain(block).splitlines()
    for lines in sources:
        for i in range(len(lines) - len(wanted) + 1):
            if plain("\n".join(lines[i : i + len(wanted)])).splitlines() == wanted:
                return True
    return False


class Page:
    def __init__(self, file, work, paths, sources):
        self.file, self.text, self.sources = file, file.read_text(), sources
        self.folder, self.faults, self.printed = work / file.stem, [], None
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir(parents=True)
        (self.folder / "samples").symlink_to(TOP / "samples")
        self.scripts = []  # the blocks in Python above
        path = ":".join([*map(str, paths), str(TOP / "examples"), str(TOP / "examples/python"), os.environ["PATH"]])
        self.environment = dict(os.environ, PATH=path, QT_QPA_PLATFORM="offscreen", SHAPEHOST_LOG=os.devnull)
        self.environment["EXAMPLES"] = str(paths[0])

    def run(self, commands, program=("bash", "-ec")):
        done = subprocess.run([*program, commands], cwd=self.folder, env=self.environment,
                              capture_output=True, text=True)
        if done.returncode:
            self.faults.append(f"exit code {done.returncode} of\n{commands}{done.stderr}")
        self.printed = done.stdout

    def run_python(self, script):
        """Runs the blocks above, whose output was looked at there, and this one."""
        program = (
            "import contextlib, io\nspace = {'__name__': '__main__'}\n"
            f"with contextlib.redirect_stdout(io.StringIO()):\n    exec({''.join(self.scripts)!r}, space)\n"
            f"exec({script!r}, space)\n")
        self.scripts.append(script)
        self.run(program, ("python3", "-c"))

    def check(self, write):
        changed, end = [], 0
        for block in BLOCK.finditer(self.text):
            language, code = block.groups()
            changed.append(self.text[end : block.start()])
            end = block.end()
            if self.file.name == "README.md" and language in ("cpp", "cmake"):
                pass
            elif language in ("cpp", "c", "cmake") and not stands_in(code, self.sources):
                self.faults.append(f"stands in no example:\n{code}")
            elif language == "sh":
                self.run(code)
            elif language == "python":
                self.run_python(code)
            elif language == "text" and self.printed is None:
                self.faults.append(f"no command prints\n{code}")
            elif language == "text":
                if code.rstrip() != self.printed.rstrip() and not write:
                    self.faults.append(f"printed is\n{self.printed}not\n{code}")
                code, self.printed = self.printed.rstrip() + "\n", None
            elif language not in ("cpp", "c", "cmake"):
                self.faults.append(f"a block of the language '{language}' is not checked")
            changed.append(f"```{language}\n{code}```\n")
        if write:
            self.file.write_text("".join(changed) + self.text[end:])
        self.look_for_pictures(write)
        return self.faults

    def look_for_pictures(self, write):
        for name in re.findall(r"\(pictures/([\w-]+\.png)\)", self.text):
            drawn = self.folder / name
            if write and drawn.exists():
                shutil.copy(drawn, PICTURES)
            if not (PICTURES / name).exists():
                self.faults.append(f"no picture {name}")


def main():
    if len(sys.argv) not in (4, 5):
        sys.exit(__doc__)
    built, shapedoc, work = (pathlib.Path(word).resolve() for word in sys.argv[1:4])
    files = [*TOP.glob("examples/**/*.cpp"), *TOP.glob("examples/*.h"), *TOP.glob("examples/*.c"),
             TOP / "examples/CMakeLists.txt"]
    sources = [file.read_text().splitlines() for file in files]
    failed = False
    paths = [built, shapedoc.parent]
    if "PYTHON" in os.environ:  # the scripts' python3, whichever the search path has
        (work / "bin").mkdir(parents=True, exist_ok=True)
        (work / "bin/python3").unlink(missing_ok=True)
        (work / "bin/python3").symlink_to(os.environ["PYTHON"])
        paths.append(work / "bin")
    for file in [TOP / "README.md", *sorted(TOP.glob("docs/*.md"))]:
        if "PYTHON" not in os.environ and "```python\n" in file.read_text():
            print(f"{file.relative_to(TOP)} is left out: PYTHON names no interpreter")
            continue
        for fault in Page(file, work, paths, sources).check(sys.argv[4:] == ["--write"]):
            print(f"{file.relative_to(TOP)}: {fault}", file=sys.stderr)
            failed = True
    sys.exit(failed)


main()
