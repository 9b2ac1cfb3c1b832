#!/usr/bin/env python3
"""Servers of the game: fake_servers.py COUNT [IP PORT]

On ports of the loopback, or on those from PORT on at an address. Prints "ready" and the address of each, one a line, and serves until its input ends. Of each ten, six answer at once, one
after 300 ms, one twice, one sends rubbish, and one is silent.
"""

import heapq
import os
import selectors
import socket
import sys
import time

HEAD = b"\xff\xff\xff\xff"
SLOW = 0.3  # seconds
KINDS = ("well", "well", "well", "slow", "well", "twice", "well", "rubbish", "well", "silent")


def status(number):
    info = (f"\\sv_hostname\\Fake {number}\\mapname\\q3dm{number % 17}\\sv_maxclients\\16\\g_gametype\\0"
            f"\\fs_game\\baseq3\\sv_privateclients\\0\\version\\x\\")
    players = "".join(f'{score} 40 "Player {score}"\n' for score in range(number % 5))
    return HEAD + f"statusResponse\n{info}\n{players}".encode("latin-1")


def info(number, request):
    word = request.split()[1:2]
    text = f"\\hostname\\Fake {number}\\mapname\\q3dm{number % 17}\\clients\\{number % 5}\\sv_maxclients\\16\\gametype\\0\\protocol\\68"
    return HEAD + b"infoResponse\n" + (b"\\challenge\\" + word[0] if word else b"") + text.encode("latin-1")


def replies(number, request):
    """What server `number` sends, and when: seconds from now."""
    kind = KINDS[number % len(KINDS)]
    if kind == "silent":
        return []
    if kind == "rubbish":
        return [(0, os.urandom(number % 700))]
    text = info(number, request) if request.startswith(HEAD + b"getinfo") else status(number)
    answer = (SLOW if kind == "slow" else 0, text)
    return [answer, answer] if kind == "twice" else [answer]


def serve(sockets):
    waiting = selectors.DefaultSelector()
    for number, one in enumerate(sockets):
        waiting.register(one, selectors.EVENT_READ, number)
    waiting.register(sys.stdin, selectors.EVENT_READ)
    later = []  # (time, number, address, bytes)
    while True:
        wait = max(0, later[0][0] - time.monotonic()) if later else None
        for key, _ in waiting.select(wait):
            if key.fileobj is sys.stdin:
                if not os.read(0, 1):
                    return
                continue
            request, client = key.fileobj.recvfrom(2048)
            if request.startswith((HEAD + b"getstatus", HEAD + b"getinfo")):
                for delay, answer in replies(key.data, request):
                    heapq.heappush(later, (time.monotonic() + delay, key.data, client, answer))
        while later and later[0][0] <= time.monotonic():
            _, number, client, answer = heapq.heappop(later)
            sockets[number].sendto(answer, client)


def main():
    sockets = []
    ip, first = (sys.argv[2], int(sys.argv[3])) if len(sys.argv) > 2 else ("127.0.0.1", 0)
    for number in range(int(sys.argv[1])):
        one = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        one.bind((ip, first + number if first else 0))
        sockets.append(one)
    print("ready")
    for one in sockets:
        print("%s:%d" % one.getsockname())
    sys.stdout.flush()
    serve(sockets)


if __name__ == "__main__":
    main()
