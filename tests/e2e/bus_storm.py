# SPDX-License-Identifier: GPL-3.0-or-later
"""A client of the message bus that sends calls as fast as it can and reads no answer, until it is
killed or, with "read", until all are answered. Prints "sent" once the last one is on its way.

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
            (properties, "Set", GLib.Variant("(ssv)", (PLAYER, "Volume", GLib.Variant("d", 0.5))))]


def main():
    link = connected()
    bus = "org.freedesktop.DBus"
    link.sendall(call(1, bus, "/org/freedesktop/DBus", bus, "Hello"))
    link.recv(4096)
    many = kinds()
    blobs = b"".join(call(number + 2, NAME, PATH, *many[number % len(many)])
                     for number in range(COUNT))
    link.sendall(blobs)
    print("sent", flush=True)
    while "read" not in sys.argv:
        time.sleep(1)
    link.settimeout(1)
    try:
        while link.recv(1 << 20):
            pass
    except TimeoutError:
        pass


main()
