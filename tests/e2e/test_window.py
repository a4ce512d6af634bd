# SPDX-License-Identifier: GPL-3.0-or-later
"""The program on a real screen and a real sound server."""
import os
import shutil
import signal
import time
import unittest

from program import LIMIT, ProgramTest, media, odd


class Window(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()

    def end(self, player, number=signal.SIGTERM):
        player.send_signal(number)
        self.assertEqual(player.wait(LIMIT), 0)

    def silent(self, *words):
        player = self.start_program("--device", "silent", *words)
        self.window_of(player)
        return player

    def test_plays_aloud(self):
        self.start_window_manager()
        self.start_sound_server()
        player = self.start_program(media("mp3_id3_both.mp3"))
        self.window()
        self.wait_until(lambda: self.streams() == 1, "the stream at the sound server")
        self.keep_screenshot("playing.png")
        self.end(player)

    def test_first_start_plays_the_welcome_piece_and_later_ones_do_not(self):
        self.start_sound_server()
        player = self.start_program()
        self.window()
        self.wait_until(lambda: self.streams() == 1, "the welcome piece")
        self.end(player)
        self.assertIn(b"welcome.ogg", self.read("db/autosave.m3u"))
        self.assertFalse(os.path.exists(self.data("firstrun.ini")))
        again = self.start_program()
        self.window()
        self.keep_screenshot("restored.png")
        self.end(again)
        self.assertIn(b"welcome.ogg", self.read("db/autosave.m3u"))

    def test_the_first_start_takes_the_language_of_the_locale(self):
        self.environment["LANG"] = "sl_SI.UTF-8"
        player = self.silent()
        self.keep_screenshot("slovenian.png")
        self.end(player)
        self.assertIn(b"<CLNG>Slovenian</CLNG>", self.read("db/settings.xml"))
        self.assertTrue(self.read("Languages/Slovenian.lng").startswith(b"[MainMenu]\r\n"))

    def test_a_data_folder_without_languages_gets_them(self):
        self.end(self.silent())
        shutil.rmtree(self.data("Languages"))
        self.end(self.silent())
        self.assertTrue(self.read("Languages/English.lng").startswith(b"[MainMenu]\r\n"))

    def test_each_signal_saves(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number=number):
                player = self.silent(media("wav_s16_44100_stereo.wav"))
                self.setting(b"CVL", b"33")
                self.end(player, number)
                # Written at the end from what was read at the start.
                self.assertIn(b"<CVL>80</CVL>", self.read("db/settings.xml"))

    def test_closing_the_window_ends_the_program(self):
        self.start_window_manager()
        player = self.silent(media("wav_s16_44100_stereo.wav"))
        window = self.window()

        def close():
            # The window manager may not listen to keys yet.
            self.tool("xdotool", "windowactivate", window, "key", "alt+F4")
            return player.poll() is not None

        self.wait_until(close, "the end of the program")
        self.assertEqual(player.returncode, 0)

    def test_buttons_stop_and_close(self):
        player = self.silent(media("bench.mp3") if os.path.exists(media("bench.mp3"))
                             else media("mp3_vbr.mp3"))
        window = self.window()
        for x, y in ((139, 283), (107, 283), (434, 18)):  # stop, pause, close
            self.tool("xdotool", "mousemove", "--window", window, str(x), str(y), "click", "1")
        self.assertEqual(player.wait(LIMIT), 0)

    def switches(self, player, thread):
        """How often a thread of the program has waited so far."""
        tasks = f"/proc/{player.pid}/task"
        count = 0
        for task in os.listdir(tasks):
            with open(f"{tasks}/{task}/status", encoding="ascii") as file:
                lines = dict(line.split(":", 1) for line in file.read().splitlines())
            if lines["Name"].strip() == thread:
                count += int(lines["voluntary_ctxt_switches"])
        return count

    def test_a_caption_that_rotates_does_not_wake_the_thread_of_events(self):
        player = self.silent(media("wav_s16_8000_mono.wav"))
        window = self.window()

        def names():
            lines = self.tool("xprop", "-id", window, "_NET_WM_NAME", "WM_NAME").stdout
            return [line.split("=", 1)[1] for line in lines.splitlines()]

        first = names()
        self.wait_until(lambda: names() != first, "the rotating caption")
        time.sleep(2)  # what the start still does
        before = self.switches(player, "QXcbEventQueue")
        first = names()
        time.sleep(2)
        # Eleven captions meanwhile, of two properties each, woke it over thirty times.
        self.assertLess(self.switches(player, "QXcbEventQueue") - before, 22)
        self.assertNotEqual(names(), first)
        self.end(player)

    def test_a_killed_program_has_stored_where_its_window_was(self):
        self.start_window_manager()
        player = self.silent(media("wav_s16_44100_stereo.wav"))
        self.tool("xdotool", "windowmove", "--sync", self.window(), "123", "77")
        self.wait_until(lambda: b"<X>1845</X>" in self.read("db/settings.xml"), "the place")
        self.assertIn(b"<Y>1155</Y>", self.read("db/settings.xml"))
        player.kill()

    def test_a_second_start_leaves_to_the_first(self):
        first = self.silent(media("wav_s16_44100_stereo.wav"))
        second = self.run_program("--device", "silent", media("wav_s16_44100_stereo.wav"))
        self.assertEqual(second.returncode, 0)
        self.assertIsNone(first.poll())
        self.end(first)

    @odd
    def test_damaged_settings_are_told_and_kept(self):
        self.end(self.silent(media("wav_s16_44100_stereo.wav")))
        with open(self.data("db/settings.xml"), "wb") as file:
            file.write(b"<Settings><MI>0</MI")
        player = self.start_program("--device", "silent")
        box = self.box(" in sub Form_Initialize")
        self.tool("xdotool", "key", "--window", box, "Return")
        self.window()
        self.end(player)
        self.assertEqual(self.read("db/settings.xml"), b"<Settings><MI>0</MI")
        log = self.read("db/err.log").decode().splitlines()
        self.assertIn(",94,Player,Initialize,", log[0])
        self.assertIn(",94,Player,Load,", log[1])

    def test_sound_comes_back_with_the_server(self):
        server = self.start_sound_server()
        player = self.start_program(media("song.xm"))
        self.wait_until(lambda: self.streams() == 1, "the stream at the sound server")
        server.kill()
        server.wait()
        self.start_sound_server()
        self.wait_until(lambda: self.streams() == 1, "the stream at the new server")
        self.assertIsNone(player.poll())
        self.end(player)

    def test_without_a_device_a_box_says_so(self):
        self.environment["PULSE_SERVER"] = "unix:" + self.path("nobody")
        self.environment["SDL_AUDIODRIVER"] = "pulseaudio"
        player = self.start_program(media("wav_s16_44100_stereo.wav"))
        box = self.box("BASS.DLL")
        self.keep_screenshot("no-device.png")
        self.tool("xdotool", "key", "--window", box, "Return")
        self.assertEqual(player.wait(LIMIT), 1)

    def test_a_sound_server_that_never_answers_holds_up_neither_start_nor_end(self):
        self.start_mute_sound_server()
        player = self.start_program(media("wav_s16_44100_stereo.wav"))
        self.window_of(player)
        self.assertEqual(self.boxes("BASS.DLL"), [])
        self.end(player)

    def test_a_screenshot_needs_no_device(self):
        self.environment["PULSE_SERVER"] = "unix:" + self.path("nobody")
        self.environment["SDL_AUDIODRIVER"] = "pulseaudio"
        player = self.start_program("--screenshot", self.path("shot.png"))
        self.assertEqual(player.wait(LIMIT), 0, player.stderr.read())
        self.assertTrue(os.path.exists(self.path("shot.png")))

    def test_screenshot_changes_nothing(self):
        self.end(self.silent(media("wav_s16_44100_stereo.wav")))
        before = self.read("db/settings.xml"), self.read("db/autosave.m3u")
        player = self.start_program("--device", "silent", "--screenshot", self.path("shot.png"),
                                    media("wav_s16_44100_stereo.wav"))
        self.assertEqual(player.wait(LIMIT), 0)
        with open(self.path("shot.png"), "rb") as file:
            self.assertEqual(file.read(8), b"\x89PNG\r\n\x1a\n")
        self.assertEqual((self.read("db/settings.xml"), self.read("db/autosave.m3u")), before)


if __name__ == "__main__":
    unittest.main()
