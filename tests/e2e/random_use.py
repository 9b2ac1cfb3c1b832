#!/usr/bin/python3
"""Uses the window at random until it is killed (`use`), or looks at what is left on the disk then (`check`)."""

import os
import random
import subprocess
import sys
import time


def whole_text(path):
    with open(path, "rb") as file:
        return file.read().decode("latin-1").split("\r\n")


def keys_of(document):
    """Kind and key of each line that every document has."""
    return {" ".join(line.split(" ")[:2]) for line in whole_text(document) if line[:4] in ("seta", "srvr", "base")}


def check(options, app, game, pattern):
    """What is on the disk is whole, whatever was under way."""
    problems = []
    with open(options, encoding="utf-8") as file:
        stored = {line.split("=")[0] for line in file if "=" in line}
    if len(stored) < 18:
        problems.append(f"only {len(stored)} options are left")
    for name in ("default.ghc", "other.ghc"):
        path = os.path.join(app, name)
        if os.path.exists(path) and (keys_of(path) != keys_of(pattern) or not whole_text(path)[-2].startswith("bind ")):
            problems.append(f"{name} is not whole")
    servers = [line for line in whole_text(os.path.join(app, "default.ghs"))[:-1] if not line.startswith("//")]
    if any("|P|" not in line or line.count("|") < 7 for line in servers):
        problems.append("a server's line is broken")
    for name, last in (("gatehouse.cfg", "// Finished"), ("gatehouse.bat", "exit")):
        path = os.path.join(game, "baseq3", name)
        if os.path.exists(path) and last not in whole_text(path)[-4:]:
            problems.append(f"{name} is cut")
    for folder in (app, os.path.dirname(options), os.path.join(game, "baseq3")):
        beside = [name.rsplit(".", 2)[0] for name in os.listdir(folder) if name.endswith(".new")]
        if len(beside) != len(set(beside)):
            problems.append(f"files are left over in {folder}")
    if problems:
        sys.exit("FAILED: " + "; ".join(problems))


def use(seed):
    """Never ends by itself."""
    import accessible
    from accessible import act, find, is_enabled, keys, main_window, nodes, open_tab, press, type_into
    accessible.PATIENCE = 3
    choose = random.Random(seed)
    program, window = main_window()
    modes = {"Connect": ["Servers", "Player", "Keys", "Video", "Tweak 1", "Tweak 2"],
             "Listen": ["Server", "Maps", "Bots", "Player", "Keys", "Video", "Tweak 1", "Tweak 2"],
             "Dedicated": ["Server", "Maps", "Bots"]}

    def to_tab(mode=None, tab=None):
        mode = mode or choose.choice(list(modes))
        act(find(window, "check box", mode), "Toggle")
        open_tab(window, mode, tab or choose.choice(modes[mode]))

    def tick():
        boxes = [node for node in nodes(window) if node.getRoleName() == "check box" and is_enabled(node)]
        act(choose.choice(boxes), "Toggle")

    def name_server():
        to_tab("Listen", "Server")
        type_into(window, "Hostname", f"Yard {choose.randrange(1000)}")

    def add_bot():
        to_tab("Listen", "Bots")
        press(window, "Add")
        press(find(program, "dialog", "Add Bot"), "OK")

    def save():
        keys("ctrl+s")
        time.sleep(0.4)
        subprocess.run(["xdotool", "type", "--delay", "3", choose.choice(["default", "other"])], check=True)
        keys("Return")
        time.sleep(0.3)
        keys("alt+y")

    def add_server():
        to_tab("Connect", "Servers")
        keys("Insert")
        dialog = find(program, "dialog", "New IP Address")
        type_into(dialog, "IP Address", "127.0.0.1")
        type_into(dialog, "Port", str(choose.randrange(20000, 27000)))
        press(dialog, choose.choice(["OK", "Cancel"]))

    def save_list():
        to_tab("Connect", "Servers")
        press(window, "Save")
        time.sleep(0.4)
        keys("Return")
        time.sleep(0.3)
        keys("alt+y")

    def run():
        press(window, "Run")
        time.sleep(0.3)
        keys("Return")

    steps = [to_tab, tick, tick, tick, name_server, add_bot, save, save, add_server, save_list, run, run,
             lambda: keys("F12"), lambda: keys("F12"), lambda: keys("ctrl+z"), lambda: keys("ctrl+shift+z")]
    while True:
        try:
            choose.choice(steps)()
        except SystemExit:
            keys("Escape")  # something was in the way, such as a dialog left open


if __name__ == "__main__":
    {"use": lambda: use(int(sys.argv[2])), "check": lambda: check(*sys.argv[2:])}[sys.argv[1]]()
