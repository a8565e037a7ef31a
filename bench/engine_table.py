# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Writes the rows that bench/engine.py measured into the tables of docs/benchmarks.md and README.md."""

import re
import statistics

import marked_tables

README_ROWS = {
    "uppercase": "UPPERCASE", "snakecase": "snake_case", "remove-punctuation": "Remove Punctuation",
    "trim-lines": "Trim Lines", "remove-duplicates": "Remove Duplicate Lines",
    "sort-lines": "Sort Lines Alphabetically", "wrap-lines": "Wrap Lines", "replace-text": "Replace Text",
    "base64-encode": "Base64 Encode", "character-frequency": "Character Frequency",
}


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        text = file.read()
    names = re.findall(r"^model name\s*: (.*)$", text, re.MULTILINE)
    flags = re.search(r"^flags\s*: (.*)$", text, re.MULTILINE)
    flags = flags.group(1).split() if flags else []
    vectors = next((name for flag, name in (("avx512bw", "AVX-512"), ("avx2", "AVX2"), ("sse2", "SSE2"))
                    if flag in flags), "no vectors")
    return f"{names[0] if names else 'an unknown processor'} with {vectors}"


def memcpy_speed(rows):
    """In GB/s, as the rows imply it."""
    return statistics.median(row["ours_mb_s"] / row["memcpy_fraction"] for row in rows if row["memcpy_fraction"]) / 1000


def times(row):
    if row["ratio"] is None:
        return "–"
    return f"{row['ratio']:.0f}x" if row["ratio"] >= 20 else f"{row['ratio']:.1f}x"


def fraction(row):
    return f"{row['memcpy_fraction']:.2f}" if row["memcpy_fraction"] >= 0.095 else f"{row['memcpy_fraction']:.3f}"


def by_operation(rows):
    operations = {}
    for row in rows:
        operations.setdefault(row["operation"], {})[row["corpus"]] = row
    return operations


def peers(row_of):
    """The fastest alternatives, those that are the same for several texts said once."""
    texts = {}
    for corpus, row in row_of.items():
        if row["peer"]:
            texts.setdefault(row["peer"], []).append(f"{corpus} {row['peer_mb_s']:.0f}")
    return "; ".join(f"{peer}: {', '.join(speeds)}" for peer, speeds in texts.items()).replace("|", r"\|")


def full_table(rows, runs):
    measured = ("Measured with `scripts/bench engine --docs`" if runs == 1 else
                f"The medians of {runs} runs of `scripts/bench engine --json FILE`, each then given by `--from FILE`,")
    lines = [
        f"{measured} on one core of {processor()}; `memcpy` copies about "
        f"{memcpy_speed(rows):.0f} GB/s there.", "",
        "| operation | A | memcpy | best | B | memcpy | best | C | memcpy | best | fastest alternative, MB/s |",
        "|---|--:|--:|--:|--:|--:|--:|--:|--:|--:|---|",
    ]
    for operation, row_of in by_operation(rows).items():
        cells = []
        for corpus in "ABC":
            row = row_of.get(corpus)
            cells += [f"{row['ours_mb_s']:.0f}", fraction(row), times(row)] if row else ["", "", ""]
        lines.append(f"| {operation} | {' | '.join(cells)} | {peers(row_of)} |")
    return lines


def short_table(rows):
    row_of = {row["operation"]: row for row in rows if row["corpus"] == "A"}
    lines = ["| | Lexivore | fastest alternative | |", "|---|--:|---|--:|"]
    for operation, name in README_ROWS.items():
        row = row_of.get(operation)
        if row and row["peer"]:
            lines.append(f"| {name} | {row['ours_mb_s']:.0f} | {row['peer']} {row['peer_mb_s']:.0f} | {times(row)} |")
    return lines


def write_docs(rows, runs):
    """`runs`: how many the rows are the medians of."""
    marked_tables.replace_table("docs/benchmarks.md", "engine", full_table(rows, runs))
    marked_tables.replace_table("README.md", "engine", short_table(rows))
