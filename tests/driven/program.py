# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Drives the built program from outside, as a user would: what there is comes from the accessibility tree, and keys and
clicks go through the X server. Nothing here knows the program's code."""

import os
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import time

TIMEOUT = 60.0  # seconds that anything may take on a slow machine


def wait_for(condition, what, timeout=TIMEOUT):
    """The first true value that `condition` gives; it is asked again and again. What fails while asking counts as not
    yet: the tree changes under our hands."""
    end = time.monotonic() + timeout
    last = None
    while time.monotonic() < end:
        try:
            value = condition()
            if value:
                return value
        except Exception as error:  # noqa: BLE001: every kind of vanished object
            last = error
        time.sleep(0.05)
    raise AssertionError(f"waited {timeout:.0f} s for {what}" + (f" ({last!r})" if last else ""))


class Display:
    """An X server with a window manager, for as long as the block runs."""

    def __init__(self, size="1400x900"):
        self.size = size

    def __enter__(self):
        read, write = os.pipe()
        self.folder = tempfile.mkdtemp(prefix="lexivore-display-")
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", self.size + "x24", "-nolisten", "tcp",
             "-fbdir", self.folder, "-noreset"],  # or it begins anew, refusing clients, when the last one has gone
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            self.name = ":" + number.readline().strip()
        os.environ["DISPLAY"] = self.name
        self.manager = subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            wait_for(lambda: run("xdotool", "get_desktop"), "the window manager")
        except AssertionError:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def colour(self, x, y):
        """What is to be seen at this place of the screen, as "#rrggbb"."""
        picture = pathlib.Path(self.folder, "Xvfb_screen0").read_bytes()  # an XWD file, always up to date
        header = struct.unpack(">25I", picture[:100])
        header_size, bits, line, colours = header[0], header[11], header[12], header[19]
        start = header_size + 12 * colours + y * line + x * bits // 8
        blue, green, red = picture[start:start + 3]
        return f"#{red:02x}{green:02x}{blue:02x}"


class Focus:
    """Where the keyboard is, by what the program announces. That is quicker than asking all there is."""

    def __init__(self):
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi, GLib
        self.context = GLib.MainContext.default()
        self.error = GLib.Error
        self.announced = []
        self.listener = Atspi.EventListener.new(self._note)
        self.listener.register("object:state-changed:focused")

    def _note(self, event):
        try:
            if event.detail1:
                self.announced.append(event.source.get_name())
        except self.error:  # it is gone already
            pass

    def names(self):
        """The names of all that had the focus since this began to listen, in order."""
        while self.context.pending():
            self.context.iteration(False)
        return self.announced

    def wait_for(self, name):
        wait_for(lambda: self.names()[-1:] == [name], f"the focus on {name!r}; it was on {self.announced[-5:]}")

    def wait_for_next(self, action):
        """The name of what gets the focus by the action."""
        before = len(self.names())
        action()
        wait_for(lambda: len(self.names()) > before, f"the focus to leave {self.announced[-1:]}")
        return self.announced[-1]


class Program:
    """The running program with a home of its own. `home` survives a restart."""

    def __init__(self, executable, home=None):
        self.executable = pathlib.Path(executable).resolve()
        self.home = pathlib.Path(home or tempfile.mkdtemp(prefix="lexivore-driven-"))
        self.owns_home = home is None

    def start(self, *arguments, cwd=None, **more_environment):
        """Another process of the program, at home in the same place. A variable that is None is left out."""
        environment = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                           HOME=str(self.home), XDG_RUNTIME_DIR=str(self.home),
                           XDG_CONFIG_HOME=str(self.home / ".config"), LC_ALL="C.UTF-8", **more_environment)
        return subprocess.Popen([self.executable, *arguments], cwd=cwd or self.home, stdout=self.output,
                                stderr=subprocess.STDOUT,
                                env={name: value for name, value in environment.items() if value is not None})

    def __enter__(self):
        self.output = open(self.home / "output", "ab")
        self.process = self.start()
        self.window = wait_for(self._find_window, "the main window")
        self.settle()
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.terminate()
        self.process.wait()
        self.output.close()
        if self.owns_home:
            shutil.rmtree(self.home, ignore_errors=True)

    # What there is

    def _application(self):
        import pyatspi
        if self.process.poll() is not None:
            sys.exit(f"the program ended with {self.process.returncode}: "
                     + (self.home / "output").read_text(errors="replace"))
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.get_process_id() == self.process.pid:
                return application
        return None

    def _find_window(self):
        application = self._application()
        return application and application.childCount and application[0]

    def all(self, role=None, name=None, under=None):
        """Every shown object of this role and name, from the top of the tree down."""
        found = []
        roots = [under] if under is not None else list(self._application())
        while roots:
            node = roots.pop(0)
            if node is None:
                continue
            if (role is None or node.getRoleName() == role) and (name is None or node.name == name):
                if is_showing(node):
                    found.append(node)
            roots.extend(node[i] for i in range(node.childCount))
        return found

    def find(self, role=None, name=None, under=None):
        return wait_for(lambda: self.all(role, name, under), f"{role or 'anything'} named {name!r}")[0]

    def is_there(self, role=None, name=None):
        return bool(self.all(role, name))

    def named(self, beginning):
        """The rest of the name of what is called `beginning` and more."""
        def look():
            return [n.name[len(beginning):] for n in self.all() if n.name and n.name.startswith(beginning)]
        return wait_for(look, f"something named {beginning!r}...")[0]

    # What the user does

    def keys(self, *combinations):
        run("xdotool", "key", "--clearmodifiers", *combinations)

    def type(self, text):
        for number, line in enumerate(text.split("\n")):
            if number > 0:
                self.keys("Return")
            if line:
                run("xdotool", "type", "--clearmodifiers", "--delay", "8", "--", line)

    def move_to(self, node):
        x, y = centre(node)
        run("xdotool", "mousemove", str(x), str(y))

    def click(self, node, button=1):
        self.move_to(node)
        run("xdotool", "click", str(button))

    def settle(self):
        """Until the main window has the keyboard."""
        wait_for(lambda: run("xdotool", "getactivewindow", "getwindowpid").strip() == str(self.process.pid),
                 "the window to be active")


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def has(node, state):
    """Whether the object is in the state, for instance "CHECKED"."""
    import pyatspi
    return node.getState().contains(getattr(pyatspi, "STATE_" + state))


def is_showing(node):
    return has(node, "SHOWING") and has(node, "VISIBLE")


def centre(node):
    import pyatspi
    extents = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return extents.x + extents.width // 2, extents.y + extents.height // 2
