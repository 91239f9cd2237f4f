#!/usr/bin/env python3
"""Runs the layer check on small trees made for the purpose: one sound tree, and one broken tree a rule."""
import os
import subprocess
import sys
import tempfile
import unittest

CHECK = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools", "layer_check.py")

# A sound tree: one core file and one window file on each of two floors, and the program.
SOUND = {
    "src/CMakeLists.txt": "foreach(folder common platform settings view board session)\n"
    "endforeach()\nadd_executable(brightrank main.cpp)\n",
    "src/main.cpp": '// The program.\n#include "board/Board.h"\n#include <QApplication>\n',
    "src/common/CMakeLists.txt": "target_sources(brightrank_core PRIVATE\n    Text.cpp\n    Text.h)\n",
    "src/common/Text.h": "// Text.\n#pragma once\n#include <string>\n",
    "src/common/Text.cpp": '// Text.\n#include "common/Text.h"\n',
    "src/board/CMakeLists.txt": "target_sources(brightrank_core PRIVATE Rules.h)\n"
    "target_sources(brightrank_windows PRIVATE Board.h)\n",
    "src/board/Rules.h": '// Rules.\n#pragma once\n#include "common/Text.h"\n',
    "src/board/Board.h": '// Board.\n#pragma once\n#include "board/Rules.h"\n#include <QWidget>\n',
}


class LayerCheck(unittest.TestCase):
    def run_on(self, changes):
        """Status and findings of the check on the sound tree with `changes` (file -> text) written over it."""
        with tempfile.TemporaryDirectory() as root:
            for name, text in {**SOUND, **changes}.items():
                path = os.path.join(root, name)
                os.makedirs(os.path.dirname(path), exist_ok=True)
                with open(path, "w", encoding="latin-1") as file:
                    file.write(text)
            done = subprocess.run([sys.executable, CHECK, root], capture_output=True, text=True, check=False)
            return done.returncode, done.stderr

    def expect(self, changes, *finding):
        """The broken tree fails, with exactly one finding, which holds each text of `finding`."""
        status, errors = self.run_on(changes)
        self.assertEqual(status, 1, errors)
        self.assertEqual(len(errors.splitlines()), 1, errors)
        for part in finding:
            self.assertIn(part, errors)

    def test_passes_a_sound_tree(self):
        self.assertEqual(self.run_on({}), (0, ""))

    def test_passes_generated_meta_object_code_in_a_window_file(self):
        board = SOUND["src/board/Board.h"] + '#include "Board.moc"\n'
        self.assertEqual(self.run_on({"src/board/Board.h": board}), (0, ""))

    def test_finds_qt_in_core(self):
        for header in ["<QString>", "<QtCore/QString>", "<qglobal.h>", '"QString"', "<QtGlobal>"]:
            with self.subTest(header):
                rules = f"// Rules.\n#include {header}\n"
                self.expect({"src/board/Rules.h": rules}, "src/board/Rules.h:2", "Qt header")

    def test_finds_an_arrow_that_runs_up(self):
        text = '// Text.\n#include "board/Rules.h"\n'
        changes = {"src/common/Text.cpp": text}
        self.expect(changes, "src/common/Text.cpp:2", "common may not include board/")

    def test_finds_an_arrow_that_runs_sideways(self):
        changes = {
            "src/settings/CMakeLists.txt": "target_sources(brightrank_core PRIVATE Keys.h)",
            "src/settings/Keys.h": '// Keys.\n#include "view/Colours.h"\n',
            "src/view/CMakeLists.txt": "target_sources(brightrank_core PRIVATE Colours.h)",
            "src/view/Colours.h": "// Colours.\n",
        }
        self.expect(changes, "src/settings/Keys.h:2", "settings may not include view/")

    def test_finds_an_include_of_the_program_itself(self):
        changes = {"src/board/Board.h": '// Board.\n#include "main.cpp"\n', "src/main.cpp": "// The program.\n"}
        self.expect(changes, "board may not include main.cpp")

    def test_finds_a_circle(self):
        changes = {
            "src/board/CMakeLists.txt": "target_sources(brightrank_core PRIVATE Rules.h Moves.h)\n"
            "target_sources(brightrank_windows PRIVATE Board.h)\n",
            "src/board/Rules.h": '// Rules.\n#include "board/Moves.h"\n',
            "src/board/Moves.h": '// Moves.\n#include "board/Rules.h"\n',
        }
        self.expect(changes, "circle of includes", "board/Rules.h", "board/Moves.h")

    def test_finds_a_file_that_includes_itself(self):
        self.expect({"src/board/Rules.h": '// Rules.\n#include "board/Rules.h"\n'}, "circle of includes")

    def test_finds_an_include_that_is_not_root_relative(self):
        for name in ["Rules.h", "../common/Text.h", "../board/Rules.h"]:
            with self.subTest(name):
                board = f'// Board.\n#include "{name}"\n'
                self.expect({"src/board/Board.h": board}, "src/board/Board.h:2", "not root-relative")

    def test_finds_angle_brackets_round_our_own_header(self):
        self.expect({"src/board/Board.h": "// Board.\n#include <board/Rules.h>\n"}, "belongs in quotes")

    def test_finds_a_core_file_that_includes_a_windows_header(self):
        changes = {
            "src/board/Rules.h": '// Rules.\n#include "board/Board.h"\n',
            "src/board/Board.h": "// Board.\n",
        }
        self.expect(changes, "src/board/Rules.h:2", "board/Board.h of the windows library")

    def test_finds_a_file_over_the_limit(self):
        self.expect({"src/common/Text.h": "// Text.\n" * 601}, "601 lines")
        self.assertEqual(self.run_on({"src/common/Text.h": "// Text.\n" * 600}), (0, ""))

    def test_finds_an_unlisted_file(self):
        self.expect({"src/common/Numbers.cpp": "// Numbers.\n"}, "src/common/Numbers.cpp", "not listed")

    def test_finds_a_file_listed_only_in_a_comment(self):
        changes = {"src/common/CMakeLists.txt": "target_sources(brightrank_core PRIVATE Text.h # Text.cpp\n)\n"}
        self.expect(changes, "src/common/Text.cpp", "not listed")

    def test_finds_a_file_listed_twice(self):
        changes = {"src/common/CMakeLists.txt": "target_sources(brightrank_core PRIVATE Text.h Text.cpp Text.h)\n"}
        self.expect(changes, "src/common/Text.h", "listed twice")

    def test_finds_a_folder_without_a_floor(self):
        changes = {
            "src/CMakeLists.txt": SOUND["src/CMakeLists.txt"] + "# attic\n",
            "src/attic/CMakeLists.txt": "target_sources(brightrank_core PRIVATE Old.h)",
            "src/attic/Old.h": "// Old.\n",
        }
        self.expect(changes, "attic has no floor")

    def test_finds_a_folder_that_is_not_built(self):
        changes = {
            "src/seek/CMakeLists.txt": "target_sources(brightrank_core PRIVATE Ads.h)",
            "src/seek/Ads.h": "// Ads.\n",
        }
        self.expect(changes, "src/seek", "not built")

    def test_finds_a_file_without_a_purpose(self):
        self.expect({"src/common/Text.h": "#pragma once\n"}, "src/common/Text.h", "purpose")

    def test_finds_words_that_may_not_stand(self):
        words = ["Pa" + "rt 2.1", "the sp" + "ec says", "TO" + "DO", "see /wo" + "rk/x", "/ho" + "me/anna", "<" * 7 + " a"]
        for word in words:
            with self.subTest(word):
                self.expect({"docs/page.md": word + "\n"}, "docs/page.md:1")

    def test_finds_nothing_in_words_that_only_look_alike(self):
        text = "particular parts, specific, build/work/x, ${root}/home/x, todo lists, Part of 2.1 things\n"
        self.assertEqual(self.run_on({"docs/page.md": text}), (0, ""))

    def test_finds_an_empty_tree(self):
        with tempfile.TemporaryDirectory() as root:
            done = subprocess.run([sys.executable, CHECK, root], capture_output=True, text=True, check=False)
            self.assertEqual(done.returncode, 1)
            self.assertIn("no source files", done.stderr)


if __name__ == "__main__":
    unittest.main()
