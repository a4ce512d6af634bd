# SPDX-License-Identifier: GPL-3.0-or-later
"""A client of the message bus that sends calls as fast as it can and reads no answer, until it is
killed or, with "read", until all are answered. Prints "sent" once the last one is on its way, and
with "read" how many answers came and how many of them were errors.

Usage: bus_storm.py NAME PATH COUNT [read]"""
import os
import socket
import sys
import time

import gi
gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

NAME, PATH, COUNT = sys.argv[1], sys.argv[2], int(sys.argv[3])
PLAYER = "org.mpris.MediaPlayer2.Player"
PATIENCE = 20  # seconds in which at least one more answer has to come


def connected():
    address = os.environ["DBUS_SESSION_BUS_ADDRESS"].removeprefix("unix:")
    parts = dict(part.split("=", 1) for part in address.split(","))
    link = socket.socket(socket.AF_UNIX)
    link.connect("\0" + parts["abstract"] if "abstract" in parts else parts["path"])
    link.sendall(b"\0AUTH EXTERNAL " + str(os.getuid()).encode().hex().encode() + b"\r\n")
    link.recv(256)
    link.sendall(b"BEGIN\r\n")
    return link


def call(serial, name, path, interface, method, arguments=None):
    message = Gio.DBusMessage.new_method_call(name, path, interface, method)
    message.set_serial(serial)
    if arguments is not None:
        message.set_body(arguments)
    return bytes(message.to_blob(Gio.DBusCapabilityFlags.NONE))


def kinds():
    properties = "org.freedesktop.DBus.Properties"
    everything = GLib.Variant("(s)", (PLAYER,))
    return [(properties, "GetAll", everything), (PLAYER, "Pause", None), (PLAYER, "Play", None),
            (PLAYER, "Seek", GLib.Variant("(x)", (1000,))), (PLAYER, "Nothing", None),
            (PLAYER, "OpenUri", GLib.Variant("(s)", ("file:///no/such/file.mp3",))),
            (properties, "Set", GLib.Variant("(ssv)", (PLAYER, "Volume", GLib.Variant("d", 0.5))))]


def answers(link, data):
    """Reads until every call, and the greeting, is answered: how many answers were there to the
    calls, and how many of them were errors."""
    link.settimeout(PATIENCE)
    came = {2: 0, 3: 0}  # by the kind of message: a result, an error
    while sum(came.values()) < COUNT + 1:
        while len(data) < 16 or len(data) < size_of(data):
            try:
                more = link.recv(1 << 16)
            except TimeoutError:
                more = b""
            if not more:
                return sum(came.values()) - 1, came[3]
            data += more
        if data[1] in came:
            came[data[1]] += 1
        data = data[size_of(data):]
    return sum(came.values()) - 1, came[3]


def size_of(data):
    order = "little" if data[:1] == b"l" else "big"
    body, fields = (int.from_bytes(data[at:at + 4], order) for at in (4, 12))
    return 16 + (fields + 7) // 8 * 8 + body


def main():
    link = connected()
    bus = "org.freedesktop.DBus"
    link.sendall(call(1, bus, "/org/freedesktop/DBus", bus, "Hello"))
    data = link.recv(4096)
    many = kinds()
    blobs = b"".join(call(number + 2, NAME, PATH, *many[number % len(many)])
                     for number in range(COUNT))
    link.sendall(blobs)
    print("sent", flush=True)
    while "read" not in sys.argv:
        time.sleep(1)
    print(*answers(link, data), flush=True)


main()
