# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Checks a file of translations against the sources: translation_test.py FILE COMMAND...
COMMAND is given a copy of the file and brings every text of the sources into it, as for the translator."""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

FILE, *COMMAND = sys.argv[1:]


def messages(path):
    """By context, source and comment: the translation and the state that the file gives it."""
    found = {}
    for context in xml.etree.ElementTree.parse(path).iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            key = (context.findtext("name"), message.findtext("source"), message.findtext("comment") or "")
            found[key] = (translation.text or "", translation.get("type"))
    return found


class Translation(unittest.TestCase):
    def setUp(self):
        with tempfile.TemporaryDirectory() as folder:
            copy = pathlib.Path(folder) / pathlib.Path(FILE).name
            copy.write_bytes(pathlib.Path(FILE).read_bytes())
            subprocess.run([*COMMAND, str(copy)], check=True, capture_output=True)
            self.needed = messages(copy)
        self.present = messages(FILE)

    def test_every_text_of_the_sources_is_translated(self):
        self.assertGreater(len(self.needed), 300)
        missing = [key for key, (text, state) in self.needed.items() if state == "unfinished" or not text]
        self.assertEqual(missing, [], "bring them in with the target update_translations, and translate them")

    def test_no_text_is_left_that_the_sources_have_no_more(self):
        self.assertEqual(sorted(set(self.present) - set(self.needed)), [])

    def test_a_translation_has_the_places_of_its_text(self):
        for (context, source, _), (text, _) in self.present.items():
            with self.subTest(context=context, source=source):
                self.assertEqual(sorted(re.findall(r"%\d|%n", source)), sorted(re.findall(r"%\d|%n", text)))

    def test_a_translation_ends_as_its_text_does(self):
        for (context, source, _), (text, _) in self.present.items():
            for end in ("...", "…", ":", ": ", "?", "\n"):
                with self.subTest(context=context, source=source, end=end):
                    self.assertEqual(source.endswith(end), text.endswith(end))
                    self.assertEqual(source.startswith(" "), text.startswith(" "))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
