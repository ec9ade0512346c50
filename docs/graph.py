#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""Draws images/cost.svg: what an element costs in documents of growing size, from figures/model-qt6.csv.

docs/graph.py            draws it
docs/graph.py --check    tells when it is not what the figures say
"""

import csv
import math
import pathlib
import sys

DOCS = pathlib.Path(__file__).resolve().parent
FIGURES = DOCS / "figures" / "model-qt6.csv"
PICTURE = DOCS / "images" / "cost.svg"
SIZES = {"1 k": 1e3, "10 k": 1e4, "100 k": 1e5, "1 M": 1e6}

# Label, operation, the column that has its time, colour.
CURVES = [
    ("load and read every value", "load snapshots, read every value", "rvopen takes", "#8a3fa0"),
    ("Qt: setContent", "load snapshots", "baseline takes", "#999999"),
    ("load", "load snapshots", "rvopen takes", "#1b62b5"),
    ("save", "save snapshots as text", "rvopen takes", "#b05020"),
    ("Qt: toString", "save snapshots as text", "baseline takes", "#bbbbbb"),
    ("teardown", "teardown of snapshots", "rvopen takes", "#2c7a3f"),
]

WIDTH, HEIGHT = 720, 380
LEFT, RIGHT, TOP, BOTTOM = 56, 190, 24, 48
LINE = 15


def points():
    """By label the places of a curve: elements, and microseconds for each of them."""
    with open(FIGURES, newline="", encoding="utf-8") as file:
        rows = list(csv.DictReader(file))
    for label, operation, column, colour in CURVES:
        curve = [(SIZES[row["size"]], 1e6 * float(row[column]) / SIZES[row["size"]])
                 for row in rows if row["operation"] == operation]
        if len(curve) < 2:
            sys.exit(f"{FIGURES.name} has too few rows of \"{operation}\"")
        yield label, colour, curve


def spread(places):
    """Labels at these heights, moved apart so that none covers another."""
    order = sorted(range(len(places)), key=lambda i: places[i])
    result = list(places)
    for before, after in zip(order, order[1:]):
        result[after] = max(result[after], result[before] + LINE)
    return result


def svg():
    curves = list(points())
    largest = max(y for _, _, curve in curves for _, y in curve)
    step = next(step for step in (1, 2, 5, 10, 20, 50) if largest / step <= 8)
    top = step * math.ceil(largest / step)
    sizes = sorted({x for _, _, curve in curves for x, _ in curve})
    low, high = math.log10(sizes[0]), math.log10(sizes[-1])

    def across(x):
        return LEFT + (math.log10(x) - low) / (high - low) * (WIDTH - LEFT - RIGHT)

    def down(y):
        return HEIGHT - BOTTOM - y / top * (HEIGHT - TOP - BOTTOM)

    lines = [
        "<!-- Made by docs/graph.py -->",
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" width="{WIDTH}" '
        f'height="{HEIGHT}" font-family="sans-serif" font-size="12" role="img" '
        'aria-label="Microseconds for each element over the number of elements">',
        f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#ffffff"/>',
    ]
    for mark in range(0, top + 1, step):
        y = down(mark)
        lines.append(f'<path d="M{LEFT} {y:.1f}H{WIDTH - RIGHT}" stroke="#e4e4e4"/>')
        lines.append(f'<text x="{LEFT - 8}" y="{y + 4:.1f}" text-anchor="end" fill="#444444">{mark}</text>')
    names = {value: name for name, value in SIZES.items()}
    for x in sizes:
        lines.append(f'<path d="M{across(x):.1f} {HEIGHT - BOTTOM}v5" stroke="#888888"/>')
        lines.append(f'<text x="{across(x):.1f}" y="{HEIGHT - BOTTOM + 20}" text-anchor="middle" '
                     f'fill="#444444">{names[x]}</text>')
    lines.append(f'<text x="{(LEFT + WIDTH - RIGHT) / 2:.0f}" y="{HEIGHT - 8}" text-anchor="middle" '
                 'fill="#444444">elements in the document</text>')
    lines.append(f'<text x="{LEFT - 8}" y="{TOP - 8}" fill="#444444">µs for each element</text>')
    heights = spread([down(curve[-1][1]) for _, _, curve in curves])
    for (label, colour, curve), height in zip(curves, heights):
        path = " ".join(f"{across(x):.1f},{down(y):.1f}" for x, y in curve)
        dashes = ' stroke-dasharray="5 4"' if label.startswith("Qt") else ""
        lines.append(f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="2"{dashes}/>')
        lines += [f'<circle cx="{across(x):.1f}" cy="{down(y):.1f}" r="3" fill="{colour}"/>' for x, y in curve]
        dark = "#666666" if label.startswith("Qt") else colour
        lines.append(f'<text x="{WIDTH - RIGHT + 10}" y="{height + 4:.1f}" fill="{dark}">{label}</text>')
    return "\n".join([*lines, "</svg>", ""])


if __name__ == "__main__":
    if sys.argv[1:] == ["--check"]:
        if not PICTURE.exists() or PICTURE.read_text(encoding="utf-8") != svg():
            sys.exit("docs/images/cost.svg is not what the figures say: run docs/graph.py")
    elif sys.argv[1:]:
        sys.exit(__doc__)
    else:
        PICTURE.write_text(svg(), encoding="utf-8")
