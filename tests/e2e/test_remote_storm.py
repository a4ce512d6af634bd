# SPDX-License-Identifier: GPL-3.0-or-later
"""The remote control under clients that behave badly."""
import os
import subprocess
import time
import unittest

from program import LIMIT
from remote import NAME, PATH, PLAYER, RemoteTest
from reader import PYTHON

STORM = os.path.join(os.path.dirname(__file__), "bus_storm.py")
CALLS = 10000


class Storm(RemoteTest):
    """A player that plays, one client that storms, another that wants an answer."""

    def storm(self, *words):
        storm = subprocess.Popen([PYTHON, STORM, NAME, PATH, str(CALLS), *words],
                                 env=self.environment, stdout=subprocess.PIPE, text=True)
        self.stack.callback(storm.communicate)
        self.stack.callback(storm.kill)
        return storm

    def memory(self):
        with open(f"/proc/{self.player.pid}/statm", encoding="ascii") as file:
            return int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE")

    def still_answers(self, before):
        self.assertLess(self.memory() - before, 64 << 20)
        began = time.monotonic()
        self.assertEqual(self.call(PLAYER, "Stop"), [])
        self.assertEqual(self.get("PlaybackStatus"), "Stopped")
        self.assertLess(time.monotonic() - began, 2)
        self.player.terminate()
        self.assertEqual(self.player.wait(LIMIT), 0)

    def test_ten_thousand_calls(self):
        self.start(self.playlist())
        self.until("PlaybackStatus", "Playing")
        before = self.memory()
        storm = self.storm("read")
        self.assertEqual(storm.stdout.readline(), "sent\n")
        # Two of seven cannot be done.
        errors = sum(number % 7 in (4, 5) for number in range(CALLS))
        self.assertEqual(storm.stdout.readline(), f"{CALLS} {errors}\n")
        self.assertEqual(storm.wait(2 * LIMIT), 0)
        self.until("Volume", 0.5)
        self.still_answers(before)

    def test_a_client_that_never_reads(self):
        self.start(self.playlist())
        self.until("PlaybackStatus", "Playing")
        before = self.memory()
        storm = self.storm()
        self.assertEqual(storm.stdout.readline(), "sent\n")
        self.wait_until(lambda: "error" not in self.call(PLAYER, "Pause"), "an answer")
        self.assertIsNone(storm.poll(), "it is still there and reads nothing")
        self.still_answers(before)


if __name__ == "__main__":
    unittest.main()
