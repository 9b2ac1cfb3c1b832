"""What a test needs to drive the window by the names that a screen reader reads out."""

import subprocess
import sys
import time

import gi
import pyatspi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 30  # seconds
COMMAND_TIME = 2000  # milliseconds; a command that opens a dialog answers when that is closed
START_TIME = 3000  # milliseconds, from the start of the program, in which more patience is had

Atspi.set_timeout(COMMAND_TIME, START_TIME)


def fail(text):
    sys.exit(f"FAILED: {text}")


def wait_for(what, look):
    """What `look` gives, once that is something; what is being changed while it looks is no failure."""
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        try:
            found = look()
        except (GLib.Error, LookupError, NotImplementedError):
            found = None
        if found:
            return found
        time.sleep(0.1)
    fail(what)


def nodes(where):
    """Everything below a node that is on show; a table is left whole, but for one that is asked itself."""
    for child in where:
        if child is None:
            continue
        is_cell = child.getRole() == pyatspi.ROLE_TABLE_CELL
        if is_cell or child.getState().contains(pyatspi.STATE_SHOWING):
            yield child
            if child.getRole() != pyatspi.ROLE_TREE:
                yield from nodes(child)


def name_of(node):
    """The name, or the one of the label that leads to it."""
    for relation in node.getRelationSet():
        if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY:
            return relation.getTarget(0).name.rstrip(":")
    return node.name


def find(where, role, name):
    """The node of that role and name, once it is there."""

    def look():
        return next((node for node in nodes(where) if node.getRoleName() == role and name_of(node) == name), None)

    return wait_for(f"there is no {role} {name!r}", look)


def find_cell(table, beginning):
    """The first cell of a table whose text begins so, in any case."""

    def look():
        return next((cell for cell in table if cell and cell.name.lower().startswith(beginning.lower())), None)

    return wait_for(f"there is no cell {beginning!r}", look)


def is_enabled(node):
    return node.getState().contains(pyatspi.STATE_ENABLED)


def act(node, wanted):
    wait_for(f"{node.name!r} stays disabled", lambda: is_enabled(node))
    actions = node.queryAction()
    numbers = [number for number in range(actions.nActions) if actions.getName(number) == wanted]
    if not numbers:
        fail(f"{node.name!r} can't be used by {wanted}")
    try:
        actions.doAction(numbers[0])
    except GLib.Error:
        pass  # the command goes on


def press(where, name):
    act(find(where, "push button", name), "Press")


def open_tab(window, mode, tab):
    act(find(find(window, "list", f"Tabs of {mode}"), "list item", tab), "Toggle")


def type_into(where, name, text):
    find(where, "text", name).queryEditableText().setTextContents(text)


def click(node):
    """Puts the mouse on what has that name, and the keyboard with it."""
    area = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    place = (str(area.x + area.width // 2), str(area.y + area.height // 2))
    subprocess.run(["xdotool", "mousemove", "--sync", *place, "click", "1"], check=True)


def keys(*names):
    subprocess.run(["xdotool", "key", "--clearmodifiers", *names], check=True)


def main_window():
    """The program and its main window."""
    desktop = pyatspi.Registry.getDesktop(0)
    program = wait_for("the program is not on the bus",
                       lambda: next((one for one in desktop if one and one.name == "gatehouse"), None))
    return program, wait_for("no window", lambda: [one for one in program if one.getRoleName() == "frame"])[0]
