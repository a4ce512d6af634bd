# SPDX-License-Identifier: GPL-3.0-or-later
"""Each check passes a small good tree and fails for exactly the fault put into it."""
import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True

import files  # noqa: E402
import includes  # noqa: E402

LINE = "// SPDX-License-Identifier: GPL-3.0-or-later\n"
FLOORS = "base:\nsound: base\nsound/mix: base sound\nui: base # a comment\nui/qt: base ui\n"
LIBRARIES = "SDL*: sound\nwidgets: ui/qt\nQ*: ui ui/qt\nunistd.h: *\n"
WIDGETS = {"QWidget", "QLabel"}


class Tree(unittest.TestCase):
    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.addCleanup(self._folder.cleanup)
        self.root = pathlib.Path(self._folder.name)
        self.write("floors.txt", FLOORS)
        self.write("libraries.txt", LIBRARIES)
        self.write("src/base/Text.h", LINE + "#include <string>\n#include <unistd.h>\n")
        self.write("src/sound/Sound.cpp", LINE + '#include "base/Text.h"\n#include <SDL.h>\n')
        self.write("src/sound/mix/Mix.h", LINE + '#include "base/Text.h"\n')
        self.write("src/ui/Image.h", LINE + "#include <QImage>\n")
        self.write("src/ui/qt/Window.h", LINE + '#include "ui/Image.h"\n#include <QWidget>\n')
        self.write("README.md", "See `src/base/Text.h`, `src/*/Image.h`, `Mix.h`, `./run`, `x/y`.\n")

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def include_faults(self):
        return list(includes.check(self.root / "src", self.root / "floors.txt",
                                   self.root / "libraries.txt", WIDGETS))

    def assert_fault(self, faults, words):
        self.assertEqual(len(faults), 1, faults)
        self.assertIn(words, faults[0])


class IncludeChecks(Tree):
    def test_good_tree(self):
        self.assertEqual(self.include_faults(), [])

    def test_upward(self):
        self.write("src/base/Bad.h", LINE + '#  include "ui/Image.h"\n')
        self.assert_fault(self.include_faults(), 'base may not include "ui/Image.h" of ui')

    def test_sideways(self):
        self.write("src/ui/Bad.cpp", LINE + '#include "sound/mix/Mix.h"\n')
        self.assert_fault(self.include_faults(), "of sound/mix")

    def test_parent_folder_is_not_the_child(self):
        self.write("src/sound/Bad.h", LINE + '#include "sound/mix/Mix.h"\n')
        self.assert_fault(self.include_faults(), "sound may not include")

    def test_path_not_below_src(self):
        self.write("src/base/Bad.h", LINE + '#include "Text.h"\n')
        self.assert_fault(self.include_faults(), "no header of ours")

    def test_folder_without_floor(self):
        self.write("src/attic/Old.h", LINE)
        self.assert_fault(self.include_faults(), "not in floors.txt")

    def test_table_that_points_upward(self):
        self.write("floors.txt", FLOORS.replace("base:", "base: sound"))
        self.assert_fault(self.include_faults(), "base names sound")

    def test_library_outside_its_adaptor(self):
        self.write("src/base/Bad.h", LINE + "#include <SDL.h>\n")
        self.assert_fault(self.include_faults(), "base may not include <SDL.h>")

    def test_qt_below_the_windows(self):
        self.write("src/base/Bad.h", LINE + "#include <QString>\n")
        self.assert_fault(self.include_faults(), "<QString>")

    def test_widget_in_the_logic(self):
        for header in ("QLabel", "QtWidgets/QLabel"):
            self.write("src/ui/Bad.h", LINE + "#include <%s>\n" % header)
            self.assert_fault(self.include_faults(), "ui may not include")

    def test_unknown_library(self):
        self.write("src/ui/qt/Bad.h", LINE + "#include <fftw3.h>\n")
        self.assert_fault(self.include_faults(), "not in libraries.txt")


class FileChecks(Tree):
    def test_good_tree(self):
        self.assertEqual(list(files.check_sources(self.root)), [])

    def test_missing_licence_line(self):
        self.write("tests/base/Text.cpp", "#include <string>\n" + LINE)
        self.assert_fault(list(files.check_sources(self.root)), "tests/base/Text.cpp: the licence")

    def test_licence_line_behind_the_interpreter(self):
        self.write("run", "#!/bin/bash\n# SPDX-License-Identifier: GPL-3.0-or-later\n")
        self.assertEqual(list(files.check_sources(self.root)), [])
        self.write("run", "#!/bin/bash\n")
        self.assert_fault(list(files.check_sources(self.root)), "run: the licence")

    def test_long_file(self):
        self.write("src/base/Long.cpp", LINE + "\n" * (files.LONGEST - 1))
        self.assertEqual(list(files.check_sources(self.root)), [])
        self.write("src/base/Long.cpp", LINE + "\n" * files.LONGEST)
        self.assert_fault(list(files.check_sources(self.root)), "501 lines")


class DocumentChecks(Tree):
    def test_good_tree(self):
        self.assertEqual(list(files.check_documents(self.root)), [])

    def test_path_that_is_gone(self):
        for word in ("src/base/Gone.h", "docs/gone.md", "src/*/Gone.h", "tests/gone/", "Gone.cpp"):
            self.write("docs/page.md", "Look at `%s` first.\n" % word)
            self.assert_fault(list(files.check_documents(self.root)), word)

    def test_path_beside_the_document(self):
        self.write("docs/page.md", "`other.py`, `docs/page.md` and `tests/base/`\n")
        self.write("tests/base/CMakeLists.txt", "")
        self.assert_fault(list(files.check_documents(self.root)), "other.py")
        self.write("docs/other.py", "")
        self.assertEqual(list(files.check_documents(self.root)), [])


if __name__ == "__main__":
    unittest.main()
