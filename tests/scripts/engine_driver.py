# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""The engine, as a Python object: one lexivore_engine_driver process that is asked again and again."""

import json
import subprocess


class EngineDriver:
    def __init__(self, path):
        self.process = subprocess.Popen([path], stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def ask_bytes(self, line):
        """The answer, as bytes without the line feed, to one line of bytes."""
        self.process.stdin.write(line + b"\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline()
        if not answer.endswith(b"\n"):
            raise RuntimeError(f"The driver ended (exit status {self.process.wait()}) instead of answering {line!r}")
        return answer[:-1]

    def ask(self, request, ensure_ascii=True):
        """The answer to a request, both as Python objects."""
        return json.loads(self.ask_bytes(json.dumps(request, ensure_ascii=ensure_ascii).encode("utf-8")))

    def apply(self, identifier, text, **parameters):
        return self.ask({"id": identifier, "text": text, "parameters": parameters})

    def close(self):
        """Ends the process and returns what else it wrote, and its exit status."""
        rest, _ = self.process.communicate()
        return rest, self.process.returncode
