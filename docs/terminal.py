#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""The picture of a terminal with the sessions of the README.

docs/terminal.py PROGRAM          makes images/terminal.svg: runs each command of the sessions on a
                                  terminal, in a copy of data/, and draws what arrives there
docs/terminal.py --check PROGRAM  says whether that is what the picture shows
"""

import fcntl
import html
import os
import pathlib
import pty
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import termios

DOCS = pathlib.Path(__file__).resolve().parent
PICTURE = DOCS / "images" / "terminal.svg"
sys.path.append(str(DOCS.parent / "tests" / "docs"))
sys.dont_write_bytecode = True
import sessions  # noqa: E402

PLAIN, GROUND = "#e5e5e5", "#000000"
# The first colours of xterm, which programs name by number.
COLOURS = {31: "#cd0000", 32: "#00cd00", 33: "#cdcd00", 34: "#0000ee", 35: "#cd00cd",
           36: "#00cdcd", 37: "#e5e5e5"}
# Select graphic rendition, or erase to the end of the line (ECMA-48).
SEQUENCE = re.compile(r"\033\[([0-9;]*)([mK])")


def arrived(command, folder, variables):
    """What a terminal gets of a command."""
    ours, theirs = pty.openpty()
    fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", 50, 200, 0, 0))
    received = b""
    with subprocess.Popen(["/bin/sh", "-c", command], cwd=folder, env=variables,
                          stdin=subprocess.DEVNULL, stdout=theirs, stderr=theirs):
        os.close(theirs)
        while True:
            try:
                part = os.read(ours, 65536)
            except OSError:  # Nobody has the other end any more.
                break
            if not part:
                break
            received += part
    os.close(ours)
    return received.decode("utf-8").replace("\r\n", "\n")


def attributes(codes, style):
    """The style after some codes: colour, bold, faint."""
    colour, bold, faint = style
    for code in (int(code or 0) for code in codes.split(";")):
        if code == 0:
            colour, bold, faint = None, False, False
        elif code == 1:
            bold = True
        elif code == 2:
            faint = True
        elif code in COLOURS:
            colour = COLOURS[code]
        else:
            sys.exit(f"docs/terminal.py cannot draw the rendition {code}")
    return colour, bold, faint


def runs_of(line):
    """(text, style) for each stretch of a line, as it stands in the end."""
    runs, style, at = [], (None, False, False), 0
    # What was shown while the program was busy is gone.
    line = line.rsplit("\r\033[K", 1)[-1]
    for sequence in SEQUENCE.finditer(line):
        runs.append((line[at:sequence.start()], style))
        if sequence.group(2) == "m":
            style = attributes(sequence.group(1), style)
        at = sequence.end()
    runs.append((line[at:], style))
    return [(text, style) for text, style in runs if text]


def screen(program):
    """The lines of the terminal."""
    readme = (DOCS.parent / "README.md").read_text(encoding="utf-8")
    variables = sessions.environment(program)
    variables["TERM"] = "xterm"
    lines = []
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch).resolve() / "data"
        shutil.copytree(DOCS.parent / "data", folder)
        for session in sessions.BLOCK.findall(readme):
            for command in re.findall(r"^\$ ((?:.*\\\n)*.*\n)", session, re.MULTILINE):
                text = arrived(command, folder, variables).replace(str(folder), sessions.FOLDER)
                lines += [[(line, (None, False, False))] for line in f"$ {command}"[:-1].split("\n")]
                lines += [runs_of(line) for line in text.rstrip("\n").split("\n")]
            lines.append([])
    lines.pop()
    if not any(style != (None, False, False) for line in lines for _, style in line):
        sys.exit("The program wrote no colours to the terminal")
    return lines


def span(text, style):
    colour, bold, faint = style
    marks = "".join((f' fill="{colour}"' if colour else "", ' font-weight="bold"' if bold else "",
                     ' fill-opacity="0.6"' if faint else ""))
    return f"<tspan{marks}>{html.escape(text)}</tspan>" if marks else html.escape(text)


def drawn(lines):
    char, row, left, top = 7.8, 18, 18, 30
    width = 2 * left + round(max(sum(len(text) for text, _ in line) for line in lines) * char)
    height = top + row * len(lines) - 4
    texts = [f'<text x="{left}" y="{top + row * number}" xml:space="preserve">'
             + "".join(span(text, style) for text, style in line) + "</text>"
             for number, line in enumerate(lines) if line]
    return "\n".join([
        "<!-- SPDX-FileCopyrightText: 2026 The rvopen authors -->",
        "<!-- SPDX-License-Identifier: MIT -->",
        "<!-- Made by docs/terminal.py of what the command writes to a terminal. -->",
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
        f'viewBox="0 0 {width} {height}" font-size="13" fill="{PLAIN}" '
        'font-family="DejaVu Sans Mono, Menlo, Consolas, monospace">',
        f'<rect width="{width}" height="{height}" rx="9" fill="{GROUND}"/>',
        *texts, "</svg>", ""])


def main(arguments):
    if len(arguments) not in (1, 2) or (len(arguments) == 2 and arguments[0] != "--check"):
        sys.exit(__doc__)
    picture = drawn(screen(arguments[-1]))
    if len(arguments) == 1:
        PICTURE.write_text(picture, encoding="utf-8")
    elif PICTURE.read_text(encoding="utf-8") != picture:
        sys.exit(f"docs/images/{PICTURE.name} is not what the command writes to a terminal: "
                 "run scripts/update-documents")


if __name__ == "__main__":
    main(sys.argv[1:])
