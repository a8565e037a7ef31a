# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""Measures every operation of the engine beside memcpy and the alternatives that people have for it.

Usage: engine.py ENGINE_BENCH [--quick] [--json FILE] [--docs] [OPERATION...]
Every row is the median of five rounds in which the contestants run in turn, after a round that does
not count; a peer that was over four times slower than the best of them in that round is not asked again. In its turn
each of them works in warm caches, as memcpy does: its first run is not counted unless it takes long. MB/s are
megabytes of input. Times are those of the processor, so that what else runs on the machine matters less (node alone is
timed by the clock: it works in several threads).
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

PERL = r"""
use strict; use warnings; no warnings 'void'; use Time::HiRes 'clock'; use Encode 'decode';
$| = 1; my (%texts, %code);
while (my $line = <STDIN>) {
    chomp $line; my ($path, $kind, $source) = split /\t/, $line, 3;
    $texts{"$kind$path"} //= do { open my $f, '<:raw', $path or die; local $/; my $b = <$f>;
                                  $kind eq 'perlu' ? decode('UTF-8', $b) : $b };
    my $run = $code{$source} //= eval "sub { my \$t = \$_[0]; my \$r; my \$begin = clock; $source; clock() - \$begin }";
    die $@ unless $run;
    my $seconds = $run->($texts{"$kind$path"});
    $seconds = $run->($texts{"$kind$path"}) if $seconds < LONG;
    print $seconds, "\n";
}
"""

NODE = r"""
const fs = require('fs'), texts = {}, code = {};
require('readline').createInterface({input: process.stdin}).on('line', line => {
    const [path, kind, source] = line.split('\t');
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
    console.log(seconds < LONG ? run() : seconds);
});
"""

# Seconds from which on the first run of a turn is counted.
LONG = 0.05


def warm_seconds(run):
    """What `run`, which returns the seconds that it took, takes in warm caches."""
    seconds = run()
    return run() if seconds < LONG else seconds


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
        self.milliseconds = 3 if quick else 20
        self.rounds = 5
        self.engine = Server(program, "serve", folder)
        self.servers = {}
        for kind, command in (("perl", ["perl", "-e", PERL]), ("node", ["node", "-e", NODE])):
            if shutil.which(kind):
                self.servers[kind] = Server(*command[:-1], command[-1].replace("LONG", str(LONG)))
        self.texts = {}
        self.missing = set()

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
            while os.read(process.stdout.fileno(), 1 << 20):
                pass
            process.stdout.close()
            usage = os.wait4(process.pid, 0)[2]
            process.returncode = 0
            return usage.ru_utime + usage.ru_stime

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
            return warm_seconds(lambda: self.python_seconds(code, self.text(name, kind)))
        if kind in ("sh", "part"):
            tool = code.removeprefix("env LC_ALL=C.UTF-8 ").split()[0]
            if not shutil.which(tool):
                self.missing.add(tool)
                return None
            command = code.replace("HALF", self.half(corpus))
            elapsed = warm_seconds(lambda: self.command_seconds(command, self.path(name)))
            if kind == "part":
                return max(elapsed - self.command_seconds(code.replace("HALF", "1"), os.devnull), elapsed / 3)
            # Less a process that reads and writes and does nothing else. On small corpora little is left and uncertain:
            # not less than a third is counted.
            return max(elapsed - self.command_seconds("cat", self.path(name)), elapsed / 3)
        server = self.servers.get(kind[:4])
        if server is None:
            self.missing.add(kind[:4])
            return None
        return server.ask(self.path(name), kind, code)

    def measure(self, row, corpus):
        name = corpus + row.reads
        size = os.path.getsize(self.path(name)) / 1e6
        parameters = []
        for key, value in row.parameters.items():
            parameters += [key, self.half(corpus) if value == "HALF" else value]
        peers = [peer for peer in row.peers if corpus in peer[3]]
        seconds = {"ours": [], "memcpy": []}
        for round_number in range(1 + self.rounds):
            seconds["ours"].append(self.engine.ask(row.operation, name, str(self.milliseconds), *parameters))
            seconds["memcpy"].append(self.engine.ask("memcpy", name, str(self.milliseconds)))
            for peer, kind, code, _corpora in peers:
                elapsed = self.peer_seconds(kind, code, name, corpus)
                if elapsed is not None:
                    seconds.setdefault(peer, []).append(max(elapsed, 1e-6))
            if round_number == 0:
                first = {peer: seconds[peer][0] for peer, *_rest in peers if peer in seconds}
                peers = [peer for peer in peers if peer[0] in first and first[peer[0]] < 4 * min(first.values())]
        speed = {contestant: size / statistics.median(times[1:] or times) for contestant, times in seconds.items()}
        ours = speed.pop("ours")
        fraction = ours / speed.pop("memcpy")
        best = max(speed, key=speed.get) if speed else ""
        return {
            "operation": row.label, "corpus": corpus, "ours_mb_s": round(ours, 1), "peer": best,
            "peer_mb_s": round(speed[best], 1) if best else None,
            "ratio": round(ours / speed[best], 2) if best else None, "memcpy_fraction": round(fraction, 3),
            "others": {peer: round(value, 1) for peer, value in speed.items() if peer != best},
        }

    def end(self):
        for server in (self.engine, *self.servers.values()):
            server.end()


def measure_all(given):
    with tempfile.TemporaryDirectory() as folder:
        megabytes = 1.25 if given.quick else 20
        subprocess.run([given.program, "make", folder, str(int(megabytes * 1_000_000))], check=True)
        bench = Bench(given.program, folder, given.quick)
        results = []
        print(f"{'operation':32} corpus {'ours':>7} {'memcpy':>6} {'ratio':>7} {'peer':>7}  (MB/s; memcpy is 1)")
        for row in engine_peers.rows():
            if given.operations and row.operation not in given.operations:
                continue
            for corpus in "ABC":
                result = bench.measure(row, corpus)
                results.append(result)
                others = ", ".join(f"{peer} {speed:.0f}" for peer, speed in result["others"].items())
                print(f"{result['operation']:32} {corpus}      {result['ours_mb_s']:7.0f} "
                      f"{result['memcpy_fraction']:6.3f} {result['ratio'] or 0:7.1f} {result['peer_mb_s'] or 0:7.0f}"
                      f"  {result['peer']}" + (f" ({others})" if others else ""), flush=True)
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
    rows = measured_rows.rows(given, measure_all)
    if given.docs:
        engine_table.write_docs(rows)


if __name__ == "__main__":
    main()
