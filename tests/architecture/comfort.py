# SPDX-License-Identifier: GPL-3.0-or-later
"""Each row of docs/oddities.md has its member in `Comfort`, or is listed there as one that needs
none; each member is off at first and names its row; each row names the switch that turns its
member, and the page lists the switches as the program has them."""
import re

MEMBER = re.compile(r"^ +bool (\w+)( = false)?; +///< (.+)$", re.MULTILINE)
ANY_MEMBER = re.compile(r"^ +bool \w+ *[;={]", re.MULTILINE)
ROW = re.compile(r"^\| ([^|]+?) \|(?:.*\|)? ([^|]+?) \|$", re.MULTILINE)
LISTED = re.compile(r"^- ([^:\n]+):", re.MULTILINE)
SWITCH = re.compile(r"^\| (CMF\d+) \| (.+?) \|$", re.MULTILINE)
TURNS = re.compile(r"\{&Comfort::(\w+), (\d+)\}")
TABLE_SWITCH = re.compile(r'\{"(CMF\d+)", "([^"]+)"')
SWITCHES = "## The switches"
HEADING = "## Without a switch"
NONE = "-"


def check(page, header, table):
    rows_text, _, rest = page.read_text().partition(SWITCHES)
    switches_text, _, reasons = rest.partition(HEADING)
    rows = {row: switch for row, switch in ROW.findall(rows_text) if row != "what"}
    listed = LISTED.findall(reasons)
    members = MEMBER.findall(header.read_text())
    told = [row for _, _, row in members]
    if not rows or not members:
        yield "%s and %s hold no rows" % (page.name, header.name)
    for row in rows:
        count = told.count(row) + listed.count(row)
        if count != 1:
            yield "%s: \"%s\" has %d members or reasons for none" % (page.name, row, count)
    for row in [*told, *listed]:
        if row not in rows:
            yield "\"%s\" is no row of %s" % (row, page.name)
    for name, off, _ in members:
        if not off:
            yield "%s: %s is not off at first" % (header.name, name)
    if len(ANY_MEMBER.findall(header.read_text())) != len(members):
        yield "%s: a member names no row" % header.name
    yield from check_switches(page, rows, members, SWITCH.findall(switches_text), table)


def check_switches(page, rows, members, switches, table):
    text = table.read_text()
    turns = {member: "CMF%02d" % int(number) for member, number in TURNS.findall(text)}
    expected = {row: turns.get(member, "none") for member, _, row in members}
    for row, switch in rows.items():
        if switch != expected.get(row, NONE):
            yield "%s: \"%s\" names %s, its member is turned by %s" % (
                page.name, row, switch, expected.get(row, NONE))
    if switches != TABLE_SWITCH.findall(text):
        yield "%s: the switches are not those of %s" % (page.name, table.name)
