# SPDX-License-Identifier: GPL-3.0-or-later
"""What the tests of visualisations share: the player with a track of noise, a recorder of what is heard
of it, the strip in which something moves, and a mouse that is fast enough to be
measured."""
import contextlib
import ctypes
import os
import random
import re
import shutil
import signal
import subprocess
import threading
import time
import wave

from program import LIMIT, PROGRAM, ProgramTest, children_of

SPECTRUM = (112, 74, 166, 24)  # left, top, width, height in the window
MINI = (40, 68, 70, 16)  # likewise in the mini window
NONE, BARS, OWN = 1, 2, 3  # steps down in the menu; the user's own plug-ins, then those that came along
AURORA, OSCILLOSCOPE, SPECTROGRAM = 3, 4, 5  # without any of the user's own
STILL = 0.4  # seconds in which nothing moves, of ten pictures
FAULTS = os.environ.get("TOVIK_FAULTY_VIS", "")
RATE = 44100
SECONDS = 90  # of the track, longer than any test
WHITE = b"\xff\xff\xff"
QUICK = 0.05  # seconds within which the window answers
MEASURED = 5  # answers in a row


class Strip:
    """What is seen of a visualisation, and what can be done to it; for a test of the program."""
    strip = SPECTRUM

    def area(self):
        left, top, width, height = self.strip
        return self.tool_bytes("import", "-silent", "-window", self.shown_window, "-crop",
                               f"{width}x{height}+{left}+{top}", "-depth", "8", "rgb:-")

    def choose(self, steps):
        """That entry of the menu of the window that is shown."""
        left, top, width, height = self.strip
        self.tool("xdotool", "mousemove", "--window", self.shown_window, str(left + width // 2),
                  str(top + height // 2), "click", "3")
        self.wait_until(lambda: len(self.shown("--class", "tovik")) > 1, "the menu")
        self.tool("xdotool", "key", *["Down"] * steps, "Return")
        self.wait_until(lambda: len(self.shown("--class", "tovik")) == 1, "the menu to go")
        self.tool("xdotool", "mousemove", "--window", self.shown_window, "10", "60")

    def moves(self, seconds=1.0):
        """Whether something does within that time, which is that of many pictures."""
        first = self.area()
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            if self.area() != first:
                return True
        return False

    def switches(self):
        """How often the program was woken so far."""
        with open(f"/proc/{self.player.pid}/status", encoding="ascii") as file:
            return int(re.search(r"\nvoluntary_ctxt_switches:\s*(\d+)", file.read()).group(1))

    def whole_screens(self):
        return self.windows_of_role("visualisation")

    def helpers(self):
        """The processes in which plug-ins draw."""
        return children_of(self.player.pid, "tovik-vis-host run")

    def rest(self):
        """How often the program is woken in three seconds."""
        before = self.switches()
        time.sleep(3)
        return self.switches() - before

    def told(self, name):
        """Whether it was noted that this plug-in is at its end."""
        log = self.data("db/err.log")
        return os.path.exists(log) and (name + ".svp)").encode() in self.read("db/err.log")

    def answers_beside(self, begin, stays=False):
        """The window answers while a plug-in does what it does; one that hangs stays so long. A
        window that is slow because of the plug-in is so each time, a machine that is busy with
        something else is not."""
        pointer = Pointer(self.environment["DISPLAY"], self.tool)
        rounds = []
        for _ in range(3):
            begin()
            before = self.helpers()
            rounds.append([pointer.answers(self.shown_window) for _ in range(MEASURED)])
            stayed = bool(before) and before == self.helpers()
            if max(rounds[-1]) < QUICK and (stayed or not stays):
                return
        self.fail(f"answered in {rounds}, or did not stay")

    def colours(self):
        picture = self.area()
        return len({picture[i:i + 3] for i in range(0, len(picture), 3)})


class Stage(Strip, ProgramTest):
    """The player with such a track twice."""
    own = ()  # the faults of plug-ins in the data folder
    speed = b"40"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        # No two parts of noise are alike.
        cls.sound = random.Random(7).randbytes(4 * RATE * SECONDS)

    def setUp(self):
        super().setUp()
        # As a first run leaves it, which would take a second longer.
        shutil.copytree(os.path.join(os.path.dirname(PROGRAM), "data"), self.data(""))
        os.makedirs(self.data("Plugins/Vis"), exist_ok=True)
        for fault in self.own:
            shutil.copy(os.path.join(FAULTS, fault + ".svp"), self.data("Plugins/Vis"))
        self.setting(b"VPS", self.speed)
        self.setting(b"CVL", b"100")
        self.start_screen()
        self.start_window_manager()
        song = self.path("song.wav")
        with wave.open(song, "wb") as file:
            file.setnchannels(2)
            file.setsampwidth(2)
            file.setframerate(RATE)
            file.writeframes(self.sound)
        with open(self.path("list.m3u"), "w", encoding="utf-8") as file:
            file.write(f"#EXTM3U\n#EXTINF:{SECONDS},one\n{song}\n#EXTINF:{SECONDS},two\n{song}\n")

    def play(self, *words):
        self.player = self.start_program(*words, self.path("list.m3u"))
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        # Plug-ins are looked for once the start is over.
        self.wait_until(self.listed, "the plug-ins' names")

    def listed(self):
        known = self.data("db/visuals.dat")
        return os.path.exists(known) and b"spectrogram" in self.read("db/visuals.dat")

    @contextlib.contextmanager
    def recorded(self):
        """All that is heard meanwhile, which is part of the track: not a sample more or less."""
        self.wait_until(lambda: self.streams() == 1, "the sound")
        recorder = subprocess.Popen(
            ["parec", "-d", "nowhere.monitor", "--raw", "--format=s16le", f"--rate={RATE}",
             "--channels=2"], env=self.environment, stdout=subprocess.PIPE)
        heard = []
        reader = threading.Thread(target=lambda: heard.append(recorder.stdout.read()))
        reader.start()
        began = time.monotonic()
        try:
            yield
        finally:
            passed = time.monotonic() - began
            recorder.send_signal(signal.SIGTERM)
            reader.join()
            recorder.wait()
            recorder.stdout.close()
        heard = heard[0][:len(heard[0]) // 4 * 4]
        # The beginning may come before the sound.
        heard = heard.lstrip(b"\0")
        heard = heard[len(heard) % 4:]
        self.assertGreater(len(heard), 4 * RATE * (passed - 1.5), "of the sound")
        first = self.sound.find(heard[:400])
        self.assertGreaterEqual(first, 0, "a beginning that is in the track")
        self.assertTrue(heard == self.sound[first:first + len(heard)], self.where(heard, first))

    def where(self, heard, first):
        place = next((i for i in range(len(heard)) if heard[i] != self.sound[first + i]), 0)
        return f"after {place // 4 / RATE:.2f} s the sound is another"

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)


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
