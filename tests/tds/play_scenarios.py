"""Plays the register's scenarios against the SQL Server side, then has every statement that they sent parsed as T-SQL by an independent
parser: play_scenarios.py PLAYER INSTALLATION NODE_MODULES SCENARIOS_FOLDER

A scenario that names the embedded engine's own texts (its generators, an insert with its key) or its configuration lines says nothing
about this side and is left out, and so are the few of LEFT_OUT."""

import os
import re
import subprocess
import sys

from server_process import HERE

OTHER_ENGINE = re.compile(r"gen_id|RDB\$|FIREBIRD|\.ini\b|expect sql \"INSERT INTO \w+ \(ID", re.I)
LEFT_OUT = {
    "linhas_demais.roteiro": "a list of 32,768 rows, each with lookups: minutes on a server written in Python",
    "busca_texto_longo_no_indice.roteiro": "a text longer than the keys of Firebird's index",
    "environments_have_bases_of_their_own.roteiro": "the history base, which does not move to the server",
}
LEAST = 80


def scenarios(folder):
    for place, _, names in sorted(os.walk(folder)):
        for name in sorted(names):
            path = os.path.join(place, name)
            if name in LEFT_OUT or not name.endswith(".roteiro"):
                continue
            if not OTHER_ENGINE.search(open(path, encoding="utf-8").read()):
                yield path


def main():
    player, home, modules, folder = sys.argv[1:]
    files, trace = list(scenarios(folder)), os.path.join(home, "sqlserver_trace.sql")
    if len(files) < LEAST:
        sys.exit(f"only {len(files)} scenarios found")
    # Two players side by side: most of their time they wait for their servers.
    parts = [f"{trace}.{number}" for number in range(2)]
    for part in parts:
        open(part, "w").close()
    playing = [subprocess.Popen([player, "--home", home, "--trace", part, *files[n :: len(parts)]]) for n, part in enumerate(parts)]
    failed = any([player.wait() for player in playing])
    statements = {}
    for part in parts:
        with open(part, encoding="utf-8") as file:
            for line in file:
                statements.setdefault(re.sub(r"\d+", "0", line), line)  # those that differ in digits alone are one to a parser
    with open(trace, "w", encoding="utf-8") as file:
        file.writelines(sorted(statements.values()))
    refused = subprocess.run(["node", os.path.join(HERE, "parse_transactsql.js"), modules, trace]).returncode
    sys.exit("scenarios failed on the SQL Server side" if failed else refused)


if __name__ == "__main__":
    main()
