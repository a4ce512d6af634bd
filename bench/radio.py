#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures Internet radio in the real window, with servers on this machine.

Usage: radio.py PROGRAM first|back|dead|memory [--runs N] [--seconds N] [--kbps N]

first   from the click on Play to the first sound, at a server that sends 4 s at once
back    from the start of a server that was away to the first sound; it was away for --seconds
dead    50 starts of stations of which no sound comes: how long the window waits with an answer to
        the window manager's question at worst, and how long the end of the program takes
memory  a stream of --kbps for --seconds: memory of the process every tenth of that

The processor time of a minute beside other players: compare_players.py PROGRAM ADDRESS --seconds 60,
at the address of "radio.py PROGRAM serve".
"""
import argparse
import os
import shutil
import signal
import socket
import statistics
import subprocess
import sys
import tempfile
import threading
import time

from compare_players import LIMIT, Stage, memory
from long_list import Windows

STARTS = 50
PANEL, PLAY, ROW, ROW_HEIGHT = (229, 20), (45, 253), (120, 52), 16
BURST_SECONDS = 4
BLOCKS = 20  # a second
PAUSE = 0.15  # between two starts of dead stations


def song(folder, kbps):
    """A minute of noise as MP3 frames alone."""
    path = os.path.join(folder, "song.mp3")
    subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "anoisesrc=d=60:a=0.3", "-c:a",
                    "libmp3lame", "-b:a", f"{kbps}k", "-ac", "2", "-write_xing", "0",
                    "-id3v2_version", "0", path], check=True)
    with open(path, "rb") as file:
        return file.read()


class Server:
    """Sends a song for ever; as `kind` says also nothing, or nonsense."""

    def __init__(self, kind, data=b"", kbps=128, port=0):
        self.kind, self.data, self.bytes = kind, data, kbps * 125
        self.listener = socket.create_server(("127.0.0.1", port), backlog=64)
        self.port = self.listener.getsockname()[1]
        self.open, self.ended, self.burst = [], False, 0
        threading.Thread(target=self.accept, daemon=True).start()

    @property
    def address(self):
        return f"http://127.0.0.1:{self.port}/"

    def accept(self):
        while not self.ended:
            try:
                peer = self.listener.accept()[0]
            except OSError:
                return
            self.open.append(peer)
            threading.Thread(target=self.serve, args=(peer,), daemon=True).start()

    def serve(self, peer):
        try:
            peer.recv(65536)
            getattr(self, self.kind)(peer)
        except OSError:
            pass

    def plays(self, peer):
        peer.sendall(b"HTTP/1.0 200 OK\r\nContent-Type: audio/mpeg\r\nicy-name:Noise\r\n"
                     b"icy-br:%d\r\n\r\n" % (self.bytes // 125))
        at, block = self.bytes * BURST_SECONDS, self.bytes // BLOCKS
        peer.sendall(self.data[:at])
        self.burst = time.monotonic()
        began, sent = time.monotonic(), 0
        while True:
            peer.sendall((self.data + self.data)[at:at + block])
            at, sent = (at + block) % len(self.data), sent + 1
            time.sleep(max(0, began + sent / BLOCKS - time.monotonic()))

    @staticmethod
    def says_nothing(peer):
        peer.recv(1)

    @staticmethod
    def never_ends_its_head(peer):
        peer.sendall(b"HTTP/1.1 200 OK\r\n")
        while True:
            peer.sendall(b"X-More: and more\r\n" * 100)

    def drips(self, peer):
        peer.sendall(b"HTTP/1.0 200 OK\r\nContent-Type: audio/mpeg\r\n\r\n")
        while True:
            peer.sendall(b"\xff")
            time.sleep(0.05)

    @staticmethod
    def titles(peer):
        """A new title behind each byte of noise that is no sound."""
        peer.sendall(b"HTTP/1.0 200 OK\r\nContent-Type: audio/mpeg\r\nicy-metaint: 1\r\n\r\n")
        number = 0
        while True:
            words = b"StreamTitle='%d" % number + b"t" * 4000 + b"';"
            number += 1
            peer.sendall(b"x\xff" + words.ljust(255 * 16, b"\0"))

    def circles(self, peer):
        peer.sendall(b"HTTP/1.1 302 Found\r\nLocation: /\r\nContent-Length: 0\r\n"
                     b"Connection: close\r\n\r\n")
        peer.close()

    @staticmethod
    def answers_a_page(peer):
        peer.sendall(b"HTTP/1.0 200 OK\r\nContent-Type: audio/mpeg\r\n\r\n<html>" + b"a" * 100000)
        peer.close()

    def close(self):
        self.ended = True
        self.listener.shutdown(socket.SHUT_RDWR)
        self.listener.close()
        for peer in self.open:
            try:
                peer.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass
            peer.close()


class Desk(Stage):
    """A screen with a window manager, and the player on the radio's panel."""

    def __init__(self, program, addresses):
        super().__init__()
        self.run("openbox", "--sm-disable", stdout=subprocess.DEVNULL)
        time.sleep(0.5)
        place = os.path.join(self.folder, ".local/share/tovik")
        shutil.copytree(os.path.join(os.path.dirname(os.path.abspath(program)), "data"), place)
        folder = os.path.join(place, "db")
        with open(os.path.join(folder, "stations.dat"), "w", encoding="ascii", newline="") as file:
            file.write("[stationlist]\r\n")
            for number, address in enumerate(addresses, 1):
                file.write(f"Station{number}={address}\r\nUrl{number}=S{number}\r\n")
            file.write(f"\r\nNumberOfEntries={len(addresses)}\r\n")
        self.player = subprocess.Popen([program], env=self.environment, stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL)
        self.children.append(self.player)
        self.window = self.find()
        self.tool("xdotool", "windowactivate", "--sync", self.window)
        self.click(PANEL)
        time.sleep(0.5)

    def tool(self, *words):
        return subprocess.run(words, env=self.environment, capture_output=True, text=True,
                              timeout=LIMIT, check=False).stdout

    def find(self):
        end = time.monotonic() + LIMIT
        while time.monotonic() < end:
            for window in self.tool("xdotool", "search", "--onlyvisible", "--class",
                                    "tovik").split():
                if '"player"' in self.tool("xprop", "-id", window, "WM_WINDOW_ROLE"):
                    return window
        self.close()
        raise SystemExit("no window")

    def move(self, place):
        self.tool("xdotool", "mousemove", "--window", self.window, *map(str, place))

    def click(self, place):
        self.move(place)
        self.tool("xdotool", "click", "1")

    def row(self, number):
        return ROW[0], ROW[1] + ROW_HEIGHT * number

    def wait_for(self, sound, limit=60):
        """Seconds until there is sound, or has been none for a third of a second."""
        began = last = time.monotonic()
        while time.monotonic() - began < limit:
            if self.heard():
                if sound:
                    return time.monotonic() - began
                last = time.monotonic()
            elif not sound and time.monotonic() - last > 0.3:
                return last - began
            time.sleep(0.0005)
        raise SystemExit("waited in vain")


def measure_first(arguments, data):
    server = Server("plays", data, arguments.kbps)
    desk = Desk(arguments.program, [server.address])
    took, behind = [], []
    try:
        for _ in range(arguments.runs):
            desk.click(desk.row(0))
            desk.move(PLAY)
            desk.wait_for(False)
            began = time.monotonic()
            desk.tool("xdotool", "click", "1")
            desk.wait_for(True)
            took.append((time.monotonic() - began) * 1000)
            behind.append((time.monotonic() - server.burst) * 1000)
            desk.tool("xdotool", "key", "v")
            desk.wait_for(False)
        print(f"the first start {took[0]:.0f} ms; later ones: median "
              f"{statistics.median(took[1:]):.0f} ms, worst {max(took[1:]):.0f} ms; behind the burst "
              f"{behind[0]:.0f} ms, median {statistics.median(behind[1:]):.0f} ms")
    finally:
        desk.close()


def measure_back(arguments, data):
    server = Server("plays", data, arguments.kbps)
    desk = Desk(arguments.program, [server.address])
    took = []
    try:
        desk.click(desk.row(0))
        desk.click(PLAY)
        desk.wait_for(True)
        for _ in range(arguments.runs):
            server.close()
            gone = time.monotonic()
            desk.wait_for(False)
            time.sleep(max(0, gone + arguments.seconds - time.monotonic()))
            server = Server("plays", data, arguments.kbps, server.port)
            took.append(desk.wait_for(True))
            time.sleep(1)
        print(f"away for {arguments.seconds:.0f} s, back after "
              + ", ".join(f"{seconds:.1f}" for seconds in took) + " s")
    finally:
        desk.close()


def measure_dead(arguments, _):
    kinds = ("says_nothing", "never_ends_its_head", "drips", "titles", "circles", "answers_a_page")
    servers = [Server(kind) for kind in kinds]
    with socket.create_server(("127.0.0.1", 0)) as probe:
        closed = probe.getsockname()[1]
    addresses = [server.address for server in servers]
    addresses += [f"http://127.0.0.1:{closed}/", "http://no.invalid/", "http://192.0.2.1/", ""]
    desk = Desk(arguments.program, addresses)
    windows = Windows(desk.environment["DISPLAY"])
    kinds += ("closed port", "no such name", "no such host", "no address")
    longest = dict.fromkeys(kinds, 0.0)
    counted = 0

    def watch(kind, seconds):
        nonlocal counted
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            took = windows.answers()
            counted += len(took)
            longest[kind] = max(longest[kind], windows.waiting(), *took)
            if not windows.asked:
                windows.ask()
            time.sleep(0.001)

    try:
        for number in range(STARTS):
            row = number % len(addresses)
            for place in (desk.row(row), PLAY):
                click = subprocess.Popen(
                    ["xdotool", "mousemove", "--window", desk.window, *map(str, place), "click",
                     "1"], env=desk.environment)
                while click.poll() is None:
                    watch(kinds[row], 0.002)
            watch(kinds[row], PAUSE)
        began = time.monotonic()
        desk.player.send_signal(signal.SIGTERM)
        desk.player.wait(LIMIT)
        print(f"{STARTS} starts: longest wait of the window "
              f"{max(longest.values()) * 1000:.1f} ms of {counted} questions; the end took "
              f"{(time.monotonic() - began) * 1000:.0f} ms")
        for kind, seconds in longest.items():
            print(f"  {kind:20} {seconds * 1000:.1f} ms")
    finally:
        desk.close()


def measure_memory(arguments, data):
    server = Server("plays", data, arguments.kbps)
    desk = Desk(arguments.program, [server.address])
    try:
        before = memory(desk.player.pid)[0]
        desk.click(desk.row(0))
        desk.click(PLAY)
        desk.wait_for(True)
        rows = []
        for _ in range(10):
            time.sleep(arguments.seconds / 10)
            while desk.heard():
                pass
            rows.append(memory(desk.player.pid)[0])
        print(f"RSS in MB before {before:.1f}, then each {arguments.seconds / 10:.0f} s: "
              + " ".join(f"{row:.1f}" for row in rows))
    finally:
        desk.close()


def serve(arguments, data):
    print(Server("plays", data, arguments.kbps).address, flush=True)
    signal.pause()


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("program")
    works = {"first": measure_first, "back": measure_back, "dead": measure_dead,
             "memory": measure_memory, "serve": serve}
    parser.add_argument("work", choices=works)
    parser.add_argument("--runs", type=int, default=8)
    parser.add_argument("--seconds", type=float, default=5)
    parser.add_argument("--kbps", type=int, default=128)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        works[arguments.work](arguments, song(folder, arguments.kbps))
    sys.stdout.flush()


if __name__ == "__main__":
    main()
