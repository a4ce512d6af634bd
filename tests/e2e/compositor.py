# SPDX-License-Identifier: GPL-3.0-or-later
"""weston, a Wayland compositor: on no screen, or in windows of a private X server."""
import os
import subprocess

SOCKET = "wayland-test"


class Compositor:
    """For tests of a program."""

    def start_compositor(self, backend, *options, shell=""):
        """With these options, and further lines of its settings of the shell."""
        with open(self.path("weston.ini"), "w", encoding="ascii") as file:
            file.write("[core]\nidle-time=0\n[shell]\nlocking=false\npanel-position=none\n"
                       + shell)
        compositor = subprocess.Popen(
            ["weston", "--config=" + self.path("weston.ini"), "--socket=" + SOCKET,
             "--use-pixman", f"--backend={backend}-backend.so", *options],
            env=self.environment, cwd=self.folder, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        self.stack.callback(compositor.wait)
        self.stack.callback(compositor.kill)
        self.wait_until(lambda: os.path.exists(self.path(SOCKET)), "the compositor")
