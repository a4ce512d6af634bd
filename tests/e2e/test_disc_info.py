# SPDX-License-Identifier: GPL-3.0-or-later
"""What is known of a disc: a real image of a disc, a real server, the dialog by the keyboard."""
import glob
import http.server
import os
import signal
import threading
import time
import unittest
import urllib.parse

from program import LIMIT, ProgramTest, media

TITLES = {"English": "Disc information", "Slovenian": "Podatki o disku"}
MATCHES = "Which disc is it?"
SMALLEST_SCREEN = (1024, 600)
SECTOR = 2352
SECONDS = 4  # of each of the two tracks
DISC = "08000802"  # it starts at 2 and 6 s, which sum up to 8; 10 s in all, less 2
CONTENTS = "2+150+450+10"
ENTRY = ("210 rock 08000802 follows\r\nDTITLE=The Artist / The Album\r\nDYEAR=1999\r\n"
         "DGENRE=Rock\r\nTTITLE0=Prvi čas\r\nTTITLE1=Two\r\n.\r\n")
KEPT = ("DISCID=%s\r\nDTITLE=The Album\r\nDARTIST=The Artist\r\nDYEAR=1999\r\nDGENRE=Rock\r\n"
        "TTITLE0=Prvi čas\r\nTTITLE1=Two\r\n")


class Server:
    """Answers a query as it is told, a read with an entry; keeps what it was asked."""

    def __init__(self, stack):
        self.asked = []
        self.query = "202 No match\r\n"
        self.quiet = threading.Event()
        outer = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                command = urllib.parse.urlsplit(self.path).query
                outer.asked.append(command)
                if outer.query is None:
                    outer.quiet.wait(LIMIT)
                    return
                answer = (ENTRY if "cddb+read" in command else outer.query).encode()
                self.send_response(200)
                self.end_headers()
                self.wfile.write(answer)

            def log_message(self, *_):
                pass

        self.http = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.http.daemon_threads = True
        threading.Thread(target=self.http.serve_forever, daemon=True).start()
        stack.callback(self.http.server_close)
        stack.callback(self.http.shutdown)
        stack.callback(self.quiet.set)

    @property
    def host(self):
        return "127.0.0.1:%d" % self.http.server_port


@unittest.skipIf(glob.glob("/dev/sr[0-9]*"), "the dialog speaks of the first drive, a real one")
class DiscInfo(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()
        self.title = TITLES["English"]
        self.server = Server(self.stack)
        self.image = self.path("disc.cue")
        with open(self.path("disc.bin"), "wb") as file:
            file.truncate(2 * SECONDS * 75 * SECTOR)
        with open(self.image, "w", encoding="ascii") as file:
            file.write('FILE "disc.bin" BINARY\n'
                       "  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n"
                       "  TRACK 02 AUDIO\n    INDEX 01 00:%02d:00\n" % SECONDS)
        self.lay_data()

    def lay_data(self):
        """A data folder with our server and a key that opens the dialog."""
        self.run_program("--render", self.path("out.wav"), "--seconds", "0.1",
                         media("wav_s16_44100_stereo.wav"))
        self.name_server(self.server.host)
        with open(self.data("db/shortcuts.dat"), "wb") as file:
            file.write(b"\0[Pelmo-Menus-Shortcuts]\0[V-1-0-0]\0K\0mnuRipAll\0Ctrl+Shift+R\0")

    def name_server(self, host):
        with open(self.data("CDDB/server.ini"), "w", encoding="ascii") as file:
            file.write("[server]\nhost=%s\nmail=\n" % host)

    def start(self, scale=1):
        self.environment["QT_SCALE_FACTOR"] = str(scale)
        self.player = self.start_program("--device", "silent", "--cd", self.image)
        window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", window)
        self.key("4")  # the ripper's panel lists the tracks
        time.sleep(0.15)

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def key(self, *keys):
        self.tool("xdotool", "key", "--clearmodifiers", *keys)

    def active(self):
        return self.tool("xdotool", "getactivewindow").stdout.strip()

    def open_dialog(self):
        self.key("ctrl+shift+r")
        dialog = self.box(self.title)
        self.wait_until(lambda: self.active() == dialog, "the dialog to come to the front")
        return dialog

    def close_dialog(self):
        self.key("Escape")
        self.wait_until(lambda: not self.boxes(self.title), "the end of the dialog")

    def kept(self):
        path = self.data("CDDB/" + DISC)
        return self.read(path).decode() if os.path.exists(path) else None

    def test_an_exact_match_is_kept_and_there_the_next_time(self):
        self.server.query = "200 rock %s The Artist / The Album\r\n" % DISC
        with open(self.data("db/settings.xml"), "r+b") as file:
            text = file.read().replace(b"</Settings>", b"<CDSEARCH>1</CDSEARCH></Settings>")
            file.seek(0)
            file.write(text)
        self.start()
        self.open_dialog()
        self.wait_until(lambda: self.kept() == KEPT % DISC, "the search by itself")
        self.keep_screenshot("disc-info-found.png")
        self.assertEqual(self.server.asked[0].split("&"), [
            "cmd=cddb+query+%s+%s" % (DISC, CONTENTS),
            "hello=anonymous+localhost+Tovik+Tovik_0_Build_1", "proto=6"])
        self.close_dialog()
        self.open_dialog()
        time.sleep(0.15)
        self.keep_screenshot("disc-info-kept.png")
        self.assertEqual(len(self.server.asked), 2, "nothing is searched that is kept")
        os.remove(self.data("CDDB/" + DISC))
        self.key("alt+s")
        self.wait_until(lambda: self.kept() == KEPT % DISC, "the search")
        self.end()

    def test_one_of_several_is_chosen(self):
        self.server.query = "211 Found\r\nrock 1 A / B\r\nmisc 2 C / D\r\n.\r\n"
        self.start()
        self.open_dialog()
        self.key("alt+s")
        matches = self.box(MATCHES)
        self.wait_until(lambda: self.active() == matches, "the list to come to the front")
        self.keep_screenshot("disc-info-matches.png")
        self.key("Down", "Return")
        self.wait_until(lambda: len(self.server.asked) == 2, "the request for the chosen one")
        self.assertTrue(self.server.asked[1].startswith("cmd=cddb+read+misc+2&"))
        self.assertIsNone(self.kept())
        self.close_dialog()
        self.end()

    def test_silence_and_nobody_hold_nothing_up(self):
        self.server.query = None
        self.start()
        self.open_dialog()
        self.key("alt+s")
        self.wait_until(lambda: self.server.asked, "the request")
        begin = time.monotonic()
        self.close_dialog()
        self.assertLess(time.monotonic() - begin, 2)
        self.open_dialog()
        self.key("alt+s")
        self.wait_until(lambda: len(self.server.asked) == 2, "another request")
        begin = time.monotonic()
        self.end()  # with the dialog open and a search under way
        self.assertLess(time.monotonic() - begin, 2)

    def test_it_looks_right_in_both_languages_and_at_scale_two(self):
        for language, self.title in TITLES.items():
            self.setting(b"CLNG", language.encode())
            for scale in (1, 2):
                with self.subTest(language=language, scale=scale):
                    self.start(scale)
                    dialog = self.open_dialog()
                    shot = self.tool("xdotool", "getwindowgeometry", "--shell", dialog).stdout
                    size = dict(line.split("=") for line in shot.splitlines())
                    for side, most in zip(("WIDTH", "HEIGHT"), SMALLEST_SCREEN):
                        self.assertLess(int(size[side]), most * scale)
                    self.keep_screenshot("disc-info-%s-%d.png" % (language, scale))
                    self.end()


if __name__ == "__main__":
    unittest.main()
