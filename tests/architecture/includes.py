# SPDX-License-Identifier: GPL-3.0-or-later
"""Includes: each file may use only the floors below it, and a library only its adaptor."""
import fnmatch
import re

import tables

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
STANDARD = re.compile(r"[a-z_]+")
GENERATED = re.compile(r"[A-Za-z0-9]+\.moc")


def folder_of(path, folders):
    """The longest folder of the table that holds the path (relative to src/), or None."""
    holding = [folder for folder in folders if path.startswith(folder + "/")]
    return max(holding, key=len, default=None)


def check(source, floors_path, libraries_path, widgets):
    """Yields what is wrong with the files under `source`. `widgets` is a set of header names."""
    floors, libraries = tables.read(floors_path), tables.read(libraries_path)
    yield from tables.upward(floors)
    for file in sorted([*source.rglob("*.h"), *source.rglob("*.cpp")]):
        name = file.relative_to(source).as_posix()
        folder = folder_of(name, floors)
        if folder is None:
            yield "src/%s: its folder is not in floors.txt" % name
            continue
        for own, foreign in INCLUDE.findall(file.read_text()):
            fault = (_own(own, folder, floors, source) if own
                     else _foreign(foreign, folder, libraries, widgets))
            if fault:
                yield "src/%s: %s" % (name, fault)


def _own(header, folder, floors, source):
    if GENERATED.fullmatch(header):
        return None
    if not (source / header).is_file():
        return '"%s" is no header of ours; paths begin below src/' % header
    target = folder_of(header, floors)
    if target in (folder, None) or target in floors[folder]:
        return None
    return '%s may not include "%s" of %s' % (folder, header, target)


def _foreign(header, folder, libraries, widgets):
    if STANDARD.fullmatch(header):
        return None
    for pattern, folders in libraries.items():
        fits = (header.split("/")[-1] in widgets or header.startswith("QtWidgets")
                if pattern == "widgets" else fnmatch.fnmatchcase(header, pattern))
        if fits:
            if folders == ["*"] or folder in folders:
                return None
            return "%s may not include <%s>" % (folder, header)
    return "<%s> is not in libraries.txt" % header
