# SPDX-License-Identifier: GPL-3.0-or-later
"""What the desktop round the player hears of it."""
import os
import socket
import struct
import unittest

from program import COMFORT, ProgramTest, media

PLAYS = "\\0Music\\01\\0{0}\\0varied.wav\\0\\0\\0\\0\0"
CLEARED = "\\0Music\\00\\0{0} - {1}\\0\\0\\0\\0\\0\0"


class Messengers(ProgramTest):
    def listen(self, name):
        folder = self.path("MsnMsgrUIManager")
        os.makedirs(folder, exist_ok=True)
        listener = socket.socket(socket.AF_UNIX)
        self.stack.callback(listener.close)
        listener.bind(os.path.join(folder, name))
        listener.listen(8)
        listener.settimeout(10)
        return listener

    def record(self, listener):
        peer, _ = listener.accept()
        data = b""
        with peer:
            while part := peer.recv(4096):
                data += part
        kind, length = struct.unpack("<II", data[:8])
        self.assertEqual(kind, 1351)
        self.assertEqual(length, len(data) - 8)
        return data[8:].decode("utf-16-le")

    def test_two_messengers_hear_of_a_track_and_of_the_end(self):
        one, two = self.listen("one"), self.listen("two")
        self.start_screen()
        self.run_program("--screenshot", self.path("fill.png"))  # fills the data folder
        self.setting(b"MSN", b"1")
        program = self.start_program("--device", "silent", media("varied.wav"))
        for listener in (one, two):
            self.assertEqual(self.record(listener), PLAYS)
        program.terminate()
        self.assertEqual(program.wait(10), 0)
        for listener in (one, two):
            told = self.record(listener)
            while COMFORT == "on" and told == PLAYS:  # once more, with what its file says
                told = self.record(listener)
            self.assertEqual(told, CLEARED)


if __name__ == "__main__":
    unittest.main()
