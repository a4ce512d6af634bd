# SPDX-License-Identifier: GPL-3.0-or-later
"""Playing into a file: no screen, no device, the same sound."""
import os
import shutil
import unittest

from program import ProgramTest, media, read_wav


class Render(ProgramTest):
    def render(self, *words):
        result = self.run_program("--render", self.path("out.wav"), *words)
        self.assertEqual(result.returncode, 0, result.stderr)
        tag, channels, rate, samples = read_wav(self.path("out.wav"))
        self.assertEqual((tag, channels, rate), (3, 2, 44100))
        return samples

    def full_volume(self):
        # A first render makes the data folder, and so the setting.
        self.render("--seconds", "0.1", media("wav_s16_44100_stereo.wav"))
        self.setting(b"CVL", b"100")

    def test_wav_comes_out_bit_for_bit(self):
        self.full_volume()
        _, channels, rate, source = read_wav(media("wav_s16_44100_stereo.wav"))
        self.assertEqual((channels, rate), (2, 44100))
        samples = self.render(media("wav_s16_44100_stereo.wav"))
        self.assertEqual(samples[:len(source)], source)
        rest = samples[len(source):]
        self.assertLess(len(rest), 2 * 2 * 44100)
        self.assertFalse(any(rest))

    def test_volume_of_the_settings_is_heard(self):
        _, _, _, source = read_wav(media("wav_s16_44100_stereo.wav"))
        samples = self.render(media("wav_s16_44100_stereo.wav"))
        for at in range(0, len(source), 997):
            self.assertAlmostEqual(samples[at], 0.8 * source[at], places=6)

    def test_twice_the_same_bytes(self):
        for name in ("mp3_vbr.mp3", "ogg_48000.ogg", "song.xm"):
            with self.subTest(name=name):
                self.render("--seconds", "4", media(name))
                os.replace(self.path("out.wav"), self.path("first.wav"))
                self.render("--seconds", "4", media(name))
                with open(self.path("out.wav"), "rb") as a, \
                        open(self.path("first.wav"), "rb") as b:
                    self.assertEqual(a.read(), b.read())

    def test_what_never_ends_needs_a_limit(self):
        result = self.run_program("--render", self.path("out.wav"), media("song.xm"))
        self.assertEqual(result.returncode, 2)
        self.assertIn(b"--seconds", result.stderr)

    def test_settings_and_list_stay_as_they_are(self):
        self.full_volume()
        before = self.read("db/settings.xml"), self.read("db/autosave.m3u")
        self.render(media("wav_s16_44100_stereo.wav"))
        self.assertEqual((self.read("db/settings.xml"), self.read("db/autosave.m3u")), before)

    def test_seconds_limit(self):
        samples = self.render("--seconds", "0.5", media("wav_s16_44100_stereo.wav"))
        self.assertEqual(len(samples), 44100)

    def test_nothing_that_can_be_played(self):
        result = self.run_program("--render", self.path("out.wav"), media("text.mp3"))
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"Nothing to render", result.stderr)

    def test_a_name_that_is_not_there_is_told(self):
        for name in ("gone.mp3", "gone.m3u"):
            with self.subTest(name=name):
                result = self.run_program("--render", self.path("out.wav"), self.path(name))
                self.assertEqual(result.returncode, 1)
                told = f"File not found: {self.path(name)}".encode()
                self.assertIn(told, result.stderr)
                self.assertNotIn(b"tags", result.stderr)

    def test_a_file_is_not_rendered_into_itself(self):
        shutil.copy(media("wav_s16_44100_stereo.wav"), self.path("song.wav"))
        size = os.path.getsize(self.path("song.wav"))
        result = self.run_program("--render", "song.wav", self.path("song.wav"))
        self.assertEqual(result.returncode, 1)
        self.assertEqual(os.path.getsize(self.path("song.wav")), size)

    def test_target_that_cannot_be_written(self):
        result = self.run_program("--render", self.path("no/such/folder/out.wav"),
                                  media("wav_s16_44100_stereo.wav"))
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"out.wav", result.stderr)


if __name__ == "__main__":
    unittest.main()
