#!/usr/bin/env python3
"""Plays scenarios by a player that has no engine to prepare databases with, as the one for Windows under Wine:
play_standing.py HOST_PLAYER INSTALLATION SCENARIOS_FOLDER [OPTION...] -- PLAYER [ARGUMENT...]

HOST_PLAYER, which has an engine, prepares the databases of the INSTALLATION for each scenario: it runs the statements in front of the
launch, and says what the databases hold then. PLAYER gets the scenario without these statements, and the port of a test server that is
loaded so (`--standing`). Prints the player's line for each, and in the end how many passed; ends with 1 when one failed.

--ways model,windows  how each scenario is played, "windows" being the player's `--desktop`; both, unless told otherwise
--left-out FILE       paths of scenarios that are not played, one a line, each behind its reason, a line that begins with "#"
--only REGEX          plays the scenarios whose paths match
--least N             fails when fewer are found, as a check that the search for them works
--jobs N              so many at once; 2, unless told otherwise"""

import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "src", "servers", "tds"))

from server_process import ServerProcess  # noqa: E402

DATABASES = ("VORTA", "HISTORICO", "DESENVOLVIMENTO", "CEP")
SECONDS = 300
WAYS = {"model": [], "windows": ["--desktop"]}
STATEMENT = re.compile(r"(only \w+ )?(sql|sqlcep) ")
LAUNCH = re.compile(r'launch "(?:[^"^]*\^){2}(HIST|DEV)')


class Scenario:
    """A scenario in two parts: the statements in front of its launch, and all the rest on the lines on which it stands."""

    def __init__(self, folder, path):
        self.path = path
        with open(os.path.join(folder, path), encoding="utf-8") as file:
            lines = file.read().split("\n")
        launch = next((at for at, line in enumerate(lines) if line.startswith("launch ")), len(lines))
        environment = LAUNCH.match(lines[launch]) if launch < len(lines) else None
        prepared = [line for line in lines[:launch] if STATEMENT.match(line)]
        rest = ["" if at < launch and STATEMENT.match(line) else line for at, line in enumerate(lines)]
        self.preparation = "\n".join([*prepared, f'launch "1^1^{environment[1] if environment else "PRD"}^False^"', ""])
        self.rest = "\n".join(rest)


def write(path, text):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8", newline="") as file:
        file.write(text)


def prepare(host_player, installation, text, folder):
    """What the server is loaded with stands in the folder then; or the complaint about it."""
    file = os.path.join(folder, "preparation.roteiro")
    write(file, text)
    done = subprocess.run([host_player, "--engine", "sqlserver", "--home", installation, "--keep", folder, file], capture_output=True)
    if all(os.path.exists(os.path.join(folder, name)) for name in ("tables.sql", "rows.jsonl")):
        return None
    return (done.stdout + done.stderr).decode("utf-8", "replace").strip() or "nothing was kept"


def play(player, home, loaded, folder, scenario):
    options = ["--collation", "Latin1_General_CI_AI", "--ddl", os.path.join(loaded, "tables.sql"), "--load", os.path.join(loaded, "rows.jsonl")]
    for database in DATABASES:
        options += ["--database", database]
    with ServerProcess(*options) as server:
        command = [*player, "--engine", "sqlserver", "--standing", str(server.port), "--home", home, scenario.path]
        try:
            done = subprocess.run(command, cwd=folder, capture_output=True, timeout=SECONDS)
        except subprocess.TimeoutExpired:
            return f"not ok {scenario.path}: no end after {SECONDS} seconds"
    said, complaints = (stream.decode("utf-8", "replace").splitlines() for stream in (done.stdout, done.stderr))
    lines = [line for line in said if line.startswith(("ok ", "not ok "))]
    return lines[0] if lines else f"not ok {scenario.path}: {(complaints or ['no verdict'])[-1]}"


def scenarios_of(options):
    left_out = set()
    if options.left_out:
        with open(options.left_out, encoding="utf-8") as file:
            left_out = {line.strip() for line in file if line.strip() and not line.startswith("#")}
    found = set()
    for place, _, names in os.walk(options.folder):
        found.update(os.path.relpath(os.path.join(place, name), options.folder) for name in names if name.endswith(".roteiro"))
    if unknown := left_out - found:
        sys.exit(f"left out, and not there: {', '.join(sorted(unknown))}")
    return [Scenario(options.folder, path) for path in sorted(found - left_out) if re.search(options.only, path)]


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    for name in ("host_player", "installation", "folder"):
        parser.add_argument(name, type=os.path.abspath)
    parser.add_argument("--ways", type=lambda words: words.split(","), default=list(WAYS))
    parser.add_argument("--left-out")
    parser.add_argument("--only", default="")
    parser.add_argument("--least", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=2)
    divided = sys.argv.index("--") if "--" in sys.argv else len(sys.argv)
    options, player = parser.parse_args(sys.argv[1:divided]), sys.argv[divided + 1 :]
    if not player or not set(options.ways) <= set(WAYS):
        sys.exit(__doc__)

    scenarios = scenarios_of(options)
    if len(scenarios) < options.least:
        sys.exit(f"only {len(scenarios)} scenarios found")
    passed = failed = 0
    with tempfile.TemporaryDirectory() as folder, ThreadPoolExecutor(options.jobs) as pool:
        home, rest = (os.path.join(folder, name) for name in ("home", "scenarios"))
        shutil.copytree(options.installation, home, ignore=shutil.ignore_patterns("*.fdb", "*.guarda", "lock"))
        for scenario in scenarios:
            write(os.path.join(rest, scenario.path), scenario.rest)
        # Many scenarios begin with the same databases.
        places = {text: os.path.join(folder, str(number)) for number, text in enumerate({scenario.preparation for scenario in scenarios})}
        complaints = dict(zip(places, pool.map(lambda text: prepare(options.host_player, options.installation, text, places[text]), places)))

        def said_of(scenario, way):
            if complaint := complaints[scenario.preparation]:
                return f"not ok {scenario.path}: not prepared: {complaint}"
            return play([*player, *WAYS[way]], home, places[scenario.preparation], rest, scenario)

        rounds = [(scenario, way) for way in options.ways for scenario in scenarios]
        for (_, way), line in zip(rounds, pool.map(lambda both: said_of(*both), rounds)):
            passed += line.startswith("ok ")
            failed += not line.startswith("ok ")
            print(f"{line} ({way})", flush=True)
    print(f"{passed} passed, {failed} failed")
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
