# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Finds a processor that nobody disturbs at the moment.

A processor of a virtual machine is often one of two threads of a core whose other one is somebody else's. While that
works, ours has little more than half the speed, for seconds, and the processor beside it may have all of it. Two
programs that happen to run on different ones, or one after the other, cannot be compared then.

Usage: quiet_processor.py COMMAND...   (runs the command there)
"""

import contextlib
import os
import sys
import time

MOST_CANDIDATES = 4
EVERY = os.sched_getaffinity(0)
CANDIDATES = sorted(EVERY)[:MOST_CANDIDATES]


class QuietProcessor:
    def __init__(self, patience):
        """`patience`: for how many seconds to wait in all for a better moment."""
        self.patience = patience
        self.least = float("inf")

    def move_there(self, *process_ids):
        """This process, and the main threads of those, are on it alone from now on. It takes a millisecond, or up to a
        second of the patience while every processor is disturbed."""
        begin = time.monotonic()
        while True:
            seconds, quietest = min((seconds_of_some_work(processor), processor) for processor in CANDIDATES)
            self.least = min(self.least, seconds)
            waited = time.monotonic() - begin
            if seconds < 1.15 * self.least or waited > min(1, self.patience):
                break
        self.patience -= waited
        for process_id in (0, *process_ids):
            os.sched_setaffinity(process_id, {quietest})

    @contextlib.contextmanager
    def for_children(self):
        """What this process starts within the block is there alone, itself is anywhere."""
        self.move_there()
        try:
            yield
        finally:
            leave()


def seconds_of_some_work(processor):
    os.sched_setaffinity(0, {processor})
    least = float("inf")
    for _attempt in range(2):
        begin = time.process_time()
        sum(range(3_000))
        least = min(least, time.process_time() - begin)
    return least


def leave():
    """This process may be on any processor again."""
    os.sched_setaffinity(0, EVERY)


if __name__ == "__main__":
    QuietProcessor(patience=0).move_there()
    os.execvp(sys.argv[1], sys.argv[1:])
