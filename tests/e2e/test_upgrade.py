# SPDX-License-Identifier: GPL-3.0-or-later
"""The first start of a newer program brings the data folder up to it."""
import os
import unittest

from program import ProgramTest, media

OLD = b"[PlayerWin]\r\nitem0=as an older version laid it\r\n"


def digest(data):
    """FNV-1a of 64 bits."""
    value = 0xcbf29ce484222325
    for byte in data:
        value = (value ^ byte) * 0x100000001b3 % (1 << 64)
    return f"{value:016x}".encode()


class Upgrade(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start()

    def start(self):
        result = self.run_program("--render", self.path("out.wav"), "--seconds", "0.1",
                                  media("wav_s16_44100_stereo.wav"))
        self.assertEqual((result.returncode, result.stderr), (0, b""))

    def write(self, name, data):
        with open(self.data(name), "wb") as file:
            file.write(data)

    def age(self, *names):
        """Makes the folder one of version 0.0.1, which laid these files with other bytes."""
        rows = dict(line.split(b" ", 1)[::-1]
                    for line in self.read("db/laid.txt").splitlines()[1:])
        for name in names:
            self.write(name, OLD)
            rows[name.encode()] = digest(OLD)
        self.write("db/laid.txt", b"Tovik 0.0.1\n" + b"".join(
            row + b" " + name + b"\n" for name, row in rows.items()))

    def test_what_nobody_changed_is_renewed(self):
        names = ("Languages/English.lng", "Languages/Slovenian.lng", "vh.txt", "CDDB/server.ini")
        new = {name: self.read(name) for name in names}
        memory = self.read("db/laid.txt")
        self.setting(b"TKD", b"1.1.2001")
        self.setting(b"CVL", b"33")
        self.age(*names)
        self.write("CDDB/server.ini", b"mine")
        os.remove(self.data("vh.txt"))
        self.start()
        for name in names[:3]:
            self.assertEqual(self.read(name), new[name], name)
        self.assertEqual(self.read("CDDB/server.ini"), b"mine")
        settings = self.read("db/settings.xml")
        self.assertNotIn(b"1.1.2001", settings)
        self.assertIn(b"<CVL>33</CVL>", settings)
        self.assertEqual(self.read("db/laid.txt").splitlines()[0], memory.splitlines()[0])

    def test_the_same_version_lays_nothing_anew(self):
        os.remove(self.data("vh.txt"))
        self.write("Languages/English.lng", OLD)
        self.start()
        self.assertEqual(self.read("Languages/English.lng"), OLD)
        self.assertFalse(os.path.exists(self.data("vh.txt")))


if __name__ == "__main__":
    unittest.main()
