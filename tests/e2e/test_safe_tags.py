# SPDX-License-Identifier: GPL-3.0-or-later
"""The tag editor with comfort: it keeps what is not typed, and edits every format."""
import os
import subprocess
import unittest

from program import LIMIT
from test_tags import EditorTest, contents, decoded, sound_of, without_last_tag

PICTURE = 1000  # bytes of its frame, at least


class SafeTags(EditorTest):
    COMFORT = "on"

    def test_pictures_and_foreign_frames_stay(self):
        path = self.copy("mp3_id3_both.mp3")
        subprocess.run(["mid3v2", "--TXXX", "key:wörds", path], check=True, timeout=LIMIT)
        before = self.frames(path)
        picture = contents(path)[contents(path).index(b"APIC"):][:PICTURE]
        sound = sound_of(path)
        self.start(path)
        self.open_editor()
        self.key("ctrl+Tab", "Tab")
        self.fill("Another title")
        self.keep_screenshot("safe-tags.png")
        self.assertEqual(self.save(), 0, "nothing is lost, nothing alarms")
        self.end()
        self.assertEqual([line for line in self.frames(path) if not line.startswith("TIT2")],
                         [line for line in before if not line.startswith("TIT2")])
        self.assertIn("TIT2=Another title", self.frames(path))
        self.assertTrue(picture in contents(path))
        self.assertTrue(without_last_tag(path).endswith(sound))

    def test_a_save_without_a_change_leaves_the_file(self):
        path = self.copy("mp3_id3_both.mp3")
        before = contents(path), os.stat(path).st_mtime_ns, os.stat(path).st_ino
        self.start(path)
        self.open_editor()
        self.assertEqual(self.save(), 0)
        self.end()
        self.assertEqual((contents(path), os.stat(path).st_mtime_ns, os.stat(path).st_ino), before)

    def test_other_formats(self):
        for name in ("ogg_44100.ogg", "flac_16_44100.flac", "wma_44100.wma"):
            with self.subTest(name):
                path = self.copy(name)
                heard = decoded(path)
                self.start(path)
                self.open_editor()
                self.keep_screenshot(f"safe-tags-{name}.png")
                self.key("space", "Tab")
                self.fill("Third title", "Artist")
                self.assertEqual(self.save(), 0)
                self.end()
                told = subprocess.run(
                    ["ffprobe", "-v", "error", "-show_entries", "format_tags:stream_tags", path],
                    capture_output=True, text=True, check=True, timeout=LIMIT).stdout.lower()
                self.assertIn("title=third title", told)
                self.assertIn("artist=artist", told)
                self.assertEqual(decoded(path), heard)


if __name__ == "__main__":
    unittest.main()
