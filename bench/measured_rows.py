# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""What the benchmarks do alike with their rows: measure them or read them again, and keep them."""

import json
import sys


def add_options(arguments):
    arguments.add_argument("--json", metavar="FILE", help="write the rows there, too")
    arguments.add_argument("--docs", action="store_true", help="write the tables of docs/benchmarks.md and README.md")
    arguments.add_argument("--from", metavar="FILE", dest="measured", action="append", default=[],
                           help="measure nothing: take the rows from there")


def read(name):
    with open(name, encoding="utf-8") as file:
        return json.load(file)


def rows(given, measure, combined=None):
    """Those of `--from`, or what `measure` gives; written to `--json`. `combined` makes one run's rows of several."""
    if len(given.measured) > 1 and combined is None:
        sys.exit("These rows can be taken from one run only: give --from once.")
    runs = [read(name) for name in given.measured] or [measure(given)]
    results = combined(runs) if len(runs) > 1 else runs[0]
    if given.json:
        with open(given.json, "w", encoding="utf-8") as file:
            json.dump(results, file, indent=1)
    return results
