# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes one short song as MOD, S3M, XM, IT and MTM module and as UMX package.

The song has two patterns of 64 rows, four channels and one looped 8-bit sample; a row lasts
three ticks of 20 ms, so a song of the orders 0, 1 lasts 7.68 s in every format.
Formats after the public descriptions of their trackers' file layouts. MO3 is not here: its
packed form has no free writer.
"""
import math
import pathlib
import struct
import sys

XM_WRITER = pathlib.Path(__file__).resolve().parents[2] / "tools" / "music" / "xm.py"
sys.path.append(str(XM_WRITER.parent))

import xm as xm_writer  # noqa: E402

ROWS, CHANNELS, SPEED, TEMPO = 64, 4, 3, 125
TITLE = "tovik test song"
MIDDLE_C_HZ = 8363  # rate at which the sample plays when the note is the tracker's middle C

MELODY = (0, 4, 7, 12, 11, 7, 5, 2, 0, 3, 7, 10, 12, 8, 7, 3)  # semitones above middle C
BASS = (-12, -12, -5, -5, -7, -7, -5, -12)


def sample():
    """1024 signed 8-bit values, a tone of 32 values a period whose colour changes on the way."""
    values = []
    for n in range(1024):
        phase = 2 * math.pi * n / 32
        colour = 0.5 + 0.5 * math.sin(2 * math.pi * n / 1024)
        values.append(round(70 * math.sin(phase) + 40 * colour * math.sin(3 * phase)))
    return values


def pattern(number):
    """{row: {channel: semitones above middle C}}"""
    rows = {}
    for step in range(16):
        semitones = MELODY[step if number == 0 else 15 - step]
        rows.setdefault(4 * step, {})[0] = semitones
        if step % 2 == 0:
            rows[4 * step][1] = BASS[(step // 2 + 3 * number) % 8]
        if step % 4 == 2:
            rows.setdefault(4 * step + 1, {})[2] = semitones + 7
            rows.setdefault(4 * step + 3, {})[3] = semitones + 4
    return rows


def _name(text, width):
    return text.encode("ascii")[:width].ljust(width, b"\0")


def mod(orders):
    periods = (856, 808, 762, 720, 678, 640, 604, 570, 538, 508, 480, 453)  # C-1 to B-1

    def cell(number, row, channel):
        note = pattern(number).get(row, {}).get(channel)
        speed = (0x0F, SPEED) if row == 0 and channel == 3 else (0, 0)
        if note is None:
            return bytes([0, 0, *speed])
        octave, semitone = divmod(note + 12, 12)
        period = periods[semitone] >> octave
        return bytes([period >> 8, period & 0xFF, 0x10 | speed[0], speed[1]])

    body = sample()
    data = _name(TITLE, 20)
    data += _name("tone", 22) + struct.pack(">HBBHH", len(body) // 2, 0, 48, 0, len(body) // 2)
    data += (b"\0" * 22 + struct.pack(">HBBHH", 0, 0, 0, 0, 1)) * 30
    data += bytes([len(orders), 127]) + bytes(orders).ljust(128, b"\0") + b"M.K."
    for number in (0, 1):
        data += b"".join(cell(number, row, channel)
                         for row in range(ROWS) for channel in range(CHANNELS))
    return data + struct.pack("%db" % len(body), *body)


def s3m(orders):
    body = bytes(value + 128 for value in sample())

    def packed(number):
        out = b""
        for row in range(ROWS):
            for channel, note in pattern(number).get(row, {}).items():
                octave, semitone = divmod(note + 48, 12)
                out += bytes([32 | channel, octave << 4 | semitone, 1])
            out += b"\0"
        return struct.pack("<H", len(out) + 2) + out

    order_list = bytes(orders) + b"\xff" * (2 - len(orders) % 2)
    head = _name(TITLE, 28) + b"\x1a\x10\0\0"
    head += struct.pack("<6H", len(order_list), 1, 2, 0, 0x1320, 2) + b"SCRM"
    head += bytes([64, SPEED, TEMPO, 0xB0, 16, 0]) + b"\0" * 10
    head += bytes([0, 8, 1, 9]) + b"\xff" * 28 + order_list
    # Places are counted in paragraphs of 16 bytes: the sample's record, two patterns, the data.
    patterns = [_padded(packed(number)) for number in (0, 1)]
    record_at = len(_padded(head + b"\0" * 6)) // 16
    first_at = record_at + 5
    second_at = first_at + len(patterns[0]) // 16
    data_at = second_at + len(patterns[1]) // 16
    head = _padded(head + struct.pack("<3H", record_at, first_at, second_at))
    record = b"\x01" + _name("tone", 12) + struct.pack("<BH", data_at >> 16, data_at & 0xFFFF)
    record += struct.pack("<IIIBBBBI", len(body), 0, len(body), 48, 0, 0, 1, MIDDLE_C_HZ)
    record += b"\0" * 12 + _name("tone", 28) + b"SCRS"
    return head + record + patterns[0] + patterns[1] + body


def _padded(data):
    return data + b"\0" * (-len(data) % 16)


def xm(orders):
    def rows(number):
        notes = pattern(number)
        return [{channel: xm_writer.Cell(xm_writer.MIDDLE_C + note, 1)
                 for channel, note in notes.get(row, {}).items()} for row in range(ROWS)]

    tone = xm_writer.Instrument("tone", sample(), loop=(0, len(sample())), volume=48)
    return xm_writer.module(TITLE, orders, [rows(0), rows(1)], CHANNELS, [tone], SPEED, TEMPO)


def it(orders):
    def packed(number):
        out = b""
        for row in range(ROWS):
            for channel, note in pattern(number).get(row, {}).items():
                out += bytes([0x80 | (channel + 1), 3, note + 60, 1])
            out += b"\0"
        return struct.pack("<HHI", len(out), ROWS, 0) + out

    body = sample()
    order_list = bytes(orders) + b"\xff"
    head = b"IMPM" + _name(TITLE, 26) + struct.pack("<9H", 0x1004, len(order_list), 0, 1, 2,
                                                    0x0214, 0x0200, 9, 0)
    head += bytes([128, 48, SPEED, TEMPO, 128, 0]) + b"\0" * 10
    head += bytes([16, 48, 24, 40]) + b"\xa0" * 60 + b"\x40" * 64 + order_list
    patterns = [packed(number) for number in (0, 1)]
    record_at = len(head) + 12
    first_at = record_at + 80
    second_at = first_at + len(patterns[0])
    data_at = second_at + len(patterns[1])
    head += struct.pack("<3I", record_at, first_at, second_at)
    record = b"IMPS" + _name("tone", 12) + bytes([0, 64, 0x11, 48]) + _name("tone", 26) + b"\x01\0"
    record += struct.pack("<7I", len(body), 0, len(body), MIDDLE_C_HZ, 0, 0, data_at) + b"\0" * 4
    return head + record + patterns[0] + patterns[1] + struct.pack("%db" % len(body), *body)


def mtm(orders):
    def track(number, channel):
        out = b""
        for row in range(ROWS):
            note = pattern(number).get(row, {}).get(channel)
            speed = (0x0F, SPEED) if row == 0 and channel == 3 else (0, 0)
            pitch = 0 if note is None else note + 24
            instrument = 0 if note is None else 1
            out += bytes([pitch << 2 | instrument >> 4, (instrument & 15) << 4 | speed[0],
                          speed[1]])
        return out

    body = bytes(value + 128 for value in sample())
    data = b"MTM\x10" + _name(TITLE, 20)
    data += struct.pack("<HBBHBBBB", 2 * CHANNELS, 1, len(orders) - 1, 0, 1, 0, ROWS, CHANNELS)
    data += bytes([3, 12, 5, 10]).ljust(32, b"\x08")
    data += _name("tone", 22) + struct.pack("<IIIBBB", len(body), 0, len(body), 0, 48, 0)
    data += bytes(orders).ljust(128, b"\0")
    data += b"".join(track(number, channel) for number in (0, 1) for channel in range(CHANNELS))
    for number in (0, 1):
        tracks = [1 + CHANNELS * number + channel for channel in range(CHANNELS)]
        data += struct.pack("<32H", *tracks, *[0] * (32 - CHANNELS))
    return data + body


def _compact(value):
    """A number in the package's own form: 6 bits and the sign first, then 7 bits a byte."""
    out = [value & 0x3F]
    value >>= 6
    if value:
        out[0] |= 0x40
    while value:
        out.append(value & 0x7F | (0x80 if value > 0x7F else 0))
        value >>= 7
    return bytes(out)


def umx(module, extension):
    """A game package (version 61) whose one object is the given module."""
    names = ("None", "Music", extension, "Song", "Core", "Class", "Engine", "Package")
    name_table = b"".join(name.encode() + b"\0" + struct.pack("<I", 0x70010) for name in names)
    content = _compact(0) + _compact(2) + _compact(len(module)) + module
    import_table = (_compact(4) + _compact(5) + struct.pack("<i", -2) + _compact(1)
                    + _compact(4) + _compact(7) + struct.pack("<i", 0) + _compact(6))
    names_at = 44
    content_at = names_at + len(name_table)
    imports_at = content_at + len(content)
    exports_at = imports_at + len(import_table)
    export_table = (b"\x81" + _compact(0) + struct.pack("<i", 0) + _compact(3)
                    + struct.pack("<I", 0xF0004) + _compact(len(content)) + _compact(content_at))
    head = struct.pack("<IHHI8I", 0x9E2A83C1, 61, 0, 1, len(names), names_at, 1, exports_at,
                       2, imports_at, 0, 0)
    return head + name_table + content + import_table + export_table


def files(orders=(0, 1)):
    """Yields (name, bytes) of each module."""
    writers = {"mod": mod, "s3m": s3m, "xm": xm, "it": it, "mtm": mtm}
    for extension, write in writers.items():
        yield "song." + extension, write(orders)
    yield "song.umx", umx(it(orders), "it")
