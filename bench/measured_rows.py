# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""What the benchmarks do alike with their rows: measure them or read them again, and keep them."""

import json


def add_options(arguments):
    arguments.add_argument("--json", metavar="FILE", help="write the rows there, too")
    arguments.add_argument("--docs", action="store_true", help="write the tables of docs/benchmarks.md and README.md")
    arguments.add_argument("--from", metavar="FILE", dest="measured", help="measure nothing: take the rows from there")


def rows(given, measure):
    """Those of `--from`, or what `measure` gives; written to `--json`."""
    if given.measured:
        with open(given.measured, encoding="utf-8") as file:
            results = json.load(file)
    else:
        results = measure(given)
    if given.json:
        with open(given.json, "w", encoding="utf-8") as file:
            json.dump(results, file, indent=1)
    return results
