#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures Tovik beside other players: start to first sample, processor time, memory, wake-ups.

Usage: compare_players.py PROGRAM FILE [--seconds N] [--runs N] [--only NAME,...]

Each player gets a private X server, sound server, home and runtime folder. "First sample" is the
first sound that a recorder hears at the sound server's monitor, whose own stream keeps the sink
awake at a latency of a few milliseconds; the time counts from the start of the process. Processor
time is that of the process alone between the first sample and `--seconds` later.
"""
import argparse
import os
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time

TICKS = os.sysconf("SC_CLK_TCK")
LIMIT = 20.0

PEERS = {
    "audacious": lambda f: ["audacious", "-Q", f],
    "qmmp": lambda f: ["qmmp", f],
    "mpv": lambda f: ["mpv", "--no-video", "--no-terminal", f],
}


class Stage:
    """A screen and a sound server of our own."""

    def __init__(self):
        self.folder = tempfile.mkdtemp()
        self.children = []
        self.environment = {
            "PATH": os.environ["PATH"], "HOME": self.folder, "LANG": "C.UTF-8",
            "XDG_RUNTIME_DIR": self.folder,
            "PULSE_SERVER": "unix:" + os.path.join(self.folder, "sound.socket"),
        }
        self.screen()
        self.bus()
        self.sound()

    def run(self, *words, **options):
        child = subprocess.Popen(words, env=self.environment, stderr=subprocess.DEVNULL, **options)
        self.children.append(child)
        return child

    def screen(self):
        read_end, write_end = os.pipe()
        self.run("Xvfb", "-displayfd", str(write_end), "-screen", "0", "1280x1024x24",
                 pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            self.environment["DISPLAY"] = ":" + pipe.readline().strip()

    def bus(self):
        """Without a session bus each player would wait for one to be launched."""
        read_end, write_end = os.pipe()
        self.run("dbus-daemon", "--session", "--nofork", f"--print-address={write_end}",
                 pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = pipe.readline().strip()

    def sound(self):
        socket = os.path.join(self.folder, "sound.socket")
        self.run("pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
                 "-L", "module-null-sink sink_name=nowhere",
                 "-L", f"module-native-protocol-unix socket={socket} auth-anonymous=1",
                 stdout=subprocess.DEVNULL)
        while not os.path.exists(socket):
            time.sleep(0.01)
        # A stream of silence with a short buffer keeps the sink's blocks short.
        self.run("pacat", "--latency-msec=5", "--raw", "/dev/zero", stdout=subprocess.DEVNULL)
        self.recorder = self.run("parec", "--latency-msec=2", "--raw", "-d", "nowhere.monitor",
                                 stdout=subprocess.PIPE)
        os.set_blocking(self.recorder.stdout.fileno(), False)
        time.sleep(1.0)

    def heard(self):
        """True when the recorder has heard something since the last call."""
        try:
            data = os.read(self.recorder.stdout.fileno(), 1 << 20)
        except BlockingIOError:
            return False
        return any(data)

    def close(self):
        for child in reversed(self.children):
            child.kill()
            child.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


def cpu_seconds(pid):
    with open(f"/proc/{pid}/stat") as file:
        fields = file.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


def switches(pid):
    total = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{task}/status") as file:
            total += sum(int(line.split()[1]) for line in file
                         if line.startswith("voluntary_ctxt"))
    return total


def memory(pid):
    with open(f"/proc/{pid}/smaps_rollup") as file:
        values = {line.split(":")[0]: int(line.split()[1]) / 1024 for line in file if "kB" in line}
    return values["Rss"], values["Pss"]


def measure(stage, command, seconds):
    while stage.heard():
        pass
    began = time.monotonic()
    player = subprocess.Popen(command, env=stage.environment, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL)
    try:
        while not stage.heard():
            if time.monotonic() - began > LIMIT or player.poll() is not None:
                return None
            time.sleep(0.0005)
        row = {"first sample ms": (time.monotonic() - began) * 1000}
        if seconds:
            cpu, count = cpu_seconds(player.pid), switches(player.pid)
            time.sleep(seconds)
            row["cpu s"] = cpu_seconds(player.pid) - cpu
            row["wake-ups/s"] = (switches(player.pid) - count) / seconds
            row["RSS MB"], row["PSS MB"] = memory(player.pid)
        return row
    finally:
        player.send_signal(signal.SIGTERM)
        try:
            player.wait(5)
        except subprocess.TimeoutExpired:
            player.kill()
            player.wait()
        quiet = time.monotonic()
        while time.monotonic() - quiet < 0.3:
            if stage.heard():
                quiet = time.monotonic()
            time.sleep(0.01)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("file")
    parser.add_argument("--seconds", type=float, default=0)
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--only", default="")
    arguments = parser.parse_args()
    players = {"tovik": lambda f: [arguments.program, f]} | PEERS
    if arguments.only:
        players = {name: players[name] for name in arguments.only.split(",")}
    stage = Stage()
    try:
        for name, command in players.items():
            words = command(arguments.file)
            if shutil.which(words[0]) is None:
                print(f"{name}: not installed")
                continue
            measure(stage, words, 0)  # warm-up
            rows = [measure(stage, words, arguments.seconds) for _ in range(arguments.runs)]
            rows = [row for row in rows if row]
            if not rows:
                print(f"{name}: was not heard")
                continue
            medians = {key: statistics.median(row[key] for row in rows) for key in rows[0]}
            print(f"{name:10}", "  ".join(f"{key} {value:.2f}" for key, value in medians.items()))
            sys.stdout.flush()
    finally:
        stage.close()


if __name__ == "__main__":
    main()
