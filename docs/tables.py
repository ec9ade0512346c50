#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""The tables of parameters in docs/formats.md, which the command prints from the metadata.

docs/tables.py PROGRAM          puts what the program prints into the document
docs/tables.py --check PROGRAM  says whether it is what stands there
"""

import difflib
import pathlib
import re
import subprocess
import sys

DOCUMENT = pathlib.Path(__file__).resolve().parent / "formats.md"
# A heading of an element, what stands before its table, and the table.
PLACE = re.compile(r"^(### `(\w+)`\n(?:(?!#|\| parameter ).*\n)*?)((?:\|.*\n)+)", re.MULTILINE)


def printed(program):
    """The table of each element."""
    run = subprocess.run([program, "--generate", "tables"], check=True, stdout=subprocess.PIPE)
    parts = re.split(r"^### (\w+)\n\n", run.stdout.decode("utf-8"), flags=re.MULTILINE)
    return {name: table.rstrip("\n") + "\n" for name, table in zip(parts[1::2], parts[2::2])}


def filled(text, tables):
    """The document with these tables, each of which has its place there."""
    left = dict(tables)

    def fill(match):
        if not match.group(3).startswith("| parameter "):
            return match.group(0)
        if match.group(2) not in left:
            sys.exit(f"nothing is known of the parameters of {match.group(2)}")
        return match.group(1) + left.pop(match.group(2))

    text = PLACE.sub(fill, text)
    if left:
        sys.exit(f"{DOCUMENT.name} has no table of parameters of {', '.join(left)}")
    return text


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3) or sys.argv[1:-1] not in ([], ["--check"]):
        sys.exit(__doc__)
    old = DOCUMENT.read_text(encoding="utf-8")
    new = filled(old, printed(sys.argv[-1]))
    if sys.argv[1] != "--check":
        DOCUMENT.write_text(new, encoding="utf-8")
    elif new != old:
        sys.exit("".join(difflib.unified_diff(old.splitlines(keepends=True),
                                              new.splitlines(keepends=True), "the document",
                                              "what is printed"))
                 + "\ndocs/tables.py PROGRAM puts it into the document")
