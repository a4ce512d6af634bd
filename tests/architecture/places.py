# SPDX-License-Identifier: GPL-3.0-or-later
"""Each row of docs/oddities.md tells where its behaviour stands: in that file, under that name. And
each member of `Comfort` is looked at by somebody."""
import re

ROW = re.compile(r"^\| ([^|]+?) \| ([^|]+?) \|", re.MULTILINE)
QUOTED = re.compile(r"`([^`]+)`")
MEMBER = re.compile(r"^ +bool (\w+) = false;", re.MULTILINE)
NOTE = re.compile(r"//[^\n]*")


def holds(text, name):
    return re.search(r"\b%s\b" % re.escape(name), text) is not None


def check_page(page, root):
    """Yields the places of the page that are none. A class may be told of in the header alone."""
    rows = [row for row in ROW.findall(page.read_text().partition("\n## ")[0])
            if row[0] != "what"]
    if not rows:
        yield "%s holds no rows" % page.name
    for what, where in rows:
        quoted = QUOTED.findall(where)
        files = [root / word for word in quoted if word.startswith("src/")]
        if not files:
            yield "%s: \"%s\" names no file" % (page.name, what)
        for file in files:
            if not file.is_file():
                yield "%s: \"%s\" names %s, which is not there" % (page.name, what, file.name)
                continue
            text = file.read_text()
            for word in quoted:
                name = word.split("::")[-1]
                if not word.startswith("src/") and not holds(text, name):
                    yield "%s: \"%s\": no %s in %s" % (page.name, what, name, file.name)


def check_members(header, source):
    """Yields the members of the header that no other file of `source` looks at."""
    text = "\n".join(NOTE.sub("", file.read_text())
                     for file in sorted([*source.rglob("*.h"), *source.rglob("*.cpp")])
                     if not file.name.startswith(header.stem))
    for name in MEMBER.findall(header.read_text()):
        if not holds(text, name):
            yield "%s: nobody looks at %s" % (header.name, name)
