# SPDX-License-Identifier: GPL-3.0-or-later
"""Every source file: its licence line and its length. Every document: the paths it names."""
import re

LONGEST = 500  # lines
LICENCE = "SPDX-License-Identifier: GPL-3.0-or-later"
TOPS = ("src", "tests", "fuzz", "bench", "cmake", "packaging", "tools", ".ci", "include",
        "plugins")
SOURCE_ENDINGS = {".h", ".cpp", ".py", ".cmake", ".sh"}
PROGRAMS = {"run", "check", "make_media", "CMakeLists.txt"}

QUOTED = re.compile(r"`([^`\n]+)`")
PATH = re.compile(r"(?:\./)?[\w.*-]+(?:/[\w.*-]+)*/?")
DOCUMENT_TOPS = (*TOPS, "docs", "data")


def sources(root):
    for name in ("run", "check", "CMakeLists.txt"):
        if (root / name).is_file():
            yield root / name
    for top in TOPS:
        for file in sorted((root / top).rglob("*")):
            if file.is_file() and (file.suffix in SOURCE_ENDINGS or file.name in PROGRAMS):
                yield file


def check_sources(root):
    for file in sources(root):
        name = file.relative_to(root).as_posix()
        lines = file.read_text().splitlines()
        if len(lines) > LONGEST:
            yield "%s: %d lines, more than %d" % (name, len(lines), LONGEST)
        first = lines[1:2] if lines and lines[0].startswith("#!") else lines[:1]
        if not first or LICENCE not in first[0]:
            yield "%s: the licence line is missing" % name


def documents(root):
    yield from sorted(root.glob("*.md"))
    for top in DOCUMENT_TOPS:
        yield from sorted((root / top).rglob("*.md"))


def check_documents(root):
    """A path in backticks must lead to something: from the top, or from beside the document.
    A lone header or source name must be the name of some file."""
    names = {file.name for file in sources(root)}
    for document in documents(root):
        for text in QUOTED.findall(document.read_text()):
            word = text.split()[0] if text.strip() else ""
            if PATH.fullmatch(word) and _names_nothing(word.removeprefix("./"), root,
                                                       document.parent, names):
                yield "%s: `%s` does not exist" % (document.relative_to(root), word)


def _names_nothing(word, root, beside, names):
    if "/" not in word:
        return word.endswith((".h", ".cpp", ".py")) and word not in names \
            and not any(beside.glob(word))
    if word.split("/")[0] not in DOCUMENT_TOPS:
        return False
    pattern = word.rstrip("/")
    return not any(root.glob(pattern)) and not any(beside.glob(pattern))
