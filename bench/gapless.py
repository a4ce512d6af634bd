#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""How players join tracks: what a sound server hears of noise that was cut in three.

Usage: gapless.py PROGRAM [--only NAME,...] [--forms wav,flac,mp3,ogg]

The noise is cut off the grid of every codec's frames, each piece becomes a file of its own, and a
list of the three is played to a sink without a clock of its own rate. Told for each joint: how many
frames the next piece comes late (negative: early), and how far what was heard lies below the noise
itself there and in the middle of a piece, in decibels (a codec's loss is in both; only a joint that
is not seamless makes them differ). Needs flac, lame and oggenc.
"""
import argparse
import array
import math
import operator
import os
import random
import shutil
import signal
import struct
import subprocess
import sys
import time

from compare_players import Stage

RATE = 44100
CUTS = (0, 3 * RATE + 1234, 6 * RATE + 77, 9 * RATE)
WINDOW = 512    # frames that are looked for
REACH = RATE    # frames by which a piece may come late or early
AROUND = 2000   # frames on either side of a joint that are compared
SETTLE = 1.5    # seconds of silence behind which a player counts as ended

ENCODERS = {
    "wav": None,
    "flac": lambda a, b: ["flac", "--silent", "-f", "-o", b, a],
    "mp3": lambda a, b: ["lame", "--quiet", "-b", "320", a, b],
    "ogg": lambda a, b: ["oggenc", "--quiet", "-q", "9", "-o", b, a],
}

PLAYERS = {
    "audacious": lambda l: ["audacious", "-Q", l],
    "qmmp": lambda l: ["qmmp", l],
    "mpv": lambda l: ["mpv", "--no-video", "--no-terminal", "--volume=100", l],
}


def noise():
    """Noise below the reach of the codecs' filters, the same in each run; mono, -12 dB at most."""
    source = random.Random(1)
    values, low, lower = array.array("f"), 0.0, 0.0
    for _ in range(CUTS[-1]):
        low += 0.35 * (source.uniform(-1, 1) - low)
        lower += 0.35 * (low - lower)
        values.append(lower * 0.5)
    return array.array("f", (round(v * 32767) / 32768 for v in values))


def write_wav(path, mono):
    words = array.array("h", (int(v * 32768) for v in mono for _ in range(2)))
    with open(path, "wb") as file:
        file.write(struct.pack("<4sI4s4sIHHIIHH4sI", b"RIFF", 36 + 2 * len(words), b"WAVE", b"fmt ",
                               16, 1, 2, RATE, 4 * RATE, 4, 16, b"data", 2 * len(words)))
        file.write(words.tobytes())


def pieces(folder, whole, form):
    """The list of three files."""
    os.makedirs(folder)
    names = []
    for number in range(3):
        plain = os.path.join(folder, f"{number + 1}.wav")
        write_wav(plain, whole[CUTS[number]:CUTS[number + 1]])
        name = os.path.join(folder, f"{number + 1}.{form}")
        if ENCODERS[form]:
            subprocess.run(ENCODERS[form](plain, name), check=True)
            os.remove(plain)
        names.append(name)
    path = os.path.join(folder, "list.m3u")
    with open(path, "w", encoding="utf-8") as file:
        file.write("#EXTM3U\n" + "".join(f"#EXTINF:3,piece\n{name}\n" for name in names))
    return path


def heard(stage, command):
    """The left side of what the sink plays of the command, from its first sound to its last."""
    recorder = subprocess.Popen(
        ["parec", "--raw", "--format=float32le", f"--rate={RATE}", "--channels=2", "-d",
         "fine.monitor"], env=stage.environment, stdout=subprocess.PIPE)
    time.sleep(0.5)
    player = subprocess.Popen(command, env=stage.environment, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL)
    data, quiet, began = bytearray(), 0.0, False
    while not began or quiet < SETTLE:
        block = recorder.stdout.read(RATE * 8 // 20)
        data += block
        sounds = any(block)
        began = began or sounds
        quiet = 0.0 if sounds else quiet + 0.05
        if quiet > 20:
            break
    player.send_signal(signal.SIGTERM)
    try:
        player.wait(5)
    except subprocess.TimeoutExpired:
        player.kill()
        player.wait()
    recorder.kill()
    recorder.communicate()
    left = array.array("f", bytes(data[:len(data) // 8 * 8]))[::2]
    sounding = [place for place, value in enumerate(left) if value]
    return left[sounding[0]:sounding[-1] + 1] if sounding else left[:0]


def product(a, b):
    return sum(map(operator.mul, a, b))


def find(needle, hay, near):
    """Where in `hay` the needle lies, within REACH of a place."""
    places = range(max(0, near - REACH), min(len(hay) - len(needle), near + REACH))
    return max(places, key=lambda place: product(needle, hay[place:place + len(needle)]))


def below(whole, other, begin, shift):
    """How far the difference lies below the noise round there, in decibels; levels are fitted."""
    mine = whole[begin - AROUND:begin + AROUND]
    its = other[begin + shift - AROUND:begin + shift + AROUND]
    gain = product(mine, its) / product(mine, mine)
    rest = sum((b - gain * a) ** 2 for a, b in zip(mine, its))
    return 10 * math.log10(gain * gain * product(mine, mine) / rest) if rest else math.inf


def told(whole, recording):
    """The words of one row."""
    places = []
    for number in range(3):
        begin = (CUTS[number] + CUTS[number + 1]) // 2
        near = begin if not places else begin + places[-1]
        places.append(find(whole[begin:begin + WINDOW], recording, near) - begin)
    joints = []
    for number in (1, 2):
        late = places[number] - places[number - 1]
        depth = below(whole, recording, CUTS[number], places[number - 1])
        joints.append(f"{late:+6d} frames {depth:6.1f} dB")
    middle = below(whole, recording, (CUTS[0] + CUTS[1]) // 2, places[0])
    return "   ".join(joints) + f"   middle {middle:6.1f} dB"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--only", default="")
    parser.add_argument("--forms", default=",".join(ENCODERS))
    arguments = parser.parse_args()
    own = os.path.abspath(arguments.program)
    players = {f"tovik, comfort {state}": lambda l, s=state: [own, "--comfort", s, l]
               for state in ("on", "off")} | PLAYERS
    players = {name: words for name, words in players.items()
               if not arguments.only or name.split(",")[0] in arguments.only.split(",")}
    whole = noise()
    stage = Stage()
    try:
        for words in (["load-module", "module-null-sink", "sink_name=fine", "format=float32le",
                       f"rate={RATE}", "channels=2"], ["set-default-sink", "fine"]):
            subprocess.run(["pactl", *words], env=stage.environment, check=True,
                           stdout=subprocess.DEVNULL)
        for form in arguments.forms.split(","):
            path = pieces(os.path.join(stage.folder, form), whole, form)
            for name, command in players.items():
                words = command(path)
                if shutil.which(words[0]) is None:
                    print(f"{form:5} {name}: not installed")
                    continue
                recording = heard(stage, words)
                told_words = told(whole, recording) if len(recording) > CUTS[2] else "not heard"
                print(f"{form:5} {name:19} {told_words}")
                sys.stdout.flush()
    finally:
        stage.close()


if __name__ == "__main__":
    main()
