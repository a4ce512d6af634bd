# SPDX-License-Identifier: GPL-3.0-or-later
"""More of the radio: addresses from elsewhere, stations that are dead or mean harm."""
import os
import socket
import threading
import time
import unittest

from radio import FIRST_ROW, PANEL, PLAY, SAVE, RadioTest

TITLES = ("../../x", "..", "/etc/x", "CON", "a/../../b", "t" * 4060, "\x01\x7f")
INTERVAL = 4000


class MoreRadio(RadioTest):
    def test_a_station_plays_tells_its_titles_and_stops(self):
        self.start()
        self.play_first_station()
        self.wait_for_sound()
        self.station.title("Ann - First song")
        self.wait_for_caption("Ann - First song")
        self.station.title("Bob - Second song")
        self.wait_for_caption("Bob - Second song")
        self.tool("xdotool", "key", "1")
        time.sleep(0.5)
        self.keep_screenshot("radio_main.png")
        self.tool("xdotool", "key", "5")
        time.sleep(0.5)
        self.keep_screenshot("radio_panel.png")
        self.tool("xdotool", "key", "v")
        self.wait_for_silence()
        self.click(PLAY)
        self.wait_for_sound()
        self.end()
        self.assertIn(b"NumberOfEntries=2\r\n", self.read("db/stations.dat"))

    def test_an_address_of_the_command_line_is_played(self):
        self.start(self.station.address)
        self.wait_for_sound()
        self.end()

    def test_a_dead_station_leaves_the_player_at_hand(self):
        self.start()
        self.click(PANEL)
        time.sleep(0.3)
        self.click((FIRST_ROW[0], FIRST_ROW[1] + 16), "--repeat", "2", "--delay", "60")
        time.sleep(2)
        self.click(FIRST_ROW)
        self.click(PLAY)
        self.wait_for_sound()
        self.end()

    def serve(self, answer):
        """The address of a server that does `answer` with each connection."""
        listener = self.stack.enter_context(socket.create_server(("127.0.0.1", 0)))

        def accept():
            while True:
                try:
                    peer = listener.accept()[0]
                    peer.recv(65536)
                    threading.Thread(target=self.quietly, args=(answer, peer), daemon=True).start()
                except OSError:
                    return

        threading.Thread(target=accept, daemon=True).start()
        return f"http://127.0.0.1:{listener.getsockname()[1]}/"

    @staticmethod
    def quietly(answer, peer):
        try:
            answer(peer)
        except OSError:
            pass

    def send_odd_titles(self, peer):
        """Half a second of the song for each title, in real time."""
        peer.sendall(b"ICY 200 OK\r\nContent-Type: audio/mpeg\r\nicy-br:128\r\n"
                     b"icy-metaint:%d\r\n\r\n" % INTERVAL)
        with open(self.song, "rb") as file:
            for block in range(10_000):
                title = b""
                if block % 4 == 0:
                    words = TITLES[block // 4 % len(TITLES)].encode()
                    title = b"StreamTitle='" + words + b"';"
                title += b"\0" * (-len(title) % 16)
                peer.sendall(file.read(INTERVAL) + bytes([len(title) // 16]) + title)
                time.sleep(INTERVAL / 16_000)

    def everything(self):
        return {os.path.join(place, name) for place, _, names in os.walk(self.folder)
                for name in names}

    def test_titles_lead_no_song_out_of_its_folder(self):
        address = self.serve(self.send_odd_titles)
        self.start(address)
        self.wait_for_sound()
        before = self.everything()
        self.tool("xdotool", "key", "5")
        time.sleep(0.3)
        self.click(SAVE)
        # "/etc/x" may be written by whom this runs as: it must not be there, either.
        self.wait_until(lambda: os.path.exists(self.data("etcx.mp3")), "the third title's song")
        self.wait_until(lambda: os.path.exists(self.data("t" * 251 + ".mp3")), "the long one")
        self.end()
        new = self.everything() - before
        self.assertGreaterEqual(len(new), 4)
        for path in new:
            self.assertEqual(os.path.dirname(path), self.data("").rstrip("/"))
        self.assertFalse(os.path.exists("/etc/x.mp3"))


if __name__ == "__main__":
    unittest.main()
