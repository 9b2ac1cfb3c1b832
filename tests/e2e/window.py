#!/usr/bin/python3
"""Hosts a game through the accessibility bus, as window.sh tells."""

import pyatspi

from accessible import (act, click, fail, find, find_cell, keys, main_window, name_of, nodes, open_tab, press, type_into,
                        wait_for)

TABS = ("Server", "Maps", "Bots", "Player", "Keys", "Video", "Tweak 1", "Tweak 2")
MAPS = ("q3tourney1", "q3tourney3")
CONTAINERS = ("filler", "scroll pane", "panel")


def expect_names(window, tab):
    """Whatever can have the keyboard has a name to be known by."""
    silent = []
    for node in nodes(window):
        states = node.getState()
        usable = states.contains(pyatspi.STATE_FOCUSABLE) and states.contains(pyatspi.STATE_ENABLED)
        if usable and node.getRoleName() not in CONTAINERS and not name_of(node):
            silent.append(node.getRoleName())
    if silent:
        fail(f"on the tab {tab} there are controls without a name: {silent}")


def add_map(window, code):
    tree, rotation = find(window, "tree", "Maps"), find(window, "tree", "Map Rotation")
    cell = find_cell(tree, code + " ")
    wait_for(f"{code} can't be selected", lambda: click(cell) or cell.getState().contains(pyatspi.STATE_SELECTED))
    press(window, "Add")
    find_cell(rotation, code)


def main():
    program, window = main_window()
    act(find(window, "check box", "Listen"), "Toggle")
    for tab in TABS:
        open_tab(window, "Listen", tab)
        find(window, "label", tab)
        expect_names(window, tab)

    open_tab(window, "Listen", "Server")
    type_into(window, "Hostname", "Over the Bus")

    open_tab(window, "Listen", "Maps")
    tree = find(window, "tree", "Maps")
    group = find_cell(tree, "Standard Maps")
    wait_for("the maps can't be selected", lambda: click(group) or group.getState().contains(pyatspi.STATE_SELECTED))
    keys("asterisk")  # opens all that is below
    for code in MAPS:
        add_map(window, code)

    open_tab(window, "Listen", "Bots")
    press(window, "Add")
    press(find(program, "dialog", "Add Bot"), "OK")
    find_cell(find(window, "tree", "Bots"), "Anarki")

    open_tab(window, "Listen", "Keys")
    table = find(window, "tree", "Keys")
    act(find_cell(table, "Gesture"), "Toggle")
    press(window, "Choose Key...")
    press(program, "F7")
    find_cell(table, "F7")

    press(window, "Run")


if __name__ == "__main__":
    main()
