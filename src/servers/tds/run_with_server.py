"""Runs a program with a test server of its own, whose connection string it finds in VORTA_TEST_SQLSERVER:
run_with_server.py [SERVER OPTION...] -- PROGRAM [ARGUMENT...]

Server and program get processors of their own: where the scheduler happens to put two processes that answer each other makes half
as much again of a figure, and would decide every measurement."""

import os
import subprocess
import sys

from server_process import ServerProcess


def keep_apart(server):
    processors = sorted(os.sched_getaffinity(0))
    if len(processors) < 2:
        return
    for thread in os.listdir(f"/proc/{server.pid}/task"):
        os.sched_setaffinity(int(thread), processors[-1:])
    os.sched_setaffinity(0, processors[:-1])


def main():
    divider = sys.argv.index("--")
    with ServerProcess(*sys.argv[1:divider]) as server:
        keep_apart(server.process)
        text = f"driver={{SQL Server}};server=127.0.0.1,{server.port};uid=vorta;pwd=vorta;database=VORTA"
        return subprocess.run(sys.argv[divider + 1 :], env=dict(os.environ, VORTA_TEST_SQLSERVER=text)).returncode


if __name__ == "__main__":
    sys.exit(main())
