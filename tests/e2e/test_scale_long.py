# SPDX-License-Identifier: GPL-3.0-or-later
"""The panels and the mini window on dense screens: a fraction is the reduction of the next whole
scale everywhere, lists meet what is round them, and clicks hit at every scale."""
import unittest

from looks import BLOCK, TABS, ClicksTest, flat, part

BOTH = ("2", "1.5")
TAB, STOP, FOLD, MINI = (157, 12), (139, 283), (437, 162), (393, 18)
NOWHERE = (235, 306)

# Where lists and controls paint by themselves, in the screen's own pixels; in skin pixels.
OWN = {
    "main": ((288, 169, 449, 249),),
    "quicklist": ((288, 60, 451, 262),),
    "over": ((288, 169, 449, 249), (155, 17, 290, 64)),  # the tooltip
    "down": ((288, 169, 449, 249),),
    "equalizer": (),
    # And where the ends of the scroll bar lie half on a pixel.
    "playlist": ((20, 45, 439, 235), (320, 242, 450, 262), (438, 44, 453, 46),
                 (438, 234, 453, 236)),
    "ripper": ((20, 45, 452, 235),),
    "radio": ((20, 45, 452, 235),),
    "mini": (),
}
# The lists of the panels: left, top, right and bottom in skin pixels.
LISTS = {"playlist": (20, 45, 452, 235), "ripper": (20, 70, 452, 235), "radio": (20, 45, 452, 235)}


class ScaleLong(ClicksTest):
    def fill(self):
        """A list that is longer than its place, and a station."""
        self.lay_data()
        with open(self.data("db/autosave.m3u"), "w", encoding="ascii", newline="") as file:
            file.write("#EXTM3U\r\n" + "".join(f"#EXTINF:{60 + n},Song {n}\r\n/none/{n}.mp3\r\n"
                                               for n in range(1, 41)))
        with open(self.data("db/stations.dat"), "w", encoding="ascii", newline="") as file:
            file.write("[stationlist]\r\nStation1=http://127.0.0.1:1/\r\nUrl1=Here\r\n"
                       "NumberOfEntries=1\r\n")

    def see(self, name, window=None):
        """A picture of the window once it stays as it is."""
        paths = []

        def same():
            paths.append(self.picture_of(window or self.main, f"{name}-{self.factor}"
                                         f"-{len(paths) % 2}"))
            return len(paths) > 1 and not self.apart(*map(flat, paths[-2:]), self.factor)

        self.wait_until(same, f"{name} to stay")
        return paths[-1]

    def show(self, panel):
        number = TABS.index(panel)
        self.click(133 + 24 * number, 20)
        self.wait_until(lambda: self.chosen_tab() == [panel], panel)
        self.move(NOWHERE)

    def walk(self, scale):
        """Pictures of everything at that scale, by name."""
        self.start_at(scale)
        self.wait_until(lambda: len(set(self.colours([self.picture_of(self.main, "list")], *(
            int(side * self.factor) for side in (290, 171, 60, 14))))) > 5, "the list")
        self.move(NOWHERE)
        seen = {"main": self.see("main")}
        self.move(TAB)
        seen["over"] = self.see("over")
        self.move(STOP)
        self.tool("xdotool", "mousedown", "1")
        seen["down"] = self.see("down")
        self.tool("xdotool", "mouseup", "1")
        self.click(*FOLD)
        self.move(NOWHERE)
        seen["quicklist"] = self.see("quicklist")
        self.click(437, 52)  # folded, for the next session
        for panel in TABS[1:]:
            self.show(panel)
            seen[panel] = self.see(panel)
        self.click(*MINI)
        mini = self.first(lambda: self.windows_of_role("mini"), "the mini window")
        self.tool("xdotool", "mousemove", "1590", "990")
        seen["mini"] = self.see("mini", mini)
        self.end_shown()
        return seen

    def test_everything_at_one_and_a_half_is_what_it_is_at_two(self):
        self.fill()
        two, less = (self.walk(scale) for scale in BOTH)
        self.assertEqual(sorted(two), sorted(OWN))
        for name, own in OWN.items():
            with self.subTest(name):
                hidden = self.masked(1.5, own)
                size = [int(side * 0.75) for side in self.size(two[name])]
                # What is cut out has hard edges on a screen: there it may differ.
                found = self.apart([*self.reduced(two[name], 1.5, size), *hidden],
                                   [*flat(less[name]), *part(size), *hidden], 1.5, kept=3)
                inner = {place: share for place, share in found.items()
                         if not self.at_outline(place, two[name])}
                self.assertEqual(inner, {})
        faces = [name for name in ("over", "down") if not self.apart(
            flat(two["main"]), flat(two[name]), 2)]
        self.assertEqual(faces, [], "a button looks the same whatever is done to it")

    def at_outline(self, place, picture):
        """Whether a square has a part that is cut out of the window."""
        reach = 8
        left, top = (2 * max(0, side - reach) for side in place)
        side = 2 * (BLOCK + 2 * reach)
        return b"\0" in self.convert(picture, "-alpha", "extract", "-crop",
                                     f"{side}x{side}+{left}+{top}", "-depth", "8", "gray:-")

    def test_no_seam_shows_round_a_list(self):
        self.fill()
        for scale in ("1.25", "1.5"):
            self.start_at(scale)
            for panel, box in LISTS.items():
                self.show(panel)
                picture = flat(self.see(panel))
                for edge in ("left", "top", "bottom", "right"):
                    with self.subTest(scale=scale, panel=panel, edge=edge):
                        self.demand_no_seam(picture, box, edge)
            self.end_shown()

    def demand_no_seam(self, picture, box, edge):
        """Across the edge of a list each pixel is one of the ground's, one of the list's, or
        between what is beside it. Half of the list's plain ground may lie over its last column."""
        reach = 4
        left, top, right, bottom = (side * self.factor for side in box)
        along = edge in ("left", "right")  # the lines that are looked at run sideways
        middle = {"left": left, "right": right, "top": top, "bottom": bottom}[edge]
        begin, length = (bottom - 12, 10) if along else (right - 60, 16)
        if along:
            pixels = self.colours(picture, int(middle) - reach, int(begin), 2 * reach + 1, length)
            lines = [pixels[n:n + 2 * reach + 1] for n in range(0, len(pixels), 2 * reach + 1)]
        else:
            pixels = self.colours(picture, int(begin), int(middle) - reach, length, 2 * reach + 1)
            lines = [pixels[n::length] for n in range(length)]
        for line in lines:
            before, after = line[0], line[-1]
            for number, pixel in enumerate(line[1:-1], 1):
                for channel, value in enumerate(pixel):
                    low, high = sorted((before[channel], after[channel]))
                    # The bezel has a dark line and a faint light one.
                    self.assertGreaterEqual(value, min(low, 8), (number, line))
                    self.assertLessEqual(value, max(high, 140) + 2, (number, line))

    def test_clicks_hit_the_right_element_at_every_scale(self):
        for scale in ("1", "1.25", "2", "3"):
            with self.subTest(scale=scale):
                self.clicks_at(scale)


if __name__ == "__main__":
    unittest.main()
