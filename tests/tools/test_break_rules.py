#!/usr/bin/env python3
"""Breaks a small made-up file: which breaks are found, how they are named, and that each is the one that its number chooses."""
import os
import re
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools"))
import break_rules
import one_line_breaks

CODE = """// A made-up file.
#include <string>
#include <vector>

namespace {

constexpr int Most = 7; // a comment with 5 < 6

struct Pair {
    int first = 3;
    Pair(int a) : first(a + 1) { first += 2; }
};

} // namespace

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

# What a program prints that calls the three functions.
CALLS = """#include <iostream>
#include <string>
#include <vector>
#include <cstdlib>
bool isSmall(int); int total(const std::vector<int>&); std::string word(bool);
int breakChosen, breakTraced;
void breakSeen(int function) { std::cout << "f" << function << ' '; }
int main(int, char** argv) {
    breakChosen = std::atoi(argv[1]);
    breakTraced = std::atoi(argv[2]);
    std::cout << isSmall(7) << ' ' << total({1, -1, 4}) << ' ' << word(false) << word(true) << std::endl;
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
        self.assertEqual(inside, {"Pair", "isSmall", "total", "word"})
        self.assertEqual(outside, ["7 -> 8", "7 -> 6", "3 -> 4", "3 -> 2", "+ -> -", "1 -> 2", "1 -> 0"])

    def test_swaps_no_assignments_that_do_not_see_each_other(self):
        told = toldOf("void f() {\n    a = g(1);\n    b = g(2);\n    c = g(b);\n}\n")
        self.assertEqual([one for one in told if one.startswith("swap")], ["swap b = g(2) and c = g(b)"])

    def test_keys_outlive_the_moving_of_lines(self):
        keys = [one.key for one in finderOf(CODE).breaks]
        self.assertEqual(keys, [one.key for one in finderOf("\n\n" + CODE.replace("    if", "        if")).breaks])
        self.assertEqual(len(keys), len(set(keys)))

    def test_number_chooses_the_break_and_nothing_else_changes(self):
        finder = finderOf(CODE)
        numbers = {function: number for number, function in enumerate(finder.layout.functions, 1)}
        inside = [one for one in finder.breaks if one.function]
        for number, one in enumerate(inside, 1):
            one.number = number
        with tempfile.TemporaryDirectory() as folder:
            wrong = self.notCompiling(folder, *one_line_breaks.schema(CODE, finder, inside, numbers.get))
            self.assertEqual([one.told for one in wrong], ["+= -> -="])
            inside = [one for one in inside if one not in wrong]
            run = self.built(folder, one_line_breaks.schema(CODE, finder, inside, numbers.get)[0])
            self.assertEqual(run(0), "0 5 abc\n")
            self.assertEqual(set(re.findall(r"f\d", run(0, 1))), {"f2", "f3", "f4"})
            chosen = {one.told: run(one.number) for one in inside}
        self.assertEqual(chosen["< -> <="], "1 5 abc\n")
        self.assertEqual(chosen["negate return n < Most"], "1 5 abc\n")
        self.assertEqual(chosen["drop continue"], "0 4 abc\n")
        self.assertEqual(chosen["+= -> -="], "0 -5 abc\n")
        self.assertEqual(chosen["drop text.clear()"], "0 5 abcabc\n")
        self.assertEqual(chosen["swap add('a') and text.append(\"bc\")"], "0 5 bca\n")
        self.assertEqual(chosen["'a' -> 'b'"], "0 5 bbc\n")

    def notCompiling(self, folder, code, owners):
        """The breaks on whose lines the compiler finds errors."""
        with open(os.path.join(folder, "made.cpp"), "w", encoding="utf-8") as file:
            file.write(code)
        said = subprocess.run(["g++", "-std=c++20", "-w", "-fsyntax-only", "made.cpp"], cwd=folder, capture_output=True,
                              text=True, check=False).stderr
        return {owners[int(line)] for line in re.findall(r"made\.cpp:(\d+):\d+: error", said)}

    def built(self, folder, code):
        """The program of `code`, as a function of the break's number."""
        for name, text in (("made.cpp", code), ("calls.cpp", CALLS)):
            with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
                file.write(text)
        program = os.path.join(folder, "made")
        subprocess.run(["g++", "-std=c++20", "-w", "made.cpp", "calls.cpp", "-o", program], cwd=folder, check=True)
        return lambda number, traced=0: subprocess.run([program, str(number), str(traced)], capture_output=True, text=True,
                                                       check=True).stdout

    def test_what_one_test_alone_entered_is_shown_to_all_others(self):
        tests = break_rules.Tests.__new__(break_rules.Tests)
        tests.outside, tests.program = {4}, ""
        tests.seconds = {name: 0 for name in ("A.a", "A.b", "A.c")}
        tests.width = {name: 1 for name in tests.seconds}
        tests.entered = {1: ["A.a"], 2: ["A.a", "A.b"]}
        tests.fails = lambda names, number, program: "A.c" in names
        self.assertEqual([tests.noticeIn(function, 1) for function in (1, 2, 3, 4)], [True, False, False, True])

    def test_a_listed_break_needs_its_reason(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "list.txt")
            with open(path, "w", encoding="utf-8") as file:
                file.write("# words\n\na.cpp | f | x < 1; | < -> <=\n    Never 1.\na.cpp | f | y; | drop y\n")
            known = break_rules.Known(path)
        self.assertTrue(known.holds("a.cpp | f | x < 1; | < -> <="))
        self.assertFalse(known.holds("a.cpp | f | y; | drop y"))
        self.assertFalse(known.holds("b.cpp | f | x < 1; | < -> <="))

    def test_the_list_names_breaks_that_can_be_made(self):
        root = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
        known = break_rules.Known(os.path.join(root, "tools", "equivalent_breaks.txt"))
        names = {key.split(" | ")[0] for key in known.reasons}
        made = {one.key for name in names for one in break_rules.Source(root, name).breaks}
        self.assertEqual(sorted(set(known.reasons) - made), [])


if __name__ == "__main__":
    unittest.main()
