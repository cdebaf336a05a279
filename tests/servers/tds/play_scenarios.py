"""Plays the register's scenarios on SQL Server: play_scenarios.py PLAYER INSTALLATION SCENARIOS_FOLDER [OPTION...]

--modules NODE_MODULES  afterwards has every statement that they sent and the server took parsed as T-SQL by an independent parser
--only REGEX            plays the files whose paths match
--least N               fails when fewer are found, as a check that the search for them works
Any other option is the player's: --tag TAG, --desktop, --server 'server=...;uid=...;pwd=...;database=...'."""

import argparse
import os
import re
import subprocess
import sys
import tempfile

from here import HERE

LEFT_OUT_ON_A_GIVEN_SERVER = {
    "launch/environments_have_bases_of_their_own": "one database has room for one environment",
}


def scenarios(folder, pattern, left_out):
    for place, _, names in sorted(os.walk(folder)):
        for name in sorted(names):
            path, extension = os.path.splitext(os.path.relpath(os.path.join(place, name), folder))
            if extension == ".roteiro" and path not in left_out and re.search(pattern, path):
                yield path + extension


def taken(wire):
    """The statements that a server has got and not refused."""
    with open(wire, encoding="utf-8") as file:
        lines = file.read().split("\n")
    return {line for line, next_line in zip(lines, lines[1:]) if not next_line.startswith("-- refused")}


def for_the_parser(trace, wire):
    on_the_wire, found = taken(wire), {}
    with open(trace, encoding="utf-8") as file:
        for line in file.read().split("\n"):
            statement = line.replace("\\n", " ")
            if statement in on_the_wire:
                found.setdefault(re.sub(r"\d+", "0", statement), statement)  # those that differ in digits alone are one to a parser
    return sorted(found.values())


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("player")
    parser.add_argument("home")
    parser.add_argument("folder")
    parser.add_argument("--modules")
    parser.add_argument("--only", default="")
    parser.add_argument("--least", type=int, default=1)
    options, of_the_player = parser.parse_known_args()

    files = list(scenarios(options.folder, options.only, LEFT_OUT_ON_A_GIVEN_SERVER if "--server" in of_the_player else {}))
    if len(files) < options.least:
        sys.exit(f"only {len(files)} scenarios found")
    command = [os.path.abspath(options.player), "--engine", "sqlserver", "--home", os.path.abspath(options.home), *of_the_player]
    with tempfile.TemporaryDirectory() as folder:
        trace, wire, statements = (os.path.join(folder, name) for name in ("trace", "wire", "statements"))
        if options.modules:
            command += ["--trace", trace, "--wire", wire]
        status = subprocess.run(command + files, cwd=options.folder).returncode
        if status or not options.modules:
            sys.exit(status)
        with open(statements, "w", encoding="utf-8") as file:
            file.writelines(statement + "\n" for statement in for_the_parser(trace, wire))
        sys.exit(subprocess.run(["node", os.path.join(HERE, "parse_transactsql.js"), options.modules, statements]).returncode)


if __name__ == "__main__":
    main()
