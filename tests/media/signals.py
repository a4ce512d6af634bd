# SPDX-License-Identifier: GPL-3.0-or-later
"""The sound of the test media: deterministic, and no two positions of a file look alike.

A signal is a list of channels, each a list of floats within -1 and 1.
"""
import math
import random

TONES_HZ = (440.0, 660.0, 330.0, 550.0, 770.0, 990.0)  # one distinct pitch for each channel
TONE, SWEEP, NOISE = 0.30, 0.20, 0.05  # amplitudes; their sum stays below full scale


def marked(rate, channels, seconds, extra_frames=137):
    """Sine (another pitch in each channel) + sweep + seeded noise. The extra frames keep the
    length off whole seconds and whole codec frames."""
    frames = int(rate * seconds) + extra_frames
    return [_marked_channel(rate, frames, channel) for channel in range(channels)]


def _marked_channel(rate, frames, channel):
    noise = random.Random(1000 * rate + channel).random
    sine = math.sin
    tone_step = 2 * math.pi * TONES_HZ[channel % len(TONES_HZ)] / rate
    low, high = 60.0, 0.40 * rate
    if channel % 2:
        low, high = high, low
    # A sweep of constant hertz per second: phase = 2 pi (low t + (high - low) t^2 / (2 T)).
    step = 2 * math.pi * low / rate
    bend = math.pi * (high - low) / (rate * frames)
    return [TONE * sine(tone_step * n) + SWEEP * sine((step + bend * n) * n)
            + NOISE * (2.0 * noise() - 1.0) for n in range(frames)]


def varied(rate, channels, seconds, extra_frames=137):
    """Nearly nothing for the first two thirds, then loud noise with a tone: a variable bit rate
    really varies, and a length estimated from the first frames is far from the true one."""
    frames = int(rate * seconds) + extra_frames
    noise = random.Random(11).random
    step = 2 * math.pi * TONES_HZ[0] / rate
    quiet = 2 * frames // 3
    return [[0.002 * math.sin((channel + 1) * step * n) if n < quiet
             else 0.2 * math.sin((channel + 1) * step * n) + 0.5 * (2.0 * noise() - 1.0)
             for n in range(frames)] for channel in range(channels)]


def sine(rate, channels, frames, hertz, amplitude=0.5):
    """A plain sine, the same in each channel, with no beginning or end of its own."""
    step = 2 * math.pi * hertz / rate
    wave = [amplitude * math.sin(step * n) for n in range(frames)]
    return [wave] * channels


def silence(channels, frames):
    return [[0.0] * frames] * channels
