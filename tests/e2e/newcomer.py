"""Drives the overview and the help by keys, and looks at them by the names that a screen reader reads out."""

import os
import subprocess
import sys
import time

import pyatspi
from accessible import click, fail, find, find_cell, keys, main_window, nodes, open_tab, wait_for

# A mode, a tab, a control of it by role and name, and how the help's paragraph begins.
CONTROLS = [
    ("Listen", "Server", "text", "Hostname", "Hostname What the world"),
    ("Listen", "Server", "check box", "Voting", "Voting Lets the players"),
    ("Listen", "Maps", "tree", "Maps", "Maps of the game"),
    ("Listen", "Bots", "check box", "Random Bots", "Random Bots With a tick"),
    ("Listen", "Player", "text", "Name", "Name Create colored"),
    ("Listen", "Keys", "push button", "Choose Key...", "Choose Key Pick a key"),
    ("Listen", "Video", "combo box", "Resolution", "Resolution Video mode"),
    ("Listen", "Video", "slider", "Brightness", "Brightness In hundredths"),
    ("Listen", "Tweak 1", "spin button", "Normal FOV", "Normal FOV Degrees"),
    ("Listen", "Tweak 2", "check box", "Show FPS", "Show FPS Frames"),
]


def picture(name):
    if os.environ.get("PICTURES"):
        time.sleep(0.5)
        subprocess.run(["import", "-window", "root", f"{os.environ['PICTURES']}/{name}.png"], check=True)


def help_view(where):
    return next((node for node in nodes(where) if node.getRole() == pyatspi.ROLE_LABEL and node.name == "Help"), None)


def text_at_caret(view):
    text = view.queryText()
    return text.getText(text.caretOffset, text.caretOffset + 40)


def help_window(program):
    return next((one for one in program if one.name == "Gatehouse Help" and
                 one.getState().contains(pyatspi.STATE_SHOWING)), None)


def expect_paragraph(window, beginning):
    view = wait_for("no help view", lambda: help_view(window))
    wait_for(f"the help shows {text_at_caret(view)!r}, not {beginning!r}",
             lambda: text_at_caret(view).startswith(beginning))


def overview():
    _, window = main_window()
    wait_for("no caption of the overview",
             lambda: any(node.name == "Help: Welcome to Gatehouse" for node in nodes(window)))
    view = wait_for("no overview", lambda: help_view(window))
    if "Five steps to a running game" not in view.queryText().getText(0, -1):
        fail("the overview tells something else")


def use_help():
    program, window = main_window()
    for mode, tab, role, name, beginning in CONTROLS:
        open_tab(window, mode, tab)
        control = find(window, role, name)
        if role == "tree":
            click(control)  # a cell of it has the keyboard then
        else:
            control.queryComponent().grabFocus()
            wait_for(f"{name} takes no keyboard", lambda: control.getState().contains(pyatspi.STATE_FOCUSED))
        keys("F1")
        shown = wait_for("no help window", lambda: help_window(program))
        expect_paragraph(shown, beginning)
        if name == "Normal FOV":
            picture("help-window")
            # The one link of this paragraph leads back.
            open_tab(window, "Listen", "Server")
            keys("Tab", "Return")
            wait_for("not led back", lambda: control.getState().contains(pyatspi.STATE_FOCUSED))
            wait_for("not in front", lambda: window.getState().contains(pyatspi.STATE_ACTIVE))
            keys("F1")
        keys("Escape")
        wait_for("the help window stays", lambda: not help_window(program))
        wait_for("the main window is not in front", lambda: window.getState().contains(pyatspi.STATE_ACTIVE))
    keys("F1")
    shown = wait_for("no help window", lambda: help_window(program))
    keys("ctrl+f")
    find(shown, "text", "Search the help").queryEditableText().setTextContents("LAGGED-out turkeys")
    hits = find(shown, "list", "Found")
    wait_for("not one paragraph was found", lambda: len([hit for hit in hits if hit]) == 1)
    keys("Return")
    expect_paragraph(shown, "Max Ping Keep")
    picture("help-search")
    keys("Escape")


def opened():
    _, window = main_window()
    open_tab(window, "Connect", "Servers")
    keys("ctrl+2")
    open_tab(window, "Listen", "Server")
    if find(window, "text", "Hostname").queryText().getText(0, -1) != "Told Apart":
        fail("the document is another one")


def listed():
    _, window = main_window()
    find_cell(find(window, "tree", "Servers"), "Bridge")


{"overview": overview, "help": use_help, "opened": opened, "listed": listed}[sys.argv[1]]()
