# SPDX-License-Identifier: GPL-3.0-or-later
"""A setting is read and written through the table of settings: nobody else names a key."""
import re

ROAD = ("src/player/LiveSetting.h",)  # beside src/config, which knows no keys
CALL = re.compile(r"(?:\.|->|\b)(getAs|getSetting|saveSetting)\s*\(")
COMMENT = re.compile(r"//[^\n]*")


def check(source):
    for file in sorted([*source.rglob("*.h"), *source.rglob("*.cpp")]):
        name = "src/" + file.relative_to(source).as_posix()
        if name.startswith("src/config/") or name in ROAD:
            continue
        for called in CALL.findall(COMMENT.sub("", file.read_text())):
            yield "%s: %s is called past the table of settings" % (name, called)
