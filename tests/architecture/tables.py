# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads the tables of the checks: lines "name: word word ...", "#" for comments."""


def read(path):
    table = {}
    for line in path.read_text().splitlines():
        line = line.split("#")[0].strip()
        if line:
            name, words = line.split(":")
            table[name.strip()] = words.split()
    return table


def upward(floors):
    """What is wrong with the table of floors itself: a folder that names one not below it."""
    below = set()
    for folder, uses in floors.items():
        for used in uses:
            if used not in below:
                yield "floors.txt: %s names %s, which is not below it" % (folder, used)
        below.add(folder)
