# SPDX-License-Identifier: GPL-3.0-or-later
"""Playing into a file: no screen, no device, the same sound."""
import array
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

    def in_a_row(self, comfort, *names):
        with open(self.path("row.m3u"), "w", encoding="utf-8") as file:
            file.write("#EXTM3U\n")
            for name in names:
                file.write(f"#EXTINF:2,{name}\n{media(name)}\n")
        return self.render("--comfort", comfort, "--seconds", "20", self.path("row.m3u"))

    def test_tracks_in_a_row_join(self):
        self.full_volume()
        whole = read_wav(media("gapless_whole.wav"))[3]
        for form in ("gapless_%d.wav", "gapless_%d.flac"):
            with self.subTest(form=form):
                row = self.in_a_row("on", *(form % n for n in (1, 2, 3)))
                self.assertEqual(row[:len(whole)], whole)
        lengths = [len(read_wav(media(f"gapless_{n}.wav"))[3]) for n in (1, 2, 3)]
        for names in (("link_1.ogg", "link_2.ogg", "link_3.ogg"),
                      ("gapless_1.mp3", "gapless_2.mp3", "gapless_3.mp3"),
                      ("gapless_1.flac", "gapless_2.mp3", "link_3.ogg")):
            with self.subTest(names=names):
                alone = array.array("f")
                for name, length in zip(names, lengths):
                    alone += self.render("--comfort", "on", media(name))[:length]
                self.assertEqual(self.in_a_row("on", *names)[:len(alone)], alone)

    def test_without_comfort_there_is_a_gap(self):
        self.full_volume()
        whole = read_wav(media("gapless_whole.wav"))[3]
        row = self.in_a_row("off", "gapless_1.wav", "gapless_2.wav", "gapless_3.wav")
        self.assertNotEqual(row[:len(whole)], whole)

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
