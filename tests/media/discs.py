# SPDX-License-Identifier: GPL-3.0-or-later
"""Images of discs, as (name, bytes): a sheet that says what is where, and the sectors.

Sound is 16-bit little-endian stereo at 44.1 kHz; a sector is 1/75 s, 2352 bytes.
"""
import array
import math
import random
import struct
import sys

SECTOR = 2352
FRAMES = SECTOR // 4
SECONDS = 75  # sectors
SYNC = b"\0" + b"\xff" * 10 + b"\0"


def tone(hertz, sectors, level=9000):
    """A sine on the left, another one on the right, and a little noise: no two sectors alike."""
    noise = random.Random(int(hertz * 100 + sectors))
    step = 2 * math.pi * hertz / 44100
    samples = array.array("h")
    for n in range(sectors * FRAMES):
        samples.append(round(level * math.sin(step * n)) + noise.randrange(-30, 31))
        samples.append(round(level * math.sin(1.5 * step * n)) + noise.randrange(-30, 31))
    if sys.byteorder == "big":
        samples.byteswap()
    return samples.tobytes()


def noise(seed, sectors):
    return random.Random(seed).randbytes(sectors * SECTOR)


def data(sectors):
    """Sectors of a data track in their raw form (mode 1)."""
    def bcd(value):
        return value // 10 * 16 + value % 10
    whole = b""
    for n in range(sectors):
        place = bytes((bcd(n // 4500), bcd(n // 75 % 60 + 2), bcd(n % 75)))
        whole += (SYNC + place + b"\x01" + b"data" * 600)[:SECTOR]
    return whole


def time(sector):
    return "%02d:%02d:%02d" % (sector // 4500, sector // 75 % 60, sector % 75)


def sheet(image, tracks, head=""):
    """The CUE sheet of tracks (kind, pre-gap in sectors, sectors behind it, lines of text)."""
    text = head + 'FILE "%s" BINARY\n' % image
    at = 0
    for number, (kind, gap, sectors, lines) in enumerate(tracks, 1):
        text += "  TRACK %02d %s\n%s" % (number, kind, lines)
        if gap:
            text += "    INDEX 00 %s\n" % time(at)
        text += "    INDEX 01 %s\n" % time(at + gap)
        at += gap + sectors
    return text


AUDIO, DATA = "AUDIO", "MODE1/2352"


def image(name, tracks, sound, head="", encoding="utf-8"):
    yield name + ".cue", sheet(name + ".bin", tracks, head).encode(encoding)
    yield name + ".bin", sound


def words(title, performer):
    return '    TITLE "%s"\n    PERFORMER "%s"\n' % (title, performer)


TEXT_TRACKS = (("Première", "Ann"), ("Второй", "Björk & Co"), ("A = B", ""))


def toc_sheet(name, lengths):
    """The same tracks in the other kind of sheet; its sound has the high byte first."""
    text = "CD_DA\n"
    at = 0
    for sectors in lengths:
        text += '\nTRACK AUDIO\nFILE "%s" %s %s\n' % (name, time(at), time(sectors))
        at += sectors
    return text.encode()


def swapped(sound):
    samples = array.array("h", sound)
    samples.byteswap()
    return samples.tobytes()


def nrg(lengths, sound):
    """An image whose sheet stands behind the sectors: chunks with a name and a length."""
    def bcd(value):
        return value // 10 * 16 + value % 10

    def chunk(name, body):
        return name + struct.pack(">I", len(body)) + body
    gap = 150  # of the first track, which is in the image
    starts = [sum(lengths[:n]) for n in range(len(lengths) + 1)]
    cue = struct.pack(">BBBBi", 0x01, 0, 0, 0, -150)
    for number, start in enumerate(starts[:-1], 1):
        cue += struct.pack(">BBBBi", 0x01, bcd(number), 0, 0, start - (0 if start else gap))
        cue += struct.pack(">BBBBi", 0x01, bcd(number), 1, 0, start)
    cue += struct.pack(">BBBBi", 0x01, 0xAA, 1, 0, starts[-1])
    dao = struct.pack(">I", 0) + b"\0" * 14 + struct.pack(">BBBB", 0, 0, 1, len(lengths))
    for n in range(len(lengths)):
        dao += b"\0" * 12 + struct.pack(">HHH", SECTOR, 0x0700, 1)
        begin = (starts[n] + gap) * SECTOR
        dao += struct.pack(">QQQ", begin if n else 0, begin, (starts[n + 1] + gap) * SECTOR)
    tail = chunk(b"CUEX", cue) + chunk(b"DAOX", dao) + chunk(b"SINF", struct.pack(
        ">I", len(lengths))) + chunk(b"MTYP", struct.pack(">I", 1)) + chunk(b"END!", b"")
    sectors = bytes(gap * SECTOR) + sound
    return sectors + tail + b"NER5" + struct.pack(">Q", len(sectors))


def files():
    lengths = (3 * SECONDS, 4 * SECONDS + 7, 2 * SECONDS + 1)
    sound = [tone(hertz, sectors) for hertz, sectors in zip((440, 587, 331), lengths)]
    tones = b"".join(sound)
    plain = [(AUDIO, 0, sectors, "") for sectors in lengths]
    yield from image("cd_tones", plain, tones)
    yield "cd_toc.toc", toc_sheet("cd_toc.bin", lengths)
    yield "cd_toc.bin", swapped(tones)
    yield "cd_nrg.nrg", nrg(lengths, tones)
    head = 'TITLE "Größe"\nPERFORMER "Various"\n'
    second = noise(4, 3 * SECONDS)
    texts = [(AUDIO, 0, SECONDS, words(*text)) for text in TEXT_TRACKS]
    yield from image("cd_text", texts, second, head)
    latin = [(AUDIO, 0, SECONDS, words("Première %d" % n, "Ann")) for n in range(3)]
    yield from image("cd_latin", latin, second, head, "latin-1")
    hidden = [(AUDIO, 2 * SECONDS, SECONDS, ""), (AUDIO, 0, SECONDS, "")]
    yield from image("cd_hidden", hidden, noise(1, 4 * SECONDS))
    mixed = [(DATA, 0, 200, ""), (AUDIO, 150, 2 * SECONDS, words("One", "X")),
             (AUDIO, 0, 3 * SECONDS, words("Two", "X")), (DATA, 150, 220, "")]
    # Tones: noise at full level would bring the guard against clipping into play.
    whole = (data(200) + bytes(150 * SECTOR) + tone(523, 2 * SECONDS) + tone(698, 3 * SECONDS) +
             bytes(150 * SECTOR))
    yield from image("cd_mixed", mixed, whole + data(220), 'TITLE "Mixed"\n')
    yield from image("cd_mixed_plain", [(*row[:3], "") for row in mixed], whole + data(220))
    yield from image("cd_99", [(AUDIO, 0, 20, "")] * 99, noise(3, 99 * 20))
    # Cut off in the middle of its second track, and one whose sectors are missing.
    yield from image("cd_cut", plain, tones[:5 * SECONDS * SECTOR])
    yield "cd_gone.cue", sheet("cd_gone.bin", plain).encode()
    yield "cd_broken.cue", b'FILE "cd_tones.bin" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 99:99:99\n'
