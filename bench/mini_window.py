#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures the mini window and the tray: Ctrl+W to the painted mini window, and the processor time
of a playing stretch with the main window, with the mini window and with none, in the tray.

Usage: mini_window.py PROGRAM FILE [--seconds N] [--runs N]

"Painted" is when a pixel of the mini window's ground is no longer the screen's black, where a window
manager has put it; it is asked of the X server about every half millisecond. The first entering
reads the pictures for the first time and makes the widget; it is told by itself, from a pixel that
looks otherwise on the main window. A key is pressed before it: at the first one of a keyboard a program
reads its map, which takes Qt some 40 ms, whatever the key does. Times of a stretch are given for a minute.
"""
import argparse
import ctypes
import os
import statistics
import subprocess
import sys
import time

from compare_players import LIMIT, Stage, switches
from spectrum_cost import cpu_seconds
from window_day import Z_PIXMAP, end

SETTLED = 4.0  # seconds after which the start is over
APART = (700, 500)  # where the mini window is moved, beside the main one
GROUND = (130, 4)  # of the mini window
BUTTON = (58, 92)  # likewise: on the main window the glass of the display is there
CONTROL, W = 0xFFE3, 0x77
HOST = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "e2e",
                    "notifier_host.py")


class Screen:
    """Pixels and keys of a private X server."""

    def __init__(self, name):
        self.x11, self.test = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXtst.so.6")
        for function in ("XOpenDisplay", "XGetImage"):
            getattr(self.x11, function).restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XGetPixel.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(name.encode()))
        self.root = self.x11.XDefaultRootWindow(self.display)

    def pixel(self, x, y):
        image = ctypes.c_void_p(self.x11.XGetImage(
            self.display, ctypes.c_ulong(self.root), x, y, 1, 1, ctypes.c_ulong(0xFFFFFFFF),
            Z_PIXMAP))
        pixel = self.x11.XGetPixel(image, 0, 0)
        self.x11.XDestroyImage(image)
        return pixel & 0xFFFFFF

    def control_w(self):
        for key, down in ((CONTROL, 1), (W, 1), (W, 0), (CONTROL, 0)):
            code = self.x11.XKeysymToKeycode(self.display, ctypes.c_ulong(key))
            self.test.XTestFakeKeyEvent(self.display, code, down, ctypes.c_ulong(0))
        self.x11.XFlush(self.display)

    def control(self):
        """A key that does nothing: at the first one of a keyboard every program reads its map."""
        code = self.x11.XKeysymToKeycode(self.display, ctypes.c_ulong(CONTROL))
        for down in (1, 0):
            self.test.XTestFakeKeyEvent(self.display, code, down, ctypes.c_ulong(0))
        self.x11.XFlush(self.display)

    def until(self, condition):
        """Milliseconds until it holds."""
        began = time.monotonic()
        while not condition():
            if time.monotonic() - began > LIMIT:
                raise SystemExit("waited in vain")
            time.sleep(0.0005)
        return (time.monotonic() - began) * 1000


def tool(stage, *words):
    return subprocess.run(words, env=stage.environment, capture_output=True, text=True,
                          check=False).stdout.split()


def entering(stage, screen, command, runs):
    player = subprocess.Popen(command, env=stage.environment, stderr=subprocess.DEVNULL)
    time.sleep(SETTLED)
    main = tool(stage, "xdotool", "search", "--onlyvisible", "--class", "tovik")[0]
    tool(stage, "xdotool", "windowactivate", "--sync", main)
    place = (100 + BUTTON[0], 100 + BUTTON[1])
    before = screen.pixel(*place)
    screen.control()
    time.sleep(0.5)
    screen.control_w()
    seen = []
    first = screen.until(lambda: seen.append(screen.pixel(*place)) or seen[-1] not in (before, 0))
    time.sleep(0.5)
    if screen.pixel(*place) != seen[-1]:
        raise SystemExit("what came first was not the mini window")
    mini = tool(stage, "xdotool", "search", "--onlyvisible", "--class", "tovik")[0]
    tool(stage, "xdotool", "windowmove", "--sync", mini, *map(str, APART))
    time.sleep(0.5)
    place = (APART[0] + GROUND[0], APART[1] + GROUND[1])
    times = []
    for _ in range(runs):
        screen.control_w()
        screen.until(lambda: screen.pixel(*place) == 0)
        time.sleep(0.6)
        screen.control_w()
        times.append(screen.until(lambda: screen.pixel(*place) != 0))
        time.sleep(0.6)
    end(player)
    return first, times


def stretch(stage, screen, command, seconds, where):
    player = subprocess.Popen(command, env=stage.environment, stderr=subprocess.DEVNULL)
    time.sleep(SETTLED)
    main = tool(stage, "xdotool", "search", "--onlyvisible", "--class", "tovik")[0]
    tool(stage, "xdotool", "windowactivate", "--sync", main)
    if where == "mini":
        screen.control_w()
    elif where == "tray":
        tool(stage, "xdotool", "mousemove", "--window", main, "413", "18", "click", "1")
    time.sleep(1.5)
    shown = len(tool(stage, "xdotool", "search", "--onlyvisible", "--class", "tovik"))
    if shown != (0 if where == "tray" else 1):
        raise SystemExit(f"{shown} windows in {where}")
    cpu, count = cpu_seconds(player.pid), switches(player.pid)
    time.sleep(seconds)
    cpu, count = cpu_seconds(player.pid) - cpu, switches(player.pid) - count
    end(player)
    return f"cpu s a minute {cpu * 60 / seconds:.2f}  wake-ups/s {count / seconds:.1f}"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("file")
    parser.add_argument("--seconds", type=float, default=60)
    parser.add_argument("--runs", type=int, default=15)
    arguments = parser.parse_args()
    stage = Stage()
    try:
        stage.run("openbox", "--sm-disable")
        helper = stage.run("/usr/bin/python3", HOST, stdin=subprocess.PIPE,
                           stdout=subprocess.DEVNULL)
        helper.stdin.write(b"up\n")
        helper.stdin.flush()
        time.sleep(1)
        screen = Screen(stage.environment["DISPLAY"])
        command = [arguments.program, os.path.abspath(arguments.file)]
        first, times = entering(stage, screen, command, arguments.runs)
        print(f"Ctrl+W to the painted mini window, ms: first {first:.0f}, then "
              f"{statistics.median(times):.0f} of {[round(t) for t in times]}")
        for where in ("main", "mini", "tray"):
            print(f"{where:5}", stretch(stage, screen, command, arguments.seconds, where))
    finally:
        stage.close()


if __name__ == "__main__":
    sys.exit(main())
