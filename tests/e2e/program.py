# SPDX-License-Identifier: GPL-3.0-or-later
"""What the end-to-end tests share: the built program, a screen, a sound server, WAV files."""
import array
import contextlib
import os
import re
import shutil
import signal
import socket
import struct
import subprocess
import tempfile
import time
import unittest

PROGRAM = os.environ["TOVIK_PROGRAM"]
MEDIA = os.environ["TOVIK_MEDIA"]
ARTEFACTS = os.environ.get("TOVIK_ARTEFACTS", tempfile.gettempdir())
COMFORT = os.environ.get("TOVIK_COMFORT", "off")  # of tests that say nothing of it
LIMIT = 20  # seconds after which a program counts as hung


def media(name):
    return os.path.join(MEDIA, name)


def odd(test):
    """Marks a test, or all of a class, that speaks of an odd behaviour: comfort has another."""
    return unittest.skipIf(COMFORT == "on", "speaks of what comfort does otherwise")(test)


class ProgramTest(unittest.TestCase):
    """Each test has a folder of its own, which is also home, data and runtime folder."""

    COMFORT = COMFORT  # "on" or "off", or None for what the settings say

    def setUp(self):
        self.stack = contextlib.ExitStack()
        self.addCleanup(self.stack.close)
        self.folder = self.stack.enter_context(tempfile.TemporaryDirectory())
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": self.folder,
            "XDG_RUNTIME_DIR": self.folder,
            "XDG_DATA_HOME": os.path.join(self.folder, "share"),
            "LANG": "C.UTF-8",
        }

    def path(self, name):
        return os.path.join(self.folder, name)

    def data(self, name):
        """A file of the program's data folder."""
        return os.path.join(self.environment["XDG_DATA_HOME"], "tovik", name)

    def read(self, name):
        with open(self.data(name), "rb") as file:
            return file.read()

    def setting(self, key, value):
        """Changes one setting of a data folder that is there already."""
        path = self.data("db/settings.xml")
        with open(path, "rb") as file:
            text = file.read()
        text, count = re.subn(rb"<%s>[^<]*</%s>" % (key, key), b"<%s>%s</%s>" % (key, value, key),
                              text)
        self.assertEqual(count, 1, key)
        with open(path, "wb") as file:
            file.write(text)

    def keep_nothing(self):
        """With comfort the list of the last session comes with a file: here it is an empty one."""
        self.run_program("--render", self.path("out.wav"), "--seconds", "0.1",
                         media("silence.wav"), check=True)
        with open(self.data("db/autosave.m3u"), "w", encoding="utf-8") as file:
            file.write("#EXTM3U\n")

    def words_of(self, words):
        """The words of a start: a test that says nothing of comfort is one of the player without."""
        spoken = self.COMFORT is None or any(word.startswith("--comfort") for word in words)
        return [PROGRAM, *([] if spoken else ["--comfort=" + self.COMFORT]), *words]

    def run_program(self, *words, **options):
        options.setdefault("env", self.environment)
        return subprocess.run(self.words_of(words), capture_output=True, timeout=LIMIT,
                              cwd=self.folder, **options)

    def start_program(self, *words, **options):
        process = subprocess.Popen(self.words_of(words), env=self.environment, cwd=self.folder,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, **options)
        self.stack.callback(process.communicate)
        self.stack.callback(process.kill)
        return process

    def start_screen(self, *options):
        """A private X server, with further options of Xvfb; the window goes there."""
        read_end, write_end = os.pipe()
        server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1024x768x24", "-noreset",
             "-nolisten", "tcp", *options], pass_fds=[write_end], stderr=subprocess.DEVNULL)
        self.stack.callback(server.wait)
        self.stack.callback(server.terminate)
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            number = pipe.readline().strip()
        self.environment["DISPLAY"] = ":" + number

    def start_bus(self):
        """A private session bus."""
        read_end, write_end = os.pipe()
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork",
                                f"--print-address={write_end}"], env=self.environment,
                               pass_fds=[write_end], stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
        self.stack.callback(bus.wait)
        self.stack.callback(bus.terminate)
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = pipe.readline().strip()

    def start_window_manager(self):
        manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.stack.callback(manager.wait)
        self.stack.callback(manager.terminate)
        # A window that comes while the manager takes over the screen may be missed by it.
        self.wait_until(lambda: "window id" in self.tool(
            "xprop", "-root", "_NET_SUPPORTING_WM_CHECK").stdout, "the window manager")

    def start_sound_server(self):
        """A private sound server with a sink that swallows everything."""
        path = self.path("pulse.socket")
        server = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
             "-L", "module-null-sink sink_name=nowhere",
             "-L", f"module-native-protocol-unix socket={path} auth-anonymous=1"],
            env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.stack.callback(server.wait)
        self.stack.callback(server.kill)
        self.environment["PULSE_SERVER"] = "unix:" + path
        self.wait_until(lambda: os.path.exists(path), "the sound server's socket")
        # An idle sink that goes nowhere takes sound in blocks of two seconds; a stream of silence
        # with a short buffer keeps it going in short ones.
        silence = subprocess.Popen(["pacat", "--latency-msec=5", "--raw", "/dev/zero"],
                                   env=self.environment, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        self.stack.callback(silence.wait)
        self.stack.callback(silence.kill)
        return server

    def start_mute_sound_server(self):
        """A sound server that takes every connection and never says a word."""
        path = self.path("mute.socket")
        server = self.stack.enter_context(socket.socket(socket.AF_UNIX))
        server.bind(path)
        server.listen(64)
        self.environment["PULSE_SERVER"] = "unix:" + path

    def streams(self):
        """How many streams of the program the sound server plays."""
        inputs = self.tool("pactl", "list", "sink-inputs").stdout
        return inputs.count('application.name = "Tovik"')

    def wait_until(self, condition, what):
        end = time.monotonic() + LIMIT
        while not condition():
            self.assertLess(time.monotonic(), end, "waited in vain for " + what)
            time.sleep(0.02)

    def tool(self, *words):
        return subprocess.run(words, env=self.environment, capture_output=True, text=True,
                              timeout=LIMIT, check=False)

    def tool_bytes(self, *words):
        """The same, for what is no text."""
        return subprocess.run(words, env=self.environment, capture_output=True, timeout=LIMIT,
                              check=True).stdout

    def shown(self, *pattern):
        """The ids of the windows that are shown and match."""
        return self.tool("xdotool", "search", "--onlyvisible", *pattern).stdout.split()

    def windows_of_role(self, role):
        """The windows of the program that are shown in that role."""
        return [window for window in self.shown("--class", "tovik")
                if f'"{role}"' in self.tool("xprop", "-id", window, "WM_WINDOW_ROLE").stdout]

    def player_windows(self):
        """The player's window, if it is shown: the role tells it, as its caption follows the
        track."""
        return self.windows_of_role("player")

    def boxes(self, title):
        """The boxes and dialogs whose title begins so."""
        return self.shown("--name", f"^{title}")

    def first(self, look, what):
        """The first that `look` finds, once it finds one."""
        found = []
        self.wait_until(lambda: bool(found.extend(look()) or found), what)
        return found[0]

    def window(self):
        return self.first(self.player_windows, "the window")

    def box(self, title):
        return self.first(lambda: self.boxes(title), f"the box {title!r}")

    def plain_boxes(self):
        """Boxes whose title is the program's name; the window's caption may be the same."""
        players = self.player_windows()
        return [box for box in self.boxes("Tovik$") if box not in players]

    def plain_box(self):
        return self.first(self.plain_boxes, "a box")

    def answer(self, box):
        self.tool("xdotool", "key", "--window", box, "Return")
        self.wait_until(lambda: not self.plain_boxes(), "the end of the box")

    def window_of(self, player):
        """The same, for a program that may also have ended: then its words are the failure."""
        try:
            return self.window()
        except AssertionError as failure:
            if player.poll() is None:
                player.kill()
            raise AssertionError(f"status {player.returncode}, said {player.stderr.read()}") \
                from failure

    def start_shown(self, *words):
        """The player on the silent device, with its window in front: `player` and `main`."""
        self.player = self.start_program("--device", "silent", *words)
        self.main = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.main)

    def end_shown(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def keep_screenshot(self, name):
        """A picture of the whole screen among the artefacts; returns its path."""
        os.makedirs(ARTEFACTS, exist_ok=True)
        path = os.path.join(ARTEFACTS, name)
        result = self.tool("import", "-window", "root", path)
        self.assertEqual(result.returncode, 0, result.stderr)
        return path

    @staticmethod
    def has(*programs):
        return all(shutil.which(program) for program in programs)


def children_of(pid, words):
    """The processes with that parent whose command line holds these words, by number."""
    found = []
    for process in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{process}/stat", encoding="utf-8", errors="replace") as file:
                parent = file.read().rpartition(")")[2].split()[1]
            with open(f"/proc/{process}/cmdline", encoding="utf-8", errors="replace") as file:
                command = file.read().replace("\0", " ")
        except OSError:  # it has ended
            continue
        if parent == str(pid) and words in command:
            found.append(process)
    return found


def read_wav(path):
    """(format tag, channels, rate, samples): samples as floats, interleaved."""
    with open(path, "rb") as file:
        data = file.read()
    assert data[:4] == b"RIFF" and data[8:12] == b"WAVE"
    place, form, samples = 12, None, None
    while place + 8 <= len(data):
        name, size = struct.unpack_from("<4sI", data, place)
        body = data[place + 8:place + 8 + size]
        if name == b"fmt ":
            form = struct.unpack_from("<HHIIHH", body)
        elif name == b"data":
            samples = body
        place += 8 + size + size % 2
    tag, channels, rate, _, _, bits = form
    if tag == 3 and bits == 32:
        values = array.array("f", samples)
    elif bits == 16:
        values = array.array("f", (s / 32768 for s in array.array("h", samples)))
    else:
        raise AssertionError(f"unexpected form {form}")
    return tag, channels, rate, values
