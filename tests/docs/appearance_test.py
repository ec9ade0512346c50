# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""Each row of "Appearance" in docs/formats.md has a test that is named after it, and each such test a row."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


def chapter():
    text = (ROOT / "docs" / "formats.md").read_text(encoding="utf-8")
    return text.partition("\n## Appearance\n")[2].partition("\n## ")[0]


def rows():
    """The numbers of the rows, in their order."""
    return re.findall(r"^\| ([A-Z]\d+) \|", chapter(), re.MULTILINE)


def tests():
    """The numbers in the names of tests."""
    for path in sorted((ROOT / "tests" / "toolkit" / "drawing").glob("Appearance*Test.cpp")):
        text = path.read_text(encoding="utf-8")
        yield from re.findall(r"^TEST(?:_F|_P)?\(Appearance\w*,\s*([A-Z]\d+)_\w+\)", text, re.MULTILINE)


class Appearance(unittest.TestCase):
    def test_each_row_has_a_number_of_its_own(self):
        numbers = rows()
        tables = len(re.findall(r"^\| no\. \|", chapter(), re.MULTILINE))
        self.assertGreater(tables, 10)
        letters = list(dict.fromkeys(number[0] for number in numbers))
        self.assertGreaterEqual(len(letters), tables)
        for letter in letters:
            counted = [int(number[1:]) for number in numbers if number[0] == letter]
            self.assertEqual(counted, list(range(1, len(counted) + 1)), letter)

    def test_each_row_has_a_test_and_each_test_a_row(self):
        self.assertEqual(sorted(set(rows())), sorted(set(tests())))


if __name__ == "__main__":
    unittest.main()
