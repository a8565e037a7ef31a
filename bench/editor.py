# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Times the editor beside the toolkit's own one, each through its widget on an X server of their own.

Usage: editor.py EDITOR_BENCH [--quick] [--cpu] [--json FILE] [--docs] [--from FILE] [TEXT...]
Every value is the median or the worst of up to 200 times, from the call or the event to the finished paint, by the
clock. The stock editor takes minutes for some texts: one that does not finish an action within 10 seconds, or a text
within 40, is not asked any further (with --cpu, on a machine that is busy, within ten times as long), and neither is one
that leaves its window empty. Each program has the processor that is disturbed least when it starts, the X server any.
Exits with 1 when a limit is missed.
"""

import argparse
import json
import os
import selectors
import subprocess
import sys
import tempfile
import time

import marked_tables
import measured_rows
import quiet_processor

MOST_SECONDS_PER_ACTION = 10
MOST_SECONDS_PER_TEXT = 40

KEYSTROKES = ["keystroke at the start", "keystroke in the middle", "keystroke at the end"]
SCROLLING = ["scroll to the end", "drag of the scroll bar"]
EVERYTHING = KEYSTROKES + ["click", "End", "Page Down", "select all", "resize"]
SHAPES = [("lines", "in lines of about 80"), ("spaces", "in one line with spaces"), ("endless", "in one line without")]


def cases():
    """What is measured: the text's name, its kind and megabytes for the program, and the limits of the median and of
    the worst for each action."""
    for kind, name in SHAPES:
        yield f"10 MB {name}", kind, 10, {"show a new text": (30, None), **{action: (16, 33) for action in EVERYTHING}}
    yield "10 MB of four scripts and emoji in one line", "scripts", 10, {
        "show a new text": (60, None), **{action: (33, 33) for action in KEYSTROKES}}
    for kind, name in SHAPES:
        yield f"100 MB {name}", kind, 100, {
            "show a new text": (150, None), "show, in copies of the text": (3, None),
            **{action: (16, 50) for action in KEYSTROKES + SCROLLING}}
    yield "100 MB in lines of about 80", "memory", 100, {"text, view and a history entry": (3, None)}


class Display:
    """An X server for as long as the block runs; gives the environment that leads to it."""

    def __enter__(self):
        self.folder = tempfile.TemporaryDirectory()
        read, write = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x1024x24"],
                                       pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            name = ":" + number.readline().strip()
        if name == ":":
            sys.exit("editor.py: Xvfb did not start")
        return dict(os.environ, DISPLAY=name, QT_QPA_PLATFORM="xcb", XDG_RUNTIME_DIR=self.folder.name)

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()
        self.folder.cleanup()


def measured(program, environment, quiet, editor, kind, megabytes, actions, options):
    """The program's row for each of these actions, as far as it got. Where it was stopped the row is a word on why."""
    command = [program, editor, kind, str(megabytes), *options]
    with quiet.for_children():
        process = subprocess.Popen(command, env=environment, stdout=subprocess.PIPE)
    rows = {}
    is_patient = editor == "ours"
    patience = 10 if "--cpu" in options else 1
    text_ends = None  # the time counts from when the text is there
    with selectors.DefaultSelector() as selector:
        selector.register(process.stdout, selectors.EVENT_READ)
        while set(actions) - set(rows):
            wait = None
            if not is_patient and text_ends is not None:
                wait = max(0, min(MOST_SECONDS_PER_ACTION * patience, text_ends - time.monotonic()))
            if not selector.select(wait):
                rows[next(action for action in actions if action not in rows)] = f"not within {MOST_SECONDS_PER_ACTION} s"
                break
            line = process.stdout.readline()
            if not line:
                sys.exit(f"editor.py: {' '.join(command)} ended with {process.wait()}")
            row = json.loads(line)
            if row.get("is_blank"):
                rows[actions[0]] = "shows nothing"
                break
            rows[row["action"]] = row
            text_ends = text_ends or time.monotonic() + MOST_SECONDS_PER_TEXT * patience
    process.kill()
    process.wait()
    return rows


def rows_of(case, ours, stock, limits):
    for action, both_limits in limits.items():
        for what, limit in zip(("median", "worst"), both_limits):
            if limit is None:
                continue
            row = ours[action]
            of_stock = stock.get(action)
            gave_up = isinstance(of_stock, str)
            yield {"case": case, "action": action + (f", {what}" if both_limits[1] else ""),
                   "value": round(row[what], 2), "limit": limit, "unit": row["unit"],
                   "stock": round(of_stock[what], 2) if of_stock and not gave_up else None,
                   "stock_gave_up": of_stock if gave_up else None}


def stock_value(row):
    if row["stock_gave_up"]:
        return row["stock_gave_up"]
    return f"{row['stock']:.4g}" if row["stock"] is not None else ""


def full_table(results):
    table = ["| text | action | value | at most | the stock editor |", "|---|---|---|---|---|"]
    last = None
    for row in results:
        name = row["case"] if row["case"] != last else ""
        last = row["case"]
        unit = row["unit"]
        table.append(f"| {name} | {row['action']} | {row['value']:.4g} {unit} | {row['limit']} {unit} "
                     f"| {stock_value(row)} |")
    return table


def short_table(results):
    row_of = {(row["case"], row["action"]): row for row in results}
    table = ["| | shown: Lexivore | the stock editor | a keystroke: Lexivore | the stock editor |",
             "|---|--:|--:|--:|--:|"]
    for case in (f"{megabytes} MB {name}" for megabytes in (10, 100) for _, name in SHAPES):
        cells = []
        for action in "show a new text", "keystroke in the middle, median":
            row = row_of[case, action]
            cells += [f"{row['value']:.1f}", stock_value(row)]
        table.append(f"| {case} | {' | '.join(cells)} |")
    return table


def measure_all(given):
    options = [option for option, is_given in (("--quick", given.quick), ("--cpu", given.cpu)) if is_given]
    results = []
    quiet = quiet_processor.QuietProcessor(patience=60)
    print(f"{'':73} {'value':>9} {'limit':>6} {'stock':>10}")
    with Display() as environment:
        for case, kind, megabytes, limits in cases():
            if given.texts and not any(text in case for text in given.texts):
                continue
            ours = measured(given.program, environment, quiet, "ours", kind, megabytes, list(limits), options)
            stock = measured(given.program, environment, quiet, "stock", kind, megabytes, list(limits), options)
            for row in rows_of(case, ours, stock, limits):
                results.append(row)
                print(f"{case:43} {row['action']:30} {row['value']:8.2f} {row['limit']:6} {row['unit']:6} "
                      f"{stock_value(row):>10} {'MISSED' if row['value'] > row['limit'] else ''}", flush=True)
    return results


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("program")
    arguments.add_argument("--quick", action="store_true", help="every action 40 times instead of 200")
    arguments.add_argument("--cpu", action="store_true", help="the processor's time, for a machine that is busy")
    measured_rows.add_options(arguments)
    arguments.add_argument("texts", nargs="*", help="measure only texts whose name holds one of these")
    given = arguments.parse_intermixed_args()
    if given.docs and given.texts:
        arguments.error("the tables of the documents are of all texts")
    rows = measured_rows.rows(given, measure_all)
    if given.docs:
        marked_tables.replace_table("docs/benchmarks.md", "editor", full_table(rows))
        marked_tables.replace_table("README.md", "editor", short_table(rows))
    sys.exit(any(row["value"] > row["limit"] for row in rows))


if __name__ == "__main__":
    main()
