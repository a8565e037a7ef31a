# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Turns the desktop dark and light again while the program runs, as its settings do: through the desktop portal, which
this script plays. Then the program starts on a dark desktop.

Usage: system_theme.py PROGRAM"""

import sys
import threading

from gi.repository import Gio, GLib

from program import Display, Program, centre, wait_for

INTERFACE = "org.freedesktop.portal.Settings"
PATH = "/org/freedesktop/portal/desktop"
DESCRIPTION = f"""<node><interface name="{INTERFACE}">
  <method name="Read">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
  </method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""

LIGHT = "#ffffff"  # the ground of the editor
DARK = "#1a1a1e"


class Portal:
    """Answers what the colour scheme is, and announces a new one."""

    def __init__(self):
        self.scheme = 0
        loop = GLib.MainLoop()
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        node = Gio.DBusNodeInfo.new_for_xml(DESCRIPTION)
        self.bus.register_object(PATH, node.interfaces[0], self._answer, None, None)
        Gio.bus_own_name_on_connection(self.bus, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE,
                                       None, None)
        threading.Thread(target=loop.run, daemon=True).start()

    def _answer(self, _bus, _sender, _path, _interface, _method, _arguments, invocation):
        # The answer of the portal is a variant within a variant.
        value = GLib.Variant("v", GLib.Variant("u", self.scheme))
        invocation.return_value(GLib.Variant("(v)", (value,)))

    def announce(self, group, key, scheme):
        value = GLib.Variant("(ssv)", (group, key, GLib.Variant("u", scheme)))
        self.bus.emit_signal(None, PATH, INTERFACE, "SettingChanged", value)

    def choose(self, scheme):
        self.scheme = scheme
        self.announce("org.freedesktop.appearance", "color-scheme", scheme)


def main(executable):
    with Display() as display:
        portal = Portal()

        def wait_for_ground(program, colour):
            x, y = centre(program.find(name="Text"))
            wait_for(lambda: display.colour(x, y) == colour, f"the ground to be {colour}")

        with Program(executable) as program:
            wait_for_ground(program, LIGHT)
            portal.choose(1)
            wait_for_ground(program, DARK)
            portal.announce("org.freedesktop.appearance", "accent-color", 2)
            portal.choose(2)
            wait_for_ground(program, LIGHT)
            portal.choose(1)
            wait_for_ground(program, DARK)
            program.keys("ctrl+shift+m")
            x, y = centre(program.find(name="No user recipes"))
            wait_for(lambda: display.colour(x + 150, y) == "#212126", "a dark sheet")
            portal.choose(0)
            wait_for(lambda: display.colour(x + 150, y) == "#f8f8fa", "a light sheet")
            program.keys("Escape")
            wait_for_ground(program, LIGHT)

        portal.choose(1)
        with Program(executable) as program:
            wait_for_ground(program, DARK)


if __name__ == "__main__":
    main(sys.argv[1])
