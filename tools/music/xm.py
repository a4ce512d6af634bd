# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes extended modules (XM, version 1.04) after the public description of the file layout.

Notes are MIDI numbers: 60 is middle C. A row lasts speed * 2.5 / tempo seconds.
"""
import dataclasses
import math
import struct

MIDDLE_C_HZ = 8363  # rate at which a sample plays at middle C when it is not transposed
MIDDLE_C = 60
KEY_OFF = -1  # as a note: lets the envelope leave its sustain point

SET_PAN, SET_SPEED = 0x08, 0x0F  # effects

_INSTRUMENT_BYTES = 263
_FIRST_MIDI = 11  # the format counts from 1, its note 49 is middle C
_KEY_OFF_CODE = 97


@dataclasses.dataclass
class Cell:
    """What one channel does in one row; None leaves a field out."""
    note: int | None = None
    instrument: int | None = None  # from 1
    volume: int | None = None  # 0 to 64
    effect: tuple[int, int] | None = None  # (effect, parameter)


@dataclasses.dataclass
class Instrument:
    """One sample with its volume envelope."""
    name: str
    values: list[int]  # signed, of `bits` bits
    bits: int = 8
    loop: tuple[int, int] | None = None  # (start, length) in values
    volume: int = 64
    relative_note: int = 0  # semitones, see transposition()
    envelope: list[tuple[int, int]] = dataclasses.field(default_factory=list)  # (tick, 0..64)
    sustain_point: int | None = None  # where the envelope waits for KEY_OFF


def transposition(rate_hz, root):
    """The relative note with which a sample of this rate sounds right at the note `root`."""
    return round(12 * math.log2(rate_hz / MIDDLE_C_HZ)) - (root - MIDDLE_C)


def _name(text, width):
    return text.encode("ascii")[:width].ljust(width, b"\0")


def _cell(cell):
    if cell is None:
        return b"\x80"
    note = cell.note
    if note is not None:
        note = _KEY_OFF_CODE if note == KEY_OFF else note - _FIRST_MIDI
    effect, parameter = cell.effect or (None, None)
    volume = None if cell.volume is None else 0x10 + cell.volume
    fields = (note, cell.instrument, volume, effect, parameter)
    mask = sum(1 << bit for bit, field in enumerate(fields) if field is not None)
    return bytes([0x80 | mask] + [field for field in fields if field is not None])


def _pattern(rows, channels):
    """rows: one {channel: Cell} a row"""
    packed = b"".join(_cell(row.get(channel)) for row in rows for channel in range(channels))
    return struct.pack("<IBHH", 9, 0, len(rows), len(packed)) + packed


def _envelope(instrument):
    """The instrument's header from the volume envelope up to the envelopes' kinds."""
    points = [number for point in instrument.envelope for number in point]
    kind = 0
    if points:
        kind = 1 if instrument.sustain_point is None else 3
    return (struct.pack("<24H", *points, *[0] * (24 - len(points))) + b"\0" * 48
            + bytes([len(points) // 2, 0, instrument.sustain_point or 0, 0, 0, 0, 0, 0, kind, 0]))


def _instrument(instrument):
    head = struct.pack("<I", _INSTRUMENT_BYTES) + _name(instrument.name, 22)
    head += struct.pack("<BHI", 0, 1, 40) + b"\0" * 96 + _envelope(instrument)
    head += b"\0" * (_INSTRUMENT_BYTES - len(head))
    width = instrument.bits // 8
    loop_start, loop_length = instrument.loop or (0, 0)
    kind = (1 if instrument.loop else 0) | (0x10 if width == 2 else 0)
    sample = struct.pack("<IIIBBBBbB", width * len(instrument.values), width * loop_start,
                         width * loop_length, instrument.volume, 0, kind, 128,
                         instrument.relative_note, 0)
    mask = (1 << instrument.bits) - 1
    deltas = [(now - before) & mask
              for before, now in zip([0] + instrument.values, instrument.values)]
    data = struct.pack("<%d%s" % (len(deltas), "H" if width == 2 else "B"), *deltas)
    return head + sample + _name(instrument.name, 22) + data


def module(title, orders, patterns, channels, instruments, speed, tempo):
    """The bytes of a module. patterns: lists of rows, each row a {channel: Cell}."""
    head = b"Extended Module: " + _name(title, 20) + b"\x1a" + _name("tovik", 20)
    head += struct.pack("<HI8H", 0x0104, 276, len(orders), 0, channels, len(patterns),
                        len(instruments), 1, speed, tempo)
    head += bytes(orders).ljust(256, b"\0")
    return (head + b"".join(_pattern(rows, channels) for rows in patterns)
            + b"".join(_instrument(instrument) for instrument in instruments))
