# SPDX-License-Identifier: GPL-3.0-or-later
"""The instruments of the welcome tune, all computed here: struck tones, a pad, a bass, drums.

A struck tone is stored as its attack only. Its overtones die away inside the sample, what is
left repeats as one period, and the volume envelope lets it ring out: small, and without clicks.
"""
import math
import random

import xm

TICK_S = 0.0125  # at the tune's tempo of 200
HIGH_HZ, LOW_HZ = 4 * xm.MIDDLE_C_HZ, 2 * xm.MIDDLE_C_HZ  # rates that divide into whole periods
FULL_SCALE = 32000


def _whole(values):
    """16-bit values that use the whole range."""
    factor = FULL_SCALE / max(abs(value) for value in values)
    return [round(factor * value) for value in values]


def _ringing(time_constant_s, length_s):
    """Envelope of 12 points: an exponential fall that ends in silence after length_s."""
    ticks = [round(length_s / TICK_S * (step / 11) ** 1.5) for step in range(12)]
    levels = [round(64 * math.exp(-tick * TICK_S / time_constant_s)) for tick in ticks[:-1]]
    return list(zip(ticks, levels + [0]))


def _struck(name, rate, root, seconds, steady, dying, knock, ring):
    """steady: (harmonic, level); dying: (frequency ratio, level, time constant in seconds);
    knock: level of the hammer's noise; ring: (time constant, length) of the whole in seconds."""
    # Middle C has 32 samples at the format's own rate, so every root C has a whole number.
    period = round(32 * rate / xm.MIDDLE_C_HZ / 2 ** ((root - xm.MIDDLE_C) / 12))
    start = round(rate * seconds / period) * period
    noise = random.Random(name)
    values, soft = [], 0.0
    for n in range(start + period):
        time, turn = n / rate, 2 * math.pi * n / period
        left = max(0.0, 1 - n / start) ** 2
        soft += 0.25 * (noise.uniform(-1, 1) - soft)
        value = sum(level * math.sin(harmonic * turn) for harmonic, level in steady)
        value += left * sum(level * math.exp(-time / constant) * math.sin(ratio * turn)
                            for ratio, level, constant in dying)
        value += left * knock * soft * math.exp(-time / 0.006)
        values.append(value * min(1.0, time / 0.002))
    return xm.Instrument(name, _whole(values), 16, (start, period),
                         relative_note=xm.transposition(rate, root), envelope=_ringing(*ring))


def _pad():
    """Three strings a little out of tune with each other; all of it fits the loop exactly."""
    length, turns = 16384, 256  # the loop, and the turns of the fundamental in it
    noise = random.Random("pad")
    values = [0.0] * length
    for harmonic in range(1, 11):
        for detune, level in ((-1, 0.5), (0, 1.0), (1, 0.5)):
            step = 2 * math.pi * harmonic * (turns + detune) / length
            phase = noise.uniform(0, 2 * math.pi)
            level *= harmonic ** -1.7
            for n in range(length):
                values[n] += level * math.sin(step * n + phase)
    envelope = [(0, 0), (12, 34), (30, 64), (31, 64), (45, 36), (70, 12), (110, 0)]
    return xm.Instrument("warm pad", _whole(values), 16, (0, length),
                         relative_note=xm.transposition(LOW_HZ, 60),
                         envelope=envelope, sustain_point=2)


def _drum(name, rate, seconds, sound):
    """sound(time, noise) is the value at that time in seconds; the end fades to nothing."""
    noise = random.Random(name)
    count = round(rate * seconds)
    values = [sound(n / rate, noise) * min(1.0, n / 20) * min(1.0, (count - 1 - n) / (count / 4))
              for n in range(count)]
    return xm.Instrument(name, _whole(values), 16,
                         relative_note=xm.transposition(rate, xm.MIDDLE_C))


def _kick(time, _noise):
    # 46 Hz with a fall from 136 Hz; the phase is the integral of that.
    turns = 46 * time + 90 * 0.03 * (1 - math.exp(-time / 0.03))
    return math.sin(2 * math.pi * turns) * math.exp(-time / 0.09)


def _snap(time, noise):
    body = 0.5 * math.sin(2 * math.pi * 1150 * time) + 0.3 * math.sin(2 * math.pi * 1730 * time)
    return body * math.exp(-time / 0.012) + 0.5 * noise.uniform(-1, 1) * math.exp(-time / 0.03)


def _shaker(time, noise):
    # The difference of two random numbers in a row would need memory; a fast tone that noise
    # modulates lies as high.
    swell = min(1.0, time / 0.012) * math.exp(-time / 0.022)
    return swell * noise.uniform(-1, 1) * math.sin(2 * math.pi * 9500 * time)


PLUCK, BELL, PAD, BASS, KICK, SNAP, SHAKER = range(1, 8)


def instruments():
    """In the order of the numbers above."""
    return [
        _struck("soft pluck", HIGH_HZ, 72, 0.4, ((1, 1.0), (2, 0.06)),
                ((2, 0.45, 0.16), (3, 0.3, 0.09), (4, 0.16, 0.06), (7, 0.1, 0.02)), 0.5,
                (0.42, 1.9)),
        _struck("glass bell", HIGH_HZ, 72, 0.5, ((1, 1.0),),
                ((2.76, 0.4, 0.14), (4.07, 0.22, 0.09), (5.4, 0.16, 0.05)), 0.1, (0.55, 2.2)),
        _pad(),
        _struck("round bass", LOW_HZ, 36, 0.3, ((1, 1.0), (2, 0.35), (3, 0.12)),
                ((2, 0.4, 0.1), (3, 0.3, 0.08), (4, 0.2, 0.06), (5, 0.1, 0.04)), 0.3,
                (0.7, 2.0)),
        _drum("kick", LOW_HZ, 0.3, _kick),
        _drum("snap", HIGH_HZ, 0.13, _snap),
        _drum("shaker", HIGH_HZ, 0.09, _shaker),
    ]
