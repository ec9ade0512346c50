#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""Archives with many presets, made of those of the starter installation.

bench/make_presets.py FOLDER [PRESETS [FILES]]

Makes the folder with as many presets, 100,000 when not said, in as many archives, 369 when not said.
Each preset is one of the starter's under a name and reference name of its own, in a folder of fifty.
The same arguments give the same bytes.
"""

import copy
import pathlib
import sys
import xml.etree.ElementTree as ElementTree

DATA = pathlib.Path(__file__).resolve().parent.parent / "data"
ADJECTIVES = "light dark warm cold fine coarse old new plain polished matt deep".split()
NOUNS = "oak ash brass copper slate marble linen denim cork chalk ivory amber walnut".split()
PER_FOLDER = 50


def leaves(shelf):
    for child in shelf:
        if child.tag == "dir":
            yield from leaves(child)
        elif child.tag != "param":
            yield child


def starters():
    """(section, preset) for each preset that the starter has."""
    for path in sorted(DATA.rglob("*.rvx")):
        for section in ElementTree.parse(path).getroot():
            for preset in leaves(section):
                yield section.tag, preset


def archive(name, presets):
    root = ElementTree.Element("presets", {"name": name, "type": "UserArchives"})
    shelves = {}
    for number, (section, preset) in presets:
        shelf = shelves.setdefault(section, [ElementTree.SubElement(
            root, section, {"name": section.capitalize()}), None, 0])
        if shelf[2] % PER_FOLDER == 0:
            shelf[1] = ElementTree.SubElement(shelf[0], "dir", {"name": f"Range {shelf[2] // PER_FOLDER + 1}"})
        shelf[2] += 1
        made = copy.deepcopy(preset)
        word = f"{ADJECTIVES[number % len(ADJECTIVES)]} {NOUNS[number // 7 % len(NOUNS)]}"
        made.set("name", f"{preset.get('name', preset.tag)}, {word} {number}")
        made.set("refname", f"{preset.get('refname', preset.tag)}.{number}")
        shelf[1].append(made)
    ElementTree.indent(root, "  ")
    return ElementTree.tostring(root, encoding="unicode")


def main(folder, count=100000, files=369):
    folder = pathlib.Path(folder)
    source = list(starters())
    for file in range(files):
        numbers = range(count * file // files, count * (file + 1) // files)
        text = archive(f"Range {file + 1}", [(n, source[n * 31 % len(source)]) for n in numbers])
        path = folder / f"part{file // 40 + 1:02}" / f"range{file + 1:04}.rvx"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text('<?xml version="1.0" encoding="utf-8"?>\n' + text + "\n", encoding="utf-8")


if __name__ == "__main__":
    if not 2 <= len(sys.argv) <= 4:
        sys.exit(__doc__)
    main(sys.argv[1], *map(int, sys.argv[2:]))
