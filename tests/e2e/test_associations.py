# SPDX-License-Identifier: GPL-3.0-or-later
"""Types of files: claimed in the preferences, seen by the desktop's own programs, given back."""
import contextlib
import os
import shutil
import subprocess
import unittest

from program import LIMIT, PROGRAM, ProgramTest, media

TAB_X, TAB_Y = 242 + 15, 9 + 8  # of the preferences, in the window
DEFAULTS = """[Default Applications]
text/plain=editor.desktop
audio/mpeg=other.desktop;

# mine
[Added Associations]
image/png=pictures.desktop;
"""
CLAIMED = """[Default Applications]
text/plain=editor.desktop
audio/mpeg=tovik.desktop;other.desktop;

# mine
[Added Associations]
image/png=pictures.desktop;
audio/mpeg=tovik.desktop;
"""
MP3 = b"9"  # its place in the list of types


class Associations(ProgramTest):
    def setUp(self):
        super().setUp()
        self.environment["XDG_CONFIG_HOME"] = self.path("config")
        os.mkdir(self.path("config"))
        self.start_screen()
        self.start_window_manager()
        self.run_program("--screenshot", self.path("fill.png"))  # fills the data folder
        self.setting(b"SFA", MP3)

    def text(self, path):
        with open(path, encoding="utf-8") as file:
            return file.read()

    def defaults(self):
        return self.text(self.path("config/mimeapps.list"))

    def entry(self):
        return self.path("share/applications/tovik.desktop")

    def associate(self):
        self.tool("xdotool", "mousemove", "--window", self.main, str(TAB_X), str(TAB_Y),
                  "click", "1")
        dialog = self.box("Preferences")
        self.tool("xdotool", "windowactivate", "--sync", dialog)
        self.tool("xdotool", "key", "--clearmodifiers", "--delay", "30", "ctrl+Tab", "alt+s")
        self.wait_until(lambda: os.path.exists(self.entry()), "the entry")
        self.tool("xdotool", "key", "--clearmodifiers", "Escape")
        self.wait_until(lambda: not self.boxes("Preferences"), "the end of the dialog")

    def answer_of(self, *words):
        said = self.tool(*words)
        self.assertEqual(said.returncode, 0, said.stderr)
        return said.stdout.strip()

    def double_click(self, path):
        # What it starts keeps its output.
        said = subprocess.run(["gio", "open", path], env=self.environment, check=False,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=LIMIT)
        self.assertEqual(said.returncode, 0)

    def plays(self, path):
        folder = f"/proc/{self.player.pid}/fd"
        opened = set()
        for entry in os.listdir(folder):
            with contextlib.suppress(OSError):
                opened.add(os.readlink(os.path.join(folder, entry)))
        return path in opened

    @unittest.skipUnless(shutil.which("xdg-mime"), "xdg-utils is not installed")
    def test_the_desktop_opens_files_with_the_player_and_forgets_it(self):
        with open(self.path("config/mimeapps.list"), "w", encoding="utf-8") as file:
            file.write(DEFAULTS)
        os.makedirs(self.path("share/applications"))
        for name in ("editor", "other"):
            with open(self.path(f"share/applications/{name}.desktop"), "w",
                      encoding="utf-8") as file:
                file.write(f"[Desktop Entry]\nType=Application\nName={name}\nExec=true %f\n")
        self.start_shown()
        self.associate()
        self.assertEqual(self.defaults(), CLAIMED)
        entry = self.text(self.entry())
        self.assertIn(f'\nExec="{PROGRAM}" /Play %f\n', entry)
        self.assertIn(f'\nExec="{PROGRAM}" /ADD %f\n', entry)
        self.assertEqual(self.answer_of("desktop-file-validate", self.entry()), "")
        self.assertEqual(self.answer_of("xdg-mime", "query", "default", "audio/mpeg"),
                         "tovik.desktop")
        self.assertEqual(self.answer_of("xdg-mime", "query", "default", "text/plain"),
                         "editor.desktop")
        # The same again changes nothing.
        self.associate()
        self.assertEqual((self.defaults(), self.text(self.entry())), (CLAIMED, entry))
        cache = self.path("share/applications/mimeinfo.cache")
        self.wait_until(lambda: os.path.exists(cache) and "tovik" in self.text(cache),
                        "what the desktop remembers of it")
        # A double click on a file: the running player plays it.
        song = self.path("a song & more.mp3")
        shutil.copy(media("mp3_vbr.mp3"), song)
        self.double_click(song)
        self.wait_until(lambda: self.plays(song), "the file that plays")
        self.end_shown()
        self.assertEqual(self.run_program("--forget-types").returncode, 0)
        self.assertEqual(self.defaults(), DEFAULTS)
        self.assertFalse(os.path.exists(self.entry()))
        self.assertFalse(os.path.exists(self.data("db/classes.ini")))
        self.assertEqual(self.answer_of("xdg-mime", "query", "default", "audio/mpeg"),
                         "other.desktop")
        self.wait_until(lambda: "tovik" not in self.text(cache), "what the desktop remembers")

    def test_a_file_that_is_opened_starts_the_player(self):
        self.start_shown()
        self.associate()
        self.end_shown()
        self.start_sound_server()
        song = self.path("song.mp3")
        shutil.copy(media("mp3_vbr.mp3"), song)
        # The program that it starts is nobody's child: it is ended by its window.
        self.double_click(song)
        window = self.first(self.player_windows, "the window")
        number = self.answer_of("xdotool", "getwindowpid", window)
        try:
            words = self.text(f"/proc/{number}/cmdline").split("\0")
            self.assertEqual(words[:2], [PROGRAM, song])
        finally:
            os.kill(int(number), 15)
        self.wait_until(lambda: not os.path.exists(f"/proc/{number}"), "its end")


if __name__ == "__main__":
    unittest.main()
