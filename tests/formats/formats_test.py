# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""The schemas in docs/formats accept what rvopen reads and refuse what it would misread."""

import difflib
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
HERE = ROOT / "tests/formats"
SCHEMAS = {".xml": ROOT / "docs/formats/snapshot-document.rng",
           ".rvx": ROOT / "docs/formats/archive.rng"}

# Where an element of the reference stands in a document; "{}" is its place.
PALETTE = ("<snapRoot><snapshot><materialRepository><material>{}</material></materialRepository>"
           "</snapshot></snapRoot>")
SHADER = ('<colour><diffuse><param name="Colour" type="shader" val="colour">{}</param></diffuse>'
          "</colour>")
PLACES = {
    "renderTarget": "<snapRoot><snapshot><renderTargets>{}</renderTargets></snapshot></snapRoot>",
    "lens": "<presets><lenses>{}</lenses></presets>",
    "aspectratio": "<presets><aspectratios>{}</aspectratios></presets>",
    "aspectratioorient": "<presets><aspectratios>{}</aspectratios></presets>",
    "finish": PALETTE,
    "transparency": PALETTE,
    "bump": PALETTE,
    "diffuse": PALETTE.format("<colour>{}</colour>"),
    "plainColour": PALETTE.format(SHADER),
    "map": PALETTE.format(SHADER),
}
SNAPSHOT = "<snapRoot><snapshot>{}</snapshot></snapRoot>"

VALUES = {"float": "0.5", "integer": "3", "boolean": "1", "string": "text", "shader": "colour",
          "colour": "1 0.5 0", "vector": "0 0 1", "point": "1 2 3"}


def refused(files):
    """Those of the files that their schema refuses, each with what xmllint says of it."""
    result = {}
    for suffix, schema in SCHEMAS.items():
        chosen = [str(file) for file in files if file.suffix == suffix]
        if not chosen:
            continue
        run = subprocess.run([os.environ.get("XMLLINT", "xmllint"), "--noout", "--relaxng",
                              str(schema), *chosen],
                             stderr=subprocess.PIPE, text=True, encoding="utf-8", check=False)
        if "failed to compile" in run.stderr or run.returncode not in (0, 3):
            raise AssertionError(run.stderr)
        accepted = {line[: -len(" validates")] for line in run.stderr.splitlines()
                    if line.endswith(" validates")}
        for file in chosen:
            if file not in accepted:
                result[pathlib.Path(file)] = run.stderr
    return result


def documented_parameters():
    """(element, parameter, type) for each row of a table of parameters in docs/formats.md."""
    element = None
    for line in (ROOT / "docs/formats.md").read_text(encoding="utf-8").splitlines():
        heading = re.match(r"#+ (.*)", line)
        if heading:
            names = re.findall(r"`([A-Za-z]+)`", heading.group(1))
            element = names[0] if names else None
        row = re.match(r'\| "([^"]+)" \| ([a-z]+) \|', line)
        if row and element:
            yield element, row.group(1), row.group(2)


class Schemas(unittest.TestCase):
    maxDiff = None

    def test_accept_the_sample_data(self):
        files = [file for file in (ROOT / "data").rglob("*") if file.suffix in SCHEMAS]
        self.assertGreater(len(files), 5)
        self.assertEqual(refused(files), {})

    def test_accept_the_examples_of_the_reference(self):
        text = (ROOT / "docs/formats.md").read_text(encoding="utf-8")
        examples = re.findall(r"```xml\n(.*?)```", text, re.DOTALL)
        self.assertGreater(len(examples), 1)
        folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, folder)
        files = []
        for number, example in enumerate(examples):
            suffix = ".xml" if "<snapRoot" in example else ".rvx"
            files.append(folder / f"{number}{suffix}")
            files[-1].write_text(example, encoding="utf-8")
        self.assertEqual(refused(files), {})

    def test_refuse_each_broken_example(self):
        files = sorted((HERE / "broken").iterdir())
        self.assertGreater(len(files), 20)
        self.assertEqual(sorted(refused(files)), files)

    def test_accept_the_sound_counterparts(self):
        self.assertEqual(refused(sorted((HERE / "valid").iterdir())), {})

    def test_broken_examples_differ_from_the_sound_ones_in_one_place(self):
        self.assertEqual(sorted(os.listdir(HERE / "broken")), sorted(os.listdir(HERE / "valid")))
        for broken in sorted((HERE / "broken").iterdir()):
            with self.subTest(broken.name):
                texts = [path.read_text(encoding="utf-8")
                         for path in (broken, HERE / "valid" / broken.name)]
                changes = [code for code in difflib.SequenceMatcher(
                    None, *[text.splitlines() for text in texts]).get_opcodes()
                    if code[0] != "equal"]
                # A line that moved is two changes.
                self.assertLessEqual(len(changes), 2)

    def test_hold_the_documented_parameters_to_their_types(self):
        rows = list(documented_parameters())
        self.assertGreater(len(rows), 60)
        folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, folder)
        right, wrong = {}, {}
        for number, (element, name, kind) in enumerate(rows):
            other = "integer" if kind != "integer" else "float"
            for group, is_of in ((right, kind), (wrong, other)):
                param = f'<param name="{name}" type="{is_of}" val="{VALUES[is_of]}"/>'
                shader = ' shaderClass="lit appearance"' if element == "finish" else ""
                text = PLACES.get(element, SNAPSHOT).format(
                    f"<{element}{shader}>{param}</{element}>")
                suffix = ".xml" if "snapRoot" in text else ".rvx"
                file = folder / f"{number}-{is_of}{suffix}"
                file.write_text(text, encoding="utf-8")
                group[file] = f"{element}: {name} as {is_of}"
        self.assertEqual([right[file] for file in refused(right)], [])
        refusals = refused(wrong)
        self.assertEqual([text for file, text in wrong.items() if file not in refusals], [])


if __name__ == "__main__":
    unittest.main()
