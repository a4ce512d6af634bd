#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures how fast a disc becomes files, and whether the window answers meanwhile.

Usage: rip_speed.py PROGRAM [--minutes N] [--runs N] [--forms WAV,...]

An image of one track of noise is the disc. "times" is how many times faster than it plays the track
was ripped, from the first byte of the file to its end, and "processor" the seconds of processor time
(of player and encoder, the player at rest not taken off) that it took. "stall" is the longest time
that the window took to answer the window manager's question whether it is alive.

Where a program encodes, each rip has a run of that program alone for a neighbour, before it and
behind it by turns: with the same options, and with the same WAV on its standard input. "speed" and
"processor" of the encoder are those of the rip by those of that run. All figures are medians, those
of the encoder of what the pairs gave. A machine that does something else as well spoils the former,
hardly the latter.
"""
import argparse
import glob
import os
import re
import shutil
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
ALONE = {"MP3 CBR": ["lame", "-b", str(RATE), "-"],
         "OGG Vorbis CBR": ["oggenc", "--managed", "-b", str(RATE), "-", "-o"]}
TICKS = os.sysconf("SC_CLK_TCK")
UNKNOWN = b"\xff" * 4  # the sizes of a WAV that goes through a pipe


def processor(pid):
    """Seconds that a process has used, with the children that it has seen end."""
    with open(f"/proc/{pid}/stat", encoding="utf-8", errors="replace") as file:
        fields = file.read().rpartition(")")[2].split()
    return sum(map(int, fields[11:15])) / TICKS


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

    def wait_for_encoder(self):
        """What a child has used counts once its end was seen."""
        end = time.monotonic() + LIMIT
        while len(with_children(self.process.pid)) > self.children:
            if time.monotonic() > end:
                raise SystemExit("the encoder does not end")
            time.sleep(BETWEEN_QUESTIONS)

    def rip(self, form):
        """Seconds that the track took, those of the processor, and the longest stall."""
        self.set(DOF=form, DOB=",".join(["1411", *[str(RATE)] * 5]), EPRIO="2", ROP=self.music)
        for old in glob.glob(self.music + "/*/*") + glob.glob(self.music + "/*.WMA"):
            os.remove(old)
        self.start()
        self.click(PANEL)
        time.sleep(1)
        self.click(FIRST_ROW)
        self.click(BUTTON)
        self.desk.windows.forget()
        self.children = len(with_children(self.process.pid))
        used = processor(self.process.pid)
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
                self.wait_for_encoder()
                used = processor(self.process.pid) - used
                whole = os.path.getsize(self.cue[:-3] + "bin") + 44
                if form == "WAV" and os.path.getsize(path) != whole:
                    raise SystemExit("the track is not complete")
                self.end()
                return took, used, stall
        raise SystemExit("no end")


def write_wav(path, bin_file):
    """What the player gives an encoder."""
    head = (b"RIFF" + UNKNOWN + b"WAVEfmt " + bytes(
        [16, 0, 0, 0, 1, 0, 2, 0, 0x44, 0xAC, 0, 0, 0x10, 0xB1, 2, 0, 4, 0, 16, 0]) + b"data" +
        UNKNOWN)
    with open(path, "wb") as file, open(bin_file, "rb") as samples:
        file.write(head)
        shutil.copyfileobj(samples, file)


def alone(form, wav):
    """Seconds of the encoder by itself, and those of the processor."""
    with open(wav, "rb") as samples:
        began = time.monotonic()
        process = subprocess.Popen([*ALONE[form], wav + ".out"], stdin=samples,
                                   stderr=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        took = time.monotonic() - began
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        raise SystemExit(f"{ALONE[form][0]} failed")
    return took, usage.ru_utime + usage.ru_stime


def measure(player, form, wav, runs):
    """(rip, encoder alone) of each run, the latter None where no program encodes."""
    pairs = []
    for run in range(runs):
        beside = form in ALONE
        before = alone(form, wav) if beside and run % 2 else None
        ripped = player.rip(form)
        pairs.append((ripped, before or (alone(form, wav) if beside else None)))
    return pairs


def line_of(form, pairs, seconds):
    took, used, stalls = zip(*(ripped for ripped, _ in pairs))
    line = (f"{form:15} {seconds / statistics.median(took):6.0f} times, "
            f"processor {statistics.median(used):6.2f} s, stall {max(stalls) * 1000:4.0f} ms")
    if form in ALONE:
        speed = statistics.median(other[0] / ripped[0] for ripped, other in pairs)
        cost = statistics.median(ripped[1] / other[1] for ripped, other in pairs)
        line += (f"; {ALONE[form][0]} alone "
                 f"{seconds / statistics.median(other[0] for _, other in pairs):6.0f} times, "
                 f"processor {statistics.median(other[1] for _, other in pairs):6.2f} s: "
                 f"{speed:.2f} of its speed, {cost:.2f} times its processor time")
    return line


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
        wav = os.path.join(desk.folder, "alone.wav")
        write_wav(wav, disc.cue[:-3] + "bin")
        player.start()
        player.end()
        print(f"load {os.getloadavg()[0]:.1f}")
        for form in options.forms.split(","):
            print(line_of(form, measure(player, form, wav, options.runs), seconds), flush=True)
    finally:
        desk.close()


if __name__ == "__main__":
    main()
