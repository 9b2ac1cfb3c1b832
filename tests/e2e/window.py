#!/usr/bin/python3
"""Drives the window through the accessibility bus, where everything is known by its name, as window.sh tells."""

import subprocess
import sys
import time

import gi
import pyatspi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 20  # seconds
MAPS = ("q3tourney1", "q3tourney3")


def fail(text):
    sys.exit(f"FAILED: {text}")


def walk(node):
    """Everything below a node that is on show, and the cells of its tables that are scrolled to."""
    for child in node:
        if child is None:
            continue
        if child.getState().contains(pyatspi.STATE_SHOWING) or child.getRole() == pyatspi.ROLE_TABLE_CELL:
            yield child
            yield from walk(child)


def name_of(node):
    """The name, or the one of the label that leads to it."""
    for relation in node.getRelationSet():
        if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY:
            return relation.getTarget(0).name.rstrip(":")
    return node.name


def find(where, role, name, matches=lambda found, wanted: found == wanted):
    """The node of that role and name, once it is there."""
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        for node in walk(where):
            if node.getRoleName() == role and matches(name_of(node), name):
                return node
        time.sleep(0.2)
    fail(f"there is no {role} {name!r}")


def find_first(where, role, beginning):
    """The first node of that role whose name begins so, in any case."""
    return find(where, role, beginning, lambda found, wanted: found.lower().startswith(wanted))


def act(node, wanted):
    actions = node.queryAction()
    for number in range(actions.nActions):
        if actions.getName(number) == wanted:
            try:
                actions.doAction(number)
            except GLib.Error:
                pass  # a command that opens a dialog answers when that is closed
            time.sleep(0.3)
            return
    fail(f"{node.name!r} can't be used by {wanted}")


def press(where, name):
    act(find(where, "push button", name), "Press")


def open_tab(window, mode, tab):
    act(find(find(window, "list", f"Tabs of {mode}"), "list item", tab), "Toggle")


def click(node):
    """Puts the mouse on what has that name, and the keyboard with it."""
    area = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    place = (str(area.x + area.width // 2), str(area.y + area.height // 2))
    subprocess.run(["xdotool", "mousemove", "--sync", *place, "click", "1"], check=True)
    time.sleep(0.3)


def keys(*names):
    subprocess.run(["xdotool", "key", "--clearmodifiers", *names], check=True)
    time.sleep(0.3)


def type_into(where, name, text):
    find(where, "text", name).queryEditableText().setTextContents(text)


def wait_until(condition, what):
    deadline = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > deadline:
            fail(what)
        time.sleep(0.2)


def names_are_there(window, tab):
    """Whatever can have the keyboard has a name to be known by."""
    silent = []
    for node in walk(window):
        states = node.getState()
        if states.contains(pyatspi.STATE_FOCUSABLE) and states.contains(pyatspi.STATE_ENABLED):
            # What a tool bar shows when it is too narrow is the toolkit's own.
            if not name_of(node) and node.getRoleName() not in ("filler", "scroll pane", "panel"):
                silent.append(node.getRoleName())
    if silent:
        fail(f"on the tab {tab} there are controls without a name: {silent}")


def main():
    Atspi.set_timeout(1000, 5000)
    applications = [one for one in pyatspi.Registry.getDesktop(0) if one and one.name == "gatehouse"]
    if not applications:
        fail("the program is not on the bus")
    program = applications[0]
    window = next(one for one in program if one.getRoleName() == "frame")

    act(find(window, "check box", "Listen"), "Toggle")
    for tab in ("Server", "Maps", "Bots", "Player", "Keys", "Video", "Tweak 1", "Tweak 2"):
        open_tab(window, "Listen", tab)
        names_are_there(window, tab)

    open_tab(window, "Listen", "Server")
    type_into(window, "Hostname", "Over the Bus")

    open_tab(window, "Listen", "Maps")
    tree = find(window, "tree", "Maps")
    click(find(tree, "table cell", "Standard Maps"))
    keys("asterisk")  # opens all that is below
    rotation = find(window, "tree", "Map Rotation")
    for code in MAPS:
        click(find_first(tree, "table cell", code + " "))
        press(window, "Add")
        find_first(rotation, "table cell", code)

    open_tab(window, "Listen", "Bots")
    press(window, "Add")
    dialog = find(program, "dialog", "Add Bot")
    press(dialog, "OK")
    find(find(window, "tree", "Bots"), "table cell", "Anarki")

    open_tab(window, "Listen", "Keys")
    table = find(window, "tree", "Keys")
    act(find(table, "table cell", "Gesture"), "Toggle")
    press(window, "Choose Key...")
    press(program, "F7")
    find(table, "table cell", "F7")

    press(window, "Run")


if __name__ == "__main__":
    main()
