#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""The translations of the browser are complete, and those of the sources as they are.

translations_test.py LUPDATE SOURCE INCLUDE...
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

LUPDATE, SOURCE, *INCLUDES = sys.argv[1:]
FOLDER = pathlib.Path(SOURCE, "browser", "translations")
MARKS = re.compile(r"%[1-9nL]|\[\*\]|…|\*\.\w+")


def messages(path):
    """(context, source) and the message of each."""
    return {(context.find("name").text, message.find("source").text): message
            for context in ElementTree.parse(path).getroot().iter("context")
            for message in context.iter("message")}


def texts_of(message):
    forms = list(message.find("translation").iter("numerusform"))
    return [form.text or "" for form in forms] or [message.find("translation").text or ""]


class Translations(unittest.TestCase):
    def test_all_is_translated(self):
        files = sorted(FOLDER.glob("*.ts"))
        self.assertEqual([file.stem[-2:] for file in files], ["de", "en", "fr"])
        for file in files:
            for key, message in messages(file).items():
                with self.subTest(file=file.name, message=key):
                    self.assertEqual(message.find("translation").attrib, {})
                    for text in texts_of(message):
                        self.assertNotEqual(text.strip(), "")
                        self.assertEqual(sorted(MARKS.findall(text)), sorted(MARKS.findall(key[1])))
                        self.assertEqual("&" in text, "&" in key[1])
                    if message.get("numerus"):
                        self.assertEqual(len(texts_of(message)), 2)

    def test_they_are_those_of_the_sources(self):
        with tempfile.TemporaryDirectory() as folder:
            fresh = pathlib.Path(folder, "fresh.ts")
            subprocess.run(
                [LUPDATE, "-silent", *(f"-I{include}" for include in INCLUDES),
                 f"{SOURCE}/browser", f"{SOURCE}/widgets", "-target-language", "de", "-ts", fresh],
                check=True, capture_output=True)
            wanted = messages(fresh)
        self.assertGreater(len(wanted), 100)
        for language in ("de", "fr"):
            self.assertEqual(set(messages(FOLDER / f"rvopen-browser_{language}.ts")), set(wanted))
        plurals = {key for key, message in wanted.items() if message.get("numerus")}
        self.assertEqual(set(messages(FOLDER / "rvopen-browser_en.ts")), plurals)

    def test_no_menu_has_a_letter_twice(self):
        """Of the titles of the menus themselves."""
        for language in ("de", "fr"):
            all_of = messages(FOLDER / f"rvopen-browser_{language}.ts")
            letters = [texts_of(all_of["rvopen::browser::MainWindow", title])[0]
                       for title in ("&File", "&Edit", "&Tools", "&View", "&Help")]
            letters = [text[text.index("&") + 1].lower() for text in letters]
            self.assertEqual(len(letters), len(set(letters)), language)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
