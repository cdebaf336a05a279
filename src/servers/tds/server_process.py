"""Starts the test server for a Python program and ends it with the program."""

import os
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))


class ServerProcess:
    def __init__(self, *options):
        self.process = subprocess.Popen(
            [sys.executable, os.path.join(HERE, "tds_server.py"), *options], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True
        )
        line = self.process.stdout.readline()
        if not line.startswith("PORT "):
            raise RuntimeError("the test server did not start")
        self.port = int(line.split()[1])

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.wait(timeout=10)
        self.process.stdout.close()
