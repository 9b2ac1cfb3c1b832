#!/usr/bin/python3
"""Finds servers and joins one, as find.sh tells: find.py IP"""

import sys

import pyatspi

from accessible import act, click, find, keys, main_window, open_tab, press, type_into, wait_for
from browser import Table, expect


def main():
    ip = sys.argv[1]
    program, window = main_window()
    open_tab(window, "Connect", "Servers")
    keys("ctrl+g")
    dialog = find(program, "dialog", "Find Servers")
    type_into(dialog, "Masters", ip)
    find(dialog, "spin button", "Protocol").queryComponent().grabFocus()
    keys("ctrl+a", "7", "1")
    press(dialog, "Search")
    find(dialog, "label", "3 found. 3 of 3, 1 silent")
    found = Table(dialog, "Found Servers")
    expect("what was found", sorted(found.column("Address")), [f"{ip}:{port}" for port in (27960, 27961, 27999)])
    for row, address in enumerate(found.column("Address")):
        if address != f"{ip}:27999":
            expect("a name", found.cell(row, "Name").name, f"Fake {int(address[-1])}")
            act(found.cell(row, "Name"), "Toggle")
    press(dialog, "Add to List")
    find(dialog, "label", "2 of 2 added to the list.")
    press(dialog, "Close")
    wait_for("the window stays", lambda: not dialog.getState().contains(pyatspi.STATE_SHOWING))
    servers = Table(window, "Servers")
    expect("the list", sorted(servers.column("Name")), ["Fake 0", "Fake 1"])
    click(servers.cell(0, "Name"))
    keys("Return")


if __name__ == "__main__":
    main()
