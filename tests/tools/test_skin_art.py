# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs tovik_skin_art: what it writes, and what it refuses."""
import os
import pathlib
import struct
import subprocess
import tempfile
import unittest

PROGRAM = os.environ["TOVIK_SKIN_ART"]


def run(*words):
    return subprocess.run([PROGRAM, *map(str, words)], capture_output=True, text=True, timeout=60,
                          check=False)


def pictures(folder):
    return {file.name: file.read_bytes() for file in folder.iterdir()}


def size_of(bitmap):
    return struct.unpack_from("<ii", bitmap, 18)


class SkinArt(unittest.TestCase):
    def setUp(self):
        self.temporary = tempfile.TemporaryDirectory()
        self.addCleanup(self.temporary.cleanup)
        self.folder = pathlib.Path(self.temporary.name)

    def drawn(self, *words):
        folder = self.folder / "-".join(["set", *words])
        result = run(folder, *words)
        self.assertEqual(result.returncode, 0, result.stderr)
        return pictures(folder)

    def test_writes_the_whole_set_and_the_same_bytes_again(self):
        first = self.drawn()
        self.assertEqual(len(first), 124)  # 107 of the main window, 17 of the mini window
        self.assertTrue(all(name.endswith(".bmp") for name in first))
        self.assertEqual(first, self.drawn())

    def test_twice_as_large(self):
        small = self.drawn()
        large = self.drawn("--scale", "2")
        self.assertEqual(small.keys(), large.keys())
        for name, bitmap in small.items():
            self.assertEqual(size_of(large[name]), tuple(2 * side for side in size_of(bitmap)))

    def test_a_set_for_dense_screens_is_named_after_the_plain_pictures(self):
        folder = self.folder / "fine"
        self.assertEqual(run("--fine", folder, "--scale", "2").returncode, 0)
        fine = pictures(folder)
        listed = fine.pop("fine.qrc").decode()
        self.assertIn('prefix="/fine/2"', listed)
        # Those of the skin and those of the window itself; none shares a name with another.
        self.assertEqual(len(fine), 124 + 24)
        for name in fine:
            self.assertRegex(name, "^[0-9a-f]{16}[.]bmp$")
            self.assertEqual(listed.count(f"<file>{name}</file>"), 1)
        larger = sorted(self.drawn("--scale", "2").values())
        self.assertLessEqual(len(set(larger) - set(fine.values())), 0)
        self.assertEqual(run("--fine", folder, "--scale", "3").returncode, 0)
        self.assertEqual(set(pictures(folder)) - {"fine.qrc"}, set(fine))
        self.assertIn('prefix="/fine/3"', (folder / "fine.qrc").read_text())

    def test_previews_every_panel(self):
        seen = set()
        for panel in range(1, 7):
            file = self.folder / f"{panel}.png"
            self.assertEqual(run("--preview", file, panel).returncode, 0)
            seen.add(file.read_bytes())
        self.assertEqual(len(seen), 6)

    def test_writes_the_icons(self):
        folder = self.folder / "icons"
        self.assertEqual(run("--icons", folder).returncode, 0)
        icons = pictures(folder)
        for size in (16, 22, 24, 32, 48, 64, 128, 256, 512):
            self.assertEqual(struct.unpack_from(">II", icons.pop(f"tovik-{size}.png"), 16),
                             (size, size))
        for size in (16, 22, 24, 32, 48, 64):
            self.assertEqual(len({icons.pop(f"tray{style}-{size}.png") for style in range(1, 5)}),
                             4)
        self.assertIn(b"<svg ", icons.pop("tovik.svg"))
        self.assertEqual(icons, {})

    def test_refuses_other_words(self):
        folder = self.folder / "none"
        for words in ([], [folder, "--scale", "0"], [folder, "--scale", "two"], [folder, folder],
                ["--icon", folder], ["--icon", folder, "0"], ["--icons"], ["--fine"], ["--preview", folder, "7"],
                      ["--what"]):
            result = run(*words)
            self.assertEqual(result.returncode, 1, words)
            self.assertIn("tovik_skin_art FOLDER", result.stderr)
        self.assertFalse(folder.exists())

    def test_tells_what_it_could_not_write(self):
        file = self.folder / "file"
        file.write_text("in the way")
        result = run(file / "set")
        self.assertEqual(result.returncode, 1)
        self.assertIn(".bmp", result.stderr)


if __name__ == "__main__":
    unittest.main()
