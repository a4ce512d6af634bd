# SPDX-License-Identifier: GPL-3.0-or-later
"""Uncompressed files: RIFF WAVE and AIFF, written byte by byte."""
import array
import struct
import sys

PCM, IEEE_FLOAT, EXTENSIBLE = 1, 3, 0xFFFE
SPEAKERS_5_1 = 0x3F
SUBFORMAT_TAIL = bytes.fromhex("000000001000800000aa00389b71")


def interleave(signal):
    frames = len(signal[0])
    mixed = [0.0] * (frames * len(signal))
    for channel, values in enumerate(signal):
        mixed[channel::len(signal)] = values
    return mixed


def sample_bytes(signal, form):
    """The samples in one of the forms u8, s16, s24, s32 (little-endian) or f32."""
    values = interleave(signal)
    if form == "u8":
        return bytes(int(round(v * 127.0)) + 128 for v in values)
    if form == "s16":
        return _little(array.array("h", [int(round(v * 32767.0)) for v in values]))
    if form == "s24":
        wide = _little(array.array("i", [int(round(v * 8388607.0)) << 8 for v in values]))
        packed = bytearray(3 * len(values))
        for byte in range(3):
            packed[byte::3] = wide[byte + 1::4]
        return bytes(packed)
    if form == "s32":
        return _little(array.array("i", [int(round(v * 2147483647.0)) for v in values]))
    if form == "f32":
        return _little(array.array("f", values))
    raise ValueError(form)


def _little(values):
    if sys.byteorder == "big":
        values.byteswap()
    return values.tobytes()


def _chunk(name, body):
    return name + struct.pack("<I", len(body)) + body + b"\0" * (len(body) % 2)


def wav(signal, rate, form):
    channels, bits = len(signal), int(form[1:])
    block = channels * bits // 8
    kind = IEEE_FLOAT if form[0] == "f" else PCM
    tag = EXTENSIBLE if channels > 2 else kind
    head = struct.pack("<HHIIHH", tag, channels, rate, rate * block, block, bits)
    if channels > 2:
        head += struct.pack("<HHIH", 22, bits, SPEAKERS_5_1, kind) + SUBFORMAT_TAIL
    body = _chunk(b"fmt ", head) + _chunk(b"data", sample_bytes(signal, form))
    return b"RIFF" + struct.pack("<I", 4 + len(body)) + b"WAVE" + body


def _extended(rate):
    """A whole number as an 80-bit float, which AIFF wants for its rate."""
    exponent = rate.bit_length() - 1
    return struct.pack(">HQ", 16383 + exponent, rate << (63 - exponent))


def aiff16(signal, rate):
    words = array.array("h", sample_bytes(signal, "s16"))
    words.byteswap()
    data = words.tobytes()
    common = struct.pack(">HIH", len(signal), len(signal[0]), 16) + _extended(rate)
    body = b"COMM" + struct.pack(">I", len(common)) + common
    body += b"SSND" + struct.pack(">III", len(data) + 8, 0, 0) + data
    return b"FORM" + struct.pack(">I", 4 + len(body)) + b"AIFF" + body
