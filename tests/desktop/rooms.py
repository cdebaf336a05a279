#!/usr/bin/env python3
"""Runs a program of tests on displays from a small notebook's to a large screen's, each with the scales and letters that a
desktop may ask for, under a window manager that draws frames and keeps the lower edge for its panel.

rooms.py PROGRAM [ARGUMENT...]     VORTA_TEST_ROOMS=1366x768 takes the rows with that text alone

Prints a line for each row and what a failing one has said; ends with 1 when one has failed."""

import os
import subprocess
import sys
import tempfile
import time

DISPLAYS = ["1024x600", "1366x768", "1920x1080", "3840x2160"]
SCALES = ["1", "1.5", "2", "3"]
LETTERS = [120, 192]  # dots per inch, beside the usual 96
SMALLEST = (640, 360)  # what is left of a display behind its scale
PANEL = 40

MANAGER = """<openbox_config xmlns="http://openbox.org/3.4/rc">
<margins><top>0</top><bottom>{panel}</bottom><left>0</left><right>0</right></margins>
</openbox_config>
"""


def rows():
    """Display, scale and letters: each scale with the usual letters, each size of letters without a scale."""
    for display in DISPLAYS:
        width, height = (int(part) for part in display.split("x"))
        for scale in SCALES:
            if width / float(scale) >= SMALLEST[0] and height / float(scale) >= SMALLEST[1]:
                yield display, scale, 96
        for letters in LETTERS:
            yield display, "1", letters


class Display:
    """A display of that size with its window manager."""

    def __init__(self, size, folder):
        reads, writes = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writes), "-screen", "0", f"{size}x24", "-nolisten", "tcp"],
            pass_fds=[writes], stderr=subprocess.DEVNULL)
        os.close(writes)
        with os.fdopen(reads) as told:
            number = told.readline().strip()
        if not number:
            raise SystemExit("Xvfb does not start")
        self.environment = {**os.environ, "DISPLAY": f":{number}", "QT_QPA_PLATFORM": "xcb", "HOME": folder}
        config = os.path.join(folder, "openbox.xml")
        with open(config, "w", encoding="utf-8") as file:
            file.write(MANAGER.format(panel=PANEL))
        self.manager = subprocess.Popen(["openbox", "--config-file", config], env=self.environment,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        time.sleep(0.5)
        if self.manager.poll() is not None:
            raise SystemExit("openbox does not start")

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


def run(display, scale, letters, command):
    environment = {**display.environment, "QT_SCALE_FACTOR": scale, "QT_FONT_DPI": str(letters)}
    done = subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          timeout=300, check=False)
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
                for _, scale, letters in of_size:
                    good, said = run(display, scale, letters, command)
                    print(f"{'ok' if good else 'not ok'} {size}, scale {scale}, {letters} dpi", flush=True)
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
