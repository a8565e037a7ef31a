# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Drags files and a text from the window of another program and drops them on the editor.

Usage: dropped_file.py PROGRAM DRAG_SOURCE"""

import contextlib
import os
import pathlib
import subprocess
import sys
import tempfile

from program import Display, Program, centre, run, wait_for
from whole_window import press_button, wait_for_characters


@contextlib.contextmanager
def other_program(executable, *dragged):
    process = subprocess.Popen([executable, *dragged], env=dict(os.environ, QT_QPA_PLATFORM="xcb"))
    try:
        yield wait_for(lambda: run("xdotool", "search", "--onlyvisible", "--pid", str(process.pid)).split(),
                       "the other program's window")[-1]
    finally:
        process.terminate()
        process.wait()


def drag_to_editor(program, window):
    """Presses in the middle of the other window and lets go over the editor."""
    place = dict(line.split("=") for line in run("xdotool", "getwindowgeometry", "--shell", window).split() if "=" in line)
    x, y = int(place["X"]) + int(place["WIDTH"]) // 2, int(place["Y"]) + int(place["HEIGHT"]) // 2
    to_x, to_y = centre(program.find(name="Text"))
    run("xdotool", "mousemove", str(x), str(y), "mousedown", "1")
    steps = 10
    for step in range(1, steps + 1):
        run("xdotool", "mousemove", str(x + (to_x - x) * step // steps), str(y + (to_y - y) * step // steps),
            "sleep", "0.05")
    run("xdotool", "mousemove_relative", "1", "1", "sleep", "0.2", "mouseup", "1")


def main(executable, source):
    with tempfile.TemporaryDirectory() as folder, Display("1700x900"), Program(executable) as program:
        folder = pathlib.Path(folder)
        (folder / "in.txt").write_bytes(b"one\r\ntwo\n")
        (folder / "picture.png").write_bytes(b"\x89PNG\r\n\x1a\n\xff")

        with other_program(source, (folder / "in.txt").as_uri()) as window:
            drag_to_editor(program, window)
            wait_for_characters(program, 8)  # CR LF counts as one
        assert (folder / "in.txt").exists()

        for name, why in (("picture.png", "it is not a text in UTF-8"), ("", "it is a folder")):
            with other_program(source, (folder / name).as_uri()) as window:
                drag_to_editor(program, window)
                wait_for(lambda: any(why in (node.name or "") for node in program.all()), f"the words {why!r}")
                press_button(program, "OK")
                wait_for(lambda: not program.is_there("push button", "OK"), "the alert to close")
                wait_for_characters(program, 8)

        with other_program(source, "dropped text") as window:
            drag_to_editor(program, window)
            wait_for_characters(program, 20)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
