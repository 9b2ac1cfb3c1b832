#!/usr/bin/python3
"""Works out by unzip and strings alone what the scans should find in a folder's archives: archives.py GAME OUT.

OUT gets the two lists as the program writes them, the level shots, the icons as they are packed, and the counts.
"""

import os
import re
import subprocess
import sys

CHUNK = 32768  # a title is looked for in pieces of so many bytes
MOST = 100  # entries of a kind that a scan takes from one archive
# The game's own that these archives hold as well.
OWN_MODELS = {"major", "sarge"}
OWN_SKINS = {f"{model}/{skin}" for model in OWN_MODELS for skin in ("default", "red", "blue")}


def run(*command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, **options).stdout


def title_by_chunks(data):
    for start in range(0, len(data) if len(data) > CHUNK else 0, CHUNK):
        piece = data[start:start + CHUNK]
        key = re.search(rb'"message" "', piece, re.IGNORECASE)
        value = key and key.start() > 0 and re.compile(rb'[^"]+(?=")').match(piece, key.end())
        if value:
            return re.sub(rb"[\0-\x1f]", b" ", value[0])
    return None


def title_by_strings(data):
    command = 'strings -a -eS | grep -aim1 \'"message" "\''
    found = subprocess.run(command, shell=True, input=data, stdout=subprocess.PIPE).stdout
    return found.strip()[len('"message" "'):-1] or None


def crosses_a_border(data):
    pair = re.search(rb'"message" "[^"]*"', data, re.IGNORECASE)
    return pair is not None and pair.start() // CHUNK != (pair.end() - 1) // CHUNK


def capital(name):
    return name[:1].upper() + name[1:]


game, out = sys.argv[1:]
maps, skins, written, models, untitled = [], [], {}, set(), 0
known_skins = set(OWN_SKINS)
for archive in sorted((name for name in os.listdir(game) if name.lower().endswith(".pk3")), key=str.lower):
    path = f"{game}/{archive}"
    names = run("unzip", "-Z1", path).decode().splitlines()

    def of(pattern):
        found = [name for name in names if re.fullmatch(pattern, name, re.IGNORECASE)]
        if len(found) > MOST:
            sys.exit(f"{archive} holds more of {pattern} than a scan takes")
        return found

    def unpack(name, target):
        if target.lower() in written:
            return
        written[target.lower()] = name
        os.makedirs(os.path.dirname(f"{out}/{target}"), exist_ok=True)
        with open(f"{out}/{target}", "wb") as file:
            file.write(run("unzip", "-p", path, name))

    for name in of(r"maps/.*\.bsp"):
        data = run("unzip", "-p", path, name)
        title = title_by_chunks(data)
        untitled += title is None
        maps.append(name[5:-4].upper().encode() + b" " + (title or b"cancel"))
        if title != title_by_strings(data):
            if not crosses_a_border(data):
                sys.exit(f"{archive}: {name}: {title} by chunks, {title_by_strings(data)} by strings")
            print(f"{archive}: {name}: the title crosses a border")
    for name in of(r"levelshots/.*\.jpg"):
        unpack(name, name)
    models |= {name.split("/")[-2].lower() for name in of(r"models/players/.*upper\.md3")} - OWN_MODELS
    for name in of(r"models/players/.*/upper_.*\.skin"):
        skin = capital(name.split("/")[-2]) + "/" + capital(name.rsplit("_", 1)[1].rsplit(".", 1)[0])
        if skin.lower() not in known_skins:
            known_skins.add(skin.lower())
            skins.append(skin.encode())
    for name in of(r"models/players/.*/icon_.*\.tga"):
        unpack(name, name)

for name, lines in (("usermaps.txt", maps), ("usermdls.txt", skins)):
    with open(f"{out}/{name}", "wb") as file:
        file.write(b"".join(line + b"\r\n" for line in lines))
with open(f"{out}/counts", "w") as file:
    icons = sum(name.endswith(".tga") for name in written)
    print(len(maps), untitled, len(written) - icons, len(models), len(skins), icons, file=file)
