#!/usr/bin/python3
"""Drives the Benchmark tab and the window of results, as benchmark.sh tells."""

import json
import os
import re
import sys
import time

import pyatspi

from accessible import act, fail, find, is_enabled, keys, main_window, press, wait_for

step, game, app = sys.argv[1:]
RESULTS = f"{game}/baseq3/bresults.txt"
STALE = 90  # seconds until a game that hangs has gone stale and was closed
LONGEST = 240  # seconds; a real client takes some for each iteration


def figures():
    """What the game itself has told in its journal, in order."""
    journal = open(os.environ.get("JOURNAL", f"{game}/practice.log"), encoding="latin-1").read()
    return re.findall(r"^(\d+) frames,? [\d.]+ seconds:? ([\d.]+) fps", journal, re.M)


def fifteen(value):
    return f"{value:.15g}"


def records():
    folder = f"{app}/benchmarks"
    return [json.load(open(f"{folder}/{name}")) for name in sorted(os.listdir(folder))]


def select(window, name, wanted):
    for cell in find(window, "tree", name):
        if (cell.name in wanted) != cell.getState().contains(pyatspi.STATE_SELECTED):
            act(cell, "Toggle")


def wait_long(what, look, seconds):
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        if look():
            return
        time.sleep(0.2)
    fail(what)


def dialog(title):
    def shown():
        return [one for one in program if one and one.name == title and one.getState().contains(pyatspi.STATE_SHOWING)]

    wait_long(f"no dialog {title}", shown, LONGEST)
    return shown()[0]


def is_on_show(title):
    return any(one and one.name == title and one.getState().contains(pyatspi.STATE_SHOWING) for one in program)


program, window = (None, None) if step == "kept" else main_window()

if step == "run":
    if is_enabled(find(window, "push button", "Play")):
        fail("a run without a choice can be started")
    select(window, "Documents", ["fast.ghc", "slow.ghc"])
    select(window, "Demos", ["demo001", "demo002"])
    press(window, "Play")
    box = dialog("Benchmarks Complete")
    expected, told = b"", figures()
    if len(told) != 12:
        fail(f"{len(told)} games were played")
    pairs = [(document, demo) for document in ("fast.ghc", "slow.ghc") for demo in ("demo001", "demo002")]
    for place, pair in enumerate(pairs):
        values = [float(fps) for _, fps in told[3 * place:3 * place + 3]]
        row = [*pair, *map(fifteen, values), fifteen(sum(values) / 3)]
        expected += ",".join(row).encode() + b"\r\n"
    if open(RESULTS, "rb").read() != expected:
        fail(f"the results differ: {open(RESULTS, 'rb').read()} and not {expected}")
    kept = records()[-1]["iterations"]
    if [(one["frames"], one["value"]) for one in kept] != [(int(frames), float(fps)) for frames, fps in told]:
        fail(f"the record differs: {kept}")
    press(box, "Compare...")

if step == "results":
    box = dialog("Benchmark Results")
    chart = find(box, "list", "Chart of frames per second")
    if chart.childCount != 12 or "iteration 1" not in chart[0].name:
        fail(f"{chart.childCount} dots, the first one {chart[0].name!r}")
    keys("Right", "Right")
    wait_for("the second dot is not the current one", lambda: chart[1].getState().contains(pyatspi.STATE_SELECTED))
    verdict = find(box, "text", "Verdict").queryText()
    if not re.search("slow.ghc .*fast.ghc .*demo001", verdict.getText(0, -1)):
        fail(f"there is no verdict: {verdict.getText(0, -1)}")

if step == "again":
    press(dialog("Benchmark Results"), "Close")

if step == "play":
    select(window, "Documents", ["fast.ghc"])
    select(window, "Demos", ["demo001"])
    press(window, "Play")

if step == "hung":
    wait_long("the game has not gone stale", lambda: is_on_show("No Results"), STALE)
    press(dialog("No Results"), "Next")
    press(dialog("Benchmarks Complete"), "No")
    states = [one["state"] for one in records()[-1]["iterations"]]
    if sorted(states) != ["good", "good", "stale"]:
        fail(f"the iterations are {states}")

if step == "stale":
    select(window, "Documents", ["fast.ghc"])
    select(window, "Demos", ["gone.dm3"])
    os.remove(f"{game}/baseq3/demos/gone.dm3")
    press(window, "Play")
    wait_long("the game has not gone stale", lambda: is_on_show("No Results"), STALE)
    wait_long("the dialog does not answer itself", lambda: not is_on_show("No Results"), 20)
    wait_long("it was not tried again", lambda: is_on_show("No Results"), STALE)
    press(dialog("No Results"), "Next")
    wait_for("the states", lambda: [one["state"] for one in records()[-1]["iterations"]] == ["retried", "stale"])

if step == "stop":
    press(window, "Pause")
    press(dialog("Benchmarks"), "OK")
    wait_for("the pause does not end", lambda: not is_on_show("Benchmarks"))
    press(window, "Stop")
    press(dialog("Stop"), "OK")
    wait_for("the record is not closed", lambda: records()[-1]["end"] == "stopped")
    if open(RESULTS, "rb").read():
        fail("a row of a pair that was stopped")
    if is_enabled(find(window, "list", "Tabs of Benchmark")):
        fail("the side bar is free after a stop")

if step == "begin":
    before = len(records())
    # A command that goes on holds the caller up for a while: the run must be longer.
    select(window, "Documents", ["fast.ghc", "slow.ghc"])
    select(window, "Demos", ["demo001", "demo002"])
    press(window, "Play")
    wait_for("two iterations are not kept", lambda: len(records()) > before and len(records()[-1]["iterations"]) >= 2)

if step == "kept":
    last = records()[-1]
    values = [one["value"] for one in last["iterations"]]
    told = [float(fps) for _, fps in figures()]
    # The game plays on when the program is killed, and may tell one figure more.
    if last["end"] != "none" or len(values) < 2 or values not in (told[-len(values):], told[-len(values) - 1:-1]):
        fail(f"the record does not hold what was finished: {values} of {told}")
