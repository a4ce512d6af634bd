# SPDX-License-Identifier: GPL-3.0-or-later
"""Into the mini window and back 200 times while a tone plays: the sound has no gap, the memory does
not grow, and there is one window at any moment."""
import array
import math
import re
import signal
import subprocess
import threading
import time
import unittest
import wave

from program import LIMIT, ProgramTest

TIMES = 200
RATE = 44100
SECONDS = 300  # of tone, longer than the test
WARM = 20  # turns after which everything that is made once has been made
GAP = RATE // 50  # so many silent samples in a row are heard as one
GROWTH = 2048  # kB
NONE = 0.5  # seconds at most without any window on the screen


class Windows:
    """Which windows are on the screen, told by the X server in the order in which they come and go:
    nothing in between is missed."""

    def __init__(self, environment):
        self.shown, self.most, self.gaps, self.since = set(), 0, [], None
        self.watch = subprocess.Popen(["xev", "-root", "-event", "substructure"], env=environment,
                                      stdout=subprocess.PIPE, text=True)
        self.reader = threading.Thread(target=self.read)
        self.reader.start()

    def read(self):
        kind = ""
        for line in self.watch.stdout:
            if " event, serial " in line:
                kind = line.split()[0]
            found = re.search(r", window (0x[0-9a-f]+), ", line)
            if not found or "event 0x" not in line:
                continue
            if kind == "MapNotify":
                self.shown.add(found.group(1))
                if self.since is not None:
                    self.gaps.append(time.monotonic() - self.since)
                    self.since = None
            elif kind in ("UnmapNotify", "DestroyNotify") and found.group(1) in self.shown:
                self.shown.remove(found.group(1))
                if not self.shown:
                    self.since = time.monotonic()
            self.most = max(self.most, len(self.shown))

    def end(self):
        self.watch.terminate()
        self.watch.wait()
        self.reader.join()
        self.watch.stdout.close()


class MiniLong(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()
        self.start_sound_server()

    def memory(self):
        with open(f"/proc/{self.player.pid}/status", encoding="ascii") as file:
            return int(re.search(r"^VmRSS:\s+(\d+)", file.read(), re.M).group(1))

    def test_there_and_back(self):
        tone = self.path("tone.wav")
        with wave.open(tone, "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(RATE)
            period = array.array("h", (int(12000 * math.sin(2 * math.pi * i / 100) or 1)
                                       for i in range(RATE)))
            for _ in range(SECONDS):
                file.writeframes(period.tobytes())
        self.player = self.start_program(tone)
        main = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", main)
        self.wait_until(lambda: self.streams() == 1, "the sound")
        recorder = subprocess.Popen(
            ["parec", "-d", "nowhere.monitor", "--format=s16le", f"--rate={RATE}", "--channels=1",
             "--raw"], env=self.environment, stdout=subprocess.PIPE)
        heard = []
        reader = threading.Thread(target=lambda: heard.append(recorder.stdout.read()))
        reader.start()
        before = 0
        # The first turn tells the watch which window there is.
        windows = Windows(self.environment)
        self.stack.callback(windows.end)
        for turn in range(TIMES):
            for role in ("mini", "player"):
                self.tool("xdotool", "key", "ctrl+w")
                shown = self.first(lambda r=role: self.windows_of_role(r), role)
                self.wait_until(lambda w=shown: self.tool(
                    "xdotool", "getactivewindow").stdout.strip() == w, "the keyboard")
            if turn == WARM:
                before = self.memory()
        after = self.memory()
        recorder.send_signal(signal.SIGTERM)
        reader.join()
        recorder.wait()
        recorder.stdout.close()
        windows.end()
        self.assertEqual(windows.most, 1)
        self.assertGreaterEqual(len(windows.gaps), 2 * TIMES - 2)
        self.assertLess(max(windows.gaps), NONE)
        self.assertLess(after - before, GROWTH)
        samples = array.array("h", heard[0][:len(heard[0]) // 2 * 2])
        # The beginning may come before the sound.
        first = next(i for i, value in enumerate(samples) if abs(value) > 100)
        self.assertGreater(len(samples) - first, 10 * RATE)
        silent, longest = 0, 0
        for value in samples[first:]:
            silent = silent + 1 if abs(value) < 50 else 0
            longest = max(longest, silent)
        self.assertLess(longest, GAP)
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)


if __name__ == "__main__":
    unittest.main()
