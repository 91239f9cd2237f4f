#!/usr/bin/env python3
"""Breaks a small made-up project from beginning to end: what is told of each break, and what the call ends with."""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

TOOLS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools")
sys.path.insert(0, TOOLS)
import break_build
import break_rules

FILES = {
    "CMakeLists.txt": """cmake_minimum_required(VERSION 3.24)
project(made CXX)
set(CMAKE_CXX_STANDARD 20)
find_package(GTest REQUIRED)
add_library(brightrank_core STATIC)
target_include_directories(brightrank_core PUBLIC src)
add_subdirectory(src/common)
add_executable(core_tests tests/MadeTest.cpp)
target_link_libraries(core_tests brightrank_core GTest::gtest GTest::gtest_main)
""",
    "src/common/CMakeLists.txt": "target_sources(brightrank_core PRIVATE Made.cpp Made.h)\n",
    "src/common/Made.h": """#pragma once
#include <string>

constexpr int Cells = 2;
constexpr int Most = 7;

int cells();
bool isSmall(int n);
std::string word(bool loud);
int unseen(int n);
int start();
bool isForked(int n);
""",
    "src/common/Made.cpp": """#include "common/Made.h"

namespace {
int early() { return 3; }
const int Start = early();
}

char row[Cells];
int cells() { return sizeof row; }

bool isSmall(int n) { return n < Most; }

std::string word(bool loud) { return loud ? "!" : std::string(".") + "x"; }

int unseen(int n) { return n + 5; }

int start() { return Start; }

bool isForked(int n) { return n == 1; }
""",
    "tests/MadeTest.cpp": """#include "common/Made.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

TEST(Made, Cells) { EXPECT_EQ(cells(), 2); }
TEST(Made, Small) {
    EXPECT_TRUE(isSmall(1));
    EXPECT_FALSE(isSmall(9));
}
TEST(Made, Words) { EXPECT_EQ(word(true) + word(false), "!.x"); }
TEST(Made, Start) { EXPECT_EQ(start(), 3); }
TEST(Made, Forked) {
    if (fork() == 0) _exit(isForked(1) && !isForked(0) && !isForked(2) ? 0 : 1);
    int status = 0;
    wait(&status);
    EXPECT_EQ(status, 0);
}
TEST(Made, Again) {
    char path[4096]{};
    ASSERT_GT(readlink("/proc/self/exe", path, sizeof path - 1), 0);
    EXPECT_EQ(std::system((std::string(path) + " --gtest_filter=Made.Cells >/dev/null").c_str()), 0);
}
TEST(Made, FailsAlways) { EXPECT_EQ(unseen(0), 0); }
""",
    "tools/equivalent_breaks.txt": """src/common/Made.cpp | isSmall | bool isSmall(int n) { return n < Most; } | < -> <=
    Nobody asks.

src/common/Made.cpp | isSmall | bool isSmall(int n) { return n < Most; } | negate return n < Most
    Not true.
""",
}
OPEN = ["src/common/Made.cpp:15: unseen | int unseen(int n) { return n + 5; } | + -> -",
        "src/common/Made.cpp:15: unseen | int unseen(int n) { return n + 5; } | 5 -> 4",
        "src/common/Made.cpp:15: unseen | int unseen(int n) { return n + 5; } | 5 -> 6",
        "src/common/Made.h:5: - | constexpr int Most = 7; | 7 -> 6",
        "src/common/Made.h:5: - | constexpr int Most = 7; | 7 -> 8"]


class BreakCampaign(unittest.TestCase):
    def test_tells_what_no_test_notices(self):
        with tempfile.TemporaryDirectory() as root:
            self.make(root)
            code, said = self.call(root, "--jobs", "2")
            self.assertEqual([line for line in said if line.startswith("src/")], OPEN)
            self.assertIn("listed, but noticed: src/common/Made.cpp:11: isSmall | bool isSmall(int n) { return n < Most; } "
                          "| negate return n < Most", said)
            self.assertIn("not counted, for they fail without a break: Made.FailsAlways", said)
            self.assertIn("compiled; 2 breaks need a compilation of their own", said)
            self.assertEqual((code, self.counts(said)), (1, {"breaks": 19, "killed": 13, "listed": 1, "open": 5, "no program": 1,
                                                             "not made": 0, "not reached": 0}))
            break_build.put(os.path.join(root, "told"), "\n".join(said))
            code, again = self.call(root, "--again", os.path.join(root, "told"), "--minutes", "1")
            self.assertEqual((code, [line for line in again if line.startswith("src/")]), (1, OPEN))
            code, none = self.call(root, "--minutes", "0.0000001")
            self.assertEqual((code, self.counts(none)["killed"], self.counts(none)["not reached"]), (0, 0, 19))
            self.assertEqual(break_build.textOf(os.path.join(root, "src/common/Made.cpp")), FILES["src/common/Made.cpp"])

    def make(self, root):
        files = {**{f"src/{room}/CMakeLists.txt": "" for room in break_rules.ROOMS}, **FILES}
        for name, text in files.items():
            break_build.put(os.path.join(root, name), text)
        for name in os.listdir(TOOLS):
            if name.startswith("break_") or name == "one_line_breaks.py":
                shutil.copy(os.path.join(TOOLS, name), os.path.join(root, "tools"))

    def call(self, root, *asked):
        """What the call ends with, and the lines that it tells, without the times of day."""
        done = subprocess.run([sys.executable, "-B", os.path.join(root, "tools", "break_rules.py"), *asked], capture_output=True,
                              text=True, check=False)
        self.assertEqual(done.stderr, "")
        return done.returncode, sorted(re.sub(r"^\d\d:\d\d:\d\d ", "", line) for line in done.stdout.splitlines())

    def counts(self, said):
        row = next(line for line in said if line.startswith("common ")).split()
        return dict(zip(("breaks", "killed", "listed", "open", "no program", "not made", "not reached"),
                        map(int, row[1:5] + row[6:])))


if __name__ == "__main__":
    unittest.main()
