#!/usr/bin/env python3
"""Plays scenarios by a player that has no engine to prepare databases with, as the one for Windows under Wine:
play_standing.py HOST_PLAYER INSTALLATION SCENARIOS_FOLDER LIST -- PLAYER [ARGUMENT...]

HOST_PLAYER, which has an engine, says once what the databases of the INSTALLATION hold. Each scenario of LIST (a file, one a line) then gets
a test server of its own with these databases, and PLAYER is told its port (`--standing`). Prints the player's line for each, and in the
end how many passed; ends with 1 when one failed."""

import os
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "src", "servers", "tds"))

from server_process import ServerProcess  # noqa: E402

DATABASES = ("VORTA", "CEP")
SECONDS = 300


def prepare(host_player, installation, folder):
    """The installation without its database files, and the files that the server is loaded with."""
    home, loaded, only_launched = (os.path.join(folder, name) for name in ("home", "loaded", "launch.roteiro"))
    shutil.copytree(installation, home, ignore=shutil.ignore_patterns("*.fdb", "*.guarda", "lock"))
    os.mkdir(loaded)
    with open(only_launched, "w", encoding="utf-8") as file:
        file.write('launch "1^1^PRD^False^"\nexpect nobox\n')
    command = [host_player, "--engine", "sqlserver", "--home", installation, "--keep", loaded, only_launched]
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return home, loaded


def play(player, home, loaded, folder, scenario):
    options = ["--collation", "Latin1_General_CI_AI", "--ddl", os.path.join(loaded, "tables.sql"), "--load", os.path.join(loaded, "rows.jsonl")]
    for database in DATABASES:
        options += ["--database", database]
    with ServerProcess(*options) as server:
        command = [*player, "--engine", "sqlserver", "--standing", str(server.port), "--home", home, scenario]
        try:
            done = subprocess.run(command, cwd=folder, capture_output=True, timeout=SECONDS)
        except subprocess.TimeoutExpired:
            return f"not ok {scenario}: no end after {SECONDS} seconds"
    said, complaints = (stream.decode("utf-8", "replace").splitlines() for stream in (done.stdout, done.stderr))
    lines = [line for line in said if line.startswith(("ok ", "not ok "))]
    return lines[0] if lines else f"not ok {scenario}: {(complaints or ['no verdict'])[-1]}"


def main():
    if len(sys.argv) < 7 or sys.argv[5] != "--":
        sys.exit(__doc__)
    host_player, installation, scenarios_folder, listed = (os.path.abspath(word) for word in sys.argv[1:5])
    with open(listed, encoding="utf-8") as file:
        scenarios = [line.strip() for line in file if line.strip() and not line.startswith("#")]
    passed = 0
    with tempfile.TemporaryDirectory() as folder:
        home, loaded = prepare(host_player, installation, folder)
        for scenario in scenarios:
            said = play(sys.argv[6:], home, loaded, scenarios_folder, scenario)
            passed += said.startswith("ok ")
            print(said, flush=True)
    print(f"{passed} passed, {len(scenarios) - passed} failed")
    sys.exit(0 if scenarios and passed == len(scenarios) else 1)


if __name__ == "__main__":
    main()
