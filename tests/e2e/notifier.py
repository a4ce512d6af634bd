# SPDX-License-Identifier: GPL-3.0-or-later
"""What tests of the tray share: a host of icons on the private bus."""
import os
import subprocess

from program import ProgramTest

HOST = os.path.join(os.path.dirname(os.path.abspath(__file__)), "notifier_host.py")


class NotifierTest(ProgramTest):
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

    def item(self):
        return self.first(lambda: [i for i in [self.host("items")] if i], "the icon")
