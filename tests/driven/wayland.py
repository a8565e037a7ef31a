# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Opens a file under a Wayland compositor without a screen, at several scales: wayland.py PROGRAM"""

import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = pathlib.Path(sys.argv[1]).resolve()
TIMEOUT = 60.0  # seconds that anything may take on a slow machine


def wait_for(condition, what):
    end = time.monotonic() + TIMEOUT
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.1)
    raise AssertionError(f"waited for {what} in vain")


class Wayland(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory(prefix="lexivore-wayland-")
        self.addCleanup(self.folder.cleanup)
        self.home = pathlib.Path(self.folder.name)
        self.environment = {key: value for key, value in os.environ.items()
                            if not key.startswith(("QT_", "XDG_")) and key != "DISPLAY"}
        self.environment |= {"HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.home), "LC_ALL": "C.UTF-8",
                             "WAYLAND_DISPLAY": "lexivore-test"}

    def start(self, *command):
        process = subprocess.Popen(command, env=self.environment, cwd=self.home, stdout=subprocess.PIPE,
                                   stderr=subprocess.STDOUT, text=True)
        self.addCleanup(process.communicate)
        self.addCleanup(process.terminate)
        return process

    def start_compositor(self, scale):
        (self.home / "weston.ini").write_text("[core]\nidle-time=0\n[shell]\npanel-position=none\n")
        self.start("weston", "--backend=headless-backend.so", "--use-pixman", "--width=1400", "--height=900",
                   f"--scale={scale}", "--socket=lexivore-test", "--debug", f"--config={self.home / 'weston.ini'}")
        wait_for((self.home / "lexivore-test").exists, "the compositor")

    def picture_size(self):
        """Of the screen as a PNG, in bytes: an empty screen takes little, and letters take a lot."""
        for old in self.home.glob("wayland-screenshot*"):
            old.unlink()
        subprocess.run(["weston-screenshooter"], env=self.environment, cwd=self.home, check=True, timeout=TIMEOUT)
        return next(self.home.glob("wayland-screenshot*")).stat().st_size

    def open_window_at(self, scale):
        self.start_compositor(scale)
        empty = self.picture_size()
        (self.home / "note.txt").write_text("What the file holds.\n" * 20)
        program = self.start(PROGRAM, "note.txt")
        wait_for(lambda: program.poll() is not None or self.picture_size() > empty + 20000, "the window")
        self.assertIsNone(program.poll(), "the program has ended")
        program.terminate()
        output, _ = program.communicate(timeout=TIMEOUT)
        # Qt 6.4 itself says so wherever a program asks for a place in the tray and there is none.
        complaints = [line for line in output.splitlines() if "systemTrayWindowChanged" not in line]
        self.assertEqual(complaints, [])

    def test_the_window_shows(self):
        self.open_window_at(scale=1)

    def test_the_window_shows_on_a_screen_with_twice_the_dots(self):
        self.open_window_at(scale=2)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
