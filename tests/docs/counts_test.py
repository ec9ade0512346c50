# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""The numbers in the documents are those of data/ and of the program: counts_test.py PROGRAM"""

import pathlib
import re
import subprocess
import sys
import unittest
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
ARCHIVES = ROOT / "data" / "install" / "xml"
SNAPSHOTS = ROOT / "data" / "snapshots"
PROGRAM = ROOT / "build" / "dev" / "command" / "rvopen"
WORDS = ("no one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen sixteen "
         "seventeen eighteen nineteen twenty").split()
NUMBER = r"(\d+|" + "|".join(WORDS) + r")"


def number(text):
    return WORDS.index(text.lower()) if text.lower() in WORDS else int(text)


def presets(section):
    """The presets of an archive's section, in folders too."""
    for child in section:
        if child.tag == "dir":
            yield from presets(child)
        elif child.tag != "param":
            yield child


def sections(name=None):
    for path in sorted(ARCHIVES.glob("*.rvx")):
        yield from (section for section in ElementTree.parse(path).getroot() if name in (None, section.tag))


def count(name=None):
    return sum(len(list(presets(section))) for section in sections(name))


def folder(section, name):
    """The presets in a folder of the archive that every installation has."""
    root = ElementTree.parse(ARCHIVES / "Default.rvx").getroot()
    return list(presets(next(part for part in root.find(section) if part.get("name") == name)))


def folders(section):
    return len(ElementTree.parse(ARCHIVES / "Default.rvx").getroot().find(section).findall("dir"))


def members(document, collection):
    root = ElementTree.parse(SNAPSHOTS / document).getroot()
    return len(next(part for part in root if part.get("name") == collection).findall("snapshot"))


def palettes(document):
    """How many materials each palette has, which has to be the same for all."""
    root = ElementTree.parse(SNAPSHOTS / document).getroot()
    sizes = {len(palette.findall("material")) for palette in root.iter("materialRepository")}
    return sizes.pop() if len(sizes) == 1 else sorted(sizes)


def run(*arguments):
    return subprocess.run([PROGRAM, *arguments], cwd=ROOT / "data", stdout=subprocess.PIPE, check=False).stdout.decode()


def notes():
    """The findings of check in all of data/, which have to be notes on one file."""
    told = run("check", "--install", "install", "--archives", "archives/Zorvane", "--custom", "archives/Custom",
               "--snapshots", "snapshots", ".")
    lines = [line for line in told.splitlines() if re.search(r" \[[a-z-]+\]$", line)]
    return len(lines) if all("interior_old.xml" in line and ": note: " in line for line in lines) else lines


def examples():
    """How many examples the help of each command has, which has to be the same for all."""
    names = re.findall(r"^  (\w+) ", run("--help").partition("Commands:\n")[2].partition("\n\n")[0], re.MULTILINE)
    counts = {len(re.findall(r"^  rvopen ", run(name, "--help").partition("Examples:\n")[2], re.MULTILINE))
              for name in names}
    return counts.pop() if len(counts) == 1 else sorted(counts)


def tasks():
    return len(re.findall(r"^## ", (ROOT / "docs" / "cookbook.md").read_text(encoding="utf-8"), re.MULTILINE))


def sessions_of_tasks():
    """How many tasks of a preset library there are, each of which has to have one session."""
    text = (ROOT / "docs" / "tasks.md").read_text(encoding="utf-8")
    counts = [len(re.findall(r"^```console$", task, re.MULTILINE))
              for task in re.split(r"^### ", text, flags=re.MULTILINE)[1:]]
    return len(counts) if set(counts) == {1} else counts


def files(pattern):
    return sum(1 for path in ROOT.glob(pattern) if path.is_file())


def images():
    return sum(1 for path in ARCHIVES.rglob("*") if path.is_file() and path.suffix != ".rvx")


def models():
    """The sample models; the neighbour's house is kept by hand."""
    return files("data/snapshots/*.xml") - 1


def lenses():
    return folders("lenses")


def latitudes():
    return folders("naturalLights")


def named():
    return len(folder("colours", "Named colours"))


# In which file, the sentence with its number, and what the number is.
SENTENCES = [
    ("README.md", NUMBER + " archives with [0-9]+ presets", lambda: files("data/install/xml/*.rvx")),
    ("README.md", "archives with " + NUMBER + " presets", count),
    ("README.md", "each with a picture, and " + NUMBER + " textures, backdrops and environments", images),
    ("README.md", "Cameras and lenses of " + NUMBER + " formats", lenses),
    ("README.md", "the sun over " + NUMBER + " latitudes", latitudes),
    ("README.md", "the " + NUMBER + " named colours", named),
    ("README.md", "and " + NUMBER + " materials made of them", lambda: count("materials")),
    ("README.md", "all of it, and " + NUMBER + " sample models", models),
    ("README.md", r"\[cookbook\]\(docs/cookbook.md\) has " + NUMBER + " tasks", tasks),
    ("packaging/README.md.in", "and " + NUMBER + r" tasks in its \[cookbook\]", tasks),
    ("docs/cookbook.md", NUMBER + " tasks, each with the commands", tasks),
    ("README.md", r"\[another page\]\(docs/tasks.md\) has " + NUMBER + " of a preset library", sessions_of_tasks),
    ("packaging/README.md.in", "and " + NUMBER + r" \[tasks of a preset library\]", sessions_of_tasks),
    ("docs/tasks.md", NUMBER + " tasks of technical artists", sessions_of_tasks),
    ("docs/command.md", "explains one with " + NUMBER + " examples", examples),
    ("docs/guide.md", "the " + NUMBER + " default archives are", lambda: files("data/install/xml/*.rvx")),
    ("docs/guide.md", "The " + NUMBER + " extra archives of an installation",
     lambda: files("data/install/xml/*_extra.rvx")),
    ("data/README.md", "documents of " + NUMBER + " sample models", models),
    ("data/README.md", "the " + NUMBER + " named colours of style sheets", named),
    ("data/README.md", "focal lengths of " + NUMBER + " formats", lenses),
    ("data/README.md", "the sun over " + NUMBER + " latitudes", latitudes),
    ("data/README.md", NUMBER + " complete snapshots, cameras", lambda: members("house.xml", "Model SnapShots")),
    ("data/README.md", "palettes of " + NUMBER + " materials", lambda: palettes("house.xml")),
    ("data/README.md", "reflections; " + NUMBER + " palettes",
     lambda: members("product.xml", "Model Material Palettes")),
    ("data/README.md", NUMBER + " snapshots to import", lambda: members("import_me.xml", "Model SnapShots")),
    ("data/README.md", "finds nothing in all of `data/` but " + NUMBER + " notes", notes),
] + [
    ("data/README.md", rf"\| {kind} \| " + NUMBER + r" \|", lambda section=section: count(section))
    for kind, section in (
        ("colours", "colours"), ("materials", "materials"), ("finishes", "finishes"),
        ("transparencies", "transparencies"), ("bumps", "bumps"), ("backgrounds", "backgrounds"),
        ("schemes", "schemes"), ("foregrounds", "foregrounds"), ("cameras", "cameras"), ("lenses", "lenses"),
        ("aspect ratios", "aspectratios"), ("natural light", "naturalLights"))
]


class Counts(unittest.TestCase):
    def test_are_those_of_the_data_and_the_program(self):
        for page, sentence, counted in SENTENCES:
            with self.subTest(page=page, sentence=sentence):
                text = " ".join((ROOT / page).read_text(encoding="utf-8").split())
                found = re.findall(sentence.replace(NUMBER, r"\b" + NUMBER + r"\b"), text, re.IGNORECASE)
                self.assertEqual(len(found), 1, "the sentence is not there once")
                self.assertEqual(number(found[0]), counted())

    def test_there_are_forty_tasks_of_a_preset_library(self):
        self.assertEqual(sessions_of_tasks(), 40)

    def test_the_table_has_every_section(self):
        table = (ROOT / "data" / "README.md").read_text(encoding="utf-8")
        sums = [int(text) for text in re.findall(r"^\| [a-z ]+ \| (\d+) \|", table, re.MULTILINE)]
        self.assertEqual(len(sums), len({section.tag for section in sections()}))
        self.assertEqual(sum(sums), count())


if __name__ == "__main__":
    if len(sys.argv) > 1:
        PROGRAM = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
