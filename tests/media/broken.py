# SPDX-License-Identifier: GPL-3.0-or-later
"""Files that no decoder may take, or that break off: text, nothing, noise behind a magic."""
import random

NOISE_BYTES = 20000

# name -> (offset of the magic, magic)
MAGICS = {
    "noise_plain.mp3": (0, b""),
    "noise_frame.mp3": (0, bytes.fromhex("fffb9064")),
    "noise_id3.mp3": (0, b"ID3\x03\0\0\0\0\x10\0"),
    "noise.ogg": (0, b"OggS\0\x02" + b"\0" * 8),
    "noise.wav": (0, b"RIFF\xff\xff\0\0WAVEfmt "),
    "noise.aif": (0, b"FORM\0\0\xff\xffAIFFCOMM"),
    "noise.flac": (0, b"fLaC\0\0\0\x22"),
    "noise.wma": (0, bytes.fromhex("3026b2758e66cf11a6d900aa0062ce6c")),
    "noise.mod": (1080, b"M.K."),
    "noise.s3m": (44, b"SCRM"),
    "noise.xm": (0, b"Extended Module: "),
    "noise.it": (0, b"IMPM"),
    "noise.mtm": (0, b"MTM\x10"),
    "noise.umx": (0, bytes.fromhex("c1832a9e")),
    "noise.mo3": (0, b"MO3\x05"),
}

TEXTS = {
    "text.mp3": "This is a letter and not a song.\r\n" * 40,
    "list.m3u": "#EXTM3U\r\n#EXTINF:3,one\r\nwav_s16_44100_stereo.wav\r\n",
    "list.pls": "[playlist]\r\nFile1=wav_s16_44100_stereo.wav\r\nNumberOfEntries=1\r\n",
}


def files():
    """Yields (name, bytes)."""
    yield "empty.mp3", b""
    yield "empty.wav", b""
    for name, text in TEXTS.items():
        yield name, text.encode()
    for seed, (name, (offset, magic)) in enumerate(MAGICS.items()):
        data = bytearray(random.Random(seed).randbytes(NOISE_BYTES))
        data[offset:offset + len(magic)] = magic
        yield name, bytes(data)
