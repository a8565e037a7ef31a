# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Closes the window and brings it back in every way there is, with its text; kills the program and starts it again; and
ends it in every way that a session has.

Usage: comes_back.py PROGRAM"""

import ctypes
import pathlib
import signal
import struct
import subprocess
import sys
import tempfile
import threading

from gi.repository import Gio, GLib

from program import Display, Program, wait_for
from session_manager import SessionManager

NAME = "org.lexivore.Lexivore"
PATH = "/org/lexivore/Lexivore"
INTERFACE = "org.freedesktop.Application"


def shown_windows(process):
    """Ids of the windows of a process that can be seen."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(process.pid), "--name", "Lexivore"],
                           capture_output=True, text=True)
    return found.stdout.split()


def window_of(program):
    """The id of its window, which X may show a moment later than assistive technology finds it."""
    return wait_for(lambda: shown_windows(program.process), "the window to be seen")[0]


def text_of(program):
    return program.find("text", "Text").queryText().getText(0, -1)


def close(program):
    """As the button of the window's frame does."""
    program.settle()

    def is_hidden():
        # A busy window manager loses a key now and then.
        if shown_windows(program.process):
            program.keys("alt+F4")
        return not shown_windows(program.process)

    wait_for(is_hidden, "the window to hide")
    assert program.process.poll() is None, "closing the window ended the program"


def wait_for_window(program, window, text):
    """Until the same window is back with the text."""
    wait_for(lambda: shown_windows(program.process) == [window], "the window to come back")
    program.settle()
    wait_for(lambda: text_of(program) == text, f"the text {text!r}")


def ended(process):
    wait_for(lambda: process.poll() is not None, "the program to end", timeout=10)
    assert process.returncode == 0, process.returncode


def call(method, arguments):
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    bus.call_sync(NAME, PATH, INTERFACE, method, arguments, None, Gio.DBusCallFlags.NO_AUTO_START, 20_000)


def bus_knows_the_program():
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    return bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
                         GLib.Variant("(s)", (NAME,)), None, Gio.DBusCallFlags.NONE, 20_000).unpack()[0]


def close_again(program):
    """There may be an alert over the window."""
    program.settle()
    program.keys("Escape")
    close(program)


def comes_back_every_way(executable, folder):
    opened = pathlib.Path(folder, "a file.txt")
    opened.write_text("from a file")
    with Program(executable) as program:
        window = window_of(program)
        program.click(program.find("text", "Text"))
        program.type("kept")
        close(program)
        ended(program.start())
        wait_for_window(program, window, "kept")

        close(program)
        ended(program.start(opened.name, cwd=folder))  # a name that means nothing in the first one's folder
        wait_for_window(program, window, "from a file")
        program.keys("ctrl+z")
        wait_for(lambda: text_of(program) == "kept", "the text before the later start")

        close(program)
        ended(program.start("a file.txt", DBUS_SESSION_BUS_ADDRESS=None))
        wait_for(lambda: shown_windows(program.process) == [window], "the window without a session bus")

        wait_for(bus_knows_the_program, "the name on the bus")
        close_again(program)
        call("Activate", GLib.Variant("(a{sv})", ({},)))
        wait_for(lambda: shown_windows(program.process) == [window], "the window that the bus asked for")
        close_again(program)
        call("Open", GLib.Variant("(asa{sv})", ([opened.as_uri()], {})))
        wait_for_window(program, window, "from a file")
        program.keys("ctrl+z")
        wait_for(lambda: text_of(program) == "kept", "the text before the file")
        program.keys("ctrl+q")
        ended(program.process)


def starts_after_a_crash(executable, home):
    with Program(executable, home) as program:
        program.process.kill()
        program.process.wait()
    with Program(executable, home) as program:
        assert shown_windows(program.process)
        close(program)
        program.process.terminate()
        ended(program.process)


def two_starts_give_one_instance(executable, home):
    program = Program(executable, home)
    with open(program.home / "output", "ab") as program.output:
        for _ in range(3):
            starts = [program.start(), program.start()]
            try:
                wait_for(lambda: any(shown_windows(start) for start in starts), "a window")
                wait_for(lambda: [start.poll() for start in starts].count(0) == 1, "the second start to end")
                assert [start.poll() for start in starts].count(None) == 1
            finally:
                for start in starts:
                    if start.poll() is None:
                        start.send_signal(signal.SIGTERM)
                    ended(start)


def joins_the_bus_of_a_later_start(executable, home):
    """As when the first start came from a terminal that knows no bus, and the later one from the desktop."""
    program = Program(executable, home)
    wait_for(lambda: not bus_knows_the_program(), "the bus to forget the one before")
    with open(program.home / "output", "ab") as program.output:
        first = program.start(DBUS_SESSION_BUS_ADDRESS=None)
        try:
            wait_for(lambda: shown_windows(first), "a window")
            assert not bus_knows_the_program()
            ended(program.start())
            wait_for(bus_knows_the_program, "the name on the bus that the later start belongs to")
        finally:
            first.terminate()
            ended(first)


class Launcher:
    """The part of a desktop that shows that it waits for what it has started (the Startup Notification protocol)."""

    CLIENT_MESSAGE = 33
    PROPERTY_CHANGES = 1 << 22

    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        self.x11.XSelectInput(self.display, ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display)),
                              ctypes.c_long(self.PROPERTY_CHANGES))
        self.x11.XSync(self.display, 0)
        self.heard = b""

    def has_heard(self, message):
        """Messages come in pieces of twenty bytes."""
        event = ctypes.create_string_buffer(192)
        while self.x11.XPending(self.display):
            self.x11.XNextEvent(self.display, event)
            if struct.unpack_from("i", event)[0] == self.CLIENT_MESSAGE:
                self.heard += event.raw[56:76]
        return message in self.heard


def tells_the_launcher_that_it_need_not_wait(executable, home):
    program = Program(executable, home)
    with open(program.home / "output", "ab") as program.output:
        first = program.start()
        try:
            window = wait_for(lambda: shown_windows(first), "a window")
            launcher = Launcher()
            ended(program.start(DESKTOP_STARTUP_ID="later_TIME1"))
            wait_for(lambda: launcher.has_heard(b"remove: ID=later_TIME1\0"), "the end of the start")
            assert shown_windows(first) == window
        finally:
            first.terminate()
            ended(first)


class Tray:
    """The part of a desktop that shows tray icons, as far as one icon needs it."""

    XML = """<node><interface name="org.kde.StatusNotifierWatcher">
        <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
        <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
        <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
        <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
        <property name="ProtocolVersion" type="i" access="read"/>
        <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
        <signal name="StatusNotifierHostRegistered"/></interface></node>"""

    def __enter__(self):
        self.items = []
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(self.XML).interfaces[0]
        self.object = self.bus.register_object("/StatusNotifierWatcher", interface, self.on_call, self.on_property, None)
        self.name = Gio.bus_own_name_on_connection(self.bus, "org.kde.StatusNotifierWatcher", 0, None, None)
        self.loop = GLib.MainLoop()
        threading.Thread(target=self.loop.run, daemon=True).start()
        return self

    def __exit__(self, *_):
        self.loop.quit()
        Gio.bus_unown_name(self.name)
        self.bus.unregister_object(self.object)

    def on_call(self, _bus, sender, _path, _interface, method, _arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            self.items.append(sender)
        invocation.return_value(None)

    def on_property(self, _bus, _sender, _path, _interface, name):
        return {"IsStatusNotifierHostRegistered": GLib.Variant("b", True),
                "RegisteredStatusNotifierItems": GLib.Variant("as", self.items),
                "ProtocolVersion": GLib.Variant("i", 0)}[name]

    def ask(self, path, interface, method, arguments):
        return self.bus.call_sync(self.items[-1], path, interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                                  20_000).unpack()

    def activate(self):
        self.ask("/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate", GLib.Variant("(ii)", (0, 0)))

    def choose(self, label):
        path = self.ask("/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
                        GLib.Variant("(ss)", ("org.kde.StatusNotifierItem", "Menu")))[0]
        layout = self.ask(path, "com.canonical.dbusmenu", "GetLayout", GLib.Variant("(iias)", (0, -1, [])))[1]
        labels = {item[1].get("label"): item[0] for item in layout[2]}
        assert list(labels) == ["Show", "Quit"], labels
        self.ask(path, "com.canonical.dbusmenu", "Event",
                 GLib.Variant("(isvu)", (labels[label], "clicked", GLib.Variant("i", 0), 0)))


def comes_back_from_the_tray(executable):
    with Tray() as tray, Program(executable) as program:
        wait_for(lambda: tray.items, "the icon in the tray")
        window = window_of(program)
        for bring_back in (tray.activate, lambda: tray.choose("Show")):
            close(program)
            bring_back()
            wait_for(lambda: shown_windows(program.process) == [window], "the window from the tray")
        tray.choose("Quit")
        ended(program.process)


def never_holds_up_a_logout(executable):
    with SessionManager() as manager:
        for is_hidden in (False, True):
            manager.clients.clear()
            manager.done.clear()
            with Program(executable) as program:
                window = window_of(program)
                wait_for(lambda: manager.done == [True], "the program to join the session")
                program.click(program.find("text", "Text"))
                program.type("kept")
                manager.ask_to_save()
                wait_for(lambda: manager.done == [True], "the program to agree")
                manager.call_off()
                assert shown_windows(program.process) == [window], "a logout that was called off hid the window"
                assert text_of(program) == "kept"
                if is_hidden:
                    close(program)
                manager.ask_to_save()
                wait_for(lambda: manager.done == [True], "the program to agree again")
                manager.end_session()
                ended(program.process)


def main(executable):
    with tempfile.TemporaryDirectory() as folder, Display():
        comes_back_every_way(executable, folder)
        with tempfile.TemporaryDirectory() as home:
            starts_after_a_crash(executable, home)
            two_starts_give_one_instance(executable, home)
            joins_the_bus_of_a_later_start(executable, home)
            tells_the_launcher_that_it_need_not_wait(executable, home)
        comes_back_from_the_tray(executable)
        never_holds_up_a_logout(executable)


if __name__ == "__main__":
    main(sys.argv[1])
