# SPDX-License-Identifier: GPL-3.0-or-later
"""What a screen reader gets of the player, as JSON: the children of its window, and what each says.

Needs the system's Python, which has the bindings. Words after the first are requests to an element
by its name: "press|NAME" or "value|NAME|NUMBER", done before the tree is read. "within|NAME" as the
first of them takes the window of that name, and all that is in it, in one row."""
import json
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

LIMIT = 20
ROWS = 5  # of a table are read


def children(node):
    return [node.get_child_at_index(i) for i in range(node.get_child_count())]


def find_window():
    end = time.monotonic() + LIMIT
    while time.monotonic() < end:
        for program in children(Atspi.get_desktop(0)):
            if program and "tovik" in (program.get_name() or "").lower():
                for window in children(program):
                    if window.get_child_count() > 5:
                        return window
        time.sleep(0.1)
    raise SystemExit("no window")


def find_dialog(name):
    end = time.monotonic() + LIMIT
    while time.monotonic() < end:
        for program in children(Atspi.get_desktop(0)):
            if program and "tovik" in (program.get_name() or "").lower():
                for window in below(program):
                    if window.get_role_name() in ("dialog", "alert") and window.get_name() == name:
                        return window
        time.sleep(0.1)
    raise SystemExit(f"no window {name!r}")


def below(node):
    for child in children(node):
        if child:
            yield child
            yield from below(child)


def states(node):
    known = node.get_state_set()
    return [name for name in ("showing", "enabled", "checked", "selected", "focused", "focusable")
            if known.contains(getattr(Atspi.StateType, name.upper()))]


def said(node):
    one = {"role": node.get_role_name(), "name": node.get_name(),
           "description": node.get_description(), "states": states(node)}
    if value := node.get_value_iface():
        one["value"] = [Atspi.Value.get_current_value(value), Atspi.Value.get_minimum_value(value),
                        Atspi.Value.get_maximum_value(value)]
    if text := node.get_text_iface():
        one["text"] = Atspi.Text.get_text(text, 0, -1)
    if action := node.get_action_iface():
        one["actions"] = [Atspi.Action.get_action_name(action, i)
                          for i in range(Atspi.Action.get_n_actions(action))]
    if table := node.get_table_iface():
        count = Atspi.Table.get_n_rows(table)
        one["rows"] = count
        one["columns"] = Atspi.Table.get_n_columns(table)
        one["cells"] = [[Atspi.Table.get_accessible_at(table, row, column).get_name()
                         for column in range(one["columns"])] for row in range(min(count, ROWS))]
    return one


def do(window, request):
    kind, name, *rest = request.split("|")
    named = [one for one in children(window) if one.get_name() == name]
    if kind == "press":
        action = next(filter(None, (one.get_action_iface() for one in named)))
        Atspi.Action.do_action(action, 0)
    else:
        value = next(filter(None, (one.get_value_iface() for one in named)))
        Atspi.Value.set_current_value(value, float(rest[0]))


words = sys.argv[1:]
if words and words[0].startswith("within|"):
    shown = find_dialog(words.pop(0).partition("|")[2])
    elements = list(below(shown))
else:
    shown = find_window()
    elements = children(shown)
for word in words:
    do(shown, word)
json.dump({"name": shown.get_name(), "role": shown.get_role_name(),
           "children": [said(one) for one in elements]}, sys.stdout)
