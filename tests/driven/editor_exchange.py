# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Exchanges text with other programs: through the clipboard, byte for byte; through the primary selection with the
middle button; and by dragging, within the editor and from one running program into another.

Usage: editor_exchange.py PROGRAM"""

import os
import pathlib
import subprocess
import sys
import tempfile

from program import Display, Program, run, wait_for


def offer(selection, content):
    """Another program offers these bytes."""
    subprocess.run(["xclip", "-selection", selection, "-t", "UTF8_STRING", "-i"], input=content, check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_for(lambda: offered(selection) == content, "the offer to be known")


def offered(selection):
    return subprocess.run(["xclip", "-selection", selection, "-t", "UTF8_STRING", "-o"], check=True,
                          capture_output=True, timeout=20).stdout


def drag(begin, *points):
    """Step by step, as a hand moves: the first step makes it a drag, and whoever is below has to agree to the drop before
    the hand lets go."""
    x, y = begin
    run("xdotool", "mousemove", str(x), str(y), "sleep", "0.3", "mousedown", "1", "sleep", "0.3",
        "mousemove", str(x + 12), str(y + 3), "sleep", "0.5")
    for to_x, to_y in points:
        for step in range(1, 11):
            run("xdotool", "mousemove", str(x + (to_x - x) * step // 10), str(y + (to_y - y) * step // 10),
                "sleep", "0.05")
        x, y = to_x, to_y
    run("xdotool", "sleep", "1", "mouseup", "1")


# A session bus that starts nothing: the desktop's portals would mount a file system into the second program's home, which
# then could not be removed.
EMPTY_BUS = """<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/></policy>
</busconfig>"""


class SecondProgram:
    """The same program once more, on a session bus of its own so that it does not hand over to the first."""

    def __init__(self, executable):
        self.executable = os.path.abspath(executable)

    def __enter__(self):
        self.home = tempfile.TemporaryDirectory()
        home = self.home.name
        bus = pathlib.Path(home) / "bus.conf"
        bus.write_text(EMPTY_BUS)
        environment = dict(os.environ, QT_QPA_PLATFORM="xcb", HOME=home, XDG_RUNTIME_DIR=home,
                           XDG_CONFIG_HOME=home + "/.config", LC_ALL="C.UTF-8")
        before = set(self.windows())
        self.process = subprocess.Popen(["dbus-run-session", "--config-file", str(bus), "--", self.executable],
                                        env=environment, cwd=home, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.window = wait_for(lambda: set(self.windows()) - before, "the second window").pop()
        return self

    def __exit__(self, *_):
        run("xdotool", "windowkill", self.window)
        self.process.wait()
        self.home.cleanup()

    @staticmethod
    def windows():
        return run("xdotool", "search", "--onlyvisible", "--class", "lexivore").split()

    def text(self):
        """What stands in its editor: it has the keyboard after a click there."""
        run("xdotool", "key", "--clearmodifiers", "ctrl+a", "ctrl+c")
        return offered("clipboard")


def take_keyboard(program, editor):
    import pyatspi
    program.click(editor)
    wait_for(lambda: editor.getState().contains(pyatspi.STATE_FOCUSED), "the editor to have the keyboard")


def right_edge(editor):
    import pyatspi
    extents = editor.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return extents.x + extents.width


def place(window, x, y, width, height):
    run("xdotool", "windowsize", "--sync", window, str(width), str(height))
    run("xdotool", "windowmove", "--sync", window, str(x), str(y))


def exchange_by_clipboard(program, text):
    exact = "a\r\nb\u2028c\td\x0b\ue000".encode()
    offer("clipboard", exact)
    program.keys("ctrl+v")
    wait_for(lambda: text.getText(0, -1) == exact.decode(), "what was pasted")
    program.keys("ctrl+a", "ctrl+c")
    wait_for(lambda: offered("clipboard") == exact, "the same bytes on the clipboard")
    offer("clipboard", b"x\xff\xc3y\xed\xa0\x80z")
    program.keys("ctrl+a", "ctrl+v")
    wait_for(lambda: text.getText(0, 2) == "x\ufffd", "broken bytes that were repaired")
    repaired = text.getText(0, -1)
    assert repaired.replace("\ufffd", "") == "xyz", repr(repaired)
    program.keys("ctrl+a", "ctrl+c")
    wait_for(lambda: offered("clipboard") == repaired.encode(), "repaired bytes on the clipboard")


def exchange_by_primary_selection(program, text):
    program.keys("ctrl+a")
    program.type("one two three")
    program.keys("ctrl+shift+Left")
    wait_for(lambda: offered("primary") == b"three", "the primary selection")
    offer("primary", "pri\r\nmary ".encode())
    x, y = point_of(text, 4)
    run("xdotool", "mousemove", str(x), str(y), "click", "2")
    wait_for(lambda: text.getText(0, -1) == "one pri\r\nmary two three", "what was pasted by the middle button")
    offer("primary", b"!")
    program.keys("End", "ctrl+shift+Insert")
    wait_for(lambda: text.getText(0, -1).endswith("mary two three!"), "what was pasted by the keys")


def point_of(text, offset):
    import pyatspi
    x, y, _width, height = text.getCharacterExtents(offset, pyatspi.DESKTOP_COORDS)
    return x + 1, y + height // 2


def drag_within(program, text):
    program.keys("ctrl+a")
    program.type("one two three")
    wait_for(lambda: text.getText(0, -1) == "one two three", "the text to drag")
    begin, end = point_of(text, 5), point_of(text, 0)
    text.setSelection(0, 4, 8) or text.addSelection(4, 8)
    wait_for(lambda: text.getNSelections() == 1 and tuple(text.getSelection(0)) == (4, 8), "the selected word")
    drag(begin, end)
    wait_for(lambda: text.getText(0, -1) == "two one three", "the word where it was dropped")
    assert tuple(text.getSelection(0)) == (0, 4)
    drag(point_of(text, 1), point_of(text, 2))
    assert text.getText(0, -1) == "two one three", "dropped where it came from"
    program.keys("ctrl+z")
    wait_for(lambda: text.getText(0, -1) == "one two three", "one undo for the whole move")


def drag_into_field(program, text):
    import pyatspi
    search = program.find(name="Search transformations")
    extents = search.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    text.setSelection(0, 4, 7) or text.addSelection(4, 7)
    wait_for(lambda: text.getNSelections() == 1 and tuple(text.getSelection(0)) == (4, 7), "the selected word")
    drag(point_of(text, 5), (extents.x + extents.width // 2, extents.y + extents.height // 2))
    wait_for(lambda: search.queryText().getText(0, -1) == "two", "the word to look for")
    assert text.getText(0, -1) == "one two three", "the word where it was, too"


def drag_between(program, text, second):
    place(second.window, 1200, 0, 1180, 860)
    middle = (1200 + 640, 430)
    program.keys("ctrl+a")
    program.type("keep move")
    text.setSelection(0, 5, 9) or text.addSelection(5, 9)
    wait_for(lambda: text.getNSelections() == 1 and tuple(text.getSelection(0)) == (5, 9), "the selected word")
    drag(point_of(text, 6), middle)
    wait_for(lambda: text.getText(0, -1) == "keep ", "the word gone")
    run("xdotool", "mousemove", str(middle[0]), str(middle[1]), "click", "1")
    wait_for(lambda: second.text() == b"move", "the word in the other program")
    # And back: all of it is still selected there.
    top_left = second_text_corner(second)
    drag(top_left, point_of(text, 0))
    wait_for(lambda: text.getText(0, -1) == "movekeep ", "the word back")


def second_text_corner(second):
    """A place on the first letter: where the first program has it, as far from its window's corner."""
    return second.window_x + second.letter[0], second.window_y + second.letter[1]


def main(executable):
    with Display("2400x900"), Program(executable) as program:
        editor = program.find(name="Text")
        text = editor.queryText()
        first = run("xdotool", "getactivewindow").strip()
        place(first, 0, 0, 1180, 860)
        wait_for(lambda: right_edge(editor) <= 1180, "the editor in its place")
        take_keyboard(program, editor)
        exchange_by_clipboard(program, text)
        exchange_by_primary_selection(program, text)
        drag_within(program, text)
        drag_into_field(program, text)
        take_keyboard(program, editor)
        with SecondProgram(executable) as second:
            # Both windows are alike, so a letter stands at the same place in each.
            second.letter = point_of(text, 1)
            second.window_x, second.window_y = 1200, 0
            run("xdotool", "windowactivate", "--sync", first)
            take_keyboard(program, editor)
            drag_between(program, text, second)


if __name__ == "__main__":
    main(sys.argv[1])
