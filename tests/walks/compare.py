#!/usr/bin/env python3
"""Walks the register by chance, once on the screen model and once on the real windows, and compares what came of every step.

    compare.py PLAYER HOME [--steps N] [--seeds S [S ...] | --for SECONDS]

Without seeds it takes one after the other, from the clock on, until the time is over. The first difference is printed with the road that led to
it; the logs stay in the folder that is named then.
"""
import argparse
import itertools
import pathlib
import subprocess
import sys
import tempfile
import time

LINES_AROUND = 12


def walk(player, home, folder, seed, steps, way):
    """The log of a walk and what the player said when it did not like it."""
    start = folder / "start.roteiro"
    start.write_text('today 2026-11-20 10:00\n'
                     + "sql \"insert into pess (idpess, psfi_psju, cpf0_cnpj, nome_pess, nome_conh) values"
                     + " (7, 'J', '11.222.333/0001-81', 'ALFA COMERCIO', 'ALFA')\"\n"
                     + "sql \"insert into pess (idpess, psfi_psju, nome_pess, nome_conh, data_desa) values"
                     + " (8, 'F', 'BETA DOS SANTOS', 'BETA', '2025-01-01')\"\n"
                     + "sql \"insert into pess_ativ (idpess_ativ, idpess, idativ) values (1, 7, 1)\"\n"
                     + "sql \"insert into pess_ativ (idpess_ativ, idpess, idativ) values (2, 7, 2)\"\n"
                     + "sql \"insert into pess_ativ (idpess_ativ, idpess, idativ) values (3, 7, 3)\"\n"
                     + "sql \"insert into pess_cont (idpess_cont, idpess, carg_pess_cont, nome_pess_cont, data_nasc)"
                     + " values (1, 7, 'GERENTE', 'ANA', '25/12')\"\n"
                     + "sql \"insert into forn (idforn, idpess) values (3, 7)\"\n"
                     + "sql \"insert into forn_cont (idforn_cont, idforn, carg_forn_cont, nome_forn_cont, data_nasc)"
                     + " values (1, 3, 'GERENTE', 'BIA', '25/12')\"\n"
                     + "sql \"insert into forn_cont (idforn_cont, idforn, carg_forn_cont, nome_forn_cont, data_nasc)"
                     + " values (2, 3, 'GERENTE', 'CAIO', '1/2')\"\n")
    log = folder / f"{seed}{way or '--model'}.log"
    ran = subprocess.run([player, "--home", home, *([way] if way else []), "--walk", str(steps), "--seed", str(seed), "--log", log, start],
                         capture_output=True, text=True, check=False)
    complaint = "" if ran.returncode == 0 else ran.stdout.splitlines()[0] if ran.stdout else ran.stderr
    return log.read_text(errors="replace").splitlines() if log.exists() else [], complaint


def difference(model, windows):
    """The number of the first line that differs; none when the logs are the same."""
    for at, (one, other) in enumerate(itertools.zip_longest(model, windows)):
        if one != other:
            return at
    return None


def compared(arguments, folder, seed):
    model, model_says = walk(arguments.player, arguments.home, folder, seed, arguments.steps, "")
    windows, windows_say = walk(arguments.player, arguments.home, folder, seed, arguments.steps, "--desktop")
    at = difference(model, windows)
    if at is None and not model_says and not windows_say:
        commands = sum(1 for line in model if not line.startswith("  "))
        print(f"seed {seed}: {commands} steps, {sum(1 for line in model if line.startswith('  sql '))} statements, no difference")
        return True
    print(f"seed {seed}: the walks differ. model: {model_says or 'ok'}; windows: {windows_say or 'ok'}")
    if at is not None:
        print("\n".join(model[max(0, at - LINES_AROUND):at]))
        print(f"- model:   {model[at] if at < len(model) else 'the end'}")
        print(f"- windows: {windows[at] if at < len(windows) else 'the end'}")
    return False


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("player")
    parser.add_argument("home")
    parser.add_argument("--steps", type=int, default=300)
    parser.add_argument("--seeds", type=int, nargs="+")
    parser.add_argument("--for", type=float, dest="seconds", default=60)
    arguments = parser.parse_args()
    folder = pathlib.Path(tempfile.mkdtemp(prefix="walks-"))
    start = time.monotonic()
    drawn = itertools.count(int(time.time()) % 1000000)
    seeds = arguments.seeds or itertools.takewhile(lambda _: time.monotonic() - start < arguments.seconds, drawn)
    failed = [seed for seed in seeds if not compared(arguments, folder, seed)]
    if failed:
        print(f"differences with the seeds {failed}; logs in {folder}")
        return 1
    for log in folder.iterdir():
        log.unlink()
    folder.rmdir()
    return 0


if __name__ == "__main__":
    sys.exit(main())
