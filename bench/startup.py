# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Measures how long programs take from exec until their window looks the way it then stays.

Usage: startup.py STARTUP_BENCH [--runs N] [--lexivore PROGRAM] [--json FILE]
Every program runs in turn on one X server without a window manager, N times after one start that warms the caches. The
server's frame buffer is a file that is read a thousand times a second, so that nobody takes part in what is measured:
"first" is the first picture that is not just one colour, "whole" the first one that agrees with the final one in 99 of 100
places. "cpu" is the processor time of the whole run, kernel included, until a second after the last change. Each start has
the processor that is disturbed least at that moment; the X server and what watches it have any.
"""

import argparse
import json
import mmap
import os
import pathlib
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time

import quiet_processor

QUIET = 1.0  # seconds without a change after which the picture is final
LONGEST = 30.0  # seconds that a start may take
SAME = 0.99  # of the places, for two pictures to count as the same
STRIDE = 4 * 37 + 1  # bytes; visits all colour channels


class Server:
    """An X server whose frame buffer can be read as memory."""

    def __init__(self, folder):
        self.folder = folder
        read, write = os.pipe()
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset",
             "-fbdir", folder], pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            self.name = ":" + number.readline().strip()
        with open(os.path.join(folder, "Xvfb_screen0"), "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)

    def picture(self):
        return self.memory[4096::STRIDE]

    def close(self):
        self.process.terminate()
        self.process.wait()


def agreement(picture, final):
    return sum(map(int.__eq__, picture, final)) / len(final)


def start(server, quiet, command, home):
    """Seconds to the first and to the whole picture, and of processor time."""
    runtime = tempfile.mkdtemp(dir=home)
    environment = {key: value for key, value in os.environ.items() if not key.startswith(("QT_", "LD_", "XDG_"))}
    environment |= {"DISPLAY": server.name, "HOME": home, "XDG_RUNTIME_DIR": runtime, "LC_ALL": "C.UTF-8",
                    "QT_QPA_PLATFORM": "xcb"}
    pictures = []
    before = server.picture()
    with quiet.for_children():
        begin = time.perf_counter()
        process = subprocess.Popen(command, env=environment, cwd=home, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
    last = begin
    while True:
        time.sleep(0.001)
        now = time.perf_counter()
        picture = server.picture()
        if picture != before:
            pictures.append((now - begin, picture))
            if agreement(picture, before) < SAME:
                last = now  # more than a blinking caret
            before = picture
        if (now - last > QUIET and pictures) or now - begin > LONGEST:
            break
    process.send_signal(signal.SIGKILL)
    _, _, usage = os.wait4(process.pid, 0)
    process.returncode = 0
    time.sleep(0.1)  # the server takes the window away
    final = pictures[-1][1] if pictures else b""
    shown = [(moment, picture) for moment, picture in pictures if len(set(picture)) > 4]
    if not shown:
        sys.exit(f"startup.py: {command[0]} showed no window")
    whole = shown[-1][0]
    for moment, picture in reversed(shown):
        if agreement(picture, final) < SAME:
            break
        whole = moment
    return shown[0][0], whole, usage.ru_utime + usage.ru_stime


def contestants(floor, lexivore):
    yield "lexivore", [lexivore]
    yield "a bare window of Qt 6", [floor]
    for name, *options in (["featherpad", "--standalone"], ["juffed"], ["kwrite"], ["mousepad"]):
        if shutil.which(name):
            yield name, [name, *options]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("floor", type=os.path.abspath)
    parser.add_argument("--runs", type=int, default=15)
    parser.add_argument("--lexivore", type=os.path.abspath)
    parser.add_argument("--json")
    options = parser.parse_args()
    if "DBUS_SESSION_BUS_ADDRESS" not in os.environ or "LEXIVORE_STARTUP_BUS" not in os.environ:
        os.environ["LEXIVORE_STARTUP_BUS"] = "own"
        os.execvp("dbus-run-session", ["dbus-run-session", "--", sys.executable, *sys.argv])
    build = pathlib.Path(options.floor).parent.parent
    programs = dict(contestants(options.floor, options.lexivore or str(build / "ui" / "lexivore")))
    results = {name: [] for name in programs}
    with tempfile.TemporaryDirectory(prefix="lexivore-startup-") as folder:
        server = Server(folder)
        quiet = quiet_processor.QuietProcessor(patience=60)
        try:
            for run in range(options.runs + 1):
                for name, command in programs.items():
                    home = os.path.join(folder, name)
                    os.makedirs(home, exist_ok=True)
                    figures = start(server, quiet, command, home)
                    if run > 0:
                        results[name].append(figures)
        finally:
            server.close()
    rows = {}
    print(f"{'milliseconds':24}{'first':>8}{'whole':>8}{'(best)':>8}{'cpu':>8}   median of {options.runs} warm starts")
    for name, runs in results.items():
        first, whole, cpu = (1000 * statistics.median(column) for column in zip(*runs))
        best = 1000 * min(run[1] for run in runs)
        rows[name] = {"first": first, "whole": whole, "best": best, "cpu": cpu}
        print(f"{name:24}{first:8.0f}{whole:8.0f}{best:8.0f}{cpu:8.0f}")
    if options.json:
        pathlib.Path(options.json).write_text(json.dumps(rows, indent=1) + "\n")


if __name__ == "__main__":
    main()
