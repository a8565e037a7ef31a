# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Opens a real multilingual file, cleans and sorts its lines, undoes and redoes, and saves; what is saved is compared
with what this script computes by itself.

Usage: real_file.py PROGRAM"""

import bz2
import pathlib
import re
import sys
import tempfile
import unicodedata

from program import Display, Program, wait_for

# All scripts of the world in 2.6 MB, with composed and decomposed forms side by side (Debian: unicode-data).
SOURCE = pathlib.Path("/usr/share/unicode/NormalizationTest.txt.bz2")

NEWLINES = "\n\v\f\r\x85\u2028\u2029"
WHITESPACE = "\t" + "".join(chr(c) for c in range(sys.maxunicode + 1) if unicodedata.category(chr(c)) == "Zs")


def split_lines(text):
    return re.split(f"[{NEWLINES}]", text)


def trimmed(lines):
    return [line.strip(WHITESPACE) for line in lines]


def without_duplicates(lines):
    return list(dict.fromkeys(lines))


def in_order(lines):
    return sorted(lines, key=lambda line: unicodedata.normalize("NFC", line))


def apply(program, query, name):
    """Searches for the transformation and clicks its row."""
    program.click(program.find(name="Search transformations"))
    program.keys("ctrl+a")
    program.type(query)
    program.click(program.find(name=name, under=program.find("list", "Transformations")))


def wait_for_lines(program, count):
    wait_for(lambda: program.named("Lines of text: ") == str(count), f"{count} lines")


def choose_file(program, title, path):
    """Types the path into the file dialog."""
    program.find(name=title)
    program.keys("ctrl+a")
    program.type(str(path))
    program.keys("Return")
    wait_for(lambda: not program.is_there(name=title), f"the dialog {title!r} to close")
    program.settle()


def main(executable):
    source = bz2.decompress(SOURCE.read_bytes())
    lines = split_lines(source.decode())
    steps = [lines]
    for step in (trimmed, without_duplicates, in_order):
        steps.append(step(steps[-1]))
    assert len(source) >= 1_000_000
    assert len(steps[2]) < len(steps[1]), "the file has no duplicate lines, so it proves nothing"
    assert steps[3] != steps[2], "the file is sorted already, so it proves nothing"

    with tempfile.TemporaryDirectory() as folder, Display(), Program(executable) as program:
        opened = pathlib.Path(folder, "every script.txt")
        opened.write_bytes(source)
        saved = pathlib.Path(folder, "sorted.txt")

        program.keys("ctrl+o")
        choose_file(program, "Open", opened)
        wait_for_lines(program, len(steps[0]))

        program.keys("ctrl+alt+1")
        apply(program, "trim", "Trim Lines")
        apply(program, "duplicate lines", "Remove Duplicate Lines")
        wait_for_lines(program, len(steps[2]))
        apply(program, "sort lines alpha", "Sort Lines Alphabetically")

        program.click(program.find(name="Text"))
        for _ in range(3):
            program.keys("ctrl+z")
        wait_for_lines(program, len(steps[0]))
        for _ in range(3):
            program.keys("ctrl+shift+z")
        wait_for_lines(program, len(steps[3]))

        program.keys("ctrl+s")
        choose_file(program, "Save Text", saved)
        expected = "\n".join(steps[3]).encode()
        wait_for(lambda: saved.stat().st_size == len(expected), "the saved file")
        assert saved.read_bytes() == expected, "the saved bytes are not the expected ones"
        assert opened.read_bytes() == source, "the opened file was changed"


if __name__ == "__main__":
    main(sys.argv[1])
