#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the tune that a newcomer hears first: make_welcome.py [FILE]

Without FILE it writes tools/welcome/welcome.xm. Six bars in F major at 100 beats a minute, then a
last chord that rings out; 18 s. The same script always writes the same bytes.
"""
import pathlib
import sys

sys.dont_write_bytecode = True
ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools" / "music"))

import sounds  # noqa: E402
import xm  # noqa: E402

TITLE = "Welcome to Tovik"
TEMPO = 200  # ticks of 12.5 ms
SWING_TICKS = (13, 11)  # of the even and the odd rows: 0.15 s on average
BAR_ROWS, LAST_ROWS = 16, 24
BARS = 7
ECHO_ROWS = 3
SHIMMER_BARS = (4, 5)  # where the bell goes along an octave above the melody

# One line a bar: (row, MIDI note, volume)
MELODY = (
    ((0, 72, 49), (3, 77, 51), (6, 79, 54), (10, 81, 56)),
    ((0, 81, 56), (3, 79, 51), (6, 77, 51), (10, 74, 54), (14, 72, 44)),
    ((0, 76, 56), (3, 77, 51), (6, 81, 59), (11, 79, 51), (13, 77, 46)),
    ((0, 79, 59), (6, 74, 49), (8, 76, 56), (12, 72, 49), (14, 74, 46)),
    ((0, 77, 54), (3, 81, 56), (6, 84, 61), (10, 86, 63), (14, 84, 54)),
    ((0, 84, 59), (3, 81, 54), (6, 77, 51), (8, 79, 59), (11, 77, 49), (13, 79, 51), (14, 81, 56)),
    ((0, 77, 63),),
)
# (row, voices from below): Fmaj9, Bbmaj9, Dm9, Csus9 to C9, Bbmaj7, Gm9 to C9sus, Fadd9
CHORDS = (
    ((0, (57, 60, 64, 67)),),
    ((0, (57, 60, 62, 65)),),
    ((0, (57, 60, 64, 69)),),
    ((0, (55, 60, 62, 65)), (8, (55, 60, 62, 64))),
    ((0, (58, 62, 65, 69)),),
    ((0, (58, 62, 65, 69)), (8, (58, 62, 65, 67))),
    ((0, (57, 60, 67, 72)),),
)
BASS = (
    ((0, 41, 40),),
    ((0, 34, 50), (6, 34, 38), (10, 41, 40), (14, 36, 36)),
    ((0, 38, 50), (6, 38, 38), (10, 45, 40), (14, 38, 36)),
    ((0, 36, 50), (6, 36, 38), (8, 43, 42), (10, 36, 40), (14, 35, 36)),
    ((0, 34, 50), (6, 34, 40), (10, 41, 42), (14, 34, 36)),
    ((0, 43, 50), (6, 43, 38), (8, 36, 50), (12, 36, 40), (14, 40, 38)),
    ((0, 41, 54),),
)
# The steps of the accompaniment: (row, voice of the chord, volume)
RIPPLE = ((0, 0, 22), (2, 2, 18), (4, 1, 20), (6, 3, 18), (8, 0, 21), (10, 2, 18), (12, 3, 20),
          (14, 1, 16))
# Drums a bar: (row, volume); the tune begins and ends without them.
KICKS = ((), *[((0, 50), (7, 26), (10, 42))] * 4, ((0, 50), (8, 44)), ((0, 46),))
SNAPS = ((), *[((4, 38), (12, 42))] * 4, ((4, 38), (12, 26)), ())
SHAKES = (tuple((row, 2 * row) for row in range(6, 16, 2)),
          *[tuple((row, (18, 11, 30, 13)[row % 4]) for row in range(16))] * 4,
          tuple((row, 30 - 2 * row) for row in range(0, 12, 2)), ())
STRUM = ((0, 65, 30), (1, 69, 30), (2, 72, 32), (3, 79, 34), (4, 81, 30))
CHIMES = ((4, 84, 26), (6, 89, 32))  # the last words, by the bell
PAD_OFF_ROW = 8  # in the last bar

PAN_CENTRE = 128
PAD_PANS = (150, 70, 186, 106)


class Part:
    """An instrument on its own channels, which take turns so that notes ring into each other."""

    def __init__(self, score, instrument, channels, pans):
        self._score, self._instrument, self._pans = score, instrument, pans
        self._channels = score.take(channels)
        self._played = 0

    def play(self, row, note, volume):
        turn = self._played
        self._played += 1
        channel = self._channels[turn % len(self._channels)]
        pan = self._pans[turn % len(self._pans)]
        self._score.put(row, channel, xm.Cell(note, self._instrument, volume, (xm.SET_PAN, pan)))
        return channel


class Score:
    """Rows of the whole tune, counted from its start."""

    def __init__(self, rows):
        self.rows = [{} for _ in range(rows)]
        self.channels = 0

    def take(self, count):
        first = self.channels
        self.channels += count
        return range(first, self.channels)

    def put(self, row, channel, cell):
        assert channel not in self.rows[row], "two notes in row %d of channel %d" % (row, channel)
        self.rows[row][channel] = cell


def play_swing(score):
    (channel,) = score.take(1)
    for row in range(len(score.rows)):
        score.put(row, channel, xm.Cell(effect=(xm.SET_SPEED, SWING_TICKS[row % 2])))


def play_melody(score):
    lead = Part(score, sounds.PLUCK, 3, (112,))
    echo = Part(score, sounds.PLUCK, 3, (210, 40))
    shimmer = Part(score, sounds.BELL, 2, (160,))
    for bar, notes in enumerate(MELODY):
        for row, note, volume in notes:
            lead.play(BAR_ROWS * bar + row, note, volume)
            echo.play(BAR_ROWS * bar + row + ECHO_ROWS, note, volume // 4)
            if bar in SHIMMER_BARS:
                shimmer.play(BAR_ROWS * bar + row, note + 12, volume // 4)


def play_chords(score):
    """The pad, and the plucked ripple through the same chord an octave higher."""
    pad = Part(score, sounds.PAD, 8, PAD_PANS)
    ripple = Part(score, sounds.PLUCK, 4, (56, 200, 88, 168))
    sounding = []

    def release(row):
        for channel in sounding:
            score.put(row, channel, xm.Cell(xm.KEY_OFF))

    for bar, chords in enumerate(CHORDS):
        for row, voices in chords:
            at = BAR_ROWS * bar + row
            release(at)
            sounding = [pad.play(at, note, 21) for note in voices]
        if bar < BARS - 1:
            for row, voice, volume in RIPPLE:
                voices = [notes for start, notes in chords if start <= row][-1]
                ripple.play(BAR_ROWS * bar + row, voices[voice] + 12, volume)
    last = BAR_ROWS * (BARS - 1)
    release(last + PAD_OFF_ROW)
    strum = Part(score, sounds.PLUCK, len(STRUM), (72, 100, 140, 176, 204))
    for row, note, volume in STRUM:
        strum.play(last + row, note, volume)
    bell = Part(score, sounds.BELL, 2, (88, 168))
    for row, note, volume in CHIMES:
        bell.play(last + row, note, volume)


def play_rhythm(score):
    bass = Part(score, sounds.BASS, 1, (PAN_CENTRE,))
    kick = Part(score, sounds.KICK, 1, (PAN_CENTRE,))
    snap = Part(score, sounds.SNAP, 1, (146,))
    shaker = Part(score, sounds.SHAKER, 1, (84, 96))
    for bar in range(BARS):
        first = BAR_ROWS * bar
        for row, note, volume in BASS[bar]:
            bass.play(first + row, note, volume)
        for part, hits in ((kick, KICKS), (snap, SNAPS), (shaker, SHAKES)):
            for row, volume in hits[bar]:
                part.play(first + row, xm.MIDDLE_C, volume)


def tune():
    """The bytes of the module."""
    score = Score(BAR_ROWS * (BARS - 1) + LAST_ROWS)
    for play in (play_swing, play_melody, play_chords, play_rhythm):
        play(score)
    if score.channels % 2:
        score.take(1)  # the format wants an even number
    starts = [BAR_ROWS * bar for bar in range(BARS)] + [len(score.rows)]
    patterns = [score.rows[start:end] for start, end in zip(starts, starts[1:])]
    return xm.module(TITLE, range(BARS), patterns, score.channels, sounds.instruments(),
                     SWING_TICKS[0], TEMPO)


def main():
    target = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "tools/welcome/welcome.xm"
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(tune())


if __name__ == "__main__":
    main()
