# SPDX-License-Identifier: GPL-3.0-or-later
"""The end of the desktop's session, and the player as it comes back."""
import os
import subprocess
import unittest

from program import LIMIT, PROGRAM, ProgramTest, media

MANAGER = os.environ.get("TOVIK_SESSION_MANAGER", "")


@unittest.skipUnless(MANAGER, "libsm-dev is not installed")
class Logout(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_bus()
        self.manager = subprocess.Popen([MANAGER], env=self.environment, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True)
        self.stack.callback(self.manager.communicate)
        self.stack.callback(self.manager.kill)
        self.environment["SESSION_MANAGER"] = self.heard("at")

    def heard(self, what):
        """What follows the next such line."""
        while True:
            line = self.manager.stdout.readline()
            self.assertTrue(line, "the session manager ended")
            word, _, rest = line.rstrip("\n").partition(" ")
            if word == what:
                return rest

    def tell(self, word):
        self.manager.stdin.write(word + "\n")
        self.manager.stdin.flush()

    def control(self, *words):
        return self.tool("playerctl", "-p", "tovik", *words).stdout.strip()

    def played(self, *words):
        player = self.start_program("--device", "silent", *words)
        self.window_of(player)
        name = self.heard("client")
        return player, name

    def test_all_is_saved_and_comes_back_without_playing(self):
        player, name = self.played()
        self.heard("saved")  # what the protocol asks of a new program
        self.wait_until(lambda: self.control("status") == "Playing", "the welcome")
        self.control("open", "file://" + media("varied.wav"))
        self.control("shuffle", "On")
        self.control("volume", "0.25")
        self.tell("save")
        restart = self.heard("restart").split("|")
        self.heard("saved")
        self.assertEqual(restart[:-1], [PROGRAM, "--device", "silent", "-session"])
        self.assertTrue(restart[-1].startswith(name + "_"), restart)
        self.assertIn(b"<SHF>1</SHF>", self.read("db/settings.xml"))
        self.assertIn(b"<CVL>25</CVL>", self.read("db/settings.xml"))
        self.assertIn(b"varied.wav", self.read("db/autosave.m3u"))
        # Somebody thought better of it: the player plays on.
        self.tell("cancel")
        self.assertEqual(self.control("status"), "Playing")
        self.control("shuffle", "Off")
        self.tell("save")
        self.heard("saved")
        self.tell("die")
        self.assertEqual(player.wait(LIMIT), 0)
        self.assertIn(b"<SHF>0</SHF>", self.read("db/settings.xml"))

        player, again = self.played(*restart[3:])
        self.assertEqual(again, name)
        self.wait_until(lambda: self.control("volume").startswith("0.25"), "the volume")
        self.assertEqual(self.control("status"), "Stopped")
        self.assertEqual(self.control("shuffle"), "Off")
        self.wait_until(lambda: self.rows() == 2, "the list")
        self.assertEqual(self.control("status"), "Stopped")
        self.tell("die")
        self.assertEqual(player.wait(LIMIT), 0)
        self.assertIn(b"varied.wav", self.read("db/autosave.m3u"))

    def rows(self):
        said = self.tool("gdbus", "call", "--session", "--dest", "org.mpris.MediaPlayer2.tovik",
                         "--object-path", "/org/mpris/MediaPlayer2", "--method",
                         "org.freedesktop.DBus.Properties.Get", "org.mpris.MediaPlayer2.TrackList",
                         "Tracks")
        return said.stdout.count("/org/tovik/track/")


if __name__ == "__main__":
    unittest.main()
