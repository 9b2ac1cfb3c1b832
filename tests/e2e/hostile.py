#!/usr/bin/python3
"""Makes archives that nobody should trust, as hostile.sh tells: bombs, lies about sizes, cut files, odd names, pictures
that are none."""

import bz2
import struct
import sys
import zipfile
import zlib

GIANT = 1 << 30  # bytes
BZIP2 = 12  # the number of that method in an archive


def entry(name, packed, size, checksum, method=0):
    """One entry with the sizes that it claims, as a local header and a line of the directory."""
    fields = struct.pack("<HHHHHIIIHH", 46, 0, method, 0, 0x21, checksum, len(packed), size, len(name), 0)
    return name, b"PK\3\4" + fields + name + packed, fields


def archive(path, entries):
    body = directory = b""
    for name, local, fields in entries:
        directory += b"PK\1\2" + struct.pack("<H", 46) + fields + struct.pack("<HHHII", 0, 0, 0, 0, len(body)) + name
        body += local
    end = struct.pack("<4sHHHHIIH", b"PK\5\6", 0, 0, len(entries), len(entries), len(directory), len(body), 0)
    with open(path, "wb") as file:
        file.write(body + directory + end)


def giant_of_zeros():
    """A gigabyte of zeros in less than a kilobyte, and its checksum."""
    packer, packed, checksum, piece = bz2.BZ2Compressor(), b"", 0, bytes(1 << 24)
    for _ in range(GIANT // len(piece)):
        packed += packer.compress(piece)
        checksum = zlib.crc32(piece, checksum)
    return packed + packer.flush(), checksum


def tga(kind, width, height, bits, points):
    return struct.pack("<BBBHHBHHHHBB", 0, 0, kind, 0, 0, 0, 0, 0, width, height, bits, 0) + points


def stored(name, content):
    return entry(name, content, len(content), zlib.crc32(content))


def main(folder):
    packed, checksum = giant_of_zeros()
    archive(f"{folder}/bombs.pk3", [
        entry(b"maps/giant.bsp", packed, GIANT, checksum, BZIP2),
        entry(b"levelshots/giant.jpg", packed, GIANT, checksum, BZIP2),
        entry(b"models/players/a/icon_giant.tga", packed, GIANT, checksum, BZIP2),
        entry(b"maps/liar.bsp", packed, 1 << 20, checksum, BZIP2),
        entry(b"levelshots/liar.jpg", packed, 60 << 20, checksum, BZIP2),
        entry(b"models/players/a/icon_liar.tga", packed, 60 << 20, checksum, BZIP2),
        entry(b"levelshots/short.jpg", b"x", 2, zlib.crc32(b"x")),
        entry(b"levelshots/sum.jpg", b"x", 1, 7),
        entry(b"levelshots/method.jpg", b"x", 1, zlib.crc32(b"x"), 77)])
    archive(f"{folder}/icons.pk3", [
        stored(b"models/players/a/icon_claims.tga", tga(2, 4096, 4096, 32, bytes(100))),
        stored(b"models/players/a/icon_huge.tga", tga(10, 65535, 65535, 32, b"\xff\1\2\3\4" * 100)),
        stored(b"models/players/a/icon_runs.tga", tga(10, 4, 4, 32, b"\xff\1\2\3\4" * 100)),
        stored(b"models/players/a/icon_none.tga", b""),
        stored(b"models/players/a/icon_good.tga", tga(2, 1, 1, 32, b"\1\2\3\4"))])
    names = [b"\x83\x7d\x83\x62\x83\x76", b"caf\x82", b"\xff\xfe", b"\xc3\x28", "Карта".encode("cp866"), b"tab\there"]
    archive(f"{folder}/names.pk3", [stored(b"maps/" + name + b".bsp", b"x") for name in names] +
            [stored(b"levelshots/" + name + b".jpg", b"x") for name in names] +
            [stored(b"usermdls.txt/levelshots/x.jpg", b"x"), stored(b"maps/" + b"a/" * 1500 + b"levelshots.jpg", b"x"),
             stored(b"levelshots/" + b"x" * 5000 + b".jpg", b"x")])
    with zipfile.ZipFile(f"{folder}/whole.zip", "w") as whole:
        for number in range(50):
            whole.writestr(f"maps/m{number}.bsp", b"x")
    with open(f"{folder}/whole.zip", "rb") as file:
        content = file.read()
    for share in (0, 10, 50, 90, 99):
        with open(f"{folder}/cut{share}.pk3", "wb") as file:
            file.write(content[:len(content) * share // 100])


main(sys.argv[1])
