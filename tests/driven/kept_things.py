# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Makes a recipe and two favorites, is killed, starts again and has them; then the stored recipes are damaged, and the
built-in ones come back.

Usage: kept_things.py PROGRAM"""

import json
import sys
import tempfile

from program import Display, Program, wait_for

TEMPLATES = 13


def mark_favorite(program, name):
    row = program.find(name=name, under=program.find("list", "Transformations"))
    program.move_to(row)
    star = wait_for(lambda: program.all(name="Favorite", under=row), f"the star of {name!r}")[0]
    program.click(star)


def save_recipe(program, name):
    program.click(program.find(name="Text"))
    program.type("b\na")
    program.click(program.find(name="UPPERCASE", under=program.find("list", "Transformations")))
    wait_for(lambda: program.is_there("list", "Operations"), "the operation")
    program.keys("ctrl+shift+s")
    program.find("push button", "Save")
    program.type(name)
    program.keys("Return")
    wait_for(lambda: not program.is_there("push button", "Save"), "the sheet to close")


def kill(program):
    program.process.kill()
    program.process.wait()


def shown_favorites(program):
    program.click(program.find(name="Favorites"))
    rows = wait_for(lambda: program.all("list item", under=program.find("list", "Transformations")), "the favorites")
    return [row.name for row in rows]


def main(executable):
    with tempfile.TemporaryDirectory() as home, Display():
        with Program(executable, home) as program:
            preferences = program.home / ".config/lexivore/preferences.json"

            def stored():
                return json.loads(preferences.read_text())

            mark_favorite(program, "Title Case")
            wait_for(lambda: stored().get("favorites") == ["titlecase"], "the first favorite to be stored")
            mark_favorite(program, "UPPERCASE")
            wait_for(lambda: sorted(stored()["favorites"]) == ["titlecase", "uppercase"], "the second one")
            save_recipe(program, "Kept")
            kill(program)

        with Program(executable, home) as program:
            assert shown_favorites(program) == ["UPPERCASE", "Title Case"], shown_favorites(program)
            program.keys("ctrl+shift+m")
            wait_for(lambda: any("Kept" in (node.name or "") for node in program.all()), "the recipe in the sheet")
            kill(program)

        values = stored()
        recipes = values["recipes"]["json"]
        assert len(recipes) == TEMPLATES + 1, len(recipes)
        del recipes[3]["category"]
        preferences.write_text(json.dumps(values))

        with Program(executable, home) as program:
            wait_for(lambda: len(stored()["recipes"]["json"]) == TEMPLATES, "the built-in recipes to come back")
            assert shown_favorites(program) == ["UPPERCASE", "Title Case"], shown_favorites(program)


if __name__ == "__main__":
    main(sys.argv[1])
