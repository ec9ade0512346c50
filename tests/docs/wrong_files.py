# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""The programs that hosts start from, given files that are not what they should be.

wrong_files.py FOLDER GUIDE_PROGRAMS [MINIMAL] [TOUR]

Each ends by itself with an exit code, whatever its files are: none follows a null. What was asked to
read a document and got something else says so by a message and by its code.
"""

import os
import pathlib
import shutil
import subprocess
import sys

import programs

DATA = programs.ROOT / "data"
WRONG = {
    "a web page": b"<html/>",
    "an archive": (DATA / "install/xml/Default.rvx").read_bytes(),
    "an empty document": b"<snapRoot/>",
    "a document without components": b"<snapRoot><snapshots name='Model SnapShots'><snapshot/>"
                                     b"</snapshots><snapshot/></snapRoot>",
    "an empty file": b"",
}


def run(arguments, folder):
    environment = dict(os.environ, QT_QPA_PLATFORM="minimal", LC_ALL="C.UTF-8",
                       XDG_RUNTIME_DIR=str(folder))
    return subprocess.run(arguments, cwd=folder, env=environment, text=True, encoding="utf-8",
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, timeout=60)


def copy_of_data(folder, pattern, content):
    shutil.rmtree(folder, ignore_errors=True)
    shutil.copytree(DATA, folder, ignore=shutil.ignore_patterns("*.png", "*.jpg", "*.hdr"))
    folder.chmod(0o700)
    for file in folder.glob(pattern):
        file.write_bytes(content)


def main(folder, guide, *examples):
    folder = pathlib.Path(folder)
    chapters = [[guide, str(number)] for number, _ in enumerate(programs.chapters(), 1)]
    minimal = [[program, "snapshots/house.xml"] for program in examples[:1] if program]
    tour = [[program, "--install", "install", "--documents", "snapshots", "--archives", "archives",
             "--out", "out"] for program in examples[1:] if program]
    failures = []
    for pattern in ("snapshots/*.xml", "**/*.rvx"):
        for what, content in WRONG.items():
            copy_of_data(folder, pattern, content)
            for arguments in [*chapters, *minimal, *tour]:
                ended = run(arguments, folder)
                where = f"{' '.join(arguments)} with {what} for {pattern}: "
                if ended.returncode < 0:
                    failures.append(f"{where}ended by signal {-ended.returncode}")
                is_example = arguments in minimal + tour and pattern == "snapshots/*.xml"
                has_snapshots = arguments in minimal and "components" in what
                if is_example and not has_snapshots and (ended.returncode == 0 or not ended.stdout):
                    failures.append(f"{where}no message, or code {ended.returncode}")
    shutil.rmtree(folder, ignore_errors=True)
    sys.exit("\n".join(failures) or None)


if __name__ == "__main__":
    main(*sys.argv[1:])
