#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""Tasks with rvopen-browser as somebody does them: with keys and mouse, on a screen of its own.

tasks.py BROWSER DATA [--keep FOLDER]

What is seen is asked for as those who hear instead of see ask for it; what was done is looked up in
the files. A few pictures of the window are compared, very small, with those beside this file;
--keep leaves all pictures in the folder, and the small ones to put there.
"""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

if "DBUS_SESSION_BUS_ADDRESS" not in os.environ or "RVOPEN_TASKS" not in os.environ:
    os.environ["RVOPEN_TASKS"] = "1"
    os.execvp("dbus-run-session", ["dbus-run-session", "--", sys.executable, *sys.argv])

import gi  # noqa: E402  Needs the bus.

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

BROWSER, DATA = sys.argv[1:3]
KEEP = pathlib.Path(sys.argv[4]) if sys.argv[3:4] == ["--keep"] else None
PICTURES = pathlib.Path(__file__).resolve().parent / "pictures"
SMALL = (80, 50)
# Of 255, on average over all points of a small picture.
ALIKE = 14


class Gone(Exception):
    """What was looked for does not come."""


def wait(condition, what, seconds=15):
    end = time.monotonic() + seconds
    while True:
        try:
            value = condition()
        except gi.repository.GLib.GError:
            value = None  # It went while it was asked.
        if value:
            return value
        if time.monotonic() > end:
            raise Gone(what() if callable(what) else what)
        time.sleep(0.1)


def children(node):
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child:
            yield child


def walk(node, most=300):
    yield node
    for i, child in enumerate(children(node)):
        if i < most:
            yield from walk(child, most)


def is_seen(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


class Screen:
    def __init__(self, folder):
        self.folder = folder
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x800x24", "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as display:
            os.environ["DISPLAY"] = ":" + display.readline().strip()
        self.manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)
        runtime = folder / "run"
        runtime.mkdir(mode=0o700)
        os.environ.update(
            QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL="C.UTF-8",
            LANGUAGE="", XDG_RUNTIME_DIR=str(runtime), XDG_CONFIG_HOME=str(folder / "config"),
            XDG_CACHE_HOME=str(folder / "cache"), XDG_STATE_HOME=str(folder / "state"))
        Atspi.init()

    def close(self):
        self.manager.terminate()
        self.server.terminate()

    def picture(self, name):
        file = self.folder / f"{name}.png"
        subprocess.run(["import", "-window", "root", file], check=True)
        if KEEP:
            shutil.copy(file, KEEP)
        return file

    def shade(self):
        """How bright it is all in all, from 0 to 1."""
        shown = subprocess.run(
            ["convert", self.picture("shade"), "-colorspace", "Gray", "-format", "%[fx:mean]",
             "info:"], check=True, capture_output=True, text=True)
        return float(shown.stdout)


class Browser:
    def __init__(self, *paths):
        self.process = subprocess.Popen([BROWSER, *map(str, paths)])
        self.window = wait(self.find_window, "the window")
        subprocess.run(["xdotool", "search", "--sync", "--onlyvisible", "--pid",
                        str(self.process.pid)], check=True, stdout=subprocess.DEVNULL, timeout=20)
        wait(lambda: self.status().split(" ")[0] not in ("", "0"), "presets")
        time.sleep(0.5)

    def find_window(self):
        desktop = Atspi.get_desktop(0)
        for application in children(desktop):
            if application.get_name() == "rvopen-browser" and \
                    application.get_process_id() == self.process.pid:
                for window in children(application):
                    if is_seen(window) and "rvopen" in window.get_name():
                        return window
        return None

    def find(self, role, name, within=None):
        for node in walk(within or self.window):
            if node.get_role_name() == role and is_seen(node) and (
                    node.get_name() == name or callable(name) and name(node.get_name())):
                return node
        return None

    def wait_for(self, role, name, within=None):
        return wait(lambda: self.find(role, name, within), f"{role} {name}")

    def status(self):
        bar = self.find("status bar", lambda name: True)
        return bar.get_name() if bar else ""

    def shown(self):
        return [item.get_name() for item in children(self.find("list", "Presets"))]

    def title(self):
        return self.find_window().get_name()

    def message(self):
        line = self.find("filler", "Messages")
        label = line and self.find("label", lambda name: name, line)
        return label.get_name() if label else ""

    def preset(self):
        label = self.find("label", lambda name: " – " in name)
        return label.get_name() if label else ""


def tool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)
    time.sleep(0.15)


def key(*names):
    for name in names:
        tool("key", "--clearmodifiers", name)


def type_text(text):
    tool("type", "--delay", 20, text)


def middle(node):
    extents = node.get_extents(Atspi.CoordType.SCREEN)
    return extents.x + extents.width // 2, extents.y + extents.height // 2


def click(node, *keys):
    x, y = middle(node)
    for name in keys:
        tool("keydown", name)
    tool("mousemove", x, y, "click", 1)
    for name in keys:
        tool("keyup", name)
    time.sleep(0.2)


def drag(node, other):
    x, y = middle(node)
    tool("mousemove", x, y, "mousedown", 1)
    goal = middle(other)
    for i in range(1, 9):
        tool("mousemove", x + (goal[0] - x) * i // 8, y + (goal[1] - y) * i // 8)
    time.sleep(0.3)
    tool("mouseup", 1)


def points(file, size):
    """The grey levels of the picture in that size."""
    text = subprocess.run(
        ["convert", file, "-resize", "{}x{}!".format(*size), "-colorspace", "Gray", "-depth", "8",
         "gray:-"], check=True, capture_output=True).stdout
    return list(text)


class Tasks:
    def __init__(self, screen, presets):
        self.screen = screen
        self.presets = presets
        self.first = presets / "Architectural_extra.rvx"
        self.second = presets / "Product_extra.rvx"
        self.browser = None

    def choose(self, name, words=None):
        """Finds the preset by typing, and clicks on it."""
        key("ctrl+f")
        type_text(words or name)
        item = self.browser.wait_for("list item", name)
        click(item)
        wait(lambda: self.browser.preset().startswith(name + "\n"), f"{name} in the details")
        wait(lambda: ".rvx" in self.browser.title(), "the file in the title")
        time.sleep(0.3)

    def alike(self, name):
        reference = PICTURES / f"{name}.png"
        if KEEP:
            file = self.screen.picture(name)
            subprocess.run(["convert", file, "-resize", "{}x{}!".format(*SMALL), "-colorspace", "Gray",
                            "-strip", KEEP / f"small-{name}.png"], check=True)
        if KEEP and not reference.exists():
            return
        if not reference.exists():
            raise Gone(f"there is no {reference.name} to compare with")
        wanted = points(reference, SMALL)
        difference = 0

        def is_alike():
            nonlocal difference
            now = points(self.screen.picture(name), SMALL)
            difference = sum(abs(a - b) for a, b in zip(now, wanted)) / len(wanted)
            return difference <= ALIKE

        # Pictures are drawn while one looks.
        wait(is_alike, lambda: f"{name} looks otherwise: by {difference:.1f}")

    def saved(self, file, text):
        wait(lambda: text in file.read_text(encoding="utf-8"), f"{text} in {file.name}")

    def task_01_open_a_folder(self):
        self.browser = Browser(self.presets)
        wait(lambda: self.browser.status() == "101 presets", lambda: self.browser.status())
        time.sleep(2)
        self.alike("opened")

    def task_02_search(self):
        key("ctrl+f")
        type_text("clay t")
        wait(lambda: self.browser.shown() == ["Clay tiles"], lambda: str(self.browser.shown()))

    def task_03_choose(self):
        self.choose("Clay tiles", "clay t")
        time.sleep(2)
        self.alike("chosen")
        # Whatever the keyboard comes to says what it is.
        met = set()
        for node in walk(self.browser.window):
            states = node.get_state_set()
            if states.contains(Atspi.StateType.FOCUSABLE) and is_seen(node) and not node.get_name() \
                    and not node.get_role_name().startswith("table"):
                raise Gone(f"a {node.get_role_name()} without a name")
            if states.contains(Atspi.StateType.FOCUSABLE) and is_seen(node):
                met.add(node.get_name())
        wanted = {"Search", "Filters", "Presets", "Values", "Findings", "Size of the pictures"}
        if not wanted <= met:
            raise Gone(f"the keyboard does not come to {wanted - met}")

    def task_04_edit_a_value_with_keys(self):
        key("Return")
        wait(lambda: self.browser.find("tree", "Values").get_state_set().contains(
            Atspi.StateType.FOCUSED), "values with the keyboard")
        click(self.browser.wait_for("table cell", "Rotation"))
        key("F2", "ctrl+a")
        type_text("33")
        key("Return")
        wait(lambda: self.browser.title().startswith("Architectural_extra.rvx*"),
             lambda: self.browser.title())

    def task_05_undo(self):
        key("ctrl+z")
        wait(lambda: "*" not in self.browser.title(), lambda: self.browser.title())

    def task_06_redo(self):
        key("ctrl+shift+z")
        wait(lambda: "*" in self.browser.title(), lambda: self.browser.title())

    def task_07_save(self):
        key("ctrl+s")
        self.saved(self.first, 'val="33"')
        wait(lambda: "*" not in self.browser.title(), lambda: self.browser.title())

    def task_08_duplicate(self):
        self.choose("Clay tiles", "clay t")
        key("ctrl+d")
        wait(lambda: len(self.browser.shown()) == 2, lambda: str(self.browser.shown()))

    def task_09_rename(self):
        key("F2")
        key("ctrl+a")
        type_text("Our clay tiles")
        key("Return")
        wait(lambda: "Our clay tiles" in self.browser.shown(), lambda: str(self.browser.shown()))

    def task_10_move_up(self):
        self.choose("Our clay tiles", "our clay")
        key("alt+Up", "ctrl+s")
        self.saved(self.first, "Our clay tiles")
        text = self.first.read_text(encoding="utf-8")
        if text.index('"Our clay tiles"') > text.index('"Clay tiles"'):
            raise Gone("it did not move")

    def task_11_delete(self):
        self.choose("Our clay tiles", "our clay")
        key("Delete")
        wait(lambda: "deleted" in self.browser.message(), lambda: self.browser.message())
        wait(lambda: self.browser.shown() == [], lambda: str(self.browser.shown()))

    def task_12_undo_the_deletion(self):
        key("ctrl+z")
        wait(lambda: self.browser.shown() == ["Our clay tiles"], lambda: str(self.browser.shown()))

    def task_13_note_a_favourite(self):
        self.choose("Our clay tiles", "our clay")
        key("ctrl+b")
        key("ctrl+f", "ctrl+a", "BackSpace")
        click(self.browser.wait_for("table cell", "Favourites"))
        wait(lambda: self.browser.shown() == ["Our clay tiles"], lambda: str(self.browser.shown()))
        click(self.browser.wait_for("table cell", lambda name: name.startswith("All presets")))

    def task_14_copy_into_another_archive(self):
        self.choose("Our clay tiles", "our clay")
        key("ctrl+c")
        self.choose("Rose gold")
        key("ctrl+v")
        key("ctrl+s")
        self.saved(self.second, "Our clay tiles")

    def task_15_drag_into_a_folder(self):
        self.choose("Rose gold")
        before = self.second.read_text(encoding="utf-8").count('"Rose gold')
        tree = self.browser.wait_for("tree", "File that is edited")
        self.browser.find("list item", "Rose gold")
        drag(self.browser.wait_for("list item", "Rose gold"),
             self.browser.wait_for("table cell", "Materials", tree))
        wait(lambda: "*" in self.browser.title(), lambda: self.browser.title())
        key("ctrl+s")
        wait(lambda: self.second.read_text(encoding="utf-8").count('"Rose gold') > before,
             "one more preset")

    def task_16_compare(self):
        key("ctrl+f")
        type_text("clay tiles")
        wait(lambda: "Clay tiles" in self.browser.shown(), "presets to compare")
        items = [item for item in walk(self.browser.find("list", "Presets"))
                 if item.get_name() in ("Clay tiles", "Our clay tiles") and is_seen(item)]
        click(items[0])
        click(items[1], "ctrl")
        key("ctrl+e")
        wait(lambda: any(" and " in window.get_name()
                         for window in children(self.browser.window.get_parent())), "the comparison")
        self.screen.picture("compared")
        key("Escape")

    def task_17_check_all(self):
        tree = self.browser.wait_for("tree", "Findings")
        before = tree.get_child_count()
        key("shift+F7")
        wait(lambda: tree.get_child_count() > before, "findings in another file", 60)

    def task_18_another_program_writes(self):
        self.choose("Clay tiles", "clay t")
        text = self.first.read_text(encoding="utf-8")
        self.first.write_text(text.replace('"Thatch"', '"Reed"'), encoding="utf-8")
        wait(lambda: "another program" in self.browser.message(), lambda: self.browser.message())
        click(self.browser.wait_for("push button", "Reload"))
        key("ctrl+f")
        type_text("reed")
        wait(lambda: "Reed" in self.browser.shown(), lambda: str(self.browser.shown()))

    def task_19_export_a_sheet(self):
        self.choose("Our clay tiles", "our clay")
        key("ctrl+shift+p")
        file = self.presets.parent / "sheet.pdf"
        time.sleep(1)
        type_text(str(file))
        key("Return")
        wait(file.exists, "the sheet")
        wait(lambda: "sheet.pdf" in self.browser.message(), lambda: self.browser.message())
        if not file.read_bytes().startswith(b"%PDF"):
            raise Gone("the sheet is no PDF")

    def task_20_import_from_another_archive(self):
        self.choose("Rose gold")
        key("ctrl+i")
        time.sleep(1)
        type_text(str(self.first))
        key("Return")
        wait(lambda: "taken over" in self.browser.message(), lambda: self.browser.message())
        key("ctrl+z", "ctrl+i")
        time.sleep(1)
        type_text(str(self.first))
        key("Return")
        wait(lambda: "taken over" in self.browser.message(), lambda: self.browser.message())
        key("ctrl+s")
        self.saved(self.second, "Reed")

    def task_21_find_uses_and_look_at_it_in_the_dark(self):
        self.choose("Rose gold")
        key("ctrl+u")
        wait(lambda: "is used in" in self.browser.message(), lambda: self.browser.message())
        key("alt+v", "k")
        wait(lambda: self.screen.shade() < 0.3, lambda: f"{self.screen.shade()} of white")
        key("alt+v", "d")
        wait(lambda: self.screen.shade() > 0.5, lambda: f"{self.screen.shade()} of white")

    def task_22_quit_with_changes_and_reopen(self):
        self.choose("Reed")
        key("ctrl+d", "ctrl+q")
        wait(lambda: "edited" in self.browser.message(), lambda: self.browser.message())
        click(self.browser.wait_for("push button", "Save and close"))
        self.browser.process.wait(20)
        self.saved(self.first, '"Reed (2)"')
        self.browser = Browser()
        wait(lambda: self.browser.status().endswith(" presets"), lambda: self.browser.status())

    def task_23_recover_after_a_crash(self):
        self.choose("Reed", "reed")
        key("ctrl+d")
        wait(lambda: len(self.browser.shown()) == 4, lambda: str(self.browser.shown()))
        before = self.first.read_bytes()
        self.browser.process.send_signal(signal.SIGKILL)
        self.browser.process.wait(20)
        if self.first.read_bytes() != before:
            raise Gone("the file was written")
        self.browser = Browser()
        wait(lambda: "not saved" in self.browser.message(), lambda: self.browser.message())
        click(self.browser.wait_for("push button", "Recover"))
        key("ctrl+f")
        type_text("reed")
        wait(lambda: len(self.browser.shown()) == 4, lambda: str(self.browser.shown()))
        key("ctrl+shift+s")
        self.saved(self.first, '"Reed (3)"')
        key("ctrl+q")
        self.browser.process.wait(20)


def main():
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        presets = work / "presets"
        presets.mkdir()
        for name in ("Architectural_extra.rvx", "Product_extra.rvx"):
            shutil.copy(pathlib.Path(DATA, "install", "xml", name), presets)
        if KEEP:
            KEEP.mkdir(parents=True, exist_ok=True)
        screen = Screen(work)
        tasks = Tasks(screen, presets)
        names = [name for name in dir(Tasks) if name.startswith("task_")]
        try:
            for name in names:
                started = time.monotonic()
                getattr(tasks, name)()
                print(f"{name[5:].replace('_', ' ')}: {time.monotonic() - started:.1f} s", flush=True)
        except (Gone, subprocess.SubprocessError) as problem:
            screen.picture("failed")
            print(f"{name}: {problem}", file=sys.stderr)
            return 1
        finally:
            if tasks.browser:
                tasks.browser.process.kill()
            screen.close()
    print(f"{len(names)} tasks done with keys and mouse")
    return 0


if __name__ == "__main__":
    sys.exit(main())
