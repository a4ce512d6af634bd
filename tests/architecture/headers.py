# SPDX-License-Identifier: GPL-3.0-or-later
"""Headers of src/: how much one of them draws in, how much a class keeps to itself, and whether it
says on which thread it is used."""
import re

import tables

MOST_INCLUDES = 20  # of ours
MOST_PRIVATE = 25   # methods of a class; overloads count as one
RULES = ("includes", "private", "thread")

OWN_INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"', re.MULTILINE)
THREAD = re.compile(r"\bthreads?\b|\bcallback\b|\bunder the lock\b", re.IGNORECASE)
NOISE = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|^[ \t]*#[^\n]*|\[\[.*?\]\]',
                   re.DOTALL | re.MULTILINE)
CLASS = re.compile(r"\b(?:class|struct)\s+(\w+)[^;{}()=]*$")
ACCESS = re.compile(r"\b(public|protected|private)\s*:(?!:)")
NO_METHOD = re.compile(r"^\s*(?:,|(?:using|friend|typedef|static_assert|enum|class|struct|union)\b)")
CALL = re.compile(r"(\boperator\s*(?:\(\s*\)|[^\s\w(]+|\w+)|~?\b\w+)\s*\((?!\s*[\w:]*\*)")
NO_NAME = re.compile(r"\b(?:alignas|decltype|noexcept|requires|explicit)\s*\([^()]*\)")


def check(source, exceptions_path):
    """Yields what is wrong with the headers under `source`, except what the table excepts
    ("path: rules"); a row of it that nothing needs any more is wrong, too."""
    excepted = tables.read(exceptions_path)
    needed = set()
    for file in sorted(source.rglob("*.h")):
        name = "src/" + file.relative_to(source).as_posix()
        for rule, fault in _faults(file.read_text()):
            if rule in excepted.get(name, []):
                needed.add((name, rule))
            else:
                yield "%s: %s" % (name, fault)
    for name, rules in excepted.items():
        for rule in rules:
            if rule not in RULES:
                yield "exceptions.txt: %s is no rule" % rule
            elif (name, rule) not in needed:
                yield "exceptions.txt: %s keeps the rule \"%s\" by now" % (name, rule)


def _faults(text):
    included = len(OWN_INCLUDE.findall(text))
    if included > MOST_INCLUDES:
        yield "includes", "%d headers of ours, more than %d" % (included, MOST_INCLUDES)
    for name, count in private_methods(text):
        if count > MOST_PRIVATE:
            yield "private", "%d private methods in %s, more than %d" % (count, name, MOST_PRIVATE)
    if not THREAD.search(text.split("#pragma once")[0]):
        yield "thread", "its head does not say on which thread it is used"


def private_methods(text):
    """(name, how many of its methods are private) of each class and struct, innermost first."""
    open_classes = []  # [name, depth of its body, is private, names of private methods]
    depth = 0
    statement = ""
    for piece in re.split(r"([{};])", NOISE.sub(" ", text)):
        if piece not in ("{", "}", ";"):
            statement += piece
            continue
        current = open_classes[-1] if open_classes and open_classes[-1][1] == depth else None
        if piece != "}" and current:
            statement = _follow_access(statement, current)
        if piece == "{":
            depth += 1
            begun = CLASS.search(statement)
            if begun and not re.search(r"\benum\b", statement):
                open_classes.append([begun[1], depth, "class" in begun[0].split()[0], set()])
            elif current and current[2]:
                current[3].update(_method(statement))
        elif piece == "}":
            if current:
                yield current[0], len(current[3])
                open_classes.pop()
            depth -= 1
        elif current and current[2]:
            current[3].update(_method(statement))
        # What follows a body belongs to nothing: a method's ends there, a member's has only ";".
        statement = ""


def _follow_access(statement, current):
    """The statement without the access words in front of it, which `current` takes over."""
    words = ACCESS.findall(statement)
    if words:
        current[2] = words[-1] == "private"
    return ACCESS.sub(" ", statement)


def _method(statement):
    """The name of the method that the statement declares, or nothing."""
    if NO_METHOD.match(statement):
        return []
    # An initialiser calls functions, too; a template's arguments may be types of functions.
    declared = re.split(r"(?<!operator)(?<!operator=)(?<![<>!=])=(?!=)", statement)[0]
    declared = NO_NAME.sub(" ", declared)
    while (bare := re.sub(r"<[^<>]*>", " ", declared)) != declared:
        declared = bare
    found = CALL.search(declared)
    return [found[1]] if found else []
