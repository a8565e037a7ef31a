# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Checks that no folder includes from one above it: layers_test.py CHECKOUT

The link lines alone do not see to it: all headers are found from the root, and one that needs no library compiles
wherever it is included."""

import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(sys.argv[1])
MAY_INCLUDE = {
    "engine": {"engine"},
    "manager": {"manager", "engine"},
    "tools": {"tools", "engine"},
    "services": {"services", "manager", "engine"},
    "ui": {"ui", "services", "tools", "manager", "engine"},
}
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^">]+)[">]', re.MULTILINE)


def includes(folder):
    """Each source of the folder with what it includes."""
    for path in sorted(ROOT.joinpath(folder).rglob("*")):
        if path.suffix in {".h", ".cpp", ".inc"}:
            for included in INCLUDE.findall(path.read_text(encoding="utf-8")):
                yield str(path.relative_to(ROOT)), included


class Layers(unittest.TestCase):
    def test_a_folder_includes_itself_and_what_is_below_it(self):
        for folder, allowed in MAY_INCLUDE.items():
            ours = [(path, included) for path, included in includes(folder) if (ROOT / included).is_file()]
            self.assertGreater(len(ours), 10, folder)
            self.assertEqual([pair for pair in ours if pair[1].split("/")[0] not in allowed], [])

    def test_the_floors_of_the_engine_stand_on_those_below(self):
        floors = {"engine/primitives": "engine/(primitives|kernels)/", "engine/kernels": "engine/kernels/"}
        for folder, allowed in floors.items():
            ours = [pair for pair in includes(folder) if pair[1].startswith("engine/")]
            self.assertGreater(len(ours), 10, folder)
            self.assertEqual([pair for pair in ours if not re.match(allowed, pair[1])], [])
        self.assertEqual([pair for pair in includes("engine/kernels") if pair[1].startswith("unicode/")], [])

    def test_what_windows_are_made_of_knows_no_window(self):
        for folder in "ui/theme", "ui/controls", "ui/editor":
            ours = [pair for pair in includes(folder) if pair[1].startswith("ui/")]
            self.assertGreater(len(ours), 10, folder)
            allowed = re.compile("ui/([^/]+|(theme|controls|editor)/.*)$")
            self.assertEqual([pair for pair in ours if not allowed.match(pair[1])], [])

    def test_the_engine_and_the_tools_know_no_qt(self):
        for folder in "engine", "tools":
            self.assertEqual([pair for pair in includes(folder) if re.match(r"Q[A-Zt]", pair[1])], [])

    def test_no_header_of_the_engine_brings_icu_along(self):
        found = [pair for pair in includes("engine") if pair[1].startswith("unicode/") and pair[0].endswith(".h")]
        self.assertEqual(found, [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
