# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""Every link inside the repository leads somewhere: files, folders and headings."""

import os
import pathlib
import re
import unittest
import urllib.parse

ROOT = pathlib.Path(__file__).resolve().parents[2]
SKIPPED = {"build", ".git", "corpus"}


def pages():
    for folder, folders, files in os.walk(ROOT):
        folders[:] = [name for name in folders if name not in SKIPPED]
        yield from (pathlib.Path(folder) / name for name in files if name.endswith(".md"))


def prose(page):
    """The text of a page without code and comments."""
    text = page.read_text(encoding="utf-8")
    text = re.sub(r"^(```|~~~).*?^\1", "", text, flags=re.DOTALL | re.MULTILINE)
    text = re.sub(r"<!--.*?-->", "", text, flags=re.DOTALL)
    return text


def anchors(page):
    """The anchors of the headings, as code hosts make them."""
    result, seen = set(), {}
    for heading in re.findall(r"^#+ +(.*?) *#*$", prose(page), flags=re.MULTILINE):
        heading = re.sub(r"!?\[([^\]]*)\]\([^)]*\)", r"\1", heading)
        anchor = re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
        number = seen.get(anchor, 0)
        seen[anchor] = number + 1
        result.add(f"{anchor}-{number}" if number else anchor)
    return result | set(re.findall(r'<a (?:id|name)="([^"]+)"', prose(page)))


def links(page):
    text = re.sub(r"`[^`\n]*`", "", prose(page))
    yield from re.findall(r"\]\(<?([^)\s>]+)>?(?: +\"[^\"]*\")?\)", text)
    yield from re.findall(r"^\[[^\]]+\]: *(\S+)", text, flags=re.MULTILINE)
    yield from re.findall(r"(?:src|href)=\"([^\"]+)\"", text)


def complaints(page):
    for link in links(page):
        if re.match(r"[a-z][a-z0-9+.-]*:", link):
            continue
        path, _, anchor = link.partition("#")
        target = page.parent / urllib.parse.unquote(path) if path else page
        if not target.exists():
            yield f"{link}: there is no such file"
        elif ROOT not in target.resolve().parents and target.resolve() != ROOT:
            yield f"{link}: outside of the repository"
        elif anchor and target.suffix == ".md" and anchor not in anchors(target):
            yield f"{link}: there is no such heading"


class Links(unittest.TestCase):
    def test_lead_somewhere(self):
        found = 0
        for page in pages():
            with self.subTest(page=str(page.relative_to(ROOT))):
                found += len(list(links(page)))
                self.assertEqual(list(complaints(page)), [])
        self.assertGreater(found, 20)


if __name__ == "__main__":
    unittest.main()
