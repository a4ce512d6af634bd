# SPDX-License-Identifier: GPL-3.0-or-later
"""A whole evening with a player out of the box: two hundred actions, each with what a user expects."""
import os
import unittest

import icecast
from day import ARTISTS, PLAYER, SECONDS, SONGS, DayTest


class Day(DayTest):
    def test_an_evening(self):
        self.shelf = self.tree()
        self.first_start()
        self.fill_the_list()
        self.play_and_pause()
        self.walk_the_list()
        self.shuffle()
        self.restart()
        self.search()
        self.jumps()
        self.tone_and_loudness()
        self.small_window()
        self.rows_go_and_come()
        self.lists_are_kept()
        self.files_from_outside()
        self.tags_are_edited()
        self.what_does_not_play()
        self.shuffle_over_a_restart()
        self.radio()
        self.step("end", self.end)
        self.assertGreaterEqual(self.steps, 200)

    def first_start(self):
        self.step("the first start plays the welcome", self.begin,
                  lambda: self.status() == "Playing")
        self.step("stop", lambda: self.key("v"), lambda: self.status() == "Stopped")
        self.step("end", self.end)
        self.setting(b"CFLD", self.path("music").encode())
        self.step("the second start plays nothing", self.begin,
                  lambda: self.status() in ("Stopped", "Paused"))

    def fill_the_list(self):
        self.step("clear the list", self.clear, lambda: self.titles() == [])
        self.step("a folder with what lies below it", self.add_tree,
                  lambda: self.titles() == self.shelf)

    def clear(self):
        self.key("3")
        self.rest(0.3)
        self.click((201, 253))

    def add_tree(self):
        self.focus()
        self.key("ctrl+d")
        self.dialog("Add folder")
        self.key("Tab", "Tab", "space", "alt+a")
        self.gone("Add folder")

    def play_and_pause(self):
        self.step("play", lambda: self.key("x"), self.plays(self.shelf[0]))
        for count in range(5):
            self.step("let it play", lambda: self.rest(0.3))
            self.step("pause", lambda: self.key("c"), lambda: self.status() == "Paused")
            self.rest(0.2)
            place = self.place()
            self.step("the pause lasts", lambda: self.rest(0.1), lambda p=place: self.place() == p)
            again = ("c", "x")[count % 2]
            self.step("go on where it was", lambda k=again: self.key(k), self.plays(self.shelf[0]))
            self.assertGreaterEqual(self.place(), place)
            self.assertLess(self.place(), place + 3)
        self.step("five seconds on", lambda: self.key("Right"), lambda: self.place() > 5)
        self.step("five seconds back", lambda: self.key("Left"), lambda: self.place() < 5)
        self.step("back beyond the beginning", lambda: self.key("Left", "Left"),
                  lambda: self.place() < 2 and self.status() == "Playing")
        for seconds in (12, 3, 17, 8):
            self.step(f"to {seconds} s", lambda s=seconds: self.call(
                PLAYER, "SetPosition", "(ox)", self.get("Metadata")["mpris:trackid"], s * 1000000),
                lambda s=seconds: s <= self.place() < s + 2)
        self.step("near the end, the next one follows by itself", lambda: self.call(
            PLAYER, "SetPosition", "(ox)", self.get("Metadata")["mpris:trackid"],
            (SECONDS - 1) * 1000000), self.plays(self.shelf[1]))

    def walk_the_list(self):
        for number in range(2, 10):
            self.step("next", lambda: self.key("b"), self.plays(self.shelf[number]))
        for number in range(8, 4, -1):
            self.step("previous", lambda: self.key("z"), self.plays(self.shelf[number]))
        self.step("pause", lambda: self.key("c"), lambda: self.status() == "Paused")
        self.step("next sounds at once", lambda: self.key("b"), self.plays(self.shelf[6]))
        self.step("the last row", self.to_the_last_row, self.plays(self.shelf[-1]))
        self.step("next behind the last row changes nothing", lambda: self.key("b"),
                  self.plays(self.shelf[-1]))
        self.step("the end of the list is a stop", lambda: self.call(
            PLAYER, "SetPosition", "(ox)", self.get("Metadata")["mpris:trackid"],
            (SECONDS - 1) * 1000000), lambda: self.status() == "Stopped")

    def to_the_last_row(self):
        self.click((60, 60))
        self.key("End", "Return")

    def shuffle(self):
        self.step("play the first row", self.to_the_first_row, self.plays(self.shelf[0]))
        self.step("shuffle", lambda: self.put("Shuffle", "b", True), lambda: self.get("Shuffle"))
        heard = [self.title()]
        self.next_of_shuffle(heard, len(self.shelf) - 1)
        self.assertEqual(sorted(heard), sorted(self.shelf), "each row once")
        self.assertNotEqual(heard, self.shelf)
        for number in range(2, 8):
            self.step("back through what was heard", lambda: self.key("z"),
                      self.plays(heard[-number]))
        self.step("no shuffle", lambda: self.put("Shuffle", "b", False),
                  lambda: not self.get("Shuffle"))
        self.step("repeat", lambda: self.put("LoopStatus", "s", "Playlist"),
                  lambda: self.get("LoopStatus") == "Playlist")
        self.step("the last row", self.to_the_last_row, self.plays(self.shelf[-1]))
        self.step("the list begins anew", lambda: self.key("b"), self.plays(self.shelf[0]))
        self.step("no repeat", lambda: self.put("LoopStatus", "s", "None"),
                  lambda: self.get("LoopStatus") == "None")

    def to_the_first_row(self):
        self.click((60, 60))
        self.key("Home", "Return")

    def restart(self):
        for number in (3, 9):
            title = self.shelf[number]
            self.step("a row by a double click", lambda n=number: self.double_click(n),
                      self.plays(title))
            self.step("somewhere in it", lambda: self.call(
                PLAYER, "SetPosition", "(ox)", self.get("Metadata")["mpris:trackid"], 7000000),
                lambda: self.place() >= 7)
            self.step("end", self.end)
            self.step("a start begins where the last one ended, paused", self.begin,
                      lambda t=title: (self.status(), self.title()) == ("Paused", t))
            self.assertEqual(self.titles(), self.shelf)
            self.assertTrue(6.5 <= self.place() < 9, self.place())
            self.step("play goes on there", lambda: self.key("x"), self.plays(title))
            self.assertTrue(6.5 <= self.place() < 10, self.place())
            self.key("3")
            self.rest(0.3)

    def double_click(self, row):
        self.click((60, 60))
        self.key("Home")
        self.click((60, 45 + 15 * row + 7), "click", "--repeat", "2", "1", button="0")

    def search(self):
        for words, title in (("dawn birch", "Birch - Dawn"), ("CEDAR lant", "Cedar - Lantern"),
                             ("pebble", "Alder - Pebble")):
            self.step(f"search {words!r}", lambda w=words: self.look_for(w), self.plays(title))

    def look_for(self, words):
        self.focus()
        self.key("j")
        self.dialog("Music search")
        self.type(words)
        self.rest(0.2)
        self.key("Return")
        self.key("Escape")
        self.gone("Music search")

    def jumps(self):
        for number in (5, 17, 1):
            self.step(f"to row {number}", lambda n=number: self.jump("ctrl+j", str(n)),
                      self.plays(self.shelf[number - 1]))
        for text, seconds in (("0:12", 12), ("0:04", 4)):
            self.step(f"to {text}", lambda t=text: self.jump("alt+a", t),
                      lambda s=seconds: s <= self.place() < s + 3)

    def jump(self, keys, text):
        title = {"ctrl+j": "Jump to track", "alt+a": "Jump to time"}[keys]
        self.focus()
        self.key(keys)
        self.dialog(title)
        self.key("ctrl+a")
        self.type(text)
        self.key("Return")
        self.rest(0.1)
        if self.boxes(title):
            self.key("Escape")
        self.gone(title)

    def tone_and_loudness(self):
        self.focus()
        for volume in (0.2, 1.0, 0.55):
            self.step(f"volume {volume}", lambda v=volume: self.put("Volume", "d", v),
                      lambda v=volume: abs(self.get("Volume") - v) < 0.01)
            before = self.title()
            self.step("next", lambda: self.key("b"),
                      lambda b=before: self.title() != b and self.status() == "Playing")
            self.assertAlmostEqual(self.get("Volume"), volume, places=2)
        for panel in "12345":
            self.step(f"panel {panel}", lambda p=panel: self.key(p))
            self.rest(0.2)
            self.assertEqual(self.status(), "Playing")
        self.key("1")

    def small_window(self):
        for _ in range(2):
            playing = self.title()
            self.step("the small window", lambda: self.key("ctrl+w"),
                      lambda: self.windows_of_role("mini") and not self.player_windows())
            self.assertEqual(self.title(), playing)
            self.step("next in the small window", lambda: self.key("b"),
                      lambda b=playing: self.title() != b)
            self.step("the large window", lambda: self.key("ctrl+w"), self.player_windows)
            self.main = self.window()
            self.focus()
        self.step("minimised", lambda: self.tool("xdotool", "windowminimize", self.main),
                  lambda: not self.player_windows())
        self.assertEqual(self.status(), "Playing")
        self.step("a second start brings it back", self.handed_over, self.player_windows)


    def rows_go_and_come(self):
        self.focus()
        self.key("3")
        self.rest(0.3)
        for first, count in ((0, 1), (4, 3), (22, 2)):
            rest = self.shelf[:first] + self.shelf[first + count:]
            self.step(f"{count} rows are deleted", lambda f=first, c=count: self.delete(f, c),
                      lambda r=rest: self.titles() == r)
            self.undo(self.shelf)
        moved = [self.shelf[1], self.shelf[0], *self.shelf[2:]]
        self.step("a row is moved", self.move_the_first, lambda: self.titles() == moved)
        self.undo(self.shelf)
        self.step("all rows are thrown away", self.clear, lambda: self.titles() == [])
        self.undo(self.shelf)

    def delete(self, first, count):
        self.click((60, 60))
        self.key("Home", *["Down"] * first, *["shift+Down"] * (count - 1), "Delete")

    def move_the_first(self):
        self.click((60, 60))
        self.key("Home", "alt+Down")

    def lists_are_kept(self):
        for ending in ("m3u", "m3u8", "pls", "xspf"):
            path = self.path(f"music/mine.{ending}")
            self.step(f"the list is saved as {ending}", lambda p=path: self.save(p),
                      lambda p=path: os.path.exists(p))
            self.step("the list is thrown away", self.clear, lambda: self.titles() == [])
            self.step(f"the {ending} is loaded", lambda p=path: self.load(p),
                      lambda: self.titles() == self.shelf)
        self.step("one more behind it", lambda: self.load(self.path("music/mine.pls"), "alt+a"),
                  lambda: self.titles() == 2 * self.shelf)
        self.undo(self.shelf)
        self.step("one instead of it", lambda: self.load(self.path("music/mine.xspf"), "alt+r"),
                  lambda: self.titles() == self.shelf)

    def save(self, path):
        self.press((281, 253), "Save playlist")
        self.name_file("Save playlist", path)

    def load(self, path, answer=None):
        self.press((241, 253), "Load playlist")
        self.name_file("Load playlist", path)
        if answer:
            self.tool("xdotool", "windowactivate", "--sync", self.plain_box())
            self.key(answer)
            self.wait_until(lambda: not self.plain_boxes(), "the end of the question")

    def files_from_outside(self):
        one, two = self.tone("one.wav"), self.tone("two.wav")
        self.step("a double click elsewhere adds a file and plays it",
                  lambda: self.handed_over(one), self.plays("one.wav"))
        self.assertEqual(self.titles(), [*self.shelf, "one.wav"])
        self.step("another is only added", lambda: self.handed_over("/ADD", two),
                  lambda: self.titles() == [*self.shelf, "one.wav", "two.wav"])
        self.assertEqual(self.title(), "one.wav")
        self.focus()
        self.undo([*self.shelf, "one.wav"])
        self.undo(self.shelf)
        self.step("the sound went on", lambda: None, lambda: self.status() == "Playing")

    def tags_are_edited(self):
        for source in ("mp3_id3_both.mp3", "ogg_44100.ogg", "flac_16_44100.flac", "wma_44100.wma"):
            path = self.copy(source, "tagged/" + source)
            row = len(self.shelf) + 1
            self.step(f"{source} is added", lambda p=path: self.handed_over("/ADD", p),
                      lambda r=row: len(self.titles()) == r)
            self.step("its row is chosen", self.choose_the_last)
            self.step("its title is typed and saved",
                      lambda p=path: self.edit(p[-3:], "Typed title"),
                      lambda p=path: self.tag_of(p, "title") == "Typed title")
            self.step("the row goes", lambda: self.key("Delete"),
                      lambda: self.titles() == self.shelf)

    def choose_the_last(self):
        self.focus()
        self.key("3")
        self.rest(0.3)
        self.click((60, 60))
        self.key("End")

    def edit(self, ending, title):
        self.key("alt+3")
        self.dialog("File information")
        self.rest(0.5)
        # MP3: to the newer of two tags; the others have none yet, which a tick makes.
        self.key(*{"mp3": ("ctrl+Tab", "Tab")}.get(ending, ("space", "Tab")))
        self.key("ctrl+a")
        self.type(title)
        self.key("alt+s")
        self.gone("File information")
        self.focus()

    def what_does_not_play(self):
        path = self.path("broken.m3u")
        good = self.tone("good.wav")
        with open(path, "w", encoding="utf-8") as file:
            file.write("#EXTM3U\n" + "".join(f"#EXTINF:9,Gone {n}\n/none/{n}.mp3\n"
                                             for n in range(3)) + f"#EXTINF:20,Good\n{good}\n")
        whole = [*self.shelf, "Gone 0", "Gone 1", "Gone 2", "Good"]
        self.step("a list with holes is added", lambda: self.handed_over("/ADD", path),
                  lambda: self.titles() == whole)
        self.step("the row before them", lambda: self.jump("ctrl+j", str(len(self.shelf))),
                  self.plays(self.shelf[-1]))
        self.step("next finds the one that plays", lambda: self.key("b"), self.plays("Good"))
        self.undo(self.shelf)

    def shuffle_over_a_restart(self):
        self.step("the first row", lambda: self.jump("ctrl+j", "1"), self.plays(self.shelf[0]))
        self.step("shuffle", lambda: self.put("Shuffle", "b", True), lambda: self.get("Shuffle"))
        heard = [self.title()]
        self.next_of_shuffle(heard, 8)
        self.step("listen to it", lambda: None, lambda: self.place() > 1.5)
        self.step("end", self.end)
        self.step("start", self.begin,
                  lambda: (self.status(), self.title()) == ("Paused", heard[-1]))
        self.step("go on", lambda: self.key("c"), self.plays(heard[-1]))
        self.assertTrue(self.get("Shuffle"))
        self.next_of_shuffle(heard, len(self.shelf) - len(heard))
        self.assertEqual(sorted(heard), sorted(self.shelf), "each row once, over the restart")
        self.step("no shuffle", lambda: self.put("Shuffle", "b", False),
                  lambda: not self.get("Shuffle"))

    def next_of_shuffle(self, heard, count):
        for _ in range(count):
            self.step("next of a shuffle", lambda: self.key("b"),
                      lambda b=heard[-1]: self.title() != b and self.status() == "Playing")
            heard.append(self.title())

    def radio(self):
        if not icecast.available():
            return
        song = self.path("air.mp3")
        self.encode(song)
        os.chmod(self.folder, 0o711)
        station = icecast.Station(self.folder)
        self.stack.callback(station.kill)
        station.start(song)
        self.step("an address is handed over", lambda: self.handed_over(station.address),
                  lambda: self.status() == "Playing" and self.place() > 1)
        self.step("the station tells a title", lambda: station.title("On air"),
                  lambda: "On air" in (self.title() or ""))
        self.step("stop", lambda: (self.focus(), self.key("v")),
                  lambda: self.status() == "Stopped")
        self.focus()
        self.undo(self.shelf)


if __name__ == "__main__":
    unittest.main()
