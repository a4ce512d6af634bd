#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures how fast a disc becomes files, and whether the window answers meanwhile.

Usage: rip_speed.py PROGRAM [--minutes N] [--runs N] [--forms WAV,...]

An image of one track of noise is the disc. "times" is how many times faster than it plays the track
was ripped, from the first byte of the file to its end; "of lame" the same beside the encoder alone,
which gets the samples from a file. "stall" is the longest time that the window took to answer the
window manager's question whether it is alive.
"""
import argparse
import glob
import os
import re
import statistics
import subprocess
import sys
import time

from compare_players import LIMIT
from long_list import Desk

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.join(os.path.dirname(__file__), "../tests/e2e"))
from disc_image import Disc, with_children  # noqa: E402

PANEL, FIRST_ROW, BUTTON = (205, 20), (120, 78), (50, 253)
RATE = 192
BETWEEN_QUESTIONS = 0.02
ALONE = {"MP3 CBR": ["lame", "-b", str(RATE), "-"], "OGG Vorbis CBR":
         ["oggenc", "--managed", "-b", str(RATE), "-", "-o"]}


class Player:
    def __init__(self, desk, program, cue):
        self.desk, self.data = desk, os.path.join(desk.folder, ".local/share/tovik")
        self.program, self.cue = program, cue
        self.music = os.path.join(desk.folder, "Music")

    def set(self, **values):
        path = os.path.join(self.data, "db/settings.xml")
        with open(path, encoding="utf-8") as file:
            text = file.read()
        for key, value in values.items():
            text = re.sub(rf"<{key}>[^<]*</{key}>|<{key}/>", f"<{key}>{value}</{key}>", text)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def start(self):
        self.process = self.desk.run(self.program, "--device", "silent", "--cd", self.cue)
        end = time.monotonic() + LIMIT
        while time.monotonic() < end:
            found = self.desk.tool("xdotool", "search", "--onlyvisible", "--pid",
                                   str(self.process.pid), "--class", "tovik").split()
            if found:
                self.window = found[0]
                time.sleep(1)
                return
        raise SystemExit("no window")

    def end(self):
        self.process.terminate()
        self.process.wait(LIMIT)

    def click(self, place):
        self.desk.tool("xdotool", "mousemove", "--window", self.window, *map(str, place),
                       "click", "1")
        time.sleep(0.5)

    def writes(self, path):
        """Does the player or a child of it have the file open?"""
        for process in with_children(self.process.pid):
            for number in glob.glob(f"/proc/{process}/fd/*"):
                try:
                    if os.readlink(number) == path:
                        return True
                except OSError:
                    continue
        return False

    def rip(self, form):
        """Seconds that the track took, and the longest stall."""
        self.set(DOF=form, DOB=",".join(["1411", *[str(RATE)] * 5]), ROP=self.music)
        for old in glob.glob(self.music + "/*/*") + glob.glob(self.music + "/*.WMA"):
            os.remove(old)
        self.start()
        self.click(PANEL)
        time.sleep(1)
        self.click(FIRST_ROW)
        self.click(BUTTON)
        self.desk.windows.forget()
        self.desk.tool("xdotool", "key", "Down", "Down", "Down", "Return")
        began, stall, path = None, 0.0, None
        end = time.monotonic() + 300
        while time.monotonic() < end:
            self.desk.windows.ask()
            time.sleep(BETWEEN_QUESTIONS)
            stall = max([stall, self.desk.windows.waiting(), *self.desk.windows.answers()])
            found = glob.glob(self.music + "/*/*") + glob.glob(self.music + "/*.WMA")
            if found and path is None:
                began, path = time.monotonic(), found[0]
            if path and os.path.getsize(path) > 100_000 and not self.writes(path):
                took = time.monotonic() - began
                whole = os.path.getsize(self.cue[:-3] + "bin") + 44
                if form == "WAV" and os.path.getsize(path) != whole:
                    raise SystemExit("the track is not complete")
                self.end()
                return took, stall
        raise SystemExit("no end")


def alone(form, bin_file, folder):
    """Seconds of the encoder by itself, with the samples from a file."""
    path = os.path.join(folder, "alone.wav")
    size = os.path.getsize(bin_file)
    head = (b"RIFF" + (size + 36).to_bytes(4, "little") + b"WAVEfmt " + bytes(
        [16, 0, 0, 0, 1, 0, 2, 0, 0x44, 0xAC, 0, 0, 0x10, 0xB1, 2, 0, 4, 0, 16, 0]) + b"data" +
        size.to_bytes(4, "little"))
    with open(path, "wb") as file, open(bin_file, "rb") as samples:
        file.write(head + samples.read())
    with open(path, "rb") as samples:
        began = time.monotonic()
        subprocess.run([*ALONE[form], os.path.join(folder, "alone.out")], stdin=samples,
                       stderr=subprocess.DEVNULL, check=True)
        return time.monotonic() - began


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program")
    parser.add_argument("--minutes", type=float, default=10)
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--forms", default="WAV,WMA,MP3 CBR,OGG Vorbis CBR")
    options = parser.parse_args()
    desk = Desk()
    try:
        seconds = options.minutes * 60
        disc = Disc(desk.folder, [seconds])
        player = Player(desk, os.path.abspath(options.program), disc.cue)
        player.start()
        player.end()
        print(f"load {os.getloadavg()[0]:.1f}")
        for form in options.forms.split(","):
            times, stalls, shares = [], [], []
            for _ in range(options.runs):
                took, stall = player.rip(form)
                times.append(seconds / took)
                stalls.append(stall * 1000)
                if form in ALONE:
                    shares.append(alone(form, disc.cue[:-3] + "bin", desk.folder) / took)
            line = f"{form:15} {statistics.median(times):6.0f} times, stall {max(stalls):4.0f} ms"
            if shares:
                line += f", {statistics.median(shares):.2f} of the encoder alone"
            print(line, flush=True)
    finally:
        desk.close()


if __name__ == "__main__":
    main()
