#!/usr/bin/env python3
"""Runs a program of tests on displays from a small notebook's to a large screen's, each with the scales and letters that a
desktop may ask for, under a window manager that draws frames and keeps the lower edge for its panel.

rooms.py PROGRAM [ARGUMENT...]     VORTA_TEST_ROOMS=1366x768 takes the rows with that text alone
                                   VORTA_TEST_PICTURES=FOLDER keeps a picture of each screen in each row

Prints a line for each row and what a failing one has said; ends with 1 when one has failed."""

import os
import select
import subprocess
import sys
import tempfile

DISPLAYS = ["1024x600", "1280x720", "1366x768", "1920x1080", "3840x2160"]
SCALES = ["1", "1.25", "1.5", "2", "3"]
LETTERS = [96, 120, 144, 192]  # dots per inch
SMALLEST = (640, 360)  # what is left of a display behind its scale
SMALLEST_IN_LETTERS = (512, 300)  # and behind its scale and its letters
PANEL = 40
PATIENCE = 60  # seconds, for what comes at once when nobody else is at work

MANAGER = """<openbox_config xmlns="http://openbox.org/3.4/rc">
<margins><top>0</top><bottom>{panel}</bottom><left>0</left><right>0</right></margins>
</openbox_config>
"""


def rows():
    """Display, scale and letters, all that go together."""
    for display in DISPLAYS:
        size = [int(part) for part in display.split("x")]
        for scale in SCALES:
            for letters in LETTERS:
                behind_scale = [part / float(scale) for part in size]
                behind_letters = [part * LETTERS[0] / letters for part in behind_scale]
                if all(left >= least for left, least in zip(behind_scale + behind_letters,
                                                            SMALLEST + SMALLEST_IN_LETTERS)):
                    yield display, scale, letters


def first_line(reader, of):
    """What a program says once it stands."""
    with os.fdopen(reader) as told:
        if not select.select([told], [], [], PATIENCE)[0]:
            raise SystemExit(f"{of} does not start")
        return told.readline().strip()


class Display:
    """A display of that size with its window manager."""

    def __init__(self, size, folder):
        reads, writes = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writes), "-screen", "0", f"{size}x24", "-nolisten", "tcp"],
            pass_fds=[writes], stderr=subprocess.DEVNULL)
        os.close(writes)
        number = first_line(reads, "Xvfb")
        if not number:
            raise SystemExit("Xvfb does not start")
        self.environment = {**os.environ, "DISPLAY": f":{number}", "QT_QPA_PLATFORM": "xcb", "HOME": folder}
        config = os.path.join(folder, "openbox.xml")
        with open(config, "w", encoding="utf-8") as file:
            file.write(MANAGER.format(panel=PANEL))
        # A window that comes before its manager is another matter: the manager says when it manages.
        manages = os.path.join(folder, "manages")
        os.path.exists(manages) or os.mkfifo(manages)
        reads = os.open(manages, os.O_RDONLY | os.O_NONBLOCK)
        self.manager = subprocess.Popen(
            ["openbox", "--config-file", config, "--startup", f"sh -c 'echo manages > {manages}'"],
            env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if first_line(reads, "openbox") != "manages":
            raise SystemExit("openbox does not start")

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


def run(display, row, command):
    _, scale, letters = row
    environment = {**display.environment, "QT_SCALE_FACTOR": scale, "QT_FONT_DPI": str(letters)}
    if "VORTA_TEST_PICTURES" in os.environ:
        environment["VORTA_TEST_PICTURES"] = os.path.join(os.environ["VORTA_TEST_PICTURES"],
                                                          "{} {} {}".format(*row))
    done = subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          check=False)
    return done.returncode == 0, done.stdout


def main():
    command = sys.argv[1:]
    wanted = os.environ.get("VORTA_TEST_ROOMS", "")
    table = [row for row in rows() if wanted in "{} {} {}".format(*row)]
    failed = 0
    with tempfile.TemporaryDirectory() as folder:
        for size in DISPLAYS:
            of_size = [row for row in table if row[0] == size]
            if not of_size:
                continue
            display = Display(size, folder)
            try:
                for row in of_size:
                    good, said = run(display, row, command)
                    print("{} {}, scale {}, {} dpi".format("ok" if good else "not ok", *row), flush=True)
                    if not good:
                        failed += 1
                        print("\n".join(line for line in said.splitlines()
                                        if not line.startswith(("[ RUN", "[       OK", "[-----"))), flush=True)
            finally:
                display.close()
    print(f"{len(table)} displays, {failed} failed")
    return 1 if failed or not table else 0


if __name__ == "__main__":
    sys.exit(main())
