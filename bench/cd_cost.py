#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures what a playing CD costs: processor time and wake-ups of a stretch of a track, from an
image, beside the same sound as a WAV file.

Usage: cd_cost.py PROGRAM FILE.wav [--seconds N]

The file, 16-bit stereo at 44.1 kHz, must play longer than the stretch. Times are for a minute.
"""
import argparse
import os
import subprocess
import time
import wave

from compare_players import Stage
from spectrum_cost import SETTLED, stretch
from window_day import end


def make_image(folder, source):
    with wave.open(source) as file:
        sound = file.readframes(file.getnframes())
    with open(os.path.join(folder, "disc.bin"), "wb") as file:
        file.write(sound[:len(sound) // 2352 * 2352])
    sheet = os.path.join(folder, "disc.cue")
    with open(sheet, "w", encoding="ascii") as file:
        file.write('FILE "disc.bin" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n')
    return sheet


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("file")
    parser.add_argument("--seconds", type=float, default=30)
    arguments = parser.parse_args()
    stage = Stage()
    try:
        stage.run("openbox", "--sm-disable", stdout=subprocess.DEVNULL)
        sheet = make_image(stage.folder, arguments.file)
        command = [arguments.program, os.path.abspath(arguments.file)]
        first = subprocess.Popen(command, env=stage.environment, stderr=subprocess.DEVNULL)
        time.sleep(SETTLED)  # fills the data folder
        end(first)
        print("file ", stretch(stage, command, arguments.seconds))
        print("disc ", stretch(stage, [arguments.program, "--cd", sheet, "D:\\Track01.cda"],
                               arguments.seconds))
    finally:
        stage.close()


if __name__ == "__main__":
    main()
