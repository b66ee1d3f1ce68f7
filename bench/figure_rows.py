"""The table that the benchmarks print, as rows."""
import dataclasses
import re

COLUMNS = ("measure", "it takes", "limit or peer", "takes", "ratio", "goal", "met")


@dataclasses.dataclass(frozen=True)
class FigureRow:
    """A measure with a goal. `ratio` is its time by the limit's, or the limit's by its own where `faster` is set."""

    cells: tuple  # of the columns, as printed
    ratio: float
    goal: float
    faster: bool

    @property
    def name(self):
        return self.cells[0]

    @property
    def met(self):
        return self.cells[-1] == "met"

    def worse_than(self, kept, factor):
        """Whether the ratio is worse than another one of this row by more than the factor."""
        return self.ratio < kept / factor if self.faster else self.ratio > kept * factor


def read_rows(text):
    """The rows with goals, in order; whatever else the text holds is passed over."""
    rows = []
    for line in text.splitlines():
        cells = tuple(cell.strip() for cell in line.strip().strip("|").split("|"))
        if not line.startswith("|") or len(cells) != len(COLUMNS) or not re.match(r"[≤≥] ", cells[5]):
            continue
        number = lambda cell: float(cell.lstrip("≤≥ ").rstrip("×"))
        rows.append(FigureRow(cells, number(cells[4]), number(cells[5]), cells[5].startswith("≥")))
    return rows
