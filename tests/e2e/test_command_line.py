# SPDX-License-Identifier: GPL-3.0-or-later
"""Options that end the program at once."""
import os
import re
import unittest

from program import ProgramTest


class CommandLine(ProgramTest):
    def test_help_names_every_option(self):
        result = self.run_program("--help")
        self.assertEqual(result.returncode, 0)
        for option in (b"--data", b"--help", b"--version", b"--device", b"--render", b"--seconds",
                       b"--screenshot"):
            self.assertIn(option, result.stdout)

    def test_every_option_is_told_wherever_options_are(self):
        options = re.findall(r"^  --([a-z-]+)", self.run_program("--help").stdout.decode(), re.M)
        self.assertGreater(len(options), 7)
        root = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../..")
        for name, form in (("README.md", "`--{}"), ("packaging/man/tovik.1", "It Fl Fl {}\\b"),
                           ("packaging/completion/_tovik", "--{}\\[")):
            with open(os.path.join(root, name), encoding="utf-8") as file:
                text = file.read()
            for option in options:
                self.assertRegex(text, form.format(option), name)

    def test_version(self):
        result = self.run_program("--version")
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stdout, rb"^tovik \d+\.\d+\.\d+\n$")

    def test_file_types_are_forgotten(self):
        os.makedirs(self.path(".config"))
        defaults = self.path(".config/mimeapps.list")
        with open(defaults, "w", encoding="utf-8") as file:
            file.write("[Default Applications]\naudio/mpeg=tovik.desktop;other.desktop;\n")
        entry = os.path.join(self.environment["XDG_DATA_HOME"], "applications", "tovik.desktop")
        os.makedirs(os.path.dirname(entry))
        with open(entry, "w", encoding="utf-8") as file:
            file.write("[Desktop Entry]\nX-Tovik-FileTypes=true\n")
        self.assertEqual(self.run_program("--forget-types").returncode, 0)
        self.assertFalse(os.path.exists(entry))
        with open(defaults, encoding="utf-8") as file:
            self.assertEqual(file.read(),
                             "[Default Applications]\naudio/mpeg=other.desktop;\n")

    def test_unknown_option(self):
        result = self.run_program("--no-such-option")
        self.assertEqual(result.returncode, 2)
        self.assertEqual(result.stderr,
                         b"tovik: unknown option --no-such-option; see tovik --help\n")
        self.assertEqual(result.stdout, b"")

    def test_bad_values(self):
        for words in (["--seconds", "soon"], ["--render"], ["--data"], ["--seconds", "-1"]):
            with self.subTest(words=words):
                result = self.run_program(*words)
                self.assertEqual(result.returncode, 2)
                self.assertNotEqual(result.stderr, b"")

    def test_a_relative_home_is_refused(self):
        self.environment["HOME"] = "nowhere"
        result = self.run_program("--render", self.path("out.wav"), "--seconds", "0.1")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr, b'tovik: HOME is no absolute path: "nowhere"\n')
        self.assertEqual(os.listdir(self.folder), [])
        self.assertEqual(self.run_program("--version").returncode, 0)

    def test_no_devices_without_a_server(self):
        self.environment["PULSE_SERVER"] = "unix:" + self.path("nobody")
        result = self.run_program("--device", "list")
        if result.stdout == b"":
            self.assertEqual(result.returncode, 1)

    def test_lists_the_server_s_device(self):
        self.start_sound_server()
        result = self.run_program("--device", "list")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn(b"Null", result.stdout)


if __name__ == "__main__":
    unittest.main()
