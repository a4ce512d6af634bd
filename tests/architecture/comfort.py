# SPDX-License-Identifier: GPL-3.0-or-later
"""Each row of docs/oddities.md has its switch in `Comfort`, or is listed there as one that needs
none; each switch is off at first and names its row."""
import re

SWITCH = re.compile(r"^ +bool (\w+)( = false)?; +///< (.+)$", re.MULTILINE)
ROW = re.compile(r"^\| ([^|]+?) \|", re.MULTILINE)
LISTED = re.compile(r"^- ([^:\n]+):", re.MULTILINE)
HEADING = "## Without a switch"


def check(page, header):
    text = page.read_text()
    table, _, rest = text.partition(HEADING)
    rows = [row for row in ROW.findall(table) if row not in ("what", "---")]
    listed = LISTED.findall(rest)
    switches = SWITCH.findall(header.read_text())
    told = [row for _, _, row in switches]
    if not rows or not switches:
        yield "%s and %s hold no rows" % (page.name, header.name)
    for row in rows:
        count = told.count(row) + listed.count(row)
        if count != 1:
            yield "%s: \"%s\" has %d switches or reasons for none" % (page.name, row, count)
    for row in [*told, *listed]:
        if row not in rows:
            yield "\"%s\" is no row of %s" % (row, page.name)
    for name, off, _ in switches:
        if not off:
            yield "%s: %s is not off at first" % (header.name, name)
    if header.read_text().count(" bool ") != len(switches):
        yield "%s: a switch names no row" % header.name
