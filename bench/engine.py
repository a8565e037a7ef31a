# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Measures every operation of the engine beside memcpy and the alternatives that people have for it.

Usage: engine.py ENGINE_BENCH [--quick] [--json FILE] [--docs] [--from FILE]... [OPERATION...]
Every row is the median of five rounds after one that does not count. In each round all contestants run in turn, row
after row, so that what disturbs the machine for a while disturbs one round of many rows rather than all rounds of one.
A peer that was over three times slower than the best of a row in the first round is not asked again. In its turn each
works in warm caches, as memcpy does: its first run is not counted unless it takes long. MB/s are megabytes of input.
Times are those of the processor, so that what else runs on the machine matters less (node alone is timed by the clock:
it works in several threads). Before each turn the processor is looked for that is disturbed least, and a better moment
is waited for: for ten minutes in all, and with --quick for what is left of 45 seconds. --from given several times takes
the medians of whole runs, which differ more than the rounds of one do.
"""

import argparse
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

import engine_peers
import engine_table
import measured_rows
import quiet_processor

PERL = r"""
use strict; use warnings; no warnings 'void'; use Time::HiRes 'clock'; use Encode 'decode';
$| = 1; my (%texts, %code);
while (my $line = <STDIN>) {
    chomp $line; my ($path, $kind, $long, $source) = split /\t/, $line, 4;
    $texts{"$kind$path"} //= do { open my $f, '<:raw', $path or die; local $/; my $b = <$f>;
                                  $kind eq 'perlu' ? decode('UTF-8', $b) : $b };
    my $run = $code{$source} //= eval "sub { my \$t = \$_[0]; my \$r; my \$begin = clock; $source; clock() - \$begin }";
    die $@ unless $run;
    my $seconds = $run->($texts{"$kind$path"});
    $seconds = $run->($texts{"$kind$path"}) if $seconds < $long;
    print $seconds, "\n";
}
"""

NODE = r"""
const fs = require('fs'), texts = {}, code = {};
require('readline').createInterface({input: process.stdin}).on('line', line => {
    const [path, kind, long, source] = line.split('\t');
    const bytes = fs.readFileSync(path);
    texts[kind + path] ??= kind == 'node' ? bytes.toString() : bytes;
    code[source] ??= new Function('t', 'return ' + source);
    const run = () => {
        const begin = process.hrtime.bigint();
        globalThis.result = code[source](texts[kind + path]);
        if (typeof globalThis.result == 'string') globalThis.result.charCodeAt(globalThis.result.length >> 1); // flattens
        return Number(process.hrtime.bigint() - begin) / 1e9;
    };
    const seconds = run();
    console.log(seconds < Number(long) ? run() : seconds);
});
"""


ROUNDS = 5
QUICK_SECONDS = 45  # that a quick run may take with its waiting
SECONDS_FOR_OURS = 6  # of these, kept for the turns of the engine


class Server:
    """A process that answers every line of its input with a number of seconds."""

    def __init__(self, *command):
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def ask(self, *fields):
        self.process.stdin.write("\t".join(fields) + "\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline()
        if not answer:
            sys.exit(f"engine.py: no answer to {fields}")
        return float(answer)

    def end(self):
        self.process.stdin.close()
        self.process.wait()


class Bench:
    def __init__(self, program, folder, quick):
        self.folder = folder
        self.milliseconds = 1.5 if quick else 20
        self.hopeless = 2 if quick else 3  # times slower than the best: not asked again
        self.long = 1000  # seconds from which on the first run of a turn is counted: of the very first, none
        self.engine = Server(program, "serve", folder)
        self.servers = {}
        for kind, command in (("perl", ["perl", "-e", PERL]), ("node", ["node", "-e", NODE])):
            if shutil.which(kind):
                self.servers[kind] = Server(*command)
        self.texts = {}
        self.missing = set()
        self.quiet_processor = quiet_processor.QuietProcessor(patience=600)
        self.is_quick = quick
        self.begin = time.monotonic()
        self.part_done = 0  # of all rows' rounds

    def before_turn(self, is_ours=False):
        if self.is_quick:  # it may wait for as long as it is ahead of its time, the others only when it is well ahead
            ahead = QUICK_SECONDS * self.part_done - (time.monotonic() - self.begin)
            self.quiet_processor.patience = max(0, ahead - (0 if is_ours else SECONDS_FOR_OURS))
        self.quiet_processor.move_there(*(server.process.pid for server in (self.engine, *self.servers.values())))

    def path(self, name):
        return os.path.join(self.folder, name)

    def text(self, name, kind):
        if (name, kind) not in self.texts:
            with open(self.path(name), "rb") as file:
                content = file.read()
            self.texts[name, kind] = content.decode() if kind == "py" else content
        return self.texts[name, kind]

    def half(self, corpus):
        return str(self.text(corpus, "pyb").count(b"\n") // 2)

    def command_seconds(self, command, path):
        """Of the command alone: whoever reads its output is not counted. (To /dev/null, grep would not write at all.)"""
        with open(path, "rb") as file:
            process = subprocess.Popen(["sh", "-c", "exec " + command], stdin=file, stdout=subprocess.PIPE,
                                       env=dict(os.environ, LC_ALL="C"))
            quiet_processor.leave()  # the command has it alone
            while os.read(process.stdout.fileno(), 1 << 20):
                pass
            process.stdout.close()
            usage = os.wait4(process.pid, 0)[2]
            process.returncode = 0
            return usage.ru_utime + usage.ru_stime

    def warm_seconds(self, run):
        """What `run`, which returns the seconds that it took, takes in warm caches."""
        seconds = run()
        if seconds >= self.long:
            return seconds
        self.before_turn()
        return run()

    def python_seconds(self, function, text):
        begin = time.process_time()
        runs = 0
        while runs == 0 or time.process_time() - begin < self.milliseconds / 1000:
            function(text)
            runs += 1
        return (time.process_time() - begin) / runs

    def peer_seconds(self, kind, code, name, corpus):
        """One run, or None when the peer is not installed."""
        if kind in ("py", "pyb"):
            return self.warm_seconds(lambda: self.python_seconds(code, self.text(name, kind)))
        if kind in ("sh", "part"):
            tool = code.removeprefix("env LC_ALL=C.UTF-8 ").split()[0]
            if not shutil.which(tool):
                self.missing.add(tool)
                return None
            command = code.replace("HALF", self.half(corpus))
            elapsed = self.warm_seconds(lambda: self.command_seconds(command, self.path(name)))
            if kind == "part":
                return max(elapsed - self.command_seconds(code.replace("HALF", "1"), os.devnull), elapsed / 3)
            # Less a process that reads and writes and does nothing else. On small corpora little is left and uncertain:
            # not less than a third is counted.
            return max(elapsed - self.command_seconds("cat", self.path(name)), elapsed / 3)
        server = self.servers.get(kind[:4])
        if server is None:
            self.missing.add(kind[:4])
            return None
        return server.ask(self.path(name), kind, str(self.long), code)

    def end(self):
        for server in (self.engine, *self.servers.values()):
            server.end()


class Measurement:
    """A row of the table in the making: an operation on a corpus, beside its peers."""

    def __init__(self, bench, row, corpus):
        self.bench = bench
        self.row = row
        self.corpus = corpus
        self.name = corpus + row.reads
        self.parameters = []
        for key, value in row.parameters.items():
            self.parameters += [key, bench.half(corpus) if value == "HALF" else value]
        self.peers = [peer for peer in row.peers if corpus in peer[3]]
        self.seconds = {"ours": [], "memcpy": []}

    def run_round(self):
        bench = self.bench
        milliseconds = str(bench.milliseconds)
        bench.before_turn(is_ours=True)
        self.seconds["ours"].append(bench.engine.ask(self.row.operation, self.name, milliseconds, *self.parameters))
        bench.before_turn()
        self.seconds["memcpy"].append(bench.engine.ask("memcpy", self.name, milliseconds))
        for peer, kind, code, _corpora in self.peers:
            bench.before_turn()
            elapsed = bench.peer_seconds(kind, code, self.name, self.corpus)
            if elapsed is not None:
                self.seconds.setdefault(peer, []).append(max(elapsed, 1e-6))

    def leave_out_hopeless_peers(self):
        first = {peer: self.seconds[peer][0] for peer, *_rest in self.peers if peer in self.seconds}
        self.peers = [peer for peer in self.peers
                      if peer[0] in first and first[peer[0]] < self.bench.hopeless * min(first.values())]

    def result(self):
        size = os.path.getsize(self.bench.path(self.name)) / 1e6
        speeds = {contestant: size / statistics.median(times[1:] or times)
                  for contestant, times in self.seconds.items()}
        ours = speeds.pop("ours")
        return result_row(self.row.label, self.corpus, ours, ours / speeds.pop("memcpy"), speeds)


def result_row(label, corpus, ours, memcpy_fraction, peers):
    best = max(peers, key=peers.get) if peers else ""
    return {
        "operation": label, "corpus": corpus, "ours_mb_s": round(ours, 1), "peer": best,
        "peer_mb_s": round(peers[best], 1) if best else None,
        "ratio": round(ours / peers[best], 2) if best else None, "memcpy_fraction": float(f"{memcpy_fraction:.3g}"),
        "others": {peer: round(speed, 1) for peer, speed in peers.items() if peer != best},
    }


def combined_row(rows):
    """The medians of one row in several runs. Of the peers, those that were there in all."""
    def median(value):
        return statistics.median(map(value, rows))

    peers_of = [row["others"] | ({row["peer"]: row["peer_mb_s"]} if row["peer"] else {}) for row in rows]
    measured = set(peers_of[0]).intersection(*peers_of[1:])
    peers = {peer: statistics.median(speeds[peer] for speeds in peers_of) for peer in peers_of[0] if peer in measured}
    return result_row(rows[0]["operation"], rows[0]["corpus"], median(lambda row: row["ours_mb_s"]),
                      median(lambda row: row["memcpy_fraction"]), peers)


def combined(runs):
    if len({tuple((row["operation"], row["corpus"]) for row in run) for run in runs}) > 1:
        sys.exit("engine.py: these runs did not measure the same")
    return [combined_row(rows) for rows in zip(*runs)]


def show(results):
    print(f"{'operation':32} corpus {'ours':>7} {'memcpy':>6} {'ratio':>7} {'peer':>7}  (MB/s; memcpy is 1)")
    for result in results:
        others = ", ".join(f"{peer} {speed:.0f}" for peer, speed in result["others"].items())
        print(f"{result['operation']:32} {result['corpus']}      {result['ours_mb_s']:7.0f} "
              f"{result['memcpy_fraction']:6.3f} {result['ratio'] or 0:7.1f} {result['peer_mb_s'] or 0:7.0f}"
              f"  {result['peer']}" + (f" ({others})" if others else ""))


def measure_all(given):
    with tempfile.TemporaryDirectory() as folder:
        megabytes = 0.5 if given.quick else 20
        subprocess.run([given.program, "make", folder, str(int(megabytes * 1_000_000))], check=True)
        bench = Bench(given.program, folder, given.quick)
        measurements = [Measurement(bench, row, corpus) for row in engine_peers.rows()
                        if not given.operations or row.operation in given.operations for corpus in "ABC"]
        turns = [measurement for _round in range(ROUNDS + 1) for measurement in measurements]
        for done, measurement in enumerate(turns):
            if done == len(measurements):
                bench.long = 0.01 if given.quick else 0.05
            if done % len(measurements) == 0 and done > 0:
                print(f"round {done // len(measurements)} of {ROUNDS}", file=sys.stderr, flush=True)
            measurement.run_round()
            if done < len(measurements):
                measurement.leave_out_hopeless_peers()
            bench.part_done = (done + 1) / len(turns)
        results = [measurement.result() for measurement in measurements]
        show(results)
        if bench.missing:
            print("Not installed and so left out: " + ", ".join(sorted(bench.missing)))
        bench.end()
    return results


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("program")
    arguments.add_argument("--quick", action="store_true", help="smaller corpora: done within 50 seconds")
    measured_rows.add_options(arguments)
    arguments.add_argument("operations", nargs="*", help="measure only these")
    given = arguments.parse_intermixed_args()
    if given.docs and (given.quick or given.operations):
        arguments.error("the tables of the documents are of all operations on the large texts")
    rows = measured_rows.rows(given, measure_all, combined)
    if given.docs:
        engine_table.write_docs(rows, runs=max(1, len(given.measured)))


if __name__ == "__main__":
    main()
