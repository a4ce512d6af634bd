# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop's host of icons on a private bus: it is the watcher and the host in one, and does what
it is told on its standard input, one line a command; each answer is one line.

up           becomes the watcher, with a host
alone        becomes the watcher, without a host
down         gives the name back
items        the services that registered and are still on the bus
changes      the signals of items since it was last asked
notices      from the first time on: the texts of the notifications that were asked for
get NAME     a property of the last item
call NAME    Activate, SecondaryActivate or ContextMenu, at 10, 10
scroll N     by N, vertically
token TEXT   an activation token"""
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
INTERFACE = """<node><interface name="org.kde.StatusNotifierWatcher">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<signal name="StatusNotifierHostRegistered"/>
<signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
</interface></node>"""


NOTICES = """<node><interface name="org.freedesktop.Notifications"><method name="Notify">
<arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
<arg type="a{sv}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/>
</method></interface></node>"""


class Host:
    def __init__(self):
        self.notices = None
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.items, self.hosted, self.changes = [], True, []
        node = Gio.DBusNodeInfo.new_for_xml(INTERFACE)
        self.bus.register_object("/StatusNotifierWatcher", node.interfaces[0], self.called,
                                 self.asked, None)
        self.bus.signal_subscribe(None, ITEM, None, "/StatusNotifierItem", None,
                                  Gio.DBusSignalFlags.NONE,
                                  lambda *words: self.changes.append(words[4]))
        self.loop = GLib.MainLoop()
        GLib.io_add_watch(sys.stdin.fileno(), GLib.IO_IN | GLib.IO_HUP, self.line)

    def called(self, _bus, sender, _path, _interface, method, words, answer):
        if method == "RegisterStatusNotifierItem":
            service = words[0]
            self.items.append(sender if service.startswith("/") else service)
        answer.return_value(None)

    def notified(self, _bus, _sender, _path, _interface, _method, words, answer):
        self.notices.append(words[3])
        answer.return_value(GLib.Variant("(u)", (1,)))

    def asked(self, _bus, _sender, _path, _interface, name):
        if name == "IsStatusNotifierHostRegistered":
            return GLib.Variant("b", self.hosted)
        if name == "ProtocolVersion":
            return GLib.Variant("i", 0)
        return GLib.Variant("as", self.items)

    def dbus(self, method, form, *words):
        return self.bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                  "org.freedesktop.DBus", method, GLib.Variant(form, words), None,
                                  Gio.DBusCallFlags.NONE, 5000, None).unpack()[0]

    def live(self):
        return [item for item in self.items if self.dbus("NameHasOwner", "(s)", item)]

    def item_call(self, interface, method, words):
        return self.bus.call_sync(self.live()[-1], "/StatusNotifierItem", interface, method, words,
                                  None, Gio.DBusCallFlags.NONE, 5000, None)

    def do(self, command, rest):
        if command in ("up", "alone"):
            self.items, self.hosted = [], command == "up"
            return self.dbus("RequestName", "(su)", WATCHER, 4)
        if command == "host":
            self.hosted = True
            self.bus.emit_signal(None, "/StatusNotifierWatcher", WATCHER,
                                 "StatusNotifierHostRegistered", None)
            return "ok"
        if command == "down":
            return self.dbus("ReleaseName", "(s)", WATCHER)
        if command == "items":
            return " ".join(self.live())
        if command == "notices":
            if self.notices is None:
                self.notices = []
                node = Gio.DBusNodeInfo.new_for_xml(NOTICES)
                self.bus.register_object("/org/freedesktop/Notifications", node.interfaces[0],
                                         self.notified, None, None)
                self.dbus("RequestName", "(su)", "org.freedesktop.Notifications", 4)
            return repr(self.notices)
        if command == "changes":
            seen, self.changes = self.changes, []
            return " ".join(seen)
        if command == "get":
            value = self.item_call("org.freedesktop.DBus.Properties", "Get",
                                   GLib.Variant("(ss)", (ITEM, rest))).unpack()[0]
            if rest == "IconPixmap":
                value = [(wide, high, len(pixels)) for wide, high, pixels in value]
            return repr(value)
        if command == "call":
            self.item_call(ITEM, rest, GLib.Variant("(ii)", (10, 10)))
        elif command == "scroll":
            self.item_call(ITEM, "Scroll", GLib.Variant("(is)", (int(rest), "vertical")))
        elif command == "token":
            self.item_call(ITEM, "ProvideXdgActivationToken", GLib.Variant("(s)", (rest,)))
        return "ok"

    def line(self, _file, condition):
        line = sys.stdin.readline()
        if not line or (condition & GLib.IO_HUP and not line):
            self.loop.quit()
            return False
        command, _, rest = line.strip().partition(" ")
        try:
            print(self.do(command, rest), flush=True)
        except Exception as failure:  # told to who asked, whatever it is
            print("failed:", failure, flush=True)
        return True


print("ready", flush=True)
Host().loop.run()
