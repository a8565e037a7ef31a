# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Tables in pages, each where the last one stands: between two comments that hold its name."""


def replace_table(page, name, lines):
    """Raises ValueError when the page has no place for the table."""
    begin, end = f"<!-- {name}: begin -->", f"<!-- {name}: end -->"
    with open(page, encoding="utf-8") as file:
        before, rest = file.read().split(begin, 1)
    after = rest.split(end, 1)[1]
    with open(page, "w", encoding="utf-8") as file:
        file.write(before + begin + "\n" + "\n".join(lines) + "\n" + end + after)
