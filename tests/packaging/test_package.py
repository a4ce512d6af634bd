# SPDX-License-Identifier: GPL-3.0-or-later
"""The Debian package: its bytes, what the checkers of the distribution say of it, and the player
installed from it into a root of its own. ./check --full makes the packages and runs this."""
import filecmp
import glob
import gzip
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

FOLDER = os.environ["TOVIK_PACKAGES"]
AGAIN = os.environ["TOVIK_PACKAGES_AGAIN"]
ROOT = tempfile.mkdtemp(prefix="tovik-root-")
os.environ["TOVIK_PROGRAM"] = os.path.join(ROOT, "usr/bin/tovik")
sys.path.insert(0, os.path.join(os.path.dirname(__file__), "../e2e"))
from program import LIMIT, ProgramTest, media  # noqa: E402  (wants to know the program)


def setUpModule():
    """Installs the package as dpkg does, without the libraries that this system has itself."""
    for folder in ("info", "updates", "triggers"):
        os.makedirs(os.path.join(ROOT, "var/lib/dpkg", folder))
    for name in ("status", "available"):
        open(os.path.join(ROOT, "var/lib/dpkg", name), "w", encoding="utf-8").close()
    dpkg("--install", package(".deb"))


def tearDownModule():
    shutil.rmtree(ROOT)


def package(ending, folder=FOLDER):
    found, = glob.glob(os.path.join(folder, "*" + ending))
    return found


def run(*words, **options):
    return subprocess.run(words, capture_output=True, text=True, check=False, **options)


def dpkg(*words):
    result = run("dpkg", "--root=" + ROOT, "--log=/dev/null", "--force-depends",
                 "--force-not-root", *words,
                 env={**os.environ, "PATH": os.environ["PATH"] + ":/usr/sbin:/sbin"})
    if result.returncode:
        raise AssertionError(result.stdout + result.stderr)


def files():
    """What stands in the root but what dpkg itself keeps there, told from it."""
    found = set()
    for folder, _, names in os.walk(ROOT):
        inside = os.path.relpath(folder, ROOT)
        if not inside.startswith("var/lib/dpkg"):
            found.update(os.path.join(inside, name) for name in names)
    return found


def installed(name):
    return os.path.join(ROOT, "usr", name)


class Package(unittest.TestCase):
    def says_nothing(self, *words, **options):
        result = run(*words, **options)
        self.assertEqual((result.returncode, result.stdout + result.stderr), (0, ""))

    def fields(self, *names):
        return [run("dpkg-deb", "--field", package(".deb"), name).stdout for name in names]

    def test_two_builds_have_the_same_bytes(self):
        for ending in (".deb", ".ddeb"):
            first, second = package(ending), package(ending, AGAIN)
            self.assertEqual(os.path.basename(first), os.path.basename(second))
            self.assertTrue(filecmp.cmp(first, second, shallow=False), ending)

    def test_nothing_tells_where_it_was_built(self):
        built_in = os.path.dirname(os.path.dirname(FOLDER)).encode()
        for name in files():
            with open(os.path.join(ROOT, name), "rb") as file:
                self.assertNotIn(built_in, file.read(), name)

    def test_lintian_finds_no_error_and_no_warning(self):
        for ending in (".deb", ".ddeb"):
            result = run("lintian", "--allow-root", "--fail-on", "error,warning", package(ending))
            self.assertEqual((result.returncode, result.stdout), (0, ""))

    def test_it_asks_for_its_libraries_and_recommends_the_encoders(self):
        depends, recommends = self.fields("Depends", "Recommends")
        for library in ("libc6 (>=", "libqt6widgets6", "libavcodec", "libcurl4", "libcdio",
                        "libtag1v5"):
            self.assertIn(library, depends)
        for program in ("lame", "vorbis-tools"):
            self.assertIn(program, recommends)
            self.assertNotIn(program, depends)

    def test_symbols_are_in_a_package_of_their_own(self):
        listed = run("dpkg-deb", "--contents", package(".ddeb")).stdout
        for line in run("dpkg-deb", "--info", package(".ddeb"), "md5sums").stdout.splitlines():
            self.assertRegex(line, r"^[0-9a-f]{32}  usr/lib/debug/")
        programs = [name for name in files()
                    if run("file", "-b", os.path.join(ROOT, name)).stdout.startswith("ELF")]
        self.assertEqual(len(programs), 9)  # two programs, the host, three modules, three plug-ins
        for name in programs:
            notes = run("readelf", "-n", os.path.join(ROOT, name)).stdout
            build = notes.split("Build ID: ")[1].split()[0]
            self.assertIn(f"/usr/lib/debug/.build-id/{build[:2]}/{build[2:]}.debug", listed)
            self.assertNotIn(".debug_info", run("readelf", "-SW", os.path.join(ROOT, name)).stdout)

    def test_the_desktop_file(self):
        self.says_nothing("desktop-file-validate", installed("share/applications/tovik.desktop"))

    def test_the_metainfo(self):
        path, = glob.glob(installed("share/metainfo/*"))
        result = run("appstreamcli", "validate", "--no-net", "--no-color", path)
        self.assertEqual(result.returncode, 0, result.stdout)
        self.assertNotRegex(result.stdout, r"(?m)^[WE]:")

    def test_the_man_pages(self):
        for page in ("tovik.1.gz", "tovik-skin.1.gz"):
            said = run("mandoc", "-Tlint", installed("share/man/man1/" + page)).stdout
            # It looks for the pages that a page names in this system alone.
            self.assertEqual([line for line in said.splitlines()
                              if "referenced manual not found: Xr tovik" not in line], [])

    def test_the_icons(self):
        for size in (16, 22, 24, 32, 48, 64, 128, 256, 512):
            path = installed(f"share/icons/hicolor/{size}x{size}/apps/tovik.png")
            self.assertIn(f"{size} x {size}", run("file", "-b", path).stdout)
        self.assertIn("SVG", run("file", "-b", installed(
            "share/icons/hicolor/scalable/apps/tovik.svg")).stdout)

    def test_the_types_of_its_files(self):
        with tempfile.TemporaryDirectory() as folder:
            shutil.copytree(installed("share/mime"), os.path.join(folder, "mime"))
            self.says_nothing("update-mime-database", "-n", os.path.join(folder, "mime"),
                              env={**os.environ, "XDG_DATA_DIRS": folder})
            with open(os.path.join(folder, "mime/globs"), encoding="utf-8") as file:
                globs = file.read()
        for line in ("application/x-tovik-skin:*.tsf", "application/x-tovik-equalizer:*.teq",
                     "audio/x-mpegurl:*.m3u"):
            self.assertIn(line + "\n", globs)

    def complete(self, command, *words):
        """What bash offers for the last word."""
        script = (f'PATH="{installed("bin")}:$PATH"; . "$1"; shift; COMP_WORDS=("$@"); '
                  f'COMP_CWORD=$(($# - 1)); _{command.replace("-", "_")}; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        path = installed("share/bash-completion/completions/" + command)
        return run("bash", "-c", script, "bash", path, command, *words,
                   env={**os.environ, "PULSE_SERVER": "unix:/nowhere"}).stdout.split("\n")[:-1]

    def test_the_shell_completes(self):
        self.assertEqual(self.complete("tovik", "--scr"), ["--screenshot"])
        self.assertIn("--forget-types", self.complete("tovik", "--"))
        self.assertEqual(self.complete("tovik", "--device", "sil"), ["silent"])
        self.assertEqual(self.complete("tovik", "--seconds", ""), [""])
        self.assertEqual(self.complete("tovik-skin", "b"), ["build"])


class Installed(ProgramTest):
    def test_it_plays_a_file_in_its_window(self):
        self.start_screen()
        self.start_window_manager()
        player = self.start_program("--device", "silent", media("wav_s16_44100_stereo.wav"))
        window = self.window_of(player)
        self.assertTrue(window)
        self.wait_until(lambda: os.path.exists(self.data("db/visuals.dat")), "the plug-ins")
        self.assertIn(b"aurora", self.read("db/visuals.dat").lower())
        self.keep_screenshot("installed.png")
        player.send_signal(signal.SIGTERM)
        self.assertEqual(player.wait(LIMIT), 0)
        self.assertTrue(os.path.exists(self.data("skins/CurrentSkin/main.bmp")))

    def test_it_finds_the_module_of_other_decoders(self):
        target = self.path("out.wav")
        result = self.run_program("--render", target, media("wma_44100.wma"))
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertGreater(os.path.getsize(target), 44100)

    def test_skins_are_made_and_listed(self):
        package_path = self.path("a.tsf")
        skin = installed("bin/tovik-skin")
        picture = installed("share/tovik/skins/splash.png")
        self.assertEqual(run(skin, "build", package_path, picture).returncode, 0)
        self.assertIn("splash.png", run(skin, "list", package_path).stdout)


class Purged(ProgramTest):
    """The last class by its name, and so the last one to run."""

    def test_nothing_stays_but_the_users_data(self):
        result = self.run_program("--render", self.path("out.wav"), media("wav_s16_44100_stereo.wav"))
        self.assertEqual(result.returncode, 0, result.stderr)
        with gzip.open(installed("share/doc/tovik/changelog.gz"), "rt", encoding="utf-8") as file:
            self.assertTrue(file.readline().startswith("tovik ("))
        self.assertGreater(len(files()), 20)
        dpkg("--purge", "tovik")
        self.assertEqual(files(), set())
        self.assertFalse(os.path.exists(installed("")))
        self.assertTrue(os.path.exists(self.data("db/settings.xml")))


if __name__ == "__main__":
    unittest.main()
