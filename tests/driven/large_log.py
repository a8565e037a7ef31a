# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Opens a log of 50 MB with CR LF, encodes it, types in the middle of the one endless line that results, undoes that,
decodes, and saves: the saved file is the opened one.

Usage: large_log.py PROGRAM"""

import pathlib
import sys
import tempfile

from program import Display, Program, wait_for
from real_file import apply, choose_file, wait_for_lines

LINES = 501_000


def names(program, beginning):
    return [node.name for node in program.all() if node.name and node.name.startswith(beginning)]


def main(executable):
    source = b"".join(b"2024-05-%02d 12:%02d:%02d host service[%d]: request %07d took %d ms, \xe2\x9c\x93 done, all of it in one go\r\n"
                      % (i % 28 + 1, i // 60 % 60, i % 60, 1000 + i % 9000, i, i * 7919 % 1000) for i in range(LINES))
    assert len(source) >= 50_000_000
    characters = len(source.decode()) - LINES  # CR LF is one
    with tempfile.TemporaryDirectory() as folder, Display(), Program(executable) as program:
        opened = pathlib.Path(folder, "service.log")
        opened.write_bytes(source)
        saved = pathlib.Path(folder, "saved.log")

        program.keys("ctrl+o")
        choose_file(program, "Open", opened)
        wait_for_lines(program, 2 * LINES + 1)
        assert program.named("Total characters: ") == str(characters)
        assert program.named("Line endings of the text: ") == "CRLF"

        program.keys("ctrl+alt+1")  # every transformation is applied to the result of the one before
        apply(program, "base64 enc", "Base64 Encode")
        wait_for_lines(program, 1)
        wait_for(lambda: not names(program, "Line endings of the text: "), "no line ending to name")
        encoded = (len(source) + 2) // 3 * 4
        wait_for(lambda: program.named("Total characters: ") == str(encoded), "the encoded text")

        editor = program.find(name="Text")
        text = editor.queryText()
        program.click(editor)
        text.setCaretOffset(encoded // 2)
        program.type("typed")
        wait_for(lambda: program.named("Total characters: ") == str(encoded + 5), "what was typed")
        assert text.getText(encoded // 2, encoded // 2 + 5) == "typed"
        while program.named("Total characters: ") != str(encoded):
            before = program.named("Total characters: ")
            program.keys("ctrl+z")
            wait_for(lambda: program.named("Total characters: ") != before, "an edit to be undone")

        apply(program, "base64 dec", "Base64 Decode")
        wait_for_lines(program, 2 * LINES + 1)
        program.keys("ctrl+s")
        choose_file(program, "Save Text", saved)
        wait_for(lambda: saved.exists() and saved.stat().st_size == len(source), "the saved file")
        assert saved.read_bytes() == source


if __name__ == "__main__":
    main(sys.argv[1])
