#!/usr/bin/env python3
"""Draws the README's table as figures.svg beside this script: a bar a row, its time by that of the limit or peer."""
import pathlib

import matplotlib

matplotlib.use("svg")
import matplotlib.pyplot as plt  # noqa: E402: the backend comes first

from figure_rows import read_rows

FOLDER = pathlib.Path(__file__).parent
INK = "#808890"  # of letters and lines: readable on white and on black
WITHIN, BEYOND, PEER = "#3b82f6", "#f97316", "#14a38b"
SMALLEST = 0.005


def main():
    rows = read_rows((FOLDER / "README.md").read_text(encoding="utf-8"))
    # Letters stay letters; the same table gives the same file.
    plt.rcParams.update({"svg.fonttype": "none", "svg.hashsalt": "figures", "font.size": 7, "text.color": INK,
                         "axes.edgecolor": INK, "xtick.color": INK, "ytick.color": INK, "axes.labelcolor": INK})
    figure, axes = plt.subplots(figsize=(11, 0.6 + 0.15 * len(rows)), layout="constrained")
    for place, row in enumerate(rows):
        ratio = 1 / row.ratio if row.faster else row.ratio
        goal = 1 / row.goal if row.faster else row.goal
        color = (PEER if row.faster else WITHIN) if row.met else BEYOND
        axes.barh(place, ratio - SMALLEST, left=SMALLEST, height=0.7, color=color)
        axes.plot([goal, goal], [place - 0.45, place + 0.45], color=INK, linewidth=1)
        axes.text(1.02, place, row.cells[2], transform=axes.get_yaxis_transform(), va="center")
    axes.set(xscale="log", xlim=(SMALLEST, 20), ylim=(len(rows), -1), yticks=range(len(rows)),
             yticklabels=[row.name for row in rows],
             xlabel="time or bytes by those at the right, which are 1; the stroke is the goal. "
                    "Blue: limits. Green: peers. Orange: goals not met")
    axes.axvline(1, color=INK, linewidth=0.5)
    for side in ("top", "right"):
        axes.spines[side].set_visible(False)
    figure.savefig(FOLDER / "figures.svg", transparent=True, metadata={"Date": None})


if __name__ == "__main__":
    main()
