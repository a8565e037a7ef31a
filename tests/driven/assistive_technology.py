# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Looks at the program as a screen reader does: names and roles of all controls, places in lists, selection, states,
what is announced, and the order in which Tab visits the controls.

Usage: assistive_technology.py PROGRAM"""

import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from program import Display, Focus, Program, has, wait_for  # noqa: E402

NAMED = {"push button", "check box", "toggle button", "text", "entry", "list", "list item", "slider", "label", "menu",
         "menu item", "check menu item", "tool bar", "dialog", "frame"}


class Heard:
    """The events that came since the last look: (type, name of the source, first detail)."""

    def __init__(self, *kinds):
        self.events = []
        self.listener = Atspi.EventListener.new(self.note)
        for kind in kinds:
            self.listener.register(kind)

    def note(self, event):
        try:
            self.events.append((event.type, event.source.get_name(), event.detail1))
        except GLib.Error:  # the source is gone
            pass

    def wait_for(self, kind, name, detail=None):
        def look():
            context = GLib.MainContext.default()
            while context.pending():
                context.iteration(False)
            return any(event == kind and source == name and (detail is None or number == detail)
                       for event, source, number in self.events)
        wait_for(look, f"{kind} of {name!r}; heard {self.events[-20:]}", timeout=20)
        self.events.clear()


def everything_has_a_name(program):
    nameless = [(node.getRoleName(), str(node)) for node in program.all()
                if node.getRoleName() in NAMED and not (node.name or "").strip()]
    assert not nameless, nameless


def rows(program, name):
    found = program.all("list item", under=program.find("list", name))
    return [row for row in found if row.parent is not None and row.parent.name == name]


def lists_tell_places_and_selection(program):
    categories = rows(program, "Categories")
    assert [row.name for row in categories] == ["Favorites", "Case Conversion", "Add & Remove", "Lines", "Sorting",
                                                "Find & Replace", "Encoding"]
    assert [row.getIndexInParent() for row in categories] == list(range(7))
    assert [row.name for row in categories if has(row, "SELECTED")] == ["Case Conversion"]
    assert [row.name for row in rows(program, "Transformations")][:2] == ["UPPERCASE", "lowercase"]


def changes_are_announced(program):
    heard = Heard("object:state-changed:selected", "object:selection-changed", "object:state-changed:checked", "object:property-change",
                  "object:state-changed:focused", "object:state-changed:showing")
    program.click(program.find("list item", "Lines"))
    heard.wait_for("object:state-changed:selected", "Lines", 1)
    program.click(program.find("list item", "Case Conversion"))
    heard.wait_for("object:state-changed:selected", "Case Conversion", 1)
    program.keys("ctrl+alt+1")
    heard.wait_for("object:state-changed:checked", "Multiple", 1)
    program.click(program.find(name="Operations active (click to pause)"))
    heard.wait_for("object:property-change:accessible-name", "Operations paused (click to resume)")
    program.click(program.find(name="Operations paused (click to resume)"))
    heard.wait_for("object:property-change:accessible-name", "Operations active (click to pause)")

    program.click(program.find(name="Text"))
    program.type("b a")
    for name in ("UPPERCASE", "lowercase"):
        program.click(program.find("list item", name, under=program.find("list", "Transformations")))
    wait_for(lambda: len(rows(program, "Operations")) == 2, "two operations")
    program.click(program.find(name="Copy text to clipboard"))
    heard.wait_for("object:state-changed:showing", "Copied to clipboard", 1)
    row = rows(program, "Operations")[0]
    assert row.description == "Enabled, Lines: 1 → 1, Characters: 3 → 3", row.description
    row.queryComponent().grabFocus()
    heard.wait_for("object:state-changed:focused", "UPPERCASE", 1)
    assert has(row, "SELECTED") and has(row, "CHECKED")
    program.keys("space")
    heard.wait_for("object:state-changed:checked", "UPPERCASE", 0)
    assert row.description == "Disabled", row.description
    assert not has(row, "CHECKED")


def actions_work(program):
    def press(node):
        actions = node.queryAction()
        names = [actions.getName(i) for i in range(actions.nActions)]
        actions.doAction(names.index("Press"))

    press(program.find("list item", "Sorting"))
    wait_for(lambda: program.is_there("list item", "Shuffle Lines"), "the category")
    press(program.find("list item", "Case Conversion"))
    wait_for(lambda: program.is_there("list item", "lowercase"), "the first category again")
    press(rows(program, "Operations")[0])
    wait_for(lambda: has(rows(program, "Operations")[0], "CHECKED"), "the operation to be enabled")


def tab_follows_the_layout(program):
    focus = Focus()
    program.find(name="Paste text from clipboard").queryComponent().grabFocus()
    stops = ["Paste text from clipboard", "Copy text to clipboard", "Clear all text", "Load a saved recipe",
             "Save current operations as recipe", "Clear all operations", "Toggle operations panel", "Categories",
             "Case Conversion", "Search transformations", "UPPERCASE", "Text", "Editor settings", "Multiple",
             "Operations active (click to pause)", "UPPERCASE"]
    for name in stops:
        focus.wait_for(name)
        program.keys("ctrl+Tab" if name == "Text" else "Tab")


def main(executable):
    with Display(), Program(executable) as program:
        lists_tell_places_and_selection(program)
        everything_has_a_name(program)
        changes_are_announced(program)
        actions_work(program)
        everything_has_a_name(program)
        tab_follows_the_layout(program)
        program.keys("ctrl+shift+s")
        program.find("push button", "Save")
        everything_has_a_name(program)


if __name__ == "__main__":
    main(sys.argv[1])
