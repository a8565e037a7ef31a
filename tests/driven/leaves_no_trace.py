# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Watches a session with a secret text through strace: the text is written nowhere but to the file that it was saved to,
the program writes nothing but its preferences, leaves nothing behind, and speaks to nobody on the network. The clipboard
holds what others put there until the user copies, and a crash writes no memory to the disk.

Usage: leaves_no_trace.py PROGRAM"""

import base64
import os
import pathlib
import re
import signal
import stat
import subprocess
import sys
import tempfile

from program import Display, Program, has, wait_for
from real_file import choose_file

SECRET = "Kz7Secret9Qx"
TRACED = ("open,openat,creat,rename,renameat,renameat2,link,linkat,symlink,symlinkat,mkdir,mkdirat,memfd_create,"
          "socket,connect,bind,write,pwrite64,writev,pwritev,ftruncate,sendfile,copy_file_range")
# Each way in which the text may show: as it is, as the transformations leave it, as UTF-16.
FORMS = [SECRET.encode(), SECRET.upper().encode(), SECRET.lower().encode(), SECRET[::-1].encode(),
         SECRET.encode("utf-16-le"), SECRET.upper().encode("utf-16-le"), base64.b64encode(SECRET.encode())[:12],
         SECRET.encode().hex().encode()]


class Traced(Program):
    """The program under strace from its first step on. With -D it is strace that is the grandchild."""

    def __init__(self, executable, home):
        super().__init__(executable, home)
        self.trace = self.home / "trace"
        wrapper = self.home / "traced"
        wrapper.write_text(f"#!/bin/sh\nexec strace -D -f -qq -y -s 300 -e trace={TRACED} -e signal=none"
                           f" -o '{self.trace}' '{self.executable}' \"$@\"\n")
        wrapper.chmod(stat.S_IRWXU)
        self.executable = wrapper


def transformation(program, name):
    program.click(program.find(name="Search transformations"))
    program.keys("ctrl+a")
    program.type(name)
    program.click(program.find(name=name, under=program.find("list", "Transformations")))


def take_to_editor(program):
    """A sheet that is still on its way out takes the first click."""

    def has_keyboard():
        editor = program.find(name="Text")
        program.click(editor)
        return has(editor, "FOCUSED")

    wait_for(has_keyboard, "the editor to have the keyboard")


def session(program):
    """Typing, transformations with and without errors, undo, a recipe, a tool, saving."""
    program.click(program.find(name="Text"))
    program.type(f"{SECRET} first\n{SECRET} second")
    for name in ("UPPERCASE", "Sort Lines Alphabetically", "Reverse Text", "Base64 Encode", "Hex Decode"):
        transformation(program, name)
        for alert in program.all("push button", "OK"):
            program.click(alert)
    take_to_editor(program)
    program.keys("ctrl+z", "ctrl+z", "ctrl+shift+z")
    transformation(program, "Trim Lines")
    program.keys("ctrl+shift+s")
    program.find("push button", "Save")
    program.type("Harmless")
    program.keys("Return")
    wait_for(lambda: not program.is_there("push button", "Save"), "the sheet to close")
    take_to_editor(program)
    program.keys("ctrl+a", "BackSpace")
    program.type(f"{SECRET} in the end")
    program.keys("ctrl+s")
    choose_file(program, "Save Text", program.home / "saved.txt")
    wait_for((program.home / "saved.txt").exists, "the saved file")


def calls(trace):
    """The traced calls in order, those that were interrupted joined again, without those that failed."""
    begun = {}
    for line in trace.read_text(errors="replace").splitlines():
        process, _, call = line.partition(" ")
        call = call.strip()
        if call.endswith("<unfinished ...>"):
            begun[process] = call[:-len("<unfinished ...>")]
            continue
        resumed = re.match(r"<\.\.\. \w+ resumed>", call)
        if resumed:
            call = begun.pop(process, "") + call[resumed.end():]
        if not re.search(r"\) += -1 ", call):
            yield call


def is_private(path, home):
    """Where the program may write: its preferences, the file it was told to, what is no file, and what is not its own:
    the toolkit's and the test's."""
    # Files without a name (O_TMPFILE) become the saved file or the preferences; while written they lie in its folder.
    allowed = [rf"{home}/?$", rf"{home}/(\.config/)?#\d+$", rf"{home}/\.config/lexivore(/preferences\.json[^/]*|/[^/]*)?$", rf"{home}/saved\.txt[^/]*$",
               rf"{home}/(output|trace|traced)$", rf"{home}/lexivore[^/]*$",
               r"/dev/(null|tty|ptmx|shm/[^/]*|dri/.*)$", r"/proc/(self|\d+)/(task/|oom|comm|attr|coredump_filter$)", r"/memfd:", r"/SYSV",
               rf"{home}/\.cache/(fontconfig|mesa_shader_cache[^/]*|qt[^/]*|QtProject)(/.*)?$", rf"{home}/\.cache$",
               rf"{home}/\.config$", rf"{home}/\.config/(QtProject\.conf[^/]*|user-dirs.*)$", rf"{home}/\.local(/.*)?$",
               rf"{home}/(at-spi|dconf)(/.*)?$"]
    return any(re.match(pattern, path) for pattern in allowed)


def check_calls(trace, home):
    written = set()
    for call in calls(trace):
        assert not re.match(r"(socket|connect|bind)\(.*AF_INET", call), f"speaks on the network: {call}"
        opened = re.match(r"(?:openat\([^,]*, |open\(|creat\()\"([^\"]*)\"(.*)", call)
        if opened and (call.startswith("creat") or re.search(r"O_(WRONLY|RDWR|CREAT|TRUNC)", opened[2])):
            path = os.path.normpath(opened[1])
            assert is_private(path, home), f"opens for writing: {call}"
            written.add(path)
        into = re.match(r"p?writev?(?:64)?\(\d+<([^>]*)>", call)
        if into and into[1].startswith("/"):
            path = into[1].replace(" (deleted)", "")
            assert is_private(path, home), f"writes: {call}"
            if not re.match(rf"{home}/(saved\.txt|#)", path) and any(form.decode("latin-1") in call for form in FORMS):
                raise AssertionError(f"writes the text: {call}")
    return written


def files_with_the_text(folders, saved):
    found = []
    for folder in folders:
        for path in pathlib.Path(folder).rglob("*"):
            try:
                if path.is_file() and not path.is_symlink() and path.name != "trace" and path != saved:
                    content = path.read_bytes()
                    if any(form in content for form in FORMS):
                        found.append(str(path))
            except OSError:
                pass  # somebody else's, gone meanwhile
    return found


def clipboard():
    return subprocess.run(["xclip", "-selection", "clipboard", "-out"], capture_output=True, text=True).stdout


def put_into_clipboard(text):
    subprocess.run(["xclip", "-selection", "clipboard", "-in", "-silent"], input=text, text=True, check=True)


def is_the_user_asking(program):
    """Nothing that a session does has touched the clipboard; asked for, the text is there, and goes with the program."""
    assert clipboard() == "somebody else's", clipboard()
    program.click(program.find(name="Copy text to clipboard"))
    wait_for(lambda: clipboard() == f"{SECRET} in the end", "the copied text")


def check_crash(executable, home):
    """Crashes the program with a text in it, where a core file would be allowed and would lie in its home."""
    with Program(executable, home) as program:
        program.click(program.find(name="Text"))
        program.type(f"{SECRET} in a crash")
        wait_for(lambda: program.named("Total characters: ") != "0", "the typed text")
        process = program.process.pid
        assert int(pathlib.Path(f"/proc/{process}/coredump_filter").read_text(), 16) == 0, "a crash helper gets memory"
        limits = pathlib.Path(f"/proc/{process}/limits").read_text()
        assert re.search(r"Max core file size +0 +0 ", limits), limits
        os.kill(process, signal.SIGSEGV)
        program.process.wait()


def main(executable):
    with tempfile.TemporaryDirectory() as home, tempfile.TemporaryDirectory() as temporary, Display():
        os.environ["TMPDIR"] = temporary
        for variable in ("XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"):
            os.environ.pop(variable, None)
        put_into_clipboard("somebody else's")
        with Traced(executable, home) as program:
            session(program)
            is_the_user_asking(program)
            program.process.terminate()
            program.process.wait()
        saved = pathlib.Path(home, "saved.txt")
        assert saved.read_text() == f"{SECRET} in the end", saved.read_text()
        trace = pathlib.Path(home, "trace")
        wait_for(lambda: trace.stat().st_size > 0, "the trace")
        written = check_calls(trace, home)
        assert any("preferences.json" in path for path in written), "the watching saw nothing"
        assert '"recipes"' in pathlib.Path(home, ".config/lexivore/preferences.json").read_text(), "no recipe was saved"
        assert files_with_the_text([home, temporary], saved) == [], files_with_the_text([home, temporary], saved)
        assert clipboard() == "", "the program is gone, but not its text"
        check_crash(executable, home)
        assert files_with_the_text([home, temporary], saved) == [], files_with_the_text([home, temporary], saved)
        left = os.listdir(temporary)
        assert left == [], f"left behind: {left}"
        print(f"{sum(1 for _ in calls(trace))} calls watched; written: {', '.join(sorted(written))}")


if __name__ == "__main__":
    main(sys.argv[1])
