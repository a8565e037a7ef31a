# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Starts on a screen that is smaller than the window is at first, then with the size that it had on a larger one: the
controls in its corners are within reach. The larger size is kept for when that screen is back.

Usage: small_screen.py PROGRAM"""

import json
import pathlib
import sys
import tempfile

from program import Display, Program

WIDTH = 1024
HEIGHT = 768
LARGER = [2560, 1440]


def expect_within_reach(program):
    import pyatspi
    for name in ("Paste text from clipboard", "Toggle operations panel", "Editor settings"):
        place = program.find(name=name).queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        assert 0 <= place.x and place.x + place.width <= WIDTH, f"{name!r} is at {place.x}, {place.y}"
        assert 0 <= place.y and place.y + place.height <= HEIGHT, f"{name!r} is at {place.x}, {place.y}"


def main(executable):
    with tempfile.TemporaryDirectory() as home, Display(f"{WIDTH}x{HEIGHT}"):
        with Program(executable, home) as program:
            expect_within_reach(program)

        preferences = pathlib.Path(home, ".config/lexivore/preferences.json")
        values = json.loads(preferences.read_text())
        values["windowSize"] = LARGER
        values["columnWidths"] = [300, 400, 1400, 457]
        preferences.write_text(json.dumps(values))
        with Program(executable, home) as program:
            expect_within_reach(program)
        assert json.loads(preferences.read_text())["windowSize"] == LARGER


if __name__ == "__main__":
    main(sys.argv[1])
