#!/usr/bin/env python3
"""Checks that includes and links point downwards only, and that nothing below the windows knows of windows.

usage: check_layers.py SOURCE_DIR BUILD_DIR README
"""

import pathlib
import re
import sys

# What a folder of src/ may include besides itself. Qt Gui and Qt Widgets belong to WINDOWS alone, Qt Sql to odbc.
LAYERS = {
    "system": [],
    "base": ["system"],
    "servers": ["firebird", "base", "system"],
    "data": ["base"],
    "firebird": ["data", "base", "system"],
    "odbc": ["data", "base", "system"],
    "screen": ["base"],
    "launch": ["data", "screen", "base"],
    "shared/inscricao": ["base"],
    "shared": ["launch", "data", "screen", "base", "shared/inscricao"],
    "person": ["shared", "launch", "data", "screen", "base"],
    "search": ["shared", "launch", "data", "screen", "base"],
    "roles": ["shared", "launch", "data", "screen", "base"],
    "maintenance": ["shared", "launch", "data", "screen", "base"],
    "audit": ["shared", "shared/inscricao", "launch", "kit", "data", "screen", "base"],
    "app": ["person", "search", "roles", "maintenance", "firebird", "odbc", "launch", "data", "screen", "base"],
    "kit": ["firebird", "data", "base", "system"],
    "importer": ["app", "person", "search", "roles", "shared", "launch", "data", "screen", "kit", "base"],
    "robot": ["launch", "data", "screen", "base", "system"],
    "desktop": ["screen", "base", "system"],
    "robot/windows": ["robot", "desktop", "screen", "base"],
    "bench": [],
}
WINDOWS = ("desktop", "robot/windows")
# The programs put the boxes together and may know all of them.
PROGRAMS = re.compile(r"(bench|[a-z]+/program)/")
WINDOW_CLASSES = re.compile(
    r"<(QtGui|QtWidgets)/|<Q(Application|GuiApplication|Widget|Dialog|MessageBox|MainWindow|Pixmap|Image|Icon|Font\w*"
    r"|Color|Palette|Painter|LineEdit|Label|TableView|ComboBox|DesktopServices|Clipboard|\w*Event)>")
SQL_CLASSES = re.compile(r"<(QtSql/|QSql\w*>)")
INCLUDE = re.compile(r'^\s*#include\s+(?:"([^"]+)"|(<[^>]+>))', re.M)


def folder_of(path):
    parts = path.split("/")
    return "/".join(parts[:2]) if "/".join(parts[:2]) in LAYERS else parts[0]


def check_includes(source):
    for path in sorted(source.rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        name = path.relative_to(source).as_posix()
        own = folder_of(name)
        if own not in LAYERS:
            yield f"{name}: the folder {own} has no place among the layers"
            continue
        for quoted, angled in INCLUDE.findall(path.read_text(encoding="utf-8")):
            if quoted:
                used = folder_of(quoted)
                if used in LAYERS and used != own and used not in LAYERS[own] and not PROGRAMS.match(name):
                    yield f"{name}: {own} must not include {quoted}"
            elif own not in WINDOWS and WINDOW_CLASSES.match(angled):
                yield f"{name}: {angled} belongs to desktop"
            elif own != "odbc" and SQL_CLASSES.match(angled):
                yield f"{name}: {angled} belongs to odbc"


def drawn_layers(readme):
    """The layer of each folder in the picture of the layers, counted from the top: folders, two blanks, what they hold."""
    picture = re.search(r"^## Where things are.*?^```\n(.*?)^```", readme.read_text(encoding="utf-8"), re.M | re.S)
    lines = picture[1].splitlines() if picture else []
    return {folder: depth for depth, line in enumerate(lines) for folder in re.split(r"  +", line)[0].split(" ")}


def check_picture(readme, layers):
    """Whatever a folder may include stands on a lower line of the picture than itself."""
    drawn = drawn_layers(readme)
    for folder in sorted({*layers} - {*drawn}):
        yield f"{readme.name}: the folder {folder} is missing in the picture of the layers"
    for folder, used in layers.items():
        for other in used:
            if drawn.get(other, 0) <= drawn.get(folder, 0):
                yield f"{readme.name}: {folder} includes {other}, which does not stand below it"


def check_links(build):
    """No program or test that does without the desktop library is linked with Qt's windows, by no detour."""
    text = (build / "build.ninja").read_text(encoding="utf-8")
    programs = 0
    for block in re.findall(r"^build (\S+): CXX_EXECUTABLE_LINKER\S*(.*?)(?=^build |\Z)", text, re.M | re.S):
        target, body = block
        libraries = re.search(r"LINK_LIBRARIES = (.*)", body)
        if not libraries:
            continue
        programs += 1
        if "libvorta_desktop.a" in libraries[1]:
            continue
        for library in re.findall(r"libQt6(?:Gui|Widgets)\S*", libraries[1]):
            yield f"{target}: linked with {library}"
    if not programs:
        yield f"{build}/build.ninja: no program found, the check has lost its ground"


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    source, build, readme = map(pathlib.Path, sys.argv[1:])
    faults = [*check_includes(source), *check_picture(readme, LAYERS), *check_links(build)]
    print("\n".join(faults) if faults else "all layers in order")
    sys.exit(1 if faults else 0)


main()
