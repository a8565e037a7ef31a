# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Hands a recipe on in a file: exported from the menu, imported by another user from the sheet, and refused when the
file is damaged.

Usage: recipe_files.py PROGRAM"""

import json
import pathlib
import sys
import tempfile

from kept_things import save_recipe
from program import Display, Program, wait_for
from real_file import choose_file


def choose_command(program, menu, title):
    program.click(program.find("menu item", menu))
    program.click(program.find("menu item", title))


def recipes_listed(program):
    return [row.name for row in program.all("list item", under=program.find("list", "My Recipes"))]


def main(executable):
    with tempfile.TemporaryDirectory() as folder, Display():
        whole, one, cut = (pathlib.Path(folder, name) for name in ("all.json", "one.json", "cut.json"))
        with Program(executable) as program:
            save_recipe(program, "First")
            program.click(program.find("push button", "Clear all operations"))
            program.click(program.find("push button", "Clear"))
            wait_for(lambda: not program.is_there("push button", "Cancel"), "the question to go")
            save_recipe(program, "Second")
            choose_command(program, "Recipes", "Export Recipes...")
            choose_file(program, "Export Recipes", whole)
            wait_for(lambda: [r["name"] for r in json.loads(whole.read_text())] == ["First", "Second"], "the file")

            program.keys("ctrl+shift+m")
            program.click(program.find(name="Export..."))
            program.keys("Down", "Down", "Down", "Return")  # past all of them and the first
            choose_file(program, "Export Recipes", one)
            wait_for(lambda: [r["name"] for r in json.loads(one.read_text())] == ["Second"], "the file of one")

        cut.write_bytes(whole.read_bytes()[:-20])
        with Program(executable) as program:
            choose_command(program, "Recipes", "Import Recipes...")
            choose_file(program, "Import Recipes", cut)
            wait_for(lambda: any("It is not valid JSON" in (node.name or "") for node in program.all()), "the error")
            program.click(program.find("push button", "OK"))
            wait_for(lambda: not program.is_there("push button", "OK"), "the alert to close")

            choose_command(program, "Recipes", "Import Recipes...")
            choose_file(program, "Import Recipes", whole)
            wait_for(lambda: recipes_listed(program) == ["First", "Second"], "the recipes in the sheet")
            program.click(program.find("push button", "Import..."))
            choose_file(program, "Import Recipes", one)
            wait_for(lambda: recipes_listed(program) == ["First", "Second", "Second"], "one more")
            program.click(program.find("push button", "Done"))
            stored = json.loads((program.home / ".config/lexivore/preferences.json").read_text())
            own = [r for r in stored["recipes"]["json"] if r["category"] == "My Recipes"]
            assert len({r["id"] for r in own}) == 3, own
            assert not {r["id"] for r in own} & {r["id"] for r in json.loads(whole.read_text())}, own


if __name__ == "__main__":
    main(sys.argv[1])
