# SPDX-License-Identifier: GPL-3.0-or-later
"""Each check passes a small good tree and fails for exactly the fault put into it."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True

import comfort  # noqa: E402
import files  # noqa: E402
import headers  # noqa: E402
import includes  # noqa: E402
import names  # noqa: E402
import places  # noqa: E402
import settings  # noqa: E402

LINE = "// SPDX-License-Identifier: GPL-3.0-or-later\n"
FLOORS = "base:\nsound: base\nsound/mix: base sound\nui: base # a comment\nui/qt: base ui\n"
LIBRARIES = "SDL*: sound\nwidgets: ui/qt\nQ*: ui ui/qt\nunistd.h: *\n"
WIDGETS = {"QWidget", "QLabel"}
CMAKE = sys.argv.pop() if len(sys.argv) > 1 else "cmake"


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


class HeaderChecks(Tree):
    HEAD = LINE + "// What it holds. Any thread.\n#pragma once\n"

    def setUp(self):
        super().setUp()
        for file in (self.root / "src").rglob("*.h"):
            file.write_text(self.HEAD + file.read_text())
        self.write("exceptions.txt", "# none\n")

    def header_faults(self):
        return list(headers.check(self.root / "src", self.root / "exceptions.txt"))

    @staticmethod
    def methods(count):
        return "".join("    void hidden%d();\n" % number for number in range(count))

    def write_class(self, methods):
        self.write("src/ui/Big.h", self.HEAD + "class Big {\npublic:\n" + "    void seen();\n" * 50
                   + "private:\n" + methods + "};\n")

    def test_good_tree(self):
        self.assertEqual(self.header_faults(), [])

    def test_many_includes(self):
        include = '#include "base/Text.h"\n'
        self.write("src/ui/Big.h", self.HEAD + "#include <string>\n" + include * headers.MOST_INCLUDES)
        self.assertEqual(self.header_faults(), [])
        self.write("src/ui/Big.h", self.HEAD + include * (headers.MOST_INCLUDES + 1))
        self.assert_fault(self.header_faults(), "src/ui/Big.h: 21 headers of ours")

    def test_many_private_methods(self):
        self.write_class(self.methods(headers.MOST_PRIVATE))
        self.assertEqual(self.header_faults(), [])
        self.write_class(self.methods(headers.MOST_PRIVATE + 1))
        self.assert_fault(self.header_faults(), "src/ui/Big.h: 26 private methods in Big")

    def test_what_counts_as_a_private_method(self):
        counts = {
            "void a();": 1,
            "void a(int); void a(bool) const; ~Big();": 2,
            "[[nodiscard]] int a(int b = c(1)) const { return b; }": 1,
            "template <typename T> void a(T&& b) noexcept;": 1,
            "Big& operator=(const Big&) = delete;": 1,
            "bool operator()(int) const; bool operator==(const Big&) const = default;": 2,
            "static A<void(int)> a(); Big() : b_{1}, c_(2) { run(); }": 2,
            "int a = b(1); A c{d(2)}; std::function<void(int)> e; alignas(64) int f;": 0,
            "std::unique_ptr<T> a_ = make([this] { run(); stop(); });": 0,
            "void (*a)(int); void (Big::*b)(); using C = void(int); friend void d(Big&);": 0,
            "struct In { void a(); private: void b(); }; In in_;": 0,
            "void a(); public: void b(); protected: void c(); private: void d();": 2,
            "// void a();\n/* void b(); */ const char* c = \"void d();\";": 0,
        }
        for text, count in counts.items():
            self.write_class(text + "\n")
            found = dict(headers.private_methods((self.root / "src/ui/Big.h").read_text()))
            self.assertEqual(found["Big"], count, text)

    def test_a_struct_is_open_until_it_says_otherwise(self):
        for text, count in (("struct S { void a(); };", 0), ("class S { void a(); };", 1),
                            ("struct S final : B { private: void a(); };", 1)):
            self.assertEqual(list(headers.private_methods(text)), [("S", count)])

    def test_no_thread_in_the_head(self):
        self.write("src/ui/Bare.h", LINE + "// What it holds.\n#pragma once\n// Any thread.\n")
        self.assert_fault(self.header_faults(), "src/ui/Bare.h: its head")

    def test_exception(self):
        self.write("src/ui/Bare.h", LINE + "#pragma once\n")
        self.write("exceptions.txt", "src/ui/Bare.h: thread\n")
        self.assertEqual(self.header_faults(), [])

    def test_exception_that_nothing_needs(self):
        self.write("exceptions.txt", "src/ui/Image.h: thread\n")
        self.assert_fault(self.header_faults(), 'keeps the rule "thread" by now')
        self.write("exceptions.txt", "src/ui/Image.h: rule\n")
        self.assert_fault(self.header_faults(), "rule is no rule")


class NameChecks(Tree):
    def faults(self, page):
        self.write("names.md", page)
        return list(names.check(self.root / "names.md", self.root / "src"))

    def test_names_of_the_source(self):
        self.write("src/ui/Old.h", LINE + "int Poraba, eq_sld;\n")
        page = "| name | what |\n|---|---|\n| `poraba`, `eq_sld` | use, `gone` |\n"
        self.assertEqual(self.faults(page), [])

    def test_name_that_is_gone(self):
        self.write("src/ui/Old.h", LINE + "int eq_slider;\n")
        self.assert_fault(self.faults("| `eq_sld` | sliders |\n"), "`eq_sld` is in no source file")

    def test_page_without_names(self):
        self.assert_fault(self.faults("# Names\n"), "no names")


class FloorTable(Tree):
    """What CMake reads out of the same tables."""
    SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "cmake" / "FloorTable.cmake"

    def setUp(self):
        super().setUp()
        self.write("floors.txt", FLOORS + "sound/api: base sound\nui/text: base sound/mix sound/api\n")
        for folder in ("base", "sound", "sound/mix", "ui", "ui/qt"):
            self.write("src/%s/CMakeLists.txt" % folder, "")

    def answer(self, *commands):
        lines = ["include(%s)" % self.SCRIPT,
                 "tovik_read_floors(%s %s)" % (self.root / "floors.txt", self.root / "src"),
                 *("tovik_target_of(%s %s)" % pair for pair in (
                     ("base", "base"), ("sound", "sound"), ("sound/mix", "mix"), ("ui", "ui"),
                     ("ui", "uiToo"))),
                 *commands, 'message("${out}")']
        self.write("script.cmake", "\n".join(lines))
        run = subprocess.run([CMAKE, "-P", str(self.root / "script.cmake")], check=True,
                             capture_output=True, text=True)
        return run.stderr.strip()

    def test_order_of_folders(self):
        self.assertEqual(self.answer('tovik_children("" out)'), "base;sound;ui")
        self.assertEqual(self.answer("tovik_children(sound out)"), "mix;api")

    def test_what_a_folder_may_use(self):
        self.assertEqual(self.answer("tovik_usable(base out)"), "")
        self.assertEqual(self.answer("tovik_usable(sound/mix out)"), "base;sound")

    def test_both_targets_of_a_folder(self):
        self.assertEqual(self.answer("tovik_usable(ui/qt out)"), "base;ui;uiToo")

    def test_a_folder_without_a_target_belongs_to_the_one_above(self):
        # "ui/text" is a part of "ui", "sound/api" of "sound"; "ui/qt" stands for itself.
        self.assertEqual(self.answer("tovik_usable(ui out)"), "base;mix;sound")

    def test_folders_with_widgets(self):
        self.assertEqual(self.answer("tovik_read_widget_folders(%s)" % (self.root / "libraries.txt"),
                                     "get_property(out GLOBAL PROPERTY TOVIK_WIDGET_FOLDERS)"),
                         "ui/qt")


class ComfortChecks(Tree):
    PAGE = ("| what | where | switch |\n|---|---|---|\n| a stop | x | CMF01 |\n"
            "| a start | y | CMF02 |\n| a leak | z | - |\n\n"
            "## The switches\n\n| switch | what it says |\n|---|---|\n| CMF01 | Stops |\n"
            "| CMF02 | Starts |\n\n## Without a switch\n\n- a leak: nobody sees it\n")
    HEADER = ("struct Comfort {\n    bool stops = false;  ///< a stop\n"
              "    bool starts = false; ///< a start\n"
              "    friend bool operator==(const Comfort&) = default;\n};\n")
    TABLE = ('{"CMF01", "Stops"},\n{"CMF02", "Starts"},\n'
             "{&Comfort::stops, 1},\n{&Comfort::starts, 2},\n")

    def faults(self, page=PAGE, header=HEADER, table=TABLE):
        self.write("oddities.md", page)
        self.write("Comfort.h", header)
        self.write("ComfortTable.h", table)
        return list(comfort.check(self.root / "oddities.md", self.root / "Comfort.h",
                                  self.root / "ComfortTable.h"))

    def test_rows_and_members_that_fit(self):
        self.assertEqual(self.faults(), [])

    def test_row_without_a_member(self):
        self.assert_fault(
            self.faults(page=self.PAGE.replace("| a leak", "| a new one | w | - |\n| a leak")),
            '"a new one" has 0')

    def test_row_with_a_member_and_a_reason(self):
        self.assert_fault(self.faults(page=self.PAGE + "- a stop: why\n"), '"a stop" has 2')

    def test_member_of_a_row_that_is_gone(self):
        self.assert_fault(self.faults(page=self.PAGE.replace("| a stop | x | CMF01 |\n", "")),
                          '"a stop" is no row')

    def test_member_that_is_on(self):
        self.assert_fault(self.faults(header=self.HEADER.replace("stops = false; ", "stops; ")),
                          "stops is not off")

    def test_member_that_names_no_row(self):
        self.assert_fault(
            self.faults(header=self.HEADER.replace("};", "    bool x = false;\n};")), "names no row")

    def test_row_that_names_another_switch(self):
        self.assert_fault(self.faults(page=self.PAGE.replace("| x | CMF01", "| x | CMF02")),
                          '"a stop" names CMF02, its member is turned by CMF01')

    def test_row_that_names_a_switch_without_a_member(self):
        self.assert_fault(self.faults(page=self.PAGE.replace("| z | -", "| z | CMF02")),
                          '"a leak" names CMF02')

    def test_switches_that_say_something_else(self):
        self.assert_fault(self.faults(page=self.PAGE.replace("| Starts", "| Begins")),
                          "not those of ComfortTable.h")
        self.assert_fault(self.faults(page=self.PAGE.replace("| CMF02 | Starts |\n", "")),
                          "not those of ComfortTable.h")


class PlaceChecks(Tree):
    PAGE = "| what | where |\n|---|---|\n| a stop | `Player::stop` in `src/ui/Player.cpp` |\n"

    def faults(self, page=PAGE):
        self.write("oddities.md", page)
        self.write("src/ui/Player.cpp", LINE + "void Player::stop() {}\n")
        return list(places.check_page(self.root / "oddities.md", self.root))

    def test_places(self):
        self.assertEqual(self.faults(), [])
        self.assert_fault(self.faults(self.PAGE.replace("Player.cpp", "Gone.cpp")),
                          '"a stop" names Gone.cpp, which')
        self.assert_fault(self.faults(self.PAGE.replace("::stop", "::sto")),
                          '"a stop": no sto in Player.cpp')
        self.assert_fault(self.faults(self.PAGE.replace("`src/ui/Player.cpp`", "the player")),
                          '"a stop" names no file')
        self.assert_fault(self.faults("## Nothing\n"), "holds no rows")

    def members(self, source):
        self.write("src/base/Comfort.h", LINE + "struct Comfort {\n    bool stops = false;\n};\n")
        self.write("src/base/ComfortTable.h", LINE + "{&Comfort::stops, 1}\n")
        self.write("src/ui/Player.cpp", LINE + source)
        return list(places.check_members(self.root / "src/base/Comfort.h", self.root / "src"))

    def test_members_that_somebody_looks_at(self):
        self.assertEqual(self.members("if (comfort.stops) {\n"), [])
        self.assert_fault(self.members("// see Comfort::stops\n"), "nobody looks at stops")


class SettingChecks(Tree):
    def faults(self, name, line):
        self.write("src/" + name, LINE + line + "\n")
        return list(settings.check(self.root / "src"))

    def test_road_through_the_table(self):
        for name in ("config/Settings.cpp", "player/LiveSetting.h"):
            self.assertEqual(self.faults(name, 'settings.getSetting("MI");'), [])
        self.assertEqual(self.faults("ui/Good.cpp", 'readLive(settings, "MI"); // getSetting("MI")'),
                         [])

    def test_calls_past_it(self):
        for call, name in (('core.settings.getAs("MI", toNumber)', "getAs"),
                           ("settings->getSetting(kKey)", "getSetting"),
                           ('settings_.saveSetting ("MI", text)', "saveSetting")):
            self.assert_fault(self.faults("ui/Bad.cpp", call + ";"), "Bad.cpp: %s is" % name)


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
