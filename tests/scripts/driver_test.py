# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Tests of lexivore_engine_driver itself: python3 driver_test.py <driver>."""

import json
import random
import subprocess
import sys
import unittest

from engine_driver import EngineDriver

DRIVER = ""


class DriverTest(unittest.TestCase):
    def setUp(self):
        self.driver = EngineDriver(DRIVER)

    def tearDown(self):
        rest, status = self.driver.close()
        self.assertEqual((rest, status), (b"", 0), "one line out for each line in, and a clean end")

    def assert_error(self, line, words):
        answer = json.loads(self.driver.ask_bytes(line))
        self.assertEqual(list(answer), ["error"])
        self.assertIn(words, answer["error"])

    def assert_unchanged(self, text, ensure_ascii=True):
        # No letter, no tab: this transformation leaves it as it is.
        answer = self.driver.ask({"id": "remove-tabs", "text": text, "parameters": {}}, ensure_ascii)
        self.assertEqual(answer, {"result": text})

    def test_every_code_point_passes_as_escape_and_as_itself(self):
        for first in range(0, 0x110000, 0x400):
            text = "".join(map(chr, range(first, first + 0x400))).replace("\t", "")
            self.assert_unchanged(text)
            if not 0xD800 <= first <= 0xDFFF:
                self.assert_unchanged(text, ensure_ascii=False)

    def test_a_byte_order_mark_stays(self):
        for text in ("\ufeff", "\ufeffa", "\ufeff\ufeff", "\ud800\ufeff", "a\ufeff"):
            self.assert_unchanged(text)
        self.assert_unchanged("\ufeff\ufeffa", ensure_ascii=False)

    def test_lone_surrogates_come_in_and_go_out(self):
        for text in ("\ud800", "\udfff", "a\udc00\ud800b", "\ud83d\ud83d", "\udbff"):
            self.assertEqual(self.driver.apply("add-prefix", text, prefix="> "), {"result": "> " + text})
        self.assertEqual(self.driver.apply("base64-encode", "\ud800"),
                         {"error": "Invalid input: Cannot convert text to data"})
        self.assertEqual(self.driver.apply("url-encode", "a\udc00"), {"error": "Operation failed: Cannot encode URL"})
        self.assertEqual(self.driver.apply("add-suffix", "a", suffix="\ud83d"), {"result": "a\ud83d"})

    def test_every_kind_of_escape(self):
        line = rb'{"id":"remove-tabs","text":"\"\\\/\b\f\n\r\u0000\u00e9\uD83D\uDE00"}'
        self.assertEqual(json.loads(self.driver.ask_bytes(line)), {"result": "\"\\/\b\f\n\r\0\u00e9\U0001F600"})

    def test_random_strings_pass(self):
        dice = random.Random(7)
        for _ in range(300):
            text = "".join(chr(dice.choice((dice.randrange(0x80), dice.randrange(0x3000), dice.randrange(0x110000))))
                           for _ in range(dice.randrange(60))).replace("\t", "")
            text = text.encode("utf-16", "surrogatepass").decode("utf-16", "surrogatepass")  # joins pairs
            self.assert_unchanged(text)

    def test_a_large_text_passes(self):
        self.assert_unchanged("a line of text\r\n\u00e9\U0001F600 " * 200_000)

    def test_an_error_is_the_whole_description(self):
        self.assertEqual(self.driver.apply("add-prefix", "a"), {"error": "Missing parameter: prefix"})
        self.assertEqual(self.driver.apply("wrap-lines", "a", width="x"),
                         {"error": "Invalid input: Width must be a positive number"})

    def test_bad_requests_are_answered_in_words(self):
        self.assert_error(b'{"id":"no-such","text":""}', 'No transformation or tool has the id "no-such"')
        self.assert_error(b'{"id":"uppercase"}', '"text" is not a string')
        self.assert_error(b'{"text":"a"}', '"id" is not a string')
        self.assert_error(b'{"id":"uppercase","text":1}', '"text" is not a string')
        self.assert_error(b'{"id":"uppercase","text":"","parameters":[]}', '"parameters" is not an object')
        self.assert_error(b'{"id":"wrap-lines","text":"","parameters":{"width":5}}', 'parameter "width" is not a string')
        self.assert_error(b'{"id":"stack","text":"a"}', '"operations" is not an array')
        self.assert_error(b'{"id":"stack","text":"a","operations":[1]}', '"transformation" is not a string')
        self.assert_error(b'{"id":"stack","text":"a","operations":[{"transformation":"x","isEnabled":1}]}', '"isEnabled"')
        for line in (b"", b"   ", b"not json", b'{"id":', b'{"id":"uppercase","text":"a"', b"[1]", b'"a"', b"null",
                     b'{"id":"uppercase","text":"\xff"}', b'{"id":"uppercase","text":"\\\xc3\xa9"}',
                     b'{"id":"uppercase","text":"\\x"}', b"\0"):
            self.assert_error(line, "The line is not ")
        self.assertEqual(self.driver.apply("uppercase", "still there"), {"result": "STILL THERE"})

    def test_a_stack_is_folded_as_it_is_run_again(self):
        operations = [
            {"transformation": "sort-words", "parameters": {}, "isEnabled": True},
            {"transformation": "no-such", "parameters": {}, "isEnabled": True},
            {"transformation": "wrap-lines", "parameters": {"width": "0"}, "isEnabled": True},
            {"transformation": "uppercase", "parameters": {}, "isEnabled": False},
            {"transformation": "add-prefix", "parameters": {"prefix": "> "}},
            {"transformation": "add-suffix"},
        ]
        self.assertEqual(self.driver.ask({"id": "stack", "text": "b a", "operations": operations}), {"result": "> a b"})
        self.assertEqual(self.driver.ask({"id": "stack", "text": "b a", "operations": []}), {"result": "b a"})
        self.assertEqual(self.driver.ask({"id": "stack", "text": "", "operations": operations}), {"result": "> "})

    def test_the_tools_give_their_reports(self):
        self.assertEqual(self.driver.apply("tool:reading-time", "word " * 250),
                         {"result": "Reading Time Estimate\n\nWord Count: 250\nReading Time: 1m 15s (~200 wpm)\n"
                                    "Speaking Time: 1m 40s (~150 wpm)"})
        self.assertEqual(self.driver.apply("tool:character-frequency", ""),
                         {"result": "Character Frequency Analysis\n\n"})
        self.assertIn("Characters: 11\n", self.driver.apply("tool:statistics", "Hello world")["result"])
        self.assertIn("Score: 77.9\n", self.driver.apply("tool:readability", "Hello world")["result"])

    def test_the_last_line_needs_no_line_feed(self):
        run = subprocess.run([DRIVER], input=b'{"id":"uppercase","text":"a"}', stdout=subprocess.PIPE, check=True)
        self.assertEqual(run.stdout, b'{"result":"A"}\n')


if __name__ == "__main__":
    DRIVER = sys.argv.pop(1)
    unittest.main()
