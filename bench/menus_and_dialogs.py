#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures how long menus and preferences take to come up, and what they leave in memory.

Usage: menus_and_dialogs.py PROGRAM [--runs N] [--openings N]

A private X server, window manager and home folder serve the run. The time counts from the press of
the mouse's button until those pixels that change, in some rows of the screen, have their last
colours: "painted" when nine tenths of them do, "whole" when all do, what changes with the focus
included, which the window manager gives. The screen is asked about every millisecond.

"first" is the first opening after a start, "again" one of those after it. The memory (RSS) is asked
before the first opening, after the tenth and after the last: what is made once and kept comes with
the first ones.
"""
import argparse
import ctypes
import os
import shutil
import signal
import statistics
import subprocess
import tempfile
import time

from compare_players import LIMIT, memory

Z_PIXMAP = 2
SCREEN = (1280, 1024)
ESCAPE = 0xFF1B
LEFT, RIGHT = 1, 3
WINDOW = (100, 100)  # where the settings of a first start put it
BACKGROUND = (10, 60)
PREFERENCES = (257, 17)
ROWS = range(20, 480, 20)  # of the screen, in which something is looked for
QUIET = 0.3          # seconds without a change after which a picture is the last
REST = 0.2           # seconds between one thing and the next
PIXEL = 4            # bytes
PAINTED = 0.9
FEWEST = 500         # changed pixels of something that came up
WARM = 10            # openings after which nothing new should be made


class Image(ctypes.Structure):
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.POINTER(ctypes.c_char)),
                ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int),
                ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int),
                ("depth", ctypes.c_int), ("bytes_per_line", ctypes.c_int)]


class Screen:
    """A private X server: its picture, and a mouse and a keyboard for it."""

    def __init__(self, name):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.test = ctypes.CDLL("libXtst.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XGetImage.restype = ctypes.POINTER(Image)
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(name.encode()))
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        self.escape = self.x11.XKeysymToKeycode(self.display, ctypes.c_ulong(ESCAPE))

    def pixels(self, left, top, width, height):
        image = self.x11.XGetImage(self.display, self.root, left, top, width, height,
                                   ctypes.c_ulong(0xFFFFFFFF), Z_PIXMAP)
        part = image.contents
        data = ctypes.string_at(part.data, part.bytes_per_line * height)
        self.x11.XDestroyImage(image)
        return data

    def whole(self):
        return self.pixels(0, 0, *SCREEN)

    def move(self, x, y):
        self.test.XTestFakeMotionEvent(self.display, -1, x, y, ctypes.c_ulong(0))
        self.x11.XSync(self.display, 0)

    def button(self, number, down):
        self.test.XTestFakeButtonEvent(self.display, number, int(down), ctypes.c_ulong(0))
        self.x11.XSync(self.display, 0)

    def key(self, code):
        for down in (1, 0):
            self.test.XTestFakeKeyEvent(self.display, code, down, ctypes.c_ulong(0))
        self.x11.XSync(self.display, 0)


class Desk:
    def __init__(self, program):
        self.folder = tempfile.mkdtemp()
        self.children = []
        self.environment = {"PATH": os.environ["PATH"], "HOME": self.folder, "LANG": "C.UTF-8",
                            "XDG_RUNTIME_DIR": self.folder}
        read_end, write_end = os.pipe()
        self.run("Xvfb", "-displayfd", str(write_end), "-screen", "0",
                 "x".join(map(str, SCREEN)) + "x24", pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            self.environment["DISPLAY"] = ":" + pipe.readline().strip()
        self.run("openbox", "--sm-disable")
        time.sleep(0.5)
        self.screen = Screen(self.environment["DISPLAY"])
        self.program = program

    def run(self, *words, **options):
        child = subprocess.Popen(words, env=self.environment, stdout=subprocess.DEVNULL,
                                 stderr=subprocess.DEVNULL, **options)
        self.children.append(child)
        return child

    def start(self):
        self.screen.move(*(size - 1 for size in SCREEN))
        before = self.screen.whole()
        player = self.run(self.program, "--device", "silent")
        end = time.monotonic() + LIMIT
        while self.screen.whole() == before:
            if time.monotonic() > end or player.poll() is not None:
                raise SystemExit("no window came")
            time.sleep(0.01)
        time.sleep(1)
        return player

    def end(self, player):
        player.send_signal(signal.SIGTERM)
        player.wait(LIMIT)
        self.children.remove(player)

    def close(self):
        for child in reversed(self.children):
            child.kill()
            child.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


class Subject:
    """Something that a button of the mouse brings up and Escape takes away."""

    def __init__(self, name, screen, place, button):
        self.name, self.screen, self.button = name, screen, button
        self.place = tuple(map(sum, zip(place, WINDOW)))

    def look(self):
        return [self.screen.pixels(0, row, SCREEN[0], 1) for row in ROWS]

    def watch(self, began):
        """What was seen from then on until nothing changed any more: when, and the rows."""
        seen = [(began, self.look())]
        while time.monotonic() - seen[-1][0] < QUIET:
            rows = self.look()
            if rows != seen[-1][1]:
                seen.append((time.monotonic(), rows))
            if time.monotonic() - began > LIMIT:
                raise SystemExit(self.name + " never comes to rest")
            time.sleep(0.0003)
        return seen

    def open(self):
        """Milliseconds until it was painted, and until it was whole."""
        self.screen.move(*self.place)
        time.sleep(REST)
        before = self.look()
        began = time.monotonic()
        self.screen.button(self.button, True)
        self.screen.button(self.button, False)
        seen = self.watch(began)
        last = seen[-1][1]
        wanted = changed(before, last)
        if len(wanted) < FEWEST:
            raise SystemExit(self.name + " did not come up")
        painted = next(when for when, rows in seen
                       if sum(rows[row][at:at + PIXEL] == last[row][at:at + PIXEL]
                              for row, at in wanted) >= PAINTED * len(wanted))
        self.screen.key(self.screen.escape)
        time.sleep(REST)
        if len(changed(self.look(), last)) < PAINTED * len(wanted):
            raise SystemExit(self.name + " did not go away")
        return [1000 * (then - began) for then in (painted, seen[-1][0])]


def changed(before, after):
    return [(row, at) for row, (old, new) in enumerate(zip(before, after))
            for at in range(0, len(old), PIXEL) if old[at:at + PIXEL] != new[at:at + PIXEL]]


def told(name, times):
    for what, values in zip(("painted", "whole"), zip(*times)):
        print(f"{name:18} {what:8} ms {statistics.median(values):6.1f}  "
              f"({min(values):.1f} to {max(values):.1f}, {len(values)} openings, "
              f"load {os.getloadavg()[0]:.1f})", flush=True)


def first_openings(desk, subject, runs):
    times = []
    for _ in range(runs):
        player = desk.start()
        times.append(subject.open())
        desk.end(player)
    return times


def openings(desk, subject, count):
    player = desk.start()
    sizes, times = [memory(player.pid)[0]], []
    for number in range(1, count + 1):
        times.append(subject.open())
        if number in (WARM, count):
            sizes.append(memory(player.pid)[0])
    desk.end(player)
    return times[1:], sizes


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--openings", type=int, default=100)
    arguments = parser.parse_args()
    desk = Desk(arguments.program)
    try:
        desk.end(desk.start())  # makes the data folder
        for name, place, button in (("main menu", BACKGROUND, RIGHT),
                                    ("preferences", PREFERENCES, LEFT)):
            subject = Subject(name, desk.screen, place, button)
            told(name + ", first", first_openings(desk, subject, arguments.runs))
            times, sizes = openings(desk, subject, arguments.openings)
            told(name + ", again", times)
            print(f"{name:18} RSS MB " + ", ".join(
                f"{size:.1f} after {count}" for size, count in
                zip(sizes, (0, WARM, arguments.openings))), flush=True)
    finally:
        desk.close()


if __name__ == "__main__":
    main()
