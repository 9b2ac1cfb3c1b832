#!/usr/bin/python3
"""Drives the server browser through the accessibility bus, as browser.sh tells."""

import argparse
import subprocess
import time

import pyatspi

from accessible import act, fail, find, is_enabled, main_window, open_tab, press, type_into, wait_for

ENDLESS = "Asking again and again. Esc in the list ends it."
PING_TRIES = 10
PING_DIFFERENCE = 5  # milliseconds
ANSWER_BREAK = 2.5  # seconds; an engine answers one address once a second


class Table:
    """A table by the titles of its columns."""

    def __init__(self, where, name):
        self.cells = find(where, "tree", name).queryTable()
        self.titles = [self.cells.getColumnDescription(column) for column in range(self.cells.nColumns)]

    def cell(self, row, title):
        return self.cells.getAccessibleAt(row, self.titles.index(title))

    def row(self, row):
        return {title: self.cell(row, title).name for title in self.titles}

    def column(self, title):
        return [self.cell(row, title).name for row in range(self.cells.nRows)]


class Browser:
    def __init__(self, program, window):
        self.program, self.window = program, window
        open_tab(window, "Connect", "Servers")
        self.servers = Table(window, "Servers")

    def choose(self, address):
        """Makes one server the selected one, as a screen reader does."""
        for row, there in enumerate(self.servers.column("Address")):
            cell = self.servers.cell(row, "Name")
            if cell.getState().contains(pyatspi.STATE_SELECTED) != (there == address):
                act(cell, "Toggle")

    def query(self, address):
        """Asks a server alone and returns its row, and what its picture says, when the answer or the time-out came."""
        self.choose(address)
        press(self.window, "Query")
        button = find(self.window, "push button", "Query")
        wait_for(f"{address} is asked for ever", lambda: is_enabled(button))
        row = self.servers.column("Address").index(address)
        return self.servers.row(row), self.servers.cell(row, "Name").description


    def stop(self):
        """A server of game type 0 is asked on and on, at a pace that it can answer, until Escape is pressed in the list."""
        told = find(self.window, "label", ENDLESS)
        wait_for("nothing tells how the walk ends", lambda: told.getState().contains(pyatspi.STATE_SHOWING))
        find(self.window, "tree", "Servers").queryComponent().grabFocus()
        subprocess.run(["xdotool", "key", "Escape"], check=True)
        wait_for("Escape ends no walk", lambda: not told.getState().contains(pyatspi.STATE_SHOWING))


def expect(what, found, wanted):
    if found != wanted:
        fail(f"{what}: {found!r}, expected {wanted!r}")


def quakestat_ping(address):
    command = ["quakestat", "-raw", "|", "-q3s", address]
    seen = subprocess.run(command, check=True, capture_output=True, encoding="latin-1").stdout
    return int(seen.split("|")[6])


def compare_pings(browser, address):
    """On a busy machine a single answer may be late, so several are compared, as many as a server gives at a time."""
    seen = []
    for _ in range(PING_TRIES):
        time.sleep(ANSWER_BREAK)
        row, _ = browser.query(address)
        seen.append((int(row["Ping"]), quakestat_ping(address)))
        if abs(seen[-1][0] - seen[-1][1]) <= PING_DIFFERENCE:
            print("ping here and by quakestat:", *seen[-1])
            return
    fail(f"pings differ from quakestat's: {seen}")


def query(arguments):
    browser = Browser(*main_window())

    # The dead one stands first, as its ping in the list is the lowest, and stays there while it is asked.
    row, state = browser.query(arguments.nobody)
    since = row.pop("Silent Since")
    if not since or not state.endswith("; silent since " + since):
        fail(f"silent since {since!r}: {state!r}")
    dead = {"Name": "Nobody Home", "Ping": "9999", "Players": "?", "Game": "?", "Mod": "?", "Map": "Q3DM1",
            "Address": arguments.nobody, "Password": "", "Favourite": ""}
    expect("a dead server", row, dead)
    expect("the state of a dead server", state.split(";")[0], "No answer, or a bad one")
    expect("the order", browser.servers.column("Address"), [arguments.nobody, arguments.server])

    row, state = browser.query(arguments.server)
    alive = {"Name": arguments.name, "Players": arguments.players, "Game": arguments.game, "Map": arguments.map,
             "Address": arguments.server}
    if arguments.endless:
        browser.stop()
    expect("a server", {title: row[title] for title in alive}, alive)
    expect("its state", state, "Answers; has places for those with a password" if arguments.locked else "Answers")
    if not row["Ping"].strip().isdigit() or int(row["Ping"]) >= 9999:
        fail(f"the ping of a server that answered is {row['Ping']!r}")
    totals = [find(browser.window, "label", caption).parent[1].name for caption in ("Servers:", "Players:")]
    expect("the totals", totals, ["2", str(len(arguments.bots))])
    if arguments.quakestat and not arguments.endless:
        compare_pings(browser, arguments.server)

    if not arguments.endless:
        refresh(browser, arguments)
    browser.choose(arguments.server)
    press(browser.window, "Players")
    dialog = find(browser.program, "dialog", f"Players on {arguments.name}")
    expect("who plays", sorted(Table(dialog, "Players").column("Name")), sorted(arguments.bots))
    press(dialog, "Close")
    wait_for("the players stay on show", lambda: not dialog.getState().contains(pyatspi.STATE_SHOWING))


def refresh(browser, arguments):
    """All at once: the silent one keeps what was known, no row moves; then the filter, and a server that comes back."""
    press(browser.window, "Refresh")
    find(browser.window, "label", "2 of 2, 1 silent")
    expect("the order", browser.servers.column("Address"), [arguments.nobody, arguments.server])
    expect("what a silent server keeps", browser.servers.cell(0, "Map").name, "Q3DM1")
    expect("an answer", browser.servers.cell(1, "Players").name, arguments.players)
    type_into(browser.window, "Filter", arguments.server)
    wait_for("the filter hides nothing", lambda: browser.servers.cells.nRows == 1)
    find(browser.window, "label", "1 of 2 shown")
    type_into(browser.window, "Filter", "")
    wait_for("the filter hides for good", lambda: browser.servers.cells.nRows == 2)
    browser.choose(arguments.nobody)
    press(browser.window, "Delete")
    wait_for("nothing is deleted", lambda: browser.servers.cells.nRows == 1)
    subprocess.run(["xdotool", "key", "ctrl+z"], check=True)
    wait_for("nothing comes back", lambda: browser.servers.column("Address") == [arguments.nobody, arguments.server])


def main():
    parser = argparse.ArgumentParser()
    commands = parser.add_subparsers(required=True)
    ask = commands.add_parser("query")
    ask.add_argument("nobody")
    ask.add_argument("server")
    for value in ("--name", "--players", "--map"):
        ask.add_argument(value)
    ask.add_argument("--game", default="Teamplay")
    for flag in ("--locked", "--quakestat", "--endless"):
        ask.add_argument(flag, action="store_true")
    ask.add_argument("bots", nargs="+")
    ask.set_defaults(do=query)
    commands.add_parser("run").set_defaults(do=lambda _: press(main_window()[1], "Run"))
    arguments = parser.parse_args()
    arguments.do(arguments)


if __name__ == "__main__":
    main()
