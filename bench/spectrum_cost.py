#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures what visualisations cost: processor time and wake-ups of a playing stretch without one,
with the spectrum, with it without comfort, with it while the window is minimised, with each plug-in
that comes along, at each scale, and of other players with their skinned windows and the analysers in
them.

Usage: spectrum_cost.py PROGRAM FILE [--seconds N] [--settle N] [--scales 1,2]
                        [--rows none,spectrum] [--peers audacious,qmmp]

The file must sound for longer than a stretch and its beginning. Processor times are given for a
minute: that of the player, of the process beside it that draws (if there is one), of the display
server and of the sound server, which work for the player, and the sum. Wake-ups a second are those
of the player and of the process beside it. "still" says that nothing was seen to move in the window.
"""
import argparse
import os
import re
import shutil
import signal
import subprocess
import time

from compare_players import LIMIT, PEERS, Stage, switches
from window_day import end

SETTLED = 6.0  # seconds after which the start is over
LOOKED = 8  # pictures of the screen in which something moves or does not
VISUALS = (("none", -1, False), ("spectrum", 0, False), ("to the letter", 0, False),
           ("minimised", 0, True), ("aurora", 3, False), ("oscilloscope", 4, False),
           ("spectrogram", 5, False))
WORDS = {"to the letter": ["--comfort=off"]}  # of the command line

# Skinned windows, which have the analysers, and the same sound server as output.
AUDACIOUS = """[audacious]

[skins]
player_x=20
player_y=20
"""
QMMP = """[General]

[Output]
current_plugin=pulse

[Ui]
current_plugin=skinned
"""


def cpu_seconds(pid):
    """Finer than the clock ticks of the process' own line."""
    total = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{task}/schedstat", encoding="ascii") as file:
            total += int(file.read().split()[0])
    return total / 1e9


def beside(pid):
    """The processes that a process started."""
    found = []
    for process in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{process}/stat", encoding="utf-8", errors="replace") as file:
                if file.read().rpartition(")")[2].split()[1] == str(pid):
                    found.append(int(process))
        except OSError:  # it has ended
            continue
    return found


def server(stage, name):
    return next(child.pid for child in stage.children if child.args[0] == name)


def hush(stage):
    """Ends the streams that keep the sink awake at a low latency, which nobody's desktop has."""
    for child in stage.children:
        if child.args[0] in ("pacat", "parec"):
            child.kill()
            child.wait()


def choose(stage, number):
    path = os.path.join(stage.folder, ".local/share/tovik/db/settings.xml")
    with open(path, "rb") as file:
        text = file.read()
    with open(path, "wb") as file:
        file.write(re.sub(rb"<CVP>[^<]*</CVP>", b"<CVP>%d</CVP>" % number, text))


def moves(stage):
    """Whether pictures of the screen differ that lie closer together than the digits of a clock."""
    def picture():
        return subprocess.run(["import", "-silent", "-window", "root", "rgb:-"],
                              env=stage.environment, capture_output=True, check=True).stdout
    shots = [picture() for _ in range(LOOKED)]
    return sum(a != b for a, b in zip(shots, shots[1:])) > LOOKED // 2


class Spending:
    """Processor time and wake-ups of some processes from now on."""

    def __init__(self, pids):
        self.pids = pids
        self.began = time.monotonic()
        self.cpu = [cpu_seconds(pid) for pid in pids]
        self.woken = [switches(pid) for pid in pids]

    def take(self):
        """(seconds of the processor in a minute, wake-ups a second) of each."""
        passed = time.monotonic() - self.began
        return [((cpu_seconds(pid) - cpu) * 60 / passed, (switches(pid) - woken) / passed)
                for pid, cpu, woken in zip(self.pids, self.cpu, self.woken)]


def stretch(stage, command, seconds, settle=SETTLED, minimised=False):
    """What a player costs for so many seconds, as a line."""
    player = subprocess.Popen(command, env=stage.environment, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL)
    try:
        time.sleep(settle)
        if player.poll() is not None:
            return "ended by itself"
        if minimised:
            window = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", "tovik"],
                                    env=stage.environment, capture_output=True, text=True,
                                    check=True).stdout.split()[0]
            subprocess.run(["xdotool", "windowminimize", window], env=stage.environment, check=True)
            time.sleep(1)
        moved = moves(stage)
        drawing = beside(player.pid)
        spending = Spending([player.pid, server(stage, "Xvfb"), server(stage, "pulseaudio"),
                            *drawing])
        time.sleep(seconds)
        own, display, sound, *others = spending.take()
        helper = sum(cpu for cpu, _ in others)
        return (f"player {own[0]:5.2f}  beside {helper:5.2f}  display {display[0]:5.2f}  "
                f"sound {sound[0]:5.2f}  sum {own[0] + helper + display[0] + sound[0]:6.2f}   "
                f"wake-ups/s {own[1]:5.1f} + {sum(woken for _, woken in others):.1f}"
                + ("" if moved else "   still"))
    finally:
        end_player(player)


def end_player(player):
    player.send_signal(signal.SIGTERM)
    try:
        player.wait(5)
    except subprocess.TimeoutExpired:
        player.kill()
        player.wait()
    time.sleep(0.5)  # its stream goes


def write(path, text):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


def prepare_audacious(stage):
    """A first run without a window finds its plug-ins; then the skinned window is the one in use."""
    folder = os.path.join(stage.folder, ".config/audacious")
    registry = os.path.join(folder, "plugin-registry")
    first = subprocess.Popen(["audacious", "-H"], env=stage.environment, stdout=subprocess.DEVNULL,
                             stderr=subprocess.DEVNULL)
    stop = time.monotonic() + LIMIT
    while not os.path.exists(registry) and time.monotonic() < stop:
        time.sleep(0.1)
    time.sleep(1)
    end_player(first)
    lines, kind, name = [], "", ""
    with open(registry, encoding="utf-8") as file:
        for line in file.read().splitlines():
            words = line.split(" ", 1)
            if len(words) == 2 and words[1].startswith("/"):
                kind, name = words
            if line.startswith("enabled") and kind == "iface":
                line = f"enabled {int(name.endswith('/skins-qt.so'))}"
            lines.append(line)
    write(registry, "\n".join(lines) + "\n")
    write(os.path.join(folder, "config"), AUDACIOUS)


def prepare_qmmp(stage):
    write(os.path.join(stage.folder, ".qmmp/qmmprc"), QMMP)


PREPARE = {"audacious": prepare_audacious, "qmmp": prepare_qmmp}


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("file")
    parser.add_argument("--seconds", type=float, default=60)
    parser.add_argument("--settle", type=float, default=SETTLED)
    parser.add_argument("--scales", default="1,2")
    parser.add_argument("--rows", default=",".join(name for name, _, _ in VISUALS))
    parser.add_argument("--peers", default="audacious,qmmp")
    arguments = parser.parse_args()
    print("cpu seconds a minute; each row is one stretch of", arguments.seconds, "s")
    stage = Stage()
    try:
        stage.run("openbox", "--sm-disable", stdout=subprocess.DEVNULL)
        hush(stage)
        command = [arguments.program, os.path.abspath(arguments.file)]
        first = subprocess.Popen(command, env=stage.environment, stderr=subprocess.DEVNULL)
        time.sleep(4)  # fills the data folder
        end(first)
        for scale in arguments.scales.split(","):
            stage.environment["QT_SCALE_FACTOR"] = scale
            for name, number, minimised in VISUALS:
                if name not in arguments.rows.split(","):
                    continue
                choose(stage, number)
                print(f"scale {scale}  {name:13}",
                      stretch(stage, command + WORDS.get(name, []), arguments.seconds,
                              arguments.settle, minimised),
                      flush=True)
        stage.environment["QT_SCALE_FACTOR"] = "1"
        for name in filter(None, arguments.peers.split(",")):
            if shutil.which(name) is None:
                print(f"{name:21} is not installed", flush=True)
                continue
            PREPARE[name](stage)
            print(f"{name:21}", stretch(stage, PEERS[name](command[1]), arguments.seconds,
                                        arguments.settle), flush=True)
    finally:
        stage.close()


if __name__ == "__main__":
    main()
