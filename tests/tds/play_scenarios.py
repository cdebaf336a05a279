"""Plays the register's scenarios against the SQL Server side, then has every statement that they sent parsed as T-SQL by an independent
parser: play_scenarios.py PLAYER INSTALLATION NODE_MODULES SCENARIOS_FOLDER

A scenario that names the embedded engine's own texts (its generators, an insert with its key) or its configuration lines says nothing
about this side and is left out."""

import os
import re
import subprocess
import sys

from server_process import HERE

OTHER_ENGINE = re.compile(r"gen_id|RDB\$|FIREBIRD|\.ini\b|expect sql \"INSERT INTO \w+ \(ID", re.I)
LEAST = 80


def scenarios(folder):
    for place, _, names in sorted(os.walk(folder)):
        for name in sorted(names):
            path = os.path.join(place, name)
            if name.endswith(".roteiro") and not OTHER_ENGINE.search(open(path, encoding="utf-8").read()):
                yield path


def main():
    player, home, modules, folder = sys.argv[1:]
    files, trace = list(scenarios(folder)), os.path.join(home, "sqlserver_trace.sql")
    if len(files) < LEAST:
        sys.exit(f"only {len(files)} scenarios found")
    if os.path.exists(trace):
        os.remove(trace)
    played = subprocess.run([player, "--home", home, "--trace", trace, *files])
    if played.returncode:
        sys.exit("scenarios failed on the SQL Server side")
    with open(trace, encoding="utf-8") as file:
        statements = sorted(set(file))
    with open(trace, "w", encoding="utf-8") as file:
        file.writelines(statements)
    sys.exit(subprocess.run(["node", os.path.join(HERE, "parse_transactsql.js"), modules, trace]).returncode)


if __name__ == "__main__":
    main()
