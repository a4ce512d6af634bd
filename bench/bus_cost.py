#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures what the message bus costs: processor time of the interface thread at a start with a
session bus and without one, in pairs, and how often the idle player wakes up with each.

Usage: bus_cost.py PROGRAM [--runs N] [--seconds N]

The tray's icon is on the same bus: its part is in the figures. A start counts until four seconds
behind its beginning; the time is what the kernel keeps of the process's first thread, on which the
windows are.
"""
import argparse
import os
import statistics
import subprocess
import time

from compare_players import Stage
from window_day import end

SETTLED = 4.0  # seconds after which the start is over


def interface_ms(pid):
    """Processor time of the first thread, in milliseconds."""
    with open(f"/proc/{pid}/task/{pid}/schedstat", encoding="ascii") as file:
        return int(file.read().split()[0]) / 1e6


def start(stage, program, with_bus):
    environment = dict(stage.environment)
    if not with_bus:
        del environment["DBUS_SESSION_BUS_ADDRESS"]
    return subprocess.Popen([program, "--device", "silent"], env=environment,
                            stderr=subprocess.DEVNULL)


def cost_of_start(stage, program, with_bus):
    player = start(stage, program, with_bus)
    time.sleep(SETTLED)
    used = interface_ms(player.pid)
    end(player)
    return used


def switches(pid):
    """How often each thread gave the processor away by itself: as often it had been woken."""
    counts = {}
    for task in os.listdir(f"/proc/{pid}/task"):
        try:
            with open(f"/proc/{pid}/task/{task}/status", encoding="ascii") as file:
                counts[task] = sum(int(line.split()[1]) for line in file
                                   if line.startswith("voluntary_ctxt"))
        except OSError:  # it has ended
            continue
    return counts


def wakeups(stage, program, with_bus, seconds):
    """A minute's, of the first thread and of all that live through the stretch."""
    player = start(stage, program, with_bus)
    time.sleep(SETTLED)
    before = switches(player.pid)
    time.sleep(seconds)
    more = {task: count - before[task] for task, count in switches(player.pid).items()
            if task in before}
    end(player)
    return more[str(player.pid)] * 60 / seconds, sum(more.values()) * 60 / seconds


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--runs", type=int, default=10)
    parser.add_argument("--seconds", type=float, default=20)
    options = parser.parse_args()
    program = os.path.abspath(options.program)
    stage = Stage()
    try:
        cost_of_start(stage, program, True)  # fills the data folder, plays the welcome
        pairs = []
        for run in range(options.runs):
            order = (True, False) if run % 2 else (False, True)
            used = {with_bus: cost_of_start(stage, program, with_bus) for with_bus in order}
            pairs.append((used[False], used[True]))
        without, with_bus = (statistics.median(column) for column in zip(*pairs))
        more = sorted(after - before for before, after in pairs)
        print(f"start, interface thread: {without:.1f} ms without a bus, {with_bus:.1f} ms with "
              f"one; of {len(pairs)} pairs the median differs by {statistics.median(more):.1f} ms "
              f"({more[0]:.1f} to {more[-1]:.1f})")
        for name, chosen in (("without a bus", False), ("with one", True)):
            first, everything = wakeups(stage, program, chosen, options.seconds)
            print(f"idle {name}: {first:.0f} wake-ups a minute on the interface thread, "
                  f"{everything:.0f} on all")
    finally:
        stage.close()


main()
