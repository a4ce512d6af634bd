#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures what the window costs: process start to first painted frame, and one idle and one
playing stretch.

Usage: window_day.py PROGRAM FILE [--seconds N] [--runs N] [--scale S]

"First frame" is when a pixel in the middle of the window's place is no longer the screen's black;
it is asked of the X server about every millisecond. The scale is that of the screen. Idle is a restored list that nobody plays.
"""
import argparse
import ctypes
import os
import signal
import statistics
import subprocess
import time

from compare_players import LIMIT, Stage, cpu_seconds, memory, switches

Z_PIXMAP = 2
SETTLED = 12.0  # seconds after which an unused sound device is closed and its thread gone
PLACE = (100 + 235, 100 + 35)  # in the window, which the settings of a first start put at 100, 100


class Screen:
    """One pixel of a private X server."""

    def __init__(self, name, scale):
        self.place = tuple(int(side * scale) for side in PLACE)
        self.x11 = ctypes.CDLL("libX11.so.6")
        for function in ("XOpenDisplay", "XGetImage"):
            getattr(self.x11, function).restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XGetPixel.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(name.encode()))
        self.root = self.x11.XDefaultRootWindow(self.display)

    def lit(self):
        image = ctypes.c_void_p(self.x11.XGetImage(
            self.display, ctypes.c_ulong(self.root), *self.place, 1, 1, ctypes.c_ulong(0xFFFFFFFF),
            Z_PIXMAP))
        pixel = self.x11.XGetPixel(image, 0, 0)
        self.x11.XDestroyImage(image)
        return pixel & 0xFFFFFF != 0


def end(player):
    player.send_signal(signal.SIGTERM)
    player.wait(5)


def first_frame(stage, screen, command):
    while screen.lit():
        time.sleep(0.01)
    began = time.monotonic()
    player = subprocess.Popen(command, env=stage.environment, stderr=subprocess.DEVNULL)
    while not screen.lit():
        if time.monotonic() - began > LIMIT:
            raise SystemExit("no window came")
        time.sleep(0.001)
    passed = time.monotonic() - began
    time.sleep(0.5)
    end(player)
    return passed * 1000


def stretch(stage, command, seconds):
    player = subprocess.Popen(command, env=stage.environment, stderr=subprocess.DEVNULL)
    time.sleep(SETTLED)
    cpu, count = cpu_seconds(player.pid), switches(player.pid)
    time.sleep(seconds)
    cpu, count = cpu_seconds(player.pid) - cpu, switches(player.pid) - count
    size = memory(player.pid)
    end(player)
    return (f"cpu s {cpu:.2f}  wake-ups/s {count / seconds:.1f}  RSS MB {size[0]:.1f}  "
            f"PSS MB {size[1]:.1f}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("file")
    parser.add_argument("--seconds", type=float, default=60)
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--scale", type=float, default=1)
    arguments = parser.parse_args()
    stage = Stage()
    stage.environment["QT_SCALE_FACTOR"] = str(arguments.scale)
    try:
        screen = Screen(stage.environment["DISPLAY"], arguments.scale)
        command = [arguments.program, os.path.abspath(arguments.file)]
        first_frame(stage, screen, command)  # fills the data folder
        times = [first_frame(stage, screen, command) for _ in range(arguments.runs)]
        print(f"first frame ms {statistics.median(times):.0f} of {[round(t) for t in times]}")
        print("playing ", stretch(stage, command, arguments.seconds))
        print("idle    ", stretch(stage, command[:1], arguments.seconds))
    finally:
        stage.close()


if __name__ == "__main__":
    main()
