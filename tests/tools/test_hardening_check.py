#!/usr/bin/env python3
"""Runs the hardening check on small programs made for the purpose: a sound one, and one for each thing taken away."""
import os
import subprocess
import sys
import tempfile
import unittest

CHECK = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools", "hardening_check.py")
COMPILER = os.environ.get("CXX", "c++")

SOURCE = """
#include <cstdio>
#include <vector>
int at(const std::vector<int>& values, int place) { return values[static_cast<unsigned>(place)]; }
int deep(int count) { volatile char room[20000]; room[count] = 1; return room[count]; }
%s
int main(int count, char** texts) {
    char text[64];
    std::snprintf(text, sizeof text, "%%s", texts[0]);
    std::printf("%%s %%d %%d\\n", text, at(std::vector<int>(9), count), deep(count));
    return 0;
}
""" % "".join(f"int other{number}() {{ return {number}; }}\n" for number in range(30))

SOUND = ["-O1", "-fPIE", "-pie", "-fstack-protector-strong", "-fstack-clash-protection", "-fcf-protection=full"]
SOUND += ["-U_FORTIFY_SOURCE", "-D_FORTIFY_SOURCE=3", "-D_GLIBCXX_ASSERTIONS", "-Wl,-z,relro,-z,now,-z,noexecstack"]


class HardeningCheck(unittest.TestCase):
    def run_with(self, *last, arguments=()):
        """Status and findings of the check on a program built as it should be, but for the compiler's `last` words."""
        with tempfile.TemporaryDirectory() as folder:
            source, program = os.path.join(folder, "source.cpp"), os.path.join(folder, "program")
            with open(source, "w", encoding="ascii") as file:
                file.write(SOURCE)
            subprocess.run([COMPILER, *SOUND, *last, source, "-o", program], check=True)
            done = subprocess.run([sys.executable, CHECK, *arguments, program], capture_output=True, text=True, check=False)
            return done.returncode, done.stderr.replace(program + " ", "")

    def expect(self, finding, *last):
        """The program built with `last` has just this finding."""
        self.assertEqual(self.run_with(*last), (1, finding + "\n"))

    def test_passes_a_sound_program(self):
        self.assertEqual(self.run_with(), (0, ""))

    def test_finds_fixed_addresses(self):
        self.expect("is not position-independent", "-no-pie", "-fno-pie")

    def test_finds_missing_read_only_relocations(self):
        self.expect("has no read-only relocations", "-Wl,-z,norelro")

    def test_finds_late_binding(self):
        self.expect("binds its names late, so that their table stays writable", "-Wl,-z,lazy")

    def test_finds_code_on_the_stack(self):
        self.expect("has a stack that may hold code", "-Wl,-z,execstack")

    def test_finds_a_folder_of_libraries(self):
        self.expect("looks for libraries in a folder of its own", "-Wl,-rpath,/opt/lib")

    def test_finds_missing_guards(self):
        self.expect("has no guards on its stack", "-fno-stack-protector")

    def test_finds_unchecked_functions(self):
        self.expect("does not use the checked functions of the C library", "-U_FORTIFY_SOURCE")

    def test_passes_unchecked_functions_when_told_so(self):
        self.assertEqual(self.run_with("-U_FORTIFY_SOURCE", arguments=["--unfortified"]), (0, ""))

    def test_finds_unchecked_containers(self):
        self.expect("does not check the containers of the C++ library", "-U_GLIBCXX_ASSERTIONS")

    def test_finds_jumps_that_land_anywhere(self):
        self.expect("lets indirect jumps land anywhere", "-fcf-protection=none")

    def test_finds_frames_that_are_not_touched(self):
        self.expect("takes large frames of the stack without touching their pages", "-fno-stack-clash-protection")


if __name__ == "__main__":
    unittest.main()
