#!/usr/bin/env python3
"""Runs the layer check on small trees made for the purpose: one sound tree, and one broken tree a rule."""
import os
import subprocess
import sys
import tempfile
import unittest

CHECK = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools", "layer_check.py")

# A sound tree: in src and in practice files of both libraries on two floors, and the programs; and a fuzz target.
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
    "practice/CMakeLists.txt": "add_library(brightrank_practice_lib STATIC)\nadd_executable(brightrank-practice main.cpp)\n"
    "foreach(room chess games server)\nendforeach()\n",
    "practice/main.cpp": '// The server.\n#include "practice/server/Server.h"\n#include <QTimer>\n',
    "practice/chess/CMakeLists.txt": "target_sources(brightrank_practice_lib PRIVATE Moves.cpp Moves.h)\n",
    "practice/chess/Moves.h": "// Moves.\n#include <string>\n",
    "practice/chess/Moves.cpp": '// Moves.\n#include "practice/chess/Moves.h"\n',
    "practice/games/CMakeLists.txt": "target_sources(brightrank_practice_lib PRIVATE Game.cpp Game.h List.cpp List.h)\n",
    "practice/games/Game.h": '// Game.\n#include "practice/chess/Moves.h"\n',
    "practice/games/Game.cpp": '// Game.\n#include "practice/games/Game.h"\n',
    "practice/games/List.h": "// List.\n",
    "practice/games/List.cpp": '// List.\n#include "practice/games/Game.h"\n#include "practice/games/List.h"\n',
    "practice/server/CMakeLists.txt": "target_sources(brightrank-practice PRIVATE Server.h)\n",
    "practice/server/Server.h": '// Server.\n#include "practice/games/Game.h"\n#include <QTcpServer>\n',
    "fuzz/FuzzRules.cpp": '// Rules.\n#include "Tape.h"\n#include "board/Rules.h"\n#include <vector>\n',
    "fuzz/Tape.h": "// Tape.\n",
    "fuzz/Tape.cpp": '// Tape.\n#include "Tape.h"\n',
}


class LayerCheck(unittest.TestCase):
    def run_on(self, changes):
        """Status and findings of the check on the sound tree with `changes` (file -> text, or None for no file) put over it."""
        with tempfile.TemporaryDirectory() as root:
            for name, text in {**SOUND, **changes}.items():
                if text is None:
                    continue
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
        self.expect(changes, "src/board/Rules.h:2", "includes board/Board.h of brightrank_windows")

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

    def test_finds_an_arrow_that_runs_up_in_practice(self):
        changes = {
            "practice/chess/Moves.h": '// Moves.\n#include "practice/games/List.h"\n',
            "practice/games/List.cpp": '// List.\n#include "practice/games/List.h"\n',
        }
        self.expect(changes, "practice/chess/Moves.h:2", "chess may not include games/")

    def test_finds_an_arrow_that_runs_sideways_in_practice(self):
        changes = {
            "practice/CMakeLists.txt": SOUND["practice/CMakeLists.txt"] + "# people\n",
            "practice/people/CMakeLists.txt": "target_sources(brightrank_practice_lib PRIVATE Accounts.h)",
            "practice/people/Accounts.h": '// Accounts.\n#include "practice/games/Game.h"\n',
        }
        self.expect(changes, "practice/people/Accounts.h:2", "people may not include games/")

    def test_finds_an_include_of_the_practice_program_itself(self):
        changes = {"practice/server/Server.h": '// Server.\n#include "practice/main.cpp"\n', "practice/main.cpp": "// It.\n"}
        self.expect(changes, "server may not include main.cpp")

    def test_finds_a_circle_of_headers_in_practice(self):
        changes = {
            "practice/games/Game.h": '// Game.\n#include "practice/games/List.h"\n',
            "practice/games/List.h": '// List.\n#include "practice/games/Game.h"\n',
        }
        self.expect(changes, "practice/games/Game: circle of includes", "games/List")

    def test_finds_a_circle_through_the_code_behind_a_header_in_practice(self):
        changes = {"practice/games/Game.cpp": '// Game.\n#include "practice/games/List.h"\n'}
        self.expect(changes, "practice/games/Game: circle of includes", "games/List")

    def test_finds_a_header_that_includes_its_own_code_in_practice(self):
        for name in ["Moves.h", "Moves.cpp"]:
            with self.subTest(name):
                changes = {"practice/chess/Moves.h": f'// Moves.\n#include "practice/chess/{name}"\n'}
                self.expect(changes, "practice/chess/Moves: circle of includes")

    def test_finds_qt_in_the_library_of_practice(self):
        changes = {"practice/games/Game.h": "// Game.\n#include <QString>\n"}
        self.expect(changes, "practice/games/Game.h:2", "Qt header QString in brightrank_practice_lib")

    def test_finds_a_library_file_of_practice_that_includes_one_of_the_program(self):
        changes = {
            "practice/server/CMakeLists.txt": "target_sources(brightrank-practice PRIVATE Server.h)\n"
            "target_sources(brightrank_practice_lib PRIVATE Dialog.h)\n",
            "practice/server/Dialog.h": '// Dialog.\n#include "practice/server/Server.h"\n',
        }
        self.expect(changes, "practice/server/Dialog.h:2", "includes server/Server.h of brightrank-practice")

    def test_finds_an_unlisted_file_of_practice(self):
        self.expect({"practice/chess/Clock.h": "// Clock.\n"}, "practice/chess/Clock.h", "not listed")

    def test_finds_a_room_without_a_floor(self):
        changes = {
            "practice/CMakeLists.txt": SOUND["practice/CMakeLists.txt"] + "# attic\n",
            "practice/attic/CMakeLists.txt": "target_sources(brightrank_practice_lib PRIVATE Old.h)",
            "practice/attic/Old.h": "// Old.\n",
        }
        self.expect(changes, "practice/attic/Old.h", "attic has no floor")

    def test_finds_a_file_of_practice_outside_of_every_room(self):
        changes = {"practice/CMakeLists.txt": SOUND["practice/CMakeLists.txt"].replace("main.cpp", "main.cpp Loose.h")}
        self.expect({**changes, "practice/Loose.h": "// Loose.\n"}, "practice/Loose.h", "has no floor")

    def test_finds_a_room_that_is_not_built(self):
        changes = {
            "practice/hall/CMakeLists.txt": "target_sources(brightrank_practice_lib PRIVATE Hall.h)",
            "practice/hall/Hall.h": "// Hall.\n",
        }
        self.expect(changes, "practice/hall", "not built")

    def test_finds_an_include_of_practice_that_is_not_root_relative(self):
        for name in ["Moves.h", "chess/Moves.h", "../chess/Moves.h"]:
            with self.subTest(name):
                self.expect({"practice/games/List.h": f'// List.\n#include "{name}"\n'}, "List.h:2", "not root-relative")

    def test_finds_angle_brackets_round_a_header_of_practice(self):
        changes = {"practice/games/List.h": "// List.\n#include <practice/chess/Moves.h>\n"}
        self.expect(changes, "practice/games/List.h:2", "belongs in quotes")

    def test_finds_the_client_and_the_practice_server_in_each_other(self):
        self.expect({"practice/games/List.h": '// List.\n#include "common/Text.h"\n'}, "practice/games/List.h:2")
        self.expect({"src/board/Rules.h": '// Rules.\n#include "practice/chess/Moves.h"\n'}, "src/board/Rules.h:2")

    def test_finds_what_fuzz_may_not_include(self):
        for name in ['"board/Board.h"', '"practice/chess/Moves.h"', '"../src/board/Rules.h"', "<QString>", '"QString"']:
            with self.subTest(name):
                changes = {"fuzz/Tape.h": f"// Tape.\n#include {name}\n"}
                self.expect(changes, "fuzz/Tape.h:2", "neither a file of fuzz/ nor of brightrank_core")

    def test_fuzz_may_include_the_quiet_surfaces_of_the_tests_alone(self):
        for header, sound in [("board/QuietGame.h", True), ("board/BoardRig.h", False)]:
            with self.subTest(header):
                changes = {f"tests/{header}": "// A game.\n", "fuzz/Tape.h": f'// Tape.\n#include "{header}"\n'}
                if sound:
                    self.assertEqual(self.run_on(changes), (0, ""))
                else:
                    self.expect(changes, "fuzz/Tape.h:2", "neither a file of fuzz/ nor of brightrank_core")

    def test_finds_angle_brackets_in_fuzz(self):
        for name in ["Tape.h", "board/Rules.h"]:
            with self.subTest(name):
                changes = {"fuzz/FuzzRules.cpp": f"// Rules.\n#include <{name}>\n"}
                self.expect(changes, "fuzz/FuzzRules.cpp:2", "belongs in quotes")

    def test_finds_a_circle_in_fuzz(self):
        rig = {"fuzz/Rig.h": '// Rig.\n#include "Tape.h"\n'}
        self.assertEqual(self.run_on(rig), (0, ""))
        for tape in ["fuzz/Tape.h", "fuzz/Tape.cpp"]:
            with self.subTest(tape):
                changes = {**rig, tape: '// Tape.\n#include "Rig.h"\n'}
                self.expect(changes, "fuzz/", "circle of includes", "Rig", "Tape")

    def test_finds_ways_in_which_a_text_could_be_markup(self):
        for line in ["page->setHtml(text);", "box->setTextFormat(Qt::RichText);", "setWindowTitle(shownText(player));"]:
            with self.subTest(line):
                changes = {"src/board/Board.h": SOUND["src/board/Board.h"] + line + "\n"}
                self.expect(changes, "src/board/Board.h:5", "could show a text of others as markup")

    def test_finds_a_tree_that_is_gone(self):
        for top in ["src", "practice", "fuzz"]:
            with self.subTest(top):
                gone = {name: None for name in SOUND if name.startswith(top + "/")}
                self.expect(gone, f"{top}: no source files")

    def test_finds_an_empty_tree(self):
        with tempfile.TemporaryDirectory() as root:
            done = subprocess.run([sys.executable, CHECK, root], capture_output=True, text=True, check=False)
            self.assertEqual(done.returncode, 1)
            self.assertIn("no source files", done.stderr)


if __name__ == "__main__":
    unittest.main()
