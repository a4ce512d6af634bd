# SPDX-License-Identifier: GPL-3.0-or-later
"""Images of audio CDs: a BIN of noise, no two parts of which are alike, and its CUE. And who writes what
is made of them."""
import glob
import os
import random

SECTOR = 2352
SECTORS_PER_SECOND = 75


class Disc:
    """Tracks of so many seconds; `sound` holds what is on each."""

    def __init__(self, folder, seconds, name="disc"):
        chance = random.Random(7)
        self.sound = [chance.randbytes(int(length * SECTORS_PER_SECOND) * SECTOR)
                      for length in seconds]
        with open(os.path.join(folder, name + ".bin"), "wb") as file:
            file.writelines(self.sound)
        self.cue = os.path.join(folder, name + ".cue")
        with open(self.cue, "w", encoding="ascii") as file:
            file.write(f'FILE "{name}.bin" BINARY\n')
            sector = 0
            for number, sound in enumerate(self.sound, 1):
                minutes, rest = divmod(sector, 60 * SECTORS_PER_SECOND)
                file.write("  TRACK %02d AUDIO\n    INDEX 01 %02d:%02d:%02d\n" % (
                    number, minutes, *divmod(rest, SECTORS_PER_SECOND)))
                sector += len(sound) // SECTOR


def with_children(pid):
    """A process and those that it started."""
    processes = [str(pid)]
    for name in glob.glob(f"/proc/{pid}/task/*/children"):
        try:
            with open(name, encoding="ascii") as file:
                processes += file.read().split()
        except OSError:  # that thread has ended
            continue
    return processes
