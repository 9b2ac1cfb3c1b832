#!/usr/bin/env python3
"""A master server of the game: master_server.py IP PORT PROTOCOL ADDRESS...

Tells of the addresses to whoever asks for servers of that protocol, and of some that no master should tell of. Prints
"ready", and serves until its input ends.
"""

import os
import selectors
import socket
import struct
import sys

HEAD = b"\xff\xff\xff\xff"
# This machine, a private network, a whole network: a program that trusts nobody asks none of them.
UNWANTED = ("127.0.0.1:27960", "192.168.0.1:27960", "203.0.113.255:27960")


def record(address):
    host, port = address.rsplit(":", 1)
    return b"\\" + socket.inet_aton(host) + struct.pack(">H", int(port))


def main():
    ip, port, protocol = sys.argv[1:4]
    servers = b"".join(record(address) for address in (*sys.argv[4:], *UNWANTED))
    here = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    here.bind((ip, int(port)))
    waiting = selectors.DefaultSelector()
    waiting.register(here, selectors.EVENT_READ)
    waiting.register(sys.stdin, selectors.EVENT_READ)
    print("ready", flush=True)
    while True:
        for key, _ in waiting.select():
            if key.fileobj is sys.stdin:
                if not os.read(0, 1):
                    return
                continue
            request, client = here.recvfrom(2048)
            print("asked", request[len(HEAD):].decode("latin-1"), flush=True)
            if request.split()[:2] == [HEAD + b"getservers", protocol.encode()]:
                here.sendto(HEAD + b"getserversResponse" + servers + b"\\EOT\0\0\0", client)


if __name__ == "__main__":
    main()
