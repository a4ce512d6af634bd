# SPDX-License-Identifier: GPL-3.0-or-later
"""What moves with the music: the menu that chooses it, the mini window, and plug-ins that are bad."""
import time
import unittest

from program import children_of
from visual_stage import (AURORA, BARS, MINI, NONE, OSCILLOSCOPE, OWN, SPECTROGRAM, SPECTRUM,
                          STILL, WHITE, Stage)


class TheMenu(Stage):
    def setUp(self):
        super().setUp()
        self.play("--device", "silent")

    def test_switches_bars_and_none(self):
        self.assertFalse(self.moves(STILL))
        bare = self.area()
        self.choose(BARS)
        self.wait_until(lambda: self.area() != bare, "the bars")
        self.assertTrue(self.moves())
        self.wait_until(lambda: WHITE * 4 in self.area(), "a mark")
        self.keep_screenshot("spectrum.png")
        self.choose(NONE)
        self.wait_until(lambda: self.area() == bare, "the bare window")
        self.assertFalse(self.moves(STILL))
        self.choose(BARS)
        self.end()
        self.assertIn(b"<CVP>0</CVP>", self.read("db/settings.xml"))

    def test_switches_plugins(self):
        bare = self.area()
        for steps, name in ((AURORA, "aurora"), (OSCILLOSCOPE, "oscilloscope"),
                            (SPECTROGRAM, "spectrogram")):
            self.choose(steps)
            self.wait_until(lambda: self.colours() > 20, name)
            self.wait_until(self.moves, name + " to move")
            self.assertEqual(len(self.helpers()), 1)
            self.keep_screenshot(name + ".png")
        helper = self.helpers()
        self.tool("xdotool", "key", "b")  # the next track
        self.wait_until(self.moves, "the picture of the next track")
        self.assertEqual(self.helpers(), helper)
        self.choose(BARS)
        self.wait_until(lambda: not self.helpers(), "the end of the plug-in")
        self.wait_until(self.moves, "the bars")
        self.choose(NONE)
        self.wait_until(lambda: self.area() == bare, "the bare window")
        self.choose(AURORA)
        self.wait_until(self.helpers, "the plug-in")
        self.end()
        self.wait_until(lambda: not children_of(1, self.folder),
                        "the end of all processes")
        self.assertIn(b"<CVP>3</CVP>", self.read("db/settings.xml"))



class InMiniMode(Stage):
    def test_a_plugin_goes_along_and_is_shown_on_the_whole_screen_from_there(self):
        self.play("--device", "silent")
        self.choose(AURORA)
        self.wait_until(self.moves, "the plug-in")
        self.tool("xdotool", "key", "ctrl+w")
        self.shown_window = self.first(lambda: self.windows_of_role("mini"), "the mini window")
        self.strip = MINI
        self.wait_until(lambda: self.colours() > 20, "the plug-in in the mini window")
        self.wait_until(self.moves, "the plug-in to move there")
        self.assertEqual(len(self.helpers()), 1)
        self.keep_screenshot("mini_plugin.png")
        self.tool("xdotool", "mousemove", "--window", self.shown_window, "75", "76", "click",
                  "--repeat", "2", "--delay", "60", "1")
        screen = self.first(self.whole_screens, "the whole screen")
        self.assertIn("1024x768", self.tool("xdotool", "getwindowgeometry", screen).stdout)
        self.tool("xdotool", "windowactivate", "--sync", screen)
        self.tool("xdotool", "key", "Escape")
        self.wait_until(lambda: not self.whole_screens(), "the end of the whole screen")
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        self.wait_until(self.moves, "the plug-in in the mini window again")
        self.tool("xdotool", "key", "ctrl+w")
        self.shown_window = self.first(self.player_windows, "the large window")
        self.strip = SPECTRUM
        self.wait_until(self.moves, "the plug-in in the large window")
        self.end()


class Bad(Stage):
    """A plug-in that cannot begin, and one that draws two pictures and then hangs."""
    own = ("crash_at_begin", "endless_loop")

    def test_it_costs_its_picture_only(self):
        self.start_sound_server()
        self.play()
        bare = self.area()

        def hang():
            self.choose(OWN + 1)
            self.wait_until(self.helpers, "the plug-in")
            time.sleep(0.3)  # until it hangs

        with self.recorded():
            self.choose(OWN)
            self.wait_until(lambda: self.told("crash_at_begin"), "the end of the first")
            self.answers_beside(hang, stays=True)
            self.wait_until(lambda: not self.helpers(), "the end of the second")
            self.assertTrue(self.told("endless_loop"))
            self.assertNotEqual(self.area(), bare)  # the user is told, too
            self.keep_screenshot("plugin_ended.png")
            self.choose(BARS)
            self.wait_until(self.moves, "the bars")
        self.end()


if __name__ == "__main__":
    unittest.main()
