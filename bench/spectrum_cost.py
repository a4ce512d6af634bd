#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures what the spectrum costs: processor time and wake-ups of a playing stretch without it,
with it, and with it while the window is minimised.

Usage: spectrum_cost.py PROGRAM FILE [--seconds N] [--scales 1,2]

The file must play longer than the stretches and sound all along. Times are given for a minute.
"""
import argparse
import os
import re
import subprocess
import time

from compare_players import LIMIT, Stage, switches
from window_day import end

SETTLED = 4.0  # seconds after which the start is over


def cpu_seconds(pid):
    """Finer than the clock ticks of the process' own line."""
    total = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{task}/schedstat", encoding="ascii") as file:
            total += int(file.read().split()[0])
    return total / 1e9


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
    cpu, count = cpu_seconds(player.pid), switches(player.pid)
    time.sleep(seconds)
    cpu, count = cpu_seconds(player.pid) - cpu, switches(player.pid) - count
    end(player)
    return f"cpu s a minute {cpu * 60 / seconds:.2f}  wake-ups/s {count / seconds:.1f}"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("file")
    parser.add_argument("--seconds", type=float, default=30)
    parser.add_argument("--scales", default="1,2")
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
                                            ("minimised", 0, True)):
                choose(stage, number)
                print(f"scale {scale}  {name:10}",
                      stretch(stage, command, arguments.seconds, minimised), flush=True)
    finally:
        stage.close()


if __name__ == "__main__":
    main()
