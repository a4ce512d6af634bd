# SPDX-License-Identifier: GPL-3.0-or-later
"""The playlist in the real window: reordered, deleted, dropped on, scrolled, and found again."""
import os
import re
import signal
import subprocess
import unittest
import wave

from program import LIMIT, ProgramTest

DRAG_SOURCE = os.environ["TOVIK_DRAG_SOURCE"]
LIST_LEFT, LIST_TOP, LIST_WIDTH, LIST_HEIGHT = 20, 45, 432, 190  # of the playlist in the window
QUICK_LEFT, QUICK_TOP = 288, 169
PITCH = 15
SHOWN = LIST_HEIGHT // PITCH


class Playlist(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()

    def song(self, name):
        path = self.path(name)
        with wave.open(path, "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(8000)
            file.writeframes(b"\0\0" * 8000)
        return path

    def begin(self, titles, panel="3"):
        """The player with a kept list of these titles, on a panel."""
        self.run_program("--render", self.path("out.wav"), "--seconds", "0.1",
                         self.song("first.wav"), check=True)  # makes the data folder
        with open(self.data("db/autosave.m3u"), "w", newline="", encoding="utf-8") as file:
            file.write("#EXTM3U\r\n")
            for title in titles:
                file.write(f"#EXTINF:65,{title}\r\n{self.path(title)}.wav\r\n")
        self.player = self.start_program("--device", "silent")
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        if panel != "1":
            self.mouse(200, 10)
            self.tool("xdotool", "key", "--clearmodifiers", panel)
        self.settle()

    def settle(self):
        """A picture that stays for a while."""
        pictures = []

        def stays():
            pictures.append(self.picture())
            return len(pictures) > 3 and len(set(pictures[-4:])) == 1

        self.wait_until(stays, "a picture that stays")
        return pictures[-1]

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)
        text = self.read("db/autosave.m3u").decode()
        return re.findall(r"#EXTINF:\d+,([^\r]*)", text)

    def mouse(self, x, y, *actions):
        self.tool("xdotool", "mousemove", "--window", self.shown_window, str(x), str(y), *actions)

    def row(self, row, *actions):
        """The pointer in the middle of a row in sight, counted from 0."""
        self.mouse(LIST_LEFT + 60, LIST_TOP + row * PITCH + PITCH // 2, *actions)

    def key(self, *keys):
        self.tool("xdotool", "key", "--clearmodifiers", *keys)

    def picture(self):
        crop = f"{LIST_WIDTH}x{LIST_HEIGHT}+{LIST_LEFT}+{LIST_TOP}"
        return self.tool_bytes("import", "-silent", "-window", self.shown_window, "-crop", crop,
                               "-depth", "8", "rgb:-")

    def drag(self, start, stop):
        self.row(start, "mousedown", "1")
        self.row((start + stop) // 2)
        self.row(stop)
        self.settle()
        self.keep_screenshot("list-drag.png")
        self.row(stop, "mouseup", "1")
        self.settle()

    def test_rows_are_dragged_to_their_places(self):
        self.begin("abcde")
        self.drag(3, 1)
        self.drag(0, 5)
        self.assertEqual(self.end(), ["d", "b", "c", "e", "a"])

    def test_a_drag_past_the_end_of_the_view_scrolls(self):
        titles = [f"t{number:02}" for number in range(SHOWN + 20)]
        self.begin(titles)
        first = self.settle()
        self.row(0, "mousedown", "1")
        self.row(4)
        self.mouse(LIST_LEFT + 60, LIST_TOP + LIST_HEIGHT + 30)
        self.wait_until(lambda: self.picture() != first, "the list to scroll")
        self.settle()  # the end of the list
        self.mouse(LIST_LEFT + 60, LIST_TOP + LIST_HEIGHT + 30, "mouseup", "1")
        self.assertEqual(self.end(), titles[1:] + titles[:1])

    def test_rows_are_moved_by_keys(self):
        self.begin("abc")
        self.row(0, "click", "1")
        self.key("alt+Down", "alt+Down", "Up", "alt+Up")
        self.assertEqual(self.end(), ["c", "b", "a"])

    def test_a_marked_block_is_deleted(self):
        self.begin("abcdefgh")
        self.row(1, "click", "1")
        self.tool("xdotool", "keydown", "shift")
        self.row(4, "click", "1")
        self.tool("xdotool", "keyup", "shift", "keydown", "ctrl")
        self.row(6, "click", "1")
        self.tool("xdotool", "keyup", "ctrl")
        self.settle()
        self.keep_screenshot("list-block.png")
        self.key("Delete")
        self.settle()
        self.assertEqual(self.end(), ["a", "f", "h"])

    def test_a_block_is_marked_and_deleted_by_keys(self):
        self.begin("abcdef")
        self.row(1, "click", "1")
        self.key("shift+Down", "shift+Down", "shift+Down", "shift+Up", "Delete")
        self.settle()
        self.assertEqual(self.end(), ["a", "e", "f"])

    def test_the_quick_list_follows_and_can_do_the_same(self):
        self.begin("abcd", panel="1")
        x, y = QUICK_LEFT + 40, QUICK_TOP + PITCH // 2
        self.mouse(x, y, "mousedown", "1")
        self.mouse(x, y + PITCH)
        self.mouse(x, y + 3 * PITCH)
        self.mouse(x, y + 3 * PITCH, "mouseup", "1")
        self.settle()
        self.keep_screenshot("list-quick.png")
        self.key("Delete")
        self.settle()
        self.assertEqual(self.end(), ["b", "c", "d"])

    def test_the_list_scrolls_by_its_bar_its_wheel_and_its_keys(self):
        self.begin([f"t{number}" for number in range(1000)])
        bar = LIST_LEFT + LIST_WIDTH - 6
        seen = {self.settle()}
        for act in (lambda: self.row(3, "click", "5"),
                    lambda: self.mouse(bar, LIST_TOP + LIST_HEIGHT - 8, "click", "1"),
                    lambda: self.mouse(bar, LIST_TOP + LIST_HEIGHT - 40, "click", "1"),
                    lambda: (self.row(3, "click", "1"), self.key("End"))):
            act()
            self.wait_until(lambda: self.picture() not in seen, "another picture")
            seen.add(self.settle())
        self.keep_screenshot("list-scrolled.png")
        self.key("Home")
        self.settle()
        self.assertEqual(len(self.end()), 1000)

    def drop(self, files, x, y):
        """What became of a drag of files onto a place of the window."""
        source = subprocess.Popen([DRAG_SOURCE, *files], env=self.environment, text=True,
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.stack.callback(source.communicate)
        self.stack.callback(source.kill)
        window = self.first(lambda: self.shown("--name", "^Files to drag$"), "the files")
        self.tool("xdotool", "windowactivate", "--sync", window)
        self.tool("xdotool", "mousemove", "--window", window, "40", "40", "mousedown", "1")
        for step in range(6):
            # Who drags asks the window under the pointer at each move, and waits for its answer.
            self.mouse(x + step, y, "sleep", "0.1")
        self.keep_screenshot("list-drop.png")
        self.tool("xdotool", "mouseup", "1")
        return source.stdout.readline().strip()

    def test_dropped_files_become_rows(self):
        self.begin([], panel="3")
        self.keep_screenshot("list-empty.png")
        files = [self.song("one.wav"), self.song("zwei \u010d #%.mp3"), self.path("text.txt")]
        self.assertEqual(self.drop(files, LIST_LEFT + 100, LIST_TOP + 60), "copied")
        self.settle()
        self.assertEqual(self.end(), ["one.wav", "zwei \u010d #%.mp3"])

    def test_files_dropped_on_the_quick_list_become_rows(self):
        self.begin(["a"], panel="1")
        self.keep_screenshot("list-quick-empty.png")
        self.assertEqual(self.drop([self.song("one.ogg")], QUICK_LEFT + 50, QUICK_TOP + 40),
                         "copied")
        self.settle()
        self.assertEqual(self.end(), ["a", "one.ogg"])


if __name__ == "__main__":
    unittest.main()
