#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures what it costs to read what the files of a long list say of themselves.

Usage: facts.py PROGRAM [--files N] [--runs N]

The files are made by the script: MP3 and FLAC in turn, a few KB each, with tags of their own. The
player is started with a saved list of them that knows no titles and lengths, with comfort on and
off. "done" is when the thread that reads had read the last one, "stall" the longest time that the
window took to answer the window manager's question whether it is alive: no frame is painted
meanwhile. "read" is how many rows had a title in the list that was saved at the end. What the start
costs by itself is the line "off".
"""
import argparse
import os
import re
import statistics
import struct
import threading
import time

import long_list
from long_list import Desk, Tovik, begin, finish, watch

long_list.QUIET = 5  # seconds: a disk may have more to do than the processor

FRAME = b"\xff\xfb\x90\x44" + bytes(413)


def text_frame(name, text):
    return name + struct.pack(">IH", len(text) + 1, 0) + b"\0" + text


def mp3(number):
    frames = (text_frame(b"TIT2", b"Title %d" % number) + text_frame(b"TPE1", b"Artist") +
              text_frame(b"TALB", b"Album %d" % (number // 12)))
    size = bytes(len(frames) >> shift & 0x7F for shift in (21, 14, 7, 0))
    return b"ID3\3\0\0" + size + frames + FRAME * 8


def flac(number):
    def block(kind, content):
        return bytes([kind]) + struct.pack(">I", len(content))[1:] + content
    words = [b"TITLE=Title %d" % number, b"ARTIST=Artist", b"ALBUM=Album %d" % (number // 12)]
    comments = struct.pack("<II", 0, len(words)) + b"".join(
        struct.pack("<I", len(word)) + word for word in words)
    facts = b"\x10\0\x10\0\0\0\0\0\0\0\x0a\xc4\x42\xf0\0\x01\x58\x88" + bytes(16)
    return b"fLaC" + block(0, facts) + block(0x84, comments) + bytes(3000)


def make_files(folder, count):
    os.makedirs(folder)
    paths = []
    for number in range(count):
        make, ending = ((mp3, "mp3"), (flac, "flac"))[number % 2]
        paths.append(os.path.join(folder, f"{number:05}.{ending}"))
        with open(paths[-1], "wb") as file:
            file.write(make(number))
    return paths


class Beside(threading.Thread):
    """Looks when each thread beside the interface's worked last; the one that reads works most."""

    def __init__(self, pid, began):
        super().__init__(daemon=True)
        self.pid, self.began, self.over = pid, began, False
        self.used, self.last = {}, {}

    def look(self):
        for task in os.listdir(f"/proc/{self.pid}/task"):
            with open(f"/proc/{self.pid}/task/{task}/comm") as name:
                if task == str(self.pid) or name.read().strip() != "tovik":
                    continue
            with open(f"/proc/{self.pid}/task/{task}/schedstat") as file:
                used = int(file.read().split()[0])
            if used > self.used.get(task, 0):
                self.used[task], self.last[task] = used, time.monotonic() - self.began

    def run(self):
        while not self.over:
            try:
                self.look()
            except OSError:
                pass  # a thread, or all of them, went meanwhile
            time.sleep(0.02)

    def done(self):
        return self.last[max(self.used, key=self.used.get)] if self.used else 0


def measure(desk, player, paths, comfort):
    player.saved(b"".join(b"#EXTINF:0,%s\r\n%s\r\n" % (os.path.basename(path).encode(),
                                                     path.encode()) for path in paths))
    process, began = begin(desk, player.command("--comfort=" + comfort))
    beside = Beside(process.pid, began)
    beside.start()
    row = watch(desk, player, process, began, 0)
    row["done"] = beside.done()
    beside.over = True
    finish(process)
    with open(os.path.join(player.data, "db/autosave.m3u"), "rb") as file:
        row["read"] = len(re.findall(rb"#EXTINF:[1-9]?\d*,Artist - Title", file.read()))
    return row


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--files", type=int, default=20_000)
    parser.add_argument("--runs", type=int, default=3)
    options = parser.parse_args()
    desk = Desk()
    try:
        player = Tovik(desk, os.path.abspath(options.program))
        process, began = begin(desk, player.command())  # makes the data folder
        watch(desk, player, process, began, 0)
        finish(process)
        paths = make_files(os.path.join(desk.folder, "music"), options.files)
        for comfort in ("off", "on"):
            rows = [measure(desk, player, paths, comfort) for _ in range(options.runs)]
            told = ["{} {:.3f} s".format(key, statistics.median(row[key] for row in rows))
                    for key in ("window", "done")]
            told.append("stall {:.1f} ms".format(1000 * max(row["stall"] for row in rows)))
            told.append("read {}".format(min(row["read"] for row in rows)))
            print(f"{comfort}: " + ", ".join(told), flush=True)
    finally:
        desk.close()


if __name__ == "__main__":
    main()
