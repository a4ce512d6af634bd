# SPDX-License-Identifier: GPL-3.0-or-later
"""What a day's script is made of: numbered steps of a user, each with what is to be seen of it."""
import os
import re
import signal
import shutil
import subprocess
import time
import wave

from program import LIMIT, media
from remote import PLAYER, PROPERTIES, ROOT, SECOND, TRACKS, RemoteTest

ARTISTS = ("Alder", "Birch", "Cedar", "Dogwood")
SONGS = ("Dawn", "Harbour", "Lantern", "Meadow", "Orchard", "Pebble")
SECONDS = 20  # of most songs


class DayTest(RemoteTest):
    """A new user's player: a fresh data folder, comfort as it comes out of the box."""

    COMFORT = None

    def setUp(self):
        super().setUp()
        self.start_window_manager()
        self.steps = 0

    def step(self, words, act, seen=None):
        """One action; what is to be seen of it comes soon, or the day has failed at that step."""
        self.steps += 1
        words = f"step {self.steps}, {words}"
        try:
            act()
            if seen:
                self.wait_until(seen, words)
        except AssertionError as failure:
            self.keep_screenshot("day-failed.png")
            raise AssertionError(f"{words}: {failure}; {self.state()}") from failure

    def undo(self, titles):
        """What the last step did to the list is taken back; these are its titles then."""
        self.step("take it back", lambda: self.key("ctrl+z"), lambda: self.titles() == titles)

    def press(self, button, title):
        """A button of the playlist's panel, which opens a dialog."""
        def asked():
            self.focus()
            self.click(button)
            return self.boxes(title)

        self.focus()
        self.key("3")
        self.wait_until(asked, title)
        self.dialog(title)

    def name_file(self, title, path):
        self.key("ctrl+a")
        self.type(path)
        self.key("Return")
        self.gone(title)

    def state(self):
        """What the player says of itself, for a failure's words."""
        if self.player.poll() is not None:
            return f"ended with {self.player.returncode}, said {self.player.stderr.read()}"
        return (self.status(), self.title(), self.titles(), self.shown("--class", "tovik"))

    # Begin and end.

    def begin(self, *words):
        self.start(*words)
        self.main = self.window_of(self.player)
        self.focus()

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)
        self.wait_until(lambda: "error" in self.call(PROPERTIES, "Get", "(ss)", ROOT, "Identity"),
                        "the name on the bus to be free")

    def focus(self):
        self.tool("xdotool", "windowactivate", "--sync", self.main)

    # The hands.

    def key(self, *keys):
        self.tool("xdotool", "key", "--clearmodifiers", "--delay", "20", *keys)

    def type(self, text):
        self.tool("xdotool", "type", "--clearmodifiers", "--delay", "5", text)

    def click(self, place, *more, button="1"):
        self.tool("xdotool", "mousemove", "--window", self.main, *map(str, place), *more, "click",
                  button)

    def dialog(self, title):
        found = self.box(title)
        self.tool("xdotool", "windowactivate", "--sync", found)
        return found

    def gone(self, title):
        self.wait_until(lambda: not self.boxes(title), f"the end of {title!r}")

    # What is to be seen.

    def status(self):
        return self.get("PlaybackStatus")

    def title(self):
        return self.get("Metadata").get("xesam:title")

    def place(self):
        return self.get("Position") / SECOND

    def titles(self):
        """Those of the whole list."""
        tracks = self.get("Tracks", TRACKS)
        answer = self.call(TRACKS, "GetTracksMetadata", "(ao)", tracks)
        return [row["xesam:title"] for row in answer[0]]

    def plays(self, title):
        return lambda: (self.status(), self.title()) == ("Playing", title)

    def setting_of(self, key):
        found = re.search(rf"<{key}>([^<]*)</{key}>", self.read("db/settings.xml").decode())
        return found and found.group(1)

    # The music.

    def tone(self, name, seconds=SECONDS):
        """A file of a quiet tone."""
        path = self.path(name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with wave.open(path, "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(8000)
            file.writeframes(b"\0\0\0\x10\0\0\0\xf0" * int(seconds * 2000))
        return path

    def tree(self):
        """A folder an artist, a file a song; returns their titles in the order of a shelf."""
        for artist in reversed(ARTISTS):
            for song in reversed(SONGS):
                self.tone(f"music/{artist}/{artist} - {song}.wav")
        with open(self.path("music/Alder/notes.txt"), "w", encoding="utf-8") as file:
            file.write("no music\n")
        return [f"{artist} - {song}" for artist in ARTISTS for song in SONGS]

    def tag_of(self, path, field):
        told = subprocess.run(["ffprobe", "-v", "error", "-show_entries",
                               f"format_tags={field}:stream_tags={field}", "-of", "default=nk=1",
                               path], capture_output=True, text=True, timeout=LIMIT, check=False)
        found = [line for line in told.stdout.splitlines() if not line.startswith("[")]
        return found[0] if found else None

    @staticmethod
    def encode(path):
        """A minute of a tone as a station sends it."""
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "sine=440:d=60", "-c:a",
                        "libmp3lame", "-b:a", "128k", "-ac", "2", "-write_xing", "0",
                        "-id3v2_version", "0", path], check=True, timeout=LIMIT)

    def copy(self, source, name):
        path = self.path(name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        shutil.copy(media(source), path)
        return path

    def handed_over(self, *words):
        """A second start, which gives its words to the one that runs."""
        second = subprocess.run(self.words_of(words), env=self.environment, cwd=self.folder,
                                capture_output=True, timeout=LIMIT, check=False)
        self.assertEqual(second.returncode, 0, second.stderr)

    @staticmethod
    def rest(seconds):
        """A user looks on."""
        time.sleep(seconds)


__all__ = ["ARTISTS", "PLAYER", "SECONDS", "SONGS", "DayTest"]
