#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures what long playlists cost in the real window, and beside it in other players.

Usage: long_list.py PROGRAM FILE [--rows N,...] [--runs N] [--only NAME,...] [--work NAME,...]

FILE is a piece of music of some ten seconds that all rows lead to: a new track would be no rest. A
private X server, window manager, sound server and home folder serve each run. The kinds of work:

start     the program is started with a playlist file
handover  the same file is handed to the program that runs (Tovik alone)
tree      a tree of 20,000 files is added, by the dialog that adds folders
restart   the program is started with a saved list of that length (Tovik alone)

"window" is when the first window answers the window manager's question whether it is alive,
"listed" when the player itself tells that it has all rows (Tovik tells nobody: it is as done as it
is at rest), "rest" is the end of the last two hundredths of a second in a row in each of which all
threads together used more than a fifth of it: a single one is sound that is decoded ahead. "stall"
is the longest time an answer took: how long the window was frozen. "end" is how long the program
took to end, with the list saved.
"""
import argparse
import ctypes
import json
import os
import shutil
import signal
import socket
import statistics
import subprocess
import time

from compare_players import LIMIT, Stage, memory

SAMPLE = 0.01       # seconds between two looks at the processor time
BUSY = SAMPLE / 5   # of processor time in one of them
QUIET = 1.5         # seconds without a busy one
TREE_FILES = 20_000
LINKS = 2_000       # names of one file, which a file system may bound

CLIENT_MESSAGE = 33
ROOT_EVENTS = 1 << 17 | 1 << 19  # changes of the root window and of its children
ANY_TYPE = 0


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong),
                ("message", ctypes.c_ulong), ("format", ctypes.c_int),
                ("data", ctypes.c_long * 5), ("rest", ctypes.c_long * 24)]


class Windows:
    """Asks the windows of the screen whether they are alive, as a window manager does."""

    def __init__(self, name):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        for function in ("XDefaultRootWindow", "XInternAtom"):
            getattr(self.x11, function).restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(name.encode()))
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        self.ping, self.protocols, self.clients = (
            self.x11.XInternAtom(self.display, atom, 0)
            for atom in (b"_NET_WM_PING", b"WM_PROTOCOLS", b"_NET_CLIENT_LIST"))
        self.x11.XSelectInput(self.display, self.root, ctypes.c_long(ROOT_EVENTS))
        self.handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(
            lambda *_: 0)
        self.x11.XSetErrorHandler(self.handler)  # a window may be gone when it is asked
        self.number = 0
        self.asked = {}

    def shown(self):
        kind, count, left = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_ulong()
        form, data = ctypes.c_int(), ctypes.POINTER(ctypes.c_ulong)()
        self.x11.XGetWindowProperty(
            self.display, self.root, ctypes.c_ulong(self.clients), ctypes.c_long(0),
            ctypes.c_long(64), 0, ctypes.c_ulong(ANY_TYPE), ctypes.byref(kind), ctypes.byref(form),
            ctypes.byref(count), ctypes.byref(left), ctypes.byref(data))
        found = [data[n] for n in range(count.value)] if data else []
        if data:
            self.x11.XFree(data)
        return found

    def ask(self):
        """A question to each window; it counts in milliseconds, so one must not come too soon."""
        for window in self.shown():
            self.number += 1
            event = ClientMessage(type=CLIENT_MESSAGE, window=window, message=self.protocols,
                                  format=32)
            event.data[0], event.data[1], event.data[2] = self.ping, self.number, window
            self.asked[self.number] = time.monotonic()
            self.x11.XSendEvent(self.display, ctypes.c_ulong(window), 0, ctypes.c_long(0),
                                ctypes.byref(event))
        self.x11.XFlush(self.display)

    def answers(self):
        """Seconds that each answer took that came since the last call."""
        took = []
        while self.x11.XPending(self.display):
            event = ClientMessage()
            self.x11.XNextEvent(self.display, ctypes.byref(event))
            if event.type == CLIENT_MESSAGE and event.data[0] == self.ping:
                began = self.asked.pop(event.data[1], None)
                if began is not None:
                    took.append(time.monotonic() - began)
        return took

    def waiting(self):
        return max((time.monotonic() - began for began in self.asked.values()), default=0)

    def forget(self):
        self.answers()
        self.asked.clear()


class Desk(Stage):
    """A screen with a window manager, and a sound server without anybody who records."""

    def __init__(self):
        super().__init__()
        self.run("openbox", "--sm-disable", stdout=subprocess.DEVNULL)
        time.sleep(0.5)
        self.windows = Windows(self.environment["DISPLAY"])

    def sound(self):
        path = os.path.join(self.folder, "sound.socket")
        self.run("pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
                 "-L", "module-null-sink sink_name=nowhere",
                 "-L", f"module-native-protocol-unix socket={path} auth-anonymous=1",
                 stdout=subprocess.DEVNULL)
        while not os.path.exists(path):
            time.sleep(0.01)

    def tool(self, *words):
        return subprocess.run(words, env=self.environment, capture_output=True, text=True,
                              timeout=LIMIT, check=False).stdout

    def keys(self, *keys):
        self.tool("xdotool", "key", "--clearmodifiers", *keys)

    def dialog(self, title):
        end = time.monotonic() + LIMIT
        while time.monotonic() < end:
            found = self.tool("xdotool", "search", "--onlyvisible", "--name", title).split()
            if found:
                self.tool("xdotool", "windowactivate", "--sync", found[0])
                return
        raise SystemExit("no dialog " + title)


def used(pid):
    """Seconds of processor time of all threads."""
    total = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        try:
            with open(f"/proc/{pid}/task/{task}/schedstat") as file:
                total += int(file.read().split()[0])
        except OSError:
            pass
    return total / 1e9


class Tovik:
    own = True
    tells = False

    def __init__(self, desk, program):
        self.desk, self.program = desk, program
        self.data = os.path.join(desk.folder, ".local/share/tovik")

    def command(self, *files):
        return [self.program, *files]

    def begin_in(self, folder):
        """That one is chosen already when the dialog that adds folders comes up."""
        path = os.path.join(self.data, "db/settings.xml")
        with open(path) as file:
            text = file.read()
        first, last = text.index("<CFLD>") + len("<CFLD>"), text.index("</CFLD>")
        with open(path, "w") as file:
            file.write(text[:first] + folder + text[last:])

    def saved(self, rows):
        with open(os.path.join(self.data, "db/autosave.m3u"), "wb") as file:
            file.write(b"#EXTM3U\r\n" + rows)


class Audacious:
    own = False
    tells = True

    def __init__(self, desk):
        self.desk = desk

    def command(self, *files):
        return ["audacious", "-Q", *files]

    def rows(self):
        text = self.desk.tool("audtool", "playlist-length").strip()
        return int(text) if text.isdigit() else 0


class Qmmp:
    own = False
    tells = False  # it would write all of them at each question

    def __init__(self, desk):
        self.desk = desk

    def command(self, *files):
        return ["qmmp", *files]


class Mpv:
    own = False
    tells = True

    def __init__(self, desk):
        self.path = os.path.join(desk.folder, "mpv.socket")

    def command(self, *files):
        return ["mpv", "--force-window", "--no-terminal", "--idle=yes",
                "--input-ipc-server=" + self.path,
                *("--playlist=" + file if file.endswith(".m3u") else file for file in files)]

    def rows(self):
        try:
            with socket.socket(socket.AF_UNIX) as peer:
                peer.settimeout(1)
                peer.connect(self.path)
                peer.sendall(b'{"command":["get_property","playlist-count"]}\n')
                for line in peer.makefile():
                    answer = json.loads(line)
                    if "data" in answer:
                        return answer["data"] or 0
        except (OSError, ValueError):
            pass
        return 0


def watch(desk, player, process, began, rows):
    """What is seen from the outside until the player is at rest."""
    windows, row = desk.windows, {}
    before, last, rest, stall = used(process.pid), time.monotonic(), None, 0.0
    was_busy = False
    while process.poll() is None:
        now = time.monotonic()
        if now - began > 2 * LIMIT:
            return row | {"rest": None, "RSS MB": 0}
        took = windows.answers()
        if took:
            row.setdefault("window", now - began)
            stall = max(stall, *took)
        stall = max(stall, windows.waiting())
        if not windows.asked:
            windows.ask()
        if rows and "window" in row and "listed" not in row and player.rows() == rows:
            row["listed"] = time.monotonic() - began
        if now - last >= SAMPLE:
            total = used(process.pid)
            is_busy = total - before > BUSY * (now - last) / SAMPLE
            if is_busy and was_busy:
                rest = now
            before, last, was_busy = total, now, is_busy
            if "window" in row and now - max(rest or began, began) > QUIET:
                break
        time.sleep(0.001)
    if process.poll() is not None:
        return row | {"rest": None}
    row |= {"rest": (rest or began) - began, "stall": stall, "RSS MB": memory(process.pid)[0]}
    return row


def begin(desk, words):
    desk.windows.forget()
    process = subprocess.Popen(words, env=desk.environment, stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return process, time.monotonic()


def finish(process):
    """Seconds until the program has ended as it does when it is asked to."""
    began = time.monotonic()
    process.send_signal(signal.SIGTERM)
    try:
        process.wait(LIMIT)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
    return time.monotonic() - began


def from_start(desk, player, files, rows):
    for stale in (".config/audacious/playlists", ".config/audacious/playlist-state",
                  ".qmmp/playlist.txt"):
        path = os.path.join(desk.folder, stale)
        shutil.rmtree(path, ignore_errors=True)
        if os.path.isfile(path):
            os.remove(path)
    process, began = begin(desk, player.command(*files))
    row = watch(desk, player, process, began, rows if player.tells else 0)
    return row | {"end": finish(process)}


def from_hand_over(desk, player, file):
    player.saved(b"")
    process, began = begin(desk, player.command())
    empty = watch(desk, player, process, began, 0)["RSS MB"]
    desk.windows.forget()
    began = time.monotonic()
    sender = subprocess.Popen(player.command(file), env=desk.environment)
    row = watch(desk, player, process, began, 0)
    sender.wait()
    return row | {"over empty MB": row["RSS MB"] - empty, "end": finish(process)}


def tree_added(desk, player):
    player.saved(b"")
    process, began = begin(desk, player.command())
    watch(desk, player, process, began, 0)
    desk.tool("xdotool", "windowactivate", "--sync", str(desk.windows.shown()[0]))
    desk.keys("ctrl+d")
    desk.dialog("Add folder")
    desk.keys("Tab", "Tab", "space")
    time.sleep(1)
    desk.windows.forget()
    began = time.monotonic()
    desk.keys("alt+a")
    row = watch(desk, player, process, began, 0) | {"end": finish(process)}
    with open(os.path.join(player.data, "db/autosave.m3u"), "rb") as file:
        rows = file.read().count(b"#EXTINF")
    if rows != TREE_FILES:
        raise SystemExit(f"{rows} rows came of the tree")
    return row


def make_files(folder, music):
    """A tree of ten files a folder; its names."""
    names = []
    source = None
    for number in range(TREE_FILES):
        if number % LINKS == 0:
            source = os.path.join(folder, f"source {number}")
            shutil.copy(music, source)
        place = os.path.join(folder, "tree", f"Artist {number // 100}", f"Album {number // 10}")
        if number % 10 == 0:
            os.makedirs(place)
        name = os.path.join(place, f"Song {number}" + os.path.splitext(music)[1])
        os.link(source, name)
        names.append(name)
    return names


def entries(names, rows):
    return "".join(f"#EXTINF:215,Some Artist - Song number {row}\r\n{names[row % len(names)]}\r\n"
                   for row in range(rows)).encode()


def told(name, work, rows):
    rows = [row for row in rows if row.get("rest") is not None]
    if not rows:
        print(f"{name:10} {work}: nothing was seen")
        return
    middle = {key: statistics.median(row[key] for row in rows if key in row)
              for key in rows[0]}
    print(f"{name:10} {work:16}", "  ".join(f"{key} {value:.3f}" for key, value in middle.items()),
          f" ({len(rows)} runs, load {os.getloadavg()[0]:.1f})", flush=True)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("file")
    parser.add_argument("--rows", default="1,10000,100000")
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--only", default="tovik,audacious,qmmp,mpv")
    parser.add_argument("--work", default="start,handover,tree,restart")
    arguments = parser.parse_args()
    desk = Desk()
    try:
        names = make_files(desk.folder, arguments.file)
        players = {"tovik": Tovik(desk, arguments.program), "audacious": Audacious(desk),
                   "qmmp": Qmmp(desk), "mpv": Mpv(desk)}
        players = {name: players[name] for name in arguments.only.split(",")
                   if shutil.which(players[name].command()[0])}
        runs = range(arguments.runs)
        for player in players.values():  # makes their folders
            from_start(desk, player, [names[0]] if player.own else [], 0)
        if "tovik" in players:
            players["tovik"].begin_in(os.path.join(desk.folder, "tree"))
        for rows in (int(number) for number in arguments.rows.split(",")):
            file = os.path.join(desk.folder, "list.m3u")
            with open(file, "wb") as out:
                out.write(b"#EXTM3U\r\n" + entries(names, rows))
            for name, player in players.items():
                if "start" in arguments.work.split(","):
                    told(name, f"start {rows}", [from_start(desk, player, [file], rows)
                                                 for _ in runs])
                if player.own and "handover" in arguments.work:
                    told(name, f"handover {rows}", [from_hand_over(desk, player, file)
                                                    for _ in runs])
                if player.own and "restart" in arguments.work:
                    player.saved(entries(names, rows))
                    told(name, f"restart {rows}", [from_start(desk, player, [], rows)
                                                   for _ in runs])
        if "tree" in arguments.work.split(","):
            for name, player in players.items():
                told(name, f"tree {TREE_FILES}",
                     [tree_added(desk, player) if player.own else
                      from_start(desk, player, [os.path.join(desk.folder, "tree")], TREE_FILES)
                      for _ in runs])
    finally:
        desk.close()


if __name__ == "__main__":
    main()
