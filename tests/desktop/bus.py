#!/usr/bin/env python3
"""Reads the accessibility tree of every screen from the bus, as a helper for the blind does, and says what has no name.

bus.py PROGRAM SCREENS     PROGRAM shows SCREENS windows; ends with 77 where the bus or its Python module is not to be had

It starts a display and a session bus of its own."""

import os
import subprocess
import sys
import time

INPUTS = {"ROLE_TEXT", "ROLE_ENTRY", "ROLE_COMBO_BOX", "ROLE_BUTTON", "ROLE_PUSH_BUTTON", "ROLE_RADIO_BUTTON", "ROLE_CHECK_BOX", "ROLE_TABLE",
          "ROLE_LIST", "ROLE_PAGE_TAB_LIST", "ROLE_PAGE_TAB"}
PATIENCE = 30
SKIPPED = 77


def restarted_on_own_bus():
    """The same once more, on a display and a bus that are its own."""
    environment = {**os.environ, "VORTA_TEST_BUS": "1", "QT_QPA_PLATFORM": "xcb", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
    command = ["xvfb-run", "-a", "dbus-run-session", "--", sys.executable, *sys.argv]
    try:
        return subprocess.run(command, env=environment, check=False).returncode
    except FileNotFoundError:
        print("no xvfb-run or no dbus-run-session")
        return SKIPPED


def application(atspi, pid):
    """The program on the bus, as soon as it is there."""
    end = time.time() + PATIENCE
    while time.time() < end:
        desktop = atspi.get_desktop(0)
        for number in range(desktop.get_child_count()):
            one = desktop.get_child_at_index(number)
            if one and one.get_process_id() == pid:
                return one
        time.sleep(0.2)
    raise SystemExit("the program does not come to the bus")


def name_of(node, atspi):
    """Its own name, or that of the label that it says it has."""
    for relation in node.get_relation_set():
        if relation.get_relation_type() == atspi.RelationType.LABELLED_BY:
            for number in range(relation.get_n_targets()):
                label = relation.get_target(number)
                if label.get_role() == atspi.Role.LABEL and label.get_name():
                    return label.get_name()
    return node.get_name()


def nodes(node, inside=()):
    yield node, inside
    role = node.get_role()
    if role.value_name.endswith(("_TABLE", "_LIST")):
        return  # rows are content
    for number in range(node.get_child_count()):
        child = node.get_child_at_index(number)
        if child:
            yield from nodes(child, (*inside, role.value_name.split("ATSPI_")[-1]))


def nameless(window, atspi):
    found, seen = [], 0
    for node, inside in nodes(window):
        role = node.get_role().value_name.split("ATSPI_")[-1]
        if role not in INPUTS or "ROLE_SCROLL_BAR" in inside:
            continue
        if "ROLE_COMBO_BOX" in inside and role != "ROLE_TEXT":
            continue  # the part that drops down
        seen += 1
        if not (name_of(node, atspi) or "").strip():
            found.append(f"{window.get_name()}: {role} in {' '.join(inside[-3:])}")
    return found, seen


def main():
    if "VORTA_TEST_BUS" not in os.environ:
        return restarted_on_own_bus()
    try:
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi
    except (ImportError, ValueError) as reason:
        print(f"no Python module for the bus: {reason}")
        return SKIPPED
    shown = subprocess.Popen([sys.argv[1]], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    failures = []
    try:
        if shown.stdout.readline().strip() != "shown":
            raise SystemExit("the program shows no windows")
        program = application(Atspi, shown.pid)
        windows = [program.get_child_at_index(number) for number in range(program.get_child_count())]
        if len(windows) != int(sys.argv[2]):
            failures.append(f"{len(windows)} windows on the bus, not {sys.argv[2]}")
        for window in windows:
            found, seen = nameless(window, Atspi)
            failures += found
            if seen < 2:
                failures.append(f"{window.get_name()}: {seen} fields")
            print(f"{window.get_name()}: {seen} fields, {len(found)} without a name")
    finally:
        shown.stdin.close()
        shown.wait(timeout=PATIENCE)
    print("\n".join(failures))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
