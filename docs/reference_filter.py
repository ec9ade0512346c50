#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""Prints a header or a page as Doxygen should read it, line for line.

Headers: a comment speaks for a getter and its setter, for copying and assignment alike, and the
text of a named group for the members of the group that have none of their own. Doxygen would give a
comment to the one that follows it, and a group's text to nobody. And each header belongs to the
layer that pictures.py gives it.

Pages: links go to headings and files, as on a code host. Doxygen wants names that no two pages
share, and knows nothing of files that are not pages.
"""

import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
sys.dont_write_bytecode = True
import pictures  # noqa: E402


def group_id(layer):
    return re.sub(r"\W+", "_", layer.lower())


def subject(declaration):
    """What a declaration is about: the same for a getter and its setter."""
    match = re.search(r"(operator *[a-z=]+|~?\w+)(?:\[\])? *\(", declaration)
    name = match.group(1) if match else declaration
    if re.search(r"\((const )?\w+&( \w+)?\)", declaration) and not name.startswith("~"):
        return "copy"
    return re.sub(r"^(Get|Set|Is)(?=[A-Z])", "", name)


def header(path, lines):
    # Where the group begins: what is declared before is from elsewhere.
    opener = next((line.strip() for line in lines
                   if re.match(r"namespace (rvopen::)?(toolkit|host|widgets) {", line)), "namespace rvopen {")
    closer = "} // " + opener.rstrip(" {")
    group = group_id(pictures.layers_of()[pictures.module_of(path)])
    result = []
    comment, group_text, in_comment, in_declaration = [], [], False, False
    of = None
    intro = None
    opened = False
    for line in lines:
        stripped = line.strip()
        # Of a class, or a function of the namespace.
        is_member = re.match(r"    [^\s/#}].*|(\[\[nodiscard\]\] )?RVOPEN_\w*EXPORT .*\(", line) is not None
        if stripped.startswith("///"):
            text = stripped[3:].strip()
            if text.startswith("\\name"):
                intro = []
            elif text == "@{":
                group_text, intro, comment, line = intro or [], None, [], "/** @{ */\n"
            elif text == "@}":
                group_text, comment, line = [], [], "/** @} */\n"
            elif intro is not None:
                intro.append(text)
            else:
                comment = comment + [text] if in_comment else [text]
            in_comment = text not in ("@{", "@}")
        elif not stripped:
            comment, in_comment = [], False
            if not opened and result and result[-1].startswith(opener):
                line, opened = f"/** \\addtogroup {group} */ /** @{{ */\n", True
        elif re.match(r"(public|protected|private):", stripped):
            comment, in_comment = [], False
        elif is_member and not in_declaration:
            if in_comment:
                of = subject(stripped)
            text = comment if comment and subject(stripped) == of else group_text
            # What a destructor does needs no comment but its own.
            if text and not in_comment and not re.match(r"(virtual )?~|friend ", stripped):
                line = f"/** {' '.join(text)} */ {stripped}\n"
            in_comment = False
            in_declaration = not re.search(r"[;{]$", re.sub(r" *///<.*", "", stripped))
        elif in_declaration:
            in_declaration = not re.search(r"[;{]$", stripped)
        else:
            in_comment = False
        if line.startswith(closer) and opened:
            for back in range(len(result) - 1, 0, -1):
                if not result[back].strip():
                    result[back] = "/** @} */\n"
                    break
        result.append(line)
    return result


def is_page(path):
    """Whether the reference has the document: the guide and its like, and the README."""
    root = pictures.DOCS.parent
    return path.suffix == ".md" and (path.parent == pictures.DOCS or path == root / "README.md")


def page_id(path):
    return "page-" + path.stem.lower()


def heading_id(path, heading):
    heading = re.sub(r"!?\[([^\]]*)\]\([^)]*\)", r"\1", heading)
    anchor = re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
    return f"{path.stem.lower()}-{anchor}"


def page(path, lines):
    def link(match):
        text, target = match.groups()
        if re.match(r"[a-z]+:", target):
            return match.group(0)
        name, _, anchor = target.partition("#")
        other = (path.parent / name).resolve() if name else path
        if other.suffix == ".csv":
            return f'<a href="docs/figures/{other.name}">{text}</a>'
        if not is_page(other):
            return text
        if anchor:
            return f"[{text}](#{other.stem.lower()}-{anchor})"
        return f"[{text}](#{page_id(other)})"

    result, is_code, titled = [], False, False
    for line in lines:
        if line.startswith("```"):
            is_code = not is_code
        elif not is_code:
            if line.startswith("<!--") or line.startswith("SPDX-") or line.startswith("-->"):
                line = "\n"
            heading = re.match(r"(#+) (.*)", line)
            if heading:
                label = heading_id(path, heading.group(2)) if titled else page_id(path)
                titled = True
                line = f"{heading.group(1)} {heading.group(2)} {{#{label}}}\n"
            line = re.sub(r"(?<!!)\[([^\]]*)\]\(([^)\s]+)\)", link, line)
        result.append(line)
    return result


if __name__ == "__main__":
    source = pathlib.Path(sys.argv[1]).resolve()
    text = source.read_text(encoding="utf-8").splitlines(keepends=True)
    sys.stdout.reconfigure(encoding="utf-8")
    sys.stdout.writelines(page(source, text) if source.suffix == ".md" else header(source, text))
