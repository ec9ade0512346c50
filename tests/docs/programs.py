# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""The programs of docs/guide.md.

programs.py sources FOLDER      writes them as chapter_<n>.cpp and main.cpp, and prints their names
programs.py first FOLDER        writes the first program as the guide shows it: its build file, too
programs.py run PROGRAM FOLDER  runs each chapter in a copy of data/ below FOLDER, and compares what
                                each block prints with the text block that follows it
programs.py update PROGRAM FOLDER  the same, and puts what they print into the guide
"""

import difflib
import os
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
GUIDE = ROOT / "docs/guide.md"
# Printed between two blocks.
SEPARATOR = "\x1e"


class Block:
    def __init__(self, kind, text, line):
        self.kind = kind
        self.text = text
        self.line = line


def chapters():
    """The blocks of each chapter that has a program, in order."""
    result, blocks, fence = [], [], None
    for number, line in enumerate(GUIDE.read_text(encoding="utf-8").splitlines(keepends=True), 1):
        if fence is not None:
            if line.startswith("```"):
                blocks.append(fence)
                fence = None
            else:
                fence.text += line
        elif line.startswith("```"):
            fence = Block(line[3:].strip(), "", number + 1)
        elif line.startswith("## "):
            result.append(blocks)
            blocks = []
    result.append(blocks)
    return [blocks for blocks in result if any(block.kind == "cpp" for block in blocks)]


def write(path, text):
    if not path.exists() or path.read_text(encoding="utf-8") != text:
        path.write_text(text, encoding="utf-8")


def source(number, blocks):
    includes, body = "", ""
    for block in blocks:
        if block.kind != "cpp":
            continue
        if "int main()" in block.text:
            # Only main() may do without a return at its end.
            text = block.text.replace("int main()", f"int chapter_{number}()")
            return re.sub(r"\n}\n$", "\n    return 0;\n}\n", text)
        lines = block.text.splitlines(keepends=True)
        # Where the includes were is an empty line, so that the compiler names the guide's lines.
        includes += "".join(line for line in lines if line.startswith("#include"))
        body += f'#line {block.line} "docs/guide.md"\n'
        body += "".join("\n" if line.startswith("#include") else line for line in lines)
        body += "std::cout << '\\x1e' << std::flush;\n"
    return (f"{includes}\nusing namespace rvopen;\n\nint chapter_{number}()\n{{\n{body}"
            "return 0;\n}\n")


def sources(folder):
    folder.mkdir(parents=True, exist_ok=True)
    names, calls, declarations = [], "", ""
    for number, blocks in enumerate(chapters(), 1):
        path = folder / f"chapter_{number}.cpp"
        write(path, source(number, blocks))
        names.append(str(path))
        declarations += f"int chapter_{number}();\n"
        calls += f"    case {number}:\n        return chapter_{number}();\n"
    main = folder / "main.cpp"
    write(main, f"#include <cstdlib>\n\n{declarations}\nint main(int, char** argv)\n{{\n"
                f"    switch (std::atoi(argv[1])) {{\n{calls}    }}\n    return 2;\n}}\n")
    print(";".join([*names, str(main)]))


def first(folder):
    folder.mkdir(parents=True, exist_ok=True)
    files = {"cmake": "CMakeLists.txt", "cpp": "main.cpp", "text": "expected.txt"}
    for block in chapters()[0]:
        if block.kind in files:
            (folder / files[block.kind]).write_text(block.text, encoding="utf-8")


def output_of(program, number, folder):
    """What each block of the chapter prints."""
    shutil.rmtree(folder, ignore_errors=True)
    shutil.copytree(ROOT / "data", folder)
    folder.chmod(0o700)
    environment = dict(os.environ, QT_QPA_PLATFORM="minimal", LC_ALL="C.UTF-8",
                       XDG_RUNTIME_DIR=str(folder))
    run = subprocess.run([program, str(number)], cwd=folder, env=environment, text=True,
                         encoding="utf-8", stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                         check=False)
    shutil.rmtree(folder)
    if run.returncode != 0 or run.stderr:
        sys.exit(f"chapter {number} ended with {run.returncode}: {run.stderr}")
    return run.stdout.removesuffix(SEPARATOR).split(SEPARATOR)


def run(program, folder, update):
    lines = GUIDE.read_text(encoding="utf-8").splitlines(keepends=True)
    changes = []
    for number, blocks in enumerate(chapters(), 1):
        printed = output_of(program, number, folder / str(number))
        programs = [index for index, block in enumerate(blocks) if block.kind == "cpp"]
        if len(programs) != len(printed):
            sys.exit(f"chapter {number}: a block ended the program")
        for index, text in zip(programs, printed):
            shown = blocks[index + 1] if index + 1 < len(blocks) else None
            if shown is None or shown.kind != "text":
                sys.exit(f"docs/guide.md:{blocks[index].line}: no output is shown")
            if shown.text != text:
                changes.append((shown, text))
    for shown, text in reversed(changes):
        if update:
            start = shown.line - 1
            lines[start:start + shown.text.count("\n")] = [text]
        else:
            print(f"docs/guide.md:{shown.line}: the program prints something else")
            sys.stdout.writelines(difflib.unified_diff(
                shown.text.splitlines(keepends=True), text.splitlines(keepends=True),
                "shown", "printed"))
    if update:
        GUIDE.write_text("".join(lines), encoding="utf-8")
    elif changes:
        sys.exit(1)


def main(command, *arguments):
    if command == "sources":
        sources(pathlib.Path(arguments[0]))
    elif command == "first":
        first(pathlib.Path(arguments[0]))
    elif command in ("run", "update"):
        run(arguments[0], pathlib.Path(arguments[1]), command == "update")
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(*sys.argv[1:])
