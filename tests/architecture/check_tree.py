# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks the tree against its own rules: check_tree.py ROOT FOLDER_OF_QTWIDGETS_HEADERS"""
import pathlib
import sys

sys.dont_write_bytecode = True

import comfort  # noqa: E402
import files  # noqa: E402
import headers  # noqa: E402
import includes  # noqa: E402
import names  # noqa: E402
import places  # noqa: E402
import settings  # noqa: E402


def main(root, widgets_folder):
    here = pathlib.Path(__file__).resolve().parent
    widgets = {file.name for file in widgets_folder.iterdir()}
    faults = [
        *includes.check(root / "src", here / "floors.txt", here / "libraries.txt", widgets),
        *headers.check(root / "src", here / "exceptions.txt"),
        *settings.check(root / "src"),
        *names.check(root / "docs" / "names.md", root / "src"),
        *comfort.check(root / "docs" / "oddities.md", root / "src" / "base" / "Comfort.h",
                       root / "src" / "base" / "ComfortTable.h"),
        *places.check_page(root / "docs" / "oddities.md", root),
        *places.check_members(root / "src" / "base" / "Comfort.h", root / "src"),
        *files.check_sources(root),
        *files.check_documents(root),
    ]
    looked_at = len(list(files.sources(root)))
    print("\n".join(faults) or "%d files keep the rules" % looked_at)
    return 1 if faults or looked_at == 0 else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])))
