# SPDX-License-Identifier: GPL-3.0-or-later
"""A thousand short tracks with crossfade: nothing stalls, memory stays flat, the same bytes twice."""
import array
import hashlib
import os
import random
import subprocess
import unittest
import wave

from program import ProgramTest

HEADER = 58           # bytes before the first sample
SECOND = 44100 * 2 * 4
KINDS = 20            # different files; the rows go through them again and again


class LongList(ProgramTest):
    def setUp(self):
        super().setUp()
        noise = random.Random(1)
        for kind in range(KINDS):
            frames = int(44100 * (1 + 0.02 * kind))
            with wave.open(self.path(f"{kind}.wav"), "wb") as file:
                file.setnchannels(1)
                file.setsampwidth(2)
                file.setframerate(44100)
                file.writeframes(array.array("h", (noise.randint(1, 9000)
                                                   for _ in range(frames))).tobytes())
        # A first render makes the data folder, and so the settings.
        self.render("--seconds", "0.1", self.path("0.wav"))
        self.setting(b"CFD", b"1")
        self.setting(b"CFDT", b"1")

    def rows(self, count):
        path = self.path(f"{count}.m3u")
        with open(path, "w", encoding="utf-8") as file:
            file.write("#EXTM3U\n")
            for row in range(count):
                file.write(f"#EXTINF:1,T{row}\n{self.path(f'{row % KINDS}.wav')}\n")
        return path

    def render(self, *words):
        """(digest, seconds, longest run of silent seconds, peak memory in kB)."""
        out = self.path("out.wav")
        process = subprocess.Popen(self.words_of(["--render", out, *words]), env=self.environment,
                                   cwd=self.folder)
        self.stack.callback(process.kill)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        self.assertEqual(process.returncode, 0)
        digest, seconds, run, longest = hashlib.sha256(), 0, 0, 0
        with open(out, "rb") as file:
            digest.update(file.read(HEADER))
            while block := file.read(SECOND):
                digest.update(block)
                seconds += 1
                run = 0 if block.strip(b"\0") else run + 1
                longest = max(longest, run)
        os.remove(out)
        return digest.hexdigest(), seconds, longest, usage.ru_maxrss

    def check(self, most_silent, *options):
        few = self.render(*options, "--seconds", "100", self.rows(100))
        first = self.render(*options, "--seconds", "1000", self.rows(1000))
        second = self.render(*options, "--seconds", "1000", self.rows(1000))
        self.assertEqual(first[0], second[0])
        self.assertGreaterEqual(first[1], 999)
        self.assertLessEqual(first[2], most_silent)
        self.assertLess(first[3], few[3] + 5000)

    def test_in_their_order(self):
        self.check(0)

    def test_shuffled(self):
        self.setting(b"SHF", b"1")
        # One pick in nine is no row: a second of silence, and seldom a few of them in a row.
        self.check(6)


if __name__ == "__main__":
    unittest.main()
