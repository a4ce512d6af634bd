# SPDX-License-Identifier: GPL-3.0-or-later
"""docs/names.md explains names of the source: each of them must still be in it."""
import re

ROW = re.compile(r"^\|([^|]*`[^|]*)\|", re.MULTILINE)
QUOTED = re.compile(r"`([^`]+)`")
WORD = re.compile(r"[A-Za-z_]\w*")


def check(page, source):
    """Yields the names in the first column of the page's tables that no file of `source` holds as
    a word. Their case does not count: the words of the log differ from the names in the code."""
    used = set()
    for file in sorted([*source.rglob("*.h"), *source.rglob("*.cpp")]):
        used.update(word.lower() for word in WORD.findall(file.read_text()))
    rows = ROW.findall(page.read_text())
    if not rows:
        yield "%s: no names in it" % page.name
    for name in (name for row in rows for name in QUOTED.findall(row)):
        if name.lower() not in used:
            yield "%s: `%s` is in no source file" % (page.name, name)
