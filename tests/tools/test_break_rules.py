#!/usr/bin/env python3
"""Breaks a small made-up file: which breaks are found, how they are named, and that each is the one that its number chooses."""
import argparse
import contextlib
import io
import os
import re
import subprocess
import sys
import tempfile
import threading
import time
import unittest
import unittest.mock

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools"))
import break_build
import break_choices
import break_rules
import one_line_breaks

CODE = """// A made-up file.
#include <string>
#include <vector>

namespace {

constexpr int Most = 7; // a comment with 5 < 6

struct Pair {
    int first = 3;
    int second = 8;
    Pair(int a) : first(a + 1) { first += 2; }
};

} // namespace

int sumOfPair() {
    const Pair pair(2);
    return pair.first + pair.second;
}

bool isSmall(int n) { return n < Most; }

int total(const std::vector<int>& numbers) {
    int sum = 0;
    for (std::size_t i = 0; i != numbers.size(); ++i) {
        if (numbers[i] == -1 && !numbers.empty()) continue;
        sum += numbers[i];
    }
    return sum;
}

std::string word(bool yes) {
    std::string text;
    const auto add = [&](char c) { text += c; };
    add('a');
    text.append("bc");
    if (yes) text.clear();
    return text;
}
"""

# What a program prints that calls its functions.
CALLS = """#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>
bool isSmall(int); int total(const std::vector<int>&); std::string word(bool); int sumOfPair();
int breakChosen, breakTraced;
void breakSeen(int part) { std::printf("f%d ", part); }
int breakAt(int value) {
    if (breakTraced) breakSeen(value);
    return breakChosen;
}
__attribute__((constructor(101))) void choose() {
    breakChosen = std::atoi(std::getenv("CHOSEN"));
    breakTraced = std::atoi(std::getenv("TRACED"));
}
int main() {
    const int small = isSmall(7), sum = total({1, -1, 4});
    const std::string words = word(false) + word(true);
    std::printf("%d %d %s %d\\n", small, sum, words.c_str(), sumOfPair());
}
"""


def finderOf(code):
    return one_line_breaks.Finder(code)


def toldOf(code):
    return [one.told for one in finderOf(code).breaks]


class BreakRules(unittest.TestCase):
    def test_finds_each_kind_of_break(self):
        told = toldOf(CODE)
        for one in ["< -> <=", "== -> !=", "&& -> ||", "7 -> 8", "7 -> 6", "+ -> -", "+= -> -=", "drop - of -1",
                    "drop ! of !numbers", "drop continue", "drop text.clear()", "negate (yes)", "negate return n < Most",
                    '"bc" -> text~', "'a' -> 'b'", "swap add('a') and text.append(\"bc\")", "drop text += c"]:
            self.assertIn(one, told)

    def test_leaves_comments_templates_and_steps_of_loops_alone(self):
        told = toldOf(CODE)
        self.assertNotIn("5 -> 6", told)
        self.assertNotIn("++ -> --", told)
        self.assertEqual(told.count("< -> <="), 1)
        self.assertEqual(told.count("&& -> ||"), 1)

    def test_knows_functions_from_what_stands_outside(self):
        inside = {one.function.name for one in finderOf(CODE).breaks if one.function}
        outside = [one.told for one in finderOf(CODE).breaks if not one.function]
        self.assertEqual(inside, {"Pair", "sumOfPair", "isSmall", "total", "word"})
        self.assertEqual(outside, ["7 -> 8", "7 -> 6", "3 -> 4", "3 -> 2", "8 -> 9", "8 -> 7", "+ -> -", "1 -> 2", "1 -> 0"])

    def test_leaves_static_assertions_alone_and_finds_what_follows_a_label(self):
        self.assertEqual(toldOf("int f(int n) {\n    static_assert(4 < 5);\n    switch (n) {\n    case A::One: g();\n    }\n}\n"),
                         ["drop g()"])

    def test_swaps_no_assignments_that_do_not_see_each_other(self):
        told = toldOf("void f() {\n    a = g(1);\n    b = g(2);\n    c = g(b);\n}\n")
        self.assertEqual([one for one in told if one.startswith("swap")], ["swap b = g(2) and c = g(b)"])

    def test_swaps_assignments_that_see_each_other(self):
        def swaps(*lines):
            told = toldOf("void f() {\n" + "".join(f"    {line};\n" for line in lines) + "}\n")
            return [one for one in told if one.startswith("swap")]

        self.assertEqual(swaps("a = b", "b = 0"), ["swap a = b and b = 0"])
        self.assertEqual(swaps("rows[at] = line", "++at"), ["swap rows[at] = line and ++at"])
        self.assertEqual(swaps("text += line", "text += ' '"), ["swap text += line and text += ' '"])
        self.assertEqual(swaps("rows[at + 1] = 0", "cells[rows[at]] = 1"), ["swap rows[at + 1] = 0 and cells[rows[at]] = 1"])
        for one, other in (("a = b", "c = d"), ("rows[0] = a", "rows[1] = b"), ("a += b", "--c"), ("++at", "++at")):
            self.assertEqual(swaps(one, other), [])

    def test_negates_what_stands_before_a_question_mark_unless_it_is_broken_itself(self):
        def negated(choice):
            return [one for one in toldOf("void f() {\n    a = " + choice + ";\n}\n") if one.startswith("negate")]

        self.assertEqual(negated("b ? c : d"), ["negate b ?"])
        self.assertEqual(negated("g(b < c)[d] ? e : h"), ["negate g(b < c)[d] ?"])
        self.assertEqual(negated("b && c ? d : e"), ["negate c ?"])
        self.assertEqual(negated("g(b ? c : d ? e : h)"), ["negate b ?", "negate d ?"])
        self.assertEqual(negated("b < c ? d : e"), [])
        self.assertEqual(negated("!b ? c : d"), [])

    def test_what_a_negated_condition_chooses_is_the_other(self):
        code = """#include <optional>
bool any(int n) { return n != 0; }
template <int A, int B> int both(int n) { return n & A & B; }
const int Start = any(2) ? 3 : 4;
int pointer(const int* p) { return p ? 1 : 2; }
int maybe(std::optional<int> n) { return n ? 1 : 2; }
int bits(int a, int b) { return a & b ? 1 : 2; }
int named(int n) { return both<3, 1>(n) ? 1 : 2; }
int times(int n) {
    n *= any(n) ? 3 : 4;
    return n;
}
"""
        calls = """#include <cstdio>
#include <cstdlib>
#include <optional>
extern const int& start;
int pointer(const int*); int maybe(std::optional<int>); int bits(int, int); int named(int); int times(int);
int breakChosen = std::atoi(std::getenv("CHOSEN")), breakTraced = 0;
void breakSeen(int) {}
int breakAt(int) { return std::atoi(std::getenv("CHOSEN")); }
int main() {
    std::printf("%d %d%d %d%d %d%d %d %d\\n", start, pointer(&breakChosen), pointer(nullptr), maybe(0), maybe({}), bits(6, 2),
                bits(4, 2), named(3), times(5));
}
"""
        finder = finderOf(code + "extern const int& start;\nconst int& start = Start;\n")
        negated = [one for one in finder.breaks if one.told.endswith("?")]
        for number, one in enumerate(negated, 1):
            one.number = number
        with tempfile.TemporaryDirectory() as folder:
            choices = break_choices.Choices(finder.code, finder)
            run = self.built(folder, choices.together(negated, lambda part: 1)[0], calls)
            self.assertEqual(run(0), "3 12 12 12 1 15\n")
            self.assertEqual([(one.told, run(one.number)) for one in negated],
                             [("negate any(2) ?", "4 12 12 12 1 15\n"), ("negate p ?", "3 21 12 12 1 15\n"),
                              ("negate n ?", "3 12 21 12 1 15\n"), ("negate a & b ?", "3 12 12 21 1 15\n"),
                              ("negate both<3, 1>(n) ?", "3 12 12 12 2 15\n"), ("negate any(n) ?", "3 12 12 12 1 20\n")])

    def test_breaks_operators_on_bits_and_the_rest_of_a_division(self):
        told = toldOf("void f() {\n    a = b % c & d | e ^ g << h >> i;\n    a |= b;\n    a &= c;\n}\n")
        for one in ["% -> /", "& -> |", "| -> &", "^ -> |", "<< -> >>", ">> -> <<", "|= -> &=", "&= -> |="]:
            self.assertIn(one, told)

    def test_drops_what_is_set_through_a_pointer(self):
        self.assertIn("drop *place = 3", toldOf("void f(int* place) {\n    *place = 3;\n}\n"))
        self.assertIn("drop delete place", toldOf("void f(int* place) {\n    delete place;\n}\n"))
        self.assertNotIn("drop int* other", toldOf("void f() {\n    int* other;\n}\n"))

    def test_breaks_templates_whose_arguments_have_values(self):
        code = "template <typename T, int Last = 7>\nclass Row {\n    bool has(int n) { return n <= Last; }\n};\n"
        self.assertEqual(toldOf(code), ["negate return n <= Last", "<= -> <"])

    def test_breaks_a_lambda_that_gives_a_value_as_a_function(self):
        finder = finderOf("const Row Sizes = [] {\n    Row row;\n    row.fill(3);\n    return row;\n}();\nint last = 4;\n")
        self.assertEqual([(one.function.name, one.told) for one in finder.breaks if one.function],
                         [("Sizes", "drop row.fill(3)"), ("Sizes", "3 -> 4"), ("Sizes", "3 -> 2")])
        self.assertEqual([one.told for one in finder.breaks if not one.function], ["4 -> 5", "4 -> 3"])

    def test_keys_outlive_the_moving_of_lines(self):
        keys = [one.key for one in finderOf(CODE).breaks]
        self.assertEqual(keys, [one.key for one in finderOf("\n\n" + CODE.replace("    if", "        if")).breaks])
        self.assertEqual(len(keys), len(set(keys)))

    def test_number_chooses_the_break_and_nothing_else_changes(self):
        finder = finderOf(CODE)
        parts = {part: number for number, part in enumerate(finder.layout.functions + finder.layout.values, 1)}
        for number, one in enumerate(finder.breaks, 1):
            one.number = number
        choices = break_choices.Choices(CODE, finder)
        with tempfile.TemporaryDirectory() as folder:
            wrong = self.notCompiling(folder, *choices.together(finder.breaks, parts.get))
            self.assertEqual([one.told for one in wrong], ["+= -> -="])
            right = [one for one in finder.breaks if one not in wrong]
            run = self.built(folder, choices.together(right, parts.get)[0])
            self.assertEqual(run(0), "0 5 abc 13\n")
            asked = {f"f{number}" for part, number in parts.items() if part.name != "first"}  # which the constructor sets
            self.assertEqual(set(re.findall(r"f\d+", run(0, 1))), asked)
            chosen = {one.told: run(one.number) for one in right}
        self.assertEqual(chosen["< -> <="], "1 5 abc 13\n")
        self.assertEqual(chosen["negate return n < Most"], "1 5 abc 13\n")
        self.assertEqual(chosen["drop continue"], "0 4 abc 13\n")
        self.assertEqual(chosen["+= -> -="], "0 -5 abc 13\n")
        self.assertEqual(chosen["drop text.clear()"], "0 5 abcabc 13\n")
        self.assertEqual(chosen["swap add('a') and text.append(\"bc\")"], "0 5 bca 13\n")
        self.assertEqual(chosen["'a' -> 'b'"], "0 5 bbc 13\n")
        self.assertEqual(chosen["7 -> 8"], "1 5 abc 13\n")
        self.assertEqual(chosen["drop first += 2"], "0 5 abc 11\n")
        self.assertEqual(chosen["8 -> 9"], "0 5 abc 14\n")

    def test_a_name_that_the_compiler_needs_stays_a_constant(self):
        code = "constexpr int Size = 3;\nstruct Row {\n    static constexpr int Least = -2;\n};\n"
        finder = finderOf(code)
        loose = break_choices.Choices(code, finder)
        self.assertEqual(loose.alone(finder.breaks[0]), code.replace("static constexpr", "static const inline")
                         .replace("constexpr int Size = 3", "const int Size = 4"))
        kept = break_choices.Choices(code, finder, {"Size"})
        self.assertEqual([kept.isFixed(one) for one in finder.breaks], [True, True, False, False, False])
        self.assertTrue(kept.alone(finder.breaks[0]).startswith("constexpr int Size = 4;"))

    def test_the_compiler_tells_which_name_it_needs(self):
        code = "constexpr int Size = 3;\nint cells[Size];\nint more = 1;\n"
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "made.cpp")
            finder = finderOf(code)
            for number, one in enumerate(finder.breaks, 1):
                one.number, one.fate, one.alone = number, None, False
            choices = break_choices.Choices(code, finder)
            workshop = break_build.Workshop(folder, folder)
            workshop.written = {path: choices.together(finder.breaks, lambda part: 1)}
            workshop.loosened = choices.loosened
            with open(path, "w", encoding="utf-8") as file:
                file.write(workshop.written[path][0])
            said = subprocess.run(["g++", "-std=c++20", "-fsyntax-only", path], capture_output=True, text=True, check=False).stderr
            self.assertTrue(workshop.blame([said]))
        self.assertEqual(workshop.kept, {"Size"})
        self.assertFalse(any(one.fate or one.alone for one in finder.breaks))

    def notCompiling(self, folder, code, owners):
        """The breaks on whose lines the compiler finds errors."""
        with open(os.path.join(folder, "made.cpp"), "w", encoding="utf-8") as file:
            file.write(code)
        said = subprocess.run(["g++", "-std=c++20", "-w", "-fsyntax-only", "made.cpp"], cwd=folder, capture_output=True,
                              text=True, check=False).stderr
        return {one for line in re.findall(r"made\.cpp:(\d+):\d+: error", said) for one in owners[int(line)]}

    def built(self, folder, code, calls=CALLS):
        """The program of `code`, as a function of the break's number."""
        for name, text in (("made.cpp", code), ("calls.cpp", calls)):
            with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
                file.write(text)
        program = os.path.join(folder, "made")
        subprocess.run(["g++", "-std=c++20", "-w", "made.cpp", "calls.cpp", "-o", program], cwd=folder, check=True)
        return lambda number, traced=0: subprocess.run([program], capture_output=True, text=True, check=True,
                                                       env={"CHOSEN": str(number), "TRACED": str(traced)}).stdout

    def made(self):
        """Tests of no program, which say by `fails` what they find."""
        tests = break_rules.Tests.__new__(break_rules.Tests)
        tests.program, tests.unbroken, tests.turn = "", {}, threading.Lock()
        return tests

    def test_what_one_test_alone_entered_is_shown_to_all_others(self):
        tests = self.made()
        tests.outside = {4}
        tests.seconds = {name: 0 for name in ("A.a", "A.b", "A.c")}
        tests.width = {name: 1 for name in tests.seconds}
        tests.entered = {1: ["A.a"], 2: ["A.a", "A.b"]}
        tests.fails = lambda names, number, program: number and "A.c" in names
        self.assertEqual([tests.noticeIn(function, 1) for function in (1, 2, 3, 4)], [True, False, False, True])

    def test_a_value_is_shown_to_its_readers_first(self):
        tests = self.made()
        tests.outside = {3, 9}
        tests.seconds = {"A.a": 0, "A.b": 0, "A.c": 0, "A.slow": 1}
        tests.width = {name: 1 for name in tests.seconds}
        tests.entered = {1: ["A.a", "A.b"], 2: ["A.b"], 4: ["A.slow"]}
        asked = []
        tests.fails = lambda names, number, program: asked.extend(names)

        def askedFor(*value):
            asked.clear()
            self.assertFalse(tests.noticeValue(*value, 1))
            return asked.copy()

        self.assertEqual(askedFor(1, set()), ["A.a", "A.b"])
        self.assertEqual(askedFor(3, {2, 9}), ["A.b", "A.a", "A.c", "A.slow"])
        self.assertEqual(askedFor(3, {4}), ["A.a", "A.b", "A.c", "A.slow"])
        self.assertEqual(askedFor(5, {2}), [])

    def test_what_fails_without_a_break_notices_none(self):
        tests = self.made()
        tests.seconds = {"A.a": 0, "A.b": 0, "A.slow": 1}
        asked = []

        def fails(names, number, program):
            asked.append((names, number))
            return names == ["A.a", "A.b"]

        tests.fails = fails
        with contextlib.redirect_stdout(io.StringIO()) as told:
            self.assertEqual([tests.notice(list(tests.seconds), number) for number in (1, 2)], [False, False])
        self.assertEqual(told.getvalue(), "not counted, for they fail together without a break: A.a A.b\n")
        self.assertEqual(asked, [(["A.a", "A.b"], 1), (["A.a", "A.b"], 0), (["A.slow"], 1), (["A.a", "A.b"], 2), (["A.slow"], 2)])

    def workshop(self, folder):
        workshop = break_build.Workshop(folder, os.path.join(folder, "build"))
        os.makedirs(workshop.scratch, exist_ok=True)
        return workshop

    def traced(self, folder, ending, beginning=""):
        """Tests of a program that does `beginning`, writes its trace and does `ending`."""
        workshop = self.workshop(folder)
        body = f"#!/bin/sh\n{beginning}\necho 'A.a 2000 1' > $BREAK_TRACE\necho '!A.b 0 1' >> $BREAK_TRACE\n{ending}\n"

        def link(target, program):
            break_build.put(program, body)
            os.chmod(program, 0o755)

        workshop.link = link
        return break_rules.Tests(workshop, "made")

    def test_a_program_that_ends_in_its_middle_without_a_break_is_told(self):
        with tempfile.TemporaryDirectory() as folder:
            tests = self.traced(folder, "echo end >> $BREAK_TRACE; exit 1")
            self.assertEqual((tests.seconds, tests.failing, tests.entered), ({"A.a": 2}, ["A.b"], {1: ["A.a"]}))
            with self.assertRaisesRegex(SystemExit, "made does not come to its end"):
                self.traced(folder, "", "exit 1")  # what the last one wrote is gone
        for ending in ("exit 0", "kill $$"):
            with tempfile.TemporaryDirectory() as folder, self.assertRaisesRegex(SystemExit, "made does not come to its end"):
                self.traced(folder, ending)

    def test_each_run_of_a_program_has_a_folder_and_a_list_of_its_own(self):
        with tempfile.TemporaryDirectory() as folder:
            tests = self.traced(folder, "echo end >> $BREAK_TRACE")
            program = os.path.join(folder, "asks")
            break_build.put(program, '#!/bin/sh\ngrep -q "filter=A.$BREAK_CHOSEN$" ${3#*=} || exit 1\ntest ! -e left || exit 1\n'
                            'touch left\nsleep 0.1\ngrep -q "filter=A.$BREAK_CHOSEN$" ${3#*=}\n')
            os.chmod(program, 0o755)
            tests.seconds = {f"A.{number}": 0 for number in range(4)}
            found = []
            runs = [threading.Thread(target=lambda number=number: found.append(tests.fails([f"A.{number}"], number, program)))
                    for number in range(4)]
            for one in runs:
                one.start()
            for one in runs:
                one.join()
            self.assertEqual(found, [False] * 4)
            self.assertTrue(tests.fails(["A.1"], 2, program))

    def test_a_hang_and_a_failing_are_noticed(self):
        with tempfile.TemporaryDirectory() as folder, unittest.mock.patch("break_rules.LEAST_WAIT", 0.5):
            tests = self.traced(folder, "echo end >> $BREAK_TRACE")
            program = os.path.join(folder, "ends")
            break_build.put(program, "#!/bin/sh\ncase $BREAK_CHOSEN in 0) exit 0;; 1) exit 1;; 2) kill $$;; 3) exec sleep 60;; "
                            "4) while :; do :; done;; 5) exec sleep 1;; esac\n")
            os.chmod(program, 0o755)
            tests.seconds = {"A.a": 0}
            self.assertEqual([tests.fails(["A.a"], number, program) for number in range(6)], [False, True, True, True, True, False],
                             "who only waits for the processor does not hang")

    def test_what_a_program_has_started_ends_with_it(self):
        with tempfile.TemporaryDirectory() as folder, unittest.mock.patch("break_rules.LEAST_WAIT", 0.5):
            tests = self.traced(folder, "echo end >> $BREAK_TRACE")
            program, started = os.path.join(folder, "starts"), os.path.join(folder, "started")
            break_build.put(program, f"#!/bin/sh\nsleep 60 >&- 2>&- &\necho $! > {started}\n[ $BREAK_CHOSEN = 0 ] || exec sleep 60\n")
            os.chmod(program, 0o755)
            tests.seconds = {"A.a": 0}
            for number in range(2):
                self.assertEqual(tests.fails(["A.a"], number, program), number == 1)
                self.assertTrue(self.ends(break_build.textOf(started).strip()))

    def ends(self, process):
        """Whether that process is over within two seconds."""
        for _ in range(200):
            path = f"/proc/{process}/stat"
            if not os.path.exists(path) or break_build.textOf(path).rsplit(") ", 1)[1][0] == "Z":
                return True
            time.sleep(0.01)
        return False

    def test_two_calls_do_not_share_a_folder(self):
        with tempfile.TemporaryDirectory() as folder:
            first = self.workshop(folder)
            second = break_build.Workshop(folder, first.folder)
            first.take()
            with self.assertRaisesRegex(SystemExit, "another call works in"):
                second.take()
            second.held.close()
            first.held.close()
            second.take()
            second.held.close()

    def test_what_is_changed_in_the_meantime_is_told(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("src/a.cpp", "src/b.cpp", "tests/c.cpp"):
                break_build.put(os.path.join(folder, name), "")
            workshop = self.workshop(folder)
            self.assertEqual(workshop.changed(), [])
            os.utime(os.path.join(folder, "src/a.cpp"), (1, 1))
            os.remove(os.path.join(folder, "tests/c.cpp"))
            for name in ("tests/d.cpp", "tests/tools/e.py"):
                break_build.put(os.path.join(folder, name), "")
            self.assertEqual(workshop.changed(), ["src/a.cpp", "tests/c.cpp", "tests/d.cpp"])

    def test_a_broken_header_of_an_earlier_call_is_gone(self):
        with tempfile.TemporaryDirectory() as folder:
            workshop = self.workshop(folder)
            for name in ("src/view/Old.h", "src/view/New.h"):
                break_build.put(os.path.join(folder, name), "constexpr int Size = 3;\n")
            self.written(workshop, folder, "src/view/Old.h")
            self.written(workshop, folder, "src/view/New.h")
            self.assertEqual(os.listdir(os.path.join(workshop.shadow, "view")), ["New.h"])

    def written(self, workshop, folder, name):
        source = break_build.Source(folder, name)
        for number, one in enumerate(source.breaks, 1):
            one.number = number
        source.numbers = {part: 1 for part in source.finder.layout.values}
        workshop.write([source])

    def test_an_object_that_was_not_finished_is_made_anew(self):
        with tempfile.TemporaryDirectory() as folder:
            workshop = self.workshop(folder)
            break_build.put(os.path.join(folder, "src/a.cpp"), "int a;\n")
            workshop.commands = {"src/a.cpp": "g++ -o a.o -c a.cpp"}
            says = iter(["", "interrupted", "", "not asked again"])
            workshop.compile = lambda *one, **only: next(says)
            self.assertEqual(workshop.bring("src/a.cpp", []), "")
            workshop.commands = {"src/a.cpp": "g++ -O1 -o a.o -c a.cpp"}
            self.assertEqual(workshop.bring("src/a.cpp", []), "interrupted")
            workshop.commands = {"src/a.cpp": "g++ -o a.o -c a.cpp"}
            self.assertEqual([workshop.bring("src/a.cpp", []) for _ in range(2)], ["", ""])
            self.assertEqual(next(says), "not asked again")

    def test_an_object_is_made_anew_behind_a_changed_header(self):
        with tempfile.TemporaryDirectory() as folder:
            break_build.put(os.path.join(folder, "src/a.cpp"), '#include "b.h"\n')
            break_build.put(os.path.join(folder, "src/b.h"), '#include "c.h"\n')
            compiled = []
            for number in ("1", "1", "2"):
                break_build.put(os.path.join(folder, "src/c.h"), f"constexpr int C = {number};\n")
                workshop = self.workshop(folder)
                workshop.commands = {"src/a.cpp": "g++ -o a.o -c a.cpp"}
                workshop.compile = lambda *one, number=number, **only: compiled.append(number) or ""
                workshop.bring("src/a.cpp", [])
            self.assertEqual(compiled, ["1", "2"])

    def test_a_compiler_that_ends_without_a_word_has_not_compiled(self):
        with tempfile.TemporaryDirectory() as folder:
            workshop = self.workshop(folder)
            compiler = os.path.join(folder, "c++")
            break_build.put(compiler, "#!/bin/sh\nexit 3\n")
            os.chmod(compiler, 0o755)
            workshop.commands = {"a.cpp": f"{compiler} -o a.o -c a.cpp"}
            self.assertEqual(workshop.compile("a.cpp", "a.cpp", "a.o"), "the compiler ended with 3")

    def test_what_did_not_compile_is_asked_anew_with_another_header(self):
        with tempfile.TemporaryDirectory() as folder:
            workshop = self.workshop(folder)
            header = os.path.join(folder, "src/a.h")
            break_build.put(header, "int a();\n")
            break_build.put(os.path.join(folder, "src/a.cpp"), '#include "a.h"\nint a() { return 1; }\n')

            def fates():
                source = break_build.Source(folder, "src/a.cpp")
                again = break_build.Workshop(folder, workshop.folder)
                again.recall([source])
                return {one.fate for one in source.breaks}, source

            _, source = fates()
            for one in source.breaks:
                one.fate = "no program"
            workshop.remember([source])
            self.assertEqual(fates()[0], {"no program"})
            break_build.put(header, "long a();\n")
            self.assertEqual(fates()[0], {None})

    def test_what_survived_is_shown_to_the_next_program(self):
        campaign = break_rules.Campaign.__new__(break_rules.Campaign)
        campaign.options = argparse.Namespace(minutes=None)
        fates = [None, "survived", "killed", "no program", "not made"]
        campaign.sources = [argparse.Namespace(breaks=[argparse.Namespace(fate=fate) for fate in fates])]
        self.assertEqual([one.fate for _, one in campaign.open("survived")], ["survived"])
        self.assertEqual([one.fate for _, one in campaign.open(None)], [None], "only the first program is asked")

    def test_what_no_time_is_left_for_is_not_reached(self):
        campaign = break_rules.Campaign.__new__(break_rules.Campaign)
        campaign.options, campaign.ends = argparse.Namespace(minutes=1), 0
        one = argparse.Namespace(fate="survived")
        campaign.judge(None, None, one)
        self.assertIsNone(one.fate, "another program has not seen it yet")

    def test_the_rooms_are_the_folders_of_the_sources(self):
        root = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
        folders = [name for name in os.listdir(os.path.join(root, "src")) if os.path.isdir(os.path.join(root, "src", name))]
        self.assertEqual(sorted(break_rules.ROOMS), sorted(folders))

    def test_the_numbers_of_a_file_do_not_depend_on_what_else_is_broken(self):
        root = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
        one = "src/view/PieceLists.h"

        def numbers(**asked):
            options = {"file": None, "room": None, "windows": False, "sample": None, "only": None, "again": None, "inside": False,
                       "values": False, "build": "build/break_rules", **asked}
            campaign = break_rules.Campaign(argparse.Namespace(**options), root, None)
            return {each.key: each.number for each in campaign.every() if each.file == one}

        alone = numbers(file=[os.path.join(root, one)])
        self.assertTrue(alone)
        self.assertEqual(alone, numbers(room=["view", "common"], values=True))

    def test_headers_are_those_that_core_includes(self):
        root = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
        headers = break_rules.coreHeaders(root)
        self.assertIn("src/common/FixedArray.h", headers)
        self.assertIn("src/session/Session.h", headers)
        self.assertFalse([name for name in headers if re.search(r"#include <Q", break_build.textOf(os.path.join(root, name)))])

    def test_a_listed_break_needs_its_reason(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "list.txt")
            with open(path, "w", encoding="utf-8") as file:
                file.write("# words\n\na.cpp | f | x < 1; | < -> <=\n    Never 1.\na.cpp | f | y; | drop y\n"
                           "a.cpp | f | x < 1; | < -> <=\n    Or never 2.\n")
            known = break_rules.Known(path)
        self.assertEqual(known.twice, ["a.cpp | f | x < 1; | < -> <="])
        self.assertEqual(list(known.reasons), ["a.cpp | f | x < 1; | < -> <=", "a.cpp | f | y; | drop y"])
        self.assertTrue(known.holds("a.cpp | f | x < 1; | < -> <="))
        self.assertFalse(known.holds("a.cpp | f | y; | drop y"))
        self.assertFalse(known.holds("b.cpp | f | x < 1; | < -> <="))

    def test_the_list_names_breaks_that_can_be_made(self):
        root = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
        known = break_rules.Known(os.path.join(root, "tools", "equivalent_breaks.txt"))
        names = break_rules.coreHeaders(root) + [name for room in break_rules.ROOMS for name in break_rules.coreFiles(root, room)]
        made = [one.key for name in names for one in break_rules.Source(root, name).breaks]
        self.assertEqual(len(made), len(set(made)))
        self.assertEqual(sorted(set(known.reasons) - set(made)), [])
        self.assertEqual(known.twice, [])
        self.assertEqual([key for key in known.reasons if not known.holds(key)], [])


if __name__ == "__main__":
    unittest.main()
