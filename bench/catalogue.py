#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""What the catalogue costs, measured on the program's own commands and beside xmllint.

bench/catalogue.py [--command PROGRAM] [--presets N [N ...]] [--runs N] [--csv FILE]

Makes archives of so many presets, 100,000 when not said, in a folder of its own and prints a table in
Markdown: medians of so many runs, 5 when not said, each after the other kind. Times are of this machine;
ratios are of one run of this program.
"""

import argparse
import csv
import os
import pathlib
import re
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "bench"))
import make_presets  # noqa: E402

# A file that changed within two seconds of its reading is not noted.
CLOCK_STEP = 2.5


class Cost:
    """Seconds and bytes of one process."""

    def __init__(self, command, environment):
        began = time.monotonic()
        with subprocess.Popen([str(part) for part in command], env=environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL) as process:
            _, status, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
        self.wall = time.monotonic() - began
        self.cpu = usage.ru_utime + usage.ru_stime
        self.memory = usage.ru_maxrss * 1024
        # 1: something was looked for and is not there.
        if process.returncode not in (0, 1):
            sys.exit(f"{command[0]} {command[1]} failed")


def median(costs, what):
    return statistics.median(getattr(cost, what) for cost in costs)


class Measuring:
    def __init__(self, program, folder, presets, runs):
        self.program, self.presets, self.runs = program, presets, runs
        self.archives, self.caches = folder / "archives", folder / "caches"
        # As many in a file whatever their number.
        make_presets.main(self.archives, presets, max(1, round(presets * 369 / 100000)))
        self.files = sorted(self.archives.rglob("*.rvx"))
        self.bytes = sum(file.stat().st_size for file in self.files)
        self.environment = {name: value for name, value in os.environ.items() if not name.startswith("RVOPEN_")}
        self.environment.update(LC_ALL="C.UTF-8", XDG_CACHE_HOME=str(self.caches))

    def cost(self, *command):
        return Cost(command, self.environment)

    def forget(self):
        subprocess.run(["rm", "-rf", self.caches], check=True)

    def rows(self):
        """What it is, the figure, and what it is measured by."""
        time.sleep(CLOCK_STEP)
        # Everything is in memory before the first is measured.
        self.cost("xmllint", "--noout", *self.files)
        first, other, again, version, changed = [], [], [], [], []
        for _ in range(self.runs):
            self.forget()
            first.append(self.cost(self.program, "list", self.archives))
            other.append(self.cost("xmllint", "--noout", *self.files))
        for _ in range(self.runs):
            again.append(self.cost(self.program, "list", "--text", "oak", self.archives))
            version.append(self.cost(self.program, "--version"))
        for run in range(self.runs):
            file = self.files[run % len(self.files)]
            file.write_bytes(file.read_bytes())
            changed.append(self.cost(self.program, "list", "--text", "oak", self.archives))
        yield "first list, CPU", median(first, "cpu"), "xmllint --noout", median(other, "cpu"), "s"
        yield "list --text oak again, wall", median(again, "wall"), "first list", median(first, "wall"), "s"
        yield "list --text oak again, wall", median(again, "wall"), "--version", median(version, "wall"), "s"
        yield "one changed file, wall", median(changed, "wall"), "first list", median(first, "wall"), "s"
        yield "first list, memory", median(first, "memory") / 1e6, "files", self.bytes / 1e6, "MB"
        yield "list --text oak again, memory", median(again, "memory") / 1e6, "files", self.bytes / 1e6, "MB"
        yield "first list, CPU for each preset", 1e6 * median(first, "cpu") / self.presets, "", 0, "µs"
        yield from self.rows_of_a_value()

    def rows_of_a_value(self):
        """One value of an archive of 10,000, beside building it, as is done where a prefix is declared in it."""
        folder = self.archives.parent / "one"
        make_presets.main(folder, 10000, 1)
        archive, = folder.rglob("*.rvx")
        built, text = folder / "built.rvx", archive.read_bytes()
        built.write_bytes(text.replace(b"<presets ", b'<presets xmlns:p="p" ', 1))
        path = re.findall(rb'refname="([^"]*)"', text)[-1].decode() + "@name"
        value, whole = [], []
        for _ in range(self.runs):
            value.append(self.cost(self.program, "get", archive, path))
            whole.append(self.cost(self.program, "get", built, path))
        yield "get of one value, CPU", median(value, "cpu"), "building its archive", median(whole, "cpu"), "s"
        yield ("get of one value, memory", median(value, "memory") / 1e6, "building its archive",
               median(whole, "memory") / 1e6, "MB")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--command", default=ROOT / "build/bench-qt6/command/rvopen", type=pathlib.Path)
    parser.add_argument("--presets", nargs="+", type=int, default=[100000])
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--csv", type=pathlib.Path)
    options = parser.parse_args()
    table = []
    for presets in options.presets:
        with tempfile.TemporaryDirectory() as folder:
            measuring = Measuring(options.command.resolve(), pathlib.Path(folder), presets, options.runs)
            for row in measuring.rows():
                table.append((presets, *row))
    print("| presets | what | figure | beside | figure | ratio |\n|---|---|---|---|---|---|")
    for presets, what, figure, beside, by, unit in table:
        ratio = f"{figure / by:.3f}" if by else ""
        print(f"| {presets:,} | {what} | {figure:.3g} {unit} | {beside} | {f'{by:.3g} {unit}' if by else ''} | {ratio} |")
    if options.csv:
        with open(options.csv, "w", newline="", encoding="utf-8") as file:
            writer = csv.writer(file)
            writer.writerow(["presets", "what", "figure", "unit", "beside", "figure beside"])
            for presets, what, figure, beside, by, unit in table:
                writer.writerow([presets, what, f"{figure:.6g}", unit, beside, f"{by:.6g}" if by else ""])


if __name__ == "__main__":
    main()
