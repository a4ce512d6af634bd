#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures what visualisations cost: processor time and wake-ups of a playing stretch without one,
with the spectrum, with it while the window is minimised, with each plug-in that comes along, and of
other players, whose windows show an analyser as they come.

Usage: spectrum_cost.py PROGRAM FILE [--seconds N] [--scales 1,2] [--peers audacious,qmmp]

The file must play longer than the stretches and sound all along. Times are given for a minute; those
of plug-ins are of the player and of the process that draws.
"""
import argparse
import os
import re
import subprocess
import time

from compare_players import LIMIT, PEERS, Stage, switches
from window_day import end

SETTLED = 4.0  # seconds after which the start is over


def cpu_seconds(pid):
    """Finer than the clock ticks of the process' own line."""
    total = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{task}/schedstat", encoding="ascii") as file:
            total += int(file.read().split()[0])
    return total / 1e9


def family(pid):
    """A process and those that it started."""
    children = subprocess.run(["pgrep", "-P", str(pid)], capture_output=True, text=True,
                              check=False).stdout.split()
    return [pid, *map(int, children)]


def spent(pids):
    return sum(map(cpu_seconds, pids)), sum(map(switches, pids))


def choose(stage, number):
    path = os.path.join(stage.folder, ".local/share/tovik/db/settings.xml")
    with open(path, "rb") as file:
        text = file.read()
    with open(path, "wb") as file:
        file.write(re.sub(rb"<CVP>[^<]*</CVP>", b"<CVP>%d</CVP>" % number, text))


def stretch(stage, command, seconds, minimised=False):
    player = subprocess.Popen(command, env=stage.environment, stderr=subprocess.DEVNULL)
    time.sleep(SETTLED)
    if minimised:
        window = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", "tovik"],
                                env=stage.environment, capture_output=True, text=True,
                                check=True).stdout.split()[0]
        subprocess.run(["xdotool", "windowminimize", window], env=stage.environment, check=True)
        time.sleep(1)
    pids = family(player.pid)
    before = [spent([pid]) for pid in pids]
    time.sleep(seconds)
    rows = []
    for pid, (cpu, count) in zip(pids, before):
        now, switched = spent([pid])
        rows.append(f"{(now - cpu) * 60 / seconds:.2f} ({(switched - count) / seconds:.1f})")
    end(player)
    return "cpu s a minute (wake-ups/s): " + "  beside it: ".join(rows)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("file")
    parser.add_argument("--seconds", type=float, default=30)
    parser.add_argument("--scales", default="1,2")
    parser.add_argument("--peers", default="")
    arguments = parser.parse_args()
    stage = Stage()
    try:
        stage.run("openbox", "--sm-disable", stdout=subprocess.DEVNULL)
        command = [arguments.program, os.path.abspath(arguments.file)]
        first = subprocess.Popen(command, env=stage.environment, stderr=subprocess.DEVNULL)
        time.sleep(min(SETTLED, LIMIT))  # fills the data folder
        end(first)
        for scale in arguments.scales.split(","):
            stage.environment["QT_SCALE_FACTOR"] = scale
            for name, number, minimised in (("none", -1, False), ("spectrum", 0, False),
                                            ("minimised", 0, True), ("aurora", 3, False),
                                            ("oscilloscope", 4, False), ("spectrogram", 5, False)):
                choose(stage, number)
                print(f"scale {scale}  {name:12}",
                      stretch(stage, command, arguments.seconds, minimised), flush=True)
        stage.environment["QT_SCALE_FACTOR"] = "1"
        for name in filter(None, arguments.peers.split(",")):
            print(f"{name:21}", stretch(stage, PEERS[name](command[1]), arguments.seconds),
                  flush=True)
    finally:
        stage.close()


if __name__ == "__main__":
    main()
