# SPDX-License-Identifier: GPL-3.0-or-later
"""The player as a screen reader gets it: roles, names, values and tables over AT-SPI."""
import json
import os
import time
import unittest

from program import ARTEFACTS
from reader import ReadTest


class Accessibility(ReadTest):
    def test_everything_has_a_role_and_a_name_on_every_panel(self):
        self.start(self.playlist())
        self.keep_tree(self.tree())
        for key in "12345":
            self.tool("xdotool", "key", "--clearmodifiers", key)
            time.sleep(0.3)
            children = [one for one in self.tree()["children"] if "showing" in one["states"]]
            self.assertGreater(len(children), 20)
            nameless = [one for one in children if not one["name"] and one["role"] != "label"]
            self.assertEqual(nameless, [], key)
            self.assertEqual([one for one in children if one["role"] in ("invalid", "unknown")], [])
        self.end()

    def keep_tree(self, tree):
        os.makedirs(ARTEFACTS, exist_ok=True)
        with open(os.path.join(ARTEFACTS, "tree.json"), "w", encoding="utf-8") as file:
            json.dump(tree, file, indent=1, ensure_ascii=False)

    def test_the_window_keeps_its_name_while_the_caption_rotates(self):
        self.start(self.playlist())
        captions = set()
        for _ in range(4):
            self.assertEqual(self.tree()["name"], "Tovik")
            captions.add(self.tool("xdotool", "getwindowname", self.shown_window).stdout)
            time.sleep(0.4)
        self.assertGreater(len(captions), 1)
        self.end()

    def test_buttons_toggles_sliders_and_fields(self):
        self.start(self.playlist())
        seen = self.seen()
        self.assertEqual(seen["Play"]["role"], "push button")
        self.assertEqual(seen["Main"]["role"], "page tab")
        self.assertIn("selected", seen["Main"]["states"])
        self.assertEqual(seen["Crossfade"]["role"], "check box")
        self.assertNotIn("checked", seen["Crossfade"]["states"])
        self.assertRegex(seen["Time"]["text"], r"^-?\d\d:\d\d$")
        self.assertEqual(seen["Channels"]["text"], "Stereo")
        volume = self.slider("Volume")
        self.assertEqual(volume["value"], [80, 0, 100])
        self.tree("press|Crossfade", "value|Volume|35")
        self.assertEqual(self.slider("Volume")["value"][0], 35)
        self.wait_until(lambda: "checked" in self.seen()["Crossfade"]["states"], "the mode")
        self.tree("press|EQ")
        self.wait_until(lambda: "1 kHz" in self.seen(), "the equalizer's panel")
        self.assertEqual(self.seen()["1 kHz"]["value"], [0, -10, 10])
        self.end()

    def lamps(self, *requests):
        """The lamps over the display: whatever bears a mode's name and takes no keyboard."""
        return {one["name"]: one for one in self.tree(*requests)["children"]
                if one["role"] == "check box" and "focusable" not in one["states"]
                and "showing" in one["states"]}

    def test_the_lamps_of_the_modes_tell_and_switch_them(self):
        self.start(self.playlist())
        lamps = self.lamps()
        self.assertEqual(len(lamps), 4, lamps)
        for name, lamp in lamps.items():
            self.assertNotIn("checked", lamp["states"])
            # The lamp comes before the button that bears the same name.
            self.assertEqual(lamp["actions"][0], "Toggle", name)
            self.tree(f"press|{name}")
            self.wait_until(lambda name=name: "checked" in self.lamps()[name]["states"], name)
            self.tree(f"press|{name}")
            self.wait_until(lambda name=name: "checked" not in self.lamps()[name]["states"], name)
        self.end()

    def slider(self, name):
        """Other elements may bear the same name."""
        return next(one for one in self.tree()["children"]
                    if one["name"] == name and one["role"] == "slider")

    def test_the_list_is_a_table(self):
        self.keep_nothing()
        self.start(self.playlist())
        self.tool("xdotool", "key", "--clearmodifiers", "3")
        self.wait_until(lambda: "Playlist" in self.tables(), "the playlist")
        table = self.tables()["Playlist"]
        self.assertEqual((table["rows"], table["columns"]), (3, 2))
        self.assertEqual([row[0] for row in table["cells"]], ["1. First", "2. Second", "3. Third"])
        self.assertEqual(table["cells"][2][1], "01:05")
        self.end()

    def tables(self):
        return {one["name"]: one for one in self.tree()["children"]
                if one["role"] == "table" and "showing" in one["states"]}

    def test_tab_moves_the_focus_that_a_reader_follows(self):
        self.start(self.playlist())
        self.tool("xdotool", "key", "--clearmodifiers", "Tab", "Tab", "Tab")
        self.wait_until(lambda: self.focused() == ["Playlist"], "the third tab")
        self.end()

    def test_names_follow_the_language(self):
        self.start(self.playlist())
        self.end()
        self.setting(b"CLNG", b"Slovenian")
        self.start(self.playlist())
        seen = self.seen()
        self.assertIn("Predvajaj", seen)
        self.assertIn("Razpri hitri seznam", seen)
        self.assertIn("Kanali", seen)
        self.end()


if __name__ == "__main__":
    unittest.main()
