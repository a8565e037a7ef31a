# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Reads and edits the text through the accessibility bus, as a screen reader and a dictation program do, while keys go
through the X server; and hears of the caret, the selection and the edits.

Usage: editor_accessibility.py PROGRAM"""

import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from program import Display, Program, wait_for  # noqa: E402


class Heard:
    """The events that came from one object."""

    def __init__(self, *kinds):
        self.kinds = []
        self.listener = Atspi.EventListener.new(lambda event: self.kinds.append((event.type, event.any_data)))
        for kind in kinds:
            self.listener.register(kind)

    def wait_for(self, beginning):
        def look():
            context = GLib.MainContext.default()
            while context.pending():
                context.iteration(False)
            return any(kind.startswith(beginning) for kind, _ in self.kinds)
        wait_for(look, f"an event {beginning!r}; heard {self.kinds}")
        self.kinds.clear()


def main(executable):
    with Display(), Program(executable) as program:
        editor = program.find(name="Text")
        text = editor.queryText()
        heard = Heard("object:text-caret-moved", "object:text-changed", "object:text-selection-changed")

        program.click(editor)
        program.type("one two")
        wait_for(lambda: text.getText(0, -1) == "one two", "the typed text")
        assert text.characterCount == 7
        wait_for(lambda: text.caretOffset == 7, "the caret behind what was typed")
        heard.wait_for("object:text-changed:insert")

        program.keys("ctrl+Left")
        wait_for(lambda: text.caretOffset == 4, "the caret at the word")
        heard.wait_for("object:text-caret-moved")
        program.keys("shift+End")
        wait_for(lambda: text.getNSelections() == 1 and tuple(text.getSelection(0)) == (4, 7), "the selection")
        heard.wait_for("object:text-selection-changed")

        import pyatspi
        assert text.getTextAtOffset(5, pyatspi.TEXT_BOUNDARY_WORD_START)[0].strip() == "two"
        x, y, width, height = text.getCharacterExtents(4, pyatspi.DESKTOP_COORDS)
        assert width > 0 and height > 0
        assert text.getOffsetAtPoint(x + 1, y + height // 2, pyatspi.DESKTOP_COORDS) == 4

        editable = editor.queryEditableText()
        assert editable.insertText(0, "zero ", 5)
        wait_for(lambda: text.getText(0, -1) == "zero one two", "the inserted text")
        assert editable.deleteText(0, 5)
        wait_for(lambda: text.getText(0, -1) == "one two", "the text without it")
        assert program.named("Word count: ") == "2"
        text.setCaretOffset(0)
        program.type("x")
        wait_for(lambda: text.getText(0, -1) == "xone two", "typing at the caret that was set")


if __name__ == "__main__":
    main(sys.argv[1])
