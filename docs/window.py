#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""Draws the pictures of windows over the starter installation in docs/images:

window.py <build folder>

browser.png          the example browser
rvopen-browser.png   rvopen-browser, with a material that is chosen; needs Xvfb, xdotool and
                     ImageMagick

Fonts are those of the machine, so that the pictures are to be looked at, not compared.
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
IMAGES = ROOT / "docs/images"


def draw_example(build):
    subprocess.run(
        [build / "examples/browser/browser", "--picture", IMAGES / "browser.png",
         ROOT / "data/install/xml"],
        env=os.environ | {"QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}, check=True,
        timeout=300)


def draw_browser(build):
    read, write = os.pipe()
    screen = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x800x24"],
                              pass_fds=[write], stderr=subprocess.DEVNULL)
    os.close(write)
    with os.fdopen(read) as display, tempfile.TemporaryDirectory() as folder:
        environment = os.environ | {
            "DISPLAY": ":" + display.readline().strip(), "QT_QPA_PLATFORM": "xcb",
            "LC_ALL": "C.UTF-8", "XDG_CONFIG_HOME": folder, "XDG_STATE_HOME": folder,
            "XDG_RUNTIME_DIR": folder}

        def run(*command):
            subprocess.run(command, env=environment, check=True)
            time.sleep(1)

        browser = subprocess.Popen(
            [build / "browser/rvopen-browser", ROOT / "data/install"], env=environment)
        try:
            time.sleep(6)
            run("xdotool", "search", "--name", "rvopen$", "windowmove", "0", "0", "windowsize",
                "1280", "800", "windowfocus")
            # From the search to the pictures, where typing leads to a name.
            run("xdotool", "key", "Return")
            run("xdotool", "type", "melamine")
            time.sleep(6)
            run("import", "-window", "root", "-strip", str(IMAGES / "rvopen-browser.png"))
        finally:
            browser.kill()
            screen.terminate()


if len(sys.argv) != 2:
    sys.exit(__doc__)
draw_example(pathlib.Path(sys.argv[1]))
draw_browser(pathlib.Path(sys.argv[1]))
