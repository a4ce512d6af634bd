# SPDX-License-Identifier: GPL-3.0-or-later
"""What one session of the program leaves to the next."""
import contextlib
import os
import re
import signal
import time
import unittest

from program import LIMIT, ProgramTest, media, odd, read_wav

NOBODY = 65534


class Session(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()

    def silent(self, *words):
        player = self.start_program("--device", "silent", *words)
        self.window()
        return player

    def end(self, player, number=signal.SIGTERM):
        player.send_signal(number)
        self.assertEqual(player.wait(LIMIT), 0)

    def installed(self):
        """A data folder whose first start is over."""
        self.end(self.silent(media("wav_s16_44100_stereo.wav")))

    def write_list(self, *names):
        rows = [f"#EXTINF:10,{name}\r\n{media(name)}\r\n" for name in names]
        with open(self.data("db/autosave.m3u"), "w", newline="", encoding="utf-8") as file:
            file.write("#EXTM3U\r\n" + "".join(rows))

    def test_a_restored_list_is_saved_again_and_does_not_play(self):
        self.installed()
        self.write_list("mp3_vbr.mp3", "wav_s16_44100_stereo.wav", "flac_16_44100.flac")
        before = self.read("db/autosave.m3u")
        number = os.stat(self.data("db/autosave.m3u")).st_ino
        player = self.silent()
        time.sleep(1)  # the list is read 100 ms after the start
        # A track that starts gives its title to the window.
        name = self.tool("xdotool", "getwindowname", self.window()).stdout
        name = name.removesuffix("\n")  # the caption goes round
        self.assertTrue(any(re.match(r"Tovik \d", name[at:] + name[:at])
                            for at in range(len(name))), name)
        self.end(player)
        self.assertEqual(self.read("db/autosave.m3u"), before)
        self.assertNotEqual(os.stat(self.data("db/autosave.m3u")).st_ino, number)

    def test_a_killed_session_loses_no_row(self):
        self.installed()
        self.write_list("mp3_vbr.mp3", "flac_16_44100.flac")
        self.start_window_manager()
        player = self.silent()
        time.sleep(1)  # the list is read 100 ms after the start
        saved = self.read("db/autosave.m3u")
        # The second track that is played gets its real length into its row: the list has changed.
        window = self.window()
        self.tool("xdotool", "windowactivate", "--sync", window)
        self.tool("xdotool", "mousemove", "--window", window, "350", "200", "click", "1")
        self.tool("xdotool", "key", "--clearmodifiers", "Home", "Return")
        self.tool("xdotool", "key", "--clearmodifiers", "b")
        self.wait_until(lambda: os.path.exists(self.data("db/autosave.new.m3u")), "the spare list")
        changed = self.read("db/autosave.new.m3u")
        self.assertNotEqual(changed, saved)
        player.kill()
        player.wait(LIMIT)
        self.assertEqual(self.read("db/autosave.m3u"), saved)
        player = self.silent()
        time.sleep(1)
        self.end(player)
        self.assertEqual(self.read("db/autosave.m3u"), changed)
        self.assertFalse(os.path.exists(self.data("db/autosave.new.m3u")))

    def test_what_is_missing_is_laid_anew(self):
        self.installed()
        os.remove(self.data("db/autosave.m3u"))
        os.remove(self.data("Languages/English.lng"))
        player = self.silent()
        self.wait_until(lambda: os.path.exists(self.data("Languages/English.lng")), "the words")
        time.sleep(1)  # the list is read 100 ms after the start
        self.assertEqual(self.boxes(" in "), [])
        self.end(player)
        self.assertEqual(self.read("db/autosave.m3u"), b"#EXTM3U\r\n")
        self.assertFalse(os.path.exists(self.data("db/err.log")))

    def test_eight_first_starts_at_once_say_nothing(self):
        outputs = [self.path(f"out{number}.wav") for number in range(8)]
        starts = [self.start_program("--render", output, "--seconds", "0.5") for output in outputs]
        for start in starts:
            self.assertEqual(start.wait(3 * LIMIT), 0)
            self.assertEqual(start.stderr.read(), b"")

    def test_a_log_that_is_a_pipe_stops_nothing(self):
        self.installed()
        os.mkfifo(self.data("db/err.log"))
        self.setting(b"TMD", b"oops")  # the start has something to log
        player = self.start_program("--device", "silent")
        self.wait_until(lambda: self.shown("--class", "tovik"), "the window or a box before it")
        self.end(player)

    def test_only_the_first_name_is_opened(self):
        self.installed()
        names = [media("wav_s16_44100_stereo.wav"), media("mp3_vbr.mp3")]
        player = self.silent(*names)
        opened = set()

        def look():
            folder = f"/proc/{player.pid}/fd"
            for entry in os.listdir(folder):
                with contextlib.suppress(OSError):
                    opened.add(os.readlink(os.path.join(folder, entry)))
            return names[0] in opened

        self.wait_until(look, "the file that plays")
        self.end(player)
        self.assertNotIn(names[1], opened)
        # The list of the last session is neither read nor replaced.
        self.assertIn(b"welcome", self.read("db/autosave.m3u").lower())

    def test_the_number_of_the_window_is_made_known(self):
        self.installed()
        player = self.silent(media("wav_s16_44100_stereo.wav"))
        window = self.window()
        self.wait_until(lambda: f"<SHWND>{window}</SHWND>".encode()
                        in self.read("db/settings.xml"), "the number of the window")
        self.end(player)

    def test_the_place_is_kept(self):
        self.installed()
        self.setting(b"X", b"4500")
        self.setting(b"Y", b"3000")
        player = self.silent()
        window = self.window()
        place = self.tool("xdotool", "getwindowgeometry", window).stdout
        self.assertIn("300,200", place)
        self.end(player)
        self.assertIn(b"<X>4500</X>", self.read("db/settings.xml"))
        self.assertIn(b"<Y>3000</Y>", self.read("db/settings.xml"))

    def test_a_place_off_all_screens_is_brought_back(self):
        self.installed()
        self.setting(b"X", b"150000")
        self.setting(b"Y", b"-9000")
        player = self.silent()
        place = self.tool("xdotool", "getwindowgeometry", "--shell", self.window()).stdout
        values = dict(line.split("=") for line in place.split())
        self.assertLessEqual(int(values["X"]) + int(values["WIDTH"]), 1024)
        self.assertGreaterEqual(int(values["Y"]), 0)
        self.end(player)

    def plays(self, player, path):
        folder = f"/proc/{player.pid}/fd"
        opened = set()
        for entry in os.listdir(folder):
            with contextlib.suppress(OSError):
                opened.add(os.readlink(os.path.join(folder, entry)))
        return path in opened

    def unkept(self, *words, **options):
        """A session whose data folder cannot be written, with a folder for temporary files of its
        own."""
        self.environment["TMPDIR"] = self.path("tmp")
        os.mkdir(self.path("tmp"))
        os.chmod(self.path("tmp"), 0o777)
        return self.start_program("--device", "silent", *words, **options)

    def end_unkept(self, player):
        self.end(player)
        left = [name for name in os.listdir(self.path("tmp")) if name.startswith("tovik")]
        self.assertEqual(left, [])

    def test_nothing_is_lost_in_a_folder_that_cannot_be_written(self):
        self.installed()
        names = ("db/settings.xml", "db/autosave.m3u")
        before = [self.read(name) for name in names]
        self.make_read_only()
        who = {"user": NOBODY} if os.geteuid() == 0 else {}
        player = self.unkept(**who)
        box = self.plain_box()
        # The window is there before it is told that nothing is kept.
        self.assertTrue(self.player_windows())
        self.keep_screenshot("read-only.png")
        self.answer(box)
        self.assertFalse(self.boxes(" in "))
        self.end_unkept(player)
        self.assertEqual([self.read(name) for name in names], before)
        self.assertFalse(os.path.exists(self.data("db/err.log")))

    def test_music_plays_without_a_data_folder(self):
        with open(self.environment["XDG_DATA_HOME"], "w", encoding="ascii") as file:
            file.write("no folder")
        song = media("wav_s16_44100_stereo.wav")
        player = self.unkept(song)
        box = self.plain_box()
        self.assertTrue(self.player_windows())
        self.wait_until(lambda: self.plays(player, song), "the file that plays")
        self.keep_screenshot("no-data-folder.png")
        self.answer(box)
        self.end_unkept(player)

    def test_what_is_damaged_or_missing_stops_no_comfortable_start(self):
        self.installed()
        damaged = self.read("db/settings.xml")[:1500]
        with open(self.data("db/settings.xml"), "wb") as file:
            file.write(damaged)
        os.remove(self.data("skins/CurrentSkin/main.bmp"))
        with open(self.data("skins/CurrentSkin/0.bmp"), "wb") as file:
            file.write(b"no picture")
        player = self.start_program("--comfort=on", "--device", "silent")
        box = self.plain_box()
        self.assertTrue(self.player_windows())
        self.keep_screenshot("damaged-settings.png")
        self.answer(box)
        self.end(player)
        self.assertEqual(self.read("db/settings.xml.damaged"), damaged)
        self.assertIn(b"<CVL>80</CVL>", self.read("db/settings.xml"))
        self.assertTrue(os.path.exists(self.data("skins/CurrentSkin/main.bmp")))
        self.assertEqual(self.read("skins/CurrentSkin/0.bmp"), b"no picture")
        log = self.read("db/err.log").decode().splitlines()
        self.assertEqual(len(log), 2, log)
        self.assertIn("0.bmp", log[0] + log[1])

    @odd
    def test_a_signal_while_a_box_of_the_start_stands_wipes_nothing(self):
        self.installed()
        self.setting(b"CVL", b"oops")
        before = self.read("db/settings.xml")
        player = self.start_program("--device", "silent")
        self.plain_box()
        self.end(player)
        self.assertEqual(self.read("db/settings.xml"), before)
        self.assertIn(b'CVL = "oops",13,Player,Load', self.read("db/err.log"))

    def make_read_only(self):
        os.chmod(self.folder, 0o755)
        for folder, folders, files in os.walk(self.data("")):
            for name in files:
                os.chmod(os.path.join(folder, name), 0o444)
            os.chmod(folder, 0o555)
            self.addCleanup(os.chmod, folder, 0o755)

    def test_a_screenshot_starts_no_helper(self):
        self.installed()
        self.setting(b"CHKU", b"1")
        helper = self.data("update.exe")
        with open(helper, "w", encoding="ascii") as file:
            file.write(f"#!/bin/sh\ntouch {self.path('helped')}\n")
        os.chmod(helper, 0o755)
        shot = self.start_program("--device", "silent", "--screenshot", self.path("shot.png"))
        self.assertEqual(shot.wait(LIMIT), 0)
        self.assertFalse(os.path.exists(self.path("helped")))
        # The same setting does start it in an ordinary session.
        player = self.silent()
        self.wait_until(lambda: os.path.exists(self.path("helped")), "the helper")
        self.end(player)

    def test_a_render_of_the_first_start_holds_the_welcome_piece(self):
        result = self.run_program("--render", self.path("out.wav"))
        self.assertEqual(result.returncode, 0, result.stderr)
        _, _, _, samples = read_wav(self.path("out.wav"))
        self.assertGreater(len(samples), 2 * 44100)
        self.assertTrue(any(samples))
        # It was played from a copy of the data folder: the first start is still ahead.
        self.assertTrue(os.path.exists(self.data("firstrun.ini")))

    def test_a_render_of_nothing_that_ends_is_refused_whenever_it_begins(self):
        self.run_program("--render", self.path("out.wav"), "--seconds", "0.1")
        self.write_list("song.xm")
        result = self.run_program("--render", self.path("out.wav"))
        self.assertEqual(result.returncode, 2, result.stderr)
        self.assertIn(b"--seconds", result.stderr)
        result = self.run_program("--render", self.path("out.wav"), "--seconds", "1")
        self.assertEqual(result.returncode, 0, result.stderr)


if __name__ == "__main__":
    unittest.main()
