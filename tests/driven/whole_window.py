# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Uses the program as a person would, from the first parameter to a restart: stack, drag, pause, recipes, tools, font.

Usage: whole_window.py PROGRAM"""

import sys
import tempfile

from program import Display, Program, centre, run, wait_for


def character_count(program):
    return program.named("Total characters: ")


def wait_for_characters(program, count):
    wait_for(lambda: character_count(program) == str(count), f"{count} characters")


def search_and_click(program, query, name):
    program.keys("ctrl+k", "ctrl+a")
    program.type(query)
    program.click(program.find("list item", name, under=program.find("list", "Transformations")))


def operations(program):
    """The names in the operations panel, from top to bottom."""
    rows = program.all("list item", under=program.find("list", "Operations"))
    return [row.name for row in rows]


def drag(program, source, target):
    x, y = centre(source)
    run("xdotool", "mousemove", str(x), str(y), "mousedown", "1")
    to_x, to_y = centre(target)
    steps = 8
    for step in range(1, steps + 1):
        run("xdotool", "mousemove", str(x + (to_x - x) * step // steps), str(y + (to_y - y) * step // steps),
            "sleep", "0.05")
    run("xdotool", "mouseup", "1")


def row(program, name):
    return program.find("list item", name, under=program.find("list", "Operations"))


def press_button(program, name):
    program.click(program.find("push button", name))


def applies_with_parameters(program):
    program.click(program.find(name="Text"))
    program.type("pear\nfig\n")
    wait_for_characters(program, 9)
    search_and_click(program, "wrap", "Wrap Lines")
    program.find(name="Wrap Lines")
    program.keys("ctrl+a")
    program.type("abc")
    program.keys("Return")
    wait_for(lambda: any("Width must be a positive number" in node.name for node in program.all() if node.name),
             "the error")
    press_button(program, "OK")
    wait_for(lambda: not program.is_there("push button", "OK"), "the alert to close")
    search_and_click(program, "add prefix", "Add Prefix")
    program.find("push button", "Apply")
    program.keys("ctrl+a")
    program.type("- ")
    program.keys("Return")
    wait_for(lambda: operations(program) == ["Add Prefix"], "the operation")
    wait_for_characters(program, 15)  # "- pear\n- fig\n- "


def stacks_and_drags(program):
    program.keys("ctrl+alt+1")
    search_and_click(program, "uppercase", "UPPERCASE")
    search_and_click(program, "sort lines alpha", "Sort Lines Alphabetically")
    wait_for(lambda: operations(program) == ["Add Prefix", "UPPERCASE", "Sort Lines Alphabetically"], "the stack")
    drag(program, row(program, "Sort Lines Alphabetically"), row(program, "Add Prefix"))
    wait_for(lambda: operations(program) == ["Sort Lines Alphabetically", "Add Prefix", "UPPERCASE"],
             "the dragged row to be the first")


def pauses_and_resumes(program):
    program.click(program.find(name="Operations active (click to pause)"))
    wait_for_characters(program, 9)
    program.click(program.find(name="Operations paused (click to resume)"))
    wait_for_characters(program, 15)


def saves_and_renames_a_recipe(program):
    program.keys("ctrl+shift+s")
    program.find("push button", "Save")
    program.type("Shout")
    program.keys("Return")
    wait_for(lambda: not program.is_there("push button", "Save"), "the sheet to close")
    program.keys("ctrl+shift+m")
    wait_for(lambda: any("3 operations" in (node.name or "") or "3 operations" in (node.description or "")
                         for node in program.all()), "the recipe in the sheet")
    program.find("push button", "Done")
    program.keys("Tab", "F2")
    program.find("text", "Recipe name")
    program.keys("ctrl+a")
    program.type("Whisper")
    program.keys("Return")
    wait_for(lambda: any("Whisper" in (node.name or "") for node in program.all()), "the new name")
    press_button(program, "Done")
    wait_for(lambda: not program.is_there("push button", "Done"), "the sheet to close")


def shown_windows(program):
    return len(run("xdotool", "search", "--onlyvisible", "--pid", str(program.process.pid)).split())


def asks_once(program):
    """Chooses the first recipe of the toolbar's menu twice; the second time nothing is asked any more."""
    for first in (True, False):
        before = shown_windows(program)
        press_button(program, "Load a saved recipe")
        wait_for(lambda: shown_windows(program) > before, "the menu")
        program.keys("Down", "Return")
        if first:
            program.click(program.find("check box", "Don't ask again"))
            press_button(program, "Replace")
            wait_for(lambda: not program.is_there("push button", "Replace"), "the alert to close")
        wait_for(lambda: len(operations(program)) == 3, "the recipe's operations")
    assert not program.is_there("push button", "Replace"), "the question was asked again"


def deletes_a_recipe(program):
    program.keys("ctrl+shift+m")
    program.find("push button", "Done")
    program.keys("Tab", "Delete")
    wait_for(lambda: program.is_there(name="No user recipes"), "the list to be empty")
    press_button(program, "Done")
    wait_for(lambda: not program.is_there("push button", "Done"), "the sheet to close")


def shows_a_tool(program):
    program.click(program.find(name="Text"))
    program.type("one two")
    wait_for_characters(program, 7)
    program.click(program.find("menu item", "Tools"))
    program.click(program.find("menu item", "Reading Time Estimator"))
    program.find("push button", "Copy")
    wait_for(lambda: any("2 words" in (node.name or "") for node in program.all()), "the number of words")
    press_button(program, "Done")


def sets_the_font_size(program):
    press_button(program, "Editor settings")
    program.find("push button", "Done")
    program.keys("End")
    press_button(program, "Done")
    wait_for(lambda: not program.is_there("push button", "Done"), "the sheet to close")


def main(executable):
    with tempfile.TemporaryDirectory() as home, Display():
        with Program(executable, home) as program:
            applies_with_parameters(program)
            stacks_and_drags(program)
            pauses_and_resumes(program)
            saves_and_renames_a_recipe(program)
            asks_once(program)
            sets_the_font_size(program)
        preferences = (program.home / ".config/lexivore/preferences.json").read_text()
        assert '"editorFontSize": 24' in preferences, preferences
        assert "Whisper" in preferences and "Shout" not in preferences, preferences
        assert '"dontShowReplaceOperationsAlert": true' in preferences, preferences
        with Program(executable, home) as program:
            wait_for_characters(program, 0)
            assert operations(program) == [] if program.is_there("list", "Operations") else True
            press_button(program, "Editor settings")
            wait_for(lambda: any(node.name == "24" for node in program.all()), "the size of the last run")
            press_button(program, "Done")
            wait_for(lambda: not program.is_there("push button", "Done"), "the sheet to close")
            shows_a_tool(program)
            wait_for(lambda: not program.is_there("push button", "Done"), "the result to close")
            deletes_a_recipe(program)
        assert "Whisper" not in (program.home / ".config/lexivore/preferences.json").read_text()


if __name__ == "__main__":
    main(sys.argv[1])
