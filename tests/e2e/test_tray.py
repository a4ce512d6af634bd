# SPDX-License-Identifier: GPL-3.0-or-later
"""The icon in the tray, on the desktop's bus and in a tray of the window system; hiding and coming
back; the title popup."""
import re
import subprocess
import time
import unittest
import wave

from notifier import NotifierTest
from program import LIMIT, media, odd

SONG = media("wav_s16_44100_stereo.wav")
MINIMISE, CLOSE = (413, 18), (433, 18)  # of the main window

# Takes the selection by the X library itself: there is no tool that would.
IDLE_TRAY = """
import ctypes, time
x11 = ctypes.CDLL("libX11.so.6")
x11.XOpenDisplay.restype = ctypes.c_void_p
display = ctypes.c_void_p(x11.XOpenDisplay(None))
x11.XDefaultRootWindow.restype = ctypes.c_ulong
x11.XCreateSimpleWindow.restype = ctypes.c_ulong
x11.XInternAtom.restype = ctypes.c_ulong
root = ctypes.c_ulong(x11.XDefaultRootWindow(display))
window = x11.XCreateSimpleWindow(display, root, 0, 0, 1, 1, 0, ctypes.c_ulong(0), ctypes.c_ulong(0))
atom = x11.XInternAtom(display, b"_NET_SYSTEM_TRAY_S0", 0)
x11.XSetSelectionOwner(display, ctypes.c_ulong(atom), ctypes.c_ulong(window), ctypes.c_ulong(0))
x11.XSync(display, 0)
print("ready", flush=True)
time.sleep(60)
"""


class Tray(NotifierTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()

    def silence(self):
        """A file that plays longer than a test."""
        path = self.path("silence.wav")
        with wave.open(path, "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(8000)
            file.writeframes(bytes(2 * 8000 * 60))
        return path

    def remote(self, method, *words):
        """What the player's remote control answers."""
        return self.tool("dbus-send", "--print-reply", "--dest=org.mpris.MediaPlayer2.tovik",
                         "/org/mpris/MediaPlayer2", method, *words).stdout

    def plays(self):
        """Playing, Paused or Stopped."""
        said = self.remote("org.freedesktop.DBus.Properties.Get",
                           "string:org.mpris.MediaPlayer2.Player", "string:PlaybackStatus")
        return re.search(r'"(\w+)"', said).group(1)

    def menus(self, *others):
        return [w for w in self.shown("--class", "tovik") if w not in (self.main, *others)]

    def minimise(self):
        self.tool("xdotool", "mousemove", "--window", self.main, *map(str, MINIMISE), "click", "1")

    def minimised(self):
        state = self.tool("xprop", "-id", self.main, "WM_STATE").stdout
        return "Iconic" in state

    def hidden(self):
        """Neither on the screen nor on the task bar: the window manager knows it no more."""
        return "not found" in self.tool("xprop", "-id", self.main, "WM_STATE").stdout

    def prepare(self, **settings):
        """Fills the data folder, and changes settings in it."""
        self.start_shown(SONG)
        self.end_shown()
        for key, value in settings.items():
            self.setting(key.encode(), value.encode())

    def volume(self):
        return int(re.search(rb"<CVL>(\d+)</CVL>", self.read("db/settings.xml")).group(1))

    @odd
    def test_an_icon_on_the_bus(self):
        self.start_bus()
        self.start_host("up")
        watched = self.path("calls")
        with open(watched, "wb") as file:
            monitor = subprocess.Popen(["dbus-monitor", "member='ReleaseName'"],
                                       env=self.environment, stdout=file)
        self.stack.callback(monitor.wait)
        self.stack.callback(monitor.kill)
        self.start_shown(self.silence())
        service = self.item()
        self.assertEqual(service, f"org.kde.StatusNotifierItem-{self.player.pid}-1")
        self.assertEqual(self.host("get", "Id"), "'tovik'")
        self.assertEqual(self.host("get", "Status"), "'Active'")
        self.assertEqual(self.host("get", "Category"), "'ApplicationStatus'")
        self.assertEqual(self.host("get", "Menu"), "'/NO_DBUSMENU'")
        self.assertEqual(self.host("get", "ItemIsMenu"), "False")
        pictures = eval(self.host("get", "IconPixmap"))  # noqa: S307: our own helper wrote it
        self.assertEqual([(w, h, n) for w, h, n in pictures if n == 4 * w * h], pictures)
        self.assertGreaterEqual(len(pictures), 4)
        # The tooltip tells what plays.
        self.assertIn("silence", self.host("get", "ToolTip"))
        # Minimise hides: the icon is the way back.
        self.wait_until(self.taken, "the tray to have the icon")
        self.assertEqual(self.host("token", "seat"), "ok")
        self.host("call", "Activate")
        self.wait_until(self.player_windows, "the window")
        # The wheel is the volume, the middle button the pause.
        volume = self.volume()
        self.host("scroll", "-120")
        self.wait_until(lambda: self.volume() == volume - 5, "the volume")
        self.assertEqual(self.plays(), "Playing")
        self.host("call", "SecondaryActivate")
        self.wait_until(lambda: self.plays() == "Paused", "the pause")
        self.host("call", "SecondaryActivate")
        self.wait_until(lambda: self.plays() == "Playing", "the end of the pause")
        # The menu comes where the host wants it, and does what it says.
        self.host("call", "ContextMenu")
        menu = self.first(self.menus, "the menu")
        said = self.tool("xdotool", "getwindowgeometry", "--shell", menu).stdout
        self.assertIn("X=10\nY=10\n", said)
        self.keep_screenshot("tray-menu.png")
        self.tool("xdotool", "key", "Escape")
        self.wait_until(lambda: not self.menus(), "the end of the menu")
        # Without a track it tells the program.
        self.host("changes")
        self.remote("org.mpris.MediaPlayer2.Player.Stop")
        self.wait_until(lambda: "Tovik version" in self.host("get", "ToolTip"), "the version")
        self.assertIn("NewToolTip", self.host("changes"))
        # It is taken away by the program, not by its end.
        self.tool("xdotool", "mousemove", "--window", self.main, *map(str, CLOSE), "click", "1")
        self.assertEqual(self.player.wait(LIMIT), 0)
        self.assertEqual(self.host("items"), "")

        def released():
            with open(watched, "rb") as file:
                return service.encode() in file.read()

        self.wait_until(released, "the release")

    def taken(self):
        """Minimise hides the window once the host has the icon, and not before."""
        if self.hidden():
            return True
        if self.minimised():
            self.tool("xdotool", "windowactivate", "--sync", self.main)
        self.minimise()
        time.sleep(0.15)
        return self.hidden()

    @odd
    def test_a_host_goes_and_comes_back(self):
        self.start_bus()
        self.start_host()
        self.start_shown(SONG)
        time.sleep(0.5)
        # Nobody shows icons: the window goes down to the task bar.
        self.minimise()
        self.wait_until(self.minimised, "the window to be minimised")
        self.tool("xdotool", "windowactivate", "--sync", self.main)
        # A watcher without a host is none.
        self.host("alone")
        time.sleep(0.3)
        self.assertEqual(self.host("items"), "")
        self.host("host")
        self.item()
        self.wait_until(self.taken, "the window to be hidden")
        # With the tray goes the way back, so the window comes.
        self.host("down")
        self.wait_until(self.player_windows, "the window")
        self.host("up")
        self.item()
        self.wait_until(self.taken, "the window to be hidden")
        # A second start is another way back.
        second = self.run_program("--device", "silent")
        self.assertEqual(second.returncode, 0)
        self.wait_until(self.player_windows, "the window")
        self.wait_until(self.taken, "the window to be hidden")
        # The bus itself may go.
        self.helper.kill()
        self.wait_until(self.player_windows, "the window")
        self.end_shown()

    def test_a_crash_leaves_no_icon(self):
        self.start_bus()
        self.start_host("up")
        self.start_shown(SONG)
        self.item()
        self.player.kill()
        self.wait_until(lambda: self.host("items") == "", "the icon to go")

    @odd
    def test_a_tray_of_the_window_system(self):
        if not self.has("trayer"):
            self.fail("trayer is not installed")
        self.start_bus()  # without a host: for the remote control
        self.start_shown(self.silence())
        time.sleep(0.4)
        # It comes while the player runs.
        tray = subprocess.Popen(["trayer", "--edge", "bottom", "--align", "right", "--width", "20"],
                                env=self.environment, stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)
        self.stack.callback(tray.wait)
        self.stack.callback(tray.kill)

        icon = self.first(self.menus, "the icon")

        def on_icon(*words):
            self.tool("xdotool", "mousemove", "--window", icon, "8", "8", "click", *words)

        self.keep_screenshot("trayer.png")
        self.wait_until(self.taken, "the window to be hidden")
        on_icon("1")
        self.wait_until(self.player_windows, "the window")
        volume = self.volume()
        on_icon("5")
        self.wait_until(lambda: self.volume() == volume - 5, "the volume")
        on_icon("2")
        self.wait_until(lambda: self.plays() == "Paused", "the pause")
        time.sleep(0.5)  # two clicks, not a double one
        on_icon("2")
        self.wait_until(lambda: self.plays() == "Playing", "the end of the pause")
        on_icon("3")
        self.wait_until(lambda: self.menus(icon), "the menu")
        self.tool("xdotool", "key", "Escape")
        self.wait_until(lambda: not self.menus(icon), "the end of the menu")
        # A double click is one that shows the window, and no more.
        self.wait_until(self.taken, "the window to be hidden")
        on_icon("--repeat", "2", "--delay", "40", "1")
        self.wait_until(self.player_windows, "the window")
        self.wait_until(self.taken, "the window to be hidden")
        tray.kill()
        self.wait_until(self.player_windows, "the window")
        self.end_shown()

    def test_a_tray_that_takes_no_icon_is_none(self):
        """It owns the selection of trays, and never takes a window in."""
        owner = subprocess.Popen(["/usr/bin/python3", "-c", IDLE_TRAY], env=self.environment,
                                 stdout=subprocess.PIPE, text=True)
        self.stack.callback(owner.communicate)
        self.stack.callback(owner.kill)
        self.assertEqual(owner.stdout.readline().strip(), "ready")
        self.start_shown(SONG)
        time.sleep(1.5)
        self.minimise()
        self.wait_until(self.minimised, "the window to be minimised")
        self.assertFalse(self.hidden())
        self.end_shown()

    def test_without_any_tray(self):
        # No bus at all, and one that nobody answers on.
        for address in (None, "unix:path=" + self.path("nobody")):
            with self.subTest(address=address):
                if address:
                    self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
                self.start_shown(SONG)
                time.sleep(0.3)
                self.minimise()
                self.wait_until(self.minimised, "the window to be minimised")
                self.end_shown()

    def test_with_neither_tray_nor_task_bar_the_window_stays(self):
        self.prepare(SHI="00")
        self.start_shown(SONG)
        self.minimise()
        time.sleep(0.5)
        self.assertTrue(self.player_windows())
        self.end_shown()

    @odd
    def test_a_track_is_told_across_the_screen(self):
        self.prepare(OSD="1")
        self.start_shown(SONG)
        bar = self.first(lambda: self.windows_of_role("title"), "the bar")
        said = self.tool("xdotool", "getwindowgeometry", "--shell", bar).stdout
        for fact in ("X=0", "Y=0", "WIDTH=1024", "HEIGHT=37"):
            self.assertIn(fact + "\n", said)
        opacity = self.tool("xprop", "-id", bar, "_NET_WM_WINDOW_OPACITY").stdout
        self.assertAlmostEqual(int(opacity.split("=")[1]) / 0xFFFFFFFF, 76 / 255, places=2)
        self.keep_screenshot("title.png")
        # What lies below takes the mouse, and the keyboard stays where it was.
        self.tool("xdotool", "mousemove", "500", "20")
        under = re.search(r"WINDOW=(\d+)", self.tool("xdotool", "getmouselocation", "--shell").stdout)
        self.assertNotEqual(under.group(1), bar)
        self.assertNotEqual(self.tool("xdotool", "getwindowfocus").stdout.strip(), bar)
        shown = time.monotonic()
        self.wait_until(lambda: not self.windows_of_role("title"), "the end of the bar")
        self.assertLess(time.monotonic() - shown, 4)
        self.end_shown()


if __name__ == "__main__":
    unittest.main()
