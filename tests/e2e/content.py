#!/usr/bin/python3
"""Finds, shows and plays maps through the accessibility bus or by the keyboard alone, as content.sh tells."""

import subprocess
import sys
import time
import zipfile

BIG_MAPS = 30
BIG = 64 << 20  # bytes: all of them keep a scan busy for long enough to be watched


def titled(title, size=40_000):
    text = b'{\n"classname" "worldspawn"\n"message" "' + title.encode() + b'"\n}\n'
    return (b"IBSP" + bytes(60) + text).ljust(size, b"\0")


def make(game, documents, pictures):
    shot, icon = (open(f"{pictures}/{name}", "rb").read() for name in ("shot.jpg", "icon.tga"))
    with zipfile.ZipFile(f"{game}/arena.pk3", "w", zipfile.ZIP_DEFLATED, compresslevel=1) as archive:
        for number in range(BIG_MAPS):
            archive.writestr(f"maps/big{number:02}.bsp", titled(f"Big One {number}", BIG))
        archive.writestr("maps/yard.bsp", titled("Old Yard"))
        archive.writestr("maps/untold.bsp", bytes(40_000))
        archive.writestr("maps/broken.bsp", titled("Broken"))
        archive.writestr("levelshots/yard.jpg", shot)
        archive.writestr("models/players/robot/upper.md3", b"x")
        archive.writestr("models/players/robot/upper_red.skin", b"x")
        archive.writestr("models/players/robot/icon_red.tga", icon)
        place = archive.getinfo("maps/broken.bsp").header_offset
    with open(f"{game}/arena.pk3", "r+b") as archive:
        archive.seek(place + 30 + len("maps/broken.bsp") + 40)
        archive.write(b"damaged!")
    with zipfile.ZipFile(f"{documents}/more.pk3", "w", zipfile.ZIP_DEFLATED, compresslevel=1) as archive:
        for name in ("added", "other"):
            archive.writestr(f"maps/{name}.bsp", titled(f"The {name} one"))
            archive.writestr(f"levelshots/{name}.jpg", shot)


if sys.argv[1] == "make":
    make(*sys.argv[2:])
    sys.exit()

import pyatspi  # noqa: E402

from accessible import (act, click, fail, find, find_cell, is_enabled, keys, main_window, nodes, open_tab, press,  # noqa: E402
                        wait_for)


def the_program():
    desktop = pyatspi.Registry.getDesktop(0)
    return wait_for("the program is not on the bus",
                    lambda: next((one for one in desktop if one and one.name == "gatehouse"), None))


def windows(program, beginning):
    """Those on show whose titles begin so."""
    return [one for one in program
            if one and one.name.startswith(beginning) and one.getState().contains(pyatspi.STATE_SHOWING)]


def window_named(program, beginning):
    return wait_for(f"no window {beginning}", lambda: windows(program, beginning))[0]


def watch_the_scan(program):
    """The scan's window until it goes: its bar moves, its texts change, and it answers in time."""
    scan = window_named(program, "Looking for Maps")
    found = list(nodes(scan))
    bar = next(node for node in found if node.getRoleName() == "progress bar").queryValue()
    entry = [node for node in found if node.getRoleName() == "label"][-1]
    stop = next(node for node in found if node.name == "Stop")
    if not is_enabled(stop):
        fail("the scan can't be stopped")
    places, entries, slowest = set(), set(), 0
    while not windows(program, "Map Error"):
        for _ in range(5):
            began = time.monotonic()
            places.add(bar.currentValue)
            slowest = max(slowest, time.monotonic() - began)
        entries.add(entry.name)
    if len(places) < 5 or len(entries) < 3:
        fail(f"the scan does not show its progress: {places}, {entries}")
    if slowest > 1:
        fail(f"the scan leaves a question for {slowest:.1f} s")


def choose_file(path):
    """In the dialog that opens files."""
    time.sleep(0.5)
    keys("ctrl+a")
    subprocess.run(["xdotool", "type", "--delay", "5", path], check=True)
    keys("Return")


def select(tree, code):
    cell = find_cell(tree, code + " ")
    wait_for(f"{code} can't be selected", lambda: click(cell) or cell.getState().contains(pyatspi.STATE_SELECTED))


def current_row(tree):
    return next((cell.name for cell in tree if cell and cell.getState().contains(pyatspi.STATE_SELECTED)), "")


def picture_width(program, code):
    return window_named(program, f"Map: {code}").queryComponent().getExtents(pyatspi.DESKTOP_COORDS).width


def drive(archive):
    program = the_program()
    press(window_named(program, "User Map Search"), "OK")
    watch_the_scan(program)
    press(window_named(program, "Map Error"), "Yes")
    # The list of what was left out has the title that the scan had.
    told = wait_for("nothing is told to be left out",
                    lambda: next((node for node in nodes(window_named(program, "Looking for Maps"))
                                  if node.getRoleName() == "text"), None))
    lines = told.queryText().getText(0, -1)
    if "maps/broken.bsp" not in lines:
        fail(f"not told what was left out: {lines}")
    press(window_named(program, "Looking for Maps"), "Close")
    press(window_named(program, "User Model Search"), "OK")
    program, window = main_window()
    act(find(window, "check box", "Listen"), "Toggle")
    open_tab(window, "Listen", "Maps")
    tree, rotation = find(window, "tree", "Maps"), find(window, "tree", "Map Rotation")
    group = find_cell(tree, "User Maps")
    wait_for("the maps can't be selected", lambda: click(group) or group.getState().contains(pyatspi.STATE_SELECTED))
    keys("asterisk")

    press(window, "Add File")
    window_named(program, "Add Map to List")
    choose_file(archive)
    dialog = window_named(program, "Maps in the Archive")
    act(find_cell(find(dialog, "tree", "Maps in the archive"), "ADDED"), "Toggle")
    press(dialog, "OK")
    wait_for("the map is not there", lambda: current_row(tree).startswith("ADDED The added one"))
    press(window, "Add")
    find_cell(rotation, "ADDED")
    select(tree, "ADDED")
    smallest = picture_width(program, "ADDED")
    for zoom in (2, 3, 1):
        press(window_named(program, "Map: ADDED"), "Zoom")
        wait_for(f"the picture does not come to {zoom} times its size",
                 lambda: abs(picture_width(program, "ADDED") - zoom * smallest) < smallest / 10)
    press(window, "Delete")
    press(window_named(program, "No!"), "OK")  # it is played
    select(tree, "BIG29")
    press(window, "Delete")
    wait_for("the map is still there", lambda: not current_row(tree).startswith("BIG29"))
    press(window, "Add File")
    window_named(program, "Add Map to List")
    choose_file("/nowhere/gone.pk3")
    window_named(program, "Add Map to List")
    keys("Escape")


def type_all(archive):
    program, window = main_window()
    keys("ctrl+2", "Home", "Down", "Down", "Return")
    tree, rotation = find(window, "tree", "Maps"), find(window, "tree", "Map Rotation")
    wait_for("the keyboard does not come to the search", lambda: keys("Tab") or find(
        window, "text", "Search maps").getState().contains(pyatspi.STATE_FOCUSED))
    subprocess.run(["xdotool", "type", "--delay", "5", "old y"], check=True)
    keys("Down", "Home")  # from the search to the tree
    wait_for("the search does not lead to the map", lambda: keys("Down") or current_row(tree).startswith("YARD Old"))
    smallest = picture_width(program, "YARD")
    keys("ctrl+plus")
    wait_for("the picture does not grow", lambda: picture_width(program, "YARD") > smallest)
    keys("Escape")
    wait_for("the picture stays", lambda: not windows(program, "Map: "))
    keys("Insert")
    find_cell(rotation, "YARD")
    keys("ctrl+Insert")
    window_named(program, "Add Map to List")
    choose_file(archive)
    window_named(program, "Maps in the Archive")
    keys("End", "Return")
    wait_for("the map is not there", lambda: current_row(tree).startswith("OTHER The other one"))
    keys("Delete")
    wait_for("the map is still there", lambda: not current_row(tree).startswith("OTHER"))
    keys("ctrl+shift+f")
    window_named(program, "Scan for new maps")
    keys("Return")
    window_named(program, "Looking for Maps")
    keys("Escape")


{"drive": drive, "type": type_all}[sys.argv[1]](sys.argv[2])
