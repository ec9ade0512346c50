#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""Draws docs/images/browser.png, the window of the example browser over the starter installation:

window.py <build folder>

Fonts are those of the machine, so that the picture is to be looked at, not compared.
"""

import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]

if len(sys.argv) != 2:
    sys.exit(__doc__)
subprocess.run(
    [pathlib.Path(sys.argv[1]) / "examples/browser/browser", "--picture",
     ROOT / "docs/images/browser.png", ROOT / "data/install/xml"],
    env=os.environ | {"QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}, check=True, timeout=300)
