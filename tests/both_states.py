#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs a test program with all comfort on.

Usage: both_states.py PROGRAM FOLDER LIST

The tests that fail must be those that the list names for the folder, which speak of an odd behaviour:
one more is a fault of comfort, one less has no place in the list.
"""
import json
import os
import subprocess
import sys
import tempfile


def failed(program):
    """The names of those that fail, without the numbers of their parameters."""
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "told.json")
        subprocess.run([program, "--gtest_output=json:" + path], stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=False,
                       env=os.environ | {"TOVIK_COMFORT": "on"})
        with open(path, encoding="utf-8") as file:
            suites = json.load(file)["testsuites"]
    return {f"{suite['name']}.{test['name'].partition('/')[0]}" for suite in suites
            for test in suite["testsuite"] if "failures" in test}


def main():
    program, folder, path = sys.argv[1:]
    with open(path, encoding="utf-8") as file:
        rows = [line.split() for line in file if not line.startswith("#")]
    listed = {name for where, name in rows if where == folder}
    found = failed(program)
    for name in sorted(found - listed):
        print("fails with comfort and is not listed:", name)
    for name in sorted(listed - found):
        print("is listed and passes with comfort:", name)
    print(f"{len(found)} of {folder} speak of an odd behaviour")
    return int(found != listed)


if __name__ == "__main__":
    sys.exit(main())
