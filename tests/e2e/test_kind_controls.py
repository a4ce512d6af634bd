# SPDX-License-Identifier: GPL-3.0-or-later
"""What comfort brought to the screen, in both languages, by the keyboard alone."""
import subprocess
import unittest

from program import media
from reader import PYTHON, READER, ReadTest


class KindControls(ReadTest):
    COMFORT = "on"

    def words(self, section):
        """The items of a section of the language, without the signs for letters."""
        with open(self.data(f"Languages/{self.language}.lng"), encoding="utf-8") as file:
            text = file.read().partition(f"[{section}]\n")[2].partition("\n[")[0]
        return [line.partition("=")[2].replace("&", "") for line in text.splitlines() if "=" in line]

    def test_they_are_read_and_reached_in_english(self):
        self.look("English", "alt+r")

    def test_they_are_read_and_reached_in_slovenian(self):
        self.look("Slovenian", "alt+z")

    def look(self, language, replace):
        self.language = language
        broken = self.path("broken.mp3")
        with open(broken, "w", encoding="ascii") as file:
            file.write("no sound")
        self.start()  # the very first one
        self.end()
        self.setting(b"CLNG", language.encode())
        self.start(broken)
        line = self.words("TovikNotice")[12].replace("[x]", "1")
        self.wait_until(lambda: line in self.seen(), "the line of what cannot be played")
        self.look_at_preferences()
        self.look_at_question(replace)
        self.end()

    def look_at_preferences(self):
        title = self.words("frmPreferences")[0]
        comfort = self.words("TovikComfort")
        within = f"within|{title}"

        def named(name, role):
            """Captions bear the names, too."""
            return next(one for one in self.tree(within)["children"]
                        if one["name"] == name and one["role"] == role)

        self.tool("xdotool", "key", "ctrl+p")
        self.box(title)
        # The time of a shorter crossfade: the second stop but one of its page.
        name = self.words("TovikPreferences")[17]
        self.tool("xdotool", "key", "ctrl+Tab", "ctrl+Tab")
        self.wait_until(lambda: "showing" in named(name, "slider")["states"], "the page")
        self.assertEqual(named(name, "slider")["value"], [2, 0, 30])
        self.tool("xdotool", "key", "Tab", "Tab", "Right")
        self.wait_until(lambda: named(name, "slider")["value"][0] == 3, "the slider")
        self.assertIn(name, self.focused(within))
        # The page of comfort is the last one. Each switch is one Tab further, and comes into sight.
        self.tool("xdotool", "key", *["ctrl+Tab"] * 5)
        self.wait_until(lambda: comfort[1] in self.focused(within), "the page")
        boxes = [one for one in self.tree(within)["children"]
                 if one["role"] == "check box" and one["name"] in comfort]
        self.assertEqual([one["name"] for one in boxes], comfort[1:24])
        for one in boxes:
            self.assertTrue({"focusable", "checked"} <= set(one["states"]), one)
        self.tool("xdotool", "key", "--delay", "20", *["Tab"] * 22, "space")
        last = comfort[23]
        self.wait_until(lambda: "checked" not in named(last, "check box")["states"], "the switch")
        self.assertIn(last, self.focused(within))
        self.tool("xdotool", "key", "Escape")
        self.wait_until(lambda: not self.boxes(title), "the end of the preferences")

    def look_at_question(self, replace):
        with open(self.path("list.m3u"), "w", encoding="utf-8") as file:
            file.write(media("silence.wav"))
        notices = self.words("TovikNotice")
        button = self.words("PlayerWin")[32]
        self.tool("xdotool", "key", "3")
        self.wait_until(lambda: button in self.seen(), "the panel")
        # The request comes back when all that it asks for is over.
        request = subprocess.Popen([PYTHON, READER, f"press|{button}"], env=self.environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.stack.callback(request.wait)
        self.box(button)
        self.tool("xdotool", "type", self.path("list.m3u"))
        self.tool("xdotool", "key", "Return")
        self.tool("xdotool", "windowactivate", "--sync", self.plain_box())
        said = self.tree("within|Tovik")["children"]
        self.assertEqual(sorted(one["name"] for one in said if one["role"] == "push button"),
                         sorted([notices[14], notices[15], notices[3]]))
        self.assertIn(notices[13].replace("[x]", "list.m3u"), [one["name"] for one in said])
        self.assertEqual([one["name"] for one in said if "focused" in one["states"]],
                         [notices[15]], "nothing is lost by Enter")
        self.tool("xdotool", "key", replace)
        self.wait_until(lambda: not self.plain_boxes(), "the end of the question")


if __name__ == "__main__":
    unittest.main()
