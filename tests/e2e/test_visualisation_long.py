# SPDX-License-Identifier: GPL-3.0-or-later
"""Every fault that a plug-in may have, in the player; a plug-in with the radio; what rests
while nothing plays or nobody sees it; the whole screen."""
import os
import time
import unittest

from radio import LOUD, RadioTest
from visual_stage import AURORA, BARS, NONE, OWN, STILL, Stage, Strip

MINIMISE = (413, 18)  # of the main window

# In the order of the menu.
FAULTS = {"crash_at_100": "ends", "crash_at_begin": "ends", "crash_at_load": "ends",
          "endless_load": "hangs", "endless_loop": "hangs", "exit_0": "ends", "floods": "ends",
          "forks": "goes on", "memory_without_end": "ends", "prints_a_gigabyte": "goes on",
          "starts_threads": "ends", "writes_before": "ends", "writes_behind": "ends",
          "writes_everywhere": "ends"}


class EachFault(Stage):
    own = tuple(FAULTS)
    speed = b"10"

    def know(self, fault):
        """As if it had told its name once: it is offered, though it cannot be loaded now."""
        path = self.data(f"Plugins/Vis/{fault}.svp")
        facts = os.stat(path)
        with open(self.data("db/visuals.dat"), "a", encoding="utf-8") as file:
            file.write(f"{facts.st_size} {facts.st_mtime_ns}\t{path}\tKnown {fault}\n")

    def test_the_sound_goes_on_and_the_window_answers(self):
        self.assertEqual(list(FAULTS), sorted(FAULTS))
        for fault in ("crash_at_load", "endless_load"):
            self.know(fault)
        self.start_sound_server()
        self.play()
        with self.recorded():
            for number, (fault, what) in enumerate(FAULTS.items()):
                with self.subTest(fault=fault):
                    self.answers_beside(lambda n=number: self.choose(OWN + n), what == "hangs")
                    if what == "goes on":
                        self.wait_until(self.moves, "its pictures")
                        self.assertFalse(self.told(fault))
                    else:
                        self.wait_until(lambda f=fault: self.told(f), "its end")
                        self.wait_until(lambda: not self.helpers(), "the end of its process")
            self.choose(BARS)
            self.wait_until(self.moves, "the bars")
        self.end()


class Minimised(Stage):
    def rests_and_goes_on(self, minimise):
        minimised = {}
        for name, steps in (("none", NONE), ("bars", BARS)):
            self.choose(steps)
            if steps == BARS:
                self.wait_until(self.moves, "the bars")
                shown = self.rest()
            minimise()
            time.sleep(0.3)
            minimised[name] = self.rest()
            self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        # Of about 75 ticks not one in five is left.
        self.assertLess(minimised["bars"] - minimised["none"], 15)
        self.assertGreater(shown - minimised["bars"], 40)
        self.wait_until(self.moves, "the bars after the return")
        self.end()


class RestingKindly(Minimised):
    COMFORT = "on"  # where a tray would not hide the window

    def test_minimised_by_its_own_button_it_rests(self):
        self.play("--device", "silent")
        self.rests_and_goes_on(lambda: self.tool(
            "xdotool", "mousemove", "--window", self.shown_window, *map(str, MINIMISE), "click",
            "1"))


class Resting(Minimised):
    def setUp(self):
        super().setUp()
        self.play("--device", "silent")

    def test_pause_stands_still_and_stop_clears(self):
        bare = self.area()
        self.choose(BARS)
        self.wait_until(self.moves, "the bars")
        self.tool("xdotool", "key", "c")
        time.sleep(0.3)
        self.assertFalse(self.moves(STILL))
        self.assertNotEqual(self.area(), bare)
        self.tool("xdotool", "key", "c")
        self.wait_until(self.moves, "the bars after the pause")
        self.tool("xdotool", "key", "v")
        self.wait_until(lambda: self.area() == bare, "the bare window")
        self.end()

    def test_minimised_it_rests_and_goes_on_when_it_is_back(self):
        self.rests_and_goes_on(lambda: self.tool("xdotool", "windowminimize", "--sync",
                                                 self.shown_window))

    def test_a_double_click_shows_it_on_the_whole_screen(self):
        self.choose(AURORA)
        self.wait_until(self.moves, "the plug-in")
        for leave in (("key", "Escape"), ("click", "--repeat", "2", "--delay", "60", "1")):
            self.tool("xdotool", "mousemove", "--window", self.shown_window, "200", "85", "click",
                      "--repeat", "2", "--delay", "60", "1")
            screen = self.first(self.whole_screens, "the whole screen")
            geometry = self.tool("xdotool", "getwindowgeometry", screen).stdout
            self.assertIn("1024x768", geometry)
            self.tool("xdotool", "windowactivate", "--sync", screen)
            time.sleep(0.3)
            self.keep_screenshot("full_screen.png")
            self.tool("xdotool", *leave)
            self.wait_until(lambda: not self.whole_screens(), "the end of the whole screen")
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        self.wait_until(self.moves, "the plug-in in the window")
        self.end()

    def test_a_plugin_rests_while_it_is_minimised(self):
        self.choose(AURORA)
        self.wait_until(self.moves, "the plug-in")
        helper = self.helpers()
        self.assertEqual(len(helper), 1)
        self.assertGreater(self.spent(helper[0]), 0)
        self.tool("xdotool", "windowminimize", "--sync", self.shown_window)
        time.sleep(0.5)
        self.assertEqual(self.spent(helper[0]), 0)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        self.wait_until(self.moves, "the plug-in after the return")
        self.assertEqual(self.helpers(), helper)
        self.end()

    @staticmethod
    def spent(process):
        """Nanoseconds of the processor in a second."""
        def now():
            with open(f"/proc/{process}/schedstat", encoding="ascii") as file:
                return int(file.read().split()[0])
        before = now()
        time.sleep(1)
        return now() - before


class WantsRoom(Stage):
    own = ("none",)  # no fault

    def test_it_waits_for_the_large_window(self):
        with open(self.data("Plugins/Vis/tpcf.ini"), "w", encoding="ascii") as file:
            file.write("[Size]\r\n960x720=true\r\n")
        self.play("--device", "silent")
        self.choose(OWN)
        self.wait_until(self.helpers, "the plug-in")
        self.tool("xdotool", "key", "ctrl+w")
        self.first(lambda: self.windows_of_role("mini"), "the mini window")
        self.wait_until(lambda: not self.helpers(), "the plug-in to go")
        self.tool("xdotool", "key", "ctrl+w")
        self.first(self.player_windows, "the large window")
        self.wait_until(self.helpers, "the plug-in")
        self.end()


class Radio(Strip, RadioTest):
    def test_a_plugin_moves_with_a_station(self):
        self.setting(b"CVP", b"3")
        self.start()
        self.play_first_station()
        self.wait_until(lambda: self.loudness() > LOUD, "the station")
        self.tool("xdotool", "key", "1")  # to the panel with the strip
        self.wait_until(self.helpers, "the plug-in")
        self.wait_until(self.moves, "the plug-in")
        self.assertGreater(self.colours(), 20)
        self.end()


if __name__ == "__main__":
    unittest.main()
