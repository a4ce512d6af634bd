# SPDX-License-Identifier: GPL-3.0-or-later
"""The tag editor: both tags of real files by the keyboard, read back by others and by itself."""
import os
import shutil
import signal
import subprocess
import time
import unittest

from program import LIMIT, ProgramTest, media, odd

TITLES = {"English": "File information", "Slovenian": "Podatki o datoteki"}
FIRST_FRAME = b"\xff\xfb\x90\x44"
PAGES = ("id3v1", "id3v2", "mpeg")
SMALLEST_SCREEN = (1024, 600)


def contents(path):
    with open(path, "rb") as file:
        return file.read()


def without_last_tag(path):
    data = contents(path)
    return data[:-128] if data[-128:-125] == b"TAG" else data


def sound_of(path):
    """The bytes from the first frame on, without a tag at the end; of a file as it was made."""
    data = without_last_tag(path)
    return data[data.index(FIRST_FRAME):]


def decoded(path):
    return subprocess.run(["ffmpeg", "-v", "error", "-i", path, "-f", "s16le", "-"],
                          capture_output=True, check=True, timeout=LIMIT).stdout


class EditorTest(ProgramTest):
    """The editor of a file, by the keyboard."""

    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()
        self.title = TITLES["English"]

    def copy(self, name):
        path = self.path("song" + os.path.splitext(name)[1])
        shutil.copy(media(name), path)
        return path

    def start(self, path, scale=1):
        self.environment["QT_SCALE_FACTOR"] = str(scale)
        self.player = self.start_program("--device", "silent", path)
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        time.sleep(0.3)  # the file comes into the list

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def key(self, *keys):
        self.tool("xdotool", "key", "--clearmodifiers", *keys)

    def open_editor(self):
        self.key("alt+3")
        editor = self.box(self.title)
        self.wait_until(lambda: self.tool("xdotool", "getactivewindow").stdout.strip() == editor,
                        "the editor to come to the front")
        time.sleep(0.3)  # the file is read
        return editor

    def fill(self, *texts):
        """Types over the fields from that with the focus on; None leaves one as it is."""
        for number, text in enumerate(texts):
            if number > 0:
                self.key("Tab")
            if text is not None:
                self.key("ctrl+a")
                self.tool("xdotool", "type", "--clearmodifiers", "--delay", "2", text)

    def save(self):
        self.key("alt+s")
        return self.answer_all()

    def answer_all(self):
        """Answers every box until the editor is closed; returns how many there were."""
        boxes = 0
        end = time.monotonic() + LIMIT
        while self.boxes(self.title):
            self.assertLess(time.monotonic(), end, "the editor stays")
            for box in self.plain_boxes():
                boxes += 1
                self.tool("xdotool", "key", "--window", box, "Return")
                self.wait_until(lambda box=box: box not in self.plain_boxes(), "its end")
            time.sleep(0.05)
        return boxes

    def frames(self, path):
        return self.tool("mid3v2", "-l", path).stdout.splitlines()


class Tags(EditorTest):
    @odd
    def test_both_tags_are_edited_and_others_read_them(self):
        path = self.copy("mp3_id3v1.mp3")
        sound, heard = sound_of(path), decoded(path)
        self.start(path)
        self.open_editor()
        self.fill("First title", None, "First album", "1987", None, "5")
        self.key("ctrl+Tab", "space", "Tab")
        self.fill("Second title", "Second artist", "1988", "Second comment", "6")
        self.keep_screenshot("tag-typed.png")
        self.assertEqual(self.save(), 1, "the false alarm")
        self.end()
        self.assertTrue(without_last_tag(path).endswith(sound))
        # Behind a tag of this kind others play the frame of facts, too, as silence.
        self.assertTrue(heard in decoded(path))
        self.assertEqual(contents(path)[-128:], b"".join(
            (b"TAG", b"First title".ljust(30), b"Tovik".ljust(30), b"First album".ljust(30),
             b"1987", b"made by a script".ljust(28), b"\0\x05\x0c")))
        listed = self.tool("id3v2", "-l", path).stdout
        for text in ("First title", "First album", "Year: 1987", "Track: 5", "Second title",
                     "Second artist", "1988", "Second comment"):
            self.assertIn(text, listed)
        for line in ("TIT2=Second title", "TPE1=Second artist", "TYER=1988", "TRCK=6"):
            self.assertIn(line, self.frames(path))

    def test_a_new_start_shows_what_was_saved(self):
        path = self.copy("mp3_id3v1.mp3")
        sound = sound_of(path)
        self.start(path)
        self.open_editor()
        self.fill("Kept title")
        self.save()
        self.end()
        self.start(path)
        self.open_editor()
        self.key(*["Tab"] * 7, "space")  # what it shows is copied to the other tag
        self.save()
        self.end()
        for line in ("TIT2=Kept title", "TPE1=Tovik", "TALB=Test media", "TYER=2004"):
            self.assertIn(line, self.frames(path))
        self.assertTrue(without_last_tag(path).endswith(sound))

    @odd
    def test_what_would_be_lost_is_told_first(self):
        path = self.copy("mp3_id3_both.mp3")
        before = contents(path)
        sound = sound_of(path)
        self.start(path)
        self.open_editor()
        self.fill("New")
        self.key("alt+s")
        self.plain_box()
        self.keep_screenshot("tag-losses.png")
        self.key("Escape")
        self.wait_until(lambda: not self.plain_boxes(), "the end of the box")
        self.assertTrue(self.boxes(self.title))
        self.assertEqual(contents(path), before)
        self.key("alt+s")
        told = self.plain_box()
        self.key("Left", "Return")  # from Cancel to the button that saves
        self.wait_until(lambda: told not in self.plain_boxes(), "the end of the box")
        self.assertEqual(self.answer_all(), 1, "the false alarm")
        self.end()
        self.assertTrue(without_last_tag(path).endswith(sound))
        self.assertNotIn(b"image/png", contents(path))

    @odd
    def test_other_files_are_only_shown(self):
        for name in ("flac_16_44100.flac", "wav_s16_44100_stereo.wav"):
            with self.subTest(name):
                path = self.copy(name)
                before = contents(path)
                self.start(path)
                self.open_editor()
                self.keep_screenshot(f"tag-{name}.png")
                self.key("alt+s")
                self.key("ctrl+Tab", "ctrl+Tab")
                self.keep_screenshot(f"tag-facts-{name}.png")
                self.assertTrue(self.boxes(self.title))
                self.key("Escape")
                self.wait_until(lambda: not self.boxes(self.title), "the end of the editor")
                self.end()
                self.assertEqual(contents(path), before)

    def test_the_program_ends_with_the_editor_open(self):
        path = self.copy("mp3_id3_both.mp3")
        before = contents(path)
        self.start(path)
        self.open_editor()
        self.fill("Never saved")
        self.end()
        self.assertEqual(contents(path), before)

    @odd
    def test_the_program_ends_with_a_box_of_the_editor_open(self):
        path = self.copy("mp3_id3_both.mp3")
        before = contents(path)
        self.start(path)
        self.open_editor()
        self.key("alt+s")
        self.plain_box()
        self.end()
        self.assertEqual(contents(path), before)

    def test_the_pages_look_right_in_both_languages_and_at_scale_two(self):
        path = self.copy("mp3_id3v1.mp3")
        self.start(path)
        self.end()
        for language, self.title in TITLES.items():
            self.setting(b"CLNG", language.encode())
            for scale in (1, 2):
                with self.subTest(language=language, scale=scale):
                    self.start(path, scale)
                    editor = self.open_editor()
                    shot = self.tool("xdotool", "getwindowgeometry", "--shell", editor).stdout
                    size = dict(line.split("=") for line in shot.splitlines())
                    for side, most in zip(("WIDTH", "HEIGHT"), SMALLEST_SCREEN):
                        self.assertLess(int(size[side]), most * scale)
                    for page in PAGES:
                        self.keep_screenshot(f"tag-{page}-{language}-{scale}.png")
                        self.key("ctrl+Tab")
                        time.sleep(0.1)
                    self.end()


if __name__ == "__main__":
    unittest.main()
