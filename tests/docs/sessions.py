# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""The sessions with the command that the documents show, in blocks "console".

sessions.py run PROGRAM DOCUMENT...     runs each command in a copy of data/, of which a document
                                        has one, and compares what it prints with what is shown
sessions.py update PROGRAM DOCUMENT...  puts what they print into the documents
"""

import difflib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
BLOCK = re.compile(r"(?<=^```console\n)(.*?)(?=^```$)", re.DOTALL | re.MULTILINE)
# The folder in which everything runs has this name in the documents.
FOLDER = "/projects"


def environment(program):
    result = {name: value for name, value in os.environ.items()
              if not name.startswith("RVOPEN_") and name not in ("NO_COLOR", "DISPLAY")}
    result.update(LC_ALL="C.UTF-8", QT_QPA_PLATFORM="minimal",
                  PATH=f"{pathlib.Path(program).resolve().parent}:{os.environ['PATH']}")
    return result


def play(session, folder, variables):
    """The session with what its commands print now."""
    result = ""
    # A command ends with its line, unless there is a backslash at the end.
    for command in re.findall(r"^\$ ((?:.*\\\n)*.*\n)", session, re.MULTILINE):
        run = subprocess.run(["/bin/sh", "-c", command], cwd=folder, env=variables, text=True,
                             encoding="utf-8", stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                             check=False)
        printed = run.stdout.replace(str(folder), FOLDER)
        result += f"$ {command}{printed}"
        if printed and not printed.endswith("\n"):
            result += "\n"
    return result


def main(command, program, *documents):
    differ = False
    for name in documents:
        path = ROOT / name
        text = path.read_text(encoding="utf-8")
        with tempfile.TemporaryDirectory() as scratch:
            folder = pathlib.Path(scratch).resolve() / "data"
            shutil.copytree(ROOT / "data", folder)
            variables = environment(program)
            if not BLOCK.search(text):
                sys.exit(f"{name} shows no session")
            fresh = BLOCK.sub(lambda match: play(match.group(1), folder, variables), text)
        if fresh == text:
            continue
        if command == "update":
            path.write_text(fresh, encoding="utf-8")
        else:
            differ = True
            sys.stdout.writelines(difflib.unified_diff(
                text.splitlines(keepends=True), fresh.splitlines(keepends=True),
                f"{name}, shown", f"{name}, printed", n=1))
    if differ:
        sys.exit(1)


if __name__ == "__main__":
    if len(sys.argv) < 4 or sys.argv[1] not in ("run", "update"):
        sys.exit(__doc__)
    main(*sys.argv[1:])
