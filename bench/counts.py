#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""Prints what callgrind counted as a table in Markdown.

counts.py [--csv FILE] <file of callgrind's>...
"""

import argparse
import csv
import re
import sys

# Which calls count as what, by the names of functions.
CALLS = {
    "allocations": re.compile(r"^(malloc|calloc|realloc)(@.*)?$"),
    "hash look-ups": re.compile(r"^(qHash\(Q(String|StringView|ByteArray)|qHash\(QString const&)"),
}
EVENTS = {"Ir": "instructions", "Ge": "atomic operations"}


def counts_of(path):
    """(operation, size, case) and the counts for one call; None for a file without a name."""
    names, counts, title, events, callee = {}, dict.fromkeys([*EVENTS.values(), *CALLS], 0), None, [], ""
    with open(path, encoding="utf-8", errors="replace") as file:
        for line in file:
            if match := re.match(r"(c?fn)=\((\d+)\)(?: (.*))?$", line.rstrip()):
                kind, number, name = match.groups()
                if name:
                    names[number] = name
                if kind == "cfn":
                    callee = names[number]
            elif line.startswith("calls="):
                for what, pattern in CALLS.items():
                    if pattern.match(callee):
                        counts[what] += int(line[6:].split()[0])
            elif match := re.match(r"desc: Trigger: Client Request: (.*)", line):
                *title, units = match.group(1).split("|")
            elif line.startswith("events:"):
                events = line.split()[1:]
            elif line.startswith(("summary:", "totals:")):
                for event, number in zip(events, line.split()[1:]):
                    counts[EVENTS[event]] = int(number)
    return (title, {what: count / float(units) for what, count in counts.items()}) if title else None


def text(number):
    """To three places."""
    for unit, factor in (("M", 1e6), ("k", 1e3)):
        if number >= factor:
            return f"{number / factor:.3g} {unit}" if number < 1000 * factor else f"{number / factor:.0f} {unit}"
    return f"{number:.3g}"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--csv")
    parser.add_argument("files", nargs="+")
    options = parser.parse_args()
    columns = ["instructions", "atomic operations", "allocations", "hash look-ups"]
    files = sorted(options.files, key=lambda path: int(path.rsplit(".", 1)[1]))
    found = [entry for entry in map(counts_of, files) if entry]
    if not found:
        sys.exit("counts.py: nothing was counted")
    print("| operation | size | baseline | " + " | ".join(columns) + " |")
    print("| --- " * (len(columns) + 3) + "|")
    rows = []
    # Baseline and operation follow each other.
    for ((operation, size, name), base), (_, own) in zip(found[::2], found[1::2]):
        # What ran in a process of its own was not seen.
        if not base["instructions"] or not own["instructions"]:
            continue
        rows.append([operation, size, name, *(f"{counts[column]:.6g}" for column in columns for counts in (base, own))])
        cells = []
        for column in columns:
            ratio = f" ({own[column] / base[column]:.2f})" if base[column] else ""
            cells.append(f"{text(own[column])}{ratio}")
        print(f"| {operation} | {size} | {name} | " + " | ".join(cells) + " |")
    if options.csv:
        with open(options.csv, "w", newline="", encoding="utf-8") as file:
            writer = csv.writer(file, lineterminator="\n")
            writer.writerow(["operation", "size", "baseline",
                             *(text for column in columns for text in (f"{column} of the baseline", column))])
            writer.writerows(rows)


if __name__ == "__main__":
    main()
