# SPDX-License-Identifier: GPL-3.0-or-later
"""The playlist is filled, saved and found again, in the real window."""
import os
import re
import shutil
import signal
import unittest

from program import LIMIT, ProgramTest, media, odd

SONG = "wav_s16_44100_stereo.wav"
SAVE_BUTTON = (281, 253)  # in the window, on the playlist's panel
CLEAR_BUTTON = (201, 253)
LOAD_BUTTON = (241, 253)


class Filling(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_bus()
        self.start_window_manager()
        self.end(self.begin(media(SONG)))  # makes the data folder
        with open(self.data("db/autosave.m3u"), "wb") as file:
            file.write(b"#EXTM3U\r\n")

    def begin(self, *words):
        """The player, with the keyboard on its window."""
        player = self.start_program("--device", "silent", *words)
        self.player_window = self.window_of(player)
        self.tool("xdotool", "windowactivate", "--sync", self.player_window)
        return player

    def end(self, player):
        player.send_signal(signal.SIGTERM)
        self.assertEqual(player.wait(LIMIT), 0)

    def key(self, *keys):
        self.tool("xdotool", "key", "--clearmodifiers", *keys)

    def click(self, place):
        self.tool("xdotool", "mousemove", "--window", self.player_window,
                  *(str(number) for number in place), "click", "1")

    def music(self, *names):
        for name in names:
            path = os.path.join(self.path("music"), name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            shutil.copy(media(SONG), path)
        self.setting(b"CFLD", self.path("music").encode())

    def dialog(self, title):
        found = self.box(title)
        self.tool("xdotool", "windowactivate", "--sync", found)
        return found

    def wait_for_rows(self, count):
        """Until so many are in the list, as the bus tells: who adds them goes on for a while behind
        the end of a dialog, and a program that ends meanwhile adds no more."""
        def rows():
            return self.tool("dbus-send", "--print-reply", "--dest=org.mpris.MediaPlayer2.tovik",
                             "/org/mpris/MediaPlayer2", "org.freedesktop.DBus.Properties.Get",
                             "string:org.mpris.MediaPlayer2.TrackList",
                             "string:Tracks").stdout.count("object path")

        self.wait_until(lambda: rows() == count, f"{count} rows")

    def add_folder(self, subfolders, rows):
        self.key("ctrl+d")
        self.dialog("Add folder")
        if subfolders:
            self.key("Tab", "Tab", "space")  # from the tree past the files to the check box
        self.key("alt+a")
        self.wait_until(lambda: not self.boxes("Add folder"), "the end of the dialog")
        self.wait_for_rows(rows)

    def titles(self):
        """Those of the saved list."""
        return re.findall(r"#EXTINF:\d+,(.*)\r", self.read("db/autosave.m3u").decode())

    def test_a_folder_is_added_and_found_again(self):
        self.music("b.wav", "a.wav", "no music.txt", "below/c.wav")
        player = self.begin()
        self.add_folder(False, 2)
        self.keep_screenshot("folder_added.png")
        self.end(player)
        self.assertEqual(self.titles(), ["a", "b"])
        self.end(self.begin())
        self.assertEqual(self.titles(), ["a", "b"])

    @odd
    def test_a_tree_is_added(self):
        self.music("b.wav", "a.mp3", "below/c.wav", "below/deep/d.flac")
        player = self.begin()
        self.add_folder(True, 9)
        self.end(player)
        self.assertEqual(self.titles(), ["a", "b", "d", "d", "d", "d", "a", "b", "c"])

    def test_a_list_is_saved_and_cleared(self):
        self.music("b.wav", "a.wav")
        player = self.begin()
        self.add_folder(False, 2)
        self.tool("xdotool", "windowactivate", "--sync", self.player_window)
        self.key("3")
        saved = self.path("mine.pls")

        def asked():
            # The panel may not be shown yet when the button is looked for.
            self.click(SAVE_BUTTON)
            return self.boxes("Save playlist")

        self.wait_until(asked, "the dialog that saves")
        self.dialog("Save playlist")
        self.tool("xdotool", "type", saved)
        self.key("Return")
        self.wait_until(lambda: os.path.exists(saved), "the saved list")
        self.wait_until(lambda: not self.boxes("Save playlist"), "the end of the dialog")
        with open(saved, "rb") as file:
            text = file.read().decode()
        self.assertEqual(re.findall(r"Title\d=(.*)\r", text), ["a", "b"])
        self.tool("xdotool", "windowactivate", "--sync", self.player_window)
        self.click(CLEAR_BUTTON)
        self.end(player)
        self.assertEqual(self.titles(), [])

    @odd
    def test_a_list_named_on_the_command_line_is_played(self):
        with open(self.path("x.pls"), "w", encoding="utf-8") as file:
            file.write(f"[playlist]\nFile1={media(SONG)}\nTitle1=Alpha beta\nLength1=1\n"
                       "NumberOfEntries=1\n")
        player = self.begin(self.path("x.pls"))
        self.key("x")  # a start with a file tells its title at the next one

        def title_shown():
            name = self.tool("xdotool", "getwindowname", self.player_window).stdout
            name = name.removesuffix("\n")  # it goes round
            return any((name[at:] + name[:at]).startswith("Alpha beta") for at in range(len(name)))

        self.wait_until(title_shown, "the title")
        before = self.read("db/autosave.m3u")
        self.end(player)
        self.assertEqual(self.read("db/autosave.m3u"), before)  # that list is not kept

    def test_with_comfort_lists_go_through_the_dialogs_of_the_panel(self):
        """A list beside its music is loaded, saved as XSPF by the type alone, and replaces itself."""
        self.music("a.wav", "below/b.wav")
        listed = self.path("music/others.m3u")
        with open(listed, "w", encoding="utf-8") as file:
            file.write("a.wav\n\n# said\n#EXTINF:no,Bravo\nbelow\\b.wav\n")
        player = self.begin("--comfort=on")
        self.key("3")

        def ask(button, title):
            def asked():
                self.tool("xdotool", "windowactivate", "--sync", self.player_window)
                self.click(button)
                return self.boxes(title)

            self.wait_until(asked, title)
            return self.dialog(title)

        def end_dialog(title):
            self.key("Return")
            self.wait_until(lambda: not self.boxes(title), "the end of the dialog")

        ask(LOAD_BUTTON, "Load playlist")
        self.tool("xdotool", "type", listed)
        end_dialog("Load playlist")
        self.wait_for_rows(2)
        saving = ask(SAVE_BUTTON, "Save playlist")
        shape = self.tool("xdotool", "getwindowgeometry", "--shell", saving).stdout
        height = int(re.search(r"HEIGHT=(\d+)", shape).group(1))
        self.tool("xdotool", "mousemove", "--window", saving, "300", str(height - 25),
                  "click", "1")  # the type
        self.key("Down", "Down", "Down", "Return")  # M3U8, PLS, XSPF
        self.key("alt+n")
        self.tool("xdotool", "type", self.path("music/mine"))
        end_dialog("Save playlist")
        saved = self.path("music/mine.xspf")
        self.wait_until(lambda: os.path.exists(saved), "the saved list")
        with open(saved, "rb") as file:
            text = file.read().decode()
        self.assertEqual(re.findall("<location>(.*)</location>", text), ["a.wav", "below/b.wav"])
        self.assertEqual(re.findall("<title>(.*)</title>", text), ["a.wav", "Bravo"])

        ask(LOAD_BUTTON, "Load playlist")
        self.tool("xdotool", "type", saved)
        end_dialog("Load playlist")
        box = self.plain_box()
        self.keep_screenshot("replace_or_append.png")
        self.tool("xdotool", "windowactivate", "--sync", box)
        self.key("alt+r")  # Replace
        self.wait_until(lambda: not self.plain_boxes(), "the end of the question")
        self.end(player)
        self.assertEqual(self.titles(), ["a.wav", "Bravo"])
        self.assertEqual(re.findall(r"\n(/.*)\r", self.read("db/autosave.m3u").decode()),
                         [self.path("music/a.wav"), self.path("music/below/b.wav")])


if __name__ == "__main__":
    unittest.main()
