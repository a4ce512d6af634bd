# SPDX-License-Identifier: GPL-3.0-or-later
"""What moves with the music: the menu that chooses it, and when it rests."""
import ctypes
import os
import re
import shutil
import signal
import statistics
import time
import unittest
import wave

from program import LIMIT, ProgramTest, children_of

SPECTRUM = (112, 74, 166, 24)  # left, top, width, height in the window
NONE, BARS, AURORA, OSCILLOSCOPE, SPECTROGRAM = 1, 2, 3, 4, 5  # steps down in the menu
BAD = 3  # of a plug-in of the user's own, which stands before those that came along
FAULTS = os.environ.get("TOVIK_FAULTY_VIS", "")
SECONDS = 60  # of noise, longer than any test
WHITE = b"\xff\xff\xff"


class Stage(ProgramTest):
    """The player with two tracks of noise; what is seen in the strip."""
    own_plugin = None  # the fault of a plug-in in the data folder

    def setUp(self):
        super().setUp()
        self.start_screen()
        if self.own_plugin:
            # A start fills the data folder first: one with anything in it is left as it is.
            self.run_program("--screenshot", self.path("fill.png"))
            os.makedirs(self.data("Plugins/Vis"), exist_ok=True)
            shutil.copy(os.path.join(FAULTS, self.own_plugin + ".svp"), self.data("Plugins/Vis"))
        self.start_window_manager()
        noise = self.path("noise.wav")
        with wave.open(noise, "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(44100)
            file.writeframes(os.urandom(2 * 44100 * SECONDS))
        with open(self.path("list.m3u"), "w", encoding="utf-8") as file:
            file.write(f"#EXTM3U\n#EXTINF:60,one\n{noise}\n#EXTINF:60,two\n{noise}\n")
        self.player = self.start_program("--device", "silent", self.path("list.m3u"))
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        # Plug-ins are looked for once the start is over.
        self.wait_until(lambda: os.path.exists(self.data("db/visuals.dat")), "the plug-ins' names")

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def area(self):
        left, top, width, height = SPECTRUM
        return self.tool_bytes("import", "-silent", "-window", self.shown_window, "-crop",
                               f"{width}x{height}+{left}+{top}", "-depth", "8", "rgb:-")

    def choose(self, steps):
        self.tool("xdotool", "mousemove", "--window", self.shown_window, "200", "85", "click",
                  "3")
        self.wait_until(lambda: len(self.shown("--class", "tovik")) > 1, "the menu")
        self.tool("xdotool", "key", *["Down"] * steps, "Return")
        self.wait_until(lambda: len(self.shown("--class", "tovik")) == 1, "the menu to go")
        self.tool("xdotool", "mousemove", "--window", self.shown_window, "10", "60")

    def moves(self):
        first = self.area()
        end = time.monotonic() + 1
        while time.monotonic() < end:
            if self.area() != first:
                return True
        return False

    def switches(self):
        """How often the program was woken so far."""
        with open(f"/proc/{self.player.pid}/status", encoding="ascii") as file:
            return int(re.search(r"\nvoluntary_ctxt_switches:\s*(\d+)", file.read()).group(1))

    def helpers(self):
        """The processes in which plug-ins draw."""
        return children_of(self.player.pid, "tovik-vis-host run")

    def colours(self):
        picture = self.area()
        return len({picture[i:i + 3] for i in range(0, len(picture), 3)})


class Visualisation(Stage):
    def test_the_menu_switches_bars_and_none(self):
        self.assertFalse(self.moves())
        bare = self.area()
        self.choose(BARS)
        self.wait_until(lambda: self.area() != bare, "the bars")
        self.assertTrue(self.moves())
        self.wait_until(lambda: WHITE * 4 in self.area(), "a mark")
        self.keep_screenshot("spectrum.png")
        self.choose(NONE)
        self.wait_until(lambda: self.area() == bare, "the bare window")
        self.assertFalse(self.moves())
        self.choose(BARS)
        self.end()
        self.assertIn(b"<CVP>0</CVP>", self.read("db/settings.xml"))

    def test_pause_stands_still_and_stop_clears(self):
        bare = self.area()
        self.choose(BARS)
        self.wait_until(self.moves, "the bars")
        self.tool("xdotool", "key", "c")
        time.sleep(0.3)
        self.assertFalse(self.moves())
        self.assertNotEqual(self.area(), bare)
        self.tool("xdotool", "key", "c")
        self.wait_until(self.moves, "the bars after the pause")
        self.tool("xdotool", "key", "v")
        self.wait_until(lambda: self.area() == bare, "the bare window")
        self.end()

    def test_minimised_it_rests_and_goes_on_when_it_is_back(self):
        self.choose(BARS)
        self.wait_until(self.moves, "the bars")
        before = self.switches()
        time.sleep(2)
        shown = self.switches() - before
        self.tool("xdotool", "windowminimize", "--sync", self.shown_window)
        time.sleep(0.5)
        before = self.switches()
        time.sleep(2)
        self.assertLess(self.switches() - before, shown - 30)  # of 50 ticks
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        self.wait_until(self.moves, "the bars after the return")
        self.end()

    def test_each_plugin_is_chosen_from_the_menu(self):
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

    def screens(self):
        return [window for window in self.shown("--class", "tovik")
                if '"visualisation"' in self.tool("xprop", "-id", window, "WM_WINDOW_ROLE").stdout]

    def test_a_double_click_shows_it_on_the_whole_screen(self):
        self.choose(AURORA)
        self.wait_until(self.moves, "the plug-in")
        for leave in (("key", "Escape"), ("click", "--repeat", "2", "--delay", "60", "1")):
            self.tool("xdotool", "mousemove", "--window", self.shown_window, "200", "85", "click",
                      "--repeat", "2", "--delay", "60", "1")
            screen = self.first(self.screens, "the whole screen")
            geometry = self.tool("xdotool", "getwindowgeometry", screen).stdout
            self.assertIn("1024x768", geometry)
            self.tool("xdotool", "windowactivate", "--sync", screen)
            time.sleep(0.3)
            self.keep_screenshot("full_screen.png")
            self.tool("xdotool", *leave)
            self.wait_until(lambda: not self.screens(), "the end of the whole screen")
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        self.wait_until(self.moves, "the plug-in in the window")
        self.end()


class Hanging(Stage):
    """A plug-in that draws two pictures and then hangs."""
    own_plugin = "endless_loop"

    def test_it_costs_its_picture_only(self):
        bare = self.area()
        screen = Pointer(self.environment["DISPLAY"], self.tool)
        self.choose(BAD)
        self.wait_until(self.helpers, "the plug-in")
        # While it hangs, a button of the window answers.
        self.assertLess(statistics.median(screen.answers(self.shown_window) for _ in range(5)), 0.05)
        self.wait_until(lambda: not self.helpers(), "the end of the plug-in")
        self.assertNotEqual(self.area(), bare)  # it is told
        self.keep_screenshot("plugin_ended.png")
        self.choose(BARS)
        self.wait_until(self.moves, "the bars")
        self.end()


class Pointer:
    """The mouse and one pixel of the screen, fast enough to be measured."""
    Z_PIXMAP = 2
    BUTTON = (138, 284)  # Stop, in the window

    def __init__(self, display, tool):
        self.tool = tool
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.xtst = ctypes.CDLL("libXtst.so.6")
        for function in ("XOpenDisplay", "XGetImage"):
            getattr(self.x11, function).restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XGetPixel.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(display.encode()))
        self.root = self.x11.XDefaultRootWindow(self.display)

    def pixels(self, left, top):
        image = ctypes.c_void_p(self.x11.XGetImage(
            self.display, ctypes.c_ulong(self.root), left - 6, top - 6, 12, 12,
            ctypes.c_ulong(0xFFFFFFFF), self.Z_PIXMAP))
        pixels = [self.x11.XGetPixel(image, x, y) & 0xFFFFFF for x in range(12) for y in range(12)]
        self.x11.XDestroyImage(image)
        return pixels

    def move(self, left, top):
        self.xtst.XTestFakeMotionEvent(self.display, -1, left, top, 0)
        self.x11.XFlush(self.display)

    def answers(self, window):
        """Seconds until a button looks different because the mouse came over it."""
        place = dict(line.split("=") for line in
                     self.tool("xdotool", "getwindowgeometry", "--shell", window).stdout.split())
        left, top = int(place["X"]) + self.BUTTON[0], int(place["Y"]) + self.BUTTON[1]
        self.move(left, top - 60)
        time.sleep(0.1)
        before = self.pixels(left, top)
        began = time.monotonic()
        self.move(left, top)
        while self.pixels(left, top) == before and time.monotonic() - began < LIMIT:
            time.sleep(0.001)
        return time.monotonic() - began


if __name__ == "__main__":
    unittest.main()
