# SPDX-License-Identifier: GPL-3.0-or-later
"""Which encoded file is made from which WAV, and how. Encoders run as programs."""
import os
import subprocess

import tags

LAME = ["lame", "--quiet"]
OGGENC = ["oggenc", "-Q", "--serial", "1", "-q", "5"]
FLAC = ["flac", "-s", "-f", "-5", "--no-padding"]
FFMPEG = ["ffmpeg", "-v", "error", "-y", "-nostdin", "-fflags", "+bitexact", "-flags", "+bitexact"]

# name -> (WAV it is made from, command; {in} and {out} are replaced)
TABLE = {
    "mp3_cbr128.mp3": ("wav_s16_44100_stereo.wav", [*LAME, "-b", "128", "{in}", "{out}"]),
    "mp3_vbr.mp3": ("varied.wav", [*LAME, "-V", "4", "{in}", "{out}"]),
    "mp3_abr.mp3": ("wav_s16_44100_stereo.wav", [*LAME, "--abr", "160", "{in}", "{out}"]),
    "mp3_vbr_no_xing.mp3": ("varied.wav", [*LAME, "-t", "-V", "4", "{in}", "{out}"]),
    "mp3_cbr_no_info.mp3": ("wav_s16_44100_stereo.wav",
                            [*LAME, "-t", "-b", "192", "{in}", "{out}"]),
    "mp3_mono.mp3": ("wav_s16_44100_mono.wav",
                     [*LAME, "-b", "96", "--resample", "44.1", "-m", "m", "{in}", "{out}"]),
    "mp3_48000.mp3": ("wav_s16_48000_stereo.wav",
                      [*LAME, "-b", "192", "--resample", "48", "{in}", "{out}"]),
    "mp3_22050.mp3": ("wav_s16_22050_stereo.wav",
                      [*LAME, "-b", "64", "--resample", "22.05", "{in}", "{out}"]),
    "ogg_44100.ogg": ("wav_s16_44100_stereo.wav", [*OGGENC, "-o", "{out}", "{in}"]),
    "ogg_48000.ogg": ("wav_s16_48000_stereo.wav", [*OGGENC, "-o", "{out}", "{in}"]),
    "ogg_mono.ogg": ("wav_s16_44100_mono.wav", [*OGGENC, "-o", "{out}", "{in}"]),
    "flac_16_44100.flac": ("wav_s16_44100_stereo.wav", [*FLAC, "-o", "{out}", "{in}"]),
    "flac_16_48000.flac": ("wav_s16_48000_stereo.wav", [*FLAC, "-o", "{out}", "{in}"]),
    "flac_24_44100.flac": ("wav_s24_44100_stereo.wav", [*FLAC, "-o", "{out}", "{in}"]),
    "flac_24_48000.flac": ("wav_s24_48000_stereo.wav", [*FLAC, "-o", "{out}", "{in}"]),
    "flac_no_seektable.flac": ("wav_s16_44100_stereo.wav",
                               [*FLAC, "--no-seektable", "-o", "{out}", "{in}"]),
    "wma_44100.wma": ("wav_s16_44100_stereo.wav",
                      [*FFMPEG, "-i", "{in}", "-c:a", "wmav2", "-b:a", "128k", "{out}"]),
    "wma_48000_mono.wma": ("wav_s16_48000_mono.wav",
                           [*FFMPEG, "-i", "{in}", "-c:a", "wmav2", "-b:a", "96k", "{out}"]),
    "mp3_free_format.mp3": ("wav_s16_44100_stereo.wav",
                            [*LAME, "--freeformat", "-b", "400", "{in}", "{out}"]),
    "layer2.mp2": ("wav_s16_44100_stereo.wav",
                   [*FFMPEG, "-i", "{in}", "-c:a", "mp2", "-b:a", "224k", "{out}"]),
    "mp3_in_wav.wav": ("wav_s16_44100_stereo.wav",
                       [*FFMPEG, "-i", "{in}", "-c:a", "libmp3lame", "-b:a", "128k", "{out}"]),
    "adpcm_ms.wav": ("wav_s16_44100_stereo.wav",
                     [*FFMPEG, "-i", "{in}", "-c:a", "adpcm_ms", "{out}"]),
    "adpcm_ima.wav": ("wav_s16_44100_stereo.wav",
                      [*FFMPEG, "-i", "{in}", "-c:a", "adpcm_ima_wav", "{out}"]),
    "adpcm_ima_mono.wav": ("wav_s16_22050_mono.wav",
                           [*FFMPEG, "-i", "{in}", "-c:a", "adpcm_ima_wav", "{out}"]),
    "flac_in_ogg.ogg": ("wav_s16_44100_stereo.wav",
                        [*FLAC, "--ogg", "--serial-number=1", "-o", "{out}", "{in}"]),
    **{"flac_link_%d.ogg" % n: ("gapless_%d.wav" % n,
                               [*FLAC, "--ogg", "--serial-number=%d" % (n + 1), "-o", "{out}",
                                "{in}"]) for n in (1, 2, 3)},
    **{"flac_link_same_%d.ogg" % n: ("gapless_%d.wav" % n,
                                    [*FLAC, "--ogg", "--serial-number=7", "-o", "{out}", "{in}"])
       for n in (1, 2, 3)},
    "link_1.ogg": ("gapless_1.wav", [*OGGENC[:3], "2", *OGGENC[4:], "-o", "{out}", "{in}"]),
    "link_2.ogg": ("gapless_2.wav", [*OGGENC[:3], "3", *OGGENC[4:], "-o", "{out}", "{in}"]),
    "link_3.ogg": ("gapless_3.wav", [*OGGENC[:3], "4", *OGGENC[4:], "-o", "{out}", "{in}"]),
    "ogg_5_1.ogg": ("wav_s16_44100_5_1.wav", [*OGGENC, "-o", "{out}", "{in}"]),
    "flac_5_1.flac": ("wav_s16_44100_5_1.wav", [*FLAC, "-o", "{out}", "{in}"]),
    "two_blocks.wma": ("wav_s16_44100_stereo.wav",
                       [*FFMPEG, "-i", "{in}", "-t", "0.08", "-c:a", "wmav2", "-b:a", "128k",
                        "{out}"]),
    **{"gapless_%d.mp3" % n: ("gapless_%d.wav" % n, [*LAME, "-b", "192", "{in}", "{out}"])
       for n in (1, 2, 3)},
    "gapless_1.flac": ("gapless_1.wav", [*FLAC, "-o", "{out}", "{in}"]),
    "gapless_2.flac": ("gapless_2.wav", [*FLAC, "-o", "{out}", "{in}"]),
    "gapless_3.flac": ("gapless_3.wav", [*FLAC, "-o", "{out}", "{in}"]),
}

BENCH_TABLE = {
    "bench.mp3": ("bench.wav", [*LAME, "-V", "4", "{in}", "{out}"]),
    "bench_cbr192.mp3": ("bench.wav", [*LAME, "-b", "192", "{in}", "{out}"]),
    "bench.ogg": ("bench.wav", [*OGGENC, "-o", "{out}", "{in}"]),
    "bench.flac": ("bench.wav", [*FLAC, "-o", "{out}", "{in}"]),
    "bench.wma": ("bench.wav", [*FFMPEG, "-i", "{in}", "-c:a", "wmav2", "-b:a", "160k", "{out}"]),
}

TEXTS = {"TIT2": "Tagged tone", "TPE1": "Tovik", "TALB": "Test media", "TYER": "2004"}

# Files whose format does not say where the sound ends: delay and padding stay in, or the end is
# cut off.
LENGTH_UNKNOWN = ("mp3_vbr_no_xing.mp3", "mp3_cbr_no_info.mp3", "mp3_truncated.mp3",
                  "wma_44100.wma", "wma_48000_mono.wma", "bench.wma", "layer2.mp2",
                  "mp3_in_wav.wav", "adpcm_ms.wav", "adpcm_ima.wav", "adpcm_ima_mono.wav",
                  "two_blocks.wma")

# Files whose kind is not what their names end in.
KINDS = {"layer2.mp2": "mp3", "mp3_in_wav.wav": "mp3", "adpcm_ms.wav": "adpcm",
         "adpcm_ima.wav": "adpcm", "adpcm_ima_mono.wav": "adpcm", "flac_in_ogg.ogg": "flac",
         "flac_chained.ogg": "flac", "flac_chained_same.ogg": "flac",
         **{"flac_link_%s%d.ogg" % (kind, n): "flac" for kind in ("", "same_") for n in (1, 2, 3)},
         "two_blocks.wma": "short", "two_frames.mp3": "short"}


def encode(folder, name, source, command):
    """Runs one encoder; raises with its words when it fails."""
    paths = {"in": os.path.join(folder, source), "out": os.path.join(folder, name)}
    words = [word.format(**paths) for word in command]
    done = subprocess.run(words, stdin=subprocess.DEVNULL, capture_output=True, check=False)
    if done.returncode != 0:
        raise RuntimeError("%s failed:\n%s" % (" ".join(words), done.stderr.decode()))


def first_frames(data, count):
    """The first frames, of 626 bytes and padding, of an MP3 file of 192 kbit/s and 44100 Hz."""
    end = 0
    for _ in range(count):
        end += 626 + (data[end + 2] >> 1 & 1)
    return data[:end]


def derived(folder):
    """Files made from other encoded files: yields (name, the file it sounds like, bytes)."""
    def read(name):
        with open(os.path.join(folder, name), "rb") as file:
            return file.read()
    plain, vbr = read("mp3_cbr128.mp3"), read("mp3_vbr.mp3")
    v1 = tags.id3v1("Tagged tone", "Tovik", "Test media", "2004", "made by a script", 12)
    yield "mp3_id3v1.mp3", "mp3_cbr128.mp3", plain + v1
    yield "mp3_id3v2_large.mp3", "mp3_cbr128.mp3", tags.id3v2(TEXTS, 300000) + plain
    yield "mp3_id3_both.mp3", "mp3_vbr.mp3", tags.id3v2(TEXTS, 1000) + vbr + v1
    yield "two_frames.mp3", "mp3_cbr_no_info.mp3", first_frames(read("mp3_cbr_no_info.mp3"), 2)
    links = [read("link_%d.ogg" % n) for n in (1, 2, 3)]
    yield "ogg_chained.ogg", "gapless_whole.wav", b"".join(links)
    for kind in ("", "same_"):
        flac_links = [read("flac_link_%s%d.ogg" % (kind, n)) for n in (1, 2, 3)]
        yield ("flac_chained_%s" % kind).rstrip("_") + ".ogg", "gapless_whole.wav", \
            b"".join(flac_links)
    yield "mp3_truncated.mp3", "mp3_vbr.mp3", vbr[:len(vbr) * 6 // 10]
