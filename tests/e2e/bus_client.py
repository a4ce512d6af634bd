# SPDX-License-Identifier: GPL-3.0-or-later
"""A client of the message bus for tests, on a Python that has GLib's library. Reads requests from
its standard input, one JSON list a line, and answers each with one line:
["call", interface, method, signature, arguments]: the results, or {"error": name};
["type", interface, property]: the signature of its value;
["signals"]: what was told since the last time, as [interface, name, arguments]."""
import json
import sys

import gi
gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

NAME = sys.argv[1]
PATH = sys.argv[2]
told = []


def keep(_bus, _sender, _path, interface, name, arguments):
    told.append([interface, name, arguments.unpack()])


def call(bus, interface, method, signature, arguments):
    try:
        answer = bus.call_sync(NAME, PATH, interface, method,
                               GLib.Variant(signature, unjson(signature, arguments)), None,
                               Gio.DBusCallFlags.NONE, 5000, None)
    except GLib.Error as error:
        return {"error": Gio.DBusError.get_remote_error(error) or error.message}
    return list(answer.unpack())


def type_of(bus, interface, name):
    answer = bus.call_sync(NAME, PATH, "org.freedesktop.DBus.Properties", "Get",
                           GLib.Variant("(ss)", (interface, name)), None, Gio.DBusCallFlags.NONE,
                           5000, None)
    return answer.get_child_value(0).get_variant().get_type_string()


def unjson(signature, arguments):
    """A variant stands as [signature, value]."""
    if signature == "(ssv)":
        form, value = arguments[2]
        return (*arguments[:2], GLib.Variant(form, tuple(value) if form[0] == "(" else value))
    return tuple(arguments)


def main():
    bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    bus.signal_subscribe(None, None, None, PATH, None, Gio.DBusSignalFlags.NONE, keep)
    context = GLib.MainContext.default()
    for line in sys.stdin:
        request = json.loads(line)
        if request[0] == "call":
            answer = call(bus, *request[1:])
        elif request[0] == "type":
            answer = type_of(bus, *request[1:])
        else:
            # What was sent before an answer came before it.
            bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus.Peer", "Ping", None,
                          None, Gio.DBusCallFlags.NONE, 5000, None)
            while context.pending():
                context.iteration(False)
            answer, told[:] = list(told), []
        print(json.dumps(answer), flush=True)


main()
