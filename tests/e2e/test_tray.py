# SPDX-License-Identifier: GPL-3.0-or-later
"""The icon in the tray, on the desktop's bus and in a tray of the window system; hiding and coming
back; the title popup."""
import os
import re
import subprocess
import time
import unittest

from program import ProgramTest, media

SONG = media("wav_s16_44100_stereo.wav")
MINIMISE = (413, 18)  # of the main window
HOST = os.path.join(os.path.dirname(os.path.abspath(__file__)), "notifier_host.py")


class Tray(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()

    def start_host(self, *first):
        """Becomes what desktops with icons have; answers to `host`."""
        self.helper = subprocess.Popen(["/usr/bin/python3", HOST], env=self.environment, text=True,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.stack.callback(self.helper.communicate)
        self.stack.callback(self.helper.kill)
        self.assertEqual(self.helper.stdout.readline().strip(), "ready")
        for command in first:
            self.host(command)

    def host(self, *words):
        self.helper.stdin.write(" ".join(words) + "\n")
        self.helper.stdin.flush()
        return self.helper.stdout.readline().strip()

    def minimise(self):
        self.tool("xdotool", "mousemove", "--window", self.main, *map(str, MINIMISE), "click", "1")

    def minimised(self):
        state = self.tool("xprop", "-id", self.main, "WM_STATE").stdout
        return "Iconic" in state

    def hidden(self):
        """Neither on the screen nor on the task bar: the window manager knows it no more."""
        return "not found" in self.tool("xprop", "-id", self.main, "WM_STATE").stdout

    def item(self):
        return self.first(lambda: [i for i in [self.host("items")] if i], "the icon")

    def prepare(self, **settings):
        """Fills the data folder, and changes settings in it."""
        self.start_shown(SONG)
        self.end_shown()
        for key, value in settings.items():
            self.setting(key.encode(), value.encode())

    def volume(self):
        return int(re.search(rb"<CVL>(\d+)</CVL>", self.read("db/settings.xml")).group(1))

    def test_an_icon_on_the_bus(self):
        self.start_bus()
        self.start_host("up")
        self.start_shown(SONG)
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
        self.assertIn("wav_s16_44100_stereo", self.host("get", "ToolTip"))
        # Minimise hides: the icon is the way back.
        self.wait_until(self.taken, "the tray to have the icon")
        self.host("call", "Activate")
        self.wait_until(self.player_windows, "the window")
        # The wheel is the volume, the middle button the pause.
        volume = self.volume()
        self.host("scroll", "-120")
        self.wait_until(lambda: self.volume() == volume - 5, "the volume")
        self.host("call", "ContextMenu")
        menu = self.first(lambda: [w for w in self.shown("--class", "tovik") if w != self.main],
                          "the menu")
        self.assertTrue(menu)
        self.keep_screenshot("tray-menu.png")
        self.tool("xdotool", "key", "Escape")
        # It is taken away before the program is gone.
        self.end_shown()
        self.assertEqual(self.host("items"), "")

    def taken(self):
        """Minimise hides the window once the host has the icon, and not before."""
        if self.hidden():
            return True
        if self.minimised():
            self.tool("xdotool", "windowactivate", "--sync", self.main)
        self.minimise()
        time.sleep(0.15)
        return self.hidden()

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

    def test_a_tray_of_the_window_system(self):
        if not self.has("trayer"):
            self.fail("trayer is not installed")
        self.start_shown(SONG)
        time.sleep(0.4)
        # It comes while the player runs.
        tray = subprocess.Popen(["trayer", "--edge", "bottom", "--align", "right", "--width", "20"],
                                env=self.environment, stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)
        self.stack.callback(tray.wait)
        self.stack.callback(tray.kill)

        def icons():
            return [w for w in self.shown("--class", "tovik") if w != self.main]

        icon = self.first(icons, "the icon")
        self.keep_screenshot("trayer.png")
        self.wait_until(self.taken, "the window to be hidden")
        self.tool("xdotool", "mousemove", "--window", icon, "8", "8", "click", "1")
        self.wait_until(self.player_windows, "the window")
        volume = self.volume()
        self.tool("xdotool", "mousemove", "--window", icon, "8", "8", "click", "5")
        self.wait_until(lambda: self.volume() == volume - 5, "the volume")
        self.wait_until(self.taken, "the window to be hidden")
        tray.kill()
        self.wait_until(self.player_windows, "the window")
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
