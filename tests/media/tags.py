# SPDX-License-Identifier: GPL-3.0-or-later
"""ID3 tags put round an MP3 file (ID3v1; ID3v2.3 of id3.org)."""
import random
import struct


def id3v1(title, artist, album, year, comment, genre):
    def field(text, width):
        return text.encode("latin-1")[:width].ljust(width, b"\0")
    return (b"TAG" + field(title, 30) + field(artist, 30) + field(album, 30)
            + field(year, 4) + field(comment, 30) + bytes([genre]))


def _frame(name, body):
    return name + struct.pack(">IH", len(body), 0) + body


def id3v2(texts, picture_bytes):
    """A tag with text frames and a picture of seeded noise (which holds false MP3 frame heads)."""
    frames = b"".join(_frame(name.encode(), b"\0" + text.encode("latin-1"))
                      for name, text in texts.items())
    picture = random.Random(3).randbytes(picture_bytes)
    frames += _frame(b"APIC", b"\0image/png\0\x03\0" + picture)
    size = len(frames)
    synchsafe = bytes((size >> shift) & 0x7F for shift in (21, 14, 7, 0))
    return b"ID3\x03\0\0" + synchsafe + frames
