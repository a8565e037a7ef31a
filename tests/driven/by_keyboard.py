# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Does everything with the keyboard alone: the mouse stays in a corner of the screen.

Usage: by_keyboard.py PROGRAM"""

import sys
import tempfile

from program import Display, Focus, Program, run, wait_for
from whole_window import operations, row, wait_for_characters


def search_and_apply(program, query):
    program.keys("ctrl+k")
    program.focus.wait_for("Search transformations")
    program.type(query)
    program.keys("Return")


def sheet_is_gone(program, button):
    wait_for(lambda: not program.is_there("push button", button), "the sheet to close")


def tab_to(program, name, key="Tab"):
    """Presses Tab until the control of this name has the focus."""
    for _ in range(25):
        if program.focus.wait_for_next(lambda: program.keys(key)) == name:
            return
    raise AssertionError(f"{key} does not lead to {name!r}")


def stacks_operations(program):
    program.type("b\na\n")
    wait_for_characters(program, 4)
    program.keys("ctrl+alt+1")
    search_and_apply(program, "add prefix")
    program.find("push button", "Apply")
    program.keys("ctrl+a")
    program.type("- ")
    program.keys("Return")
    wait_for_characters(program, 10)
    for query in ("uppercase", "sort lines alpha"):
        search_and_apply(program, query)
    wait_for(lambda: operations(program) == ["Add Prefix", "UPPERCASE", "Sort Lines Alphabetically"], "the stack")
    program.keys("Escape")


def works_on_the_rows(program):
    tab_to(program, "Operations active (click to pause)", "shift+Tab")
    program.keys("space")
    wait_for_characters(program, 4)
    program.keys("space")
    wait_for_characters(program, 10)
    program.keys("Tab")
    program.focus.wait_for("Add Prefix")
    program.keys("space")
    wait_for_characters(program, 4)
    assert row(program, "Add Prefix").description.startswith("Disabled")
    program.keys("space")
    wait_for_characters(program, 10)
    program.keys("F2")
    program.find("push button", "Apply")
    program.keys("ctrl+a")
    program.type("+++ ")
    program.keys("Return")
    wait_for_characters(program, 16)
    program.focus.wait_for("Add Prefix")
    program.keys("alt+Down")
    wait_for(lambda: operations(program) == ["UPPERCASE", "Add Prefix", "Sort Lines Alphabetically"], "the moved row")
    program.focus.wait_for("Add Prefix")
    program.keys("Home")
    program.focus.wait_for("UPPERCASE")
    program.keys("End")
    program.focus.wait_for("Sort Lines Alphabetically")
    program.keys("Delete")
    wait_for(lambda: operations(program) == ["UPPERCASE", "Add Prefix"], "one row less")
    program.focus.wait_for("Add Prefix")
    program.keys("shift+F10", "Down", "Down", "Return")
    wait_for(lambda: operations(program) == ["UPPERCASE"], "the context menu to remove a row")
    for count in (2, 3):
        program.keys("ctrl+z")
        wait_for(lambda: len(operations(program)) == count, "a row to come back")


def keeps_a_recipe(program):
    program.keys("ctrl+shift+s")
    program.find("push button", "Save")
    program.type("Loud")
    program.keys("Return")
    sheet_is_gone(program, "Save")
    program.keys("ctrl+shift+m")
    program.find("push button", "Done")
    program.keys("Tab", "F2")
    program.find("text", "Recipe name")
    program.keys("ctrl+a")
    program.type("Quiet")
    program.keys("Return")
    wait_for(lambda: any("Quiet" in (node.name or "") for node in program.all()), "the new name")
    program.keys("Escape")
    sheet_is_gone(program, "Done")
    program.keys("F10", *["Right"] * 4, "Return")  # the user's own recipes come first
    program.find("push button", "Replace")
    program.keys("Tab", "Return")
    sheet_is_gone(program, "Replace")
    wait_for(lambda: len(operations(program)) == 3, "the recipe's operations")
    program.keys("ctrl+shift+m")
    program.find("push button", "Done")
    program.keys("Tab", "Delete")
    wait_for(lambda: program.is_there(name="No user recipes"), "the list to be empty")
    program.keys("Escape")
    sheet_is_gone(program, "Done")


def marks_a_favorite(program):
    program.keys("ctrl+k", "Escape", "shift+Tab")
    program.focus.wait_for("Case Conversion")
    program.keys("Down", "Down")
    program.focus.wait_for("Lines")
    program.keys("Return")
    wait_for(lambda: program.is_there("list item", "Trim Lines"), "the lines")
    program.keys("Tab", "Down")
    program.focus.wait_for("Trim Lines")
    program.keys("Right")
    program.focus.wait_for("Favorite")
    program.keys("space")
    program.keys("ctrl+k", "shift+Tab", "Home", "space")
    wait_for(lambda: [node.name for node in program.all("list item", under=program.find("list", "Transformations"))]
             == ["Trim Lines"], "the favorite")


def sees_a_tool_and_sets_the_font(program):
    program.keys("F10", "Left", "Left", "Return")  # round the end: Help, Tools
    program.find("push button", "Copy")
    program.keys("Escape")
    sheet_is_gone(program, "Copy")
    program.keys("ctrl+plus", "ctrl+plus")
    program.keys("ctrl+alt+o")
    wait_for(lambda: not program.is_there("list", "Operations"), "the hidden panel")
    program.keys("ctrl+alt+o")
    program.find("list", "Operations")


def main(executable):
    with tempfile.TemporaryDirectory() as home, Display():
        with Program(executable, home) as program:
            run("xdotool", "mousemove", "1399", "899")
            program.focus = Focus()
            stacks_operations(program)
            works_on_the_rows(program)
            keeps_a_recipe(program)
            marks_a_favorite(program)
            sees_a_tool_and_sets_the_font(program)
        preferences = (program.home / ".config/lexivore/preferences.json").read_text()
        assert '"editorFontSize": 15' in preferences, preferences
        assert '"trim-lines"' in preferences, preferences


if __name__ == "__main__":
    main(sys.argv[1])
