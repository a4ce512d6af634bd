# SPDX-License-Identifier: GPL-3.0-or-later
"""tovik-skin as a user runs it."""
import os
import pathlib
import struct
import subprocess
import tempfile
import unittest

PROGRAM = os.environ["TOVIK_SKIN_PROGRAM"]


class SkinPackage(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)

    def write(self, name, data):
        path = self.folder / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(data)
        return str(path)

    def run_program(self, *words, status=0):
        done = subprocess.run([PROGRAM, *words], capture_output=True, text=True, timeout=60)
        self.assertEqual(done.returncode, status, done.stderr)
        return done.stderr if status else done.stdout

    def test_a_package_lists_what_was_put_in(self):
        package = str(self.folder / "base.tsf")
        self.run_program("build", package, self.write("a.bmp", b"xyz"),
                         self.write("b.bmp", b"z" * 8000))
        rows = [line.split() for line in self.run_program("list", package).splitlines()]
        self.assertEqual([(row[0], row[2], row[3]) for row in rows],
                         [("3", "stored", "a.bmp"), ("8000", "huffman", "b.bmp")])
        self.assertEqual(rows[0][1], "7")
        self.assertLess(int(rows[1][1]), 1100)

    def test_the_bytes_of_a_package(self):
        package = str(self.folder / "base.tsf")
        self.run_program("build", package, self.write("a.bmp", b"xyz"))
        data = pathlib.Path(package).read_bytes()
        self.assertTrue(data.startswith(b"Tovik"))
        place = 10
        for _ in range(4):
            place += 2 + struct.unpack_from("<H", data, place)[0]
        self.assertEqual(data[place:], struct.pack("<hBiH", 1, 0, 7, 5) + b"a.bmp" + b"HE0\rxyz")

    def test_a_folder_stands_for_its_files_in_order(self):
        for name in ("b.bmp", "a.bmp", "c.bmp"):
            self.write("pictures/" + name, b"data")
        (self.folder / "pictures" / "inner").mkdir()
        package = str(self.folder / "base.tsf")
        self.run_program("build", package, str(self.folder / "pictures"))
        names = [line.split()[3] for line in self.run_program("list", package).splitlines()]
        self.assertEqual(names, ["a.bmp", "b.bmp", "c.bmp"])

    def test_failures_name_the_file_and_leave_no_package(self):
        package = self.folder / "base.tsf"
        self.assertIn("none.bmp", self.run_program("build", str(package),
                                                   str(self.folder / "none.bmp"), status=1))
        self.assertFalse(package.exists())
        twice = [self.write("one/a.bmp", b""), self.write("two/A.BMP", b"")]
        self.assertIn("two files of one name",
                      self.run_program("build", str(package), *twice, status=1))
        self.assertFalse(package.exists())

    def test_what_is_no_package_is_refused(self):
        other = self.write("other.tsf", b"other12345" + bytes(10))
        self.assertIn("not a skin package", self.run_program("list", other, status=1))
        short = self.write("short.tsf", b"Tovik12345")
        self.assertIn("short.tsf", self.run_program("list", short, status=1))

    def test_usage(self):
        self.assertIn("usage", self.run_program(status=2))
        self.assertIn("usage", self.run_program("build", "out.tsf", status=2))
        self.assertIn("usage", self.run_program("--help"))


if __name__ == "__main__":
    unittest.main()
